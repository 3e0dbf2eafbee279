#include "tools/psuictl/scenario.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "tools/psuictl/text.h"

namespace psuictl {
namespace {

/// A form of a step. Words in capitals stand for values; "TEXT..." for one or more of them, at the end.
struct Form
{
    const char* words;
    StepKind kind;
};

constexpr Form kForms[] = {
    {"click CONTROL", StepKind::Click},
    {"doubleclick CONTROL", StepKind::DoubleClick},
    {"rightclick CONTROL", StepKind::RightClick},
    {"check CONTROL SWITCH", StepKind::Check},
    {"select CONTROL text TEXT", StepKind::SelectText},
    {"select CONTROL index NUMBER", StepKind::SelectIndex},
    {"select CONTROL data NUMBER", StepKind::SelectData},
    {"type CONTROL TEXT", StepKind::TypeInto},
    {"type TEXT", StepKind::Type},
    {"key KEY", StepKind::Key},
    {"tab", StepKind::Tab},
    {"tab NUMBER", StepKind::Tab},
    {"mouse down CONTROL NUMBER NUMBER", StepKind::MouseDown},
    {"mouse move CONTROL NUMBER NUMBER", StepKind::MouseMove},
    {"mouse up CONTROL NUMBER NUMBER", StepKind::MouseUp},
    {"answer WORD", StepKind::Answer},
    {"ok", StepKind::Answer},
    {"cancel", StepKind::Answer},
    {"choose file TEXT", StepKind::GiveFile},
    {"choose color NUMBER", StepKind::GiveColor},
    {"choose font TEXT NUMBER", StepKind::GiveFont},
    {"choose nothing", StepKind::GiveNothing},
    {"advance NUMBER", StepKind::Advance},
    {"wait CONTROL", StepKind::Wait},
    {"close", StepKind::Close},
    {"shot TEXT", StepKind::Shot},
    {"expect checked CONTROL SWITCH", StepKind::ExpectChecked},
    {"expect enabled CONTROL SWITCH", StepKind::ExpectEnabled},
    {"expect visible CONTROL SWITCH", StepKind::ExpectVisible},
    {"expect focus CONTROL", StepKind::ExpectFocus},
    {"expect text CONTROL TEXT...", StepKind::ExpectText},
    {"expect contains CONTROL TEXT...", StepKind::ExpectContains},
    {"expect items CONTROL TEXT...", StepKind::ExpectItems},
    {"expect count CONTROL NUMBER", StepKind::ExpectCount},
    {"expect selected CONTROL TEXT", StepKind::ExpectSelected},
    {"expect index CONTROL NUMBER", StepKind::ExpectIndex},
    {"expect data CONTROL NUMBER", StepKind::ExpectData},
    {"expect tabstop CONTROL NUMBER", StepKind::ExpectTabStop},
    {"expect record WORD WORD", StepKind::ExpectRecord},
    {"expect message TEXT...", StepKind::ExpectMessage},
    {"expect icon WORD", StepKind::ExpectIcon},
    {"expect caption TEXT", StepKind::ExpectCaption},
    {"expect recorded WORD TEXT", StepKind::ExpectRecorded},
    {"expect recorded WORD TEXT TEXT", StepKind::ExpectRecorded},
    {"expect result WORD", StepKind::ExpectResult},
};

struct Name
{
    const char* name;
    int id;
};

constexpr Name kNames[] = {
    {"IDOK", IDOK},         {"IDCANCEL", IDCANCEL}, {"IDABORT", IDABORT}, {"IDRETRY", IDRETRY},
    {"IDIGNORE", IDIGNORE}, {"IDYES", IDYES},       {"IDNO", IDNO},       {"IDHELP", IDHELP},
#include "resource_names.inc"
};

struct Word
{
    std::string text;
    bool quoted = false;
};

constexpr char kBlanks[] = " \t\r";

/// Cuts a line into words. A quoted word may hold blanks and the escapes \" \\ \n \t; '#' outside of quotes
/// begins a comment.
class Cutter
{
public:
    explicit Cutter(std::string_view line) : rest_(line) {}

    /// Returns false with `reason` set when a quotation is not sound.
    bool Cut(std::vector<Word>& words, std::string& reason)
    {
        for (SkipBlanks(); !rest_.empty() && rest_.front() != '#'; SkipBlanks()) {
            words.emplace_back();
            if (rest_.front() != '"')
                Bare(words.back());
            else if (!Quoted(words.back(), reason))
                return false;
        }
        return true;
    }

    std::string_view rest() const { return rest_; }

private:
    void SkipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size())); }

    void Bare(Word& word)
    {
        word.text = rest_.substr(0, rest_.find_first_of(kBlanks));
        rest_.remove_prefix(word.text.size());
    }

    bool Quoted(Word& word, std::string& reason)
    {
        word.quoted = true;
        for (size_t i = 1; i < rest_.size(); ++i) {
            char letter = rest_[i];
            if (letter == '"') {
                rest_.remove_prefix(i + 1);
                return true;
            }
            if (letter == '\\' && !Escaped(rest_.substr(++i, 1), letter)) {
                reason = "a backslash in quotes stands before \", \\, n or t only";
                return false;
            }
            word.text += letter;
        }
        reason = "a quotation has no end";
        return false;
    }

    static bool Escaped(std::string_view code, char& letter)
    {
        constexpr std::string_view kCodes = "\"\\nt", kLetters = "\"\\\n\t";
        const size_t at = code.empty() ? std::string_view::npos : kCodes.find(code);
        if (at == std::string_view::npos)
            return false;
        letter = kLetters[at];
        return true;
    }

    std::string_view rest_;
};

std::vector<std::string_view> Split(std::string_view words)
{
    std::vector<std::string_view> parts;
    while (!words.empty()) {
        const size_t size = std::min(words.find(' '), words.size());
        parts.push_back(words.substr(0, size));
        words.remove_prefix(std::min(size + 1, words.size()));
    }
    return parts;
}

bool IsPlaceholder(std::string_view word)
{
    return word.front() >= 'A' && word.front() <= 'Z';
}

std::optional<StepValue> NumberValue(const Word& word)
{
    const std::optional<int64_t> number = word.quoted ? std::nullopt : ParseNumber(word.text);
    return number ? std::optional<StepValue>({word.text, *number}) : std::nullopt;
}

std::optional<StepValue> ControlValue(const Word& word)
{
    if (std::optional<StepValue> number = NumberValue(word))
        return number;
    const int64_t id = word.quoted ? -1 : FindResourceName(word.text);
    return id >= 0 ? std::optional<StepValue>({word.text, id}) : std::nullopt;
}

std::optional<StepValue> TextValue(const Word& word)
{
    if (word.quoted)
        return StepValue{word.text};
    const int64_t id = FindResourceName(word.text);
    return id >= 0 ? std::optional<StepValue>({word.text, id, true}) : std::nullopt;
}

std::optional<StepValue> SwitchValue(const Word& word)
{
    if (word.quoted || (word.text != "on" && word.text != "off"))
        return std::nullopt;
    return StepValue{word.text, word.text == "on"};
}

std::optional<StepValue> WordValue(const Word& word)
{
    return StepValue{word.text};
}

struct Placeholder
{
    std::string_view name;
    std::optional<StepValue> (*read)(const Word& word);
};

constexpr Placeholder kPlaceholders[] = {
    {"CONTROL", ControlValue}, {"TEXT", TextValue}, {"TEXT...", TextValue}, {"NUMBER", NumberValue},
    {"SWITCH", SwitchValue},   {"WORD", WordValue}, {"KEY", WordValue},
};

std::optional<StepValue> ReadValue(std::string_view placeholder, const Word& word)
{
    const auto found = std::find_if(std::begin(kPlaceholders), std::end(kPlaceholders),
                                    [=](const Placeholder& each) { return each.name == placeholder; });
    return found->read(word);
}

/// What became of the words of a line when they were held against a form.
struct Match
{
    bool whole = false;
    size_t literals = 0; ///< words of the form that stand in the line before the first difference
    std::string misfit;  ///< the word that is no value for its placeholder
    std::vector<StepValue> values;
};

Match Compare(const Form& form, const std::vector<Word>& words)
{
    const std::vector<std::string_view> parts = Split(form.words);
    const bool repeats = parts.back().ends_with("...");
    Match match;
    const size_t wanted = repeats ? std::max(parts.size(), words.size()) : parts.size();
    for (size_t i = 0; i < std::min(words.size(), wanted); ++i) {
        const std::string_view part = parts[std::min(i, parts.size() - 1)];
        if (!IsPlaceholder(part)) {
            if (words[i].quoted || words[i].text != part)
                return match;
            ++match.literals;
            continue;
        }
        std::optional<StepValue> value = ReadValue(part, words[i]);
        if (!value) {
            match.misfit = "'" + words[i].text + "' is no " + std::string(part.substr(0, part.find('.')));
            return match;
        }
        match.values.push_back(std::move(*value));
    }
    match.whole = words.size() == wanted;
    return match;
}

/// Why no form fits: the forms that begin as the line does, and the word that spoils the only one.
std::string Explain(const std::vector<Word>& words)
{
    size_t most = 0;
    for (const Form& form : kForms)
        most = std::max(most, Compare(form, words).literals);
    if (most == 0)
        return "'" + words[0].text + "' is no step";
    std::string forms, misfit;
    for (const Form& form : kForms) {
        const Match match = Compare(form, words);
        if (match.literals != most)
            continue;
        forms += (forms.empty() ? "'" : " or '") + std::string(form.words) + "'";
        misfit = match.misfit.empty() ? misfit : match.misfit + "; ";
    }
    return misfit + "the form is " + forms;
}

std::string Trimmed(std::string_view text)
{
    const size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
    const size_t last = text.find_last_not_of(kBlanks);
    return last == std::string_view::npos ? "" : std::string(text.substr(first, last + 1 - first));
}

/// Reads one line. A line without words is no step and no error.
bool ParseLine(std::string_view line, int number, std::vector<Step>& steps, std::string& reason)
{
    std::vector<Word> words;
    Cutter cutter(line);
    if (!cutter.Cut(words, reason))
        return false;
    if (words.empty())
        return true;
    for (const Form& form : kForms) {
        Match match = Compare(form, words);
        if (!match.whole)
            continue;
        if (form.kind == StepKind::Answer && match.values.empty())
            match.values.push_back({words[0].text});
        steps.push_back({number, form.kind, std::move(match.values),
                         Trimmed(line.substr(0, line.size() - cutter.rest().size()))});
        return true;
    }
    reason = Explain(words);
    return false;
}

} // namespace

bool ParseScenario(std::string_view text, std::vector<Step>& steps, ScenarioError& error)
{
    steps.clear();
    for (int number = 1; !text.empty(); ++number) {
        const std::string_view line = text.substr(0, text.find('\n'));
        if (!ParseLine(line, number, steps, error.reason)) {
            error.line = number;
            steps.clear();
            return false;
        }
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
    return true;
}

int64_t FindResourceName(std::string_view name)
{
    const auto found = std::find_if(std::begin(kNames), std::end(kNames),
                                    [=](const Name& each) { return each.name == name; });
    return found != std::end(kNames) ? found->id : -1;
}

std::string ControlName(int64_t id)
{
    const std::string number = std::to_string(id);
    for (const Name& each : kNames) {
        const std::string_view name = each.name;
        if (each.id == id && !name.starts_with("IDS_") && !name.starts_with("IDD_"))
            return std::string(name) + " (" + number + ")";
    }
    return number;
}

} // namespace psuictl
