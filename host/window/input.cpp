// Mouse and keyboard: what hosts do with them, and the messages that this becomes.
//
// Input waits raw in the queue of the thread that it is for. Which window gets it is found when it is taken,
// because messages before it may have moved windows, the focus or the capture.
#include <algorithm>
#include <atomic>

#include "host/host.h"
#include "host/window/handles.h"

namespace host {
namespace {

constexpr uint64_t kDoubleClickTime = 500; // ms
constexpr BYTE kDown = 0x80;
constexpr BYTE kToggled = 0x01;

std::mutex inputLock;
POINT cursorPlace;
std::array<BYTE, 256> keysNow;
int cursorHidden;

struct ShiftedKey
{
    WORD key;
    char16_t plain;
    char16_t shifted;
};

// The keys of the US layout that are neither letters nor on the number pad.
constexpr ShiftedKey kKeys[] = {
    {'0', u'0', u')'},         {'1', u'1', u'!'},        {'2', u'2', u'@'},         {'3', u'3', u'#'},
    {'4', u'4', u'$'},         {'5', u'5', u'%'},        {'6', u'6', u'^'},         {'7', u'7', u'&'},
    {'8', u'8', u'*'},         {'9', u'9', u'('},        {0xBA, u';', u':'},        {0xBB, u'=', u'+'},
    {0xBC, u',', u'<'},        {0xBD, u'-', u'_'},       {0xBE, u'.', u'>'},        {0xBF, u'/', u'?'},
    {0xC0, u'`', u'~'},        {0xDB, u'[', u'{'},       {0xDC, u'\\', u'|'},       {0xDD, u']', u'}'},
    {0xDE, u'\'', u'"'},       {VK_SPACE, u' ', u' '},   {VK_RETURN, u'\r', u'\r'}, {VK_TAB, u'\t', u'\t'},
    {VK_BACK, u'\b', u'\b'},   {VK_ESCAPE, 0x1B, 0x1B},  {VK_MULTIPLY, u'*', u'*'}, {VK_ADD, u'+', u'+'},
    {VK_SUBTRACT, u'-', u'-'}, {VK_DECIMAL, u'.', u'.'}, {VK_DIVIDE, u'/', u'/'},
};

bool IsMouse(const Input& input)
{
    return input.message >= WM_MOUSEFIRST && input.message <= WM_MOUSELAST;
}

bool IsPress(UINT message)
{
    return message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN;
}

bool Down(const std::array<BYTE, 256>& keys, int key)
{
    return (keys[static_cast<size_t>(key)] & kDown) != 0;
}

WORD MouseKeys(const Queue& queue)
{
    constexpr struct
    {
        int key;
        WORD flag;
    } kFlags[] = {{VK_LBUTTON, MK_LBUTTON},
                  {VK_RBUTTON, MK_RBUTTON},
                  {VK_MBUTTON, MK_MBUTTON},
                  {VK_SHIFT, MK_SHIFT},
                  {VK_CONTROL, MK_CONTROL}};
    WORD keys = 0;
    for (const auto& each : kFlags)
        keys |= Down(queue.keys, each.key) ? each.flag : 0;
    return keys;
}

int ButtonOf(UINT message)
{
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
        return VK_LBUTTON;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
        return VK_RBUTTON;
    case WM_MBUTTONDOWN:
    case WM_MBUTTONUP:
        return VK_MBUTTON;
    }
    return 0;
}

void SetKey(std::array<BYTE, 256>& keys, size_t key, bool down)
{
    BYTE& state = keys[key % keys.size()];
    if (down && (state & kDown) == 0)
        state ^= kToggled;
    state = static_cast<BYTE>(down ? state | kDown : state & ~kDown);
}

void NoteKeys(std::array<BYTE, 256>& keys, const Input& input)
{
    if (const int button = ButtonOf(input.message))
        SetKey(keys, static_cast<size_t>(button), IsPress(input.message));
    else if (!IsMouse(input))
        SetKey(keys, input.detail, input.message == WM_KEYDOWN);
}

std::shared_ptr<Queue> QueueOfWindow(HWND handle)
{
    const WindowPtr window = LookUp(handle);
    return window != nullptr ? window->queue : nullptr;
}

/// The queue that raw input is for: that of the capture, of the window under the mouse, or of the focus.
std::shared_ptr<Queue> TargetQueue(const Input& input)
{
    std::shared_ptr<Queue> ofForeground = QueueOfWindow(ForegroundWindow());
    if (!IsMouse(input) || (ofForeground != nullptr && ofForeground->capture != nullptr))
        return ofForeground;
    std::lock_guard lock(WindowLock());
    for (const Window* each : Desktop().children) {
        if (IsVisibleStyle(*each) && PtInRect(&each->rect, input.point) && each->queue != nullptr)
            return each->queue;
    }
    return nullptr;
}

void Inject(Input input)
{
    {
        std::lock_guard lock(inputLock);
        NoteKeys(keysNow, input);
        if (IsMouse(input) && input.message == WM_MOUSEMOVE)
            cursorPlace = input.point;
        input.point = cursorPlace;
        input.time = RoomTime();
    }
    const std::shared_ptr<Queue> queue = TargetQueue(input);
    if (queue == nullptr)
        return;
    std::lock_guard lock(QueueLock());
    const bool moves =
        input.message == WM_MOUSEMOVE && !queue->input.empty() && queue->input.back().message == WM_MOUSEMOVE;
    if (moves)
        queue->input.back() = input;
    else
        queue->input.push_back(input);
    WakeQueues();
}

bool MayBe(const Input& input, UINT first, UINT last)
{
    if (first == 0 && last == 0)
        return true;
    if (!IsMouse(input))
        return first <= WM_KEYLAST && last >= WM_KEYFIRST;
    return (first <= WM_MOUSELAST && last >= WM_MOUSEFIRST) ||
           (first <= WM_NCMBUTTONDBLCLK && last >= WM_NCMOUSEMOVE);
}

bool InputAt(Queue& queue, size_t index, Input& input)
{
    std::lock_guard lock(QueueLock());
    if (index >= queue.input.size())
        return false;
    input = queue.input[index];
    return true;
}

void RemoveInput(Queue& queue, size_t index)
{
    std::lock_guard lock(QueueLock());
    if (index < queue.input.size())
        queue.input.erase(queue.input.begin() + static_cast<std::ptrdiff_t>(index));
}

bool MakeKeyMessage(Queue& queue, const Input& input, MSG& message)
{
    const HWND target = queue.focus != nullptr ? queue.focus : queue.active;
    if (target == nullptr)
        return false;
    const bool up = input.message == WM_KEYUP;
    const bool alt = Down(queue.keys, VK_MENU) && !Down(queue.keys, VK_CONTROL);
    const bool system = alt || input.detail == VK_MENU || input.detail == VK_F10;
    constexpr UINT kToSystem = WM_SYSKEYDOWN - WM_KEYDOWN;
    LPARAM flags = 1 | (alt ? KF_ALTDOWN << 16 : 0);
    if (up)
        flags |= static_cast<LPARAM>(KF_UP | KF_REPEAT) << 16;
    const WPARAM key = input.detail | (static_cast<WPARAM>(input.character) << 16);
    message = {target, input.message + (system ? kToSystem : 0), key,
               flags,  static_cast<DWORD>(input.time),           input.point};
    return true;
}

/// Shows the system which window the mouse is over now, and tells the one that asked to be told.
void NoteMouseWindow(Queue& queue, HWND window)
{
    if (queue.mouseWindow == window)
        return;
    const HWND left = std::exchange(queue.mouseWindow, window);
    if (left != nullptr && left == queue.track.hwndTrack && (queue.track.dwFlags & TME_LEAVE) != 0) {
        queue.track = {};
        PostMessageW(left, WM_MOUSELEAVE, 0, 0);
    }
}

bool IsDoubleClick(Queue& queue, HWND target, const Input& input)
{
    const bool twice = queue.clickWindow == target && queue.clickMessage == input.message &&
                       input.time - queue.clickTime < kDoubleClickTime &&
                       std::abs(queue.clickPoint.x - input.point.x) < GetSystemMetrics(SM_CXDOUBLECLK) &&
                       std::abs(queue.clickPoint.y - input.point.y) < GetSystemMetrics(SM_CYDOUBLECLK);
    queue.clickWindow = twice ? nullptr : target; // a third press starts anew
    queue.clickMessage = input.message;
    queue.clickTime = input.time;
    queue.clickPoint = input.point;
    return twice;
}

void TellParentsOfPress(HWND target, const Input& input)
{
    for (HWND child = target;;) {
        const WindowPtr window = LookUp(child);
        if (window == nullptr || !IsChildStyle(*window) || (window->exStyle & WS_EX_NOPARENTNOTIFY) != 0)
            return;
        child = window->parent->handle;
        POINT point = input.point;
        ScreenToClient(child, &point);
        SendMessageW(child, WM_PARENTNOTIFY, input.message, MAKELPARAM(point.x, point.y));
    }
}

/// False when the press only was to activate, or could not.
bool ActivateByPress(Queue& queue, HWND target, const Input& input, LRESULT hit)
{
    const HWND top = GetAncestor(target, GA_ROOT);
    if (queue.active == top)
        return true;
    const LRESULT answer =
        SendMessageW(target, WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(top), MAKELPARAM(hit, input.message));
    if (answer == MA_ACTIVATE || answer == MA_ACTIVATEANDEAT || answer == 0)
        Activate(top, true);
    return answer != MA_ACTIVATEANDEAT && answer != MA_NOACTIVATEANDEAT;
}

LPARAM ClientPoint(HWND window, POINT point)
{
    ScreenToClient(window, &point);
    return MAKELPARAM(point.x, point.y);
}

LPARAM MousePlace(HWND target, UINT message, POINT point)
{
    const bool client = message >= WM_MOUSEFIRST && message <= WM_MOUSELAST && message != WM_MOUSEWHEEL;
    return client ? ClientPoint(target, point) : MAKELPARAM(point.x, point.y);
}

/// The window that mouse input goes to and the part of it that is hit.
HWND MouseTarget(Queue& queue, const Input& input, LRESULT& hit)
{
    hit = HTCLIENT;
    if (input.message == WM_MOUSEWHEEL)
        return queue.focus;
    if (queue.capture != nullptr)
        return queue.capture;
    const HWND target = WindowFromPoint(input.point);
    const WindowPtr window = LookUp(target);
    if (window == nullptr || window->queue.get() != &queue)
        return nullptr;
    if ((TopLevelOf(*window).style & WS_DISABLED) != 0)
        return nullptr;
    hit = SendMessageW(target, WM_NCHITTEST, 0, MAKELPARAM(input.point.x, input.point.y));
    return target;
}

bool MakeMouseMessage(Queue& queue, const Input& input, bool remove, MSG& message)
{
    LRESULT hit;
    const HWND target = MouseTarget(queue, input, hit);
    if (target == nullptr)
        return false;
    UINT number = input.message;
    const bool press = IsPress(number);
    if (remove) {
        NoteMouseWindow(queue, target);
        if (press && queue.capture == nullptr) {
            TellParentsOfPress(target, input);
            if (!ActivateByPress(queue, target, input, hit))
                return false;
        }
        if (queue.capture == nullptr && number != WM_MOUSEWHEEL)
            SendMessageW(target, WM_SETCURSOR, reinterpret_cast<WPARAM>(target), MAKELPARAM(hit, number));
        const WindowPtr window = LookUp(target);
        if (window == nullptr)
            return false;
        const bool twice = press && IsDoubleClick(queue, target, input);
        constexpr UINT kToDouble = WM_LBUTTONDBLCLK - WM_LBUTTONDOWN;
        if (twice && ((window->windowClass->style & CS_DBLCLKS) != 0 || hit != HTCLIENT))
            number += kToDouble;
    }
    WPARAM parameter = MouseKeys(queue);
    if (number == WM_MOUSEWHEEL) {
        parameter |= input.detail << 16;
    } else if (hit != HTCLIENT) {
        number -= WM_MOUSEMOVE - WM_NCMOUSEMOVE;
        parameter = static_cast<WPARAM>(hit);
    }
    message = {target,
               number,
               parameter,
               MousePlace(target, number, input.point),
               static_cast<DWORD>(input.time),
               input.point};
    return true;
}

bool MakeMessage(Queue& queue, const Input& input, bool remove, MSG& message)
{
    return IsMouse(input) ? MakeMouseMessage(queue, input, remove, message)
                          : MakeKeyMessage(queue, input, message);
}

char16_t CharacterOf(const Queue& queue, WPARAM key)
{
    if (LOWORD(key) == VK_PACKET)
        return static_cast<char16_t>(HIWORD(key));
    const bool shift = Down(queue.keys, VK_SHIFT);
    const bool control = Down(queue.keys, VK_CONTROL);
    if (key >= 'A' && key <= 'Z') {
        if (control)
            return static_cast<char16_t>(key - 'A' + 1);
        const bool capital = shift != ((queue.keys[VK_CAPITAL] & kToggled) != 0);
        return static_cast<char16_t>(capital ? key : key - 'A' + u'a');
    }
    if (key >= VK_NUMPAD0 && key <= VK_NUMPAD9)
        return static_cast<char16_t>(u'0' + key - VK_NUMPAD0);
    const auto* const found = std::find_if(std::begin(kKeys), std::end(kKeys),
                                           [=](const ShiftedKey& each) { return each.key == key; });
    return found != std::end(kKeys) ? (shift ? found->shifted : found->plain) : 0;
}

void TypeCharacter(char16_t character)
{
    const char16_t upper =
        character >= u'a' && character <= u'z' ? static_cast<char16_t>(character - 32) : character;
    WORD key = upper >= u'A' && upper <= u'Z' ? upper : 0;
    bool shift = key != 0 && character == upper;
    for (const ShiftedKey& each : kKeys) {
        if (key == 0 && (each.plain == character || each.shifted == character)) {
            key = each.key;
            shift = each.plain != character;
        }
    }
    if (key == 0) {
        for (const UINT message : {WM_KEYDOWN, WM_KEYUP})
            Inject({message, VK_PACKET, character, {}, 0});
        return;
    }
    if (shift)
        PressKeyDown(VK_SHIFT);
    PressKey(key);
    if (shift)
        ReleaseKey(VK_SHIFT);
}

} // namespace

bool TakeInput(Queue& queue, HWND window, UINT first, UINT last, bool remove, MSG& message)
{
    const bool anyMessage = first == 0 && last == 0;
    const auto isForOthers = [&](const Input& input) {
        if ((window == nullptr && anyMessage) || !MakeMessage(queue, input, false, message))
            return false;
        return (window != nullptr && message.hwnd != window && !IsChild(window, message.hwnd)) ||
               (!anyMessage && (message.message < first || message.message > last));
    };
    Input input;
    for (size_t index = 0; InputAt(queue, index, input);) {
        if (!MayBe(input, first, last) || isForOthers(input)) {
            ++index;
            continue;
        }
        if (!remove) {
            if (MakeMessage(queue, input, false, message))
                return true;
            ++index;
            continue;
        }
        RemoveInput(queue, index);
        NoteKeys(queue.keys, input);
        if (!MakeMessage(queue, input, true, message))
            continue;
        if (message.message == WM_KEYDOWN && message.wParam == VK_F1)
            PostMessageW(message.hwnd, kHelpKeyMessage, 0, 0);
        return true;
    }
    return false;
}

void MoveMouse(int x, int y)
{
    Inject({WM_MOUSEMOVE, 0, 0, {x, y}, 0});
}

void PressMouse(MouseButton button)
{
    constexpr UINT kMessages[] = {WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_MBUTTONDOWN};
    Inject({kMessages[static_cast<size_t>(button)], 0, 0, {}, 0});
}

void ReleaseMouse(MouseButton button)
{
    constexpr UINT kMessages[] = {WM_LBUTTONUP, WM_RBUTTONUP, WM_MBUTTONUP};
    Inject({kMessages[static_cast<size_t>(button)], 0, 0, {}, 0});
}

void TurnMouseWheel(int notches)
{
    Inject({WM_MOUSEWHEEL, static_cast<WORD>(notches * WHEEL_DELTA), 0, {}, 0});
}

void PressKeyDown(unsigned key)
{
    Inject({WM_KEYDOWN, key, 0, {}, 0});
}

void ReleaseKey(unsigned key)
{
    Inject({WM_KEYUP, key, 0, {}, 0});
}

void PressKey(unsigned key)
{
    PressKeyDown(key);
    ReleaseKey(key);
}

void TypeText(std::u16string_view text)
{
    for (const char16_t each : text)
        TypeCharacter(each == u'\n' ? u'\r' : each);
}

void CloseInput()
{
    std::lock_guard lock(inputLock);
    cursorPlace = {};
    keysNow = {};
    cursorHidden = 0;
}

} // namespace host

using namespace host;

BOOL WINAPI TranslateMessage(const MSG* message)
{
    HOST_CALL_VOID(TranslateMessage);
    if (message == nullptr || (message->message != WM_KEYDOWN && message->message != WM_SYSKEYDOWN))
        return message != nullptr && (message->message == WM_KEYUP || message->message == WM_SYSKEYUP);
    const char16_t character = CharacterOf(*CurrentQueue(), message->wParam);
    if (character != 0) {
        MSG posted = *message;
        posted.message = message->message == WM_KEYDOWN ? WM_CHAR : WM_SYSCHAR;
        posted.wParam = character;
        const std::shared_ptr<Queue> queue = CurrentQueue();
        std::lock_guard lock(QueueLock());
        queue->posted.push_front(posted); // it comes before whatever follows the key
    }
    return TRUE;
}

SHORT WINAPI GetKeyState(int key)
{
    HOST_CALL_VOID(GetKeyState);
    const BYTE state = CurrentQueue()->keys[static_cast<BYTE>(key)];
    return static_cast<SHORT>(((state & kDown) != 0 ? 0xFF80 : 0) | (state & kToggled));
}

SHORT WINAPI GetAsyncKeyState(int key)
{
    HOST_CALL_VOID(GetAsyncKeyState);
    std::lock_guard lock(inputLock);
    return static_cast<SHORT>(Down(keysNow, static_cast<BYTE>(key)) ? 0x8000 : 0);
}

BOOL WINAPI GetCursorPos(LPPOINT point)
{
    HOST_CALL(GetCursorPos, FALSE, ERROR_ACCESS_DENIED);
    std::lock_guard lock(inputLock);
    *point = cursorPlace;
    return TRUE;
}

BOOL WINAPI SetCursorPos(int x, int y)
{
    HOST_CALL(SetCursorPos, FALSE, ERROR_ACCESS_DENIED);
    MoveMouse(std::clamp(x, 0, kScreenWidth - 1), std::clamp(y, 0, kScreenHeight - 1));
    return TRUE;
}

BOOL WINAPI ClipCursor(const RECT*)
{
    HOST_CALL_VOID(ClipCursor);
    return TRUE;
}

UINT WINAPI GetDoubleClickTime(void)
{
    HOST_CALL_VOID(GetDoubleClickTime);
    return kDoubleClickTime;
}

HCURSOR WINAPI SetCursor(HCURSOR cursor)
{
    HOST_CALL_VOID(SetCursor);
    return std::exchange(CurrentQueue()->cursor, cursor);
}

HCURSOR WINAPI GetCursor(void)
{
    HOST_CALL_VOID(GetCursor);
    return CurrentQueue()->cursor;
}

int WINAPI ShowCursor(BOOL show)
{
    HOST_CALL_VOID(ShowCursor);
    std::lock_guard lock(inputLock);
    cursorHidden += show ? -1 : 1;
    return -cursorHidden;
}

BOOL WINAPI TrackMouseEvent(LPTRACKMOUSEEVENT request)
{
    HOST_CALL(TrackMouseEvent, FALSE, ERROR_INVALID_PARAMETER);
    if (request == nullptr || request->cbSize != sizeof *request)
        return FailWith(ERROR_INVALID_PARAMETER);
    const std::shared_ptr<Queue> queue = CurrentQueue();
    if ((request->dwFlags & TME_QUERY) != 0) {
        const DWORD size = request->cbSize;
        *request = queue->track;
        request->cbSize = size;
        return TRUE;
    }
    if (OwnWindowOf(request->hwndTrack) == nullptr)
        return FALSE;
    if ((request->dwFlags & TME_CANCEL) != 0) {
        queue->track = {};
        return TRUE;
    }
    queue->track = *request;
    if (queue->mouseWindow != request->hwndTrack && (request->dwFlags & TME_LEAVE) != 0) {
        queue->track = {};
        PostMessageW(request->hwndTrack, WM_MOUSELEAVE, 0, 0);
    }
    return TRUE;
}
