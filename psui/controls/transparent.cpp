#include "psui/controls/transparent.h"

#include "psui/base/gdi.h"
#include "psui/base/module.h"
#include "psui/controls/dib.h"

namespace psui {

namespace {

constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kWhite = RGB(0xFF, 0xFF, 0xFF);
constexpr COLORREF kShadowColor = RGB(0x40, 0x40, 0x40);

// Copies a picture of one bit a pixel, whose clear and set bits take the two colours.
void CopyMask(HDC to, const SIZE& size, HDC mask, COLORREF clear, COLORREF set, DWORD operation)
{
    SetTextColor(to, clear);
    SetBkColor(to, set);
    BitBlt(to, 0, 0, size.cx, size.cy, mask, 0, 0, operation);
}

// Draws what is selected in `picture`; its background colour is lost.
void Compose(HDC dc, int x, int y, HDC picture, const SIZE& size, COLORREF key, int mode, HPALETTE palette)
{
    const MemoryPicture mask(dc, size.cx, size.cy, true);
    const MemoryPicture opaque(dc, size.cx, size.cy);
    const MemoryPicture whole(dc, size.cx, size.cy);
    if (!mask || !opaque || !whole)
        return;
    SetBkColor(picture, key); // sets the mask's bits of the key colour and clears the others
    BitBlt(mask.dc(), 0, 0, size.cx, size.cy, picture, 0, 0, SRCCOPY);
    BitBlt(whole.dc(), 0, 0, size.cx, size.cy, dc, x, y, SRCCOPY);
    CopyMask(whole.dc(), size, mask.dc(), kBlack, kWhite, SRCAND);
    if (mode == kOwnColors) {
        BitBlt(opaque.dc(), 0, 0, size.cx, size.cy, picture, 0, 0, SRCCOPY);
        CopyMask(opaque.dc(), size, mask.dc(), kWhite, kBlack, SRCAND);
    } else {
        CopyMask(opaque.dc(), size, mask.dc(), kShadowColor, kBlack, SRCCOPY);
    }
    BitBlt(whole.dc(), 0, 0, size.cx, size.cy, opaque.dc(), 0, 0, SRCPAINT);

    const PaletteSelection selected(dc, palette);
    BitBlt(dc, x, y, size.cx, size.cy, whole.dc(), 0, 0, SRCCOPY);
}

} // namespace

void DrawTransparentBitmap(HDC dc, HBITMAP bitmap, int x, int y, COLORREF key, int mode)
{
    BITMAP shape = {};
    if (!bitmap || GetObjectW(bitmap, sizeof(shape), &shape) != sizeof(shape))
        return;
    const MemoryPicture picture(dc, bitmap);
    if (picture)
        Compose(dc, x, y, picture.dc(), {shape.bmWidth, shape.bmHeight}, key, mode, nullptr);
}

void DrawTransparentDib(HDC dc, UINT id, int x, int y, COLORREF key, int mode)
{
    const DibView dib = FindDib(id);
    if (!dib.info)
        return;
    const SIZE size = {dib.Width(), dib.Height()};
    const MemoryPicture picture(dc, size.cx, size.cy);
    if (!picture ||
        SetDIBitsToDevice(picture.dc(), 0, 0, static_cast<DWORD>(size.cx), static_cast<DWORD>(size.cy), 0, 0,
                          0, static_cast<UINT>(size.cy), dib.pixels, dib.info, DIB_RGB_COLORS) == 0)
        return;
    const GdiObject<HPALETTE> palette(PaletteOf(dib.colors, dib.colorCount));
    Compose(dc, x, y, picture.dc(), size, key, mode, palette.get());
}

SIZE SizeOfBitmap(UINT id)
{
    const DibView dib = FindDib(id);
    return dib.info ? SIZE{dib.Width(), dib.Height()} : SIZE{0, 0};
}

} // namespace psui
