// Facts of the screen and of the frames of windows, at 96 dots an inch.
#include <algorithm>

#include "host/window/handles.h"

namespace host {
namespace {

struct Metric
{
    int index;
    int value;
};

constexpr Metric kMetrics[] = {
    {SM_CXSCREEN, kScreenWidth},
    {SM_CYSCREEN, kScreenHeight},
    {SM_CXVSCROLL, 17},
    {SM_CYHSCROLL, 17},
    {SM_CYCAPTION, 23},
    {SM_CXBORDER, 1},
    {SM_CYBORDER, 1},
    {SM_CXFIXEDFRAME, 3},
    {SM_CYFIXEDFRAME, 3},
    {SM_CYVTHUMB, 17},
    {SM_CXHTHUMB, 17},
    {SM_CXICON, 32},
    {SM_CYICON, 32},
    {SM_CXCURSOR, 32},
    {SM_CYCURSOR, 32},
    {SM_CYMENU, 20},
    {SM_CXFULLSCREEN, kScreenWidth},
    {SM_CYFULLSCREEN, kScreenHeight - 23},
    {SM_MOUSEPRESENT, 1},
    {SM_CYVSCROLL, 17},
    {SM_CXHSCROLL, 17},
    {SM_CXMIN, 132},
    {SM_CYMIN, 38},
    {SM_CXSIZE, 36},
    {SM_CYSIZE, 22},
    {SM_CXFRAME, 4},
    {SM_CYFRAME, 4},
    {SM_CXDOUBLECLK, 4},
    {SM_CYDOUBLECLK, 4},
    {SM_CMOUSEBUTTONS, 3},
    {SM_CXEDGE, 2},
    {SM_CYEDGE, 2},
    {SM_CXSMICON, 16},
    {SM_CYSMICON, 16},
    {SM_CYSMCAPTION, 23},
    {SM_CXDRAG, 4},
    {SM_CYDRAG, 4},
    {SM_CXMENUCHECK, 15},
    {SM_CYMENUCHECK, 15},
    {SM_CXVIRTUALSCREEN, kScreenWidth},
    {SM_CYVIRTUALSCREEN, kScreenHeight},
};

} // namespace
} // namespace host

using namespace host;

int WINAPI GetSystemMetrics(int index)
{
    HOST_CALL_VOID(GetSystemMetrics);
    const auto* const found = std::find_if(std::begin(kMetrics), std::end(kMetrics),
                                           [=](const Metric& each) { return each.index == index; });
    return found != std::end(kMetrics) ? found->value : 0;
}

BOOL WINAPI AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu, DWORD exStyle)
{
    HOST_CALL_VOID(AdjustWindowRectEx);
    if (rect == nullptr)
        return FailWith(ERROR_INVALID_PARAMETER);
    const RECT frame = FrameWidths(style, exStyle);
    rect->left -= frame.left;
    rect->top -= frame.top + (menu ? GetSystemMetrics(SM_CYMENU) : 0);
    rect->right += frame.right;
    rect->bottom += frame.bottom;
    return TRUE;
}

BOOL WINAPI AdjustWindowRect(LPRECT rect, DWORD style, BOOL menu)
{
    HOST_CALL_VOID(AdjustWindowRect);
    return AdjustWindowRectEx(rect, style, menu, 0);
}
