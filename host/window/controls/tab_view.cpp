#include "host/window/controls/tab.h"

#include <commctrl.h>

namespace host {
namespace {

constexpr int kEdge = 2;      // pixels that the selected tab is larger than the others, and around the tabs
constexpr int kPageEdge = 4;  // pixels between the control's edge and the pages
constexpr int kAccentBar = 2; // pixels, on top of the selected tab

bool HasFixedWidth(const TabControl& tabs)
{
    return (tabs.style & TCS_FIXEDWIDTH) != 0;
}

int TabHeight(const TabControl& tabs)
{
    return tabs.fixed.cy != 0 ? tabs.fixed.cy
                              : LineHeight(tabs.window, tabs.font) + 2 * static_cast<int>(tabs.padding.cy);
}

int TabWidth(const TabControl& tabs, HDC dc, const TabItem& item)
{
    if (HasFixedWidth(tabs))
        return tabs.fixed.cx;
    RECT text = {};
    DrawTextW(dc, item.text.c_str(), static_cast<int>(item.text.size()), &text, DT_SINGLELINE | DT_CALCRECT);
    return std::max<int>(text.right + 2 * static_cast<int>(tabs.padding.cx), tabs.minimumWidth);
}

/// The body that carries the pages.
RECT BodyRect(const TabControl& tabs)
{
    RECT rect = ClientRectOf(tabs.window);
    if (!tabs.items.empty())
        rect.top = std::min<LONG>(kEdge + TabHeight(tabs), rect.bottom);
    return rect;
}

void DrawTabText(const TabControl& tabs, HDC dc, int index, RECT rect)
{
    const theme::Look look = LookOf(tabs.window);
    const Text& text = tabs.items[index].text;
    if ((tabs.items[index].state & TCIS_HIGHLIGHTED) != 0)
        SetTextColor(dc, theme::kAccent);
    else
        SetTextColor(dc, look.enabled ? GetSysColor(COLOR_BTNTEXT) : theme::kDisabledText);
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &rect, DT_SINGLELINE | DT_CENTER | DT_VCENTER);
    if (look.focused && index == tabs.focus) {
        InflateRect(&rect, -3, -3);
        theme::DrawFocusRing(dc, rect);
    }
}

/// The selected tab grows over its neighbours and into the body; the others stand behind.
void DrawTab(const TabControl& tabs, HDC dc, int index)
{
    const bool selected = index == tabs.selected;
    RECT rect = TabRect(tabs, index);
    if (selected)
        rect = {rect.left - kEdge, rect.top - kEdge, rect.right + kEdge, rect.bottom + 1};
    const COLORREF face = selected ? GetSysColor(COLOR_BTNFACE) : theme::kDisabledBorder;
    theme::Fill(dc, rect, face);
    theme::Frame(dc, rect, theme::kBorder);
    if (selected) {
        theme::Fill(dc, {rect.left + 1, rect.bottom - 1, rect.right - 1, rect.bottom}, face);
        const COLORREF bar = IsWindowEnabled(tabs.window) ? theme::kAccent : theme::kThumb;
        theme::Fill(dc, {rect.left, rect.top, rect.right, rect.top + kAccentBar}, bar);
    }
    DrawTabText(tabs, dc, index, rect);
}

void DrawTabs(const TabControl& tabs, HDC dc)
{
    const RECT client = ClientRectOf(tabs.window);
    const RECT body = BodyRect(tabs);
    FillRect(dc, &client, GetSysColorBrush(COLOR_BTNFACE));
    theme::Frame(dc, body, theme::kBorder);
    SetBkMode(dc, TRANSPARENT);
    for (int index = 0; HasTab(tabs, index); ++index) {
        if (index != tabs.selected)
            DrawTab(tabs, dc, index);
    }
    if (HasTab(tabs, tabs.selected))
        DrawTab(tabs, dc, tabs.selected);
}

} // namespace

RECT TabRect(const TabControl& tabs, int index)
{
    const ControlDc dc(tabs.window, tabs.font);
    RECT rect = {kEdge, kEdge, kEdge, kEdge + TabHeight(tabs)};
    for (int each = 0; each <= index; ++each) {
        rect.left = rect.right;
        rect.right = rect.left + TabWidth(tabs, dc, tabs.items[each]);
    }
    return rect;
}

int TabAt(const TabControl& tabs, POINT point)
{
    for (int index = 0; HasTab(tabs, index); ++index) {
        const RECT rect = TabRect(tabs, index);
        if (PtInRect(&rect, point))
            return index;
    }
    return -1;
}

void AdjustTabRect(const TabControl& tabs, bool larger, RECT& rect)
{
    const int sign = larger ? -1 : 1;
    rect.left += sign * kPageEdge;
    rect.top += sign * (tabs.items.empty() ? kPageEdge : TabHeight(tabs) + kPageEdge);
    rect.right -= sign * kPageEdge;
    rect.bottom -= sign * kPageEdge;
}

void RepaintTabs(const TabControl& tabs)
{
    RECT strip = ClientRectOf(tabs.window);
    strip.bottom = kEdge + TabHeight(tabs) + 1;
    if (tabs.redraw)
        InvalidateRect(tabs.window, &strip, FALSE);
}

LRESULT OnTabPaint(TabControl& tabs, WPARAM dc, LPARAM)
{
    const ControlPaint paint(tabs.window, dc, tabs.font);
    if (tabs.redraw)
        DrawTabs(tabs, paint.Dc());
    return 0;
}

} // namespace host
