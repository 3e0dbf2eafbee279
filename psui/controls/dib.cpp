#include "psui/controls/dib.h"

#include <algorithm>

#include "psui/base/module.h"

namespace psui {

namespace {

constexpr uint32_t kMaxColors = 256;
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
           header.biHeight > 0 && header.biHeight <= kMaxSide && header.biClrUsed <= kMaxColors;
}

} // namespace

DibView FindDib(UINT id)
{
    const HRSRC resource = FindResourceW(hOwnModule, MAKEINTRESOURCEW(id), RT_BITMAP);
    const HGLOBAL loaded = resource ? LoadResource(hOwnModule, resource) : nullptr;
    const auto* bytes = loaded ? static_cast<const uint8_t*>(LockResource(loaded)) : nullptr;
    const size_t size = bytes ? SizeofResource(hOwnModule, resource) : 0;
    if (size < sizeof(BITMAPINFOHEADER))
        return {};
    const auto* info = reinterpret_cast<const BITMAPINFO*>(bytes);
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
    dib.colors = reinterpret_cast<const RGBQUAD*>(bytes + sizeof(BITMAPINFOHEADER));
    dib.pixels = bytes + offset;
    return dib;
}

HPALETTE PaletteOf(const RGBQUAD* colors, uint32_t count)
{
    if (count == 0 || count > kMaxColors)
        return nullptr;
    struct
    {
        LOGPALETTE head;
        PALETTEENTRY more[kMaxColors - 1]; // the head holds the first
    } palette = {};
    palette.head.palVersion = kPaletteVersion;
    palette.head.palNumEntries = static_cast<WORD>(count);
    PALETTEENTRY* const entries = palette.head.palPalEntry;
    for (uint32_t i = 0; i < count; ++i)
        entries[i] = {colors[i].rgbRed, colors[i].rgbGreen, colors[i].rgbBlue, 0};
    return CreatePalette(&palette.head);
}

} // namespace psui
