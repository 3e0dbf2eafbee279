#pragma once
// Commands as data. A family is one file with a table of its commands; commands.cpp lists the families. The
// command line, its help and its checks all follow from these tables.
#include <cstdint>
#include <map>
#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <vector>

#include "tools/psuictl/failure.h"

namespace psuictl {

enum class ParameterKind
{
    Text,
    Number, ///< decimal or 0x hex, not negative, at most 31 bits
    Flag,
};

struct Parameter
{
    const char* name;  ///< "NAME" (positional), "--model", or "-o,--output"
    const char* value; ///< what stands for the value in help texts; null for positional ones
    const char* help;
    ParameterKind kind = ParameterKind::Text;
    bool required = false;
    bool several = false;
    std::span<const char* const> choices = {}; ///< the only values allowed, when not empty
};

/// The values of the running command's parameters, by the parameter's last name without dashes ("output").
class Arguments
{
public:
    /// The cell that the command line fills for a parameter; its address never changes.
    std::vector<std::string>& Cell(const std::string& name) { return values_[name]; }

    bool Has(const std::string& name) const { return !All(name).empty(); }
    /// Every value given; none gives an empty list.
    const std::vector<std::string>& All(const std::string& name) const;
    /// The value given, or `fallback`.
    std::string Text(const std::string& name, const std::string& fallback = "") const;
    std::optional<int64_t> Number(const std::string& name) const;

private:
    std::map<std::string, std::vector<std::string>> values_;
};

/// What all commands share: the options of the command line, and where results go.
struct Session
{
    std::optional<std::string> root = std::nullopt;
    std::string language = "eng"; ///< folder of the library and its language module
    std::optional<int64_t> country = std::nullopt;
    bool json = false;
    std::ostream& out;
    std::ostream& complaints;
};

struct Command
{
    const char* name; ///< empty when the family's name is the whole command
    const char* summary;
    std::span<const Parameter> parameters;
    const char* examples; ///< lines after "psuictl "
    /// Prints the result to session.out. Throws Failure.
    ExitCode (*run)(const Session& session, const Arguments& arguments);
};

struct CommandFamily
{
    const char* name;
    const char* summary;
    std::span<const Command> commands;
};

/// Every family, in the order of the help text.
std::span<const CommandFamily* const> CommandFamilies();

} // namespace psuictl
