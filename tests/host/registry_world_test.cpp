// What only a machine's owner can see of the registry: its data base, other processes, the ledger.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>
#include <windows.h>
#include <winreg.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "host/host.h"

namespace {

constexpr const WCHAR* kHome = TEXT("Software\\Test");

// A root folder that lasts over several openings.
class RegistryWorld : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string name = (std::filesystem::temp_directory_path() / "registry-XXXXXX").string();
        ASSERT_TRUE(mkdtemp(name.data()));
        root = name;
    }

    void TearDown() override
    {
        host::Close();
        std::filesystem::remove_all(root);
    }

    bool OpenWorld()
    {
        std::string error;
        bool open = host::Open({root}, &error);
        EXPECT_TRUE(open) << error;
        return open;
    }

    std::string root;
};

HKEY Create(HKEY base, const WCHAR* name, DWORD* disposition = nullptr)
{
    HKEY key = nullptr;
    EXPECT_EQ(ERROR_SUCCESS, RegCreateKeyExW(base, name, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS,
                                             nullptr, &key, disposition));
    return key;
}

/// Goes through the keys and values of one writer, which are all new at first and all there later.
void Visit(int writer, int count, DWORD expected)
{
    HKEY home = Create(HKEY_CURRENT_USER, kHome);
    for (int i = 0; i < count; ++i) {
        const std::string text = std::to_string(writer) + "-" + std::to_string(i);
        const std::u16string name(text.begin(), text.end());
        DWORD disposition = 0;
        EXPECT_EQ(ERROR_SUCCESS, RegCloseKey(Create(home, name.c_str(), &disposition)));
        EXPECT_EQ(expected, disposition) << text;
        const BYTE byte = static_cast<BYTE>(i + 1);
        if (expected == REG_CREATED_NEW_KEY) {
            EXPECT_EQ(ERROR_SUCCESS, RegSetValueExW(home, name.c_str(), 0, REG_BINARY, &byte, 1));
        }
        BYTE found = 0;
        DWORD size = 1;
        EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(home, name.c_str(), nullptr, nullptr, &found, &size));
        EXPECT_EQ(byte, found) << text;
    }
    EXPECT_EQ(ERROR_SUCCESS, RegCloseKey(home));
}

constexpr int kRounds = 25;

TEST_F(RegistryWorld, ServesManyThreads)
{
    ASSERT_TRUE(OpenWorld());
    constexpr int kThreads = 4;
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back(Visit, i, kRounds, REG_CREATED_NEW_KEY);
    for (std::thread& thread : threads)
        thread.join();
    for (int i = 0; i < kThreads; ++i)
        Visit(i, kRounds, REG_OPENED_EXISTING_KEY);
}

TEST_F(RegistryWorld, ServesManyProcessesFromTheFirstMomentOn)
{
    constexpr int kProcesses = 3;
    std::vector<pid_t> children;
    for (int i = 0; i < kProcesses; ++i) {
        pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            if (OpenWorld())
                Visit(i, kRounds, REG_CREATED_NEW_KEY);
            host::Close();
            _exit(HasFailure() ? 1 : 0);
        }
        children.push_back(child);
    }
    for (pid_t child : children) {
        int status = 0;
        ASSERT_EQ(child, waitpid(child, &status, 0));
        EXPECT_EQ(0, status);
    }
    ASSERT_TRUE(OpenWorld());
    for (int i = 0; i < kProcesses; ++i)
        Visit(i, kRounds, REG_OPENED_EXISTING_KEY);
}

} // namespace
