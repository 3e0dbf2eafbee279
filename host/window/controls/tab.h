#pragma once
// The tab control: one row of tabs on top of the area in which the program shows its pages.
//
// tab.cpp keeps the tabs and what the user does with them, tab_view.cpp measures and paints them.
#include <vector>

#include "host/window/controls/control.h"

namespace host {

struct TabItem
{
    Text text;
    LPARAM data = 0;
    DWORD state = 0; ///< TCIS_*
    int image = -1;
};

struct TabControl : ControlState
{
    std::vector<TabItem> items;
    HFONT font = nullptr;
    int selected = -1;
    int focus = -1;        ///< tab with the focus rectangle
    SIZE padding = {6, 3}; ///< pixels around a tab's text
    SIZE fixed = {96, 0};  ///< of tabs with TCS_FIXEDWIDTH; a height of 0 is the font's
    int minimumWidth = 42; ///< pixels
    bool redraw = true;
};

inline bool HasTab(const TabControl& tabs, int index)
{
    return index >= 0 && static_cast<size_t>(index) < tabs.items.size();
}

/// A tab's rectangle in client coordinates, without what the selected one is larger.
RECT TabRect(const TabControl& tabs, int index);
/// The tab under a point, or -1.
int TabAt(const TabControl& tabs, POINT point);
/// The whole control's rectangle that leaves `rect` for the pages (`larger`), or the other way round.
void AdjustTabRect(const TabControl& tabs, bool larger, RECT& rect);
/// Marks the row of tabs for painting. The area below is left alone: pages that are not the control's
/// children stand there.
void RepaintTabs(const TabControl& tabs);

LRESULT OnTabPaint(TabControl& tabs, WPARAM wParam, LPARAM lParam);

LRESULT CALLBACK TabProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace host
