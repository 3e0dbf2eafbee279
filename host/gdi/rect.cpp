// Arithmetic on rectangles. An empty rectangle is one without width or height, or with its corners crossed.
#include <algorithm>

#include "host/gdi/region.h"
#include "host/kernel/call.h"

using namespace host;

BOOL WINAPI SetRect(LPRECT rect, int left, int top, int right, int bottom)
{
    HOST_CALL_VOID(SetRect);
    if (rect == nullptr)
        return FALSE;
    *rect = {left, top, right, bottom};
    return TRUE;
}

BOOL WINAPI SetRectEmpty(LPRECT rect)
{
    HOST_CALL_VOID(SetRectEmpty);
    return SetRect(rect, 0, 0, 0, 0);
}

BOOL WINAPI CopyRect(LPRECT destination, const RECT* source)
{
    HOST_CALL_VOID(CopyRect);
    if (destination == nullptr || source == nullptr)
        return FALSE;
    *destination = *source;
    return TRUE;
}

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

BOOL WINAPI UnionRect(LPRECT result, const RECT* first, const RECT* second)
{
    HOST_CALL_VOID(UnionRect);
    if (result == nullptr || first == nullptr || second == nullptr)
        return FALSE;
    if (IsEmpty(*first))
        *result = IsEmpty(*second) ? RECT{} : *second;
    else if (IsEmpty(*second))
        *result = *first;
    else
        *result = {std::min(first->left, second->left), std::min(first->top, second->top),
                   std::max(first->right, second->right), std::max(first->bottom, second->bottom)};
    return !IsEmpty(*result);
}

BOOL WINAPI SubtractRect(LPRECT result, const RECT* first, const RECT* second)
{
    HOST_CALL_VOID(SubtractRect);
    if (result == nullptr || first == nullptr || second == nullptr)
        return FALSE;
    // What is left counts only where it is a rectangle: when the second one covers a whole side.
    const Region rest = Region::Combined(Region(*first), Region(*second), RGN_DIFF);
    *result = rest.Complexity() == COMPLEXREGION ? *first : rest.Box();
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
