// The controls of a dialog by their ids.
#include <string>

#include "host/window/room.h"

using namespace host;

HWND WINAPI GetDlgItem(HWND dialog, int id)
{
    HOST_CALL(GetDlgItem, nullptr, ERROR_CONTROL_ID_NOT_FOUND);
    const WindowPtr window = WindowOf(dialog);
    if (window == nullptr)
        return nullptr;
    {
        std::lock_guard lock(WindowLock());
        for (const Window* child : window->children) {
            if (static_cast<int>(child->id) == id)
                return child->handle;
        }
    }
    SetLastError(ERROR_CONTROL_ID_NOT_FOUND);
    return nullptr;
}

int WINAPI GetDlgCtrlID(HWND window)
{
    HOST_CALL_VOID(GetDlgCtrlID);
    const WindowPtr found = WindowOf(window);
    return found != nullptr ? static_cast<int>(found->id) : 0;
}

LRESULT WINAPI SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam)
{
    HOST_CALL_VOID(SendDlgItemMessageW);
    const HWND control = GetDlgItem(dialog, id);
    return control != nullptr ? SendMessageW(control, message, wParam, lParam) : 0;
}

BOOL WINAPI SetDlgItemTextW(HWND dialog, int id, LPCWSTR text)
{
    HOST_CALL(SetDlgItemTextW, FALSE, ERROR_CONTROL_ID_NOT_FOUND);
    const HWND control = GetDlgItem(dialog, id);
    return control != nullptr && SetWindowTextW(control, text);
}

UINT WINAPI GetDlgItemTextW(HWND dialog, int id, LPWSTR text, int size)
{
    HOST_CALL(GetDlgItemTextW, 0, ERROR_CONTROL_ID_NOT_FOUND);
    if (text != nullptr && size > 0)
        *text = 0;
    const HWND control = GetDlgItem(dialog, id);
    return control != nullptr ? static_cast<UINT>(GetWindowTextW(control, text, size)) : 0;
}

BOOL WINAPI SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned)
{
    HOST_CALL(SetDlgItemInt, FALSE, ERROR_CONTROL_ID_NOT_FOUND);
    const std::string digits = isSigned ? std::to_string(static_cast<int>(value)) : std::to_string(value);
    return SetDlgItemTextW(dialog, id, Utf16(digits).c_str());
}

UINT WINAPI GetDlgItemInt(HWND dialog, int id, BOOL* translated, BOOL isSigned)
{
    HOST_CALL_VOID(GetDlgItemInt);
    constexpr int kLongest = 30;
    WCHAR text[kLongest];
    if (translated != nullptr)
        *translated = FALSE;
    if (GetDlgItemTextW(dialog, id, text, kLongest) == 0)
        return 0;
    const WCHAR* digit = text;
    while (*digit == u' ')
        ++digit;
    const bool negative = isSigned && *digit == u'-';
    digit += negative ? 1 : 0;
    const int64_t limit = isSigned ? (negative ? int64_t{INT32_MAX} + 1 : INT32_MAX) : int64_t{UINT32_MAX};
    int64_t value = 0;
    const WCHAR* const first = digit;
    for (; *digit >= u'0' && *digit <= u'9'; ++digit) {
        value = value * 10 + (*digit - u'0');
        if (value > limit)
            return 0;
    }
    if (digit == first) // what follows the digits is not looked at
        return 0;
    if (translated != nullptr)
        *translated = TRUE;
    return static_cast<UINT>(negative ? -value : value);
}

BOOL WINAPI CheckDlgButton(HWND dialog, int id, UINT check)
{
    HOST_CALL(CheckDlgButton, FALSE, ERROR_CONTROL_ID_NOT_FOUND);
    const HWND control = GetDlgItem(dialog, id);
    if (control == nullptr)
        return FALSE;
    SendMessageW(control, BM_SETCHECK, check, 0);
    return TRUE;
}

BOOL WINAPI CheckRadioButton(HWND dialog, int first, int last, int check)
{
    HOST_CALL(CheckRadioButton, FALSE, ERROR_CONTROL_ID_NOT_FOUND);
    const WindowPtr window = WindowOf(dialog);
    if (window == nullptr)
        return FALSE;
    if (first > last)
        std::swap(first, last);
    for (const HWND child : ChildrenOf(*window)) {
        const int id = GetDlgCtrlID(child);
        if (id >= first && id <= last)
            SendMessageW(child, BM_SETCHECK, id == check ? BST_CHECKED : BST_UNCHECKED, 0);
    }
    return TRUE;
}

UINT WINAPI IsDlgButtonChecked(HWND dialog, int id)
{
    HOST_CALL_VOID(IsDlgButtonChecked);
    return static_cast<UINT>(SendDlgItemMessageW(dialog, id, BM_GETCHECK, 0, 0));
}
