#include "host/window/controls/control.h"

namespace host {
namespace {

HGDIOBJ FontOrSystem(HFONT font)
{
    return font != nullptr ? static_cast<HGDIOBJ>(font) : GetStockObject(SYSTEM_FONT);
}

SIZE BitmapSize(HANDLE image)
{
    BITMAP bitmap = {};
    GetObjectW(image, sizeof(bitmap), &bitmap);
    return {bitmap.bmWidth, bitmap.bmHeight};
}

SIZE IconSize(HICON icon)
{
    constexpr int kMasks = 2; // an icon without a colour bitmap has both masks in one
    ICONINFO info = {};
    if (!GetIconInfo(icon, &info))
        return {};
    SIZE size = BitmapSize(info.hbmMask);
    if (info.hbmColor == nullptr)
        size.cy /= kMasks;
    DeleteObject(info.hbmMask);
    if (info.hbmColor != nullptr)
        DeleteObject(info.hbmColor);
    return size;
}

} // namespace

void NotifyParent(HWND control, WORD code)
{
    SendMessageW(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
                 reinterpret_cast<LPARAM>(control));
}

HBRUSH AskParentForColours(HWND control, HDC dc, UINT message)
{
    const HWND parent = GetParent(control);
    const auto wParam = reinterpret_cast<WPARAM>(dc);
    const auto lParam = reinterpret_cast<LPARAM>(control);
    LRESULT brush = SendMessageW(parent, message, wParam, lParam);
    if (brush == 0)
        brush = DefWindowProcW(parent, message, wParam, lParam);
    return brush != 0 ? reinterpret_cast<HBRUSH>(brush) : GetSysColorBrush(COLOR_BTNFACE);
}

DWORD StyleOf(HWND window)
{
    return static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
}

bool HasStyle(HWND window, DWORD style)
{
    return (StyleOf(window) & style) != 0;
}

RECT ClientRectOf(HWND window)
{
    RECT rect = {};
    GetClientRect(window, &rect);
    return rect;
}

POINT PointOf(LPARAM lParam)
{
    return {static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam))};
}

std::basic_string<WCHAR> TextOf(HWND window)
{
    std::basic_string<WCHAR> text(static_cast<size_t>(GetWindowTextLengthW(window)), 0);
    text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1)));
    return text;
}

theme::Look LookOf(HWND window)
{
    return {IsWindowEnabled(window) != FALSE, false, GetFocus() == window, false};
}

SIZE ImageSizeOf(HANDLE image, UINT kind)
{
    return kind == IMAGE_BITMAP ? BitmapSize(image) : IconSize(static_cast<HICON>(image));
}

void DrawImage(HDC dc, POINT at, HANDLE image, UINT kind)
{
    const SIZE size = ImageSizeOf(image, kind);
    if (kind != IMAGE_BITMAP) {
        DrawIconEx(dc, at.x, at.y, static_cast<HICON>(image), size.cx, size.cy, 0, nullptr, DI_NORMAL);
        return;
    }
    const HDC memory = CreateCompatibleDC(dc);
    const HGDIOBJ before = SelectObject(memory, image);
    BitBlt(dc, at.x, at.y, size.cx, size.cy, memory, 0, 0, SRCCOPY);
    SelectObject(memory, before);
    DeleteDC(memory);
}

void Repaint(HWND window)
{
    InvalidateRect(window, nullptr, FALSE);
}

LRESULT PaintFieldFrame(HWND window, WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = DefWindowProcW(window, WM_NCPAINT, wParam, lParam);
    const LONG_PTR extended = GetWindowLongPtrW(window, GWL_EXSTYLE);
    if (!HasStyle(window, WS_BORDER) && !(extended & WS_EX_CLIENTEDGE))
        return result;
    RECT rect = {};
    GetWindowRect(window, &rect);
    const HDC dc = GetWindowDC(window);
    theme::DrawFieldBorder(dc, {0, 0, rect.right - rect.left, rect.bottom - rect.top}, LookOf(window));
    ReleaseDC(window, dc);
    return result;
}

void RepaintField(HWND window)
{
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
}

ControlPaint::ControlPaint(HWND window, WPARAM dcOfMessage, HFONT font)
    : window_(window), began_(dcOfMessage == 0),
      dc_(began_ ? BeginPaint(window, &paint_) : reinterpret_cast<HDC>(dcOfMessage)),
      oldFont_(SelectObject(dc_, FontOrSystem(font)))
{
}

ControlPaint::~ControlPaint()
{
    SelectObject(dc_, oldFont_);
    if (began_)
        EndPaint(window_, &paint_);
}

ControlDc::ControlDc(HWND window, HFONT font)
    : window_(window), dc_(GetDC(window)), oldFont_(SelectObject(dc_, FontOrSystem(font)))
{
}

ControlDc::~ControlDc()
{
    SelectObject(dc_, oldFont_);
    ReleaseDC(window_, dc_);
}

} // namespace host
