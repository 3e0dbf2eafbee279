#include <optional>
#include <tuple>

#include <gtest/gtest.h>

#include "tests/events/monitor_world.h"

namespace {

using namespace std::literals;
using test::MonitorWorld;
using test::WideBytes;

/// A value of the monitor's key as its bytes.
std::optional<std::string> Value(const char16_t* name, DWORD expectedType)
{
    std::string bytes(1024, '\0');
    DWORD type = 0, size = 1024;
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, test::kMonitorKey, 0, KEY_READ, &key) != ERROR_SUCCESS)
        return std::nullopt;
    const LSTATUS status =
        RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(bytes.data()), &size);
    RegCloseKey(key);
    if (status != ERROR_SUCCESS)
        return std::nullopt;
    EXPECT_EQ(type, expectedType);
    return bytes.substr(0, size);
}

void SetValue(const char16_t* name, DWORD type, std::string_view bytes)
{
    test::SetRegistryBytes(HKEY_CURRENT_USER, test::kMonitorKey, name, type, bytes);
}

std::string Narrow(const std::u16string& text)
{
    return {text.begin(), text.end()};
}

/// An 8-bit path with its terminator.
std::string PathValue(const std::u16string& path)
{
    return Narrow(path) + '\0';
}

bool FolderExists()
{
    return std::filesystem::is_directory(host::NativePath(MonitorWorld::DataFolder()));
}

TEST(VersionAtLeast, ComparesMajorThenMinorNumbers)
{
    for (const std::u16string& enough :
         {u"3.1"s, u"3.10"s, u"3.1.0.7"s, u"10.0"s, u"4.0"s, u"3x.1"s, u"3.1x9"s, u"99999999999999999999"s,
          u"0000000000003.1"s, std::u16string(32000, u'9')})
        EXPECT_TRUE(psui::VersionAtLeast(u"3.1", enough.c_str())) << Narrow(enough.substr(0, 40));
    // Only 15 characters count: the minor number of the last but one is cut off.
    for (const std::u16string& older : {u"3"s, u"3.0"s, u"2.9"s, u""s, u"x3.1"s, u"3,1"s, u"3..1"s,
                                        u"00000000000003.1"s, u"000000000000003.1"s})
        EXPECT_FALSE(psui::VersionAtLeast(u"3.1", older.c_str())) << Narrow(older);
    EXPECT_TRUE(psui::VersionAtLeast(u"3", u"3"));
}

TEST(StatusMonitorIsNew, BelievesTheRegistryBeforeTheProgram)
{
    const std::tuple<const char16_t*, const char*, bool> cases[] = {
        {u"3.10", "", true},     {u"3.12345678901234567890", "", true},
        {u"3.0", "3_10", false}, {u"", "", false},
        {u"", "3_0", false},     {u"", "3_10", true},
        {u"4.0", "3_0", true}};
    for (const auto& [registered, program, isNew] : cases) {
        MonitorWorld world(registered);
        if (*program)
            MonitorWorld::InstallProgram(program);
        EXPECT_EQ(psui::StatusMonitorIsNew(u"Lodestat", u"3.1"), isNew)
            << Narrow(registered) << ' ' << program;
    }
}

TEST(StatusMonitorIsNew, IsFalseForValuesThatAreNoVersion)
{
    MonitorWorld world(u"");
    MonitorWorld::InstallProgram("3_10");
    const std::tuple<const char16_t*, DWORD, std::string, bool> cases[] = {
        {u"Else", REG_SZ, WideBytes(u"4"), false}, // the key is there, the value is not
        {u"Lodestat", REG_BINARY, WideBytes(u"4.0"), false},
        {u"Lodestat", REG_SZ, WideBytes(std::u16string(500, u'9')), false},
        {u"Lodestat", REG_SZ, std::string("4\0.\0", 4), true}, // a text without its terminator
        {u"Lodestat", REG_SZ, "", false}};
    for (const auto& [name, type, bytes, isNew] : cases) {
        SetValue(name, type, bytes);
        EXPECT_EQ(psui::StatusMonitorIsNew(u"Lodestat", u"3.1"), isNew) << type << ' ' << bytes;
    }
}

TEST(StatusMonitorIniPath, IsNeverCut)
{
    const test::World world;
    const size_t rest = u"C:\\users\\\\AppData\\Roaming\\Velmora\\PrtDrv\\lodestat.ini"s.size();
    const std::tuple<size_t, bool, bool> cases[] = {
        {257, true, true}, {258, true, false}, {259, true, false}, {260, false, false}};
    for (const auto& [length, plain, quoted] : cases) {
        host::SetUserName(std::u16string(length - rest, u'u'));
        psui::PathText path;
        EXPECT_EQ(psui::StatusMonitorIniPath(path, false), plain) << length;
        EXPECT_EQ(psui::StatusMonitorIniPath(path, true), quoted) << length;
    }
}

TEST(RegisterStatusMonitorPath, KeepsTheRegisteredPathUpToDate)
{
    const std::string right = PathValue(MonitorWorld::DataFolder());
    const std::tuple<const char*, std::optional<std::string>, bool, bool> cases[] = {
        {"no key", std::nullopt, false, true},
        {"no value", std::nullopt, true, false},
        {"the same", right, true, false},
        {"without its terminator", right.substr(0, right.size() - 1), true, true},
        {"longer", right + "x", true, true},
        {"another", PathValue(u"C:\\elsewhere"), true, true},
        {"empty", "", true, true},
        {"longer than any path", std::string(300, 'x'), true, true},
    };
    for (const auto& [what, stored, key, foldersMade] : cases) {
        SCOPED_TRACE(what);
        const test::World world;
        if (key)
            SetValue(u"Other", REG_SZ, "");
        if (stored)
            SetValue(u"Path", REG_BINARY, *stored);
        psui::RegisterStatusMonitorPath();
        EXPECT_EQ(Value(u"Path", REG_BINARY), right);
        EXPECT_EQ(FolderExists(), foldersMade);
        EXPECT_EQ(Value(u"Lodestat", REG_SZ), std::nullopt) << "there is no program";
    }
}

TEST(RegisterStatusMonitorPath, FallsBackToTheWindowsDirectory)
{
    const test::World world;
    host::SetApplicationDataKnown(false);
    for (const char* stored : {"", "C:\\elsewhere"}) {
        SetValue(u"Path", REG_BINARY, stored);
        psui::RegisterStatusMonitorPath();
        EXPECT_EQ(Value(u"Path", REG_BINARY), PathValue(test::kWindowsFolder));
        EXPECT_FALSE(FolderExists());
    }
}

TEST(RegisterStatusMonitorPath, RegistersTheInstalledVersion)
{
    for (const auto& [program, version] : {std::pair{"3_0", u"3.0"s}, {"3_10", u"3.10.0.2"s}}) {
        MonitorWorld world(u"0.1");
        MonitorWorld::InstallProgram(program);
        psui::RegisterStatusMonitorPath();
        EXPECT_EQ(Value(u"Lodestat", REG_SZ), WideBytes(version)) << program;
    }
}

} // namespace
