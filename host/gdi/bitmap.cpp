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

/// What the program's memory at `bits` holds; `rows` of the image's rows are there, from row `start` on as
/// the memory counts them.
struct ScanLines
{
    Image view;   // of these rows alone
    int top = 0;  // the row of the whole image that is the view's top row
    int rows = 0; // none when `start` is behind the image's end
};

ScanLines LinesIn(DibFormat format, const void* bits, std::vector<uint32_t> table, UINT start, UINT count)
{
    ScanLines lines;
    const UINT height = static_cast<UINT>(format.height);
    if (start >= height || count == 0)
        return lines;
    lines.rows = static_cast<int>(std::min(count, height - start));
    lines.top = static_cast<int>(start);
    if (format.bottomUp)
        lines.top = format.height - lines.top - lines.rows;
    format.height = lines.rows;
    lines.view = ViewOf(format, bits, std::move(table));
    return lines;
}

/// Copies the rows between the program's memory and a bitmap; how many there were.
int CopyLines(const ScanLines& lines, const Image& image, bool intoBitmap)
{
    const int width = std::min(lines.view.width, image.width);
    const int rows = std::min(lines.rows, image.height - lines.top);
    for (int y = 0; y < rows; ++y) {
        if (intoBitmap)
            CopyRow(lines.view, y, image, lines.top + y, width);
        else
            CopyRow(image, lines.top + y, lines.view, y, width);
    }
    return std::max(rows, 0);
}

/// Fills a header that asks what a bitmap is like.
void DescribeAsDib(const Bitmap& bitmap, BITMAPINFOHEADER& header)
{
    const Image& image = bitmap.image;
    header = {};
    header.biSize = sizeof header;
    header.biWidth = image.width;
    header.biHeight = image.height;
    header.biPlanes = 1;
    header.biBitCount = static_cast<WORD>(image.depth);
    header.biCompression = BI_RGB;
    header.biSizeImage = static_cast<DWORD>(RowBytes(image.width, image.depth, 4) * image.height);
}

void WriteColorTable(BITMAPINFO& info, const DibFormat& format, const std::vector<uint32_t>& table,
                     UINT usage)
{
    std::byte* const entries = reinterpret_cast<std::byte*>(&info) + format.tableOffset;
    for (size_t i = 0; i < table.size(); ++i) {
        const WORD place = static_cast<WORD>(i);
        if (usage == DIB_PAL_COLORS)
            std::memcpy(entries + i * sizeof place, &place, sizeof place);
        else
            std::memcpy(entries + i * sizeof table[i], &table[i], sizeof table[i]);
    }
}

/// Copies colours between a bitmap's table and the program's memory; how many.
UINT ExchangeColors(HDC handle, UINT start, UINT count, RGBQUAD* colors, bool intoBitmap)
{
    const LockedDc dc(handle);
    if (!dc || !dc->memory || colors == nullptr || !dc->state.bitmap->section)
        return 0;
    std::vector<uint32_t>& table = dc->state.bitmap->image.table;
    if (start >= table.size())
        return 0;
    const UINT known = std::min(count, static_cast<UINT>(table.size()) - start);
    for (UINT i = 0; i < known; ++i) {
        uint32_t& pixel = table[start + i];
        if (!intoBitmap) {
            std::memcpy(&colors[i], &pixel, sizeof pixel);
            continue;
        }
        std::memcpy(&pixel, &colors[i], sizeof pixel);
        pixel &= kColorBits;
    }
    return known;
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

HBITMAP WINAPI CreateBitmapIndirect(const BITMAP* description)
{
    HOST_CALL(CreateBitmapIndirect, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    if (description == nullptr)
        return nullptr;
    return CreateBitmap(description->bmWidth, description->bmHeight, description->bmPlanes,
                        description->bmBitsPixel, description->bmBits);
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

HBITMAP WINAPI CreateDIBitmap(HDC handle, const BITMAPINFOHEADER* header, DWORD flags, const VOID* bits,
                              const BITMAPINFO* info, UINT usage)
{
    HOST_CALL(CreateDIBitmap, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    if (header == nullptr)
        return nullptr;
    const int height = std::abs(std::max(header->biHeight, -INT32_MAX));
    const HBITMAP bitmap = CreateCompatibleBitmap(handle, header->biWidth, height);
    if (bitmap != nullptr && (flags & CBM_INIT) != 0)
        SetDIBits(handle, bitmap, 0, static_cast<UINT>(height), bits, info, usage);
    return bitmap;
}

int WINAPI SetDIBits(HDC dc, HBITMAP handle, UINT start, UINT count, const VOID* bits, const BITMAPINFO* info,
                     UINT usage)
{
    HOST_CALL_VOID(SetDIBits);
    const GdiLock lock;
    const std::shared_ptr<Bitmap> bitmap = Gdi<Bitmap>(handle);
    if (!bitmap)
        return 0;
    const std::optional<DibFormat> format =
        info != nullptr && bits != nullptr ? ReadDibHeader(info->bmiHeader) : std::nullopt;
    if (!format)
        return FailWith(ERROR_INVALID_PARAMETER);
    std::vector<uint32_t> table = ReadColorTable(info, *format, usage, *PaletteOf(dc));
    return CopyLines(LinesIn(*format, bits, std::move(table), start, count), bitmap->image, true);
}

int WINAPI GetDIBits(HDC dc, HBITMAP handle, UINT start, UINT count, LPVOID bits, BITMAPINFO* info,
                     UINT usage)
{
    HOST_CALL(GetDIBits, 0, ERROR_NOT_ENOUGH_MEMORY);
    const LockedDc locked(dc);
    const std::shared_ptr<Bitmap> bitmap = locked ? Gdi<Bitmap>(handle) : nullptr;
    if (!bitmap)
        return 0;
    if (info == nullptr || info->bmiHeader.biSize < sizeof(BITMAPINFOHEADER))
        return FailWith(ERROR_INVALID_PARAMETER);
    if (info->bmiHeader.biBitCount == 0) {
        DescribeAsDib(*bitmap, info->bmiHeader);
        return bitmap->image.height;
    }
    info->bmiHeader.biClrUsed = 0;
    const std::optional<DibFormat> format = ReadDibHeader(info->bmiHeader);
    if (!format)
        return FailWith(ERROR_INVALID_PARAMETER);
    const bool sameDepth = format->depth == bitmap->image.depth;
    std::vector<uint32_t> table = sameDepth ? bitmap->image.table : DefaultTable(format->depth);
    WriteColorTable(*info, *format, table, usage);
    info->bmiHeader.biSizeImage = static_cast<DWORD>(format->ImageBytes());
    if (bits == nullptr)
        return format->height;
    return CopyLines(LinesIn(*format, bits, std::move(table), start, count), bitmap->image, false);
}

UINT WINAPI SetDIBColorTable(HDC handle, UINT start, UINT count, const RGBQUAD* colors)
{
    HOST_CALL_VOID(SetDIBColorTable);
    return ExchangeColors(handle, start, count, const_cast<RGBQUAD*>(colors), true);
}

UINT WINAPI GetDIBColorTable(HDC handle, UINT start, UINT count, RGBQUAD* colors)
{
    HOST_CALL_VOID(GetDIBColorTable);
    return ExchangeColors(handle, start, count, colors, false);
}
