#include <tuple>

#include "tests/host/last_error.h"
#include "tests/host/scratch.h"

namespace {

class Files : public Scratch
{
};

struct DispositionCase
{
    DWORD disposition;
    bool exists;
    bool succeeds;
    DWORD error;         // last error afterwards, on success too
    const char* content; // afterwards
};

TEST_F(Files, CreateReportsWhatItFoundForEveryDisposition)
{
    const DispositionCase cases[] = {
        {CREATE_NEW, false, true, ERROR_SUCCESS, ""},
        {CREATE_NEW, true, false, ERROR_FILE_EXISTS, "old"},
        {CREATE_ALWAYS, false, true, ERROR_SUCCESS, ""},
        {CREATE_ALWAYS, true, true, ERROR_ALREADY_EXISTS, ""},
        {OPEN_EXISTING, false, false, ERROR_FILE_NOT_FOUND, "(absent)"},
        {OPEN_EXISTING, true, true, ERROR_SUCCESS, "old"},
        {OPEN_ALWAYS, false, true, ERROR_SUCCESS, ""},
        {OPEN_ALWAYS, true, true, ERROR_ALREADY_EXISTS, "old"},
        {TRUNCATE_EXISTING, false, false, ERROR_FILE_NOT_FOUND, "(absent)"},
        {TRUNCATE_EXISTING, true, true, ERROR_SUCCESS, ""},
    };
    const Wide path = Path(TEXT("file.txt"));
    for (const DispositionCase& each : cases) {
        SCOPED_TRACE(testing::Message() << "disposition " << each.disposition << ", exists " << each.exists);
        DeleteFileW(path.c_str());
        if (each.exists)
            Write(path, "old");
        SetLastError(ERROR_INVALID_DATA);
        const HANDLE file = Open(path, GENERIC_READ | GENERIC_WRITE, 0, each.disposition);
        const DWORD error = GetLastError();
        EXPECT_EQ(file != INVALID_HANDLE_VALUE, each.succeeds);
        EXPECT_EQ(error, each.error);
        if (file != INVALID_HANDLE_VALUE)
            CloseHandle(file);
        EXPECT_EQ(Read(path), each.content);
    }
}

TEST_F(Files, CreateRefusesNamesThatCannotBe)
{
    const std::tuple<Wide, DWORD> cases[] = {
        {Path(TEXT("a*b")), ERROR_INVALID_NAME},  {Path(TEXT("a?b")), ERROR_INVALID_NAME},
        {Path(TEXT("a<b")), ERROR_INVALID_NAME},  {Path(TEXT("a|b")), ERROR_INVALID_NAME},
        {Path(TEXT("a\"b")), ERROR_INVALID_NAME}, {Path(TEXT("none\\file")), ERROR_PATH_NOT_FOUND},
        {TEXT(""), ERROR_PATH_NOT_FOUND},
    };
    for (const auto& [path, error] : cases) {
        const HANDLE file = Open(path, GENERIC_WRITE, 0, CREATE_ALWAYS);
        EXPECT_EQ(file, INVALID_HANDLE_VALUE) << testing::PrintToString(path);
        EXPECT_EQ(GetLastError(), error) << testing::PrintToString(path);
    }
}

TEST_F(Files, FolderCannotBeOpenedAsFile)
{
    ASSERT_TRUE(CreateDirectoryW(Path(TEXT("folder")).c_str(), nullptr));
    EXPECT_TRUE(Fails(ERROR_ACCESS_DENIED,
                      Open(Path(TEXT("folder")), GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING),
                      INVALID_HANDLE_VALUE));
}

constexpr DWORD kR = GENERIC_READ;
constexpr DWORD kW = GENERIC_WRITE;
constexpr DWORD kShareR = FILE_SHARE_READ;
constexpr DWORD kShareW = FILE_SHARE_WRITE;
constexpr DWORD kShareD = FILE_SHARE_DELETE;

TEST_F(Files, ShareModesDecideWhoMayOpenToo)
{
    const struct
    {
        DWORD access, share, access2, share2;
        bool allowed;
    } cases[] = {
        {kR, kShareR, kR, kShareR, true},
        {kR, kShareR, kR, 0, false},
        {kR, 0, kR, kShareR, false},
        {kR, kShareR, kW, kShareR | kShareW, false},
        {kR, kShareR | kShareW, kW, kShareR, true},
        {kR, kShareR | kShareW, kW, kShareW, false},
        {kW, kShareR, kR, kShareR | kShareW, true},
        {kW, kShareR, kR, kShareR, false},
        {kW, 0, kW, kShareW, false},
        {kW, kShareW, kW, kShareW, true},
        {kR | kW, kShareR | kShareW, kR | kW, kShareR | kShareW, true},
        {kR, kShareR, DELETE, kShareR, false},
        {kR, kShareR | kShareD, DELETE, kShareR, true},
        {kR, 0, 0, 0, true},
        {0, 0, kW, 0, true},
    };
    const Wide path = Path(TEXT("shared"));
    Write(path, "text");
    for (const auto& each : cases) {
        SCOPED_TRACE(testing::Message() << std::hex << each.access << " sharing " << each.share << ", then "
                                        << each.access2 << " sharing " << each.share2);
        const HANDLE first = Open(path, each.access, each.share, OPEN_EXISTING);
        ASSERT_NE(first, INVALID_HANDLE_VALUE);
        const HANDLE second = Open(path, each.access2, each.share2, OPEN_EXISTING);
        EXPECT_EQ(second != INVALID_HANDLE_VALUE, each.allowed);
        if (second == INVALID_HANDLE_VALUE)
            EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_SHARING_VIOLATION));
        else
            CloseHandle(second);
        CloseHandle(first);
    }
}

TEST_F(Files, RefusedCreateAlwaysLeavesTheContent)
{
    const Wide path = Path(TEXT("kept"));
    Write(path, "kept");
    const HANDLE reader = Open(path, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    EXPECT_TRUE(
        Fails(ERROR_SHARING_VIOLATION, Open(path, GENERIC_WRITE, 0, CREATE_ALWAYS), INVALID_HANDLE_VALUE));
    EXPECT_EQ(GetFileSize(reader, nullptr), 4u);
    CloseHandle(reader);
}

TEST_F(Files, DirectionOfAccessIsEnforced)
{
    const Wide path = Path(TEXT("file"));
    Write(path, "abc");
    char byte = 'x';
    DWORD count = 7;
    const HANDLE reader = Open(path, GENERIC_READ, 0, OPEN_EXISTING);
    EXPECT_TRUE(Fails(ERROR_ACCESS_DENIED, WriteFile(reader, &byte, 1, &count, nullptr)));
    EXPECT_EQ(count, 0u);
    EXPECT_FALSE(SetEndOfFile(reader));
    CloseHandle(reader);
    const HANDLE writer = Open(path, GENERIC_WRITE, 0, OPEN_EXISTING);
    EXPECT_TRUE(Fails(ERROR_ACCESS_DENIED, ReadFile(writer, &byte, 1, &count, nullptr)));
    CloseHandle(writer);
}

TEST_F(Files, ReadingStopsAtTheEndWithoutError)
{
    const Wide path = Path(TEXT("file"));
    Write(path, "abcdef");
    const HANDLE file = Open(path, GENERIC_READ, 0, OPEN_EXISTING);
    char buffer[8];
    DWORD count = 0;
    EXPECT_TRUE(ReadFile(file, buffer, 4, &count, nullptr));
    EXPECT_EQ(std::string(buffer, count), "abcd");
    EXPECT_TRUE(ReadFile(file, buffer, 4, &count, nullptr));
    EXPECT_EQ(std::string(buffer, count), "ef");
    EXPECT_TRUE(ReadFile(file, buffer, 4, &count, nullptr));
    EXPECT_EQ(count, 0u);
    CloseHandle(file);
}

TEST_F(Files, PointerMovesAndEndOfFileFollowsIt)
{
    const Wide path = Path(TEXT("file"));
    Write(path, "0123456789");
    const HANDLE file = Open(path, GENERIC_READ | GENERIC_WRITE, 0, OPEN_EXISTING);
    EXPECT_EQ(SetFilePointer(file, 4, nullptr, FILE_BEGIN), 4u);
    EXPECT_EQ(SetFilePointer(file, -1, nullptr, FILE_CURRENT), 3u);
    EXPECT_EQ(SetFilePointer(file, -2, nullptr, FILE_END), 8u);
    EXPECT_EQ(SetFilePointer(file, -9, nullptr, FILE_CURRENT), INVALID_SET_FILE_POINTER);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NEGATIVE_SEEK));
    EXPECT_EQ(SetFilePointer(file, 0, nullptr, FILE_CURRENT), 8u);
    LONG high = 1;
    EXPECT_EQ(SetFilePointer(file, 2, &high, FILE_BEGIN), 2u);
    EXPECT_EQ(high, 1);
    LARGE_INTEGER distance;
    LARGE_INTEGER position;
    distance.QuadPart = 12;
    EXPECT_TRUE(SetFilePointerEx(file, distance, &position, FILE_BEGIN));
    EXPECT_EQ(position.QuadPart, 12);
    EXPECT_TRUE(SetEndOfFile(file));
    LARGE_INTEGER size;
    EXPECT_TRUE(GetFileSizeEx(file, &size));
    EXPECT_EQ(size.QuadPart, 12);
    EXPECT_EQ(SetFilePointer(file, 3, nullptr, FILE_BEGIN), 3u);
    EXPECT_TRUE(SetEndOfFile(file));
    EXPECT_TRUE(FlushFileBuffers(file));
    CloseHandle(file);
    EXPECT_EQ(Read(path), "012");
}

TEST_F(Files, WriteTimeCanBeSetAndIsListed)
{
    const Wide path = Path(TEXT("file"));
    Write(path, "x");
    const FILETIME wanted = {0x4A7B0000, 0x01D00000};
    HANDLE file = Open(path, GENERIC_READ | GENERIC_WRITE, 0, OPEN_EXISTING);
    EXPECT_TRUE(SetFileTime(file, nullptr, nullptr, &wanted));
    CloseHandle(file);
    file = Open(path, GENERIC_READ, 0, OPEN_EXISTING);
    FILETIME found = {};
    EXPECT_TRUE(GetFileTime(file, nullptr, nullptr, &found));
    CloseHandle(file);
    EXPECT_EQ(found.dwHighDateTime, wanted.dwHighDateTime);
    EXPECT_EQ(found.dwLowDateTime, wanted.dwLowDateTime);
    WIN32_FIND_DATAW data;
    const HANDLE find = FindFirstFileW(path.c_str(), &data);
    ASSERT_NE(find, INVALID_HANDLE_VALUE);
    FindClose(find);
    EXPECT_EQ(data.ftLastWriteTime.dwLowDateTime, wanted.dwLowDateTime);
}

TEST_F(Files, WrongHandlesAreRecognised)
{
    const Wide path = Path(TEXT("file"));
    Write(path, "x");
    const HANDLE file = Open(path, GENERIC_READ, 0, OPEN_EXISTING);
    ASSERT_TRUE(CloseHandle(file));
    char byte;
    DWORD count;
    for (HANDLE wrong : {HANDLE(file), HANDLE(nullptr), reinterpret_cast<HANDLE>(0x7770)}) {
        EXPECT_TRUE(Fails(ERROR_INVALID_HANDLE, ReadFile(wrong, &byte, 1, &count, nullptr)));
        EXPECT_EQ(GetFileSize(wrong, nullptr), INVALID_FILE_SIZE);
        EXPECT_TRUE(Fails(ERROR_INVALID_HANDLE, CloseHandle(wrong)));
    }
}

} // namespace
