// Lines and areas, pixel by pixel.
#include "tests/host/gdi_canvas.h"
#include "tests/host/wine.h"

namespace {

HBRUSH BlackBrush()
{
    return static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
}

} // namespace

TEST(Shapes, LineLeavesItsLastPointOut)
{
    Canvas canvas(6, 6);
    const HDC dc = canvas.Dc();
    MoveToEx(dc, 0, 0, nullptr);
    LineTo(dc, 4, 0);
    LineTo(dc, 4, 4);
    LineTo(dc, 0, 0);
    EXPECT_EQ(canvas.Letters(), Picture({"#####.", ".#..#.", "..#.#.", "...##.", "....#.", "......"}));
    POINT position;
    EXPECT_TRUE(MoveToEx(dc, 1, 1, &position));
    EXPECT_EQ(position.x, 0);
}

TEST(Shapes, FillsAndFramesRectangles)
{
    Canvas canvas(7, 4);
    const HDC dc = canvas.Dc();
    const RECT filled = {1, 0, 3, 4};
    EXPECT_TRUE(FillRect(dc, &filled, BlackBrush()));
    const RECT framed = {3, 0, 7, 4};
    EXPECT_TRUE(FrameRect(dc, &framed, BlackBrush()));
    EXPECT_EQ(canvas.Letters(), Picture({".######", ".###..#", ".###..#", ".######"}));
    if (!OnWine()) {
        EXPECT_FALSE(FillRect(dc, &filled, reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(0x7FFF1234))));
    }
}

TEST(Shapes, FillRectTakesSystemColorNumbers)
{
    Canvas canvas(1, 1);
    const RECT all = {0, 0, 1, 1};
    for (const int color : {COLOR_BTNFACE, COLOR_HIGHLIGHT, COLOR_WINDOW}) {
        EXPECT_TRUE(FillRect(canvas.Dc(), &all, reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(color + 1))));
        EXPECT_EQ(canvas.Color(0, 0), GetSysColor(color));
    }
}

TEST(Shapes, FocusRectangleTakesItselfAway)
{
    Canvas canvas(7, 5);
    const Picture before = canvas.Letters();
    const RECT rect = {1, 1, 6, 4};
    DrawFocusRect(canvas.Dc(), &rect);
    const Picture drawn = canvas.Letters();
    EXPECT_NE(drawn, before);
    EXPECT_EQ(drawn[2].substr(2, 3), "...") << "only the edge is drawn";
    DrawFocusRect(canvas.Dc(), &rect);
    EXPECT_EQ(canvas.Letters(), before);
}

TEST(Shapes, PolygonHasThePenAroundAndTheBrushInside)
{
    Canvas canvas(9, 5);
    const HDC dc = canvas.Dc();
    const Selected pen(dc, CreatePen(PS_SOLID, 1, RGB(255, 0, 0)));
    SelectObject(dc, BlackBrush());
    const POINT triangle[] = {{1, 4}, {4, 1}, {7, 4}};
    EXPECT_TRUE(Polygon(dc, triangle, 3));
    EXPECT_EQ(canvas.Letters(), Picture({".........", "....r....", "...r#r...", "..r###r..", ".rrrrrrr."}));
}
