#include "host/gdi/icon.h"

#include <algorithm>
#include <cstring>

#include "host/gdi/area.h"
#include "host/gdi/bitmap.h"
#include "host/gdi/blit.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"

namespace host {
namespace {

constexpr int kIconSide = 32; // the usual size of icons and cursors, in pixels
constexpr int kOpacityShift = 24;

uint32_t* ColorRow(const Icon& icon, int y)
{
    return reinterpret_cast<uint32_t*>(icon.color.top + icon.color.stride * y);
}

/// The pixel of a picture that a place in a larger or smaller copy shows.
int SourcePlace(int place, int length, int sourceLength)
{
    return static_cast<int>((2 * int64_t{place} + 1) * sourceLength / (2 * int64_t{length}));
}

/// Copies 32-bit pixels with their top bytes, or any others without.
void FillColors(Icon& icon, const Image& picture)
{
    for (int y = 0; y < icon.color.height; ++y) {
        const int from = SourcePlace(y, icon.color.height, picture.height);
        const RowAccess row(picture, from, 0, picture.width, RowUse::Read);
        for (int x = 0; x < icon.color.width; ++x) {
            const uint32_t pixel = row.Pixels()[SourcePlace(x, icon.color.width, picture.width)];
            ColorRow(icon, y)[x] = picture.depth == 32 ? pixel : pixel & kColorBits;
            icon.blended = icon.blended || ColorRow(icon, y)[x] >> kOpacityShift != 0;
        }
    }
}

void FillMask(Icon& icon, const Image& mask)
{
    for (int y = 0; y < icon.mask.height; ++y) {
        const RowAccess from(mask, SourcePlace(y, icon.mask.height, mask.height), 0, mask.width,
                             RowUse::Read);
        const RowAccess to(icon.mask, y, 0, icon.mask.width, RowUse::Write);
        for (int x = 0; x < icon.mask.width; ++x)
            to.Pixels()[x] = from.Pixels()[SourcePlace(x, icon.mask.width, mask.width)];
    }
}

/// The picture and the mask below it, as an icon's resource holds them.
struct IconImages
{
    Image color;
    Image mask;
};

std::optional<IconImages> ImagesOf(std::span<const std::byte> data)
{
    BITMAPINFOHEADER header;
    if (data.size() < sizeof header)
        return {};
    std::memcpy(&header, data.data(), sizeof header);
    // The header's height counts both pictures.
    const std::optional<DibFormat> both = ReadDibHeader(header);
    if (!both || !both->bottomUp || both->height < 2)
        return {};
    DibFormat format = *both;
    format.height /= 2;
    DibFormat maskFormat = format;
    maskFormat.depth = 1;
    maskFormat.rowBytes = static_cast<size_t>(RowBytes(format.width, 1, 4));
    const size_t colorBits = format.tableOffset + format.colorCount * sizeof(RGBQUAD);
    const size_t maskBits = colorBits + format.ImageBytes();
    if (maskBits > data.size() || data.size() - maskBits < maskFormat.ImageBytes())
        return {};
    std::vector<uint32_t> table =
        ReadColorTable(data.data(), format, DIB_RGB_COLORS, *Stock<Palette>(DEFAULT_PALETTE));
    return IconImages{ViewOf(format, data.data() + colorBits, std::move(table)),
                      ViewOf(maskFormat, data.data() + maskBits, {kBlackPixel, kWhitePixel})};
}

/// One row of an icon, stretched, on what is below it. `flags` tells which of picture and mask is drawn.
void DrawIconRow(const Icon& icon, int sourceY, int width, int firstX, uint32_t* pixels, int count,
                 UINT flags)
{
    const RowAccess mask(icon.mask, sourceY, 0, icon.mask.width, RowUse::Read);
    const uint32_t* const color = ColorRow(icon, sourceY);
    for (int i = 0; i < count; ++i) {
        const int x = SourcePlace(firstX + i, width, icon.color.width);
        if (icon.blended && (flags & DI_IMAGE) != 0) {
            pixels[i] = Blend(pixels[i], color[x], color[x] >> kOpacityShift);
            continue;
        }
        const uint32_t kept = (flags & DI_MASK) != 0 ? pixels[i] & mask.Pixels()[x] : 0;
        const uint32_t drawn = (flags & DI_IMAGE) != 0 ? color[x] & kColorBits : 0;
        pixels[i] = flags == DI_MASK ? mask.Pixels()[x] : kept ^ drawn;
    }
}

void DrawIconOn(DeviceContext& dc, const Icon& icon, const RECT& area, UINT flags)
{
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    for (const RECT& part : dc.Reach().Rects()) {
        const RECT visible = Intersection(part, area);
        for (LONG y = visible.top; y < visible.bottom; ++y) {
            const RowAccess row(dc.Target(), y, visible.left, visible.right - visible.left, RowUse::Change);
            DrawIconRow(icon, SourcePlace(y - area.top, height, icon.color.height), width,
                        visible.left - area.left, row.Pixels(), visible.right - visible.left, flags);
        }
    }
}

/// The size that an icon is drawn at along one side.
int SideFor(int wanted, int own, UINT flags)
{
    if (wanted != 0)
        return wanted;
    return (flags & DI_DEFAULTSIZE) != 0 ? kIconSide : own;
}

HBITMAP CopyToBitmap(const Image& image, int depth)
{
    const std::shared_ptr<Bitmap> bitmap = MakeBitmap(image.width, image.height, depth);
    for (int y = 0; bitmap && y < image.height; ++y)
        CopyRow(image, y, bitmap->image, y, image.width);
    return NewBitmapHandle(bitmap);
}

} // namespace

std::shared_ptr<Icon> MakeIcon(int width, int height)
{
    auto icon = std::make_shared<Icon>();
    if (!MakeImage(icon->color, width, height, 32, 4, false) ||
        !MakeImage(icon->mask, width, height, 1, 2, false))
        return nullptr;
    icon->mask.monochrome = true;
    icon->mask.table = {kBlackPixel, kWhitePixel};
    std::memset(icon->mask.top, 0xFF, static_cast<size_t>(icon->mask.stride) * static_cast<size_t>(height));
    return icon;
}

std::shared_ptr<Icon> ReadIcon(std::span<const std::byte> data, bool cursor, int width, int height)
{
    POINT hotspot = {};
    if (cursor) {
        WORD point[2];
        if (data.size() < sizeof point)
            return nullptr;
        std::memcpy(point, data.data(), sizeof point);
        hotspot = {point[0], point[1]};
        data = data.subspan(sizeof point);
    }
    const std::optional<IconImages> images = ImagesOf(data);
    if (!images)
        return nullptr;
    auto icon =
        MakeIcon(width != 0 ? width : images->color.width, height != 0 ? height : images->color.height);
    if (!icon)
        return nullptr;
    FillColors(*icon, images->color);
    FillMask(*icon, images->mask);
    icon->cursor = cursor;
    icon->hotspot = {hotspot.x * icon->color.width / images->color.width,
                     hotspot.y * icon->color.height / images->color.height};
    return icon;
}

HICON NewIconHandle(std::shared_ptr<Icon> icon, bool shared)
{
    if (!icon)
        return nullptr;
    return static_cast<HICON>(shared ? NewPermanentHandle(std::move(icon)) : NewGdiHandle(std::move(icon)));
}

} // namespace host

using namespace host;

HICON WINAPI CreateIconIndirect(PICONINFO description)
{
    HOST_CALL(CreateIconIndirect, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    const GdiLock lock;
    const std::shared_ptr<Bitmap> mask = description != nullptr ? Gdi<Bitmap>(description->hbmMask) : nullptr;
    if (!mask)
        return nullptr;
    const bool colored = description->hbmColor != nullptr;
    const std::shared_ptr<Bitmap> color = colored ? Gdi<Bitmap>(description->hbmColor) : mask;
    if (!color)
        return nullptr;
    // Without a colour bitmap the mask holds both, one below the other.
    Image upper = mask->image;
    Image picture = color->image;
    if (!colored) {
        upper.height /= 2;
        picture.height /= 2;
        picture.top += picture.stride * picture.height;
    }
    const std::shared_ptr<Icon> icon = MakeIcon(picture.width, picture.height);
    if (!icon)
        return nullptr;
    FillColors(*icon, picture);
    FillMask(*icon, upper);
    icon->cursor = description->fIcon == FALSE;
    icon->hotspot = {static_cast<LONG>(description->xHotspot), static_cast<LONG>(description->yHotspot)};
    return NewIconHandle(icon, false);
}

HICON WINAPI CopyIcon(HICON handle)
{
    HOST_CALL(CopyIcon, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    const GdiLock lock;
    const std::shared_ptr<Icon> icon = Gdi<Icon>(handle);
    const std::shared_ptr<Icon> copy = icon ? MakeIcon(icon->color.width, icon->color.height) : nullptr;
    if (!copy)
        return nullptr;
    FillColors(*copy, icon->color);
    FillMask(*copy, icon->mask);
    copy->blended = icon->blended;
    copy->cursor = icon->cursor;
    copy->hotspot = icon->hotspot;
    return NewIconHandle(copy, false);
}

BOOL WINAPI GetIconInfo(HICON handle, PICONINFO description)
{
    HOST_CALL(GetIconInfo, FALSE, ERROR_NOT_ENOUGH_MEMORY);
    const GdiLock lock;
    const std::shared_ptr<Icon> icon = Gdi<Icon>(handle);
    if (!icon || description == nullptr)
        return FALSE;
    description->fIcon = icon->cursor ? FALSE : TRUE;
    const POINT middle = {icon->color.width / 2, icon->color.height / 2};
    const POINT hotspot = icon->cursor ? icon->hotspot : middle;
    description->xHotspot = static_cast<DWORD>(hotspot.x);
    description->yHotspot = static_cast<DWORD>(hotspot.y);
    description->hbmMask = CopyToBitmap(icon->mask, 1);
    description->hbmColor = CopyToBitmap(icon->color, 32);
    return description->hbmMask != nullptr && description->hbmColor != nullptr;
}

BOOL WINAPI DestroyIcon(HICON handle)
{
    HOST_CALL_VOID(DestroyIcon);
    const GdiLock lock;
    const std::shared_ptr<Icon> icon = Gdi<Icon>(handle);
    if (!icon) {
        SetLastError(ERROR_INVALID_CURSOR_HANDLE);
        return FALSE;
    }
    if (!icon->permanent)
        DropGdiHandle(handle);
    return TRUE;
}

BOOL WINAPI DestroyCursor(HCURSOR handle)
{
    HOST_CALL_VOID(DestroyCursor);
    return DestroyIcon(handle);
}

BOOL WINAPI DrawIconEx(HDC handle, int x, int y, HICON iconHandle, int width, int height, UINT,
                       HBRUSH background, UINT flags)
{
    HOST_CALL_VOID(DrawIconEx);
    const LockedDc dc(handle);
    const std::shared_ptr<Icon> icon = dc ? Gdi<Icon>(iconHandle) : nullptr;
    if (!icon)
        return FALSE;
    const int cx = SideFor(width, icon->color.width, flags);
    const int cy = SideFor(height, icon->color.height, flags);
    const RECT area = dc->ToSurface(RECT{x, y, x + cx, y + cy});
    if (const std::shared_ptr<Brush> brush = background != nullptr ? BrushOf(background) : nullptr)
        Painter(*dc, InkOf(*dc, *brush), kCopyPattern).Rect(area);
    DrawIconOn(*dc, *icon, area, flags & DI_NORMAL);
    return TRUE;
}

BOOL WINAPI DrawIcon(HDC dc, int x, int y, HICON icon)
{
    HOST_CALL_VOID(DrawIcon);
    return DrawIconEx(dc, x, y, icon, 0, 0, 0, nullptr, DI_NORMAL | DI_DEFAULTSIZE);
}
