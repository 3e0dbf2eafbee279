// Atoms, environment, user, folders and windows of others: what a program asks of the system around it.
#include <string>

#include <gtest/gtest.h>
#include <windows.h>

#include <shlobj.h>

#include "tests/host/last_error.h"
#include "tests/host/wine.h"

namespace {

using Wide = std::basic_string<WCHAR>;

constexpr DWORD kUntouched = 777;

TEST(Atoms, AreCountedAndFoundWithoutRegardToCase)
{
    const ATOM atom = GlobalAddAtomW(TEXT("Psui Test Atom"));
    ASSERT_GE(atom, MAXINTATOM);
    EXPECT_EQ(GlobalAddAtomW(TEXT("PSUI test ATOM")), atom);
    EXPECT_EQ(GlobalFindAtomW(TEXT("psui test atom")), atom);
    const ATOM other = GlobalAddAtomW(TEXT("Psui other atom"));
    EXPECT_NE(other, atom);
    WCHAR name[32];
    EXPECT_EQ(GlobalGetAtomNameW(atom, name, 32), 14u);
    EXPECT_EQ(Wide(name), TEXT("Psui Test Atom")) << "as it was added first";

    EXPECT_EQ(GlobalDeleteAtom(atom), 0);
    EXPECT_EQ(GlobalFindAtomW(TEXT("psui test atom")), atom) << "added twice";
    EXPECT_EQ(GlobalDeleteAtom(atom), 0);
    EXPECT_TRUE(Fails(ERROR_FILE_NOT_FOUND, GlobalFindAtomW(TEXT("psui test atom"))));
    SetLastError(kUntouched);
    GlobalDeleteAtom(atom);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_HANDLE));
    EXPECT_TRUE(Fails(ERROR_INVALID_HANDLE, GlobalGetAtomNameW(atom, name, 32)));
    EXPECT_EQ(GlobalDeleteAtom(other), 0);
}

TEST(Atoms, NamesOfWrongSizeAndNumbersOfWrongRangeAreRefused)
{
    const Wide longest(255, TEXT('x'));
    const Wide tooLong(256, TEXT('x'));
    const struct
    {
        const WCHAR* name;
        ATOM atom; // 0 with `error`
        DWORD error;
    } cases[] = {
        {TEXT("#123"), 123, 0},
        {TEXT("#49151"), 49151, 0},
        {MAKEINTATOM(5), 5, 0},
        {TEXT(""), 0, ERROR_INVALID_NAME},
        {tooLong.c_str(), 0, ERROR_INVALID_PARAMETER},
        {TEXT("#0"), 0, ERROR_INVALID_PARAMETER},
        {TEXT("#49152"), 0, ERROR_INVALID_PARAMETER},
        {TEXT("#99999999999"), 0, ERROR_INVALID_PARAMETER},
        {MAKEINTATOM(0xC000), 0, ERROR_INVALID_PARAMETER},
    };
    for (const auto& each : cases) {
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(GlobalAddAtomW(each.name), each.atom) << each.atom;
        EXPECT_EQ(GetLastError(), each.error);
        EXPECT_EQ(GlobalFindAtomW(each.name), each.atom);
        EXPECT_EQ(GlobalDeleteAtom(each.atom), 0);
    }
    for (const WCHAR* name : {longest.c_str(), TEXT("#12x"), TEXT("#")}) {
        const ATOM atom = GlobalAddAtomW(name);
        EXPECT_GE(atom, MAXINTATOM);
        EXPECT_EQ(GlobalDeleteAtom(atom), 0);
    }
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

TEST(Environment, VariablesKeepTheirTextUntilTheyGo)
{
    WCHAR value[8];
    EXPECT_TRUE(SetEnvironmentVariableW(TEXT("PsuiTest"), TEXT("abc")));
    EXPECT_EQ(GetEnvironmentVariableW(TEXT("PSUITEST"), value, 4), 3u);
    EXPECT_EQ(Wide(value), TEXT("abc"));
    EXPECT_EQ(GetEnvironmentVariableW(TEXT("PSUITEST"), value, 3), 4u) << "too small";
    EXPECT_EQ(GetEnvironmentVariableW(TEXT("PSUITEST"), nullptr, 0), 4u);
    EXPECT_TRUE(SetEnvironmentVariableW(TEXT("psuitest"), TEXT("")));
    SetLastError(kUntouched);
    EXPECT_EQ(GetEnvironmentVariableW(TEXT("PsuiTest"), value, 8), 0u);
    EXPECT_EQ(GetLastError(), kUntouched) << "empty is not missing";
    EXPECT_TRUE(SetEnvironmentVariableW(TEXT("PsuiTest"), nullptr));
    EXPECT_TRUE(SetEnvironmentVariableW(TEXT("PsuiTest"), nullptr));
    EXPECT_TRUE(Fails(ERROR_ENVVAR_NOT_FOUND, GetEnvironmentVariableW(TEXT("PsuiTest"), value, 8)));
    for (const WCHAR* name : {TEXT(""), TEXT("a=b")}) {
        EXPECT_TRUE(Fails(ERROR_INVALID_PARAMETER, SetEnvironmentVariableW(name, TEXT("x"))));
    }
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
    const struct
    {
        int id;
        Wide path;
    } cases[] = {
        {CSIDL_APPDATA, own + TEXT("\\AppData\\Roaming")},
        {CSIDL_APPDATA | CSIDL_FLAG_CREATE, own + TEXT("\\AppData\\Roaming")},
        {CSIDL_LOCAL_APPDATA, own + TEXT("\\AppData\\Local")},
        {CSIDL_PERSONAL, own + TEXT("\\Documents")},
        {CSIDL_COMMON_APPDATA, TEXT("C:\\ProgramData")},
        {CSIDL_WINDOWS, TEXT("C:\\windows")},
        {CSIDL_SYSTEM, TEXT("C:\\windows\\system32")},
    };
    for (const auto& each : cases) {
        WCHAR path[MAX_PATH];
        EXPECT_EQ(SHGetFolderPathW(nullptr, each.id, nullptr, SHGFP_TYPE_CURRENT, path), S_OK) << each.id;
        EXPECT_EQ(path, each.path);
        EXPECT_NE(GetFileAttributesW(path), INVALID_FILE_ATTRIBUTES) << each.id;
        char narrow[MAX_PATH];
        EXPECT_EQ(SHGetFolderPathA(nullptr, each.id, nullptr, SHGFP_TYPE_CURRENT, narrow), S_OK) << each.id;
        EXPECT_EQ(std::string(narrow), std::string(each.path.begin(), each.path.end()));
    }
    WCHAR path[MAX_PATH];
    EXPECT_EQ(SHGetFolderPathW(nullptr, 0x7F, nullptr, SHGFP_TYPE_CURRENT, path), E_INVALIDARG);
    EXPECT_EQ(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, 2, path), E_INVALIDARG);
}

TEST(SystemModules, AreFoundByNameAndGiveTheirFunctions)
{
    const struct
    {
        const WCHAR* module;
        const char* function;
    } cases[] = {
        {TEXT("kernel32.dll"), "GetTickCount64"}, {TEXT("KERNEL32"), "lstrlenW"},
        {TEXT("user32.dll"), "GetActiveWindow"},  {TEXT("advapi32.dll"), "RegCloseKey"},
        {TEXT("shell32.dll"), "ShellExecuteW"},   {TEXT("winspool.drv"), "OpenPrinterW"},
    };
    for (const auto& each : cases) {
        const HMODULE module = LoadLibraryW(each.module);
        ASSERT_NE(module, nullptr) << each.function;
        EXPECT_EQ(GetModuleHandleW(each.module), module);
        EXPECT_NE(GetProcAddress(module, each.function), nullptr) << each.function;
        EXPECT_EQ(GetProcAddress(module, "NoSuchFunction"), nullptr);
        EXPECT_TRUE(FreeLibrary(module));
    }
    using Sleeper = ULONGLONG WINAPI();
    const FARPROC ticks = GetProcAddress(GetModuleHandleW(TEXT("kernel32")), "GetTickCount64");
    ASSERT_NE(ticks, nullptr);
    EXPECT_GT(reinterpret_cast<Sleeper*>(reinterpret_cast<void*>(ticks))(), 0u);

    const HMODULE spooler = LoadLibraryW(TEXT("spoolss.dll"));
    ASSERT_NE(spooler, nullptr);
    EXPECT_NE(GetProcAddress(spooler, "ImpersonatePrinterClient"), nullptr);
    EXPECT_NE(GetProcAddress(spooler, "RevertToPrinterSelf"), nullptr);
    EXPECT_TRUE(FreeLibrary(spooler));
}

} // namespace
