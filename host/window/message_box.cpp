// Message boxes: dialogs with an icon, a wrapped text and a row of buttons.
#include <algorithm>
#include <array>

#include "host/window/dialog.h"
#include "host/window/handles.h"

namespace host {
namespace {

// Pixels
constexpr int kMargin = 12;
constexpr int kIconSize = 32;
constexpr int kIconGap = 10;
constexpr int kWidestText = 420;
constexpr int kButtonWidth = 84;
constexpr int kButtonHeight = 26;
constexpr int kButtonGap = 7;
constexpr int kTextId = 0xFFFF;
constexpr int kIconId = 20;

struct ButtonText
{
    int id;
    const char16_t* english;
    const char16_t* japanese;
};

constexpr ButtonText kTexts[] = {
    {IDOK, u"OK", u"OK"},
    {IDCANCEL, u"Cancel", u"キャンセル"},
    {IDABORT, u"&Abort", u"中止(&A)"},
    {IDRETRY, u"&Retry", u"再試行(&R)"},
    {IDIGNORE, u"&Ignore", u"無視(&I)"},
    {IDYES, u"&Yes", u"はい(&Y)"},
    {IDNO, u"&No", u"いいえ(&N)"},
    {IDTRYAGAIN, u"&Try Again", u"再実行(&T)"},
    {IDCONTINUE, u"&Continue", u"続行(&C)"},
    {IDHELP, u"Help", u"ヘルプ"},
};

/// The buttons of each kind of box, by MB_TYPEMASK; 0 ends a row.
constexpr std::array<int, 4> kButtons[] = {
    {IDOK},        {IDOK, IDCANCEL},    {IDABORT, IDRETRY, IDIGNORE},       {IDYES, IDNO, IDCANCEL},
    {IDYES, IDNO}, {IDRETRY, IDCANCEL}, {IDCANCEL, IDTRYAGAIN, IDCONTINUE},
};

struct Box
{
    LPCWSTR text;
    UINT type;
    std::vector<int> buttons;
    HFONT font = nullptr;
    SIZE textSize = {};

    bool HasIcon() const { return (type & MB_ICONMASK) != 0; }
    int TextLeft() const { return kMargin + (HasIcon() ? kIconSize + kIconGap : 0); }
    int ContentHeight() const { return std::max<int>(textSize.cy, HasIcon() ? kIconSize : 0); }
    int RowWidth() const
    {
        return static_cast<int>(buttons.size()) * (kButtonWidth + kButtonGap) - kButtonGap;
    }
    SIZE ClientSize() const
    {
        const int width =
            std::max(TextLeft() + static_cast<int>(textSize.cx), kMargin + RowWidth()) + kMargin;
        return {width, 3 * kMargin + ContentHeight() + kButtonHeight};
    }
};

std::vector<int> ButtonsOf(UINT type)
{
    std::vector<int> buttons;
    for (const int id : kButtons[type & MB_TYPEMASK]) {
        if (id != 0)
            buttons.push_back(id);
    }
    if ((type & MB_HELP) != 0)
        buttons.push_back(IDHELP);
    return buttons;
}

LPCWSTR TextOfButton(int id)
{
    const bool japanese = PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_JAPANESE;
    const auto* const found = std::find_if(std::begin(kTexts), std::end(kTexts),
                                           [=](const ButtonText& each) { return each.id == id; });
    return japanese ? found->japanese : found->english;
}

LPCWSTR IconOf(UINT type)
{
    switch (type & MB_ICONMASK) {
    case MB_ICONHAND:
        return IDI_HAND;
    case MB_ICONQUESTION:
        return IDI_QUESTION;
    case MB_ICONEXCLAMATION:
        return IDI_EXCLAMATION;
    }
    return IDI_ASTERISK;
}

HFONT MessageFont()
{
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return CreateFontIndirectW(&metrics.lfMessageFont);
}

SIZE MeasureText(const Box& box)
{
    const HDC dc = GetDC(nullptr);
    const HGDIOBJ previous = SelectObject(dc, box.font);
    RECT rect = {0, 0, kWidestText, 0};
    DrawTextW(dc, box.text, -1, &rect, DT_CALCRECT | DT_WORDBREAK | DT_EXPANDTABS | DT_NOPREFIX);
    SelectObject(dc, previous);
    ReleaseDC(nullptr, dc);
    return SizeOf(rect);
}

HWND AddControl(HWND dialog, const Box& box, LPCWSTR className, LPCWSTR text, DWORD style, const RECT& place,
                int id)
{
    const SIZE size = SizeOf(place);
    const HWND control = CreateWindowExW(
        WS_EX_NOPARENTNOTIFY, className, text, style | WS_CHILD | WS_VISIBLE, place.left, place.top, size.cx,
        size.cy, dialog, reinterpret_cast<HMENU>(static_cast<intptr_t>(id)), nullptr, nullptr);
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(box.font), FALSE);
    return control;
}

void AddButtons(HWND dialog, const Box& box)
{
    const size_t chosen = (box.type & MB_DEFMASK) >> 8;
    const SIZE client = box.ClientSize();
    RECT place = {client.cx - kMargin - box.RowWidth(), client.cy - kMargin - kButtonHeight, 0, 0};
    place.right = place.left + kButtonWidth;
    place.bottom = place.top + kButtonHeight;
    for (size_t i = 0; i < box.buttons.size(); ++i) {
        const int id = box.buttons[i];
        const bool isDefault = i == std::min(chosen, box.buttons.size() - 1);
        const DWORD kind = isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
        const HWND button = AddControl(dialog, box, TEXT("Button"), TextOfButton(id),
                                       kind | WS_TABSTOP | (i == 0 ? WS_GROUP : 0), place, id);
        if (isDefault) {
            SendMessageW(dialog, DM_SETDEFID, static_cast<WPARAM>(id), 0);
            SetFocus(button);
        }
        OffsetRect(&place, kButtonWidth + kButtonGap, 0);
    }
}

BOOL Fill(HWND dialog, const Box& box)
{
    const SIZE client = box.ClientSize();
    RECT frame = {0, 0, client.cx, client.cy};
    AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongW(dialog, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongW(dialog, GWL_EXSTYLE)));
    const SIZE size = SizeOf(frame);
    SetWindowPos(dialog, nullptr, (kScreenWidth - size.cx) / 2, (kScreenHeight - size.cy) / 2, size.cx,
                 size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
    if (box.HasIcon()) {
        const HWND icon = AddControl(dialog, box, TEXT("Static"), TEXT(""), SS_ICON,
                                     {kMargin, kMargin, kMargin + kIconSize, kMargin + kIconSize}, kIconId);
        SendMessageW(icon, STM_SETICON, reinterpret_cast<WPARAM>(LoadIconW(nullptr, IconOf(box.type))), 0);
    }
    const int top = kMargin + (box.ContentHeight() - static_cast<int>(box.textSize.cy)) / 2;
    const int left = box.TextLeft();
    AddControl(dialog, box, TEXT("Static"), box.text, SS_LEFT | SS_NOPREFIX,
               {left, top, left + box.textSize.cx, top + box.textSize.cy}, kTextId);
    AddButtons(dialog, box);
    return FALSE; // the default button has the focus
}

BOOL Answer(HWND dialog, int id)
{
    const auto* const box = reinterpret_cast<const Box*>(GetWindowLongPtrW(dialog, DWLP_USER));
    const std::vector<int>& buttons = box->buttons;
    const auto has = [&](int each) {
        return std::find(buttons.begin(), buttons.end(), each) != buttons.end();
    };
    if (id == IDHELP) {
        SendMessageW(dialog, WM_HELP, 0, 0);
        return TRUE;
    }
    // Esc and the close button answer a box with nothing but OK, too.
    if (id == IDCANCEL && !has(IDCANCEL) && buttons.front() == IDOK)
        id = IDOK;
    if (has(id))
        EndDialog(dialog, id);
    return TRUE;
}

} // namespace

INT_PTR CALLBACK MessageBoxProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_INITDIALOG:
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        MessageBeep(reinterpret_cast<const Box*>(lParam)->type & MB_ICONMASK);
        return Fill(dialog, *reinterpret_cast<const Box*>(lParam));
    case WM_COMMAND:
        return Answer(dialog, LOWORD(wParam));
    }
    return FALSE;
}

} // namespace host

using namespace host;

int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type)
{
    HOST_CALL(MessageBoxW, 0, ERROR_NOT_ENOUGH_MEMORY);
    if ((type & MB_TYPEMASK) >= std::size(kButtons))
        return FailWith(ERROR_INVALID_PARAMETER);
    if (owner != nullptr && WindowOf(owner) == nullptr)
        return 0;
    Box box = {text != nullptr ? text : TEXT(""), type, ButtonsOf(type)};
    box.font = MessageFont();
    box.textSize = MeasureText(box);
    DialogTemplate frame;
    frame.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_ABSALIGN;
    frame.exStyle = (type & (MB_SYSTEMMODAL | MB_TOPMOST)) != 0 ? WS_EX_TOPMOST : 0;
    frame.title = caption != nullptr ? caption : TEXT("Error");
    const INT_PTR answer =
        RunDialog(frame, nullptr, owner, MessageBoxProcedure, reinterpret_cast<LPARAM>(&box));
    DeleteObject(box.font);
    return answer > 0 ? static_cast<int>(answer) : 0;
}
