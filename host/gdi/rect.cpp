// Arithmetic on rectangles. An empty rectangle is one without width or height, or with its corners crossed.
#include <algorithm>

#include "host/gdi/region.h"
#include "host/kernel/call.h"

using namespace host;

BOOL WINAPI InflateRect(LPRECT rect, int x, int y)
{
    HOST_CALL_VOID(InflateRect);
    if (rect == nullptr)
        return FALSE;
    *rect = {rect->left - x, rect->top - y, rect->right + x, rect->bottom + y};
    return TRUE;
}

BOOL WINAPI OffsetRect(LPRECT rect, int x, int y)
{
    HOST_CALL_VOID(OffsetRect);
    if (rect == nullptr)
        return FALSE;
    *rect = Moved(*rect, {x, y});
    return TRUE;
}

BOOL WINAPI IntersectRect(LPRECT result, const RECT* first, const RECT* second)
{
    HOST_CALL_VOID(IntersectRect);
    if (result == nullptr || first == nullptr || second == nullptr)
        return FALSE;
    *result = IsEmpty(*first) || IsEmpty(*second) ? RECT{} : Intersection(*first, *second);
    return !IsEmpty(*result);
}

BOOL WINAPI IsRectEmpty(const RECT* rect)
{
    HOST_CALL_VOID(IsRectEmpty);
    return rect == nullptr || IsEmpty(*rect);
}

BOOL WINAPI EqualRect(const RECT* first, const RECT* second)
{
    HOST_CALL_VOID(EqualRect);
    return first != nullptr && second != nullptr && first->left == second->left &&
           first->top == second->top && first->right == second->right && first->bottom == second->bottom;
}

BOOL WINAPI PtInRect(const RECT* rect, POINT point)
{
    HOST_CALL_VOID(PtInRect);
    return rect != nullptr && point.x >= rect->left && point.x < rect->right && point.y >= rect->top &&
           point.y < rect->bottom;
}
