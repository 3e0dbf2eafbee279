#pragma once
// Runs the real program in a host of its own.
#include <filesystem>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

/// A command line: its words, or one text with blanks between them.
class Words : public std::vector<std::string>
{
public:
    using std::vector<std::string>::vector;
    Words(const char* line) : Words(std::string(line)) {}
    Words(const std::string& line)
    {
        std::istringstream words(line);
        assign(std::istream_iterator<std::string>(words), {});
    }
};

struct Outcome
{
    Words line;
    int code; ///< exit code; 128 plus the signal when it did not exit
    std::string out;
    std::string err;

    nlohmann::json Json() const;
};

/// Prints everything that is known about a run that went wrong.
std::ostream& operator<<(std::ostream& out, const Outcome& outcome);

std::string ReadText(const std::filesystem::path& path);
void WriteText(const std::filesystem::path& path, const std::string& text);

/// A fresh folder with a fresh host root in it; the program runs with the folder as its current one.
class PsuictlTest : public testing::Test
{
protected:
    PsuictlTest();
    ~PsuictlTest() override;

    /// May be called on several threads at once.
    Outcome Run(Words arguments, const std::string& input = "") const;

    /// Runs what has to succeed, and returns its standard output.
    std::string Output(const Words& arguments, const std::string& input = "") const;
    nlohmann::json JsonOutput(Words arguments) const;

    /// Runs lines that have to end with that code, each with no output and a complaint that has `reason` in
    /// it.
    void Refuse(int code, const std::vector<Words>& lines, const std::string& reason = "") const;

    std::filesystem::path Path(const std::string& name) const { return folder_ / name; }

    /// Puts a copy of a sample model into the folder and returns its name.
    std::string Sample(const std::string& name) const;

    /// Adds printer "P" for a sample model.
    void AddPrinter(const std::string& sample = "palette310.ppd") const;

    /// Where the host keeps the files of installed drivers.
    std::filesystem::path DriverFolder() const;

private:
    std::filesystem::path folder_;
};
