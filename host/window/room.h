#pragma once
// What the files of the window room share: the records behind handles, and how messages reach procedures.
//
// Windows belong to the thread that made them, and only that thread changes them. The lock guards what other
// threads may look at: the table of handles, the links of the tree, classes and texts. It is never held while
// a window procedure runs.
#include <array>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>

#include "host/gdi/region.h"
#include "host/gdi/surface.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"
#include "host/kernel/world.h"
#include "host/window/controls/scroll_parts.h"
#include "host/window/display_x11.h"

namespace host {

std::recursive_mutex& WindowLock();

struct WindowClass
{
    std::u16string name;
    ATOM atom = 0;
    HINSTANCE instance = nullptr; // null for built-in classes
    WNDPROC procedure = nullptr;
    UINT style = 0;
    int windowExtra = 0;
    std::vector<std::byte> extra;
    HICON icon = nullptr;
    HICON smallIcon = nullptr;
    HCURSOR cursor = nullptr;
    HBRUSH background = nullptr; // a brush of the program, or a system colour plus one
    bool builtIn = false;
    int windows = 0; // of this class
};

/// A scroll bar that is a part of a window. Positions are the program's numbers.
/// A scroll bar in a window's frame.
struct FrameScrollBar
{
    ScrollRange range = {0, 100, 0, 0};
    ScrollPress press;
    UINT blockedArrows = ESB_ENABLE_BOTH;
};

/// What a window has once it is a dialog.
struct DialogState
{
    HFONT font = nullptr; // made from the template; null when the template names none
    SIZE base = {};       // dialog base units in pixels
    HWND savedFocus = nullptr;
    int defaultId = 0; // 0: none
    bool modal = false;
    bool stopsOwner = false; // disabled its owner, which was enabled before
    bool ended = false;
    INT_PTR result = 0;
};

struct Queue;

struct Window
{
    HWND handle = nullptr;
    std::shared_ptr<WindowClass> windowClass;
    std::shared_ptr<Queue> queue; // null for the desktop and for other programs' windows
    Window* parent = nullptr;     // the desktop's for top-level windows; null for the desktop
    HWND owner = nullptr;
    std::vector<Window*> children; // topmost first
    DWORD style = 0;
    DWORD exStyle = 0;
    UINT_PTR id = 0;
    HINSTANCE instance = nullptr;
    WNDPROC procedure = nullptr;
    LONG_PTR userData = 0;
    std::vector<std::byte> extra;
    std::u16string text;
    std::map<std::u16string, HANDLE> properties;
    std::array<HICON, 2> icons = {}; // WM_SETICON: small, big

    RECT rect = {};   // in the parent's client coordinates
    RECT client = {}; // in window coordinates: (0, 0) is the window's top-left corner
    Region update;    // client coordinates
    bool erase = false;
    bool frameInvalid = false;
    bool internalPaint = false;
    bool activeFrame = false; // the caption is drawn as the active window's
    bool destroying = false;
    bool sized = false;                       // an overlapped window hears its size when it is first shown
    std::array<FrameScrollBar, 2> scrollBars; // by SB_HORZ, SB_VERT
    std::unique_ptr<DialogState> dialog;
    HMENU systemMenu = nullptr;       // a program's copy
    std::shared_ptr<Surface> surface; // of top-level windows, once painted
};

using WindowPtr = std::shared_ptr<Window>;

/// The window behind a handle; without one null, and ERROR_INVALID_WINDOW_HANDLE is set.
WindowPtr WindowOf(HWND handle);
/// The same without touching the last error.
WindowPtr LookUp(HWND handle);
/// The window all top-level windows are children of.
Window& Desktop();
/// Fails as WindowOf does, and for a window of another thread with ERROR_WINDOW_OF_OTHER_THREAD.
WindowPtr OwnWindowOf(HWND handle);

inline bool IsVisibleStyle(const Window& window)
{
    return (window.style & WS_VISIBLE) != 0;
}
inline bool IsChildStyle(const Window& window)
{
    return (window.style & (WS_CHILD | WS_POPUP)) == WS_CHILD;
}
inline bool IsTopLevel(const Window& window)
{
    return window.parent != nullptr && window.parent->parent == nullptr;
}
/// Whether it and everything around it is shown.
bool IsShown(const Window& window);
Window& TopLevelOf(Window& window);
/// The handles of the children, topmost first: safe to walk while windows come and go.
std::vector<HWND> ChildrenOf(const Window& window);
/// Desktop place of the window's and of its client area's top-left corner.
POINT WindowOrigin(const Window& window);
POINT ClientOrigin(const Window& window);
SIZE SizeOf(const RECT& rect);
RECT ClientRectOfWindow(const Window& window);

// Classes

/// The class that `name` (a text or an atom) names for a program; null without one.
std::shared_ptr<WindowClass> FindClass(LPCWSTR name, HINSTANCE instance);
/// The name of the class with this number in dialog templates; null without one.
const char16_t* ClassOfDialogOrdinal(WORD ordinal);
/// Whether it is one of the layer's own procedures.
bool IsBuiltInProcedure(WNDPROC procedure);
void CloseClasses();

// Queues and messages

struct Timer
{
    HWND window;
    UINT_PTR id;
    UINT period; // ms
    TIMERPROC procedure;
    uint64_t due; // RoomTime
};

struct SentMessage
{
    MSG message;
    std::shared_ptr<Queue> sender; // null when nobody waits for the result
    LRESULT result = 0;
    bool done = false;
};

/// What mouse or keyboard did, before it is known which window it is for.
struct Input
{
    UINT message;  // WM_MOUSEMOVE ..., WM_KEYDOWN, WM_KEYUP
    WPARAM detail; // key code, or the wheel's way
    char16_t character;
    POINT point; // desktop
    uint64_t time;
};

struct Caret
{
    HWND window = nullptr;
    SIZE size = {};
    POINT place = {};
    int hidden = 1; // shown at 0
};

/// One thread's messages and its input state.
struct Queue
{
    DWORD thread = 0;
    uint64_t world = 0;
    std::deque<MSG> posted;
    std::deque<std::shared_ptr<SentMessage>> sent;
    std::deque<Input> input;
    std::vector<Timer> timers;
    UINT_PTR nextTimer = 1;
    bool quit = false;
    int exitCode = 0;
    std::array<BYTE, 256> keys = {}; // 0x80 down, 1 toggled; as of the last message taken
    HWND focus = nullptr;
    HWND active = nullptr;
    HWND capture = nullptr;
    HCURSOR cursor = nullptr;
    Caret caret;
    POINT messagePoint = {};
    DWORD messageTime = 0;
    // The last press, for double clicks
    HWND clickWindow = nullptr;
    UINT clickMessage = 0;
    uint64_t clickTime = 0;
    POINT clickPoint = {};
    TRACKMOUSEEVENT track = {};
    HWND mouseWindow = nullptr;
    SentMessage* serving = nullptr;
};

/// The calling thread's queue, made at its first use.
std::shared_ptr<Queue> CurrentQueue();
/// Null for a thread without one.
std::shared_ptr<Queue> QueueOfThread(DWORD thread);
/// Guards what other threads put into queues. Taken after WindowLock(), never before.
std::mutex& QueueLock();
/// Tells waiting threads to look again.
void WakeQueues();
/// Milliseconds; runs ahead of the system's clock as far as the host advanced it.
uint64_t RoomTime();
void PostTo(Queue& queue, const MSG& message);
/// Forgets timers, messages and input for a window that goes.
void ForgetWindowInQueue(Queue& queue, HWND window);
/// Runs a procedure, counted as the program's when it is one.
LRESULT CallProcedure(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/// Serves everything other threads have sent to the calling thread.
void ServeSent(Queue& queue);
void CloseQueues();
/// The next message for a loop that follows the mouse. False when the loop is to end: the window has lost the
/// capture, nothing can come, or the program is to quit, of which the loop around is told again.
bool NextWhileCaptured(HWND window, MSG& message);

/// Makes the message of a timer that is due; false when none is.
bool TakeTimer(Queue& queue, HWND window, UINT first, UINT last, bool remove, MSG& message);
/// When the next timer is due (RoomTime); false without a timer.
bool NextTimerDue(const Queue& queue, uint64_t& due);

/// Takes the next message of mouse or keyboard. Runs hit tests, activation and cursor choice on the way.
bool TakeInput(Queue& queue, HWND window, UINT first, UINT last, bool remove, MSG& message);

/// The next window of the calling thread that needs painting; null when none does.
HWND NextToPaint(const Queue& queue);

// Painting

/// Marks a part (null: all) of the client area; children too unless the flags of RedrawWindow say otherwise.
void Invalidate(Window& window, const Region* part, UINT flags);
/// Marks what a window covers, in its parent's client area or on the desktop.
void InvalidateUnder(Window& window, const RECT& rect);
/// Paints everything of a top-level window that needs it.
void PaintNow(HWND window);
/// The window's visible part; coordinates of its top-level window's surface.
Region VisibleRegion(Window& window, bool wholeWindow);
/// A new surface when the size has changed.
void FitSurface(Window& topLevel);
/// Gives back device contexts that a window's programs did not.
void CloseDcsOf(HWND window);
void ClosePainting();

// Frames

/// The frame's widths: what lies between the window's edges and its client area, without scroll bars.
RECT FrameWidths(DWORD style, DWORD exStyle);
LRESULT CalculateClient(Window& window, RECT& rect);
LRESULT HitTest(Window& window, POINT point);
void PaintFrame(Window& window);
/// The close button in window coordinates; empty without one.
RECT CloseButtonRect(const Window& window);
RECT CaptionRect(const Window& window);

// Help

/// Posted to the window with the focus when F1 goes down, whatever it does with the key itself.
constexpr UINT kHelpKeyMessage = 0x004D;

/// Tells a window that help on it is wanted; does nothing for no window.
void SendHelp(HWND window);
/// Waits for the click that says what help is wanted on.
void RunHelpMode(HWND window);

// Scroll bars of windows

/// Window coordinates; empty when the window has none.
RECT ScrollBarRect(const Window& window, int bar);
void PaintFrameScrollBar(HDC dc, const Window& window, int bar);
/// Plays a press on a scroll bar until the button is up.
void TrackScrollBar(HWND window, int bar, POINT point);

// Focus

/// Gives activation away from a window that is hidden, disabled or destroyed.
void ActivateOther(Window& window);
bool Activate(HWND window, bool byMouse);
void CloseFocus();
HWND ForegroundWindow();

// Place

/// Sends WM_NCCALCSIZE and takes the client area over.
void RecalculateClient(Window& window, const RECT& newRect);
void Link(Window& window, Window& parent, HWND after);
void Unlink(Window& window);

// Dialogs

DialogState* DialogOf(HWND dialog);
HWND FirstTabStop(HWND dialog);
/// Moves the focus inside a dialog, selecting an edit control's text and moving the default frame.
void FocusDialogControl(HWND dialog, HWND control);

// Menus

/// The procedure of the windows that menus are shown in.
LRESULT CALLBACK MenuWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
void CloseMenus();
void EndMenuOf(HWND window);

// Input

void CloseInput();
/// Composes the desktop; everything must be painted.
std::shared_ptr<Surface> ComposeDesktop();

} // namespace host
