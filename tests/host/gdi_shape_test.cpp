// Lines and areas, pixel by pixel.
#include "tests/host/gdi_canvas.h"
#include "tests/host/wine.h"

namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);

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

TEST(Shapes, CombineWithWhatIsBelow)
{
    Canvas canvas(4, 1);
    const HDC dc = canvas.Dc();
    canvas.Clear(kBlue);
    EXPECT_EQ(SetROP2(dc, R2_MERGEPEN), R2_COPYPEN);
    const Selected pen(dc, CreatePen(PS_SOLID, 1, kRed));
    MoveToEx(dc, 0, 0, nullptr);
    LineTo(dc, 1, 0);
    SetROP2(dc, R2_NOT);
    LineTo(dc, 2, 0);
    SetROP2(dc, R2_BLACK);
    LineTo(dc, 3, 0);
    SetROP2(dc, R2_NOP);
    LineTo(dc, 4, 0);
    EXPECT_EQ(canvas.Color(0, 0), static_cast<COLORREF>(RGB(255, 0, 255)));
    EXPECT_EQ(canvas.Color(1, 0), static_cast<COLORREF>(RGB(255, 255, 0)));
    EXPECT_EQ(canvas.Letters()[0].substr(2), "#b");
}

TEST(Shapes, DottedPenShowsTheGroundOrLeavesIt)
{
    Canvas canvas(24, 1);
    const HDC dc = canvas.Dc();
    const Selected pen(dc, CreatePen(PS_DOT, 1, RGB(0, 0, 0)));
    SetBkMode(dc, TRANSPARENT);
    MoveToEx(dc, 0, 0, nullptr);
    LineTo(dc, 24, 0);
    const std::string dots = canvas.Letters()[0];
    EXPECT_EQ(dots[0], '#');
    EXPECT_NE(dots.find('.'), std::string::npos);
    SetBkMode(dc, OPAQUE);
    SetBkColor(dc, kRed);
    MoveToEx(dc, 0, 0, nullptr);
    LineTo(dc, 24, 0);
    for (size_t i = 0; i < dots.size(); ++i)
        EXPECT_EQ(canvas.Letters()[0][i], dots[i] == '#' ? '#' : 'r') << i;
}

TEST(Shapes, EdgesAreSystemColorsFromOutsideIn)
{
    const struct
    {
        UINT edge;
        int colors[4]; // outer left, inner left, inner right, outer right
    } cases[] = {
        {EDGE_RAISED, {COLOR_3DLIGHT, COLOR_BTNHIGHLIGHT, COLOR_BTNSHADOW, COLOR_3DDKSHADOW}},
        {EDGE_SUNKEN, {COLOR_BTNSHADOW, COLOR_3DDKSHADOW, COLOR_3DLIGHT, COLOR_BTNHIGHLIGHT}},
        {EDGE_ETCHED, {COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT, COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT}},
        {EDGE_BUMP, {COLOR_3DLIGHT, COLOR_3DDKSHADOW, COLOR_3DLIGHT, COLOR_3DDKSHADOW}},
    };
    for (const auto& each : cases) {
        Canvas canvas(9, 9);
        RECT rect = {0, 0, 9, 9};
        EXPECT_TRUE(DrawEdge(canvas.Dc(), &rect, each.edge, BF_RECT | BF_ADJUST));
        const int columns[] = {0, 1, 7, 8};
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(canvas.Color(columns[i], 4), GetSysColor(each.colors[i])) << each.edge << " line " << i;
        EXPECT_EQ(canvas.Color(4, 4), static_cast<COLORREF>(RGB(255, 255, 255)));
        EXPECT_EQ(rect.left, 2);
        EXPECT_EQ(rect.bottom, 7);
    }
}

TEST(Shapes, PatternBrushRepeatsFromItsOrigin)
{
    Canvas canvas(5, 3);
    const HDC dc = canvas.Dc();
    const WORD rows[] = {0x0080, 0x0040}; // the left pixel white above, the right one below
    const HBITMAP bitmap = CreateBitmap(2, 2, 1, 1, rows);
    const HBRUSH brush = CreatePatternBrush(bitmap);
    EXPECT_TRUE(DeleteObject(bitmap)) << "the brush has a copy";
    SetTextColor(dc, kRed);
    SetBkColor(dc, kBlue);
    SetBrushOrgEx(dc, 1, 0, nullptr);
    const RECT all = {0, 0, 5, 3};
    FillRect(dc, &all, brush);
    EXPECT_EQ(canvas.Letters(), Picture({"rbrbr", "brbrb", "rbrbr"}));
    EXPECT_TRUE(DeleteObject(brush));
}
