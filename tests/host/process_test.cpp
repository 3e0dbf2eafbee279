// Atoms, environment, user, folders and windows of others: what a program asks of the system around it.
#include <string>
#include <tuple>

#include <gtest/gtest.h>
#include <windows.h>

#include <shlobj.h>

#include "tests/host/last_error.h"
#include "tests/host/wine.h"

namespace {

using Wide = std::basic_string<WCHAR>;

TEST(Atoms, AreCountedAndFoundWithoutRegardToCase)
{
    const ATOM atom = GlobalAddAtomW(TEXT("Psui Test Atom"));
    ASSERT_GE(atom, MAXINTATOM);
    EXPECT_EQ(GlobalAddAtomW(TEXT("PSUI test ATOM")), atom);
    EXPECT_EQ(GlobalFindAtomW(TEXT("psui test atom")), atom);
    const ATOM other = GlobalAddAtomW(TEXT("Psui other atom"));
    EXPECT_NE(other, atom);
    EXPECT_EQ(GlobalDeleteAtom(atom), 0);
    EXPECT_EQ(GlobalFindAtomW(TEXT("psui test atom")), atom) << "added twice";
    EXPECT_EQ(GlobalDeleteAtom(atom), 0);
    EXPECT_TRUE(Fails(ERROR_FILE_NOT_FOUND, GlobalFindAtomW(TEXT("psui test atom"))));
    EXPECT_EQ(GlobalDeleteAtom(other), 0);
}

TEST(Atoms, NamesOfWrongSizeAreRefusedAndNumbersAreAtomsThemselves)
{
    const Wide tooLong(256, TEXT('x'));
    const std::tuple<const WCHAR*, ATOM, DWORD> cases[] = {
        {TEXT("#123"), 123, 0},
        {TEXT(""), 0, ERROR_INVALID_NAME},
        {tooLong.c_str(), 0, ERROR_INVALID_PARAMETER},
        {TEXT("#49152"), 0, ERROR_INVALID_PARAMETER},
    };
    for (const auto& [name, atom, error] : cases) {
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(GlobalAddAtomW(name), atom) << atom;
        EXPECT_EQ(GetLastError(), error);
        EXPECT_EQ(GlobalFindAtomW(name), atom);
    }
    const ATOM longest = GlobalAddAtomW(tooLong.c_str() + 1);
    EXPECT_GE(longest, MAXINTATOM);
    EXPECT_EQ(GlobalDeleteAtom(longest), 0);
}

TEST(Environment, VariablesKeepTheirTextUntilTheyGo)
{
    char value[8];
    EXPECT_TRUE(SetEnvironmentVariableA("PsuiTest", "\xE9z"));
    EXPECT_EQ(GetEnvironmentVariableA("PSUITEST", value, 3), 2u);
    EXPECT_STREQ(value, "\xE9z");
    EXPECT_EQ(GetEnvironmentVariableA("PSUITEST", value, 2), 3u) << "too small";
    EXPECT_TRUE(SetEnvironmentVariableA("psuitest", ""));
    SetLastError(ERROR_INVALID_DATA);
    EXPECT_EQ(GetEnvironmentVariableA("PsuiTest", value, 8), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_DATA}) << "empty is not missing";
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(SetEnvironmentVariableA("PsuiTest", nullptr));
    EXPECT_TRUE(Fails(ERROR_ENVVAR_NOT_FOUND, GetEnvironmentVariableA("PsuiTest", value, 8)));
    for (const char* name : {"", "a=b"})
        EXPECT_TRUE(Fails(ERROR_INVALID_PARAMETER, SetEnvironmentVariableA(name, "x")));
}

TEST(User, NameIsSizedBeforeItIsCopied)
{
    DWORD size = 0;
    EXPECT_TRUE(Fails(ERROR_INSUFFICIENT_BUFFER, GetUserNameW(nullptr, &size)));
    Wide name(size, TEXT('~'));
    ASSERT_GT(size, 1u);
    EXPECT_TRUE(GetUserNameW(name.data(), &size));
    EXPECT_EQ(size, name.size());
    EXPECT_EQ(name.find(TEXT('\0')), size - 1);
}

TEST(KnownFolders, OfTheUserAreThereAndBelongToTheUser)
{
    WCHAR user[64];
    DWORD size = 64;
    ASSERT_TRUE(GetUserNameW(user, &size));
    const Wide own = Wide(TEXT("C:\\users\\")) + user;
    const std::tuple<int, Wide> cases[] = {
        {CSIDL_APPDATA, own + TEXT("\\AppData\\Roaming")},
        {CSIDL_APPDATA | CSIDL_FLAG_CREATE, own + TEXT("\\AppData\\Roaming")},
        {CSIDL_PERSONAL, own + TEXT("\\Documents")},
        {CSIDL_WINDOWS, TEXT("C:\\windows")},
    };
    WCHAR path[MAX_PATH];
    for (const auto& [id, expected] : cases) {
        EXPECT_EQ(SHGetFolderPathW(nullptr, id, nullptr, SHGFP_TYPE_CURRENT, path), S_OK) << id;
        EXPECT_EQ(path, expected);
        EXPECT_NE(GetFileAttributesW(path), INVALID_FILE_ATTRIBUTES) << id;
    }
    EXPECT_EQ(SHGetFolderPathW(nullptr, 0x7F, nullptr, SHGFP_TYPE_CURRENT, path), E_INVALIDARG);
    EXPECT_EQ(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, 2, path), E_INVALIDARG);
}

TEST(SystemModules, AreFoundByNameAndGiveTheirFunctions)
{
    for (const WCHAR* name : {TEXT("KERNEL32"), TEXT("winspool.drv"), TEXT("spoolss.dll")}) {
        const HMODULE module = LoadLibraryW(name);
        ASSERT_NE(module, nullptr);
        EXPECT_EQ(GetModuleHandleW(name), module);
        EXPECT_EQ(GetProcAddress(module, "NoSuchFunction"), nullptr);
        EXPECT_TRUE(FreeLibrary(module));
    }
    const FARPROC length = GetProcAddress(GetModuleHandleW(TEXT("kernel32")), "lstrlenW");
    ASSERT_NE(length, nullptr);
    EXPECT_EQ(reinterpret_cast<decltype(&lstrlenW)>(reinterpret_cast<void*>(length))(TEXT("four")), 4);
}

TEST(Environment, NarrowAndWideNamesMeanTheSameVariable)
{
    WCHAR wide[8];
    char narrow[8];
    EXPECT_TRUE(SetEnvironmentVariableA("PsuiTest", "\xE9z"));
    EXPECT_EQ(GetEnvironmentVariableW(TEXT("PsuiTest"), wide, 8), 2u);
    EXPECT_EQ(Wide(wide), TEXT("\u00E9z"));
    EXPECT_EQ(GetEnvironmentVariableA("psuitest", narrow, 3), 2u);
    EXPECT_EQ(std::string(narrow), "\xE9z");
    EXPECT_EQ(GetEnvironmentVariableA("psuitest", narrow, 2), 3u);
    EXPECT_TRUE(SetEnvironmentVariableA("PsuiTest", nullptr));
    EXPECT_TRUE(Fails(ERROR_ENVVAR_NOT_FOUND, GetEnvironmentVariableA("PsuiTest", narrow, 8)));
}

TEST(Atoms, NamesAreCutToTheBuffer)
{
    WCHAR name[8] = {};
    EXPECT_EQ(GlobalGetAtomNameW(123, name, 8), 4u);
    EXPECT_EQ(Wide(name), TEXT("#123"));
    EXPECT_EQ(GlobalGetAtomNameW(0, name, 8), 0u);
    EXPECT_EQ(GlobalGetAtomNameW(123, name, 0), 0u);
    // Wine leaves the terminator out of a name that is cut.
    if (!OnWine()) {
        EXPECT_EQ(GlobalGetAtomNameW(123, name, 3), 2u);
        EXPECT_EQ(Wide(name), TEXT("#1"));
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_MORE_DATA));
    }
}

} // namespace
