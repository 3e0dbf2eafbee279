#include <thread>
#include <tuple>

#include "tests/host/last_error.h"
#include "tests/host/scratch.h"

namespace {

Wide FullPath(const Wide& name)
{
    WCHAR buffer[512];
    return Wide(buffer, GetFullPathNameW(name.c_str(), 512, buffer, nullptr));
}

class Paths : public Scratch
{
};

TEST_F(Paths, FullPathCleansWhatItIsGiven)
{
    WCHAR before[512];
    ASSERT_NE(GetCurrentDirectoryW(512, before), 0u);
    ASSERT_TRUE(SetCurrentDirectoryW(TEXT("C:\\windows\\system32")));
    const std::tuple<const WCHAR*, const WCHAR*> cases[] = {
        {TEXT("C:\\a\\b"), TEXT("C:\\a\\b")},
        {TEXT("c:/a/./b/../c"), TEXT("c:\\a\\c")},
        {TEXT("C:\\a\\..\\..\\..\\b"), TEXT("C:\\b")},
        {TEXT("C:\\a\\\\b\\"), TEXT("C:\\a\\b\\")},
        {TEXT("C:\\"), TEXT("C:\\")},
        {TEXT("C:\\a\\.."), TEXT("C:\\")},
        {TEXT("C:\\a\\name. . "), TEXT("C:\\a\\name")},
        {TEXT("\\top"), TEXT("C:\\top")},
        {TEXT("here.txt"), TEXT("C:\\windows\\system32\\here.txt")},
        {TEXT("..\\here.txt"), TEXT("C:\\windows\\here.txt")},
        {TEXT("."), TEXT("C:\\windows\\system32")},
        {TEXT("C:rel"), TEXT("C:\\windows\\system32\\rel")},
    };
    for (const auto& [name, full] : cases)
        EXPECT_EQ(lstrcmpiW(FullPath(name).c_str(), full), 0)
            << testing::PrintToString(FullPath(name)) << " for " << testing::PrintToString(Wide(name));
    EXPECT_TRUE(SetCurrentDirectoryW(before));
}

TEST_F(Paths, ExistingNamesAreFoundInAnyCaseAndNotMadeTwice)
{
    ASSERT_TRUE(CreateDirectoryW(Path(TEXT("Folder")).c_str(), nullptr));
    Write(Path(TEXT("pr\u00FCfung-\u65E5\u672C.txt")), "beyond ASCII");
    EXPECT_EQ(Read(Path(TEXT("PR\u00DCFUNG-\u65E5\u672C.TXT"))), "beyond ASCII");
    Write(Path(TEXT("folder\\Read.Me")), "one");
    EXPECT_EQ(Read(Path(TEXT("FOLDER\\READ.ME"))), "one");
    Write(Path(TEXT("fOLDER\\read.me")), "two");
    EXPECT_EQ(Read(Path(TEXT("Folder\\Read.Me"))), "two");
    EXPECT_TRUE(Fails(ERROR_FILE_EXISTS, Open(Path(TEXT("folder\\READ.me")), GENERIC_WRITE, 0, CREATE_NEW),
                      INVALID_HANDLE_VALUE));
    EXPECT_FALSE(CreateDirectoryW(Path(TEXT("FOLDER")).c_str(), nullptr));
    EXPECT_TRUE(DeleteFileW(Path(TEXT("FOLDER\\read.ME")).c_str()));
    EXPECT_EQ(Read(Path(TEXT("Folder\\Read.Me"))), "(absent)");
}

// By another thread; in a folder that changed just now, and in one that has been at rest for a while.
TEST_F(Paths, MissingNamesAreFoundOnceTheyAreMadeInAnotherCase)
{
    const Wide asked = Path(TEXT("asked.txt"));
    const Wide made = Path(TEXT("ASKED.TXT"));
    for (const DWORD rest : {0u, 50u, 0u, 50u}) {
        SCOPED_TRACE(rest);
        Sleep(rest);
        EXPECT_EQ(Read(asked), "(absent)");
        std::thread([&] { Write(made, "made"); }).join();
        EXPECT_EQ(Read(asked), "made");
        Write(asked, "written");
        EXPECT_EQ(Read(made), "written");
        EXPECT_TRUE(DeleteFileW(asked.c_str()));
    }
}

TEST(SystemFolders, AreReportedWithTheSizeTheyNeed)
{
    WCHAR buffer[MAX_PATH];
    const UINT size = GetSystemDirectoryW(buffer, MAX_PATH);
    EXPECT_EQ(lstrcmpiW(buffer, TEXT("C:\\windows\\system32")), 0);
    EXPECT_EQ(size, 19u);
    EXPECT_EQ(GetSystemDirectoryW(buffer, 19), 20u);
    EXPECT_EQ(GetWindowsDirectoryW(buffer, MAX_PATH), 10u);
    const DWORD temp = GetTempPathW(MAX_PATH, buffer);
    ASSERT_GT(temp, 0u);
    EXPECT_EQ(buffer[temp - 1], TEXT('\\'));
    EXPECT_NE(GetFileAttributesW(buffer) & FILE_ATTRIBUTE_DIRECTORY, 0u);
    EXPECT_EQ(GetTempPathW(temp, buffer), temp + 1);
}

} // namespace
