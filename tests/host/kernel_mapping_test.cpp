#include "tests/host/last_error.h"
#include "tests/host/scratch.h"

#include <cstring>
#include <tuple>

namespace {

class Mapping : public Scratch
{
protected:
    void SetUp() override
    {
        Scratch::SetUp();
        path_ = Path(TEXT("mapped"));
        Write(path_, "mapped text");
    }
    HANDLE OpenFile(DWORD access)
    {
        return Open(path_, access, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
    }

    Wide path_;
};

TEST_F(Mapping, ViewOutlivesTheHandlesItWasMadeFrom)
{
    const HANDLE file = OpenFile(GENERIC_READ);
    const HANDLE mapping = CreateFileMappingW(file, nullptr, PAGE_READONLY, 0, 0, nullptr);
    ASSERT_NE(mapping, nullptr);
    CloseHandle(file);
    const void* const view = MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 0);
    ASSERT_NE(view, nullptr);
    CloseHandle(mapping);
    EXPECT_EQ(std::memcmp(view, "mapped text", 11), 0);
    EXPECT_TRUE(UnmapViewOfFile(view));
    EXPECT_TRUE(Fails(ERROR_INVALID_ADDRESS, UnmapViewOfFile(view)));
}

TEST_F(Mapping, ClosedFileBehindAViewNoLongerBindsOthersToItsShareMode)
{
    const HANDLE file = Open(path_, GENERIC_READ, 0, OPEN_EXISTING);
    const HANDLE mapping = CreateFileMappingW(file, nullptr, PAGE_READONLY, 0, 0, nullptr);
    ASSERT_NE(mapping, nullptr);
    CloseHandle(file);
    EXPECT_EQ(Read(path_), "mapped text");
    CloseHandle(mapping);
}

TEST_F(Mapping, WrittenViewChangesTheFile)
{
    const HANDLE file = OpenFile(GENERIC_READ | GENERIC_WRITE);
    const HANDLE mapping = CreateFileMappingW(file, nullptr, PAGE_READWRITE, 0, 16, nullptr);
    ASSERT_NE(mapping, nullptr);
    EXPECT_EQ(GetFileSize(file, nullptr), 16u) << "a writable mapping extends its file";
    void* const view = MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, 0);
    ASSERT_NE(view, nullptr);
    std::memcpy(view, "MAPPED", 6);
    UnmapViewOfFile(view);
    CloseHandle(mapping);
    CloseHandle(file);
    EXPECT_EQ(Read(path_), std::string("MAPPED text\0\0\0\0\0", 16));
}

TEST_F(Mapping, MappedFileIsNotCutShort)
{
    const HANDLE file = OpenFile(GENERIC_READ | GENERIC_WRITE);
    const HANDLE mapping = CreateFileMappingW(file, nullptr, PAGE_READONLY, 0, 0, nullptr);
    ASSERT_NE(mapping, nullptr);
    const void* const view = MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 0);
    EXPECT_EQ(SetFilePointer(file, 1, nullptr, FILE_BEGIN), 1u);
    EXPECT_TRUE(Fails(ERROR_USER_MAPPED_FILE, SetEndOfFile(file)));
    UnmapViewOfFile(view);
    CloseHandle(mapping);
    EXPECT_TRUE(SetEndOfFile(file));
    CloseHandle(file);
}

TEST_F(Mapping, ImpossibleMappingsAreRefused)
{
    Write(Path(TEXT("empty")), "");
    const HANDLE empty = Open(Path(TEXT("empty")), GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    const HANDLE reader = OpenFile(GENERIC_READ);
    const HANDLE writer = OpenFile(GENERIC_WRITE);
    const std::tuple<HANDLE, DWORD, DWORD, DWORD> cases[] = {
        {empty, PAGE_READONLY, 0, ERROR_FILE_INVALID},
        {reader, PAGE_READWRITE, 0, ERROR_ACCESS_DENIED},
        {writer, PAGE_READONLY, 0, ERROR_ACCESS_DENIED},
        {reader, PAGE_READONLY, 100, ERROR_NOT_ENOUGH_MEMORY},
        {reader, 0, 0, ERROR_INVALID_PARAMETER},
        {reinterpret_cast<HANDLE>(0x7770), PAGE_READONLY, 0, ERROR_INVALID_HANDLE},
    };
    for (const auto& [file, protection, size, error] : cases) {
        EXPECT_EQ(CreateFileMappingW(file, nullptr, protection, 0, size, nullptr), nullptr);
        EXPECT_EQ(GetLastError(), error);
    }
    for (HANDLE file : {empty, reader, writer})
        CloseHandle(file);
}

TEST_F(Mapping, ImpossibleViewsAreRefused)
{
    const HANDLE file = OpenFile(GENERIC_READ);
    const HANDLE mapping = CreateFileMappingW(file, nullptr, PAGE_READONLY, 0, 0, nullptr);
    ASSERT_NE(mapping, nullptr);
    const std::tuple<DWORD, DWORD, SIZE_T, DWORD> cases[] = {
        {FILE_MAP_WRITE, 0, 0, ERROR_ACCESS_DENIED},
        {FILE_MAP_READ, 1, 0, ERROR_MAPPED_ALIGNMENT},
        {FILE_MAP_READ, 0, 0x20000, ERROR_ACCESS_DENIED},
    };
    for (const auto& [access, offset, size, error] : cases) {
        EXPECT_EQ(MapViewOfFile(mapping, access, 0, offset, size), nullptr);
        EXPECT_EQ(GetLastError(), error) << "offset " << offset << ", size " << size;
    }
    EXPECT_EQ(MapViewOfFile(mapping, FILE_MAP_READ, 0, 0x10000, 0), nullptr) << "behind the end";
    CloseHandle(mapping);
    CloseHandle(file);
}

} // namespace
