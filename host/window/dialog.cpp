// Dialogs: made from templates, run modally, and what they do with messages that their procedures leave.
#include <algorithm>
#include <utility>

#include "host/gdi/surface.h"
#include "host/window/classes.h"
#include "host/window/dialog.h"
#include "host/window/dialog_template.h"
#include "host/window/handles.h"

namespace host {
namespace {

const LPCWSTR kDialogClass = MAKEINTATOM(0x8002);
constexpr int kUnitsAcross = 4; // dialog units in a base unit
constexpr int kUnitsDown = 8;
constexpr short kDefaultPlace = static_cast<short>(0x8000);
constexpr int kDefaultDistance = 40; // pixels from the screen's corner

struct Creation
{
    HINSTANCE instance;
    HWND owner; // or the parent of a child dialog
    DLGPROC procedure;
    LPARAM parameter;
    bool modal;
    bool stopsOwner = false;
};

int Scaled(int units, LONG base, int unitsOfBase)
{
    return MulDiv(units, base, unitsOfBase);
}

HFONT MakeFont(const DialogTemplate& from)
{
    if (from.points == 0)
        return nullptr;
    constexpr int kPointsAnInch = 72;
    LOGFONTW font = {};
    font.lfHeight = -MulDiv(from.points, DotsPerInch(), kPointsAnInch);
    font.lfWeight = from.weight;
    font.lfItalic = from.italic;
    font.lfCharSet = from.charset;
    lstrcpynW(font.lfFaceName, from.face.c_str(), LF_FACESIZE);
    return CreateFontIndirectW(&font);
}

/// Pixel size of a dialog base unit: the average width of the Latin letters, and the height of a line.
SIZE BaseUnits(HFONT font)
{
    constexpr std::u16string_view kLetters = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    const HDC dc = GetDC(nullptr);
    const HGDIOBJ previous = SelectObject(dc, font != nullptr ? font : GetStockObject(SYSTEM_FONT));
    SIZE all = {};
    TEXTMETRICW metrics = {};
    GetTextExtentPoint32W(dc, kLetters.data(), static_cast<int>(kLetters.size()), &all);
    GetTextMetricsW(dc, &metrics);
    SelectObject(dc, previous);
    ReleaseDC(nullptr, dc);
    return {(all.cx / 26 + 1) / 2, metrics.tmHeight};
}

/// Moves a rectangle into the work area, its top-left corner at last.
void KeepOnScreen(RECT& rect)
{
    const int left = std::max<int>(0, std::min<int>(rect.left, kScreenWidth - (rect.right - rect.left)));
    const int top = std::max<int>(0, std::min<int>(rect.top, kScreenHeight - (rect.bottom - rect.top)));
    OffsetRect(&rect, left - rect.left, top - rect.top);
}

RECT PlaceOf(const DialogTemplate& from, SIZE base, DWORD style, DWORD exStyle, HWND owner)
{
    RECT rect = {0, 0, Scaled(from.cx, base.cx, kUnitsAcross), Scaled(from.cy, base.cy, kUnitsDown)};
    AdjustWindowRectEx(&rect, style, FALSE, exStyle);
    OffsetRect(&rect, -rect.left, -rect.top);
    const bool child = (style & WS_CHILD) != 0;
    if ((from.style & DS_CENTER) != 0 && !child) {
        OffsetRect(&rect, (kScreenWidth - rect.right) / 2, (kScreenHeight - rect.bottom) / 2);
    } else if (from.x == kDefaultPlace) {
        OffsetRect(&rect, kDefaultDistance, kDefaultDistance);
    } else {
        POINT corner = {Scaled(from.x, base.cx, kUnitsAcross), Scaled(from.y, base.cy, kUnitsDown)};
        if (!child && (from.style & DS_ABSALIGN) == 0 && owner != nullptr)
            ClientToScreen(owner, &corner);
        OffsetRect(&rect, corner.x, corner.y);
    }
    if (!child)
        KeepOnScreen(rect);
    return rect;
}

DWORD StyleOf(const DialogTemplate& from)
{
    DWORD style = from.style & ~static_cast<DWORD>(WS_VISIBLE);
    if ((from.style & DS_CONTROL) != 0)
        style &= ~static_cast<DWORD>(WS_CAPTION | WS_SYSMENU);
    return style;
}

DWORD ExStyleOf(const DialogTemplate& from)
{
    DWORD exStyle = from.exStyle | WS_EX_CONTROLPARENT;
    exStyle |= (from.style & DS_MODALFRAME) != 0 ? WS_EX_DLGMODALFRAME : 0;
    exStyle |= (from.style & DS_CONTEXTHELP) != 0 ? WS_EX_CONTEXTHELP : 0;
    return exStyle;
}

HWND CreateFrame(const DialogTemplate& from, const Creation& creation, SIZE base)
{
    const DWORD style = StyleOf(from);
    const DWORD exStyle = ExStyleOf(from);
    const RECT rect = PlaceOf(from, base, style, exStyle, creation.owner);
    LPCWSTR className = kDialogClass;
    if (!from.className.text.empty())
        className = from.className.text.c_str();
    else if (from.className.number != 0)
        className = MAKEINTATOM(from.className.number);
    return CreateWindowExW(exStyle, className, from.title.c_str(), style, rect.left, rect.top,
                           rect.right - rect.left, rect.bottom - rect.top, creation.owner, nullptr,
                           creation.instance, nullptr);
}

/// Null for a class that does not exist.
LPCWSTR ClassNameOf(const DialogItem& item)
{
    if (!item.className.text.empty())
        return item.className.text.c_str();
    return ClassOfDialogOrdinal(item.className.number);
}

/// What a title of a number is handed on as: the platform's text "0xFFFF, number".
std::u16string TitleOf(const DialogItem& item)
{
    if (item.title.number == 0)
        return item.title.text;
    return {u'\xFFFF', static_cast<char16_t>(item.title.number)};
}

HWND CreateControl(HWND dialog, const DialogItem& item, const Creation& creation, const DialogState& state)
{
    const std::u16string title = TitleOf(item);
    const LPCWSTR className = ClassNameOf(item);
    if (className == nullptr)
        return nullptr;
    const auto* const data =
        item.data.empty() ? nullptr : const_cast<std::byte*>(item.data.data()) - sizeof(WORD);
    return CreateWindowExW(
        item.exStyle | WS_EX_NOPARENTNOTIFY, className, title.c_str(), item.style | WS_CHILD,
        Scaled(item.x, state.base.cx, kUnitsAcross), Scaled(item.y, state.base.cy, kUnitsDown),
        Scaled(item.cx, state.base.cx, kUnitsAcross), Scaled(item.cy, state.base.cy, kUnitsDown), dialog,
        reinterpret_cast<HMENU>(static_cast<uintptr_t>(item.id)), creation.instance,
        const_cast<std::byte*>(data));
}

bool CreateControls(HWND dialog, const DialogTemplate& from, const Creation& creation)
{
    for (const DialogItem& item : from.items) {
        DialogState* const state = DialogOf(dialog);
        if (state == nullptr)
            return false;
        const HWND control = CreateControl(dialog, item, creation, *state);
        if (control == nullptr) {
            if ((from.style & DS_NOFAILCREATE) == 0)
                return false;
            continue;
        }
        if (state->font != nullptr)
            SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(state->font), FALSE);
        const LRESULT code = SendMessageW(control, WM_GETDLGCODE, 0, 0);
        if ((code & DLGC_DEFPUSHBUTTON) != 0 && state->defaultId == 0)
            state->defaultId = static_cast<int>(item.id);
    }
    return true;
}

/// Everything up to WM_INITDIALOG; null when something failed.
HWND Build(const DialogTemplate& from, const Creation& creation)
{
    auto state = std::make_unique<DialogState>();
    state->font = MakeFont(from);
    state->base = BaseUnits(state->font);
    state->modal = creation.modal;
    state->stopsOwner = creation.stopsOwner;
    const HWND dialog = CreateFrame(from, creation, state->base);
    const WindowPtr window = LookUp(dialog);
    if (window == nullptr) {
        if (state->font != nullptr)
            DeleteObject(state->font);
        return nullptr;
    }
    const HFONT font = state->font;
    window->dialog = std::move(state);
    SetWindowLongPtrW(dialog, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(creation.procedure));
    if (font != nullptr)
        SendMessageW(dialog, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    if (!CreateControls(dialog, from, creation)) {
        DestroyWindow(dialog);
        return nullptr;
    }
    return dialog;
}

void Initialize(HWND dialog, const Creation& creation)
{
    HWND first = FirstTabStop(dialog);
    const bool takeFocus =
        SendMessageW(dialog, WM_INITDIALOG, reinterpret_cast<WPARAM>(first), creation.parameter) != 0;
    const WindowPtr window = LookUp(dialog);
    if (!takeFocus || window == nullptr || (window->style & DS_CONTROL) != 0)
        return;
    first = FirstTabStop(dialog);
    if (first != nullptr)
        FocusDialogControl(dialog, first);
    else if (GetFocus() == nullptr)
        SetFocus(dialog);
}

HWND Make(const DialogTemplate& from, const Creation& creation)
{
    const HWND dialog = Build(from, creation);
    if (dialog == nullptr)
        return nullptr;
    Initialize(dialog, creation);
    const DialogState* const state = DialogOf(dialog);
    if (state == nullptr)
        return nullptr;
    const bool show = creation.modal || (from.style & WS_VISIBLE) != 0;
    if (show && !state->ended)
        ShowWindow(dialog, SW_SHOWNORMAL);
    return LookUp(dialog) != nullptr ? dialog : nullptr;
}

bool Ended(HWND dialog)
{
    const DialogState* const state = DialogOf(dialog);
    return state == nullptr || state->ended;
}

void TellOwnerOfIdleness(HWND dialog, HWND owner)
{
    MSG message;
    const bool quiet = (GetWindowLongW(dialog, GWL_STYLE) & DS_NOIDLEMSG) != 0;
    if (owner != nullptr && !quiet && !PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE))
        SendMessageW(owner, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(dialog));
}

/// Runs a dialog's loop; false when it cannot go on because nothing will ever happen.
bool RunLoop(HWND dialog, HWND owner)
{
    while (!Ended(dialog)) {
        TellOwnerOfIdleness(dialog, owner);
        MSG message;
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got < 0)
            return false;
        if (got == 0) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return true;
        }
        if (!IsDialogMessageW(dialog, &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return true;
}

/// The window that a modal dialog stops: the top-level window of what the caller named.
HWND OwnerToStop(HWND owner)
{
    const WindowPtr window = LookUp(owner);
    return window != nullptr && window->parent != nullptr ? TopLevelOf(*window).handle : nullptr;
}

INT_PTR RunModal(const DialogTemplate& from, Creation creation)
{
    constexpr INT_PTR kFailed = -1;
    if (creation.owner != nullptr && WindowOf(creation.owner) == nullptr)
        return 0; // as documented for an owner that is no window
    creation.modal = true;
    creation.owner = OwnerToStop(creation.owner);
    creation.stopsOwner = creation.owner != nullptr && IsWindowEnabled(creation.owner);
    if (creation.stopsOwner)
        EnableWindow(creation.owner, FALSE);
    const HWND dialog = Make(from, creation);
    INT_PTR result = kFailed;
    if (dialog != nullptr) {
        const WindowPtr window = LookUp(dialog);
        if (RunLoop(dialog, creation.owner))
            result = window->dialog != nullptr ? window->dialog->result : 0;
    }
    if (creation.stopsOwner && LookUp(creation.owner) != nullptr)
        EnableWindow(creation.owner, TRUE);
    if (dialog != nullptr && LookUp(dialog) != nullptr)
        DestroyWindow(dialog);
    return result;
}

bool FromMemory(LPCDLGTEMPLATEW memory, DialogTemplate& result)
{
    // Nobody tells how long a template in memory is; its own counts and zeros end it.
    constexpr size_t kLimit = 1 << 16;
    return memory != nullptr &&
           ReadDialogTemplate({reinterpret_cast<const std::byte*>(memory), kLimit}, result);
}

bool FromResource(HINSTANCE instance, LPCWSTR name, DialogTemplate& result)
{
    const HRSRC resource = FindResourceW(instance, name, RT_DIALOG);
    if (resource == nullptr)
        return false;
    const auto* const bytes = static_cast<const std::byte*>(LockResource(LoadResource(instance, resource)));
    return (bytes != nullptr && ReadDialogTemplate({bytes, SizeofResource(instance, resource)}, result)) ||
           FailWith(ERROR_INVALID_DATA) != FALSE;
}

// What the system does for a dialog

LRESULT EraseDialog(HWND dialog, WPARAM wParam)
{
    auto brush = reinterpret_cast<HBRUSH>(
        SendMessageW(dialog, WM_CTLCOLORDLG, wParam, reinterpret_cast<LPARAM>(dialog)));
    if (brush == nullptr)
        brush = GetSysColorBrush(COLOR_BTNFACE);
    RECT rect;
    GetClientRect(dialog, &rect);
    const auto dc = reinterpret_cast<HDC>(wParam);
    DPtoLP(dc, reinterpret_cast<POINT*>(&rect), 2);
    FillRect(dc, &rect, brush);
    return 1;
}

void SaveFocus(HWND dialog)
{
    DialogState* const state = DialogOf(dialog);
    const HWND focus = GetFocus();
    if (state != nullptr && focus != nullptr && IsChild(dialog, focus))
        state->savedFocus = focus;
}

void RestoreFocus(HWND dialog)
{
    DialogState* const state = DialogOf(dialog);
    if (state == nullptr || IsChild(dialog, GetFocus()))
        return;
    const HWND saved = std::exchange(state->savedFocus, nullptr);
    if (saved != nullptr && LookUp(saved) != nullptr && IsWindowVisible(saved) && IsWindowEnabled(saved)) {
        SetFocus(saved);
        return;
    }
    const HWND first = FirstTabStop(dialog);
    if (first != nullptr)
        FocusDialogControl(dialog, first);
}

LRESULT ChangeFocus(HWND dialog, WPARAM wParam, LPARAM lParam)
{
    const HWND focus = GetFocus();
    HWND next = reinterpret_cast<HWND>(wParam);
    if (LOWORD(lParam) == 0)
        next = GetNextDlgTabItem(dialog, focus, wParam != 0);
    if (next != nullptr)
        FocusDialogControl(dialog, next);
    return 0;
}

LRESULT OnActivate(HWND dialog, WPARAM wParam)
{
    if (LOWORD(wParam) != WA_INACTIVE)
        RestoreFocus(dialog);
    else
        SaveFocus(dialog);
    return 0;
}

LRESULT AskToCancel(HWND dialog)
{
    const HWND button = GetDlgItem(dialog, IDCANCEL);
    if (button != nullptr && !IsWindowEnabled(button)) {
        MessageBeep(0);
        return 0;
    }
    PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), reinterpret_cast<LPARAM>(button));
    return 0;
}

LRESULT SystemReaction(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    DialogState* const state = DialogOf(dialog);
    switch (message) {
    case WM_ERASEBKGND:
        return EraseDialog(dialog, wParam);
    case WM_ACTIVATE:
        return OnActivate(dialog, wParam);
    case WM_SETFOCUS:
        RestoreFocus(dialog);
        return 0;
    case WM_CLOSE:
        return AskToCancel(dialog);
    case WM_NEXTDLGCTL:
        return ChangeFocus(dialog, wParam, lParam);
    case WM_GETFONT:
        return state != nullptr ? reinterpret_cast<LRESULT>(state->font) : 0;
    case DM_GETDEFID:
        return state != nullptr && state->defaultId != 0 ? MAKELRESULT(state->defaultId, DC_HASDEFID) : 0;
    case DM_SETDEFID:
        SetDefaultId(dialog, static_cast<int>(wParam));
        return TRUE;
    case WM_SHOWWINDOW:
        if (wParam == 0)
            SaveFocus(dialog);
        break;
    }
    return DefWindowProcW(dialog, message, wParam, lParam);
}

/// Messages whose answer a dialog procedure returns itself, rather than by DWLP_MSGRESULT.
bool AnswersDirectly(UINT message)
{
    constexpr UINT kDirect[] = {WM_VKEYTOITEM, WM_CHARTOITEM, WM_COMPAREITEM, WM_INITDIALOG};
    return std::find(std::begin(kDirect), std::end(kDirect), message) != std::end(kDirect) ||
           (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC);
}

} // namespace

DialogState* DialogOf(HWND dialog)
{
    const WindowPtr window = LookUp(dialog);
    return window != nullptr ? window->dialog.get() : nullptr;
}

INT_PTR RunDialog(const DialogTemplate& from, HINSTANCE instance, HWND owner, DLGPROC procedure,
                  LPARAM parameter)
{
    return RunModal(from, {instance, owner, procedure, parameter, true});
}

} // namespace host

using namespace host;

INT_PTR WINAPI DialogBoxParamW(HINSTANCE instance, LPCWSTR name, HWND owner, DLGPROC procedure,
                               LPARAM parameter)
{
    HOST_CALL(DialogBoxParamW, -1, ERROR_NOT_ENOUGH_MEMORY);
    DialogTemplate read;
    return FromResource(instance, name, read) ? RunModal(read, {instance, owner, procedure, parameter, true})
                                              : -1;
}

INT_PTR WINAPI DialogBoxIndirectParamW(HINSTANCE instance, LPCDLGTEMPLATEW dialogTemplate, HWND owner,
                                       DLGPROC procedure, LPARAM parameter)
{
    HOST_CALL(DialogBoxIndirectParamW, -1, ERROR_NOT_ENOUGH_MEMORY);
    DialogTemplate read;
    return FromMemory(dialogTemplate, read) ? RunModal(read, {instance, owner, procedure, parameter, true})
                                            : -1;
}

HWND WINAPI CreateDialogParamW(HINSTANCE instance, LPCWSTR name, HWND owner, DLGPROC procedure,
                               LPARAM parameter)
{
    HOST_CALL(CreateDialogParamW, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    DialogTemplate read;
    return FromResource(instance, name, read) ? Make(read, {instance, owner, procedure, parameter, false})
                                              : nullptr;
}

HWND WINAPI CreateDialogIndirectParamW(HINSTANCE instance, LPCDLGTEMPLATEW dialogTemplate, HWND owner,
                                       DLGPROC procedure, LPARAM parameter)
{
    HOST_CALL(CreateDialogIndirectParamW, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    DialogTemplate read;
    return FromMemory(dialogTemplate, read) ? Make(read, {instance, owner, procedure, parameter, false})
                                            : nullptr;
}

BOOL WINAPI EndDialog(HWND dialog, INT_PTR result)
{
    HOST_CALL_VOID(EndDialog);
    const WindowPtr window = WindowOf(dialog);
    if (window == nullptr)
        return FALSE;
    if (window->dialog == nullptr)
        return FailWith(ERROR_INVALID_PARAMETER);
    window->dialog->result = result;
    window->dialog->ended = true;
    // The owner can be used again before the dialog goes, so that it becomes the active window.
    if (window->dialog->stopsOwner && LookUp(window->owner) != nullptr)
        EnableWindow(window->owner, TRUE);
    if (IsVisibleStyle(*window))
        SetWindowPos(dialog, nullptr, 0, 0, 0, 0,
                     SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
    PostMessageW(dialog, WM_NULL, 0, 0);
    return TRUE;
}

LRESULT WINAPI DefDlgProcW(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    HOST_CALL_VOID(DefDlgProcW);
    const WindowPtr window = WindowOf(dialog);
    if (window == nullptr)
        return 0;
    const bool hasRoom = window->extra.size() >= DLGWINDOWEXTRA;
    DLGPROC procedure = nullptr;
    if (hasRoom) {
        SetWindowLongPtrW(dialog, DWLP_MSGRESULT, 0);
        procedure = reinterpret_cast<DLGPROC>(GetWindowLongPtrW(dialog, DWLP_DLGPROC));
    }
    const INT_PTR handled =
        procedure != nullptr ? CallProcedure(procedure, dialog, message, wParam, lParam) : 0;
    if (LookUp(dialog) == nullptr)
        return handled;
    if (handled == 0)
        return SystemReaction(dialog, message, wParam, lParam);
    if (AnswersDirectly(message))
        return handled;
    return GetWindowLongPtrW(dialog, DWLP_MSGRESULT);
}

BOOL WINAPI MapDialogRect(HWND dialog, LPRECT rect)
{
    HOST_CALL(MapDialogRect, FALSE, ERROR_INVALID_WINDOW_HANDLE);
    const WindowPtr window = WindowOf(dialog);
    if (window == nullptr || rect == nullptr)
        return FALSE;
    if (window->dialog == nullptr)
        return FailWith(ERROR_INVALID_PARAMETER);
    const SIZE base = window->dialog->base;
    *rect = {Scaled(rect->left, base.cx, kUnitsAcross), Scaled(rect->top, base.cy, kUnitsDown),
             Scaled(rect->right, base.cx, kUnitsAcross), Scaled(rect->bottom, base.cy, kUnitsDown)};
    return TRUE;
}

LONG WINAPI GetDialogBaseUnits(void)
{
    HOST_CALL_VOID(GetDialogBaseUnits);
    const SIZE base = BaseUnits(nullptr);
    return MAKELONG(base.cx, base.cy);
}
