#include <tuple>

#include "tests/host/last_error.h"
#include "tests/host/scratch.h"
#include "tests/host/wine.h"

namespace {

class Files : public Scratch
{
};

TEST_F(Files, CreateReportsWhatItFoundForEveryDisposition)
{
    const struct
    {
        DWORD disposition;
        bool exists;
        bool succeeds;
        DWORD error;         // last error afterwards, on success too
        const char* content; // afterwards
    } cases[] = {
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
    for (const auto& each : cases) {
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
    ASSERT_TRUE(CreateDirectoryW(Path(TEXT("folder")).c_str(), nullptr));
    const std::tuple<Wide, DWORD> cases[] = {
        {Path(TEXT("a*b")), ERROR_INVALID_NAME},          {Path(TEXT("a?b")), ERROR_INVALID_NAME},
        {Path(TEXT("a<b")), ERROR_INVALID_NAME},          {Path(TEXT("a|b")), ERROR_INVALID_NAME},
        {Path(TEXT("a\"b")), ERROR_INVALID_NAME},         {TEXT(""), ERROR_PATH_NOT_FOUND},
        {Path(TEXT("none\\file")), ERROR_PATH_NOT_FOUND}, {Path(TEXT("folder")), ERROR_ACCESS_DENIED},
    };
    for (const auto& [path, error] : cases) {
        SCOPED_TRACE(testing::PrintToString(path));
        EXPECT_TRUE(Fails(error, Open(path, GENERIC_READ, 0, OPEN_EXISTING), INVALID_HANDLE_VALUE));
    }
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
    CloseHandle(reader);
    const HANDLE writer = Open(path, GENERIC_WRITE, 0, OPEN_EXISTING);
    EXPECT_TRUE(Fails(ERROR_ACCESS_DENIED, ReadFile(writer, &byte, 1, &count, nullptr)));
    CloseHandle(writer);
}

TEST_F(Files, PointerMovesAndReadingStopsAtTheEndWithoutError)
{
    const Wide path = Path(TEXT("file"));
    Write(path, "0123456789");
    const HANDLE file = Open(path, GENERIC_READ, 0, OPEN_EXISTING);
    EXPECT_EQ(SetFilePointer(file, 4, nullptr, FILE_BEGIN), 4u);
    EXPECT_EQ(SetFilePointer(file, -1, nullptr, FILE_CURRENT), 3u);
    EXPECT_EQ(SetFilePointer(file, -2, nullptr, FILE_END), 8u);
    EXPECT_TRUE(Fails(ERROR_NEGATIVE_SEEK, SetFilePointer(file, -9, nullptr, FILE_CURRENT),
                      INVALID_SET_FILE_POINTER));
    char buffer[8];
    DWORD count = 0;
    for (const char* part : {"89", ""}) {
        EXPECT_TRUE(ReadFile(file, buffer, 4, &count, nullptr));
        EXPECT_EQ(std::string(buffer, count), part);
    }
    LONG high = 1;
    EXPECT_EQ(SetFilePointer(file, 2, &high, FILE_BEGIN), 2u);
    EXPECT_EQ(high, 1);
    LARGE_INTEGER size;
    EXPECT_TRUE(GetFileSizeEx(file, &size));
    EXPECT_EQ(size.QuadPart, 10);
    CloseHandle(file);
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
        EXPECT_TRUE(Fails(ERROR_INVALID_HANDLE, CloseHandle(wrong)));
    }
}

TEST_F(Files, FoldersAreMadeAndRemovedOnlyWhereThatMakesSense)
{
    const Wide outer = Path(TEXT("outer"));
    const Wide inner = Path(TEXT("outer\\inner"));
    EXPECT_TRUE(Fails(ERROR_PATH_NOT_FOUND, CreateDirectoryW(inner.c_str(), nullptr)));
    EXPECT_TRUE(CreateDirectoryW(outer.c_str(), nullptr));
    EXPECT_TRUE(Fails(ERROR_ALREADY_EXISTS, CreateDirectoryW(outer.c_str(), nullptr)));
    EXPECT_EQ(GetFileAttributesW(outer.c_str()) & FILE_ATTRIBUTE_DIRECTORY, 0u + FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_TRUE(CreateDirectoryW(inner.c_str(), nullptr));
    EXPECT_TRUE(Fails(ERROR_DIR_NOT_EMPTY, RemoveDirectoryW(outer.c_str())));
    EXPECT_TRUE(RemoveDirectoryW(inner.c_str()));
    EXPECT_TRUE(Fails(ERROR_FILE_NOT_FOUND, RemoveDirectoryW(inner.c_str())));
    EXPECT_TRUE(Fails(ERROR_ACCESS_DENIED, DeleteFileW(outer.c_str())));
    Write(Path(TEXT("file")), "");
    EXPECT_TRUE(Fails(ERROR_DIRECTORY, RemoveDirectoryW(Path(TEXT("file")).c_str())));
}

TEST_F(Files, ReadOnlyOneRefusesWritingAndDeleting)
{
    const Wide path = Path(TEXT("file"));
    Write(path, "kept");
    ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_NE(GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_READONLY, 0u);
    for (DWORD disposition : {OPEN_EXISTING, CREATE_ALWAYS}) {
        if (OnWine()) // leaves it to the machine, which lets its super-user write
            break;
        EXPECT_TRUE(
            Fails(ERROR_ACCESS_DENIED, Open(path, GENERIC_WRITE, 0, disposition), INVALID_HANDLE_VALUE));
    }
    EXPECT_TRUE(Fails(ERROR_ACCESS_DENIED, DeleteFileW(path.c_str())));
    EXPECT_EQ(Read(path), "kept");
    ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL));
    EXPECT_TRUE(DeleteFileW(path.c_str()));
    EXPECT_TRUE(Fails(ERROR_FILE_NOT_FOUND, GetFileAttributesW(path.c_str()), INVALID_FILE_ATTRIBUTES));
}

TEST_F(Files, OpenOneIsDeletedOnlyWhenItsOpenersShareThat)
{
    const Wide path = Path(TEXT("file"));
    Write(path, "x");
    HANDLE file = Open(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
    EXPECT_TRUE(Fails(ERROR_SHARING_VIOLATION, DeleteFileW(path.c_str())));
    CloseHandle(file);
    file = Open(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, OPEN_EXISTING);
    EXPECT_TRUE(DeleteFileW(path.c_str()));
    CloseHandle(file);
}

} // namespace
