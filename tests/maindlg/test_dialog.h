#pragma once
// A dialog of the language module that does nothing by itself, in an invisible window of the test's own.
#include <string>

#include <gtest/gtest.h>
#include <windows.h>

#include "psui/base/module.h"

namespace test {

/// Where a control lies in the client area of its dialog.
inline RECT PlaceOf(HWND dialog, int control)
{
    RECT place = {};
    GetWindowRect(GetDlgItem(dialog, control), &place);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

inline SIZE SizeOf(const RECT& place)
{
    return {place.right - place.left, place.bottom - place.top};
}

inline bool IsShown(HWND dialog, int control)
{
    return (GetWindowLongPtrW(GetDlgItem(dialog, control), GWL_STYLE) & WS_VISIBLE) != 0;
}

class TestDialog
{
public:
    explicit TestDialog(WORD templateId)
        : parent_(CreateWindowExW(0, TEXT("STATIC"), TEXT("Sheet"), WS_POPUP, 0, 0, 800, 600, nullptr,
                                  nullptr, nullptr, nullptr)),
          dialog_(CreateDialogParamW(psui::hLangModule, MAKEINTRESOURCEW(templateId), parent_, Ignore, 0))
    {
        EXPECT_NE(dialog_, nullptr) << GetLastError();
    }
    ~TestDialog()
    {
        DestroyWindow(dialog_);
        DestroyWindow(parent_);
    }
    TestDialog(const TestDialog&) = delete;
    TestDialog& operator=(const TestDialog&) = delete;

    operator HWND() const { return dialog_; }
    HWND Item(int control) const { return GetDlgItem(dialog_, control); }
    LRESULT Send(int control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return SendDlgItemMessageW(dialog_, control, message, wParam, lParam);
    }
    std::u16string Text(int control) const
    {
        WCHAR text[512] = {};
        GetDlgItemTextW(dialog_, control, text, 512);
        return text;
    }

private:
    static INT_PTR CALLBACK Ignore(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

    HWND parent_;
    HWND dialog_;
};

} // namespace test
