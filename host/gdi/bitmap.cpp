#include "host/gdi/bitmap.h"

#include <algorithm>
#include <cstring>

#include "host/gdi/dc.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"

namespace host {
namespace {

constexpr int kScreenDepth = 32;

/// The palette of a device context, or the system's for none.
std::shared_ptr<Palette> PaletteOf(HDC handle)
{
    const std::shared_ptr<GdiObject> object = GdiObjectOf(handle);
    if (object && object->kind == GdiKind::DeviceContext)
        return Gdi<Palette>(static_cast<DeviceContext&>(*object).state.palette->handle);
    return Stock<Palette>(DEFAULT_PALETTE);
}

HBITMAP NewPlainBitmap(int width, int height, int depth)
{
    // A bitmap without area is the smallest one there is.
    const bool empty = width == 0 || height == 0;
    return NewBitmapHandle(empty ? MakeBitmap(1, 1, 1) : MakeBitmap(width, height, depth));
}

} // namespace

std::shared_ptr<Bitmap> MakeBitmap(int width, int height, int depth)
{
    auto bitmap = std::make_shared<Bitmap>();
    if (!MakeImage(bitmap->image, width, height, depth, 2, false)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    bitmap->image.monochrome = depth == 1;
    bitmap->image.table = DefaultTable(depth);
    return bitmap;
}

std::shared_ptr<Bitmap> MakeSection(const DibFormat& format, const BITMAPINFOHEADER& header,
                                    std::vector<uint32_t> table)
{
    auto bitmap = std::make_shared<Bitmap>();
    if (!MakeImage(bitmap->image, format.width, format.height, format.depth, 4, format.bottomUp)) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    bitmap->section = true;
    bitmap->header = header;
    bitmap->header.biSize = sizeof header;
    bitmap->header.biSizeImage = static_cast<DWORD>(format.ImageBytes());
    bitmap->image.table = std::move(table);
    return bitmap;
}

HBITMAP NewBitmapHandle(std::shared_ptr<Bitmap> bitmap)
{
    return bitmap ? static_cast<HBITMAP>(NewGdiHandle(std::move(bitmap))) : nullptr;
}

} // namespace host

using namespace host;

HBITMAP WINAPI CreateBitmap(int width, int height, UINT planes, UINT bitCount, const VOID* bits)
{
    HOST_CALL(CreateBitmap, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    constexpr UINT kDepths[] = {1, 4, 8, 16, 24, 32};
    if (planes != 1 || std::find(std::begin(kDepths), std::end(kDepths), bitCount) == std::end(kDepths)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const GdiLock lock;
    const HBITMAP handle = NewPlainBitmap(width, height, static_cast<int>(bitCount));
    if (handle != nullptr && bits != nullptr && width > 0 && height > 0) {
        const Image& image = Gdi<Bitmap>(handle)->image;
        std::memcpy(image.top, bits, static_cast<size_t>(image.stride) * static_cast<size_t>(height));
    }
    return handle;
}

HBITMAP WINAPI CreateCompatibleBitmap(HDC handle, int width, int height)
{
    HOST_CALL(CreateCompatibleBitmap, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    const LockedDc dc(handle);
    if (!dc)
        return nullptr;
    return NewPlainBitmap(width, height, dc->Target().monochrome ? 1 : kScreenDepth);
}

HBITMAP WINAPI CreateDIBSection(HDC handle, const BITMAPINFO* info, UINT usage, VOID** bits, HANDLE section,
                                DWORD)
{
    HOST_CALL(CreateDIBSection, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    if (bits != nullptr)
        *bits = nullptr;
    const std::optional<DibFormat> format =
        info != nullptr && section == nullptr ? ReadDibHeader(info->bmiHeader) : std::nullopt;
    if (!format) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const GdiLock lock;
    const std::shared_ptr<Bitmap> bitmap =
        MakeSection(*format, info->bmiHeader, ReadColorTable(info, *format, usage, *PaletteOf(handle)));
    const HBITMAP result = NewBitmapHandle(bitmap);
    if (result != nullptr && bits != nullptr)
        *bits = format->bottomUp ? bitmap->image.top + bitmap->image.stride * (format->height - 1)
                                 : bitmap->image.top;
    return result;
}
