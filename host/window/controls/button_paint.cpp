#include <algorithm>

#include "host/window/controls/button.h"

namespace host {
namespace {

constexpr int kMarkGap = 4;    // between a mark and its text
constexpr int kTextInset = 4;  // between a button's border and its text
constexpr int kGroupInset = 9; // where a group's caption starts
constexpr int kGroupGap = 2;   // beside a group's caption

struct Picture
{
    HDC dc;
    RECT rect;
    theme::Look look;
    DWORD style;
    const Button& button;
};

/// DrawTextW's flags for the alignment styles; `usual` applies where the style says nothing.
UINT TextFlags(DWORD style, UINT usual)
{
    const DWORD across = style & BS_CENTER;
    const UINT flags = across == BS_LEFT    ? DT_LEFT
                       : across == BS_RIGHT ? DT_RIGHT
                       : across != 0        ? DT_CENTER
                                            : usual;
    return flags | (style & BS_MULTILINE ? DT_WORDBREAK : DT_SINGLELINE);
}

/// Where content of this size stands in `area`: the vertical alignment styles, else the middle; across by
/// `flags`.
RECT PlaceContent(const RECT& area, SIZE size, UINT flags, DWORD style)
{
    const DWORD down = style & BS_VCENTER;
    const int spareX = area.right - area.left - size.cx;
    const int spareY = area.bottom - area.top - size.cy;
    const int left = area.left + (flags & DT_CENTER ? spareX / 2 : flags & DT_RIGHT ? spareX : 0);
    const int top = area.top + (down == BS_TOP ? 0 : down == BS_BOTTOM ? spareY : spareY / 2);
    return {left, top, left + size.cx, top + size.cy};
}

/// Text, or the image where one is set and the style asks for it. Returns the rectangle that it took.
RECT DrawContent(const Picture& picture, const RECT& area, UINT usual)
{
    const UINT flags = TextFlags(picture.style, usual);
    if (picture.button.image != nullptr && (picture.style & (BS_ICON | BS_BITMAP))) {
        const RECT at = PlaceContent(area, ImageSizeOf(picture.button.image, picture.button.imageKind), flags,
                                     picture.style);
        DrawImage(picture.dc, {at.left, at.top}, picture.button.image, picture.button.imageKind);
        return at;
    }
    const std::basic_string<WCHAR> text = TextOf(picture.button.window);
    RECT size = {0, 0, area.right - area.left, 0};
    DrawTextW(picture.dc, text.data(), static_cast<int>(text.size()), &size, flags | DT_CALCRECT);
    const LONG width = area.right - area.left;
    const UINT clipping = size.right <= width ? DT_NOCLIP : 0; // letters may lean out of what was measured
    RECT at = PlaceContent(area, {std::min(size.right, width), size.bottom}, flags, picture.style);
    const int oldMode = SetBkMode(picture.dc, TRANSPARENT);
    const COLORREF oldColour = SetTextColor(picture.dc, theme::TextColourOf(picture.dc, picture.look));
    DrawTextW(picture.dc, text.data(), static_cast<int>(text.size()), &at, flags | clipping);
    SetTextColor(picture.dc, oldColour);
    SetBkMode(picture.dc, oldMode);
    return at;
}

void PaintPushButton(const Picture& picture)
{
    const HBRUSH behind = AskParentForColours(picture.button.window, picture.dc, WM_CTLCOLORBTN);
    FillRect(picture.dc, &picture.rect, behind);
    theme::DrawButtonFace(picture.dc, picture.rect, picture.look);
    RECT area = picture.rect;
    InflateRect(&area, -kTextInset, -kTextInset / 2);
    DrawContent(picture, area, DT_CENTER);
    if (picture.look.focused && picture.look.enabled) {
        InflateRect(&area, 1, -1);
        theme::DrawFocusRing(picture.dc, area);
    }
}

theme::Mark MarkOf(UINT check)
{
    constexpr theme::Mark kMarks[] = {theme::Mark::none, theme::Mark::check, theme::Mark::mixed};
    return kMarks[check % std::size(kMarks)];
}

/// A check box or radio button: its mark and its text.
void PaintMarked(const Picture& picture)
{
    const HBRUSH behind = AskParentForColours(picture.button.window, picture.dc, WM_CTLCOLORSTATIC);
    FillRect(picture.dc, &picture.rect, behind);
    const bool markAtRight = (picture.style & BS_LEFTTEXT) != 0;
    RECT mark = picture.rect;
    RECT area = picture.rect;
    if (markAtRight) {
        mark.left = mark.right - theme::kMarkSize;
        area.right = mark.left - kMarkGap;
    } else {
        mark.right = mark.left + theme::kMarkSize;
        area.left = mark.right + kMarkGap;
    }
    RECT text = DrawContent(picture, area, DT_LEFT);
    const DWORD down = picture.style & BS_VCENTER;
    if (down == BS_TOP || down == BS_BOTTOM) {
        mark.top = text.top;
        mark.bottom = text.bottom;
    }
    if (IsRadioButton(picture.style & BS_TYPEMASK))
        theme::DrawRadioMark(picture.dc, mark, picture.button.check != BST_UNCHECKED, picture.look);
    else
        theme::DrawCheckMark(picture.dc, mark, MarkOf(picture.button.check), picture.look);
    if (picture.look.focused && picture.look.enabled && text.right > text.left) {
        InflateRect(&text, 1, 1);
        IntersectRect(&text, &text, &picture.rect);
        theme::DrawFocusRing(picture.dc, text);
    }
}

/// The frame runs through the middle of the caption's first line; the inside is left alone.
void PaintGroup(const Picture& picture)
{
    const HBRUSH behind = AskParentForColours(picture.button.window, picture.dc, WM_CTLCOLORSTATIC);
    const std::basic_string<WCHAR> text = TextOf(picture.button.window);
    TEXTMETRICW metrics = {};
    GetTextMetricsW(picture.dc, &metrics);
    RECT frame = picture.rect;
    frame.top += metrics.tmHeight / 2 - 1;
    theme::Frame(picture.dc, frame, theme::kBorder);
    if (text.empty())
        return;
    RECT area = picture.rect;
    InflateRect(&area, -kGroupInset, 0);
    SIZE size = {};
    RECT measured = {};
    DrawTextW(picture.dc, text.data(), static_cast<int>(text.size()), &measured, DT_SINGLELINE | DT_CALCRECT);
    size.cx = std::min(measured.right, area.right - area.left);
    size.cy = measured.bottom;
    const RECT at = PlaceContent(area, size, TextFlags(picture.style, DT_LEFT), BS_TOP);
    const RECT gap = {at.left - kGroupGap, at.top, at.right + kGroupGap, at.bottom};
    FillRect(picture.dc, &gap, behind);
    Picture caption = picture;
    caption.style = (picture.style & ~(BS_VCENTER | BS_MULTILINE | BS_ICON | BS_BITMAP)) | BS_TOP;
    DrawContent(caption, at, DT_LEFT);
}

void AskParentToDraw(const Picture& picture, UINT action)
{
    AskParentForColours(picture.button.window, picture.dc, WM_CTLCOLORBTN);
    DRAWITEMSTRUCT item = {};
    item.CtlType = ODT_BUTTON;
    item.CtlID = static_cast<UINT>(GetDlgCtrlID(picture.button.window));
    item.itemAction = action;
    item.itemState = (picture.look.focused ? ODS_FOCUS : 0u) | (picture.look.pressed ? ODS_SELECTED : 0u) |
                     (picture.look.enabled ? 0u : ODS_DISABLED);
    item.hwndItem = picture.button.window;
    item.hDC = picture.dc;
    item.rcItem = picture.rect;
    SendMessageW(GetParent(picture.button.window), WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
}

bool HasMark(DWORD style)
{
    const DWORD kind = style & BS_TYPEMASK;
    const bool markable = kind >= BS_CHECKBOX && kind <= BS_AUTORADIOBUTTON && kind != BS_GROUPBOX;
    return markable && kind != BS_USERBUTTON && !(style & BS_PUSHLIKE);
}

} // namespace

void PaintButton(const Button& button, HDC dc, UINT action)
{
    Picture picture = {dc, ClientRectOf(button.window), LookOf(button.window), StyleOf(button.window),
                       button};
    const DWORD kind = picture.style & BS_TYPEMASK;
    picture.look.isDefault = kind == BS_DEFPUSHBUTTON;
    picture.look.pressed = button.pushed;
    if (kind == BS_OWNERDRAW)
        return AskParentToDraw(picture, action);
    if (kind == BS_GROUPBOX)
        return PaintGroup(picture);
    if (HasMark(picture.style))
        return PaintMarked(picture);
    picture.look.pressed |= button.check != BST_UNCHECKED; // a push-like check box stays down
    PaintPushButton(picture);
}

} // namespace host
