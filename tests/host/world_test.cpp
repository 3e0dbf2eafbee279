// What a host may set on the layer and read back from it.
#include <cstring>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>
#include <sys/wait.h>
#include <tuple>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>
#include <winreg.h>
#include <winspool.h>

#include "host/host.h"
#include "host/kernel/resource.h"
#include "tests/host/last_error.h"
#include "tests/host/memory_world.h"

namespace {

int AttachCountOf(HMODULE module)
{
    return reinterpret_cast<int (*)()>(reinterpret_cast<void*>(GetProcAddress(module, "AttachCount")))();
}

class World : public MemoryWorld
{
protected:
    static HANDLE Create(const char16_t* path)
    {
        return CreateFileW(path, GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    }
};

TEST(Worlds, FollowEachOtherAndForgetNothingButTheTemporary)
{
    ASSERT_TRUE(host::Open({":memory:"}, nullptr));
    const std::string root = host::RootFolder();
    std::string error;
    EXPECT_FALSE(host::Open({":memory:"}, &error)) << "one at a time";
    EXPECT_FALSE(error.empty());
    EXPECT_TRUE(std::filesystem::exists(root + "/host.db"));
    host::Close();
    EXPECT_FALSE(std::filesystem::exists(root));
    EXPECT_EQ(host::RootFolder(), "");

    const std::string kept = testing::TempDir() + "kept-world-" + std::to_string(getpid());
    for (const bool first : {true, false}) {
        ASSERT_TRUE(host::Open({kept}, &error)) << error;
        const DWORD disposition = first ? CREATE_NEW : OPEN_EXISTING;
        const HANDLE file = CreateFileW(u"C:\\kept.txt", GENERIC_READ, 0, nullptr, disposition, 0, nullptr);
        EXPECT_NE(file, INVALID_HANDLE_VALUE);
        CloseHandle(file);
        host::Close();
    }
    std::filesystem::remove_all(kept);
}

TEST(Worlds, RefuseRootsThatCannotBe)
{
    const std::string root = testing::TempDir() + "unsound-world-" + std::to_string(getpid());
    std::filesystem::create_directory(root);
    std::ofstream(root + "/host.db") << std::string(5000, 'x');
    for (const std::string& path : {std::string("/proc/self/status"), root}) {
        std::string error;
        EXPECT_FALSE(host::Open({path}, &error));
        EXPECT_NE(error.find(path), std::string::npos) << error;
        EXPECT_EQ(host::RootFolder(), "");
    }
    std::filesystem::remove_all(root);
}

TEST_F(World, NamesOfTheMachineAndOfWindowsMeet)
{
    const std::string driveC = host::RootFolder() + "/drive_c";
    const std::tuple<std::u16string, std::string> cases[] = {
        {u"C:\\windows", driveC + "/windows"},
        {u"C:\\Windows\\SYSTEM32\\new.txt", driveC + "/windows/system32/new.txt"},
        {u"Z:\\usr\\include", "/usr/include"},
        {u"Z:\\", "/"},
        {u"Z:\\USR", "/usr"},
        {u"X:\\file", ""},
        {u"C:\\..\\..\\etc", driveC + "/etc"},
    };
    for (const auto& [windows, native] : cases)
        EXPECT_EQ(host::NativePath(windows), native) << testing::PrintToString(windows);
    EXPECT_EQ(host::WindowsPath(driveC + "/windows/a"), u"C:\\windows\\a");
    EXPECT_EQ(host::WindowsPath(driveC), u"C:\\");
    EXPECT_EQ(host::WindowsPath("/usr"), u"Z:\\usr");
    EXPECT_EQ(host::WindowsPath(driveC + "x"), u"Z:" + host::WindowsPath(driveC + "x").substr(2));
}

TEST_F(World, ExactSpellingWinsOverAnotherCase)
{
    const std::string folder = host::RootFolder() + "/drive_c/";
    std::ofstream(folder + "name") << "small";
    std::ofstream(folder + "NAME") << "capital";
    for (const auto& [path, size] : {std::pair(u"C:\\name", 5u), std::pair(u"C:\\NAME", 7u)}) {
        const HANDLE file = CreateFileW(path, GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        EXPECT_EQ(GetFileSize(file, nullptr), size);
        CloseHandle(file);
    }
}

TEST_F(World, DeviceNamesAreNoFiles)
{
    for (const char16_t* path : {u"NUL", u"C:\\con", u"C:\\windows\\com1.txt", u"lpt9", u"C:\\a:b"}) {
        EXPECT_EQ(Create(path), INVALID_HANDLE_VALUE);
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_NAME)) << testing::PrintToString(path);
    }
    const HANDLE file = Create(u"C:\\com10");
    EXPECT_NE(file, INVALID_HANDLE_VALUE);
    CloseHandle(file);
}

TEST_F(World, OtherProcessIsKeptOutOfAFileThatIsNotShared)
{
    const HANDLE file = Create(u"C:\\mine");
    const pid_t child = fork();
    if (child == 0) {
        // The copy of the table knows nothing that the lock does not; a path of the machine goes round it.
        const std::string native = host::RootFolder() + "/drive_c/mine";
        execl("/usr/bin/flock", "flock", "-n", "-s", native.c_str(), "true", nullptr);
        _exit(99);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 1);
    CloseHandle(file);
}

TEST_F(World, FailsTheCallsItIsToldTo)
{
    const auto calls = [](int count) {
        std::string results;
        for (int i = 0; i < count; ++i)
            results += GetFileAttributesW(u"C:\\windows") != INVALID_FILE_ATTRIBUTES ? '.' : 'F';
        return results;
    };
    host::FailCalls(2, false);
    EXPECT_EQ(calls(4), "..F.");
    EXPECT_EQ(host::CallsSeen(), 4u);
    host::FailCalls(1, true);
    EXPECT_EQ(calls(3), ".FF");
    EXPECT_NE(GetLastError(), static_cast<DWORD>(ERROR_SUCCESS));
    void* const block = HeapAlloc(GetProcessHeap(), 0, 1);
    EXPECT_NE(block, nullptr) << "memory is failed separately";
    HeapFree(GetProcessHeap(), 0, block);
    host::StopFailing();
    EXPECT_EQ(host::CallsSeen(), 0u);
    EXPECT_EQ(calls(1), ".");
}

TEST_F(World, FailsTheMemoryRequestsItIsToldTo)
{
    const HANDLE heap = GetProcessHeap();
    host::FailAllocations(1, true);
    void* const block = HeapAlloc(heap, 0, 8);
    EXPECT_NE(block, nullptr);
    EXPECT_EQ(HeapAlloc(heap, 0, 8), nullptr);
    EXPECT_EQ(GlobalAlloc(GHND, 8), nullptr);
    EXPECT_EQ(HeapCreate(0, 0, 0), nullptr);
    EXPECT_EQ(host::AllocationsSeen(), 4u);
    host::StopFailing();
    HeapFree(heap, 0, block);
}

TEST_F(World, CountsWhatIsOpenAndEndsItWhenItCloses)
{
    Create(u"C:\\file");
    WIN32_FIND_DATAW data;
    FindFirstFileW(u"C:\\*", &data);
    const HANDLE heap = HeapCreate(0, 0, 0);
    HeapAlloc(heap, 0, 100);
    HeapAlloc(heap, 0, 23);
    HKEY key = nullptr;
    HANDLE server = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, u"Control Panel", 0, KEY_READ, &key), ERROR_SUCCESS);
    EXPECT_TRUE(OpenPrinterW(nullptr, &server, nullptr));
    EXPECT_EQ(AttachCountOf(LoadLibraryW(u"sample_module")), 1);
    const HDC dc = CreateCompatibleDC(nullptr);
    const HBRUSH brush = CreateSolidBrush(0);
    SelectObject(dc, brush);
    CreatePen(PS_SOLID, 1, 0);
    CreateRectRgn(0, 0, 1, 1);
    CreateBitmap(1, 1, 1, 1, nullptr);
    CreateFontW(-11, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, u"Arial");
    LoadIconW(nullptr, IDI_ERROR); // shared ones are the system's
    GetSysColorBrush(COLOR_WINDOW);

    host::Ledger now = before_;
    now.files = now.finds = now.heaps = now.keys = now.printers = now.modules = 1;
    now.deviceContexts = now.brushes = now.pens = now.regions = now.bitmaps = now.fonts = 1;
    now.blocks += 2;
    now.bytes += 123;
    EXPECT_EQ(host::OpenObjects(), now);
    HeapDestroy(heap);
    host::Close();
    EXPECT_EQ(host::OpenObjects(), before_);

    ASSERT_TRUE(host::Open({":memory:"}, nullptr));
    EXPECT_EQ(RegQueryValueExW(key, nullptr, nullptr, nullptr, nullptr, nullptr), ERROR_INVALID_HANDLE);
    EXPECT_TRUE(Fails(ERROR_INVALID_HANDLE, ClosePrinter(server)));
    EXPECT_EQ(GetObjectType(brush), 0u);
    EXPECT_EQ(AttachCountOf(LoadLibraryW(u"sample_module")), 1) << "its memory is fresh";
}

TEST_F(World, DiskFillsUpAfterTheBytesThatWereLeft)
{
    const HANDLE file = Create(u"C:\\file");
    DWORD written = 0;
    host::LimitDiskSpace(6);
    EXPECT_TRUE(WriteFile(file, "1234", 4, &written, nullptr));
    EXPECT_TRUE(Fails(ERROR_DISK_FULL, WriteFile(file, "5678", 4, &written, nullptr)));
    EXPECT_EQ(GetFileSize(file, nullptr), 6u);
    EXPECT_FALSE(WriteFile(file, "9", 1, &written, nullptr));
    host::LimitDiskSpace(-1);
    EXPECT_TRUE(WriteFile(file, "9", 1, &written, nullptr));
    CloseHandle(file);
}

TEST_F(World, ProfileCountsTheCallsOfTheThreadAlone)
{
    host::StartProfile();
    void* const block = HeapAlloc(GetProcessHeap(), 0, 1000);
    HeapFree(GetProcessHeap(), 0, block);
    GetFileSize(nullptr, nullptr);
    const host::Profile profile = host::StopProfile();
    std::string seen;
    for (const host::CallCount& call : profile.calls)
        seen += std::string(call.name) + "=" + std::to_string(call.count) + " ";
    EXPECT_EQ(seen, "GetFileSize=1 GetProcessHeap=2 HeapAlloc=1 HeapFree=1 ");
    EXPECT_EQ(profile.peakBytes, 1000u);
    EXPECT_GT(profile.nanoseconds, 0u);
}

// An idle hook runs inside of calls that began before the profile and end after it.
TEST_F(World, ProfileHasThePiecesOfCallsThatAreUnderWay)
{
    static constexpr uint64_t kAge = 20'000'000; // ns, spent in the program
    const auto spend = [] {
        const auto until = std::chrono::steady_clock::now() + std::chrono::nanoseconds(kAge);
        while (std::chrono::steady_clock::now() < until) {
        }
    };
    std::vector<uint64_t> inside;
    host::StartProfile();
    host::SetIdleHook([&] {
        inside.push_back(host::StopProfile().nanoseconds);
        host::StartProfile();
        spend();
        PostThreadMessageW(GetCurrentThreadId(), inside.size() < 3 ? WM_NULL : WM_QUIT, 0, 0);
        return true;
    });
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    }
    host::SetIdleHook(nullptr);
    inside.push_back(host::StopProfile().nanoseconds);
    ASSERT_EQ(inside.size(), 4u);
    for (const uint64_t nanoseconds : inside) {
        EXPECT_GT(nanoseconds, 0u);
        EXPECT_LT(nanoseconds, kAge);
    }
}

TEST_F(World, CodePageOfTheSystemIsWhatTheHostSets)
{
    char bytes[8] = {};
    EXPECT_EQ(GetACP(), 1252u);
    host::SetCodePage(932);
    EXPECT_EQ(GetACP(), 932u);
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, u"\u65E5", -1, bytes, 8, nullptr, nullptr), 3);
    EXPECT_STREQ(bytes, "\x93\xFA");
    char16_t text[8];
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "\x85\x40", 3, text, 8), 2);
    EXPECT_EQ(text[0], u'\u30FB') << "a pair that means nothing";
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, "\x85\x40", 3, text, 8), 0);
}

TEST_F(World, ActiveWindowHasTheClassTheHostNames)
{
    EXPECT_EQ(GetActiveWindow(), nullptr);
    host::SetActiveWindowClass(u"Caller");
    const HWND window = GetActiveWindow();
    char16_t name[4];
    EXPECT_EQ(GetAncestor(window, GA_ROOTOWNER), window);
    EXPECT_EQ(GetClassNameW(window, name, 4), 3);
    EXPECT_EQ(std::u16string(name), u"Cal");
    host::SetActiveWindowClass({});
    EXPECT_TRUE(Fails(ERROR_INVALID_WINDOW_HANDLE, GetClassNameW(window, name, 4)));
}

TEST_F(World, CallsFromInsideDllMainAreTheProgramsOwn)
{
    host::StartProfile();
    const HMODULE module = LoadLibraryW(u"sample_module");
    const host::Profile profile = host::StopProfile();
    uint64_t loads = 0;
    for (const host::CallCount& call : profile.calls)
        loads += std::strcmp(call.name, "LoadLibraryW") == 0 ? call.count : 0;
    EXPECT_EQ(loads, 2u);
    FreeLibrary(module);
}

/// A compiled resource file: the marking entry and one RCDATA entry 5 of eight bytes.
std::vector<uint8_t> ResourceFile()
{
    constexpr uint32_t kWords[] = {
        0, 32, 0x0000FFFF, 0x0000FFFF, 0, 0, 0, 0, //
        8, 32, 0x000AFFFF, 0x0005FFFF, 0, 0, 0, 0, 0x04030201, 0x08070605,
    };
    const auto bytes = std::as_bytes(std::span(kWords));
    std::vector<uint8_t> file(bytes.size());
    std::memcpy(file.data(), bytes.data(), bytes.size());
    return file;
}

const host::Resource* FindFive(const std::vector<uint8_t>& file, host::ResourceIndex& index)
{
    index = host::ResourceIndex(std::as_bytes(std::span(file)));
    return index.Find({10, {}}, {5, {}});
}

TEST(ResourceFiles, CutAnywhereLoseOnlyWhatIsCut)
{
    const std::vector<uint8_t> whole = ResourceFile();
    host::ResourceIndex index({});
    ASSERT_NE(FindFive(whole, index), nullptr);
    for (size_t size = 0; size < whole.size(); ++size) {
        const std::vector<uint8_t> cut(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size));
        EXPECT_EQ(FindFive(cut, index), nullptr) << size;
    }
}

TEST(ResourceFiles, CorruptedBytesNeverReachBeyondTheFile)
{
    host::ResourceIndex index({});
    for (size_t at = 0; at < ResourceFile().size(); ++at) {
        for (unsigned value : {0u, 1u, 0x7Fu, 0x80u, 0xFFu}) {
            std::vector<uint8_t> file = ResourceFile();
            file[at] = static_cast<uint8_t>(value);
            const host::Resource* const found = FindFive(file, index);
            if (found == nullptr)
                continue;
            EXPECT_LE(reinterpret_cast<const uint8_t*>(found->data.data()) + found->data.size(),
                      file.data() + file.size())
                << "byte " << at;
        }
    }
}

} // namespace
