#include "host/shell/compstui/printer_icon.h"

#include <cstdint>
#include <iterator>

namespace compstui {
namespace {

constexpr int kSide = 16; // pixels

// Blank lets the caption through.
constexpr const char* kRows[kSide] = {
    "                ", "   eeeeeeeeee   ", "   ewwwwwwwwe   ", "   ewbbbbbwwe   ",
    "   ewwwwwwwwe   ", " dddddddddddddd ", "dllllllllllllldd", "dlmmmmmmmmmmmgmd",
    "dmmmmmmmmmmmmmmd", "dmmddddddddddmmd", "dmmdwwwwwwwwdmmd", " dddwbbbbbwwddd ",
    "   ewwwwwwwwe   ", "   ewbbbbbbwe   ", "   ewwwwwwwwe   ", "   eeeeeeeeee   ",
};

struct Ink
{
    char letter;
    uint32_t color; // 0xAARRGGBB
};

constexpr Ink kInks[] = {
    {'e', 0xFF8A94A0}, {'w', 0xFFFFFFFF}, {'b', 0xFF1F5FBF}, {'d', 0xFF2A323A},
    {'l', 0xFF7D8995}, {'m', 0xFF5A6672}, {'g', 0xFF7ED957},
};

uint32_t ColorOf(char letter)
{
    for (const Ink& ink : kInks)
        if (ink.letter == letter)
            return ink.color;
    return 0;
}

HBITMAP MakeColors()
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = kSide;
    info.bmiHeader.biHeight = -kSide; // top row first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* pixels = nullptr;
    const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    for (int i = 0; bitmap && i < kSide * kSide; ++i)
        static_cast<uint32_t*>(pixels)[i] = ColorOf(kRows[i / kSide][i % kSide]);
    return bitmap;
}

HBITMAP MakeMask()
{
    uint8_t rows[kSide][2] = {}; // a set bit lets the ground through
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x)
            if (ColorOf(kRows[y][x]) == 0)
                rows[y][x / 8] = static_cast<uint8_t>(rows[y][x / 8] | 0x80 >> x % 8);
    return CreateBitmap(kSide, kSide, 1, 1, rows);
}

} // namespace

HICON MakePrinterIcon()
{
    ICONINFO parts = {};
    parts.fIcon = TRUE;
    parts.hbmMask = MakeMask();
    parts.hbmColor = MakeColors();
    const HICON icon = parts.hbmMask && parts.hbmColor ? CreateIconIndirect(&parts) : nullptr;
    DeleteObject(parts.hbmMask);
    DeleteObject(parts.hbmColor);
    return icon;
}

} // namespace compstui
