#pragma once
// Files of tests, and a folder of its own for every test that works with them.
#include <string>

#include <gtest/gtest.h>
#include <windows.h>

using Wide = std::basic_string<WCHAR>;

/// The path of a file in the test program's own folder.
inline Wide BesideThisProgram(const WCHAR* name)
{
    WCHAR path[MAX_PATH];
    const Wide program(path, GetModuleFileNameW(nullptr, path, MAX_PATH));
    return program.substr(0, program.rfind(TEXT('\\')) + 1) + name;
}

inline HANDLE Open(const Wide& path, DWORD access, DWORD share, DWORD disposition)
{
    return CreateFileW(path.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

inline void Write(const Wide& path, const std::string& text)
{
    const HANDLE file = Open(path, GENERIC_WRITE, 0, CREATE_ALWAYS);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    DWORD written = 0;
    EXPECT_TRUE(WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr));
    EXPECT_EQ(written, text.size());
    CloseHandle(file);
}

inline std::string Read(const Wide& path)
{
    const HANDLE file = Open(path, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    if (file == INVALID_HANDLE_VALUE)
        return "(absent)";
    std::string text(GetFileSize(file, nullptr), '\0');
    DWORD count = 0;
    EXPECT_TRUE(ReadFile(file, text.data(), static_cast<DWORD>(text.size()), &count, nullptr));
    text.resize(count);
    CloseHandle(file);
    return text;
}

/// Deletes a folder with everything in it, read-only files too.
inline void DeleteTree(const Wide& folder)
{
    WIN32_FIND_DATAW data;
    const HANDLE find = FindFirstFileW((folder + TEXT("\\*")).c_str(), &data);
    BOOL more = find != INVALID_HANDLE_VALUE;
    for (; more; more = FindNextFileW(find, &data)) {
        const Wide name = data.cFileName;
        const Wide path = folder + TEXT("\\") + name;
        if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
            DeleteFileW(path.c_str());
        } else if (name != TEXT(".") && name != TEXT("..")) {
            DeleteTree(path);
        }
    }
    if (find != INVALID_HANDLE_VALUE)
        FindClose(find);
    RemoveDirectoryW(folder.c_str());
}

class Scratch : public testing::Test
{
protected:
    void SetUp() override
    {
        WCHAR temp[MAX_PATH];
        ASSERT_NE(GetTempPathW(MAX_PATH, temp), 0u);
        folder_ = Wide(temp) + TEXT("scratch");
        for (DWORD rest = GetCurrentProcessId(); rest != 0; rest /= 10)
            folder_ += static_cast<WCHAR>('0' + rest % 10);
        DeleteTree(folder_); // of a test that broke off
        ASSERT_TRUE(CreateDirectoryW(folder_.c_str(), nullptr));
    }
    void TearDown() override { DeleteTree(folder_); }

    Wide Path(const Wide& name) const { return folder_ + TEXT("\\") + name; }

private:
    Wide folder_;
};
