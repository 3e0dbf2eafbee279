// What driver and status monitor tell each other, as it stands in this host.
#include <algorithm>
#include <cstdio>

#include "tools/psuictl/command.h"
#include "tools/psuictl/files.h"
#include "tools/psuictl/library.h"
#include "tools/psuictl/output.h"
#include "tools/psuictl/platform.h"
#include "tools/psuictl/spooler.h"

#include <shlobj.h>

namespace psuictl {
namespace {

constexpr Parameter kParameters[] = {
    {"NAME", nullptr, "the printer", ParameterKind::Text, true},
};

constexpr WCHAR kProgram[] = TEXT("LODESTAT.EXE");
constexpr WCHAR kKey[] = TEXT("Software\\Velmora\\PrtDrv");
constexpr WCHAR kPathValue[] = TEXT("Path");
constexpr WCHAR kVersionValue[] = TEXT("Lodestat");
constexpr WCHAR kSettingsFile[] = TEXT("\\lodestat.ini");
constexpr WCHAR kDataFolder[] = TEXT("\\Velmora\\PrtDrv");
constexpr WCHAR kMonitorSection[] = TEXT("LODESTAT");

/// From this version on the monitor keeps its settings file in the user's application data.
constexpr int64_t kNewLayoutMajor = 3, kNewLayoutMinor = 1;

constexpr DWORD kMaxSectionUnits = 32767; ///< the most that the platform reads of a section

constexpr struct
{
    int item;
    int64_t bit;
} kItems[] = {{1, 0x1}, {2, 0x2}, {3, 0x4}, {10, 0x100}, {11, 0x200}, {12, 0x400}};

class UserKey
{
public:
    UserKey()
    {
        if (RegOpenKeyExW(HKEY_CURRENT_USER, kKey, 0, KEY_QUERY_VALUE, &key_) != ERROR_SUCCESS)
            key_ = nullptr;
    }
    ~UserKey()
    {
        if (key_)
            RegCloseKey(key_);
    }
    UserKey(const UserKey&) = delete;
    UserKey& operator=(const UserKey&) = delete;

    bool exists() const { return key_ != nullptr; }

    std::optional<std::string> Bytes(const WCHAR* name) const
    {
        char bytes[2 * MAX_PATH];
        DWORD size = sizeof bytes;
        if (!key_ || RegQueryValueExW(key_, name, nullptr, nullptr, reinterpret_cast<LPBYTE>(bytes), &size) !=
                         ERROR_SUCCESS)
            return std::nullopt;
        return std::string(bytes, size);
    }

private:
    HKEY key_ = nullptr;
};

std::optional<std::string> NarrowValue(const UserKey& key, const WCHAR* name)
{
    const std::optional<std::string> bytes = key.Bytes(name);
    if (!bytes)
        return std::nullopt;
    const std::string text = bytes->substr(0, bytes->find('\0'));
    WideString wide(text.size(), 0);
    const int size = static_cast<int>(text.size());
    wide.resize(
        size ? static_cast<size_t>(MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size)) : 0);
    return Utf8(wide);
}

std::optional<std::string> WideValue(const UserKey& key, const WCHAR* name)
{
    const std::optional<std::string> bytes = key.Bytes(name);
    if (!bytes)
        return std::nullopt;
    WideString wide(bytes->size() / sizeof(WCHAR), 0);
    std::copy_n(bytes->data(), wide.size() * sizeof(WCHAR), reinterpret_cast<char*>(wide.data()));
    return FieldText(wide);
}

/// The product version in a program's first language, or nothing.
std::optional<std::string> ProductVersion(const WideString& program)
{
    const DWORD size = GetFileVersionInfoSizeW(program.c_str(), nullptr);
    Bytes block(size);
    void* found = nullptr;
    UINT length = 0;
    if (!size || !GetFileVersionInfoW(program.c_str(), 0, size, block.data()) ||
        !VerQueryValueW(block.data(), TEXT("\\VarFileInfo\\Translation"), &found, &length) ||
        length < 2 * sizeof(WORD))
        return std::nullopt;
    const WORD* translation = static_cast<const WORD*>(found);
    char path[64];
    std::snprintf(path, sizeof path, "\\StringFileInfo\\%04x%04x\\ProductVersion", unsigned{translation[0]},
                  unsigned{translation[1]});
    if (!VerQueryValueW(block.data(), Wide(path).c_str(), &found, &length))
        return std::nullopt;
    return FieldText({static_cast<const WCHAR*>(found), length});
}

/// The number that the text begins with; 0 for none.
int64_t LeadingNumber(const std::string& text)
{
    const size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
    return ParseNumber(std::string_view(text).substr(0, digits)).value_or(0);
}

bool UsesNewLayout(const std::string& version)
{
    const size_t dot = version.find('.');
    const int64_t major = LeadingNumber(version.substr(0, dot));
    const int64_t minor = dot == std::string::npos ? 0 : LeadingNumber(version.substr(dot + 1));
    return major > kNewLayoutMajor || (major == kNewLayoutMajor && minor >= kNewLayoutMinor);
}

WideString KnownFolder(int folder)
{
    WCHAR path[MAX_PATH] = {};
    return SHGetFolderPathW(nullptr, folder, nullptr, SHGFP_TYPE_CURRENT, path) == S_OK ? path : WideString();
}

/// The file that the library uses: the choice hangs on the monitor's version, and on whether the user's
/// folder is known.
WideString SettingsFile(const Session& session, const UserKey& key)
{
    const std::optional<std::string> version =
        key.exists() ? WideValue(key, kVersionValue)
                     : ProductVersion(ProductFolder(session.language) + kProgram);
    const WideString userData = KnownFolder(CSIDL_APPDATA);
    if (version && UsesNewLayout(*version) && !userData.empty())
        return userData + kDataFolder + kSettingsFile;
    return KnownFolder(CSIDL_WINDOWS) + kSettingsFile;
}

using Entries = std::vector<std::pair<std::string, std::string>>;

Entries ReadSection(const WideString& file, const WideString& section)
{
    WideString text(kMaxSectionUnits, 0);
    text.resize(GetPrivateProfileSectionW(section.c_str(), text.data(), kMaxSectionUnits, file.c_str()));
    Entries entries;
    for (size_t at = 0; at < text.size() && text[at];) {
        const WideString line = text.c_str() + at;
        const size_t equals = std::min(line.find('='), line.size());
        entries.emplace_back(Utf8(line.substr(0, equals)),
                             Utf8(line.substr(std::min(equals + 1, line.size()))));
        at += line.size() + 1;
    }
    return entries;
}

std::optional<std::string> Find(const Entries& entries, const std::string& key)
{
    for (const auto& [name, value] : entries) {
        if (SameName(Wide(name), Wide(key)))
            return value;
    }
    return std::nullopt;
}

std::vector<int> ItemsOf(int64_t mask)
{
    std::vector<int> items;
    for (const auto& row : kItems) {
        if (mask & row.bit)
            items.push_back(row.item);
    }
    return items;
}

std::optional<std::vector<std::string>> Launches()
{
    if (!platform::IsRecording())
        return std::nullopt;
    std::vector<std::string> launches;
    for (const platform::RecordedEvent& event : platform::Recorded()) {
        if (event.kind.ends_with("launch") && event.text.find(Utf8(kProgram)) != std::string::npos)
            launches.push_back(event.kind == "launch" ? event.text : event.text + " (failed)");
    }
    return launches;
}

struct MonitorState
{
    std::string file;
    bool fileExists;
    std::optional<std::string> shownPrinter; ///< the printer that the monitor shows
    Entries section;                         ///< of the printer
    std::optional<int64_t> mask;
    std::optional<std::string> path, version;         ///< registry values
    std::optional<std::vector<std::string>> launches; ///< of the monitor, where they are recorded
};

MonitorState ReadState(const Session& session, const WideString& printer)
{
    const UserKey key;
    const WideString file = SettingsFile(session, key);
    const Entries section = ReadSection(file, printer);
    const std::optional<std::string> bits = Find(section, "Bits");
    return {
        .file = Utf8(file),
        .fileExists = FileExists(file),
        .shownPrinter = Find(ReadSection(file, kMonitorSection), "Printer"),
        .section = section,
        .mask = bits ? ParseNumber(*bits) : std::nullopt,
        .path = NarrowValue(key, kPathValue),
        .version = WideValue(key, kVersionValue),
        .launches = Launches(),
    };
}

Json OrNull(const std::optional<std::string>& text)
{
    return text ? Json(*text) : Json();
}

void PrintAsJson(std::ostream& out, const MonitorState& state)
{
    Json section = Json::object();
    for (const auto& [name, value] : state.section)
        section[name] = value;
    PrintJson(out, {{"settingsFile", state.file},
                    {"exists", state.fileExists},
                    {"shownPrinter", OrNull(state.shownPrinter)},
                    {"section", section},
                    {"mask", state.mask ? Json(*state.mask) : Json()},
                    {"items", state.mask ? Json(ItemsOf(*state.mask)) : Json()},
                    {"registry", {{"Path", OrNull(state.path)}, {"Lodestat", OrNull(state.version)}}},
                    {"launches", state.launches ? Json(*state.launches) : Json()}});
}

std::string ItemWords(const MonitorState& state)
{
    if (!state.mask)
        return "(not set)";
    std::string words = Hex(static_cast<uint64_t>(*state.mask), 1) + ":";
    for (const int item : ItemsOf(*state.mask))
        words += " " + std::to_string(item);
    return words;
}

void PrintAsText(std::ostream& out, const MonitorState& state)
{
    Table table;
    table.Add({"settings file", state.file + (state.fileExists ? "" : " (missing)")});
    table.Add({"shown printer", state.shownPrinter.value_or("(none)")});
    for (const auto& [name, value] : state.section)
        table.Add({"section " + ReadableLine(name), ReadableLine(value)});
    table.Add({"items", ItemWords(state)});
    table.Add({"registry Path", state.path.value_or("(none)")});
    table.Add({"registry Lodestat", state.version.value_or("(none)")});
    for (const std::string& launch : state.launches.value_or(std::vector<std::string>()))
        table.Add({"launch", ReadableLine(launch)});
    table.Print(out);
}

ExitCode RunMonitor(const Session& session, const Arguments& arguments)
{
    const WideString name = Wide(arguments.Text("NAME"));
    OpenPrinter(name);
    const MonitorState state = ReadState(session, name);
    if (session.json)
        PrintAsJson(session.out, state);
    else
        PrintAsText(session.out, state);
    return kDone;
}

constexpr Command kCommands[] = {
    {"", "show what driver and status monitor tell each other about a printer", kParameters,
     "  psuictl monitor Office\n  psuictl monitor Office --json\n", RunMonitor},
};

} // namespace

extern const CommandFamily kMonitorFamily = {"monitor", kCommands[0].summary, kCommands};

} // namespace psuictl
