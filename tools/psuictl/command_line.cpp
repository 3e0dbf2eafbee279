#include "tools/psuictl/command_line.h"

#include <algorithm>
#include <limits>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include "tools/psuictl/text.h"

namespace psuictl {
namespace {

const char* const kLanguages[] = {"eng", "jpn"};

constexpr Parameter kCommonParameters[] = {
    {"--root", "DIR",
     "folder that holds the host's printers, registry and drive C:; :memory: is a throw-away one "
     "(default: $XDG_DATA_HOME/psui or ~/.local/share/psui; not on Windows)"},
    {"--language", "LANGUAGE", "language of the library's texts (default: eng)", ParameterKind::Text, false,
     false, kLanguages},
    {"--country", "N", "the user's country number while the command runs: 1 USA, 49 Germany, 81 Japan",
     ParameterKind::Number},
    {"--json", nullptr, "print the result as JSON", ParameterKind::Flag},
};

std::string CheckNumber(const std::string& text)
{
    const std::optional<int64_t> number = ParseNumber(text);
    if (number && *number >= 0 && *number <= std::numeric_limits<int32_t>::max())
        return "";
    return "'" + text + "' is no number from 0 to 2147483647";
}

std::string KeyOf(const Parameter& parameter)
{
    const std::string name = parameter.name;
    const size_t dashes = name.rfind("--");
    return dashes == std::string::npos ? name : name.substr(dashes + 2);
}

/// Builds the parser from the command tables, and remembers which command each of its leaves is.
class CommandLine
{
public:
    explicit CommandLine(Arguments& arguments) : arguments_(arguments)
    {
        root_.set_version_flag("--version", "psuictl " PSUICTL_VERSION);
        root_.require_subcommand(1);
        root_.allow_windows_style_options(false); // "/tmp/a.dm" is a file on every platform
        root_.footer("Run 'psuictl COMMAND --help' for the options of a command and examples.\n"
                     "Exit codes: 0 done, 1 failed, 2 wrong usage, 3 refused (a job that cannot print).\n");
        AddParameters(root_, kCommonParameters);
        for (const CommandFamily* family : CommandFamilies())
            AddFamily(*family);
    }

    ParsedLine Parse(std::vector<std::string> words, const Session& session)
    {
        std::reverse(words.begin(), words.end());
        try {
            root_.parse(std::move(words));
        } catch (const CLI::ParseError& error) {
            return Explain(error, session);
        }
        return {leaves_.at(Chosen()), kDone};
    }

private:
    void AddFamily(const CommandFamily& family)
    {
        CLI::App* group = root_.add_subcommand(family.name, family.summary);
        for (const Command& command : family.commands) {
            const bool whole = command.name[0] == 0;
            AddCommand(whole ? *group : *group->add_subcommand(command.name, command.summary), command);
            if (!whole)
                group->require_subcommand(1);
        }
    }

    void AddCommand(CLI::App& app, const Command& command)
    {
        AddParameters(app, command.parameters);
        AddParameters(app, kCommonParameters, "Options of every command");
        app.footer("Examples:\n" + std::string(command.examples));
        leaves_[&app] = &command;
    }

    void AddParameters(CLI::App& app, std::span<const Parameter> parameters, const char* group = "")
    {
        for (const Parameter& parameter : parameters) {
            CLI::Option* option =
                parameter.kind == ParameterKind::Flag ? AddFlag(app, parameter) : AddOption(app, parameter);
            if (*group)
                option->group(group);
        }
    }

    CLI::Option* AddFlag(CLI::App& app, const Parameter& parameter)
    {
        std::vector<std::string>& cell = arguments_.Cell(KeyOf(parameter));
        return app.add_flag_callback(
            parameter.name, [&cell] { cell.assign(1, "true"); }, parameter.help);
    }

    CLI::Option* AddOption(CLI::App& app, const Parameter& parameter)
    {
        CLI::Option* option =
            app.add_option(parameter.name, arguments_.Cell(KeyOf(parameter)), parameter.help);
        option->required(parameter.required)->type_name(parameter.value ? parameter.value : "");
        if (!parameter.several)
            option->expected(1)->take_last();
        if (!parameter.several || parameter.name[0] == '-')
            option->allow_extra_args(false); // one value a time, so that positional ones may follow
        if (parameter.kind == ParameterKind::Number)
            option->check(CLI::Validator(CheckNumber, "", "number"));
        if (!parameter.choices.empty())
            option->check(
                CLI::IsMember(std::vector<std::string>(parameter.choices.begin(), parameter.choices.end())));
        return option;
    }

    /// The innermost command of the line, as far as it was understood.
    CLI::App* Chosen()
    {
        CLI::App* app = &root_;
        while (!app->get_subcommands().empty())
            app = app->get_subcommands().front();
        return app;
    }

    ParsedLine Explain(const CLI::ParseError& error, const Session& session)
    {
        if (error.get_exit_code() == 0) {
            root_.exit(error, session.out, session.complaints);
            return {nullptr, kDone};
        }
        std::string path;
        for (const CLI::App* app = Chosen(); app && app != &root_; app = app->get_parent())
            path = " " + app->get_name() + path;
        session.complaints << "psuictl: " << error.what() << "; see 'psuictl" << path << " --help'\n";
        return {nullptr, kWrongUsage};
    }

    Arguments& arguments_;
    CLI::App root_{"Plays the print spooler and the application for the printer driver's user-interface "
                   "library.",
                   "psuictl"};
    std::map<const CLI::App*, const Command*> leaves_;
};

} // namespace

ParsedLine ParseCommandLine(std::vector<std::string> words, Session& session, Arguments& arguments)
{
    const ParsedLine parsed = CommandLine(arguments).Parse(std::move(words), session);
    if (arguments.Has("root"))
        session.root = arguments.Text("root");
    session.language = arguments.Text("language", session.language);
    session.country = arguments.Number("country");
    session.json = arguments.Has("json");
    return parsed;
}

} // namespace psuictl
