#pragma once
// Instance records of our own window classes, kept in the windows' extra bytes.
#include <windows.h>

#include "psui/base/memory.h"

namespace psui {

/// The record of a window; null before its creation and after its end.
template <typename Record>
Record* RecordOf(HWND window)
{
    return reinterpret_cast<Record*>(GetWindowLongPtrW(window, 0));
}

/// Answers WM_NCCREATE with a zeroed record; without memory the window is not made.
template <typename Record>
LRESULT CreateRecord(HWND window, WPARAM wParam, LPARAM lParam)
{
    HeapPtr<Record> record = AllocateZeroed<Record>();
    if (!record)
        return FALSE;
    SetWindowLongPtrW(window, 0, reinterpret_cast<LONG_PTR>(record.release()));
    return DefWindowProcW(window, WM_NCCREATE, wParam, lParam);
}

/// Frees the record at WM_NCDESTROY.
template <typename Record>
void FreeRecord(HWND window)
{
    const HeapPtr<Record> record(RecordOf<Record>(window));
    SetWindowLongPtrW(window, 0, 0);
}

} // namespace psui
