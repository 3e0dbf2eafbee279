#include "tools/psuictl/dialog_window.h"

#include <algorithm>
#include <iterator>

#include <commctrl.h>

namespace psuictl {
namespace {

constexpr int kClassNameUnits = 64;
constexpr int kMaxItemUnits = 1024;
constexpr int kTestUnits = 1000; // a long stretch of dialog units, so that rounding does not show

WideString ClassOf(HWND window)
{
    WCHAR name[kClassNameUnits];
    return WideString(name, static_cast<size_t>(GetClassNameW(window, name, kClassNameUnits)));
}

bool IsUsable(HWND window)
{
    return IsWindowVisible(window) && IsWindowEnabled(window);
}

BOOL CALLBACK TakeUsable(HWND window, LPARAM found)
{
    if (!IsUsable(window))
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

HWND FindBelow(HWND parent, int64_t id, bool visibleOnly)
{
    for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (GetDlgCtrlID(child) == id && (!visibleOnly || IsWindowVisible(child)))
            return child;
        if (const HWND found = FindBelow(child, id, visibleOnly))
            return found;
    }
    return nullptr;
}

WideString RawText(HWND window)
{
    WideString text(static_cast<size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, 0);
    text.resize(static_cast<size_t>(
        SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

std::string SingleLineFeeds(WideString text)
{
    text.erase(std::remove(text.begin(), text.end(), WCHAR{'\r'}), text.end());
    return Utf8(text);
}

/// The messages of list boxes and combo boxes, which differ in their numbers only.
struct ListClass
{
    const WCHAR* name;
    UINT count, selected, select, textLength, text, data;
    WORD changed; ///< notification
    LONG_PTR ownerDrawn, hasStrings;
};

constexpr ListClass kListClasses[] = {
    {TEXT("ListBox"), LB_GETCOUNT, LB_GETCURSEL, LB_SETCURSEL, LB_GETTEXTLEN, LB_GETTEXT, LB_GETITEMDATA,
     LBN_SELCHANGE, LBS_OWNERDRAWFIXED | LBS_OWNERDRAWVARIABLE, LBS_HASSTRINGS},
    {TEXT("ComboBox"), CB_GETCOUNT, CB_GETCURSEL, CB_SETCURSEL, CB_GETLBTEXTLEN, CB_GETLBTEXT, CB_GETITEMDATA,
     CBN_SELCHANGE, CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE, CBS_HASSTRINGS},
};

const ListClass* ListClassOf(HWND window)
{
    const WideString name = ClassOf(window);
    for (const ListClass& each : kListClasses) {
        if (lstrcmpiW(each.name, name.c_str()) == 0)
            return &each;
    }
    return nullptr;
}

bool IsTabControl(HWND window)
{
    return lstrcmpiW(ClassOf(window).c_str(), WC_TABCONTROLW) == 0;
}

bool HoldsTexts(HWND window, const ListClass& list)
{
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
    return !(style & list.ownerDrawn) || (style & list.hasStrings);
}

std::string ItemText(HWND window, const ListClass& list, WPARAM index)
{
    const LRESULT length = SendMessageW(window, list.textLength, index, 0);
    if (length <= 0)
        return "";
    WideString text(static_cast<size_t>(length) + 1, 0);
    text.resize(static_cast<size_t>(
        std::max<LRESULT>(SendMessageW(window, list.text, index, reinterpret_cast<LPARAM>(text.data())), 0)));
    return SingleLineFeeds(text);
}

ListContents ReadTabs(HWND window)
{
    ListContents contents;
    const int count = TabCtrl_GetItemCount(window);
    for (int index = 0; index < count; ++index) {
        WCHAR text[kMaxItemUnits] = {};
        TCITEMW item = {};
        item.mask = TCIF_TEXT | TCIF_PARAM;
        item.pszText = text;
        item.cchTextMax = kMaxItemUnits;
        SendMessageW(window, TCM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
        contents.texts.push_back(Utf8(item.pszText));
        contents.data.push_back(item.lParam);
    }
    contents.selected = TabCtrl_GetCurSel(window);
    return contents;
}

void Tell(HWND window, WORD notification)
{
    PostMessageW(GetParent(window), WM_COMMAND,
                 static_cast<WPARAM>(MAKELONG(GetDlgCtrlID(window), notification)),
                 reinterpret_cast<LPARAM>(window));
}

/// A click on the label, as the control tells its parent of no other change.
void ClickTab(HWND window, int index)
{
    RECT label = {};
    SendMessageW(window, TCM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&label));
    PostClick(window, {(label.left + label.right) / 2, (label.top + label.bottom) / 2}, false);
}

} // namespace

HWND TopDialog()
{
    const HWND active = GetActiveWindow();
    if (active && IsUsable(active))
        return active;
    HWND found = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), TakeUsable, reinterpret_cast<LPARAM>(&found));
    return found;
}

HWND FindControl(HWND dialog, int64_t id)
{
    const HWND visible = FindBelow(dialog, id, true);
    return visible ? visible : FindBelow(dialog, id, false);
}

std::string WindowText(HWND window)
{
    return SingleLineFeeds(RawText(window));
}

std::string MessageText(HWND dialog)
{
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (lstrcmpiW(ClassOf(child).c_str(), TEXT("Static")) != 0)
            continue;
        if (std::string text = WindowText(child); !text.empty())
            return text;
    }
    return "";
}

HICON MessageIcon(HWND dialog)
{
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (lstrcmpiW(ClassOf(child).c_str(), TEXT("Static")) == 0 && IsWindowVisible(child) &&
            (GetWindowLongPtrW(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON)
            return reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0));
    }
    return nullptr;
}

std::optional<ListContents> ReadList(HWND window)
{
    if (IsTabControl(window))
        return ReadTabs(window);
    const ListClass* const list = ListClassOf(window);
    if (!list)
        return std::nullopt;
    ListContents contents;
    const bool texts = HoldsTexts(window, *list);
    const auto count = static_cast<WPARAM>(std::max<LRESULT>(SendMessageW(window, list->count, 0, 0), 0));
    for (WPARAM index = 0; index < count; ++index) {
        contents.texts.push_back(texts ? ItemText(window, *list, index) : "");
        contents.data.push_back(SendMessageW(window, list->data, index, 0));
    }
    contents.selected = static_cast<int>(SendMessageW(window, list->selected, 0, 0));
    return contents;
}

bool SelectEntry(HWND window, int index)
{
    const std::optional<ListContents> contents = ReadList(window);
    if (!contents || index < 0 || static_cast<size_t>(index) >= contents->texts.size())
        return false;
    if (IsTabControl(window)) {
        ClickTab(window, index);
        return true;
    }
    const ListClass& list = *ListClassOf(window);
    SetFocus(window);
    SendMessageW(window, list.select, static_cast<WPARAM>(index), 0);
    Tell(window, list.changed);
    return true;
}

POINT CentreOf(HWND window)
{
    RECT client = {};
    GetClientRect(window, &client);
    return {client.right / 2, client.bottom / 2};
}

void PostMouse(HWND window, UINT message, WPARAM buttons, POINT place)
{
    POINT screen = place;
    ClientToScreen(window, &screen);
    SetCursorPos(screen.x, screen.y);
    PostMessageW(window, message, buttons, MAKELONG(place.x, place.y));
}

void PostClick(HWND window, POINT place, bool twice)
{
    PostMouse(window, WM_LBUTTONDOWN, MK_LBUTTON, place);
    PostMouse(window, WM_LBUTTONUP, 0, place);
    if (!twice)
        return;
    PostMouse(window, WM_LBUTTONDBLCLK, MK_LBUTTON, place);
    PostMouse(window, WM_LBUTTONUP, 0, place);
}

std::optional<int> FirstTabStop(HWND edit)
{
    const WideString text = RawText(edit);
    const size_t tab = text.find(WCHAR{'\t'});
    if (tab == WideString::npos)
        return std::nullopt;
    const size_t line = text.rfind(WCHAR{'\n'}, tab) + 1; // 0 where there is none
    const auto columnOf = [=](size_t unit) {
        return static_cast<SHORT>(LOWORD(SendMessageW(edit, EM_POSFROMCHAR, unit, 0)));
    };
    RECT measure = {0, 0, kTestUnits, 0};
    MapDialogRect(GetParent(edit), &measure);
    const int pixels = columnOf(tab + 1) - columnOf(line);
    return (pixels * kTestUnits + measure.right / 2) / std::max<LONG>(measure.right, 1);
}

} // namespace psuictl
