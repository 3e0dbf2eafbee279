// Device contexts, the objects that are selected into them, and regions.
#include "tests/host/gdi_canvas.h"
#include "tests/host/wine.h"

TEST(GdiObject, IsSelectedUntilAnotherTakesItsPlace)
{
    Canvas canvas(1, 1);
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    EXPECT_EQ(SelectObject(canvas.Dc(), brush), GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(GetCurrentObject(canvas.Dc(), OBJ_BRUSH), brush);
    EXPECT_EQ(SelectObject(canvas.Dc(), GetStockObject(NULL_BRUSH)), brush);
    EXPECT_TRUE(DeleteObject(brush));
}

TEST(GdiObject, IsNotDeletedWhileItIsSelected)
{
    if (OnWine())
        GTEST_SKIP() << "deletes it later";
    Canvas canvas(1, 1);
    const HGDIOBJ objects[] = {CreatePen(PS_SOLID, 1, 0), CreateSolidBrush(0),
                               CreateFontW(-11, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, TEXT("Arial"))};
    for (const HGDIOBJ object : objects) {
        const HGDIOBJ previous = SelectObject(canvas.Dc(), object);
        EXPECT_FALSE(DeleteObject(object));
        SaveDC(canvas.Dc());
        SelectObject(canvas.Dc(), previous);
        EXPECT_FALSE(DeleteObject(object)) << "the saved state has it";
        RestoreDC(canvas.Dc(), -1);
        SelectObject(canvas.Dc(), previous);
        EXPECT_TRUE(DeleteObject(object));
    }
}

TEST(GdiObject, IsUnknownOnceItIsDeleted)
{
    Canvas canvas(1, 1);
    const HBRUSH brush = CreateSolidBrush(0);
    ASSERT_TRUE(DeleteObject(brush));
    const HBRUSH next = CreateSolidBrush(0);
    EXPECT_NE(next, brush);
    EXPECT_EQ(SelectObject(canvas.Dc(), brush), nullptr);
    EXPECT_EQ(GetObjectType(brush), 0u);
    EXPECT_FALSE(DeleteObject(brush));
    EXPECT_FALSE(DeleteObject(nullptr));
    EXPECT_TRUE(DeleteObject(next));
    EXPECT_TRUE(DeleteObject(GetStockObject(WHITE_BRUSH))) << "the system's own only seem to go";
    EXPECT_EQ(GetObjectType(GetStockObject(WHITE_BRUSH)), static_cast<DWORD>(OBJ_BRUSH));
}

TEST(GdiObject, TellsWhatItWasMadeFrom)
{
    LOGFONTW font = {};
    font.lfHeight = -17;
    font.lfWeight = FW_BOLD;
    font.lfFaceName[0] = 'A';
    const HFONT fontHandle = CreateFontIndirectW(&font);
    LOGFONTW fontCopy = {};
    EXPECT_EQ(GetObjectW(fontHandle, sizeof fontCopy, &fontCopy), static_cast<int>(sizeof font));
    EXPECT_EQ(fontCopy.lfHeight, -17);
    EXPECT_EQ(fontCopy.lfWeight, FW_BOLD);
    EXPECT_TRUE(DeleteObject(fontHandle));

    const HBITMAP bitmap = CreateBitmap(17, 3, 1, 1, nullptr);
    BITMAP bitmapCopy = {};
    EXPECT_EQ(GetObjectW(bitmap, sizeof bitmapCopy, &bitmapCopy), static_cast<int>(sizeof bitmapCopy));
    EXPECT_EQ(bitmapCopy.bmWidth, 17);
    EXPECT_EQ(bitmapCopy.bmHeight, 3);
    EXPECT_EQ(bitmapCopy.bmWidthBytes, 4) << "rows end at 16 bits";
    EXPECT_EQ(bitmapCopy.bmBitsPixel, 1);
    EXPECT_EQ(GetObjectW(bitmap, 0, nullptr), static_cast<int>(sizeof bitmapCopy));
    EXPECT_TRUE(DeleteObject(bitmap));
    EXPECT_EQ(GetObjectW(bitmap, sizeof bitmapCopy, &bitmapCopy), 0);
}

TEST(DeviceContext, HasABitmapToItselfAlone)
{
    const HDC first = CreateCompatibleDC(nullptr);
    const HDC second = CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = CreateBitmap(2, 2, 1, 32, nullptr);
    const HGDIOBJ previous = SelectObject(first, bitmap);
    EXPECT_NE(previous, nullptr);
    EXPECT_EQ(SelectObject(second, bitmap), nullptr);
    EXPECT_EQ(SelectObject(first, previous), bitmap);
    EXPECT_EQ(SelectObject(second, bitmap), previous);
    EXPECT_TRUE(DeleteDC(second)) << "which lets the bitmap go";
    EXPECT_TRUE(DeleteObject(bitmap));
    EXPECT_TRUE(DeleteDC(first));
    EXPECT_FALSE(DeleteDC(first));
}

TEST(DeviceContext, RestoresWhatItSaved)
{
    Canvas canvas(8, 8);
    const HDC dc = canvas.Dc();
    SetTextColor(dc, 1);
    EXPECT_EQ(SaveDC(dc), 1);
    SetTextColor(dc, 2);
    SetBkMode(dc, TRANSPARENT);
    SetViewportOrgEx(dc, 3, 3, nullptr);
    IntersectClipRect(dc, 0, 0, 1, 1);
    EXPECT_EQ(SaveDC(dc), 2);
    SetTextColor(dc, 3);
    EXPECT_FALSE(RestoreDC(dc, 3));
    EXPECT_FALSE(RestoreDC(dc, 0));
    EXPECT_TRUE(RestoreDC(dc, -1));
    EXPECT_EQ(GetTextColor(dc), 2u);
    EXPECT_TRUE(RestoreDC(dc, 1));
    EXPECT_EQ(GetTextColor(dc), 1u);
    EXPECT_EQ(GetBkMode(dc), OPAQUE);
    RECT box;
    EXPECT_EQ(GetClipBox(dc, &box), SIMPLEREGION);
    EXPECT_EQ(box.right, 8);
    EXPECT_FALSE(RestoreDC(dc, -1));
}

TEST(DeviceContext, MovesDrawingByItsOrigins)
{
    Canvas canvas(5, 3);
    const HDC dc = canvas.Dc();
    POINT previous;
    EXPECT_TRUE(SetViewportOrgEx(dc, 1, 0, nullptr));
    EXPECT_TRUE(OffsetViewportOrgEx(dc, 1, 1, &previous));
    EXPECT_EQ(previous.x, 1);
    const RECT rect = {1, 0, 2, 2};
    FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    EXPECT_EQ(canvas.Letters(), Picture({".....", "...#.", "...#."}));
    RECT box;
    GetClipBox(dc, &box);
    EXPECT_EQ(box.left, -2) << "in logical coordinates";
}

TEST(DeviceContext, DrawsOnlyInsideItsClip)
{
    Canvas canvas(6, 4);
    const HDC dc = canvas.Dc();
    EXPECT_EQ(IntersectClipRect(dc, 1, 1, 6, 9), SIMPLEREGION);
    EXPECT_EQ(ExcludeClipRect(dc, 2, 2, 4, 3), COMPLEXREGION);
    PatBlt(dc, 0, 0, 6, 4, BLACKNESS);
    EXPECT_EQ(canvas.Letters(), Picture({"......", ".#####", ".#..##", ".#####"}));
    if (!OnWine()) {
        EXPECT_EQ(SetPixel(dc, 2, 2, 0), CLR_INVALID);
        EXPECT_EQ(GetPixel(dc, 0, 0), CLR_INVALID);
    }
}

TEST(Region, CombinesAsSetsOfPixels)
{
    const struct
    {
        int mode;
        int result;
        const char* row; // pixels 0 to 5 of row 1
    } cases[] = {
        {RGN_AND, SIMPLEREGION, "..##.."},  {RGN_OR, COMPLEXREGION, "######"},
        {RGN_XOR, COMPLEXREGION, "##..##"}, {RGN_DIFF, COMPLEXREGION, "##...."},
        {RGN_COPY, SIMPLEREGION, "####.."},
    };
    const HRGN first = CreateRectRgn(0, 0, 4, 3);
    const HRGN second = CreateRectRgn(6, 4, 2, 1); // corners in any order
    const HRGN result = CreateRectRgn(0, 0, 0, 0);
    for (const auto& each : cases) {
        EXPECT_EQ(CombineRgn(result, first, second, each.mode), each.result) << each.mode;
        for (int x = 0; x < 6; ++x)
            EXPECT_EQ(PtInRegion(result, x, 1) != FALSE, each.row[x] == '#') << each.mode << " at " << x;
    }
    EXPECT_EQ(CombineRgn(result, first, first, RGN_DIFF), NULLREGION);
    EXPECT_EQ(CombineRgn(result, first, nullptr, RGN_OR), ERROR);
    for (const HRGN region : {first, second, result})
        EXPECT_TRUE(DeleteObject(region));
}

TEST(Rect, MeetsAnotherWithoutItsRightAndLowerEdge)
{
    const RECT square = {0, 0, 10, 10};
    const RECT aside = {5, -5, 15, 5};
    const RECT apart = {10, 0, 12, 10};
    RECT result;
    EXPECT_TRUE(IntersectRect(&result, &square, &aside));
    const RECT common = {5, 0, 10, 5};
    EXPECT_TRUE(EqualRect(&result, &common));
    EXPECT_FALSE(IntersectRect(&result, &square, &apart));
    EXPECT_TRUE(IsRectEmpty(&result));
    EXPECT_TRUE(PtInRect(&square, {9, 0}));
    EXPECT_FALSE(PtInRect(&square, {10, 0}));
}

TEST(DeviceContext, TakesACopyOfTheClipRegion)
{
    Canvas canvas(4, 1);
    const HDC dc = canvas.Dc();
    const HRGN region = CreateRectRgn(1, 0, 2, 1);
    EXPECT_EQ(GetClipRgn(dc, region), 0);
    EXPECT_EQ(SelectClipRgn(dc, region), SIMPLEREGION);
    SetRectRgn(region, 3, 0, 4, 1);
    EXPECT_EQ(ExtSelectClipRgn(dc, region, RGN_OR), COMPLEXREGION);
    EXPECT_TRUE(DeleteObject(region));
    PatBlt(dc, 0, 0, 4, 1, BLACKNESS);
    EXPECT_EQ(canvas.Letters(), Picture({".#.#"}));
}

TEST(Region, IsEqualHoweverItWasMade)
{
    const HRGN whole = CreateRectRgn(0, 0, 4, 4);
    const HRGN upper = CreateRectRgn(0, 0, 4, 2);
    const HRGN lower = CreateRectRgn(0, 2, 4, 4);
    EXPECT_EQ(CombineRgn(upper, upper, lower, RGN_OR), SIMPLEREGION);
    EXPECT_TRUE(EqualRgn(upper, whole));
    EXPECT_EQ(OffsetRgn(upper, 1, 0), SIMPLEREGION);
    EXPECT_FALSE(EqualRgn(upper, whole));
    for (const HRGN region : {whole, upper, lower})
        EXPECT_TRUE(DeleteObject(region));
}
