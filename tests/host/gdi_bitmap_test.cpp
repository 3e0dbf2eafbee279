// Bitmaps and what carries them from one place to another.
#include <cstring>

#include "tests/host/gdi_canvas.h"

namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kGreen = RGB(0, 255, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);

/// Room for a header with a full colour table.
struct FullInfo
{
    BITMAPINFOHEADER header = {};
    RGBQUAD colors[256] = {};

    FullInfo(int width, int height, WORD bitCount)
    {
        header = TopDownInfo(width, height, bitCount).bmiHeader;
    }
    BITMAPINFO* Get() { return reinterpret_cast<BITMAPINFO*>(this); }
};

/// A row of black and white pixels with a device context of its own.
struct Monochrome
{
    const HDC dc = CreateCompatibleDC(nullptr);
    const Selected bitmap;

    Monochrome(int width, const WORD* row) : bitmap(dc, CreateBitmap(width, 1, 1, 1, row)) {}
    ~Monochrome() { EXPECT_TRUE(DeleteDC(dc)); }
};

} // namespace

TEST(Blit, ComputesEveryTernaryOperation)
{
    // Bit i of every byte is case i of pattern << 2 | source << 1 | destination.
    constexpr uint32_t kPattern = 0xF0F0F0;
    constexpr uint32_t kSource = 0xCCCCCC;
    constexpr uint32_t kDestination = 0xAAAAAA;
    Canvas to(3, 1);
    Canvas from(3, 1);
    const Selected brush(to.Dc(), CreateSolidBrush(kPattern));
    for (DWORD table = 0; table < 256; ++table) {
        to.Clear(kDestination);
        from.Clear(kSource);
        EXPECT_TRUE(BitBlt(to.Dc(), 1, 0, 1, 1, from.Dc(), 0, 0, table << 16));
        EXPECT_EQ(to.At(1, 0) & 0xFFFFFF, table * 0x010101) << table;
        EXPECT_EQ(to.At(0, 0), kDestination);
        EXPECT_EQ(to.At(2, 0), kDestination);
    }
}

TEST(Blit, KeepsAPictureThatOverlapsItself)
{
    for (const int shift : {1, -1}) {
        Canvas canvas(5, 5);
        const COLORREF colors[] = {kRed, kGreen, kBlue};
        for (int i = 0; i < 3; ++i)
            SetPixel(canvas.Dc(), 1 + i, 1 + i, colors[i]);
        EXPECT_TRUE(BitBlt(canvas.Dc(), 1 + shift, 1 + shift, 3, 3, canvas.Dc(), 1, 1, SRCCOPY));
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(canvas.Color(1 + shift + i, 1 + shift + i), colors[i]) << shift;
    }
}

TEST(Blit, MonochromePictureTakesTheTargetsColors)
{
    Canvas to(4, 1);
    const WORD row = 0x00A0; // white, black, white, black
    const Monochrome from(4, &row);
    SetTextColor(to.Dc(), kRed);
    SetBkColor(to.Dc(), kBlue);
    EXPECT_TRUE(BitBlt(to.Dc(), 0, 0, 4, 1, from.dc, 0, 0, SRCCOPY));
    EXPECT_EQ(to.Letters(), Picture({"brbr"}));
}

TEST(Blit, SourcesBackgroundBecomesTheWhiteOfAMask)
{
    Canvas from(4, 1);
    const COLORREF colors[] = {kRed, kGreen, kRed, RGB(255, 255, 255)};
    for (int x = 0; x < 4; ++x)
        SetPixel(from.Dc(), x, 0, colors[x]);
    const Monochrome mask(4, nullptr);
    SetBkColor(from.Dc(), kRed);
    EXPECT_TRUE(BitBlt(mask.dc, 0, 0, 4, 1, from.Dc(), 0, 0, SRCCOPY));
    const COLORREF expected[] = {RGB(255, 255, 255), 0, RGB(255, 255, 255), 0};
    for (int x = 0; x < 4; ++x)
        EXPECT_EQ(GetPixel(mask.dc, x, 0), expected[x]) << x;
}

TEST(Blit, LeavesAloneWhatTheSourceDoesNotCover)
{
    Canvas from(2, 1);
    PatBlt(from.Dc(), 0, 0, 2, 1, BLACKNESS);
    Canvas to(4, 1);
    to.Clear(kRed);
    BitBlt(to.Dc(), 0, 0, 2, 1, from.Dc(), 1, 0, SRCCOPY);
    EXPECT_EQ(to.Letters()[0].substr(0, 1) + to.Letters()[0].substr(2), "#rr");
}

TEST(Dib, KeepsPixelsThroughEveryDepth)
{
    // Colours that 5 bits a channel keep.
    const COLORREF colors[] = {kRed, kGreen, kBlue, RGB(0, 0, 0), RGB(255, 255, 255)};
    for (const WORD bitCount : {WORD{8}, WORD{16}, WORD{24}, WORD{32}}) {
        for (const bool bottomUp : {false, true}) {
            FullInfo info(5, 2, bitCount);
            info.header.biHeight = bottomUp ? 2 : -2;
            for (int i = 0; i < 5; ++i)
                info.colors[i] = {GetBValue(colors[i]), GetGValue(colors[i]), GetRValue(colors[i]), 0};
            const HDC dc = CreateCompatibleDC(nullptr);
            BYTE* bits = nullptr;
            const HBITMAP bitmap =
                CreateDIBSection(dc, info.Get(), DIB_RGB_COLORS, reinterpret_cast<void**>(&bits), nullptr, 0);
            const HGDIOBJ previous = SelectObject(dc, bitmap);
            for (int x = 0; x < 5; ++x)
                EXPECT_EQ(SetPixel(dc, x, 1, colors[x]), colors[x]) << bitCount;
            for (int x = 0; x < 5; ++x)
                EXPECT_EQ(GetPixel(dc, x, 1), colors[x]) << bitCount;
            const size_t rowBytes = (5u * bitCount + 31) / 32 * 4;
            const BYTE* const lower = bits + (bottomUp ? 0 : rowBytes);
            const BYTE red[] = {0, 0, 0xFF};
            if (bitCount >= 24) {
                EXPECT_EQ(std::memcmp(lower, red, 3), 0) << "blue, green, red in memory";
            }
            if (bitCount == 8) {
                EXPECT_EQ(lower[2], 2) << "the place in the table";
            }
            SelectObject(dc, previous);
            EXPECT_TRUE(DeleteObject(bitmap));
            EXPECT_TRUE(DeleteDC(dc));
        }
    }
}

TEST(Dib, IsDrawnFromMemory)
{
    // Four rows of two pixels with places in a table, the lowest first; rows end at 4 bytes.
    FullInfo info(2, 4, 8);
    info.header.biHeight = 4;
    info.header.biClrUsed = 3;
    info.colors[0] = {0, 0, 255, 0};
    info.colors[1] = {0, 255, 0, 0};
    info.colors[2] = {255, 0, 0, 0};
    const BYTE bits[16] = {0, 1, 0, 0, 1, 2, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0};
    Canvas canvas(4, 4);
    EXPECT_EQ(SetDIBitsToDevice(canvas.Dc(), 1, 0, 2, 4, 0, 0, 0, 4, bits, info.Get(), DIB_RGB_COLORS), 4);
    EXPECT_EQ(canvas.Letters(), Picture({".rr.", ".br.", ".gb.", ".rg."}));
    canvas.Clear(RGB(255, 255, 255));
    EXPECT_GE(SetDIBitsToDevice(canvas.Dc(), 0, 0, 2, 2, 0, 0, 0, 4, bits, info.Get(), DIB_RGB_COLORS), 2);
    EXPECT_EQ(canvas.Letters(), Picture({"gb..", "rg..", "....", "...."})) << "the lower two";
}

TEST(Dib, RefusesHeadersThatAreNotSound)
{
    const struct
    {
        const char* what;
        BITMAPINFOHEADER header;
    } cases[] = {
        {"no width", {sizeof(BITMAPINFOHEADER), 0, 1, 1, 32, BI_RGB, 0, 0, 0, 0, 0}},
        {"negative width", {sizeof(BITMAPINFOHEADER), -1, 1, 1, 32, BI_RGB, 0, 0, 0, 0, 0}},
        {"no height", {sizeof(BITMAPINFOHEADER), 1, 0, 1, 32, BI_RGB, 0, 0, 0, 0, 0}},
        {"odd depth", {sizeof(BITMAPINFOHEADER), 1, 1, 1, 7, BI_RGB, 0, 0, 0, 0, 0}},
        {"too large", {sizeof(BITMAPINFOHEADER), 0x7FFFFFFF, 0x7FFFFFFF, 1, 32, BI_RGB, 0, 0, 0, 0, 0}},
        {"small header", {8, 1, 1, 1, 32, BI_RGB, 0, 0, 0, 0, 0}},
    };
    for (const auto& each : cases) {
        BITMAPINFO info = {};
        info.bmiHeader = each.header;
        void* bits = &info;
        EXPECT_EQ(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0), nullptr) << each.what;
    }
    EXPECT_EQ(CreateBitmap(0x7FFFFFFF, 0x7FFFFFFF, 1, 32, nullptr), nullptr);
}

TEST(Blit, NamedOperationsAreTheirTables)
{
    constexpr struct
    {
        DWORD operation;
        DWORD table;
    } cases[] = {{SRCCOPY, 0xCC},   {SRCPAINT, 0xEE},   {SRCAND, 0x88},     {SRCINVERT, 0x66},
                 {SRCERASE, 0x44},  {NOTSRCCOPY, 0x33}, {MERGECOPY, 0xC0},  {MERGEPAINT, 0xBB},
                 {PATCOPY, 0xF0},   {PATPAINT, 0xFB},   {PATINVERT, 0x5A},  {DSTINVERT, 0x55},
                 {BLACKNESS, 0x00}, {WHITENESS, 0xFF},  {0x00B8074A, 0xB8}, {0x00E20746, 0xE2}};
    Canvas to(1, 1);
    Canvas from(1, 1);
    const Selected brush(to.Dc(), CreateSolidBrush(0xF0F0F0));
    for (const auto& each : cases) {
        to.Clear(0xAAAAAA);
        from.Clear(0xCCCCCC);
        EXPECT_TRUE(BitBlt(to.Dc(), 0, 0, 1, 1, from.Dc(), 0, 0, each.operation));
        EXPECT_EQ(to.At(0, 0) & 0xFFFFFF, each.table * 0x010101) << std::hex << each.operation;
    }
}

TEST(Blit, StretchesAndMirrors)
{
    Canvas from(2, 1);
    SetPixel(from.Dc(), 0, 0, kRed);
    SetPixel(from.Dc(), 1, 0, kBlue);
    Canvas to(6, 2);
    SetStretchBltMode(to.Dc(), COLORONCOLOR);
    EXPECT_TRUE(StretchBlt(to.Dc(), 1, 0, 4, 2, from.Dc(), 0, 0, 2, 1, SRCCOPY));
    EXPECT_EQ(to.Letters(), Picture({".rrbb.", ".rrbb."}));
    EXPECT_TRUE(StretchBlt(to.Dc(), 5, 0, -4, 1, from.Dc(), 0, 0, 2, 1, SRCCOPY));
    EXPECT_EQ(to.Letters()[0].find("bb"), to.Letters()[0].find('b')) << "mirrored";
    EXPECT_LT(to.Letters()[0].find('b'), to.Letters()[0].find("rr"));
}

TEST(Dib, GivesRowsInTheOrderAskedFor)
{
    Canvas canvas(1, 3);
    SetPixel(canvas.Dc(), 0, 0, kRed);
    SetPixel(canvas.Dc(), 0, 1, kGreen);
    SetPixel(canvas.Dc(), 0, 2, kBlue);
    const HBITMAP bitmap = CreateCompatibleBitmap(canvas.Dc(), 1, 3);
    const BITMAPINFO topDown = TopDownInfo(1, 3);
    EXPECT_EQ(SetDIBits(canvas.Dc(), bitmap, 0, 3, &canvas.At(0, 0), &topDown, DIB_RGB_COLORS), 3);
    BITMAPINFO info = topDown;
    info.bmiHeader.biHeight = 3;
    uint32_t bits[3] = {};
    EXPECT_EQ(GetDIBits(canvas.Dc(), bitmap, 0, 3, bits, &info, DIB_RGB_COLORS), 3);
    EXPECT_EQ(bits[0], 0x0000FFu) << "the lowest row comes first";
    EXPECT_EQ(bits[2], 0xFF0000u);
    EXPECT_EQ(GetDIBits(canvas.Dc(), bitmap, 1, 1, bits, &info, DIB_RGB_COLORS), 1);
    EXPECT_EQ(bits[0], 0x00FF00u);
    EXPECT_TRUE(DeleteObject(bitmap));
}

TEST(Dib, TakesColorsFromThePalette)
{
    struct
    {
        LOGPALETTE palette;
        PALETTEENTRY second;
    } description = {{0x300, 2, {{0, 255, 0, 0}}}, {255, 0, 0, 0}};
    const HPALETTE palette = CreatePalette(&description.palette);
    Canvas canvas(2, 1);
    const HPALETTE previous = SelectPalette(canvas.Dc(), palette, FALSE);
    EXPECT_EQ(previous, GetStockObject(DEFAULT_PALETTE));
    EXPECT_NE(RealizePalette(canvas.Dc()), static_cast<UINT>(GDI_ERROR));
    FullInfo info(2, 1, 8);
    info.header.biClrUsed = 2;
    const WORD places[] = {1, 0};
    std::memcpy(info.colors, places, sizeof places);
    const BYTE bits[4] = {0, 1, 0, 0};
    EXPECT_NE(StretchDIBits(canvas.Dc(), 0, 0, 2, 1, 0, 0, 2, 1, bits, info.Get(), DIB_PAL_COLORS, SRCCOPY),
              0);
    EXPECT_EQ(canvas.Letters(), Picture({"rg"}));
    EXPECT_EQ(GetNearestPaletteIndex(palette, RGB(200, 20, 20)), 1u);
    EXPECT_EQ(SelectPalette(canvas.Dc(), previous, FALSE), palette);
    EXPECT_TRUE(DeleteObject(palette));
}
