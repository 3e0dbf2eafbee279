#include "tests/psuictl/psuictl_run.h"

#include <fcntl.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <atomic>
#include <fstream>
#include <sstream>

extern char** environ;

namespace {

/// The program's standard streams are the files `streams`.in, .out and .err.
int Spawn(const std::filesystem::path& folder, const std::string& streams, std::vector<std::string> words)
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    const std::string in = streams + ".in", out = streams + ".out", err = streams + ".err";
    posix_spawn_file_actions_addopen(&actions, 0, in.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_addopen(&actions, 2, err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());

    std::vector<char*> argv;
    for (std::string& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    pid_t child = 0;
    const int error = posix_spawn(&child, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    if (error != 0 || waitpid(child, &status, 0) != child)
        return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

} // namespace

nlohmann::json Outcome::Json() const
{
    return nlohmann::json::parse(out, nullptr, false);
}

std::ostream& operator<<(std::ostream& out, const Outcome& outcome)
{
    return out << testing::PrintToString(outcome.line) << " ended with exit code " << outcome.code
               << "\n--- output\n"
               << outcome.out << "--- complaints\n"
               << outcome.err;
}

std::string ReadText(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

void WriteText(const std::filesystem::path& path, const std::string& text)
{
    std::ofstream(path, std::ios::binary) << text;
}

PsuictlTest::PsuictlTest()
{
    std::string pattern = std::filesystem::temp_directory_path() / "psuictl-test.XXXXXX";
    folder_ = mkdtemp(pattern.data());
}

PsuictlTest::~PsuictlTest()
{
    std::filesystem::remove_all(folder_);
}

Outcome PsuictlTest::Run(Words arguments, const std::string& input) const
{
    static std::atomic<int> runs = 0;
    const std::string streams = folder_ / ("run" + std::to_string(++runs));
    WriteText(streams + ".in", input);
    const Words line = arguments;
    arguments.insert(arguments.begin(), {PSUI_PRODUCT_DIR "/psuictl", "--root", folder_ / "root"});
    const int code = Spawn(folder_, streams, std::move(arguments));
    return {line, code, ReadText(streams + ".out"), ReadText(streams + ".err")};
}

std::string PsuictlTest::Output(const Words& arguments, const std::string& input) const
{
    const Outcome outcome = Run(arguments, input);
    EXPECT_EQ(outcome.code, 0) << outcome;
    return outcome.out;
}

nlohmann::json PsuictlTest::JsonOutput(Words arguments) const
{
    arguments.push_back("--json");
    const std::string text = Output(arguments);
    nlohmann::json json = nlohmann::json::parse(text, nullptr, false);
    EXPECT_FALSE(json.is_discarded()) << text;
    return json;
}

void PsuictlTest::Refuse(int code, const std::vector<Words>& lines, const std::string& reason) const
{
    for (const Words& line : lines) {
        const Outcome outcome = Run(line);
        EXPECT_EQ(outcome.code, code) << outcome;
        EXPECT_EQ(outcome.out, "") << outcome;
        EXPECT_TRUE(outcome.err.starts_with("psuictl: ")) << outcome;
        EXPECT_NE(outcome.err.find(reason), std::string::npos) << reason << " is not the reason: " << outcome;
    }
}

std::string PsuictlTest::Sample(const std::string& name) const
{
    std::filesystem::copy_file(std::filesystem::path(PSUI_SOURCE_DIR) / "models" / name, folder_ / name,
                               std::filesystem::copy_options::overwrite_existing);
    return name;
}

void PsuictlTest::AddPrinter(const std::string& sample) const
{
    Output({"printer", "add", "P", "--model", Sample(sample)});
}

std::filesystem::path PsuictlTest::DriverFolder() const
{
    return folder_ / "root/drive_c/windows/system32/spool/drivers/x64/3";
}
