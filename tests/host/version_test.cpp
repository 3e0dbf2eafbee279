// Version information of module files. The module is a real one of the system that runs the test.
#include <cstring>
#include <tuple>
#include <vector>

#include "tests/host/last_error.h"
#include "tests/host/scratch.h"
#include "tests/host/wine.h"

namespace {

class Versions : public Scratch
{
protected:
    static std::vector<char> Information(const Wide& path)
    {
        std::vector<char> data(GetFileVersionInfoSizeW(path.c_str(), nullptr));
        EXPECT_FALSE(data.empty());
        EXPECT_TRUE(GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(data.size()), data.data()));
        return data;
    }

    static Wide Text(const std::vector<char>& data, const WCHAR* path)
    {
        LPVOID text = nullptr;
        UINT size = 0;
        if (!VerQueryValueW(data.data(), path, &text, &size))
            return TEXT("(none)");
        return size > 0 ? Wide(static_cast<WCHAR*>(text), size) : Wide();
    }
};

TEST_F(Versions, ValuesAreFoundByPathOrNotAtAll)
{
    const std::vector<char> data = Information(BesideThisProgram(TEXT("version_module.dll")));
    LPVOID value = nullptr;
    UINT size = 0;
    ASSERT_TRUE(VerQueryValueW(data.data(), TEXT("\\"), &value, &size));
    ASSERT_EQ(size, sizeof(VS_FIXEDFILEINFO));
    const auto* const fixed = static_cast<const VS_FIXEDFILEINFO*>(value);
    EXPECT_EQ(fixed->dwSignature, VS_FFI_SIGNATURE);
    EXPECT_EQ(fixed->dwFileVersionMS, 3u << 16 | 10u);
    EXPECT_EQ(fixed->dwFileVersionLS, 2u << 16 | 7u);
    EXPECT_EQ(fixed->dwProductVersionMS, 4u << 16);

    ASSERT_TRUE(VerQueryValueW(data.data(), TEXT("\\VarFileInfo\\Translation"), &value, &size));
    const WORD translations[] = {0x409, 1200, 0x411, 932};
    ASSERT_EQ(size, sizeof translations);
    EXPECT_EQ(std::memcmp(value, translations, sizeof translations), 0);

    const Wide zero(1, TEXT('\0'));
    EXPECT_EQ(Text(data, TEXT("\\StringFileInfo\\040904B0\\ProductVersion")), TEXT("3.10") + zero);
    EXPECT_EQ(Text(data, TEXT("\\stringfileinfo\\040904b0\\PRODUCTVERSION")), TEXT("3.10") + zero);
    EXPECT_EQ(Text(data, TEXT("\\StringFileInfo\\041103A4\\ProductVersion")), TEXT("\u65E5\u672C") + zero);
    EXPECT_EQ(Text(data, TEXT("\\StringFileInfo\\040904B0")), Wide());
    for (const WCHAR* path : {TEXT("\\None"), TEXT("\\StringFileInfo\\04090000\\ProductVersion"),
                              TEXT("\\StringFileInfo\\040904B0\\None"), TEXT("\\Translation")}) {
        EXPECT_TRUE(Fails(ERROR_RESOURCE_TYPE_NOT_FOUND, VerQueryValueW(data.data(), path, &value, &size)));
        EXPECT_EQ(size, 0u);
    }
}

TEST_F(Versions, FilesWithoutAVersionSayWhatIsWrong)
{
    Write(Path(TEXT("text.exe")), "This is no program.");
    const std::tuple<Wide, DWORD> cases[] = {
        {Path(TEXT("none.exe")), ERROR_FILE_NOT_FOUND},
        {Path(TEXT("none\\none.exe")), ERROR_PATH_NOT_FOUND},
        {Path(TEXT("text.exe")), ERROR_RESOURCE_DATA_NOT_FOUND},
    };
    for (const auto& [path, error] : cases) {
        DWORD handle = 1;
        EXPECT_TRUE(Fails(error, GetFileVersionInfoSizeW(path.c_str(), &handle)));
        EXPECT_EQ(handle, 0u);
        char data[64];
        EXPECT_TRUE(Fails(error, GetFileVersionInfoW(path.c_str(), 0, sizeof data, data)));
    }
}

// Wine's functions trust the size that the resource states.
TEST_F(Versions, CutInformationStaysWithinItsBuffer)
{
    if (OnWine())
        GTEST_SKIP();
    const Wide path = BesideThisProgram(TEXT("version_module.dll"));
    const std::vector<char> whole = Information(path);
    for (DWORD size = 6; size < whole.size(); ++size) {
        std::vector<char> data(size);
        EXPECT_TRUE(GetFileVersionInfoW(path.c_str(), 0, size, data.data()));
        LPVOID value = nullptr;
        UINT valueSize = 0;
        for (const WCHAR* query : {TEXT("\\"), TEXT("\\VarFileInfo\\Translation"),
                                   TEXT("\\StringFileInfo\\040904B0\\ProductVersion")}) {
            if (VerQueryValueW(data.data(), query, &value, &valueSize)) {
                EXPECT_LE(static_cast<char*>(value) + valueSize, data.data() + size) << size;
            }
        }
    }
}

} // namespace
