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

HBRUSH WINAPI CreateHatchBrush(int hatch, COLORREF color)
{
    HOST_CALL(CreateHatchBrush, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    if (hatch < HS_HORIZONTAL || hatch > HS_DIAGCROSS) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const LOGBRUSH description = {BS_HATCHED, color, static_cast<ULONG_PTR>(hatch)};
    return static_cast<HBRUSH>(NewGdiHandle(std::make_shared<Brush>(description)));
}

HBRUSH WINAPI CreatePatternBrush(HBITMAP bitmapHandle)
{
    HOST_CALL(CreatePatternBrush, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    const GdiLock lock;
    const std::shared_ptr<Bitmap> bitmap = Gdi<Bitmap>(bitmapHandle);
    if (!bitmap)
        return nullptr;
    const Image& from = bitmap->image;
    const LOGBRUSH description = {BS_PATTERN, 0, reinterpret_cast<ULONG_PTR>(bitmapHandle)};
    const auto brush = std::make_shared<Brush>(description);
    brush->pattern.monochrome = from.monochrome;
    brush->pattern.table = from.table;
    if (!MakeImage(brush->pattern, from.width, from.height, from.monochrome ? 1 : 32, 4, false)) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    for (int y = 0; y < from.height; ++y) {
        const RowAccess source(from, y, 0, from.width, RowUse::Read);
        const RowAccess copy(brush->pattern, y, 0, from.width, RowUse::Write);
        std::copy_n(source.Pixels(), from.width, copy.Pixels());
    }
    return static_cast<HBRUSH>(NewGdiHandle(brush));
}

HBRUSH WINAPI CreateBrushIndirect(const LOGBRUSH* description)
{
    HOST_CALL(CreateBrushIndirect, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    if (description == nullptr)
        return nullptr;
    switch (description->lbStyle) {
    case BS_SOLID:
        return CreateSolidBrush(description->lbColor);
    case BS_NULL:
        return static_cast<HBRUSH>(NewGdiHandle(std::make_shared<Brush>(LOGBRUSH{BS_NULL, 0, 0})));
    case BS_HATCHED:
        return CreateHatchBrush(static_cast<int>(description->lbHatch), description->lbColor);
    case BS_PATTERN:
        return CreatePatternBrush(reinterpret_cast<HBITMAP>(description->lbHatch));
    default:
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
}
