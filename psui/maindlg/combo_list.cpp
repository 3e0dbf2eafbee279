#include "psui/maindlg/combo_list.h"

#include <iterator>

#include "psui/base/module.h"

namespace psui {

bool SelectByItemData(HWND dialog, int control, LPARAM value, bool fromEnd)
{
    const HWND combo = GetDlgItem(dialog, control);
    const int count = static_cast<int>(SendMessageW(combo, CB_GETCOUNT, 0, 0));
    for (int step = 0; step < count; ++step) {
        const int entry = fromEnd ? count - 1 - step : step;
        if (SendMessageW(combo, CB_GETITEMDATA, entry, 0) == value) {
            SendMessageW(combo, CB_SETCURSEL, entry, 0);
            return true;
        }
    }
    SendMessageW(combo, CB_SETCURSEL, 0, 0);
    return false;
}

ComboFiller::ComboFiller(HWND dialog, int control) : combo_(GetDlgItem(dialog, control))
{
    if (!combo_)
        return;
    SendMessageW(combo_, WM_SETREDRAW, FALSE, 0);
    SendMessageW(combo_, CB_RESETCONTENT, 0, 0);
}

ComboFiller::~ComboFiller()
{
    if (!combo_)
        return;
    SendMessageW(combo_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(combo_, nullptr, TRUE);
}

void ComboFiller::Add(const WCHAR* text, LPARAM value)
{
    if (!combo_)
        return;
    const LRESULT entry = SendMessageW(combo_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    if (entry >= 0)
        SendMessageW(combo_, CB_SETITEMDATA, entry, value);
}

void ComboFiller::AddString(HMODULE module, UINT id, LPARAM value)
{
    WCHAR text[kEntryUnits];
    LoadModuleString(module, id, text, std::size(text));
    Add(text, value);
}

void ComboFiller::AddStringIfAny(HMODULE module, UINT id, LPARAM value)
{
    WCHAR text[kEntryUnits];
    if (LoadModuleString(module, id, text, std::size(text)) > 0)
        Add(text, value);
}

int DroppedHeight(HWND combo, int items, int extra)
{
    const LRESULT item = SendMessageW(combo, CB_GETITEMHEIGHT, 0, 0);
    const LRESULT field = SendMessageW(combo, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0);
    return static_cast<int>(items * item + field) + extra;
}

void SetDroppedHeight(HWND combo, int height)
{
    RECT box = {};
    if (GetWindowRect(combo, &box))
        SetWindowPos(combo, nullptr, 0, 0, box.right - box.left, height,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace psui
