#include "host/window/controls/static.h"

#include "host/window/controls/control.h"

namespace host {
namespace {

/// Every text of a resource ordinal starts with this unit; the ordinal follows.
constexpr WCHAR kOrdinalMark = 0xFFFF;

struct Static : ControlState
{
    HFONT font = nullptr;
    HANDLE image = nullptr;
    bool ownsImage = false; // loaded for a template's text; a later STM_SETIMAGE hands it to the program
};

DWORD KindOf(HWND window)
{
    return StyleOf(window) & SS_TYPEMASK;
}

bool IsImageKind(DWORD kind)
{
    return kind == SS_ICON || kind == SS_BITMAP;
}

void FreeOwnImage(Static& control)
{
    if (control.ownsImage && KindOf(control.window) == SS_BITMAP)
        DeleteObject(control.image);
    else if (control.ownsImage)
        DestroyIcon(static_cast<HICON>(control.image));
    control.ownsImage = false;
}

UINT ImageKind(HWND window)
{
    return KindOf(window) == SS_BITMAP ? IMAGE_BITMAP : IMAGE_ICON;
}

/// Without a style that keeps its size, the control takes the image's.
void FitToImage(const Static& control)
{
    if (control.image == nullptr || (StyleOf(control.window) & (SS_CENTERIMAGE | SS_REALSIZECONTROL)))
        return;
    const SIZE size = ImageSizeOf(control.image, ImageKind(control.window));
    RECT whole = {0, 0, size.cx, size.cy};
    AdjustWindowRectEx(&whole, StyleOf(control.window), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(control.window, GWL_EXSTYLE)));
    SetWindowPos(control.window, nullptr, 0, 0, whole.right - whole.left, whole.bottom - whole.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT SetImage(Static& control, HANDLE image)
{
    const HANDLE before = control.image;
    control.image = image;
    control.ownsImage = false;
    FitToImage(control);
    Repaint(control.window);
    return reinterpret_cast<LRESULT>(before);
}

/// The text of an image's control names a resource of the module that made the window.
void LoadNamedImage(Static& control, const CREATESTRUCTW& create)
{
    LPCWSTR name = create.lpszName;
    if (name == nullptr || create.hInstance == nullptr || (!IS_INTRESOURCE(name) && name[0] == 0))
        return;
    if (!IS_INTRESOURCE(name) && name[0] == kOrdinalMark)
        name = MAKEINTRESOURCEW(name[1]);
    control.image = KindOf(control.window) == SS_BITMAP
                        ? static_cast<HANDLE>(LoadBitmapW(create.hInstance, name))
                        : static_cast<HANDLE>(LoadIconW(create.hInstance, name));
    control.ownsImage = control.image != nullptr;
    FitToImage(control);
}

LRESULT OnCreate(Static& control, WPARAM, LPARAM lParam)
{
    if (StyleOf(control.window) & SS_SUNKEN) {
        const LONG_PTR edges = GetWindowLongPtrW(control.window, GWL_EXSTYLE) | WS_EX_STATICEDGE;
        SetWindowLongPtrW(control.window, GWL_EXSTYLE, edges);
        SetWindowPos(control.window, nullptr, 0, 0, 0, 0,
                     SWP_FRAMECHANGED | SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    if (IsImageKind(KindOf(control.window)))
        LoadNamedImage(control, *reinterpret_cast<const CREATESTRUCTW*>(lParam));
    return 0;
}

LRESULT OnDestroy(Static& control, WPARAM, LPARAM)
{
    FreeOwnImage(control);
    return 0;
}

UINT EllipsisFlags(DWORD style)
{
    switch (style & SS_ELLIPSISMASK) {
    case SS_ENDELLIPSIS:
        return DT_SINGLELINE | DT_END_ELLIPSIS;
    case SS_PATHELLIPSIS:
        return DT_SINGLELINE | DT_PATH_ELLIPSIS;
    case SS_WORDELLIPSIS:
        return DT_SINGLELINE | DT_WORD_ELLIPSIS;
    default:
        return 0;
    }
}

UINT TextFlags(DWORD style)
{
    UINT flags = DT_EXPANDTABS | EllipsisFlags(style);
    switch (style & SS_TYPEMASK) {
    case SS_CENTER:
        flags |= DT_CENTER | DT_WORDBREAK;
        break;
    case SS_RIGHT:
        flags |= DT_RIGHT | DT_WORDBREAK;
        break;
    case SS_LEFT:
        flags |= DT_WORDBREAK;
        break;
    case SS_SIMPLE:
        flags |= DT_SINGLELINE;
        break;
    }
    if (style & SS_CENTERIMAGE)
        flags |= DT_SINGLELINE | DT_VCENTER;
    if (flags & DT_SINGLELINE)
        flags &= ~static_cast<UINT>(DT_WORDBREAK);
    return flags | (style & SS_NOPREFIX ? DT_NOPREFIX : 0) | (style & SS_EDITCONTROL ? DT_EDITCONTROL : 0);
}

void PaintText(HWND window, HDC dc, RECT rect)
{
    const std::basic_string<WCHAR> text = TextOf(window);
    const int oldMode = SetBkMode(dc, TRANSPARENT);
    const COLORREF oldColour = SetTextColor(dc, theme::TextColourOf(dc, LookOf(window)));
    DrawTextW(dc, text.data(), static_cast<int>(text.size()), &rect, TextFlags(StyleOf(window)));
    SetTextColor(dc, oldColour);
    SetBkMode(dc, oldMode);
}

void PaintImage(const Static& control, HDC dc, const RECT& rect)
{
    if (control.image == nullptr)
        return;
    const SIZE size = ImageSizeOf(control.image, ImageKind(control.window));
    const bool centred = (StyleOf(control.window) & SS_CENTERIMAGE) != 0;
    const POINT at = {centred ? (rect.right - size.cx) / 2 : 0, centred ? (rect.bottom - size.cy) / 2 : 0};
    DrawImage(dc, at, control.image, ImageKind(control.window));
}

/// The rectangles and frames in the order of their styles.
COLORREF ColourOfShape(DWORD kind)
{
    constexpr int kColours[] = {COLOR_WINDOWFRAME, COLOR_BTNSHADOW, COLOR_WINDOW};
    return GetSysColor(kColours[(kind - SS_BLACKRECT) % std::size(kColours)]);
}

void PaintEtched(DWORD kind, HDC dc, RECT rect)
{
    if (kind == SS_ETCHEDHORZ)
        rect.bottom = rect.top + 1;
    else if (kind == SS_ETCHEDVERT)
        rect.right = rect.left + 1;
    theme::Frame(dc, rect, theme::kBorder);
}

void AskParentToDraw(HWND window, HDC dc, const RECT& rect)
{
    DRAWITEMSTRUCT item = {};
    item.CtlType = ODT_STATIC;
    item.CtlID = static_cast<UINT>(GetDlgCtrlID(window));
    item.itemAction = ODA_DRAWENTIRE;
    item.itemState = IsWindowEnabled(window) ? 0 : ODS_DISABLED;
    item.hwndItem = window;
    item.hDC = dc;
    item.rcItem = rect;
    SendMessageW(GetParent(window), WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
}

LRESULT OnPaint(Static& control, WPARAM wParam, LPARAM)
{
    const ControlPaint paint(control.window, wParam, control.font);
    const HDC dc = paint.Dc();
    const DWORD kind = KindOf(control.window);
    const RECT rect = ClientRectOf(control.window);
    const HBRUSH behind = AskParentForColours(control.window, dc, WM_CTLCOLORSTATIC);
    if (kind == SS_OWNERDRAW) {
        AskParentToDraw(control.window, dc, rect);
    } else if (kind >= SS_BLACKRECT && kind <= SS_WHITERECT) {
        theme::Fill(dc, rect, ColourOfShape(kind));
    } else if (kind >= SS_BLACKFRAME && kind <= SS_WHITEFRAME) {
        theme::Frame(dc, rect, ColourOfShape(kind));
    } else if (kind >= SS_ETCHEDHORZ && kind <= SS_ETCHEDFRAME) {
        PaintEtched(kind, dc, rect);
    } else {
        FillRect(dc, &rect, behind);
        IsImageKind(kind) ? PaintImage(control, dc, rect) : PaintText(control.window, dc, rect);
    }
    return 0;
}

LRESULT OnEraseBackground(Static&, WPARAM, LPARAM)
{
    return TRUE;
}

LRESULT OnHitTest(Static& control, WPARAM, LPARAM)
{
    return StyleOf(control.window) & SS_NOTIFY ? HTCLIENT : HTTRANSPARENT;
}

LRESULT OnGetDlgCode(Static&, WPARAM, LPARAM)
{
    return DLGC_STATIC;
}

void Notify(HWND window, WORD code)
{
    if (StyleOf(window) & SS_NOTIFY)
        NotifyParent(window, code);
}

LRESULT OnMouseDown(Static& control, WPARAM, LPARAM)
{
    Notify(control.window, STN_CLICKED);
    return 0;
}

LRESULT OnDoubleClick(Static& control, WPARAM, LPARAM)
{
    Notify(control.window, STN_DBLCLK);
    return 0;
}

LRESULT OnEnable(Static& control, WPARAM wParam, LPARAM)
{
    Repaint(control.window);
    Notify(control.window, wParam ? STN_ENABLE : STN_DISABLE);
    return 0;
}

LRESULT OnSetText(Static& control, WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = DefWindowProcW(control.window, WM_SETTEXT, wParam, lParam);
    Repaint(control.window);
    return result;
}

LRESULT OnSetFont(Static& control, WPARAM wParam, LPARAM lParam)
{
    control.font = reinterpret_cast<HFONT>(wParam);
    if (lParam & 0xFFFF)
        Repaint(control.window);
    return 0;
}

LRESULT OnGetFont(Static& control, WPARAM, LPARAM)
{
    return reinterpret_cast<LRESULT>(control.font);
}

/// Null when the control shows another kind of image.
bool ShowsImageType(HWND window, WPARAM type)
{
    const DWORD kind = KindOf(window);
    return type == IMAGE_BITMAP ? kind == SS_BITMAP
                                : (type == IMAGE_ICON || type == IMAGE_CURSOR) && kind == SS_ICON;
}

LRESULT OnSetImage(Static& control, WPARAM wParam, LPARAM lParam)
{
    return ShowsImageType(control.window, wParam) ? SetImage(control, reinterpret_cast<HANDLE>(lParam)) : 0;
}

LRESULT OnGetImage(Static& control, WPARAM wParam, LPARAM)
{
    return ShowsImageType(control.window, wParam) ? reinterpret_cast<LRESULT>(control.image) : 0;
}

LRESULT OnSetIcon(Static& control, WPARAM wParam, LPARAM)
{
    return OnSetImage(control, IMAGE_ICON, static_cast<LPARAM>(wParam));
}

LRESULT OnGetIcon(Static& control, WPARAM, LPARAM)
{
    return OnGetImage(control, IMAGE_ICON, 0);
}

constexpr MessageRow<Static> kMessages[] = {
    {WM_CREATE, OnCreate},         {WM_DESTROY, OnDestroy},
    {WM_ENABLE, OnEnable},         {WM_SETTEXT, OnSetText},
    {WM_PAINT, OnPaint},           {WM_ERASEBKGND, OnEraseBackground},
    {WM_SETFONT, OnSetFont},       {WM_GETFONT, OnGetFont},
    {WM_NCHITTEST, OnHitTest},     {WM_GETDLGCODE, OnGetDlgCode},
    {STM_SETICON, OnSetIcon},      {STM_GETICON, OnGetIcon},
    {STM_SETIMAGE, OnSetImage},    {STM_GETIMAGE, OnGetImage},
    {WM_LBUTTONDOWN, OnMouseDown}, {WM_LBUTTONDBLCLK, OnDoubleClick},
    {WM_PRINTCLIENT, OnPaint},
};
static_assert(InOrder<Static>(kMessages));

} // namespace

LRESULT CALLBACK StaticProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return RunRows<Static>(kMessages, window, message, wParam, lParam);
}

} // namespace host
