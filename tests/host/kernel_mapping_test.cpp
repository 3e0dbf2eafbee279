#include "tests/host/scratch.h"

#include <cstring>

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
    EXPECT_FALSE(UnmapViewOfFile(view));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_ADDRESS));
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
    EXPECT_FALSE(SetEndOfFile(file));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_USER_MAPPED_FILE));
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
    const struct
    {
        HANDLE file;
        DWORD protection;
        DWORD size;
        DWORD error;
    } cases[] = {
        {empty, PAGE_READONLY, 0, ERROR_FILE_INVALID},
        {reader, PAGE_READWRITE, 0, ERROR_ACCESS_DENIED},
        {writer, PAGE_READONLY, 0, ERROR_ACCESS_DENIED},
        {reader, PAGE_READONLY, 100, ERROR_NOT_ENOUGH_MEMORY},
        {reader, 0, 0, ERROR_INVALID_PARAMETER},
        {reinterpret_cast<HANDLE>(0x7770), PAGE_READONLY, 0, ERROR_INVALID_HANDLE},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(CreateFileMappingW(each.file, nullptr, each.protection, 0, each.size, nullptr), nullptr);
        EXPECT_EQ(GetLastError(), each.error);
    }
    for (HANDLE file : {empty, reader, writer})
        CloseHandle(file);
}

TEST_F(Mapping, ImpossibleViewsAreRefused)
{
    const HANDLE file = OpenFile(GENERIC_READ);
    const HANDLE mapping = CreateFileMappingW(file, nullptr, PAGE_READONLY, 0, 0, nullptr);
    ASSERT_NE(mapping, nullptr);
    const struct
    {
        DWORD access;
        DWORD offset;
        SIZE_T size;
        DWORD error;
    } cases[] = {
        {FILE_MAP_WRITE, 0, 0, ERROR_ACCESS_DENIED},
        {FILE_MAP_READ, 1, 0, ERROR_MAPPED_ALIGNMENT},
        {FILE_MAP_READ, 0, 0x20000, ERROR_ACCESS_DENIED},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(MapViewOfFile(mapping, each.access, 0, each.offset, each.size), nullptr);
        EXPECT_EQ(GetLastError(), each.error) << "offset " << each.offset << ", size " << each.size;
    }
    EXPECT_EQ(MapViewOfFile(mapping, FILE_MAP_READ, 0, 0x10000, 0), nullptr) << "behind the end";
    CloseHandle(mapping);
    CloseHandle(file);
}

} // namespace
