#pragma once
// What tests of painters share: the pictures of the built library, and draw requests on a small picture.
#include <cstring>

#include "psui/settings/devmode.h"
#include "tests/host/gdi_canvas.h"
#include "tests/settings/support.h"

namespace test {

/// A world in which the painters of this program find the pictures of the built library.
class PictureWorld : public World
{
public:
    PictureWorld() : library_(LoadLibraryW(ProductFile("eng/psui.dll").c_str()))
    {
        EXPECT_NE(library_, nullptr);
        psui::hOwnModule = library_;
    }
    ~PictureWorld()
    {
        psui::hOwnModule = nullptr;
        FreeLibrary(library_);
    }

private:
    HMODULE library_;
};

/// The request to draw the whole of a control that covers `item` of the canvas.
inline DRAWITEMSTRUCT Request(const Canvas& canvas, UINT type, UINT id, const RECT& item)
{
    DRAWITEMSTRUCT request = {};
    request.CtlType = type;
    request.CtlID = id;
    request.itemAction = ODA_DRAWENTIRE;
    request.hDC = canvas.Dc();
    request.rcItem = item;
    return request;
}

inline psui::DriverDevMode Record(short orientation, int pages)
{
    psui::DriverDevMode record = {};
    record.dmPublic.dmOrientation = orientation;
    record.dmPublic.dmColor = DMCOLOR_COLOR;
    record.dmPublic.dmCopies = 1;
    record.dmPrivate.dwPagesPerSheet = pages;
    return record;
}

constexpr int kWidth = 200, kHeight = 150; // of the pictures that are compared
constexpr COLORREF kMagenta = RGB(255, 0, 255);

/// Lays the pixels of a bitmap but those of the key on a picture, without any of the library's painters.
inline void Lay(Canvas& canvas, UINT bitmap, int left, int top, COLORREF key)
{
    const HBITMAP picture = LoadBitmapW(psui::hOwnModule, MAKEINTRESOURCEW(bitmap));
    if (!picture)
        return;
    BITMAP shape = {};
    GetObjectW(picture, sizeof shape, &shape);
    Canvas copy(shape.bmWidth, shape.bmHeight);
    const HDC source = CreateCompatibleDC(nullptr);
    const HGDIOBJ previous = SelectObject(source, picture);
    BitBlt(copy.Dc(), 0, 0, shape.bmWidth, shape.bmHeight, source, 0, 0, SRCCOPY);
    SelectObject(source, previous);
    DeleteDC(source);
    DeleteObject(picture);
    const uint32_t keyPixel =
        static_cast<uint32_t>(GetRValue(key) << 16 | GetGValue(key) << 8 | GetBValue(key));
    for (int y = 0; y < shape.bmHeight && top + y < kHeight; ++y)
        for (int x = 0; x < shape.bmWidth && left + x < kWidth; ++x)
            if (copy.At(x, y) != keyPixel)
                canvas.At(left + x, top + y) = copy.At(x, y);
}

inline testing::AssertionResult Same(Canvas& drawn, Canvas& expected)
{
    if (std::memcmp(&drawn.At(0, 0), &expected.At(0, 0), sizeof(uint32_t) * kWidth * kHeight) == 0)
        return testing::AssertionSuccess();
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x)
            if (drawn.At(x, y) != expected.At(x, y))
                return testing::AssertionFailure() << "pixel " << x << ", " << y << " is " << std::hex
                                                   << drawn.At(x, y) << " instead of " << expected.At(x, y);
    return testing::AssertionSuccess();
}

} // namespace test
