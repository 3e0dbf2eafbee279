// Measuring and drawing text. Typefaces differ from system to system, so tests state relations.
#include "tests/host/gdi_canvas.h"

namespace {

HFONT MakeFont(LONG height, LONG weight = FW_NORMAL, LONG escapement = 0)
{
    LOGFONTW font = {};
    font.lfHeight = height;
    font.lfWeight = weight;
    font.lfEscapement = font.lfOrientation = escapement;
    font.lfCharSet = DEFAULT_CHARSET;
    lstrcpynW(font.lfFaceName, TEXT("Arial"), LF_FACESIZE);
    return CreateFontIndirectW(&font);
}

LONG WidthOf(HDC dc, const WCHAR* text)
{
    SIZE size = {};
    EXPECT_TRUE(GetTextExtentPoint32W(dc, text, lstrlenW(text), &size));
    return size.cx;
}

LONG LineHeight(HDC dc)
{
    TEXTMETRICW metrics = {};
    EXPECT_TRUE(GetTextMetricsW(dc, &metrics));
    return metrics.tmHeight;
}

/// What DrawTextW would take of a rectangle of the given width.
RECT Measured(HDC dc, const WCHAR* text, LONG width, UINT format)
{
    RECT rect = {0, 0, width, 0};
    const int height = DrawTextW(dc, text, -1, &rect, format | DT_CALCRECT);
    EXPECT_EQ(height, rect.bottom);
    return rect;
}

class Text : public testing::Test
{
protected:
    Canvas canvas_{200, 80};
    HDC dc_ = canvas_.Dc();
    Selected font_{dc_, MakeFont(-16)};
};

struct FaceCount
{
    WCHAR face[LF_FACESIZE];
    int matching;
    int all;
};

int CALLBACK CountFaces(const LOGFONTW* font, const TEXTMETRICW* metrics, DWORD, LPARAM parameter)
{
    auto& count = *reinterpret_cast<FaceCount*>(parameter);
    EXPECT_GT(metrics->tmHeight, 0);
    count.matching += lstrcmpW(font->lfFaceName, count.face) == 0;
    ++count.all;
    return 1;
}

int CALLBACK StopAtOnce(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM count)
{
    ++*reinterpret_cast<int*>(count);
    return 0;
}

} // namespace

TEST_F(Text, MetricsAreConsistent)
{
    for (const LONG height : {-8L, -11L, -16L, -40L, 20L, 0L}) {
        const Selected font(dc_, MakeFont(static_cast<LONG>(height)));
        TEXTMETRICW metrics = {};
        ASSERT_TRUE(GetTextMetricsW(dc_, &metrics));
        EXPECT_EQ(metrics.tmHeight, metrics.tmAscent + metrics.tmDescent) << height;
        if (height < 0) {
            EXPECT_NEAR(metrics.tmHeight - metrics.tmInternalLeading, -height, 1);
        }
        if (height > 0) {
            EXPECT_LE(metrics.tmHeight, height);
        }
        EXPECT_GT(metrics.tmAveCharWidth, 0);
        EXPECT_GE(metrics.tmMaxCharWidth, metrics.tmAveCharWidth);
        EXPECT_NE(metrics.tmPitchAndFamily & TMPF_FIXED_PITCH, 0) << "which means that widths vary";
    }
}

TEST_F(Text, BoldIsWiderAndLargerIsLarger)
{
    const LONG plain = WidthOf(dc_, TEXT("Quality"));
    {
        const Selected font(dc_, MakeFont(-16, FW_BOLD));
        EXPECT_GT(WidthOf(dc_, TEXT("Quality")), plain);
    }
    const Selected font(dc_, MakeFont(-32));
    EXPECT_GT(WidthOf(dc_, TEXT("Quality")), plain * 3 / 2);
}

TEST_F(Text, IsDrawnInsideItsCell)
{
    SetTextColor(dc_, RGB(0, 0, 0));
    SetBkMode(dc_, TRANSPARENT);
    EXPECT_TRUE(TextOutW(dc_, 20, 30, TEXT("Hg"), 2));
    const RECT drawn = canvas_.Drawn();
    EXPECT_LT(drawn.left, drawn.right);
    EXPECT_GE(drawn.left, 19);
    EXPECT_LE(drawn.right, 21 + WidthOf(dc_, TEXT("Hg")));
    EXPECT_GE(drawn.top, 30);
    EXPECT_LE(drawn.bottom, 30 + LineHeight(dc_));
}

TEST_F(Text, OpaqueTextFillsItsCell)
{
    SetBkColor(dc_, RGB(0, 0, 255));
    TextOutW(dc_, 10, 10, TEXT(" "), 1);
    const RECT drawn = canvas_.Drawn();
    EXPECT_EQ(drawn.left, 10);
    EXPECT_EQ(drawn.right, 10 + WidthOf(dc_, TEXT(" ")));
    EXPECT_EQ(drawn.bottom - drawn.top, LineHeight(dc_));
}

TEST_F(Text, DrawTextMeasuresLines)
{
    const LONG line = LineHeight(dc_);
    const WCHAR words[] = TEXT("alpha beta gamma");
    const LONG beta = WidthOf(dc_, TEXT("alpha beta"));
    const LONG blank = WidthOf(dc_, TEXT(" "));
    const struct
    {
        const char* what;
        const WCHAR* text;
        LONG width;
        UINT format;
        LONG right;
        LONG lines;
    } cases[] = {
        {"one line", words, 10, 0, WidthOf(dc_, words), 1},
        {"line breaks", TEXT("alpha\r\nb\nc"), 500, 0, WidthOf(dc_, TEXT("alpha")), 3},
        {"an empty line", TEXT("b\n\nalpha"), 500, 0, WidthOf(dc_, TEXT("alpha")), 3},
        {"wrapped words", words, beta + blank, DT_WORDBREAK, beta, 2},
        {"no room for the second word", words, beta - 1, DT_WORDBREAK, WidthOf(dc_, TEXT("gamma")), 3},
        {"word wider than the room", TEXT("alpha"), 5, DT_WORDBREAK, WidthOf(dc_, TEXT("alpha")), 1},
        {"mnemonic", TEXT("&alpha && b"), 500, 0, WidthOf(dc_, TEXT("alpha & b")), 1},
        {"no mnemonic", TEXT("&alpha"), 500, DT_NOPREFIX, WidthOf(dc_, TEXT("&alpha")), 1},
    };
    for (const auto& each : cases) {
        const RECT rect = Measured(dc_, each.text, each.width, each.format);
        // The word before a break may keep its blank.
        EXPECT_GE(rect.right, each.right) << each.what;
        EXPECT_LE(rect.right, each.right + blank) << each.what;
        EXPECT_EQ(rect.bottom, each.lines * line) << each.what;
    }
}

TEST_F(Text, DrawTextPlacesLines)
{
    SetBkMode(dc_, TRANSPARENT);
    const WCHAR text[] = TEXT("place");
    const LONG width = WidthOf(dc_, text);
    const LONG height = LineHeight(dc_);
    constexpr LONG spare = 30;
    TextOutW(dc_, 0, 0, text, 5);
    const RECT plain = canvas_.Drawn();
    const struct
    {
        UINT format;
        LONG x;
        LONG y;
    } cases[] = {
        {DT_SINGLELINE, 10, 20},
        {DT_SINGLELINE | DT_RIGHT, 150 - width, 20},
        {DT_SINGLELINE | DT_BOTTOM, 10, 20 + spare},
        {DT_SINGLELINE | DT_VCENTER | DT_CENTER, 10 + (140 - width) / 2, 20 + spare / 2},
        {DT_VCENTER, 10, 20}, // of several lines nobody knows the middle
    };
    for (const auto& each : cases) {
        canvas_.Clear(RGB(255, 255, 255));
        RECT rect = {10, 20, 150, 20 + spare + height};
        const int result = DrawTextW(dc_, text, -1, &rect, each.format);
        EXPECT_EQ(result, each.y - 20 + height) << each.format;
        RECT expected = plain;
        OffsetRect(&expected, static_cast<int>(each.x), static_cast<int>(each.y));
        const RECT drawn = canvas_.Drawn();
        EXPECT_TRUE(EqualRect(&drawn, &expected)) << each.format;
    }
}

TEST_F(Text, DrawTextStaysInItsRectangle)
{
    RECT rect = {10, 10, 30, 18};
    DrawTextW(dc_, TEXT("WWWWWWWW"), -1, &rect, DT_SINGLELINE);
    const RECT clipped = canvas_.Drawn();
    EXPECT_LE(clipped.right, 30);
    EXPECT_LE(clipped.bottom, 18);
    DrawTextW(dc_, TEXT("WWWWWWWW"), -1, &rect, DT_SINGLELINE | DT_NOCLIP);
    EXPECT_GT(canvas_.Drawn().right, 30);
}

TEST_F(Text, DrawTextUnderlinesTheMnemonic)
{
    SetBkMode(dc_, TRANSPARENT);
    LONG bottoms[2];
    for (const bool marked : {false, true}) {
        canvas_.Clear(RGB(255, 255, 255));
        RECT rect = {0, 0, 200, 80};
        DrawTextW(dc_, marked ? TEXT("n&n") : TEXT("nn"), -1, &rect, 0);
        bottoms[marked] = canvas_.Drawn().bottom;
    }
    EXPECT_GT(bottoms[true], bottoms[false]);
}

TEST_F(Text, DrawTextShortensWhatDoesNotFit)
{
    const LONG room = WidthOf(dc_, TEXT("a long te..."));
    WCHAR text[64] = TEXT("a long text that does not fit");
    RECT rect = {0, 0, room, 40};
    DrawTextW(dc_, text, -1, &rect, DT_SINGLELINE | DT_END_ELLIPSIS | DT_MODIFYSTRING | DT_NOPREFIX);
    EXPECT_EQ(lstrcmpW(text, TEXT("a long te...")), 0);
    lstrcpynW(text, TEXT("C:\\folder\\another\\file.bmp"), 64);
    DrawTextW(dc_, text, -1, &rect, DT_SINGLELINE | DT_PATH_ELLIPSIS | DT_MODIFYSTRING | DT_NOPREFIX);
    EXPECT_EQ(lstrcmpW(text + lstrlenW(text) - 12, TEXT("...\\file.bmp")), 0);
}

TEST_F(Text, TabsGoToTheNextStop)
{
    TEXTMETRICW metrics;
    GetTextMetricsW(dc_, &metrics);
    EXPECT_EQ(Measured(dc_, TEXT("a\tb"), 500, DT_EXPANDTABS).right,
              8 * metrics.tmAveCharWidth + WidthOf(dc_, TEXT("b")));
    const INT stops[] = {40, 90};
    const LONG extent = TabbedTextOutW(dc_, 5, 5, TEXT("a\tb\tc"), 5, 2, stops, 5);
    EXPECT_EQ(LOWORD(extent), 90 + WidthOf(dc_, TEXT("c")));
    EXPECT_EQ(HIWORD(extent), LineHeight(dc_));
}

TEST(DesktopFonts, AreToldWithOrWithoutTheLastField)
{
    for (const size_t size : {sizeof(NONCLIENTMETRICSW), offsetof(NONCLIENTMETRICSW, iPaddedBorderWidth)}) {
        NONCLIENTMETRICSW metrics = {};
        metrics.cbSize = static_cast<UINT>(size);
        EXPECT_TRUE(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0)) << size;
        EXPECT_NE(metrics.lfMessageFont.lfFaceName[0], 0);
        EXPECT_NE(metrics.lfMessageFont.lfHeight, 0);
    }
}

TEST_F(Text, WidthIsTheSumOfItsCharacters)
{
    const WCHAR text[] = TEXT("Paper size, 100 %");
    int widths[128];
    ASSERT_TRUE(GetCharWidth32W(dc_, 0, 127, widths));
    LONG sum = 0;
    for (int i = 0; text[i] != 0; ++i)
        sum += widths[text[i]];
    EXPECT_EQ(WidthOf(dc_, text), sum);
    SIZE size;
    EXPECT_TRUE(GetTextExtentPoint32W(dc_, text, 3, &size));
    EXPECT_EQ(size.cy, LineHeight(dc_));
    EXPECT_TRUE(GetTextExtentPoint32W(dc_, text, 0, &size));
    EXPECT_EQ(size.cx, 0);
}

TEST_F(Text, AlignmentMovesIt)
{
    SetBkMode(dc_, TRANSPARENT);
    const WCHAR text[] = TEXT("Align");
    const LONG width = WidthOf(dc_, text);
    TEXTMETRICW metrics;
    GetTextMetricsW(dc_, &metrics);
    TextOutW(dc_, 100, 30, text, 5);
    const RECT plain = canvas_.Drawn();
    const struct
    {
        UINT align;
        LONG x;
        LONG y;
    } cases[] = {
        {TA_RIGHT, 100 + width, 30},
        {TA_BASELINE, 100, 30 + metrics.tmAscent},
        {TA_BOTTOM, 100, 30 + metrics.tmHeight},
        {TA_CENTER, 100 + width / 2, 30},
    };
    for (const auto& each : cases) {
        canvas_.Clear(RGB(255, 255, 255));
        SetTextAlign(dc_, each.align);
        TextOutW(dc_, static_cast<int>(each.x), static_cast<int>(each.y), text, 5);
        const RECT drawn = canvas_.Drawn();
        EXPECT_TRUE(EqualRect(&drawn, &plain)) << each.align;
    }
    SetTextAlign(dc_, TA_UPDATECP);
    MoveToEx(dc_, 5, 6, nullptr);
    TextOutW(dc_, 999, 999, text, 5);
    POINT position;
    GetCurrentPositionEx(dc_, &position);
    EXPECT_EQ(position.x, 5 + width);
    EXPECT_EQ(position.y, 6);
}

TEST_F(Text, ExtTextOutFillsAndClips)
{
    SetBkColor(dc_, RGB(0, 255, 0));
    const RECT rect = {10, 10, 20, 15};
    EXPECT_TRUE(ExtTextOutW(dc_, 0, 0, ETO_OPAQUE | ETO_CLIPPED, &rect, TEXT("WWWW"), 4, nullptr));
    const RECT drawn = canvas_.Drawn();
    EXPECT_TRUE(EqualRect(&drawn, &rect));
    EXPECT_TRUE(ExtTextOutW(dc_, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr));
    EXPECT_EQ(canvas_.Color(15, 12), static_cast<COLORREF>(RGB(0, 255, 0)));
}

TEST_F(Text, TurnsByItsEscapement)
{
    SetBkMode(dc_, TRANSPARENT);
    const Selected font(dc_, MakeFont(-16, FW_NORMAL, 900));
    TextOutW(dc_, 50, 70, TEXT("lllllll"), 7);
    const RECT drawn = canvas_.Drawn();
    EXPECT_GT(drawn.bottom - drawn.top, drawn.right - drawn.left) << "it runs upwards";
    EXPECT_LE(drawn.bottom, 72);
    EXPECT_GE(drawn.left, 49);
}

TEST_F(Text, FacesAreListedUntilTheProgramHasEnough)
{
    // Whatever stands for the face that was asked for is in the list.
    FaceCount found = {};
    const int length = GetTextFaceW(dc_, LF_FACESIZE, found.face);
    EXPECT_EQ(length, lstrlenW(found.face) + 1);
    EXPECT_EQ(EnumFontFamiliesW(dc_, nullptr, CountFaces, reinterpret_cast<LPARAM>(&found)), 1);
    EXPECT_GE(found.matching, 1);
    EXPECT_GT(found.all, found.matching);
    FaceCount named = found;
    named.all = named.matching = 0;
    EnumFontFamiliesW(dc_, found.face, CountFaces, reinterpret_cast<LPARAM>(&named));
    EXPECT_GE(named.matching, 1);
    EXPECT_EQ(named.all, named.matching);
    int count = 0;
    EXPECT_EQ(EnumFontFamiliesW(dc_, nullptr, StopAtOnce, reinterpret_cast<LPARAM>(&count)), 0);
    EXPECT_EQ(count, 1);
}
