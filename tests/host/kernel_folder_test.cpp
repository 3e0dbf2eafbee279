#include "tests/host/last_error.h"
#include "tests/host/scratch.h"
#include "tests/host/wine.h"

#include <tuple>
#include <vector>

namespace {

class Folders : public Scratch
{
protected:
    std::vector<Wide> List(const Wide& pattern)
    {
        std::vector<Wide> names;
        WIN32_FIND_DATAW data;
        const HANDLE find = FindFirstFileW(Path(pattern).c_str(), &data);
        if (find == INVALID_HANDLE_VALUE)
            return names;
        do
            names.push_back(data.cFileName);
        while (FindNextFileW(find, &data));
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NO_MORE_FILES));
        FindClose(find);
        return names;
    }
};

using Names = std::vector<Wide>;

TEST_F(Folders, ListingMatchesPatternsWithoutRegardToCase)
{
    for (const WCHAR* name : {TEXT("alpha.txt"), TEXT("Beta.TXT"), TEXT("gamma"), TEXT("delta.text")})
        Write(Path(name), "1234");
    const std::tuple<const WCHAR*, Names> cases[] = {
        {TEXT("*.txt"), {TEXT("alpha.txt"), TEXT("Beta.TXT")}},
        {TEXT("?e*a.t*"), {TEXT("Beta.TXT"), TEXT("delta.text")}},
        {TEXT("BETA.txt"), {TEXT("Beta.TXT")}},
        {TEXT("g*"), {TEXT("gamma")}},
        {TEXT("*.*"),
         {TEXT("."), TEXT(".."), TEXT("alpha.txt"), TEXT("Beta.TXT"), TEXT("delta.text"), TEXT("gamma")}},
        {TEXT("*.doc"), {}},
    };
    for (const auto& [pattern, names] : cases)
        EXPECT_EQ(List(pattern), names) << testing::PrintToString(Wide(pattern));
}

TEST_F(Folders, FailedListingTellsFileFromPath)
{
    WIN32_FIND_DATAW data;
    EXPECT_TRUE(
        Fails(ERROR_FILE_NOT_FOUND, FindFirstFileW(Path(TEXT("none")).c_str(), &data), INVALID_HANDLE_VALUE));
    EXPECT_TRUE(Fails(ERROR_PATH_NOT_FOUND, FindFirstFileW(Path(TEXT("none\\*")).c_str(), &data),
                      INVALID_HANDLE_VALUE));
}

TEST_F(Folders, ListingTellsSizeAndKind)
{
    Write(Path(TEXT("file")), "12345");
    ASSERT_TRUE(CreateDirectoryW(Path(TEXT("inner")).c_str(), nullptr));
    WIN32_FIND_DATAW data;
    HANDLE find = FindFirstFileW(Path(TEXT("file")).c_str(), &data);
    EXPECT_EQ(data.nFileSizeLow, 5u);
    EXPECT_EQ(data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY, 0u);
    FindClose(find);
    find = FindFirstFileW(Path(TEXT("inner")).c_str(), &data);
    EXPECT_EQ(data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY, 0u + FILE_ATTRIBUTE_DIRECTORY);
    FindClose(find);
}

TEST_F(Folders, MoveReplacesOnlyWhenAsked)
{
    const Wide from = Path(TEXT("from"));
    const Wide to = Path(TEXT("to"));
    Write(from, "new");
    Write(to, "old");
    EXPECT_TRUE(Fails(ERROR_ALREADY_EXISTS, MoveFileExW(from.c_str(), to.c_str(), 0)));
    EXPECT_TRUE(MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING));
    EXPECT_EQ(Read(to), "new");
    EXPECT_EQ(Read(from), "(absent)");
    EXPECT_TRUE(
        Fails(ERROR_FILE_NOT_FOUND, MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING)));
    EXPECT_TRUE(MoveFileExW(to.c_str(), Path(TEXT("TO")).c_str(), 0));
    EXPECT_EQ(List(TEXT("t*")), Names{OnWine() ? TEXT("to") : TEXT("TO")}) << "Wine changes nothing";
}

TEST_F(Folders, CopyKeepsContentAndAttribute)
{
    const Wide from = Path(TEXT("from"));
    const Wide to = Path(TEXT("to"));
    Write(from, std::string(200000, 'c'));
    SetFileAttributesW(from.c_str(), FILE_ATTRIBUTE_READONLY);
    Write(to, "old");
    EXPECT_TRUE(Fails(ERROR_FILE_EXISTS, CopyFileW(from.c_str(), to.c_str(), TRUE)));
    EXPECT_EQ(Read(to), "old");
    EXPECT_TRUE(CopyFileW(from.c_str(), to.c_str(), FALSE));
    EXPECT_EQ(Read(to), std::string(200000, 'c'));
    if (!OnWine()) { // forgets the attribute
        EXPECT_NE(GetFileAttributesW(to.c_str()) & FILE_ATTRIBUTE_READONLY, 0u);
    }
    EXPECT_TRUE(Fails(ERROR_FILE_NOT_FOUND, CopyFileW(Path(TEXT("none")).c_str(), to.c_str(), FALSE)));
}

} // namespace
