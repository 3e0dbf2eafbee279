// The caret. It does not blink and is no part of a surface: pictures and displays draw it over the window.
#include "host/window/room.h"

using namespace host;

namespace {

/// The thread's caret when it belongs to that window (null: whichever).
Caret* CaretOf(HWND window)
{
    Caret& caret = CurrentQueue()->caret;
    return caret.window != nullptr && (window == nullptr || caret.window == window) ? &caret : nullptr;
}

} // namespace

BOOL WINAPI CreateCaret(HWND window, HBITMAP, int width, int height)
{
    HOST_CALL(CreateCaret, FALSE, ERROR_INVALID_WINDOW_HANDLE);
    if (OwnWindowOf(window) == nullptr)
        return FALSE;
    CurrentQueue()->caret = {window, {width > 0 ? width : 1, height > 0 ? height : 1}, {}, 1};
    return TRUE;
}

BOOL WINAPI DestroyCaret(void)
{
    HOST_CALL_VOID(DestroyCaret);
    if (CaretOf(nullptr) == nullptr)
        return FailWith(ERROR_ACCESS_DENIED);
    CurrentQueue()->caret = {};
    return TRUE;
}

BOOL WINAPI ShowCaret(HWND window)
{
    HOST_CALL_VOID(ShowCaret);
    Caret* const caret = CaretOf(window);
    if (caret == nullptr)
        return FailWith(ERROR_ACCESS_DENIED);
    caret->hidden = caret->hidden > 0 ? caret->hidden - 1 : 0;
    return TRUE;
}

BOOL WINAPI HideCaret(HWND window)
{
    HOST_CALL_VOID(HideCaret);
    Caret* const caret = CaretOf(window);
    if (caret == nullptr)
        return FailWith(ERROR_ACCESS_DENIED);
    ++caret->hidden;
    return TRUE;
}

BOOL WINAPI SetCaretPos(int x, int y)
{
    HOST_CALL_VOID(SetCaretPos);
    Caret* const caret = CaretOf(nullptr);
    if (caret == nullptr)
        return FailWith(ERROR_ACCESS_DENIED);
    caret->place = {x, y};
    return TRUE;
}

BOOL WINAPI GetCaretPos(LPPOINT point)
{
    HOST_CALL_VOID(GetCaretPos);
    if (point == nullptr)
        return FailWith(ERROR_INVALID_PARAMETER);
    *point = CurrentQueue()->caret.place;
    return TRUE;
}

UINT WINAPI GetCaretBlinkTime(void)
{
    HOST_CALL_VOID(GetCaretBlinkTime);
    constexpr UINT kNever = 0xFFFFFFFF;
    return kNever;
}
