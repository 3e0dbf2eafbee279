// What other rooms and hosts use of the drawing room.
#include <algorithm>
#include <fstream>

#include <gtest/gtest.h>
#include <windows.h>

#include "host/gdi/surface.h"
#include "host/host.h"
#include "tests/host/memory_world.h"

namespace {

constexpr uint32_t kWhite = 0xFFFFFF;

class GdiWorld : public MemoryWorld
{
protected:
    static uint64_t WhitePixels(const host::Surface& surface)
    {
        uint64_t count = 0;
        for (int y = 0; y < surface.Height(); ++y)
            count +=
                static_cast<uint64_t>(std::count(surface.Row(y), surface.Row(y) + surface.Width(), kWhite));
        return count;
    }
};

TEXTMETRICW MetricsOf(HDC dc, const WCHAR* face, LONG height)
{
    LOGFONTW font = {};
    font.lfHeight = height;
    font.lfCharSet = DEFAULT_CHARSET;
    lstrcpynW(font.lfFaceName, face, LF_FACESIZE);
    const HFONT handle = CreateFontIndirectW(&font);
    const HGDIOBJ previous = SelectObject(dc, handle);
    TEXTMETRICW metrics = {};
    GetTextMetricsW(dc, &metrics);
    SelectObject(dc, previous);
    DeleteObject(handle);
    return metrics;
}

} // namespace

TEST_F(GdiWorld, DialogFontHasTheUsualSize)
{
    const HDC dc = CreateCompatibleDC(nullptr);
    for (const WCHAR* face : {TEXT("MS Shell Dlg"), TEXT("MS Shell Dlg 2"), TEXT("Tahoma"), TEXT("Arial")}) {
        for (const unsigned codePage : {1252u, 932u}) {
            host::SetCodePage(codePage);
            const TEXTMETRICW metrics = MetricsOf(dc, face, -11);
            EXPECT_EQ(metrics.tmHeight, 13);
            EXPECT_EQ(metrics.tmAveCharWidth, 6);
        }
    }
    EXPECT_TRUE(DeleteDC(dc));
}

TEST_F(GdiWorld, JapaneseTextHasGlyphsInEveryFace)
{
    const HDC dc = CreateCompatibleDC(nullptr);
    for (const WCHAR* face : {TEXT("MS Shell Dlg"), TEXT("MS UI Gothic"), TEXT("Arial")}) {
        const HFONT font =
            CreateFontW(-12, 0, 0, 0, 0, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0, 0, 0, face);
        const HGDIOBJ previous = SelectObject(dc, font);
        SIZE size;
        EXPECT_TRUE(GetTextExtentPoint32W(dc, TEXT("用紙サイズ"), 5, &size));
        EXPECT_EQ(size.cx, 5 * 12) << "each is as wide as it is high";
        SelectObject(dc, previous);
        EXPECT_TRUE(DeleteObject(font));
    }
    EXPECT_TRUE(DeleteDC(dc));
}

TEST_F(GdiWorld, SurfaceDrawingNeverLeavesItsClip)
{
    const auto surface = host::MakeSurface(20, 10);
    const RECT clip[] = {{2, 2, 6, 4}, {10, 0, 11, 100}, {4, 3, 8, 5}};
    const HDC dc = host::OpenSurfaceDC(surface, {5, 5}, clip, 3);
    const HRGN everything = CreateRectRgn(-100, -100, 100, 100);
    EXPECT_EQ(SelectClipRgn(dc, everything), COMPLEXREGION);
    EXPECT_EQ(ExtSelectClipRgn(dc, everything, RGN_OR), COMPLEXREGION);
    EXPECT_TRUE(DeleteObject(everything));
    PatBlt(dc, -100, -100, 300, 300, WHITENESS);
    SetBkColor(dc, RGB(255, 255, 255));
    TextOutW(dc, -5, -5, TEXT("WWWWWWW"), 7);
    SetPixel(dc, 0, 0, RGB(255, 255, 255));
    EXPECT_LE(WhitePixels(*surface), 4u * 2 + 10 + 4 * 2 - 2);
    EXPECT_EQ(surface->Row(9)[19], 0u);
    PatBlt(dc, -100, -100, 300, 300, WHITENESS);
    EXPECT_EQ(WhitePixels(*surface), 4u * 2 + 10 + 4 * 2 - 2);
    EXPECT_FALSE(DeleteDC(dc)) << "a program has no right to end it";
    host::CloseSurfaceDC(dc);
    EXPECT_EQ(GetTextColor(dc), CLR_INVALID);
}

TEST_F(GdiWorld, SurfaceOutlivesItsOwnerWhileItIsDrawnOn)
{
    auto surface = host::MakeSurface(4, 4);
    const RECT all = {0, 0, 4, 4};
    const HDC dc = host::OpenSurfaceDC(surface, {0, 0}, &all, 1);
    surface.reset();
    EXPECT_EQ(SetPixel(dc, 1, 1, RGB(1, 2, 3)), static_cast<COLORREF>(RGB(1, 2, 3)));
    host::CloseSurfaceDC(dc);
}

TEST_F(GdiWorld, SurfacesOfNonsenseSizesAreNotMade)
{
    for (const int side : {0, -1, 32768, INT32_MAX}) {
        EXPECT_EQ(host::MakeSurface(side, 1), nullptr) << side;
        EXPECT_EQ(host::MakeSurface(1, side), nullptr) << side;
    }
}

TEST_F(GdiWorld, CopySurfaceLeavesOutWhatLiesOutside)
{
    auto from = host::MakeSurface(3, 3);
    for (int y = 0; y < 3; ++y)
        std::fill_n(from->Row(y), 3, kWhite);
    for (const POINT position : {POINT{-1, -1}, POINT{3, 3}, POINT{50, 0}}) {
        auto to = host::MakeSurface(5, 5);
        host::CopySurface(*to, position, *from, {-1, -1, 99, 99});
        const LONG side = position.x == -1 ? 3 : position.x == 3 ? 1 : 0;
        EXPECT_EQ(WhitePixels(*to), static_cast<uint64_t>(side * side)) << position.x;
    }
    auto scrolled = host::MakeSurface(3, 3);
    scrolled->Row(0)[0] = kWhite;
    host::CopySurface(*scrolled, {0, 1}, *scrolled, {0, 0, 3, 2});
    EXPECT_EQ(scrolled->Row(1)[0], kWhite);
    EXPECT_EQ(scrolled->Row(2)[0], 0u) << "each row moves once";
}

TEST_F(GdiWorld, WritesPicturesAsPng)
{
    const auto surface = host::MakeSurface(3, 2);
    const std::string file = host::RootFolder() + "/picture.png";
    ASSERT_TRUE(host::WritePng(*surface, file));
    std::ifstream stream(file, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    ASSERT_GT(bytes.size(), 24u);
    EXPECT_EQ(bytes.substr(1, 3), "PNG");
    EXPECT_EQ(bytes[19], 3) << "width";
    EXPECT_EQ(bytes[23], 2) << "height";
    EXPECT_FALSE(host::WritePng(*surface, host::RootFolder() + "/none/picture.png"));
}
