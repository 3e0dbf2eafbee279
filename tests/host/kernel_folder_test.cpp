#include "tests/host/last_error.h"
#include "tests/host/scratch.h"
#include "tests/host/wine.h"

namespace {

class Folders : public Scratch
{
};

TEST_F(Folders, FoldersAreMadeAndRemovedOnlyWhereThatMakesSense)
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

TEST_F(Folders, ReadOnlyFileRefusesWritingAndDeleting)
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

TEST_F(Folders, OpenFileIsDeletedOnlyWhenItsOpenersShareThat)
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
