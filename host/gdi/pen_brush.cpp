// Making pens and brushes.
#include <algorithm>

#include "host/gdi/dc.h"
#include "host/gdi/paint.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"

using namespace host;

HPEN WINAPI CreatePenIndirect(const LOGPEN* description)
{
    HOST_CALL(CreatePenIndirect, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    if (description == nullptr)
        return nullptr;
    LOGPEN pen = *description;
    pen.lopnWidth.x = std::max<LONG>(pen.lopnWidth.x, 0);
    if (pen.lopnStyle > PS_INSIDEFRAME)
        pen.lopnStyle = PS_SOLID;
    return static_cast<HPEN>(NewGdiHandle(std::make_shared<Pen>(pen)));
}

HPEN WINAPI CreatePen(int style, int width, COLORREF color)
{
    HOST_CALL(CreatePen, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    const LOGPEN description = {static_cast<UINT>(style), {width, 0}, color};
    return CreatePenIndirect(&description);
}

HBRUSH WINAPI CreateSolidBrush(COLORREF color)
{
    HOST_CALL(CreateSolidBrush, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    return static_cast<HBRUSH>(NewGdiHandle(std::make_shared<Brush>(LOGBRUSH{BS_SOLID, color, 0})));
}
