// What only a machine's owner can see of the registry: its data base, other processes, the ledger.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>
#include <windows.h>
#include <winreg.h>

#include <filesystem>
#include <fstream>
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

HKEY CreateHome()
{
    HKEY key = nullptr;
    EXPECT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_CURRENT_USER, kHome, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                             KEY_ALL_ACCESS, nullptr, &key, nullptr));
    return key;
}

std::u16string Numbered(const char* stem, int first, int second)
{
    std::string text = stem + std::to_string(first) + "-" + std::to_string(second);
    return {text.begin(), text.end()};
}

void WriteNumbered(int writer, int count)
{
    HKEY home = CreateHome();
    for (int i = 0; i < count; ++i) {
        HKEY key = nullptr;
        EXPECT_EQ(ERROR_SUCCESS,
                  RegCreateKeyExW(home, Numbered("Key ", writer, i).c_str(), 0, nullptr,
                                  REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr, &key, nullptr));
        EXPECT_EQ(ERROR_SUCCESS, RegCloseKey(key));
        BYTE byte = static_cast<BYTE>(i);
        EXPECT_EQ(ERROR_SUCCESS,
                  RegSetValueExW(home, Numbered("Value ", writer, i).c_str(), 0, REG_BINARY, &byte, 1));
        DWORD size = 1;
        EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(home, Numbered("Value ", writer, i).c_str(), nullptr,
                                                  nullptr, &byte, &size));
        EXPECT_EQ(i, byte);
    }
    EXPECT_EQ(ERROR_SUCCESS, RegCloseKey(home));
}

void ExpectHomeHolds(DWORD count)
{
    HKEY home = CreateHome();
    DWORD keys = 0, values = 0;
    EXPECT_EQ(ERROR_SUCCESS, RegQueryInfoKeyW(home, nullptr, nullptr, nullptr, &keys, nullptr, nullptr,
                                              &values, nullptr, nullptr, nullptr, nullptr));
    EXPECT_EQ(count, keys);
    EXPECT_EQ(count, values);
    RegCloseKey(home);
}

TEST_F(RegistryWorld, ServesManyThreads)
{
    ASSERT_TRUE(OpenWorld());
    constexpr int kThreads = 4, kRounds = 25;
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back(WriteNumbered, i, kRounds);
    for (std::thread& thread : threads)
        thread.join();
    ExpectHomeHolds(kThreads * kRounds);
}

TEST_F(RegistryWorld, ServesManyProcessesFromTheFirstMomentOn)
{
    constexpr int kProcesses = 3, kRounds = 25;
    std::vector<pid_t> children;
    for (int i = 0; i < kProcesses; ++i) {
        pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            if (OpenWorld())
                WriteNumbered(i, kRounds);
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
    ExpectHomeHolds(kProcesses * kRounds);
}

TEST_F(RegistryWorld, CountsOpenKeysAndEndsThemWithTheWorld)
{
    ASSERT_TRUE(OpenWorld());
    HKEY key = CreateHome();
    HKEY user = nullptr;
    EXPECT_EQ(ERROR_SUCCESS, RegOpenKeyExW(HKEY_CURRENT_USER, nullptr, 0, KEY_READ, &user));
    EXPECT_EQ(1, host::OpenObjects().keys);
    host::Close();
    EXPECT_EQ(0, host::OpenObjects().keys);
    ASSERT_TRUE(OpenWorld());
    EXPECT_EQ(ERROR_INVALID_HANDLE, RegQueryValueExW(key, nullptr, nullptr, nullptr, nullptr, nullptr));
}

TEST_F(RegistryWorld, RefusesADataBaseThatIsNone)
{
    std::ofstream(root + "/host.db") << std::string(5000, 'x');
    std::string error;
    EXPECT_FALSE(host::Open({root}, &error));
    EXPECT_NE("", error);
    std::filesystem::remove(root + "/host.db");
    EXPECT_TRUE(OpenWorld());
}

} // namespace
