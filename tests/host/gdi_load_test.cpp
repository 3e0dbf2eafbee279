// Pictures, icons and cursors from a module's resources and from files.
#include "tests/host/gdi_canvas.h"
#include "tests/host/scratch.h"
#include "tests/host/wine.h"

namespace {

constexpr WORD kPicture = 1; // 4 bits: black, red, green, blue above, the other way round below
constexpr WORD kMask = 2;    // 1 bit
constexpr WORD kIcon = 3;    // 16 pixels red with a see-through right half; 32 pixels blue the same way
constexpr WORD kCursor = 4;

class LoadedPictures : public testing::Test
{
protected:
    void SetUp() override { ASSERT_NE(module_, nullptr); }
    ~LoadedPictures() override { FreeLibrary(module_); }

    static LPCWSTR Name(WORD id) { return MAKEINTRESOURCEW(id); }

    /// Draws a bitmap at the canvas's corner.
    static void Show(Canvas& canvas, HBITMAP bitmap)
    {
        const HDC dc = CreateCompatibleDC(nullptr);
        const HGDIOBJ previous = SelectObject(dc, bitmap);
        BitBlt(canvas.Dc(), 0, 0, 64, 64, dc, 0, 0, SRCCOPY);
        SelectObject(dc, previous);
        EXPECT_TRUE(DeleteDC(dc));
    }

    HMODULE module_ = LoadLibraryW(TEXT("gdi_module.dll"));
};

} // namespace

TEST_F(LoadedPictures, BitmapsShowTheirColors)
{
    Canvas canvas(5, 2);
    const HBITMAP bitmap = LoadBitmapW(module_, Name(kPicture));
    ASSERT_NE(bitmap, nullptr);
    BITMAP description = {};
    GetObjectW(bitmap, sizeof description, &description);
    EXPECT_EQ(description.bmWidth, 4);
    EXPECT_EQ(description.bmHeight, 2);
    EXPECT_EQ(description.bmBits, nullptr);
    Show(canvas, bitmap);
    EXPECT_EQ(canvas.Letters(), Picture({"#rgb.", "bgr#."}));
    EXPECT_TRUE(DeleteObject(bitmap));
}

TEST_F(LoadedPictures, BlackAndWhiteBitmapsStayMonochrome)
{
    const HBITMAP bitmap = LoadBitmapW(module_, Name(kMask));
    BITMAP description = {};
    GetObjectW(bitmap, sizeof description, &description);
    EXPECT_EQ(description.bmBitsPixel, 1);
    Canvas canvas(4, 2);
    SetTextColor(canvas.Dc(), RGB(255, 0, 0));
    SetBkColor(canvas.Dc(), RGB(0, 0, 255));
    Show(canvas, bitmap);
    EXPECT_EQ(canvas.Letters(), Picture({"rbrb", "bbrr"}));
    EXPECT_TRUE(DeleteObject(bitmap));
}

TEST_F(LoadedPictures, AbsentOnesAreNotFound)
{
    EXPECT_EQ(LoadBitmapW(module_, Name(99)), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_RESOURCE_NAME_NOT_FOUND));
    EXPECT_EQ(LoadIconW(module_, Name(99)), nullptr);
    EXPECT_EQ(LoadCursorW(module_, Name(kIcon)), nullptr);
}

TEST_F(LoadedPictures, IconsOfTheNearestSizeAreTakenAndLeaveTheirGroundOpen)
{
    const struct
    {
        int wanted;
        char letter;
    } cases[] = {{16, 'r'}, {20, 'r'}, {32, 'b'}, {30, 'b'}, {64, 'b'}};
    for (const auto& each : cases) {
        const auto icon =
            static_cast<HICON>(LoadImageW(module_, Name(kIcon), IMAGE_ICON, each.wanted, each.wanted, 0));
        Canvas canvas(each.wanted, each.wanted);
        EXPECT_TRUE(DrawIconEx(canvas.Dc(), 0, 0, icon, 0, 0, 0, nullptr, DI_NORMAL));
        EXPECT_EQ(canvas.Letters()[0][0], each.letter) << each.wanted;
        EXPECT_EQ(canvas.Letters()[0][static_cast<size_t>(each.wanted) - 1], '.') << each.wanted;
        EXPECT_TRUE(DestroyIcon(icon));
        EXPECT_FALSE(DrawIconEx(canvas.Dc(), 0, 0, icon, 0, 0, 0, nullptr, DI_NORMAL));
    }
}

TEST_F(LoadedPictures, IconsAreDrawnAtTheSizeAskedFor)
{
    const HICON icon = LoadIconW(module_, Name(kIcon));
    EXPECT_EQ(LoadIconW(module_, Name(kIcon)), icon) << "it is shared";
    Canvas canvas(40, 40);
    EXPECT_TRUE(DrawIconEx(canvas.Dc(), 0, 0, icon, 24, 24, 0, nullptr, DI_NORMAL));
    const RECT drawn = canvas.Drawn();
    EXPECT_EQ(drawn.right, 12);
    EXPECT_EQ(drawn.bottom, 24);
    const HBRUSH ground = CreateSolidBrush(RGB(255, 0, 0));
    EXPECT_TRUE(DrawIconEx(canvas.Dc(), 0, 0, icon, 24, 24, 0, ground, DI_NORMAL));
    EXPECT_EQ(canvas.Letters()[0].substr(11, 14), "brrrrrrrrrrrr.");
    EXPECT_TRUE(DeleteObject(ground));
}

TEST_F(LoadedPictures, CursorsKnowTheirPoint)
{
    const HCURSOR cursor = LoadCursorW(module_, Name(kCursor));
    ASSERT_NE(cursor, nullptr);
    ICONINFO info = {};
    ASSERT_TRUE(GetIconInfo(cursor, &info));
    EXPECT_FALSE(info.fIcon);
    EXPECT_EQ(info.xHotspot, 3u);
    EXPECT_EQ(info.yHotspot, 2u);
    EXPECT_TRUE(DeleteObject(info.hbmMask));
    if (info.hbmColor != nullptr) {
        EXPECT_TRUE(DeleteObject(info.hbmColor));
    }
}

TEST(SystemPictures, AreSharedAndDiffer)
{
    EXPECT_NE(LoadIconW(nullptr, IDI_ERROR), nullptr);
    EXPECT_EQ(LoadIconW(nullptr, IDI_ERROR), LoadIconW(nullptr, IDI_ERROR));
    EXPECT_NE(LoadCursorW(nullptr, IDC_ARROW), nullptr);
    EXPECT_NE(LoadCursorW(nullptr, IDC_ARROW), LoadCursorW(nullptr, IDC_HAND));
    EXPECT_EQ(LoadCursorW(nullptr, MAKEINTRESOURCEW(1)), nullptr);
}

TEST(MadeIcons, AreMaskAndPicture)
{
    Canvas canvas(2, 1);
    const WORD maskRow = 0x0040; // the right pixel open
    const uint32_t colors[] = {0x0000FF, 0x000000};
    ICONINFO info = {TRUE, 0, 0, CreateBitmap(2, 1, 1, 1, &maskRow), CreateBitmap(2, 1, 1, 32, colors)};
    const HICON icon = CreateIconIndirect(&info);
    EXPECT_TRUE(DeleteObject(info.hbmMask)) << "the icon has copies";
    EXPECT_TRUE(DeleteObject(info.hbmColor));
    canvas.Clear(RGB(255, 0, 0));
    EXPECT_TRUE(DrawIconEx(canvas.Dc(), 0, 0, icon, 2, 1, 0, nullptr, DI_NORMAL));
    EXPECT_EQ(canvas.Letters(), Picture({"br"}));
    EXPECT_TRUE(DestroyIcon(icon));
    EXPECT_FALSE(DestroyIcon(icon));
}

class PictureFile : public Scratch
{
};

TEST_F(PictureFile, IsReadWhenItIsSound)
{
    // Two pixels with 24 bits: blue, then red; the row ends at 4 bytes.
    const std::string sound{"BM\x3E\0\0\0\0\0\0\0\x36\0\0\0"
                            "\x28\0\0\0\x02\0\0\0\x01\0\0\0\x01\0\x18\0\0\0\0\0\x08\0\0\0"
                            "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
                            "\xFF\0\0\0\0\xFF\0\0",
                            62};
    const Wide path = Path(TEXT("picture.bmp"));
    const auto load = [&](const std::string& bytes) {
        Write(path, bytes);
        return static_cast<HBITMAP>(LoadImageW(nullptr, path.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE));
    };
    const HBITMAP bitmap = load(sound);
    ASSERT_NE(bitmap, nullptr);
    Canvas canvas(2, 1);
    const HDC dc = CreateCompatibleDC(nullptr);
    const HGDIOBJ previous = SelectObject(dc, bitmap);
    BitBlt(canvas.Dc(), 0, 0, 2, 1, dc, 0, 0, SRCCOPY);
    EXPECT_EQ(canvas.Letters(), Picture({"br"}));
    SelectObject(dc, previous);
    EXPECT_TRUE(DeleteDC(dc));
    EXPECT_TRUE(DeleteObject(bitmap));
    if (OnWine())
        GTEST_SKIP() << "trusts what files say of their size";
    for (size_t length = 0; length < sound.size(); ++length)
        EXPECT_EQ(load(sound.substr(0, length)), nullptr) << length;
}

TEST_F(LoadedPictures, SectionsKeepTheirDepth)
{
    const auto bitmap =
        static_cast<HBITMAP>(LoadImageW(module_, Name(kPicture), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
    DIBSECTION section = {};
    EXPECT_EQ(GetObjectW(bitmap, sizeof section, &section), static_cast<int>(sizeof section));
    EXPECT_EQ(section.dsBm.bmBitsPixel, 4);
    EXPECT_EQ(section.dsBmih.biBitCount, 4);
    ASSERT_NE(section.dsBm.bmBits, nullptr);
    EXPECT_EQ(*static_cast<const BYTE*>(section.dsBm.bmBits), 0x32) << "the lower row's first two pixels";
    EXPECT_TRUE(DeleteObject(bitmap));
}
