// What a host sets and reads back: profile files of several processes, launches, folders, windows, the
// spooler's side, and reads that answer wrongly.
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sys/wait.h>
#include <thread>
#include <tuple>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include <shlobj.h>

#include "host/host.h"
#include "tests/host/last_error.h"
#include "tests/host/memory_world.h"

namespace {

class Shell : public MemoryWorld
{
protected:
    void TearDown() override
    {
        EXPECT_EQ(host::OpenObjects(), host::Ledger());
        MemoryWorld::TearDown();
    }

    static std::string Content(const char16_t* path)
    {
        std::ifstream file(host::NativePath(path), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    static void Place(const char16_t* path, const std::string& content = "program")
    {
        std::ofstream(host::NativePath(path), std::ios::binary) << content;
    }
};

constexpr char16_t kFile[] = u"C:\\shared.ini";
constexpr int kEntries = 60;

pid_t StartWriter(const std::string& section, int entries)
{
    const std::string root = host::RootFolder();
    const std::string count = std::to_string(entries);
    const pid_t child = fork();
    if (child == 0) {
        execl(PSUI_PROFILE_WRITER, PSUI_PROFILE_WRITER, root.c_str(), "C:\\shared.ini", section.c_str(),
              count.c_str(), nullptr);
        _exit(3);
    }
    return child;
}

std::u16string NumberText(int number)
{
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

void WriteEntries(const char16_t* section)
{
    for (int i = 0; i < kEntries; ++i)
        EXPECT_TRUE(WritePrivateProfileStringW(section, NumberText(i).c_str(), NumberText(i).c_str(), kFile));
}

TEST_F(Shell, WritersOfOneProfileFileLoseNothingOfEachOther)
{
    Place(u"C:\\windows\\writer.exe");
    const pid_t children[] = {StartWriter("one", kEntries), StartWriter("two", kEntries)};
    std::thread first(WriteEntries, u"three");
    std::thread second(WriteEntries, u"four");
    first.join();
    second.join();
    for (const pid_t child : children) {
        int status = -1;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    for (const char16_t* section : {u"one", u"two", u"three", u"four"}) {
        for (int i = 0; i < kEntries; ++i)
            EXPECT_EQ(GetPrivateProfileIntW(section, NumberText(i).c_str(), -1, kFile), static_cast<UINT>(i));
    }
    // What the processes left behind in the root is seen here.
    EXPECT_NE(GlobalFindAtomW(u"Writer of one"), 0);
    EXPECT_NE(GlobalFindAtomW(u"writer of two"), GlobalFindAtomW(u"writer of one"));
    const std::vector<host::Event> events = host::Recorded();
    ASSERT_EQ(events.size(), 2u);
    EXPECT_EQ(events[1].text, u"writer.exe");
}

TEST_F(Shell, KilledWriterLeavesAWholeFile)
{
    const pid_t child = StartWriter("one", 1000000);
    while (GetPrivateProfileIntW(u"one", u"20", -1, kFile) != 20)
        Sleep(1);
    kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    std::string whole = "[one]\r\n";
    const std::string content = Content(kFile);
    for (int i = 0; whole.size() < content.size(); ++i)
        whole += std::to_string(i) + "=" + std::to_string(i) + "\r\n";
    EXPECT_EQ(content, whole);

    Place(u"C:\\shared.ini.new~", "[one]\r\n0=ha"); // as if killed a little earlier
    EXPECT_TRUE(WritePrivateProfileStringW(u"one", nullptr, nullptr, kFile));
    EXPECT_EQ(Content(kFile), "");
    EXPECT_EQ(GetFileAttributesW(u"C:\\shared.ini.new~"), INVALID_FILE_ATTRIBUTES);
}

TEST_F(Shell, FullDiskLeavesTheOldFile)
{
    WritePrivateProfileStringW(u"S", u"k", u"old", kFile);
    host::LimitDiskSpace(10);
    EXPECT_TRUE(
        Fails(ERROR_DISK_FULL, WritePrivateProfileStringW(u"S", u"k", u"much longer than that", kFile)));
    host::LimitDiskSpace(-1);
    EXPECT_EQ(Content(kFile), "[S]\r\nk=old\r\n");
    EXPECT_EQ(GetFileAttributesW(u"C:\\shared.ini.new~"), INVALID_FILE_ATTRIBUTES);
}

TEST_F(Shell, ProfileFilesFollowTheCodePage)
{
    host::SetCodePage(932);
    // The second byte of the first letter is a backslash, that of the second a bracket.
    Place(kFile, "[\x83\x5C\x81\x6E]\r\n\x81\x5B=\x8E\x9A\r\n");
    WCHAR value[8];
    EXPECT_EQ(GetPrivateProfileStringW(u"\u30BD\uFF5B", u"\u30FC", u"", value, 8, kFile), 0u);
    Place(kFile, "[\x83\x5C\x81\x5D]\r\n\x81\x5B=\x8E\x9A\r\n");
    EXPECT_EQ(GetPrivateProfileStringW(u"\u30BD\u2010", u"\u30FC", u"", value, 8, kFile), 1u);
    EXPECT_EQ(std::u16string(value), u"\u5B57");
    // A name that the code page cannot hold is found again by what was stored.
    host::SetCodePage(1252);
    for (const char16_t* text : {u"1", u"2"})
        EXPECT_TRUE(WritePrivateProfileStringW(u"\u5B57", u"\u5B57", text, u"C:\\narrow.ini"));
    EXPECT_EQ(Content(u"C:\\narrow.ini"), "[?]\r\n?=2\r\n");
}

TEST_F(Shell, LaunchesAreRecordedInOrder)
{
    Place(u"C:\\windows\\tool one.exe");
    EXPECT_EQ(WinExec("C:\\windows\\tool one.exe 1 \"C:\\x y\"", 5), 33u) << "blanks in an unquoted name";
    EXPECT_EQ(WinExec("\"tool one\" 2", 0), 33u);
    EXPECT_EQ(WinExec("", 0), static_cast<UINT>(ERROR_FILE_NOT_FOUND));
    const auto open = [](const char16_t* file, const char16_t* parameters, const char16_t* folder) {
        return reinterpret_cast<INT_PTR>(
            ShellExecuteW(nullptr, nullptr, file, parameters, folder, SW_SHOWNORMAL));
    };
    EXPECT_EQ(open(u"http://example.test/?a=1|2", nullptr, nullptr), 33);
    EXPECT_EQ(open(u"tool one.exe", u"-x", u"C:\\windows"), 33);
    EXPECT_EQ(open(u"none.exe", nullptr, u"C:\\windows"), SE_ERR_FNF);
    MessageBeep(0x30);
    host::FailLaunches(ERROR_ACCESS_DENIED);
    EXPECT_EQ(WinExec("tool.exe", 1), static_cast<UINT>(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(open(u"http://example.test/", nullptr, nullptr), SE_ERR_ACCESSDENIED);

    const host::Event expected[] = {
        {"launch", u"C:\\windows\\tool one.exe 1 \"C:\\x y\"", u"5"},
        {"launch", u"\"tool one\" 2", u"0"},
        {"failed launch", u"", u"0"},
        {"open", u"http://example.test/?a=1|2", u"open|||1"},
        {"open", u"tool one.exe", u"open|-x|C:\\windows|1"},
        {"failed open", u"none.exe", u"open||C:\\windows|1"},
        {"beep", u"", u"48"},
        {"failed launch", u"tool.exe", u"1"},
        {"failed open", u"http://example.test/", u"open|||1"},
    };
    const std::vector<host::Event> events = host::Recorded();
    ASSERT_EQ(events.size(), std::size(expected));
    for (size_t i = 0; i < events.size(); ++i) {
        const auto told = [](const host::Event& event) {
            return std::tie(event.kind, event.text, event.detail);
        };
        EXPECT_EQ(told(events[i]), told(expected[i])) << i;
    }
    host::ClearRecorded();
    EXPECT_TRUE(host::Recorded().empty());
}

TEST_F(Shell, WindowsOfOthersAreFoundUntilTheyGo)
{
    void* const monitor = host::AddWindow(u"Monitor", u"Printer 1");
    const std::tuple<const char16_t*, const char16_t*, void*> cases[] = {
        {u"MONITOR", u"printer 1", monitor},
        {nullptr, u"Printer 1", monitor},
        {u"Monitor", u"", nullptr},
        {MAKEINTATOM(0xC123), nullptr, nullptr}};
    for (const auto& [className, title, window] : cases)
        EXPECT_EQ(FindWindowW(className, title), window);
    const HWND window = FindWindowW(u"Monitor", nullptr);
    EXPECT_TRUE(IsWindow(window));
    host::RemoveWindow(monitor);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(FindWindowW(u"Monitor", nullptr), nullptr);
}

TEST_F(Shell, FoldersFollowTheUser)
{
    WCHAR path[MAX_PATH];
    host::SetUserName(u"someone");
    EXPECT_EQ(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, 0, path), S_OK);
    EXPECT_EQ(std::u16string(path), u"C:\\users\\someone\\AppData\\Roaming");
    ASSERT_TRUE(RemoveDirectoryW(path));
    EXPECT_EQ(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, 0, path), E_FAIL);
    EXPECT_EQ(SHGetFolderPathW(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr, 0, path), S_OK);
    EXPECT_NE(GetFileAttributesW(path), INVALID_FILE_ATTRIBUTES);
    host::SetApplicationDataKnown(false);
    EXPECT_EQ(SHGetFolderPathW(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr, 0, path), E_FAIL);
    EXPECT_EQ(SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA, nullptr, 0, path), S_OK);
}

TEST_F(Shell, SpoolerImpersonationPairsUpByThread)
{
    const HMODULE module = LoadLibraryW(u"spoolss.dll");
    const auto find = [module](const char* name) {
        return reinterpret_cast<void*>(GetProcAddress(module, name));
    };
    const auto revert = reinterpret_cast<HANDLE (*)()>(find("RevertToPrinterSelf"));
    const auto impersonate = reinterpret_cast<BOOL (*)(HANDLE)>(find("ImpersonatePrinterClient"));
    ASSERT_TRUE(revert != nullptr && impersonate != nullptr);
    EXPECT_EQ(revert(), nullptr) << "not in a spooler";
    host::RunInSpooler(u"SYSTEM");
    const HANDLE token = revert();
    ASSERT_NE(token, nullptr);
    EXPECT_EQ(revert(), nullptr) << "it is itself already";
    BOOL elsewhere = TRUE;
    std::thread([&] { elsewhere = impersonate(token); }).join();
    EXPECT_FALSE(elsewhere);
    EXPECT_FALSE(impersonate(nullptr));
    EXPECT_TRUE(impersonate(token));
    EXPECT_FALSE(impersonate(token)) << "twice";
    revert();
    EXPECT_EQ(host::OpenObjects().tokens, 1);
    host::RunInSpooler({});
    EXPECT_EQ(host::OpenObjects().tokens, 0) << "void with the spooler";
    EXPECT_TRUE(FreeLibrary(module));
}

/// A copy of a file with version information, which may be cut and damaged.
class VersionFile
{
public:
    explicit VersionFile(const char* from) : path_(host::NativePath(kPath))
    {
        std::filesystem::copy_file(from, path_);
        size_ = std::filesystem::file_size(path_);
    }
    ~VersionFile() { std::filesystem::remove(path_); }

    size_t Size() const { return size_; }
    void Cut(size_t size) const { std::filesystem::resize_file(path_, size); }

    /// Changes one byte and returns what it was.
    char Exchange(size_t offset, char byte) const
    {
        std::fstream file(path_, std::ios::in | std::ios::out | std::ios::binary);
        char old = 0;
        file.seekg(static_cast<std::streamoff>(offset)).get(old);
        file.seekp(static_cast<std::streamoff>(offset)).put(byte);
        return old;
    }

    /// The product version that the file is found to have.
    static std::u16string Version()
    {
        std::vector<char> data(GetFileVersionInfoSizeW(kPath, nullptr));
        void* text = nullptr;
        unsigned size = 0;
        if (data.empty() || !GetFileVersionInfoW(kPath, 0, static_cast<DWORD>(data.size()), data.data()) ||
            !VerQueryValueW(data.data(), u"\\StringFileInfo\\040904B0\\ProductVersion", &text, &size) ||
            size == 0)
            return u"(none)";
        return std::u16string(static_cast<char16_t*>(text), size - 1);
    }

private:
    static constexpr char16_t kPath[] = u"C:\\module.bin";
    std::string path_;
    size_t size_ = 0;
};

// One is a program of the platform, the other a module of the layer; neither is ever loaded.
constexpr const char* kVersionFiles[] = {PSUI_VERSION_PROGRAM, PSUI_VERSION_MODULE};

TEST_F(Shell, CutVersionFilesHaveTheirWholeVersionOrNone)
{
    for (const char* name : kVersionFiles) {
        SCOPED_TRACE(name);
        const VersionFile file(name);
        EXPECT_EQ(file.Version(), u"3.10");
        for (size_t size = file.Size(); size-- > 0;) {
            file.Cut(size);
            const std::u16string version = file.Version();
            EXPECT_TRUE(version == u"(none)" || version == u"3.10") << "cut at " << size;
        }
        EXPECT_EQ(file.Version(), u"(none)");
    }
    EXPECT_EQ(host::OpenObjects().modules, 0);
}

TEST_F(Shell, VersionFilesDamagedAnywhereAreSurvived)
{
    for (const char* name : kVersionFiles) {
        SCOPED_TRACE(name);
        const VersionFile file(name);
        size_t lost = 0;
        for (size_t i = 0; i < file.Size(); ++i) {
            const char old = file.Exchange(i, '\xFF');
            lost += file.Version() != u"3.10";
            file.Exchange(i, old);
        }
        EXPECT_GT(lost, 0u) << "some bytes are needed to find the version";
        EXPECT_EQ(file.Version(), u"3.10");
    }
}

} // namespace
