#include "psui/controls/dib.h"

#include <algorithm>

#include "psui/base/module.h"

namespace psui {

namespace {

constexpr WORD kPaletteVersion = 0x300;
constexpr int kMaxSide = 4096; // pixels; far beyond any picture of ours, and no product of two overflows

bool IsDepth(WORD bits)
{
    return bits == 1 || bits == 4 || bits == 8 || bits == 24 || bits == 32;
}

uint32_t ColorCount(const BITMAPINFOHEADER& header)
{
    if (header.biBitCount > 8)
        return 0;
    return header.biClrUsed ? header.biClrUsed : 1u << header.biBitCount;
}

bool IsSound(const BITMAPINFOHEADER& header)
{
    return header.biSize == sizeof(BITMAPINFOHEADER) && header.biCompression == BI_RGB &&
           IsDepth(header.biBitCount) && header.biWidth > 0 && header.biWidth <= kMaxSide &&
           header.biHeight > 0 && header.biHeight <= kMaxSide &&
           header.biClrUsed <= (header.biBitCount > 8 ? 0 : kMaxDibColors);
}

} // namespace

DibView ReadDib(const void* bytes, size_t size)
{
    if (size < sizeof(BITMAPINFOHEADER))
        return {};
    const auto* info = static_cast<const BITMAPINFO*>(bytes);
    if (!IsSound(info->bmiHeader))
        return {};
    DibView dib;
    dib.colorCount = ColorCount(info->bmiHeader);
    constexpr uint32_t kRowAlignmentBits = 32;
    const size_t rowBits = static_cast<size_t>(info->bmiHeader.biWidth) * info->bmiHeader.biBitCount;
    const size_t rowBytes = (rowBits + kRowAlignmentBits - 1) / kRowAlignmentBits * sizeof(uint32_t);
    const size_t offset = sizeof(BITMAPINFOHEADER) + dib.colorCount * sizeof(RGBQUAD);
    if (offset + rowBytes * static_cast<size_t>(info->bmiHeader.biHeight) > size)
        return {};
    dib.info = info;
    dib.colors = info->bmiColors;
    dib.pixels = static_cast<const uint8_t*>(bytes) + offset;
    return dib;
}

DibView FindDib(UINT id)
{
    const HRSRC resource = FindResourceW(hOwnModule, MAKEINTRESOURCEW(id), RT_BITMAP);
    const HGLOBAL loaded = resource ? LoadResource(hOwnModule, resource) : nullptr;
    const void* const bytes = loaded ? LockResource(loaded) : nullptr;
    return bytes ? ReadDib(bytes, SizeofResource(hOwnModule, resource)) : DibView{};
}

HPALETTE PaletteOf(const RGBQUAD* colors, uint32_t count)
{
    if (count == 0 || count > kMaxDibColors)
        return nullptr;
    struct
    {
        LOGPALETTE head;
        PALETTEENTRY more[kMaxDibColors - 1]; // the head holds the first
    } palette = {};
    palette.head.palVersion = kPaletteVersion;
    palette.head.palNumEntries = static_cast<WORD>(count);
    PALETTEENTRY* const entries = palette.head.palPalEntry;
    for (uint32_t i = 0; i < count; ++i)
        entries[i] = {colors[i].rgbRed, colors[i].rgbGreen, colors[i].rgbBlue, 0};
    return CreatePalette(&palette.head);
}

} // namespace psui
