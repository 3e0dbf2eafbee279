// The registry functions, on any system that has them.
#include <gtest/gtest.h>
#include <windows.h>
#include <winreg.h>

#include <string>
#include <tuple>
#include <vector>

namespace {

using Text = std::basic_string<WCHAR>;

constexpr const WCHAR* kHome = TEXT("Software\\PsuiConformance");

// A key of its own below the user's root for every test, gone afterwards.
class Registry : public testing::Test
{
protected:
    void SetUp() override
    {
        RegDeleteTreeW(HKEY_CURRENT_USER, kHome);
        ASSERT_EQ(ERROR_SUCCESS, Create(HKEY_CURRENT_USER, kHome, &home));
    }

    void TearDown() override
    {
        RegCloseKey(home);
        RegDeleteTreeW(HKEY_CURRENT_USER, kHome);
    }

    static LSTATUS Create(HKEY base, const WCHAR* name, HKEY* key, DWORD* disposition = nullptr)
    {
        return RegCreateKeyExW(base, name, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr, key,
                               disposition);
    }

    static LSTATUS Open(HKEY base, const WCHAR* name, HKEY* key, REGSAM access = KEY_READ)
    {
        return RegOpenKeyExW(base, name, 0, access, key);
    }

    LSTATUS Set(const WCHAR* name, const std::string& bytes, DWORD type = REG_BINARY)
    {
        return RegSetValueExW(home, name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                              static_cast<DWORD>(bytes.size()));
    }

    std::vector<Text> SubKeys()
    {
        std::vector<Text> names;
        WCHAR name[256];
        for (DWORD size = 256; RegEnumKeyExW(home, static_cast<DWORD>(names.size()), name, &size, nullptr,
                                             nullptr, nullptr, nullptr) == ERROR_SUCCESS;
             size = 256)
            names.emplace_back(name, size);
        return names;
    }

    bool Has(const WCHAR* name)
    {
        HKEY key = nullptr;
        return Open(home, name, &key) == ERROR_SUCCESS && RegCloseKey(key) == ERROR_SUCCESS;
    }

    HKEY home = nullptr;
};

TEST_F(Registry, FindsKeysInAnyCase)
{
    const std::tuple<const WCHAR*, const WCHAR*> cases[] = {
        {TEXT("Plain"), TEXT("pLAIN")},
        {TEXT("Deep\\Deeper\\Deepest"), TEXT("deep\\DEEPER\\deepest\\")},
        {TEXT("\x00C4rger \x0416"), TEXT("\x00E4RGER \x0436")},
        {TEXT("half \xD83D pair"), TEXT("HALF \xD83D PAIR")},
    };
    for (const auto& [created, opened] : cases) {
        HKEY made = nullptr;
        ASSERT_EQ(ERROR_SUCCESS, Create(home, created, &made));
        EXPECT_TRUE(Has(opened)) << testing::PrintToString(Text(opened));
        RegCloseKey(made);
    }
}

TEST_F(Registry, GivesBackTheBytesAndTypeItWasGiven)
{
    struct Case
    {
        const char* what;
        DWORD type;
        std::string bytes;
    } cases[] = {
        {"text", REG_SZ, std::string("A\0B\0\0\0", 6)},
        {"text without end", REG_SZ, std::string("A\0B\0", 4)},
        {"8-bit text", REG_SZ, "odd"},
        {"number", REG_DWORD, std::string("\1\2\3\4", 4)},
        {"short number", REG_DWORD, std::string("\1\2\3", 3)},
        {"list", REG_MULTI_SZ, std::string("A\0\0\0B\0\0\0\0\0", 10)},
        {"nothing", REG_BINARY, ""},
        {"unknown type", 0x1234, "xy"},
        {"large", REG_BINARY, std::string(100000, 'z')},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        // What follows must not be a zero: a text that lost just its end may be given it back.
        const std::string given = c.bytes + "!";
        const auto size = static_cast<DWORD>(c.bytes.size());
        ASSERT_EQ(ERROR_SUCCESS, RegSetValueExW(home, TEXT("Value"), 0, c.type,
                                                reinterpret_cast<const BYTE*>(given.data()), size));
        std::string bytes(size, '?');
        DWORD type = 99, found = size;
        EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(home, TEXT("vALUE"), nullptr, &type,
                                                  reinterpret_cast<BYTE*>(bytes.data()), &found));
        EXPECT_EQ(c.type, type);
        EXPECT_EQ(size, found);
        EXPECT_EQ(c.bytes, bytes);
    }
}

TEST_F(Registry, TellsTheNeededSizeForEveryRoom)
{
    ASSERT_EQ(ERROR_SUCCESS, Set(nullptr, "12345678"));
    struct Case
    {
        bool buffer;
        DWORD room;
        LSTATUS status;
    } cases[] = {
        {false, 0, ERROR_SUCCESS},  {false, 3, ERROR_SUCCESS}, {true, 0, ERROR_MORE_DATA},
        {true, 7, ERROR_MORE_DATA}, {true, 8, ERROR_SUCCESS},  {true, 20, ERROR_SUCCESS},
    };
    for (const Case& c : cases) {
        BYTE buffer[32] = {};
        DWORD size = c.room, type = 0;
        EXPECT_EQ(c.status,
                  RegQueryValueExW(home, TEXT(""), nullptr, &type, c.buffer ? buffer : nullptr, &size))
            << c.room;
        EXPECT_EQ(8u, size) << c.room;
        EXPECT_EQ(REG_BINARY, type) << c.room;
        EXPECT_EQ(0, buffer[8]) << c.room;
    }
    EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(home, nullptr, nullptr, nullptr, nullptr, nullptr));
}

TEST_F(Registry, ReportsWhatIsMissing)
{
    HKEY key = nullptr;
    DWORD size = 0;
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, Open(home, TEXT("None"), &key));
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegQueryValueExW(home, TEXT("None"), nullptr, nullptr, nullptr, &size));
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegDeleteValueW(home, TEXT("None")));
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegDeleteKeyW(home, TEXT("None")));
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegDeleteTreeW(home, TEXT("None")));
}

TEST_F(Registry, RefusesWhatAHandleWasNotOpenedFor)
{
    using Action = LSTATUS (*)(HKEY);
    Action query = [](HKEY key) {
        return RegQueryValueExW(key, TEXT("V"), nullptr, nullptr, nullptr, nullptr);
    };
    Action set = [](HKEY key) { return RegSetValueExW(key, TEXT("V"), 0, REG_BINARY, nullptr, 0); };
    Action remove = [](HKEY key) { return RegDeleteValueW(key, TEXT("V")); };
    const std::tuple<const char*, Action, REGSAM, REGSAM> cases[] = {
        {"query", query, KEY_QUERY_VALUE, KEY_SET_VALUE}, {"set", set, KEY_SET_VALUE, KEY_READ},
        {"delete", remove, KEY_WRITE, KEY_READ},          {"query", query, MAXIMUM_ALLOWED, KEY_WRITE},
        {"set", set, GENERIC_WRITE, GENERIC_READ},
    };
    for (const auto& [what, action, enough, notEnough] : cases) {
        ASSERT_EQ(ERROR_SUCCESS, Set(TEXT("V"), "x"));
        HKEY key = nullptr;
        ASSERT_EQ(ERROR_SUCCESS, Open(home, nullptr, &key, notEnough));
        EXPECT_EQ(ERROR_ACCESS_DENIED, action(key)) << what;
        RegCloseKey(key);
        ASSERT_EQ(ERROR_SUCCESS, Open(home, TEXT(""), &key, enough));
        EXPECT_EQ(ERROR_SUCCESS, action(key)) << what;
        RegCloseKey(key);
    }
}

TEST_F(Registry, EndsTheHandlesOfADeletedKey)
{
    HKEY outer = nullptr, inner = nullptr, again = nullptr, other = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, Create(home, TEXT("Outer"), &outer));
    ASSERT_EQ(ERROR_SUCCESS, Create(outer, TEXT("Inner"), &inner));
    EXPECT_EQ(ERROR_ACCESS_DENIED, RegDeleteKeyW(home, TEXT("Outer"))) << "it has a key below";
    EXPECT_EQ(ERROR_SUCCESS, RegDeleteKeyW(outer, TEXT("inner")));
    ASSERT_EQ(ERROR_SUCCESS, Create(outer, TEXT("Inner"), &again));
    const LSTATUS results[] = {
        RegSetValueExW(inner, TEXT("V"), 0, REG_SZ, nullptr, 0),
        RegQueryValueExW(inner, TEXT("V"), nullptr, nullptr, nullptr, nullptr),
        Open(inner, TEXT("X"), &other),
        Create(inner, TEXT("X"), &other),
    };
    for (const LSTATUS result : results)
        EXPECT_EQ(ERROR_KEY_DELETED, result);
    for (HKEY key : {inner, again, outer})
        EXPECT_EQ(ERROR_SUCCESS, RegCloseKey(key));
}

TEST_F(Registry, RefusesHandlesThatAreNotOpen)
{
    HKEY closed = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, Open(home, nullptr, &closed));
    ASSERT_EQ(ERROR_SUCCESS, RegCloseKey(closed));
    for (HKEY bad : {HKEY(nullptr), closed, reinterpret_cast<HKEY>(UINT_PTR{0x5EADBEE0})}) {
        HKEY key = nullptr;
        const LSTATUS results[] = {
            RegQueryValueExW(bad, nullptr, nullptr, nullptr, nullptr, nullptr),
            RegSetValueExW(bad, nullptr, 0, REG_SZ, nullptr, 0),
            RegDeleteValueW(bad, TEXT("V")),
            Open(bad, TEXT("X"), &key),
            Create(bad, TEXT("X"), &key),
            RegCloseKey(bad),
        };
        for (const LSTATUS result : results)
            EXPECT_EQ(ERROR_INVALID_HANDLE, result);
    }
}

TEST_F(Registry, RootsStayOpen)
{
    HKEY key = nullptr;
    EXPECT_EQ(ERROR_SUCCESS, RegCloseKey(HKEY_CURRENT_USER));
    EXPECT_EQ(ERROR_SUCCESS, Open(HKEY_CURRENT_USER, nullptr, &key));
}

TEST_F(Registry, ShowsTheMachinesClassesAsClassesRoot)
{
    constexpr const WCHAR* kKey = TEXT("PsuiConformance.Class");
    HKEY key = nullptr, same = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, Create(HKEY_CLASSES_ROOT, kKey, &key));
    EXPECT_EQ(ERROR_SUCCESS,
              Open(HKEY_LOCAL_MACHINE, TEXT("Software\\Classes\\PsuiConformance.Class"), &same));
    RegCloseKey(same);
    RegCloseKey(key);
    EXPECT_EQ(ERROR_SUCCESS, RegDeleteKeyW(HKEY_CLASSES_ROOT, kKey));
}

TEST_F(Registry, NamesTheUsersCountry)
{
    HKEY key = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, Open(HKEY_CURRENT_USER, TEXT("Control Panel\\International"), &key));
    WCHAR country[8] = {};
    DWORD type = 0, size = sizeof country;
    EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, TEXT("iCountry"), nullptr, &type,
                                              reinterpret_cast<BYTE*>(country), &size));
    EXPECT_EQ(REG_SZ, type);
    EXPECT_EQ(Text(TEXT("1")), Text(country));
    RegCloseKey(key);
}

TEST_F(Registry, EnumeratesEveryValueOnceWithItsSizes)
{
    ASSERT_EQ(ERROR_SUCCESS, Set(TEXT("beta"), "12345"));
    ASSERT_EQ(ERROR_SUCCESS, Set(TEXT("Alpha"), "123"));
    ASSERT_EQ(ERROR_SUCCESS, Set(TEXT("BETA"), "123", REG_SZ));
    // The order is the system's own.
    for (DWORD i = 0; i < 2; ++i) {
        WCHAR name[8];
        BYTE data[8];
        DWORD nameSize = 8, size = 8, type = 0;
        ASSERT_EQ(ERROR_SUCCESS, RegEnumValueW(home, i, name, &nameSize, nullptr, &type, data, &size));
        bool isAlpha = Text(TEXT("Alpha")) == name;
        EXPECT_TRUE(isAlpha || Text(TEXT("beta")) == name);
        EXPECT_EQ(isAlpha ? 5u : 4u, nameSize);
        EXPECT_EQ(3u, size);
        EXPECT_EQ(isAlpha ? REG_BINARY : REG_SZ, type);

        DWORD noRoom = nameSize;
        EXPECT_EQ(ERROR_MORE_DATA, RegEnumValueW(home, i, name, &noRoom, nullptr, nullptr, data, &size));
        nameSize = 8, size = 2;
        EXPECT_EQ(ERROR_MORE_DATA, RegEnumValueW(home, i, name, &nameSize, nullptr, nullptr, data, &size));
        EXPECT_EQ(3u, size);
        nameSize = 8, size = 8;
        EXPECT_EQ(ERROR_NO_MORE_ITEMS,
                  RegEnumValueW(home, 2, name, &nameSize, nullptr, nullptr, data, &size));
    }
}

TEST_F(Registry, DeletesTreesWithOrWithoutTheirRoot)
{
    HKEY key = nullptr;
    for (const WCHAR* name : {TEXT("Tree\\A\\B"), TEXT("Tree\\C"), TEXT("Tree2"), TEXT("Tre")}) {
        ASSERT_EQ(ERROR_SUCCESS, Create(home, name, &key));
        RegCloseKey(key);
    }
    EXPECT_EQ(ERROR_SUCCESS, RegDeleteTreeW(home, TEXT("tree")));
    EXPECT_EQ((std::vector<Text>{TEXT("Tre"), TEXT("Tree2")}), SubKeys());

    ASSERT_EQ(ERROR_SUCCESS, Set(TEXT("V"), "x"));
    EXPECT_EQ(ERROR_SUCCESS, RegDeleteTreeW(home, nullptr));
    EXPECT_TRUE(SubKeys().empty());
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegQueryValueExW(home, TEXT("V"), nullptr, nullptr, nullptr, nullptr));
    EXPECT_EQ(ERROR_SUCCESS, Set(TEXT("V"), "y"));
}

} // namespace
