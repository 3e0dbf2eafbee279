#pragma once
// What a host program or a test may set on the platform layer and read back from it. Windows programs
// never include this: everything here is about the world that the layer plays, not about the platform.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#define HOST_EXPORT __attribute__((visibility("default")))

namespace host {

/// The world of a process.
///
/// `root` is a folder of the machine. It holds `drive_c/` (drive C:) and `host.db` (registry, printers,
/// drivers, forms, printer data); both are made when missing. ":memory:" stands for a folder of its own under
/// the machine's temporary folder that Close() deletes. Drive Z: is the machine's whole file system. Two
/// processes may open the same root at once; one process has one root at a time.
struct Options
{
    std::string root;
};

/// Opens the world. Returns false, with a sentence for the user in `*error` (may be null), when the folder or
/// its data base cannot be made or read; then nothing is open. Must not be called while a world is open.
HOST_EXPORT bool Open(const Options& options, std::string* error);

/// Detaches every module that is still loaded (DllMain with the detach reason, last loaded first), closes
/// what is open, clears all injection and recording state, and deletes a ":memory:" root.
HOST_EXPORT void Close();

/// The root folder of the open world, or an empty text.
HOST_EXPORT std::string RootFolder();

/// The machine's file name of a Windows path (either slash, any case of existing components), or an empty
/// text when the path names no drive of this world. The file need not exist.
HOST_EXPORT std::string NativePath(std::u16string_view windowsPath);

/// The Windows path of a file of the machine: below drive C: when it lies in the root, else on drive Z:.
HOST_EXPORT std::u16string WindowsPath(const std::string& nativePath);

// --- Failure injection. Counts start at zero with each call below; all threads are counted together. ---

/// Lets `skip` memory requests of the library pass (HeapAlloc, HeapReAlloc, HeapCreate, GlobalAlloc,
/// GlobalReAlloc, LocalAlloc), then fails one of them, or every one from there on.
HOST_EXPORT void FailAllocations(uint64_t skip, bool onwards);

/// Lets `skip` platform calls that can fail pass, then fails one of them, or every one from there on, with
/// the call's own failure result and a plausible error code. Memory requests are not counted here.
HOST_EXPORT void FailCalls(uint64_t skip, bool onwards);

/// What a read (printer, driver, form, printer data, registry value, version) answers wrongly. A profile
/// entry only fails or grows, which takes its file away or cuts its text.
enum class Misread
{
    Fail,     ///< it fails, as FailCalls would have it
    Grow,     ///< what is read has outgrown the buffer: the call fails and wants more than was asked for
    TooSmall, ///< it reports half the true size
    Huge,     ///< it reports 0xFFFFFFFF as the size
    WrongType ///< it reports a type that is not the value's
};

/// Lets `skip` reads pass, then spoils one of them, or every one from there on.
HOST_EXPORT void MisreadCalls(uint64_t skip, bool onwards, Misread how);

/// Ends all kinds of injection.
HOST_EXPORT void StopFailing();

/// Memory requests, calls that can fail, and reads, made since injection was last started or ended.
HOST_EXPORT uint64_t AllocationsSeen();
HOST_EXPORT uint64_t CallsSeen();
HOST_EXPORT uint64_t ReadsSeen();

/// After `bytes` more bytes have been written with WriteFile (all files together), writes fail with
/// ERROR_DISK_FULL, the last one after writing what still fitted. A negative number ends it.
HOST_EXPORT void LimitDiskSpace(int64_t bytes);

// --- Profile: what a stretch of code asked of the platform. Per thread. ---

struct CallCount
{
    const char* name; ///< function name
    uint64_t count;   ///< calls made from outside the layer
};

struct Profile
{
    std::vector<CallCount> calls; ///< called functions only, by name
    uint64_t nanoseconds = 0;     ///< time spent inside the layer
    size_t peakBytes = 0;         ///< largest sum of memory blocks alive at once, above the start
};

/// Starts counting and timing the calling thread's platform calls; StopProfile returns what was seen.
HOST_EXPORT void StartProfile();
HOST_EXPORT Profile StopProfile();

// --- Ledger: what has been opened or allocated through the layer and not yet given back. ---

struct Ledger
{
    int64_t files = 0;
    int64_t finds = 0;
    int64_t mappings = 0; ///< mapping objects and views together
    int64_t heaps = 0;    ///< private heaps
    int64_t blocks = 0;   ///< heap, global and local blocks together
    int64_t bytes = 0;    ///< in those blocks
    int64_t modules = 0;  ///< LoadLibrary references not yet freed
    int64_t criticalSections = 0;
    int64_t keys = 0;
    int64_t printers = 0;
    int64_t tokens = 0; ///< of RevertToPrinterSelf, not yet handed to ImpersonatePrinterClient
    int64_t deviceContexts = 0;
    int64_t bitmaps = 0;
    int64_t brushes = 0;
    int64_t fonts = 0;
    int64_t icons = 0; ///< and cursors
    int64_t palettes = 0;
    int64_t pens = 0;
    int64_t regions = 0;
    int64_t windows = 0;
    int64_t classes = 0; ///< registered by programs
    int64_t menus = 0;

    bool operator==(const Ledger&) const = default;
};

HOST_EXPORT Ledger OpenObjects();

// --- Machine settings that programs can only read ---

/// The system's 8-bit code page: 1252 (initially) or 932.
HOST_EXPORT void SetCodePage(unsigned codePage);

/// Dots per inch of the screen, 96 initially: what GetDeviceCaps tells, and what dialogs are sized by. Frames
/// and the system's own fonts stay as they are.
HOST_EXPORT void SetDotsPerInch(int dotsPerInch);

/// Makes a window of the given class the calling process's active window; an empty name leaves no active
/// window (the initial state).
HOST_EXPORT void SetActiveWindowClass(std::u16string_view className);

/// Adds a top-level window of another program, which FindWindowW and IsWindow know; returns its handle.
HOST_EXPORT void* AddWindow(std::u16string_view className, std::u16string_view title = {});
HOST_EXPORT void RemoveWindow(void* window);

// --- Windows: whoever drives them, and pictures of them. Window handles are HWNDs. ---

/// Called on the thread whose message queue is empty, whenever it would wait. True means that it did
/// something and the queue is to be looked at again; false lets the queue wait for its next timer, or, when
/// there is nothing that could ever come, lets GetMessageW and modal loops fail. A null hook (the initial
/// state) is none.
HOST_EXPORT void SetIdleHook(std::function<bool()> hook);

/// Puts the clock of timers, double clicks and message times forward.
HOST_EXPORT void AdvanceTime(unsigned milliseconds);

enum class MouseButton
{
    Left,
    Right,
    Middle
};

/// Mouse and keyboard. They put input into the queue of the thread whose window it is for and return at once;
/// the thread takes it in its message loop. Places are desktop pixels, keys are virtual-key codes.
HOST_EXPORT void MoveMouse(int x, int y);
HOST_EXPORT void PressMouse(MouseButton button);
HOST_EXPORT void ReleaseMouse(MouseButton button);
HOST_EXPORT void TurnMouseWheel(int notches); ///< positive: away from the user
HOST_EXPORT void PressKeyDown(unsigned key);
HOST_EXPORT void ReleaseKey(unsigned key);
HOST_EXPORT void PressKey(unsigned key); ///< down and up
/// Types characters; a line feed is the Enter key.
HOST_EXPORT void TypeText(std::u16string_view text);

/// Writes a picture of a window, or of the whole desktop, as a PNG file, with everything that is marked for
/// painting painted first. Call on the windows' own thread. False when there is no such window or the file
/// cannot be written. A child window is shown as it looks inside its top-level window.
HOST_EXPORT bool ShootWindow(void* window, const std::filesystem::path& file);
HOST_EXPORT bool ShootDesktop(const std::filesystem::path& file);

/// Shows the desktop in a window of the machine's display (the environment's DISPLAY) and takes its mouse and
/// keyboard, until the world is closed. False without a display.
HOST_EXPORT bool OpenDisplay();

/// The user that programs run as: "user" initially. The user's folders are made where they are missing.
HOST_EXPORT void SetUserName(std::u16string_view name);

/// Makes the process the spooler's, running as `serviceUser` ("SYSTEM", say) with each thread impersonating
/// the user until it calls RevertToPrinterSelf. An empty name ends that (the initial state).
HOST_EXPORT void RunInSpooler(std::u16string_view serviceUser);

/// Calls since RunInSpooler. A token has to come back on the thread that took it, once.
struct Impersonations
{
    uint64_t reverted = 0; ///< RevertToPrinterSelf calls that returned a token
    uint64_t resumed = 0;  ///< ImpersonatePrinterClient calls that took one back
    uint64_t refused = 0;  ///< ImpersonatePrinterClient calls with anything else
};

HOST_EXPORT Impersonations SpoolerImpersonations();

/// Whether the user's application-data folder can be found (initially true).
HOST_EXPORT void SetApplicationDataKnown(bool known);

/// Makes every launch and every opened file or page fail with this code below 32; 0 lets them succeed again.
HOST_EXPORT void FailLaunches(unsigned code);

// --- Recording: what programs started and opened. It is kept in the root, so other processes see it too. ---

struct Event
{
    /// "launch" (WinExec), "open" (ShellExecuteW), "beep" (MessageBeep), "help" and "help closed"
    /// (HtmlHelpW); "failed launch" and "failed open" when the program was told that it did not work.
    std::string kind;
    std::u16string text;   ///< command line; file or page; empty
    std::u16string detail; ///< show code; "VERB|PARAMETERS|FOLDER|SHOW CODE"; kind of sound. Decimal codes
};

/// Everything recorded since the root was made or last cleared, oldest first.
HOST_EXPORT std::vector<Event> Recorded();
HOST_EXPORT void ClearRecorded();

} // namespace host
