// Help: topics in the help file's window, and the help of single controls in a small window at the pointer.
#include "psui/maindlg/help.h"

#include <algorithm>

#include <htmlhelp.h>
#include <objbase.h>

#include "lang/ids/dialogs.h"
#include "lang/ids/strings.h"
#include "psui/base/label.h"
#include "psui/base/module.h"
#include "psui/dialogs/help_topics.h"
#include "psui/dialogs/html_help.h"

namespace psui {

namespace {

constexpr int kFileUnits = 512; // of the help file's path with a window's name
constexpr int kMenuTextUnits = 64;
constexpr int kDesktopShare = 3; // the small window takes a third of the desktop each way
constexpr int kDesktopMargin = 5;
constexpr WCHAR kMenuName[] = TEXT("MYPOPUP");
constexpr WCHAR kSmallWindow[] = TEXT(">sub");

// The help file with the small window's name behind it.
struct SmallFile
{
    explicit SmallFile(const WCHAR* file)
    {
        Append(cursor, file);
        Append(cursor, kSmallWindow);
    }

    WCHAR name[kFileUnits] = {};
    TextCursor cursor{name, kFileUnits};
};

DWORD_PTR DataOf(const WCHAR* page)
{
    return reinterpret_cast<DWORD_PTR>(page);
}

// The text of the shortcut menu's only item: no mnemonic there.
void MenuText(const PrinterUiContext* context, WCHAR (&text)[kMenuTextUnits])
{
    LoadModuleString(context->hPageRes, IDS_WHATS_THIS, text, kMenuTextUnits);
    if (WCHAR* const bracket = std::find(text, text + lstrlenW(text), TEXT('(')); *bracket)
        *bracket = 0;
    else if (WCHAR* const mark = std::find(text, text + lstrlenW(text), TEXT('&')); *mark)
        std::copy(mark + 1, text + lstrlenW(text) + 1, mark);
}

bool AskByMenu(HWND dialog, const PrinterUiContext* context, POINT pointer)
{
    const HMENU menu = LoadMenuW(context->hPageRes, kMenuName);
    const HMENU popup = menu ? GetSubMenu(menu, 0) : nullptr;
    bool chosen = false;
    if (popup) {
        WCHAR text[kMenuTextUnits];
        MenuText(context, text);
        ModifyMenuW(popup, IDM_WHATS_THIS, MF_BYCOMMAND | MF_STRING, IDM_WHATS_THIS, text);
        chosen = TrackPopupMenu(popup, TPM_RETURNCMD | TPM_LEFTALIGN | TPM_RIGHTBUTTON, pointer.x, pointer.y,
                                0, dialog, nullptr) != 0;
    }
    if (menu)
        DestroyMenu(menu);
    return chosen;
}

// The first control with help that lies under the pointer; 0 for none.
int ControlAt(HWND dialog, POINT pointer)
{
    for (const ControlTopic& each : ControlTopics()) {
        const HWND window = GetDlgItem(dialog, each.control);
        RECT box;
        if (window && IsWindowVisible(window) && GetWindowRect(window, &box) && PtInRect(&box, pointer))
            return each.control;
    }
    return 0;
}

void PlaceSmallWindow(const SmallFile& file, POINT pointer)
{
    HH_WINTYPE* type = nullptr;
    CallHtmlHelp(nullptr, file.name, HH_GET_WIN_TYPE, reinterpret_cast<DWORD_PTR>(&type));
    if (type)
        type->rcWindowPos =
            SmallHelpPlace(pointer, {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)});
}

} // namespace

RECT SmallHelpPlace(POINT pointer, SIZE desktop)
{
    const LONG width = desktop.cx / kDesktopShare;
    const LONG height = desktop.cy / kDesktopShare;
    LONG left = pointer.x - width / 2;
    LONG top = pointer.y;
    left = std::min(left, desktop.cx - width - kDesktopMargin);
    top = std::min(top, desktop.cy - height - kDesktopMargin);
    if (left < 0)
        left = kDesktopMargin;
    return {left, top, left + width, top + height};
}

HWND ShowHelpTopic(const PrinterUiContext* context, DWORD topic)
{
    const ComSession com;
    if (!com || !context->pHelpFile)
        return nullptr;
    return CallHtmlHelp(GetFocus(), context->pHelpFile, HH_DISPLAY_TOPIC, DataOf(HelpPage(topic)));
}

HWND ShowContextHelp(HWND dialog, const PrinterUiContext* context, int control)
{
    POINT pointer;
    if (!context->pHelpFile || !GetCursorPos(&pointer))
        return nullptr;
    const DWORD topic = TopicOfControl(control ? control : ControlAt(dialog, pointer));
    if (!topic || (!control && !AskByMenu(dialog, context, pointer)))
        return nullptr;
    const ComSession com;
    if (!com)
        return nullptr;
    const SmallFile file(context->pHelpFile);
    PlaceSmallWindow(file, pointer);
    return CallHtmlHelp(GetDesktopWindow(), file.name, HH_DISPLAY_TOPIC, DataOf(HelpPage(topic)));
}

void CloseHelp(PrinterUiContext* context)
{
    const auto isOpen = [](HWND window) { return window && IsWindow(window); };
    if (isOpen(context->hHelpWindow) || isOpen(context->hContextHelpWindow)) {
        if (const ComSession com; com)
            CallHtmlHelp(nullptr, nullptr, HH_CLOSE_ALL, 0);
    }
    context->hHelpWindow = nullptr;
    context->hContextHelpWindow = nullptr;
}

} // namespace psui
