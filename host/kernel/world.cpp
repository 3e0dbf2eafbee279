#include "host/kernel/world.h"

#include <atomic>
#include <filesystem>
#include <sqlite3.h>
#include <stdlib.h>

#include "host/gdi/object.h"
#include "host/gdi/surface.h"
#include "host/kernel/call.h"
#include "host/kernel/codepage.h"
#include "host/kernel/handle.h"
#include "host/kernel/mapping.h"
#include "host/kernel/module.h"
#include "host/kernel/path.h"
#include "host/window/window.h"

namespace host {
namespace {

constexpr int kBusyTimeout = 5000; // ms
constexpr int kRetryPause = 5;     // ms
constexpr char kMemoryRoot[] = ":memory:";

// Losing the last moments of a play world in a power cut is fine; waiting for the disk in every test is not.
constexpr char kDatabaseSetup[] = "PRAGMA synchronous=OFF; PRAGMA journal_mode=WAL;";

constexpr const char* kFolders[] = {
    "drive_c/windows/system32",
    "drive_c/windows/temp",
};

struct World
{
    std::string root;
    bool temporary = false;
    sqlite3* database = nullptr;
    std::recursive_mutex databaseLock;
};

World world;
Ledger ledger;

bool Fail(std::string* error, std::string sentence)
{
    if (error != nullptr)
        *error = std::move(sentence);
    return false;
}

bool MakeRoot(const std::string& wanted, std::string* error)
{
    std::string root = wanted;
    world.temporary = root == kMemoryRoot;
    if (world.temporary) {
        std::error_code ignored;
        root = (std::filesystem::temp_directory_path(ignored) / "host-XXXXXX").string();
        if (mkdtemp(root.data()) == nullptr)
            return Fail(error, "A temporary folder cannot be made.");
    }
    world.root = root;
    std::error_code code;
    for (const char* folder : kFolders) {
        std::filesystem::create_directories(std::filesystem::path(root) / folder, code);
        if (code)
            return Fail(error, "The folder " + root + " cannot be made: " + code.message() + ".");
    }
    world.root = std::filesystem::canonical(root, code).string();
    return code ? Fail(error, "The folder " + root + " cannot be read.") : true;
}

// Whoever switches to write-ahead logging while another process opens or closes the same root is told at once
// that the data base is locked: the busy timeout does not cover it.
int SetUpDatabase()
{
    int result = SQLITE_BUSY;
    for (int waited = 0; result == SQLITE_BUSY && waited < kBusyTimeout; waited += kRetryPause) {
        result = sqlite3_exec(world.database, kDatabaseSetup, nullptr, nullptr, nullptr);
        if (result == SQLITE_BUSY)
            sqlite3_sleep(kRetryPause);
    }
    return result;
}

bool OpenDatabase(std::string* error)
{
    const std::string file = world.root + "/host.db";
    int result =
        sqlite3_open_v2(file.c_str(), &world.database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    if (result == SQLITE_OK) {
        sqlite3_busy_timeout(world.database, kBusyTimeout);
        result = SetUpDatabase();
    }
    return result == SQLITE_OK
               ? true
               : Fail(error, "The data base " + file + " cannot be opened: " + sqlite3_errstr(result) + ".");
}

void CloseDatabase()
{
    sqlite3_close(world.database);
    world.database = nullptr;
}

void ForgetRoot()
{
    std::error_code ignored;
    if (world.temporary && !world.root.empty())
        std::filesystem::remove_all(world.root, ignored);
    world.root.clear();
    OpenPaths({});
}

bool OpenRooms(std::string* error)
{
    if (!OpenRegistryRoom(error))
        return false;
    if (OpenSpoolerRoom(error)) {
        if (OpenShellRoom(error))
            return true;
        CloseSpoolerRoom();
    }
    CloseRegistryRoom();
    return false;
}

} // namespace

bool Open(const Options& options, std::string* error)
{
    if (!world.root.empty())
        return Fail(error, "A world is open already.");
    if (MakeRoot(options.root, error) && OpenDatabase(error)) {
        OpenPaths(world.root);
        if (OpenRooms(error))
            return true;
    }
    CloseDatabase();
    ForgetRoot();
    return false;
}

void Close()
{
    // What plays failures must not stand in the way of those who clean up.
    CloseInjector();
    LimitDiskSpace(-1);
    DetachAllModules();
    CloseAllViews();
    CloseAllHandles();
    CloseWindowRoom();
    CloseGdiRoom();
    ResetCodePage();
    ResetDotsPerInch();
    CloseShellRoom();
    CloseSpoolerRoom();
    CloseRegistryRoom();
    CloseDatabase();
    ForgetRoot();
}

std::string RootFolder()
{
    return world.root;
}

std::recursive_mutex& DatabaseLock()
{
    return world.databaseLock;
}

sqlite3* Database()
{
    return world.database;
}

void CountOpen(int64_t Ledger::*entry, int64_t amount)
{
    std::atomic_ref(ledger.*entry).fetch_add(amount, std::memory_order_relaxed);
}

Ledger OpenObjects()
{
    constexpr int64_t Ledger::*kEntries[] = {
        &Ledger::files,   &Ledger::finds,    &Ledger::mappings,       &Ledger::heaps,
        &Ledger::blocks,  &Ledger::bytes,    &Ledger::modules,        &Ledger::criticalSections,
        &Ledger::keys,    &Ledger::printers, &Ledger::tokens,         &Ledger::windows,
        &Ledger::classes, &Ledger::menus,    &Ledger::deviceContexts, &Ledger::bitmaps,
        &Ledger::brushes, &Ledger::fonts,    &Ledger::icons,          &Ledger::palettes,
        &Ledger::pens,    &Ledger::regions,
    };
    Ledger now;
    for (int64_t Ledger::*entry : kEntries)
        now.*entry = std::atomic_ref(ledger.*entry).load(std::memory_order_relaxed);
    return now;
}

} // namespace host
