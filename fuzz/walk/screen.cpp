#include "fuzz/walk/screen.h"

#include <algorithm>
#include <iterator>

#include <commctrl.h>

namespace walk {
namespace {

constexpr int kLongestText = 1024;
constexpr WCHAR kDialogClass[] = TEXT("#32770");
constexpr int kMessageTextId = 0xFFFF;

std::string Narrow(const WCHAR* text)
{
    char bytes[kLongestText * 3] = {};
    WideCharToMultiByte(CP_UTF8, 0, text, -1, bytes, sizeof(bytes), nullptr, nullptr);
    return bytes;
}

struct Search
{
    bool (*wanted)(HWND window);
    HWND found;
};

BOOL CALLBACK TakeWanted(HWND window, LPARAM param)
{
    auto& search = *reinterpret_cast<Search*>(param);
    if (!IsWindowVisible(window) || !search.wanted(window))
        return TRUE;
    search.found = window;
    return FALSE;
}

HWND FirstTopWindow(bool (*wanted)(HWND))
{
    Search search = {wanted, nullptr};
    EnumThreadWindows(GetCurrentThreadId(), TakeWanted, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

BOOL CALLBACK TakeDialog(HWND window, LPARAM dialogs)
{
    const bool captioned = (GetWindowLongPtrW(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
    if (captioned && IsWindowVisible(window) && IsOfClass(window, kDialogClass))
        reinterpret_cast<std::vector<HWND>*>(dialogs)->push_back(window);
    return TRUE;
}

bool IsPopup(HWND window)
{
    return IsOfClass(window, TEXT("ComboLBox")) || IsOfClass(window, TEXT("#32768"));
}

bool IsUsableDialog(HWND window)
{
    return IsOfClass(window, kDialogClass) && IsWindowVisible(window) && IsWindowEnabled(window);
}

void AddInside(HWND window, bool visibleOnly, std::vector<HWND>& all)
{
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (visibleOnly && !IsWindowVisible(child))
            continue;
        all.push_back(child);
        AddInside(child, visibleOnly, all);
    }
}

std::string Entries(HWND combo)
{
    std::string entries;
    const LRESULT count = SendMessageW(combo, CB_GETCOUNT, 0, 0);
    const bool texts =
        !(GetWindowLongPtrW(combo, GWL_STYLE) & (CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE)) ||
        (GetWindowLongPtrW(combo, GWL_STYLE) & CBS_HASSTRINGS);
    for (LRESULT entry = 0; entry < count; ++entry) {
        WCHAR text[kLongestText] = {};
        if (texts)
            SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(entry), reinterpret_cast<LPARAM>(text));
        entries += entry == SendMessageW(combo, CB_GETCURSEL, 0, 0) ? " >" : " ";
        entries += std::to_string(SendMessageW(combo, CB_GETITEMDATA, static_cast<WPARAM>(entry), 0)) + "=" +
                   Narrow(text);
    }
    return entries;
}

std::string ContentsOf(HWND control)
{
    if (IsOfClass(control, TEXT("ComboBox")))
        return Entries(control);
    if (IsOfClass(control, UPDOWN_CLASSW))
        return " " + std::to_string(SendMessageW(control, UDM_GETPOS32, 0, 0));
    if (IsOfClass(control, WC_TABCONTROLW))
        return " tab " + std::to_string(SendMessageW(control, TCM_GETCURSEL, 0, 0));
    const bool button = IsOfClass(control, TEXT("Button"));
    return (button && SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED ? " checked " : " ") +
           TextOf(control);
}

std::string LookOf(HWND control)
{
    if (!IsWindowVisible(control))
        return " hidden";
    return (IsWindowEnabled(control) ? "" : " disabled") + ContentsOf(control);
}

} // namespace

bool IsOfClass(HWND window, const WCHAR* name)
{
    WCHAR found[64] = {};
    GetClassNameW(window, found, static_cast<int>(std::size(found)));
    return lstrcmpiW(found, name) == 0;
}

std::string TextOf(HWND window)
{
    WCHAR text[kLongestText] = {};
    GetWindowTextW(window, text, kLongestText);
    return Narrow(text);
}

std::string NameOf(HWND window)
{
    WCHAR name[64] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    const bool top = !GetParent(window) || !(GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD);
    return top ? Narrow(name) + " \"" + TextOf(window) + "\""
               : std::to_string(GetDlgCtrlID(window)) + " " + Narrow(name);
}

HWND OpenPopup()
{
    return FirstTopWindow(IsPopup);
}

HWND FrontDialog()
{
    const HWND active = GetActiveWindow();
    return active && IsUsableDialog(active) ? active : FirstTopWindow(IsUsableDialog);
}

std::vector<HWND> VisibleInside(HWND window)
{
    std::vector<HWND> all;
    AddInside(window, true, all);
    return all;
}

bool IsMessageBox(HWND dialog)
{
    return IsOfClass(dialog, kDialogClass) && GetDlgItem(dialog, kMessageTextId) &&
           !GetWindow(GetWindow(dialog, GW_CHILD), GW_CHILD);
}

std::string MessageOf(HWND messageBox)
{
    return TextOf(GetDlgItem(messageBox, kMessageTextId));
}

std::vector<HWND> OpenDialogs()
{
    std::vector<HWND> dialogs;
    EnumThreadWindows(GetCurrentThreadId(), TakeDialog, reinterpret_cast<LPARAM>(&dialogs));
    return dialogs;
}

std::vector<std::string> Picture(HWND dialog, const std::vector<HWND>& without)
{
    std::vector<HWND> controls;
    AddInside(dialog, false, controls);
    std::vector<std::string> lines;
    for (const HWND control : controls)
        if (std::find(without.begin(), without.end(), control) == without.end())
            lines.push_back(NameOf(control) + LookOf(control));
    return lines;
}

std::string PictureChanges(const std::vector<std::string>& before, const std::vector<std::string>& after)
{
    if (before.size() != after.size())
        return "there are " + std::to_string(after.size()) + " controls instead of " +
               std::to_string(before.size()) + "; ";
    std::string changes;
    for (size_t i = 0; i < before.size(); ++i)
        if (before[i] != after[i])
            changes += "shown before: " + before[i] + "\n  now: " + after[i] + "\n";
    return changes;
}

} // namespace walk
