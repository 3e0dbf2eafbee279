#include "tests/psuictl/psuictl_run.h"

#include <stdlib.h>
#include <sys/wait.h>

#include <atomic>
#include <fstream>
#include <sstream>

namespace {

std::string Quoted(std::string word)
{
    for (size_t at = 0; (at = word.find('\'', at)) != word.npos; at += 4)
        word.replace(at, 1, "'\\''");
    return "'" + word + "'";
}

/// The program's standard streams are the files `streams`.in, .out and .err.
int RunInShell(const std::filesystem::path& folder, const std::string& streams, const Words& words)
{
    std::string command = "cd " + Quoted(folder) + " && exec";
    for (const std::string& word : words)
        command += " " + Quoted(word);
    command +=
        " <" + Quoted(streams + ".in") + " >" + Quoted(streams + ".out") + " 2>" + Quoted(streams + ".err");
    const int status = std::system(command.c_str());
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
    const int code = RunInShell(folder_, streams, arguments);
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
