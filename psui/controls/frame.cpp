#include "psui/controls/frame.h"

#include "psui/base/gdi.h"
#include "psui/controls/classes.h"
#include "psui/controls/control_record.h"

namespace psui {

namespace {

constexpr DWORD kUnusedStyle = 0x02; // excludes swapped edges
constexpr int kTextUnits = 64;

void OnCreate(HWND window, FrameRecord& record, const CREATESTRUCTW& create)
{
    record.associate = create.hwndParent;
    record.style = static_cast<uint32_t>(create.style);
    if (record.style & kFrameSwapsEdges)
        record.style &= ~kUnusedStyle;
    record.colors.Reset();
    WCHAR text[kTextUnits];
    uint16_t fields[3];
    if (GetWindowTextW(window, text, kTextUnits) == 0 || !ReadThreeFields(text, fields))
        return;
    record.bevel = fields[0];
    record.second = fields[1];
    record.third = fields[2];
}

void TakeCaption(HWND window, FrameRecord& record, const WCHAR* text)
{
    lstrcpynW(record.caption, text ? text : TEXT(""), kFrameCaptionUnits);
    InvalidateRect(window, nullptr, FALSE);
}

void Edges(HDC dc, const RECT& rect, COLORREF topLeft, COLORREF bottomRight)
{
    FillWithColor(dc, {rect.left, rect.top, rect.right, rect.top + 1}, topLeft);
    FillWithColor(dc, {rect.left, rect.top, rect.left + 1, rect.bottom}, topLeft);
    FillWithColor(dc, {rect.left, rect.bottom - 1, rect.right, rect.bottom}, bottomRight);
    FillWithColor(dc, {rect.right - 1, rect.top, rect.right, rect.bottom}, bottomRight);
}

void PaintGroup(HDC dc, RECT rect, const FrameRecord& record)
{
    constexpr int kTextSide = 5;
    constexpr int kTextTop = 3;
    constexpr int kTextBottom = 2;
    FillWithColor(dc, rect, record.colors[kFaceColor]);
    InflateRect(&rect, -record.bevel, -record.bevel);
    Edges(dc, rect, record.colors[kShadowColor], record.colors[kHighlightColor]);
    RECT inner = rect;
    InflateRect(&inner, -1, -1);
    Edges(dc, inner, record.colors[kShadowColor], record.colors[kHighlightColor]);
    if (!record.caption[0])
        return;
    RECT text = {rect.left + kTextSide, rect.top + kTextTop, rect.right - kTextSide,
                 rect.bottom - kTextBottom};
    SetTextColor(dc, record.colors[kFrameColor]);
    SetBkColor(dc, record.colors[kFaceColor]);
    DrawTextW(dc, record.caption, -1, &text, DT_WORDBREAK);
}

void PaintFrame(HDC dc, RECT rect, const FrameRecord& record)
{
    if (record.style & kFrameFilled) {
        FillWithColor(dc, rect, record.colors[kFaceColor]);
        InflateRect(&rect, -1, -1);
    }
    const bool swapped = (record.style & kFrameSwapsEdges) != 0;
    const COLORREF light = record.colors[kHighlightColor], dark = record.colors[kArrowColor];
    for (int i = 0; i < record.bevel && rect.left < rect.right && rect.top < rect.bottom; ++i) {
        Edges(dc, rect, swapped ? light : dark, swapped ? dark : light);
        InflateRect(&rect, -1, -1);
    }
    if (record.style & kFrameOutlined)
        Edges(dc, rect, record.colors[kFrameColor], record.colors[kFrameColor]);
}

void Paint(HWND window, const FrameRecord& record)
{
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window, &paint);
    if (!dc)
        return;
    {
        const SavedState saved(dc);
        RECT client;
        GetClientRect(window, &client);
        if (record.style & kFrameGroup)
            PaintGroup(dc, client, record);
        else
            PaintFrame(dc, client, record);
    }
    EndPaint(window, &paint);
}

} // namespace

LRESULT CALLBACK FrameWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE)
        return CreateRecord<FrameRecord>(window, wParam, lParam);
    FrameRecord* const record = RecordOf<FrameRecord>(window);
    if (!record)
        return DefWindowProcW(window, message, wParam, lParam);
    switch (message) {
    case WM_CREATE:
        OnCreate(window, *record, *reinterpret_cast<const CREATESTRUCTW*>(lParam));
        return 0;
    case WM_NCDESTROY:
        FreeRecord<FrameRecord>(window);
        break;
    case WM_SETTEXT:
        TakeCaption(window, *record, reinterpret_cast<const WCHAR*>(lParam));
        return 0;
    case WM_ERASEBKGND:
        return 0;
    case WM_PAINT:
        Paint(window, *record);
        return 0;
    default:
        break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

} // namespace psui
