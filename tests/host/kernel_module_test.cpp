#include <cstdint>
#include <tuple>

#include "tests/host/last_error.h"
#include "tests/host/scratch.h"
#include "tests/host/wine.h"

namespace {

Wide ModulePath(HMODULE module)
{
    WCHAR path[512];
    const DWORD size = GetModuleFileNameW(module, path, 512);
    return Wide(path, size);
}

template <class Function>
Function* Procedure(HMODULE module, const char* name)
{
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

class Modules : public Scratch
{
};

TEST_F(Modules, OneModuleIsFoundByEveryNameAndAttachedOnce)
{
    EXPECT_TRUE(Fails(ERROR_MOD_NOT_FOUND, GetModuleHandleW(TEXT("sample_module.dll"))));
    const HMODULE module = LoadLibraryW(BesideThisProgram(TEXT("sample_module.dll")).c_str());
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(LoadLibraryW(TEXT("sample_module")), module);
    EXPECT_EQ(LoadLibraryW(TEXT("SAMPLE_module.DLL")), module);
    EXPECT_EQ(GetModuleHandleW(TEXT("Sample_Module")), module);
    EXPECT_EQ(GetModuleHandleW(BesideThisProgram(TEXT("sample_module.dll")).c_str()), module);
    ASSERT_NE(GetProcAddress(module, "AttachCount"), nullptr);
    EXPECT_EQ(Procedure<int()>(module, "AttachCount")(), 1);
    EXPECT_EQ(Procedure<HMODULE()>(module, "InnerHandle")(), module) << "loading from inside DllMain";
    for (int references = 3; references > 0; --references) {
        EXPECT_EQ(GetModuleHandleW(TEXT("sample_module")), module);
        EXPECT_TRUE(FreeLibrary(module));
    }
    EXPECT_EQ(GetModuleHandleW(TEXT("sample_module")), nullptr);
    EXPECT_TRUE(Fails(ERROR_MOD_NOT_FOUND, FreeLibrary(module)));
}

TEST_F(Modules, OnlyOwnExportsAreFound)
{
    const HMODULE module = LoadLibraryW(TEXT("sample_module"));
    ASSERT_NE(module, nullptr);
    for (const char* name :
         {"malloc", "HeapAlloc", "attachcount", "", reinterpret_cast<const char*>(uintptr_t{77})}) {
        EXPECT_TRUE(Fails(ERROR_PROC_NOT_FOUND, GetProcAddress(module, name)));
    }
    FreeLibrary(module);
}

TEST_F(Modules, FilesThatAreNoModulesAreRefused)
{
    Write(Path(TEXT("text.dll")), std::string(5000, 'x'));
    const std::tuple<Wide, DWORD> cases[] = {
        {Path(TEXT("text.dll")), ERROR_BAD_EXE_FORMAT},
        {Path(TEXT("text")), ERROR_BAD_EXE_FORMAT},
        {Path(TEXT("none.dll")), ERROR_MOD_NOT_FOUND},
        {Path(TEXT("none\\none.dll")), ERROR_MOD_NOT_FOUND},
        {TEXT("there_is_no_such_module"), ERROR_MOD_NOT_FOUND},
        {TEXT("refusing_module"), ERROR_DLL_INIT_FAILED},
    };
    for (const auto& [path, error] : cases) {
        SCOPED_TRACE(testing::PrintToString(path));
        EXPECT_TRUE(Fails(error, LoadLibraryW(path.c_str())));
    }
    EXPECT_EQ(GetModuleHandleW(TEXT("refusing_module")), nullptr);
}

TEST_F(Modules, CopyOfAModuleIsAnotherModule)
{
    const Wide copy = Path(TEXT("Copy.dll"));
    Write(copy, Read(BesideThisProgram(TEXT("sample_module.dll"))));
    const HMODULE first = LoadLibraryW(TEXT("sample_module"));
    const HMODULE second = LoadLibraryW(copy.c_str());
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);
    EXPECT_EQ(lstrcmpiW(ModulePath(second).c_str(), copy.c_str()), 0);
    FreeLibrary(second);
    FreeLibrary(first);
}

TEST_F(Modules, FileNameIsCutToTheBuffer)
{
    const HMODULE module = LoadLibraryW(TEXT("sample_module"));
    const Wide full = ModulePath(module);
    WCHAR path[512];
    const auto size = static_cast<DWORD>(full.size());
    EXPECT_TRUE(Fails(ERROR_INSUFFICIENT_BUFFER, GetModuleFileNameW(module, path, size), size));
    if (OnWine()) // ends the text too late
        path[size - 1] = 0;
    EXPECT_EQ(Wide(path), full.substr(0, size - 1));
    EXPECT_EQ(GetModuleFileNameW(module, path, size + 1), size);
    EXPECT_EQ(Wide(path), full);
    FreeLibrary(module);
    EXPECT_NE(GetModuleHandleW(nullptr), nullptr);
    EXPECT_NE(GetFileAttributesW(ModulePath(nullptr).c_str()), INVALID_FILE_ATTRIBUTES);
}

class Resources : public testing::Test
{
protected:
    void SetUp() override { ASSERT_NE(module_ = LoadLibraryW(TEXT("sample_module")), nullptr); }
    void TearDown() override { FreeLibrary(module_); }

    std::string Content(LPCWSTR name, LPCWSTR type)
    {
        const HRSRC resource = FindResourceW(module_, name, type);
        if (resource == nullptr)
            return "(absent)";
        const void* const data = LockResource(LoadResource(module_, resource));
        return {static_cast<const char*>(data), SizeofResource(module_, resource)};
    }

    HMODULE module_ = nullptr;
};

TEST_F(Resources, AreFoundByNumberAndByNameInAnyCase)
{
    const LPCWSTR data = MAKEINTRESOURCEW(10);
    const std::string seven("seven\0", 6);
    EXPECT_EQ(Content(MAKEINTRESOURCEW(7), data), seven);
    EXPECT_EQ(Content(TEXT("#7"), TEXT("#10")), seven);
    EXPECT_EQ(Content(TEXT("nAMED"), data), "\x02\x01\x04\x03");
    EXPECT_EQ(Content(TEXT("own"), TEXT("TypedText")), std::string("own\0", 4));
    EXPECT_EQ(Content(MAKEINTRESOURCEW(8), data), "(absent)");
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_RESOURCE_NAME_NOT_FOUND));
    EXPECT_EQ(Content(MAKEINTRESOURCEW(7), TEXT("NOTYPE")), "(absent)");
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_RESOURCE_TYPE_NOT_FOUND));
}

TEST_F(Resources, StringsAreCopiedCutPointedAtOrMissing)
{
    WCHAR buffer[32];
    const Wide sixteen = TEXT("sixteen: \u00E9\u65E5\u672C");
    EXPECT_EQ(LoadStringW(module_, 15, buffer, 32), 7);
    EXPECT_EQ(Wide(buffer), TEXT("fifteen"));
    EXPECT_EQ(LoadStringW(module_, 16, buffer, 32), 12);
    EXPECT_EQ(Wide(buffer), sixteen);
    EXPECT_EQ(LoadStringW(module_, 16, buffer, 8), 7);
    EXPECT_EQ(Wide(buffer), TEXT("sixteen"));
    const WCHAR* text = nullptr;
    ASSERT_EQ(LoadStringW(module_, 16, reinterpret_cast<LPWSTR>(&text), 0), 12);
    EXPECT_EQ(Wide(text, 12), sixteen);
    for (UINT missing : {0u, 2u, 17u, 40u, 5000u})
        EXPECT_EQ(LoadStringW(module_, missing, buffer, 32), 0) << missing;
}

} // namespace
