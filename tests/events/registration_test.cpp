#include <optional>
#include <tuple>

#include <gtest/gtest.h>

#include "tests/events/monitor_world.h"

namespace {

using test::MonitorWorld;

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
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, test::kMonitorKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                              &key, nullptr),
              ERROR_SUCCESS);
    RegSetValueExW(key, name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                   static_cast<DWORD>(bytes.size()));
    RegCloseKey(key);
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

/// UTF-16 bytes with the terminator.
std::string WideBytes(const std::u16string& text)
{
    return {reinterpret_cast<const char*>(text.c_str()), 2 * (text.size() + 1)};
}

bool FolderExists()
{
    return std::filesystem::is_directory(host::NativePath(MonitorWorld::DataFolder()));
}

TEST(VersionAtLeast, ComparesMajorThenMinorNumbers)
{
    const std::tuple<std::u16string, std::u16string, bool> cases[] = {
        {u"3.1", u"3", false},
        {u"3.1", u"3.0", false},
        {u"3.1", u"3.1", true},
        {u"3.1", u"3.10", true},
        {u"3.1", u"3.1.0.7", true},
        {u"3.1", u"10.0", true},
        {u"3.1", u"4.0", true},
        {u"3.1", u"2.9", false},
        {u"3.1", u"", false},
        {u"3.1", u"x3.1", false},
        {u"3.1", u"3,1", false},
        {u"3.1", u"3x.1", true},
        {u"3.1", u"3.1x9", true},
        {u"3.1", u"3..1", false},
        {u"3", u"3", true},
        {u"", u"", true},
        {u"3.1", u"99999999999999999999", true},
        {u"3.1", u"000000000000003.1", false}, // only 15 characters count
        {u"3.1", u"00000000000003.1", false},  // the minor number is cut off
        {u"3.1", u"0000000000003.1", true},
        {u"3.1", std::u16string(32000, u'9'), true},
    };
    for (const auto& [required, actual, enough] : cases)
        EXPECT_EQ(psui::VersionAtLeast(required.c_str(), actual.c_str()), enough)
            << Narrow(actual.substr(0, 40));
}

TEST(StatusMonitorIsNew, BelievesTheRegistryBeforeTheProgram)
{
    struct Case
    {
        const char16_t* value; ///< null: no key
        const char* program;   ///< null: no program
        bool isNew;
    };
    const Case cases[] = {
        {u"3.10", nullptr, true},
        {u"3.0", nullptr, false},
        {u"3.0", "3_10", false},
        {nullptr, nullptr, false},
        {nullptr, "3_0", false},
        {nullptr, "3_10", true},
        {u"4.0", "3_0", true},
        {u"3.1234567890123", nullptr, true},
        {u"3.12345678901234567890", nullptr, true},
    };
    for (const Case& c : cases) {
        MonitorWorld world(c.value ? c.value : u"");
        if (c.program)
            MonitorWorld::InstallProgram(c.program);
        EXPECT_EQ(psui::StatusMonitorIsNew(u"Lodestat", u"3.1"), c.isNew)
            << (c.value ? Narrow(c.value) : "none") << ' ' << (c.program ? c.program : "none");
    }
}

TEST(StatusMonitorIsNew, IsFalseForValuesThatAreNoVersion)
{
    MonitorWorld world(u"");
    MonitorWorld::InstallProgram("3_10");
    EXPECT_FALSE(psui::StatusMonitorIsNew(u"Other", u"3.1"));
    SetValue(u"Else", REG_SZ, WideBytes(u"4"));
    EXPECT_FALSE(psui::StatusMonitorIsNew(u"Lodestat", u"3.1")) << "the key is there, the value is not";
    SetValue(u"Lodestat", REG_BINARY, WideBytes(u"4.0"));
    EXPECT_FALSE(psui::StatusMonitorIsNew(u"Lodestat", u"3.1"));
    SetValue(u"Lodestat", REG_SZ, WideBytes(std::u16string(500, u'9')));
    EXPECT_FALSE(psui::StatusMonitorIsNew(u"Lodestat", u"3.1"));
    SetValue(u"Lodestat", REG_SZ, std::string("4\0.\0", 4));
    EXPECT_TRUE(psui::StatusMonitorIsNew(u"Lodestat", u"3.1")) << "a text without its terminator";
    SetValue(u"Lodestat", REG_SZ, "");
    EXPECT_FALSE(psui::StatusMonitorIsNew(u"Lodestat", u"3.1"));
}

TEST(StatusMonitorIniPath, LiesInTheUsersApplicationData)
{
    const test::World world;
    psui::PathText path;
    const std::u16string expected = MonitorWorld::DataFolder() + u"\\lodestat.ini";
    EXPECT_TRUE(psui::StatusMonitorIniPath(path, false));
    EXPECT_EQ(std::u16string(path), expected);
    EXPECT_TRUE(psui::StatusMonitorIniPath(path, true));
    EXPECT_EQ(std::u16string(path), u"\"" + expected + u"\"");
    host::SetApplicationDataKnown(false);
    EXPECT_FALSE(psui::StatusMonitorIniPath(path, false));
    EXPECT_EQ(std::u16string(path), u"");
}

TEST(StatusMonitorIniPath, IsNeverCut)
{
    const test::World world;
    const size_t rest =
        (std::u16string(u"C:\\users\\") + u"\\AppData\\Roaming\\Velmora\\PrtDrv\\lodestat.ini").size();
    struct Case
    {
        size_t pathLength;
        bool plain, quoted;
    };
    for (const Case& c :
         {Case{257, true, true}, Case{258, true, false}, Case{259, true, false}, Case{260, false, false}}) {
        host::SetUserName(std::u16string(c.pathLength - rest, u'u'));
        psui::PathText path;
        EXPECT_EQ(psui::StatusMonitorIniPath(path, false), c.plain) << c.pathLength;
        EXPECT_EQ(psui::StatusMonitorIniPath(path, true), c.quoted) << c.pathLength;
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
        EXPECT_EQ(Value(u"Path", REG_BINARY), PathValue(test::WindowsFolder()));
        EXPECT_FALSE(FolderExists());
    }
}

TEST(RegisterStatusMonitorPath, RegistersTheInstalledVersion)
{
    struct Case
    {
        const char* program;
        const char16_t* version;
    };
    for (const Case& c : {Case{"3_0", u"3.0"}, Case{"3_10", u"3.10.0.2"}}) {
        MonitorWorld world(u"0.1");
        MonitorWorld::InstallProgram(c.program);
        psui::RegisterStatusMonitorPath();
        EXPECT_EQ(Value(u"Lodestat", REG_SZ), WideBytes(c.version)) << c.program;
    }
}

} // namespace
