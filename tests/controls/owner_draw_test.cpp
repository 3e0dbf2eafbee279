// What each owner-drawn control shows, pixel by pixel against the bitmaps themselves.
#include <functional>
#include <tuple>

#include "psui/controls/edges.h"
#include "psui/controls/owner_draw.h"
#include "psui/controls/pictures.h"
#include "psui/controls/previews.h"
#include "psui/controls/transparent.h"
#include "tests/controls/drawing.h"

namespace psui {
namespace {

using namespace test;

constexpr COLORREF kOlive = RGB(128, 128, 0);
constexpr COLORREF kGround = RGB(10, 200, 30); // in no picture
constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr RECT kItem = {3, 2, 190, 140};

void Fill(Canvas& canvas, const RECT& rect, COLORREF color)
{
    const HBRUSH brush = CreateSolidBrush(color);
    FillRect(canvas.Dc(), &rect, brush);
    DeleteObject(brush);
}

using Paint = std::function<void(Canvas&)>;

class OwnerDraw : public testing::Test
{
protected:
    void Draw(const DRAWITEMSTRUCT& request, const DriverDevMode& record)
    {
        const host::Ledger before = host::OpenObjects();
        DrawOwnerItem(nullptr, request, source_, record);
        EXPECT_EQ(host::OpenObjects(), before) << request.CtlID;
    }

    /// The request changes a picture as `paint` does.
    void ExpectDrawn(DRAWITEMSTRUCT request, const Paint& paint, const DriverDevMode& record = Record(1, 1))
    {
        Canvas drawn(kWidth, kHeight), expected(kWidth, kHeight);
        for (Canvas* const canvas : {&drawn, &expected})
            canvas->Clear(kGround);
        paint(expected);
        request.hDC = drawn.Dc();
        Draw(request, record);
        EXPECT_TRUE(Same(drawn, expected)) << "control " << request.CtlID << ", action " << request.itemAction
                                           << ", state " << request.itemState;
    }

    static DRAWITEMSTRUCT Item(UINT type, UINT control, const RECT& rect = kItem)
    {
        return Request(Canvas(1, 1), type, control, rect);
    }

    PictureWorld world_;
    OwnerDrawSource source_ = {
        .language = hLangModule,
        .deviceName = TEXT("Velmora Palette 940 Printer"),
        .colorModes = {},
        .favourites = {},
        .linkHover = false,
        .bannerDiagnostics = false,
    };
};

void LayItem(Canvas& canvas, UINT bitmap, COLORREF key = kMagenta)
{
    Lay(canvas, bitmap, kItem.left, kItem.top, key);
}

TEST_F(OwnerDraw, ShowsThePicturesOfButtons)
{
    constexpr std::pair<UINT, UINT> kPictures[] = {
        {3070, 13003}, {3071, 13003}, {3079, 13003}, {3098, 13003},  {3102, 13003},
        {4202, 13003}, {6007, 13003}, {3134, 13355}, {3135, 13356},  {4132, 13022},
        {4235, 13040}, {8307, 22321}, {8308, 22322}, {10800, 20303},
    };
    for (const auto& [control, bitmap] : kPictures)
        ExpectDrawn(Item(ODT_BUTTON, control),
                    [bitmap = bitmap](Canvas& canvas) { LayItem(canvas, bitmap); });
    for (const auto& [control, bitmap] : {std::pair{4083u, 13350u}, {4084u, 13351u}})
        ExpectDrawn(Item(ODT_BUTTON, control),
                    [bitmap = bitmap](Canvas& canvas) { LayItem(canvas, bitmap, kOlive); });
}

/// A control whose picture follows the record.
struct PictureRow
{
    UINT control;
    UINT (*bitmap)(const DriverDevMode&); // 0: none
    COLORREF key;
    int ground; // a system colour, -1 for what is below
};

template <UINT bitmap>
UINT InColorMode(const DriverDevMode& record)
{
    return record.dmPublic.dmColor != 1 && record.dmPrivate.dwColorModeOn ? bitmap : 13032;
}

constexpr PictureRow kPictures[] = {
    {3020, [](const DriverDevMode& r) { return r.dmPrivate.bFitToPaper ? 13015u : 0u; }, kMagenta,
     COLOR_WINDOW},
    {3029, [](const DriverDevMode& r) { return r.dmPublic.dmColor == 2 ? 13350u : 13351u; }, kOlive,
     COLOR_WINDOW},
    {3033, LayoutPreviewBitmap, kMagenta, COLOR_WINDOW},
    {3034, CollatePreviewBitmap, kMagenta, COLOR_BTNFACE},
    {3170, DuplexPreviewBitmap, kMagenta, COLOR_BTNFACE},
    {3077, InColorMode<13030>, kMagenta, -1},
    {3078, InColorMode<13031>, kMagenta, -1},
};

TEST_F(OwnerDraw, ShowsThePictureOfTheSettings)
{
    for (unsigned bits = 0; bits < 32; ++bits) {
        DriverDevMode record = Record(bits & 1 ? 2 : 1, bits & 2 ? 2 : 1);
        record.dmPublic.dmColor = bits & 4 ? 1 : 2;
        record.dmPrivate.dwColorModeOn = bits & 8;
        record.dmPrivate.bFitToPaper = bits & 16 ? 1 : 0;
        record.dmPrivate.wDuplexFlags = bits & 16 ? 0x100 : 0;
        SCOPED_TRACE(bits);
        for (const PictureRow& row : kPictures)
            ExpectDrawn(
                Item(ODT_BUTTON, row.control),
                [&](Canvas& canvas) {
                    if (row.ground >= 0)
                        Fill(canvas, kItem, GetSysColor(row.ground));
                    if (const UINT bitmap = row.bitmap(record))
                        LayItem(canvas, bitmap, row.key);
                },
                record);
    }
}

TEST_F(OwnerDraw, LeavesOtherControlsAlone)
{
    constexpr std::pair<UINT, UINT> kOthers[] = {
        {ODT_BUTTON, 4024}, {ODT_BUTTON, 3056},  {ODT_LISTBOX, 3056}, {ODT_COMBOBOX, 6001},
        {ODT_STATIC, 3033}, {ODT_BUTTON, 13003}, {ODT_MENU, 3030},    {ODT_BUTTON, 0},
    };
    for (const auto& [type, control] : kOthers)
        ExpectDrawn(Item(type, control), [](Canvas&) {});
}

TEST_F(OwnerDraw, ShowsWhetherTheWebLinkIsPressedOrPointedAt)
{
    for (const UINT state : {0, ODS_SELECTED, ODS_FOCUS, ODS_SELECTED | ODS_FOCUS})
        for (const bool hover : {false, true}) {
            source_.linkHover = hover;
            DRAWITEMSTRUCT request = Item(ODT_BUTTON, 3016);
            request.itemState = state;
            ExpectDrawn(request, [&](Canvas& canvas) {
                const bool pressed = state == (ODS_SELECTED | ODS_FOCUS);
                LayItem(canvas, pressed ? 13012 : hover ? 13014 : 13011);
                const RECT focus = {kItem.left + 4, kItem.top + 3, kItem.right - 3, kItem.bottom - 3};
                if (state & ODS_FOCUS)
                    DrawFocusRect(canvas.Dc(), &focus);
            });
        }
}

TEST_F(OwnerDraw, PaintsTheBannerFromItsColumnWithLogoAndModel)
{
    const DriverDevMode record = Record(1, 1);
    const RECT banner = {0, 0, kWidth, SizeOfBitmap(13013).cy};
    Canvas column(kWidth, kHeight), expected(kWidth, kHeight), plain(kWidth, kHeight), named(kWidth, kHeight);
    Lay(column, 13013, 0, 0, kMagenta);
    for (int y = 0; y < banner.bottom; ++y)
        std::fill_n(&expected.At(0, y), kWidth, column.At(0, y));
    Lay(expected, 13010, 0, 0, kMagenta);
    source_.bannerDiagnostics = true;
    Draw(Request(plain, ODT_BUTTON, 3013, banner), record);
    EXPECT_TRUE(Same(plain, expected));
    source_.bannerDiagnostics = false;
    Draw(Request(named, ODT_BUTTON, 3013, banner), record);
    int left = kWidth, white = 0;
    for (int y = 0; y < banner.bottom; ++y)
        for (int x = 0; x < kWidth; ++x)
            if (named.At(x, y) != plain.At(x, y)) {
                left = std::min(left, x);
                white += named.Color(x, y) == kWhite;
            }
    EXPECT_GE(left, 126);
    EXPECT_LT(left, 132);
    EXPECT_GT(white, 50) << "pixels of the model's name";
}

TEST_F(OwnerDraw, DrawsOpaquePixelsInDarkGreyInAnyOtherMode)
{
    for (const bool dib : {false, true}) {
        Canvas drawn(kWidth, kHeight), expected(kWidth, kHeight);
        expected.Clear(kGround);
        Lay(expected, 13040, 5, 6, kMagenta);
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x)
                if (expected.Color(x, y) != kGround)
                    expected.At(x, y) = 0x404040;
        drawn.Clear(kGround);
        const HBITMAP bitmap = LoadBitmapW(hOwnModule, MAKEINTRESOURCEW(13040));
        if (dib)
            DrawTransparentDib(drawn.Dc(), 13040, 5, 6, kMagenta, kShadow);
        else
            DrawTransparentBitmap(drawn.Dc(), bitmap, 5, 6, kMagenta, 0);
        DeleteObject(bitmap);
        EXPECT_TRUE(Same(drawn, expected)) << dib;
    }
}

/// Which edge a push button of the support dialog has.
EdgeStyle ExpectedEdge(UINT action, UINT state)
{
    if (action & ODA_SELECT)
        return state == (ODS_SELECTED | ODS_FOCUS) ? EdgeStyle::Pressed : EdgeStyle::Focused;
    return state & ODS_FOCUS ? EdgeStyle::Focused : EdgeStyle::Raised;
}

TEST_F(OwnerDraw, FramesPushButtonsByActionAndState)
{
    constexpr std::pair<UINT, UINT> buttons[] = {{4236, 13047}, {4252, 13048}, {4305, 0}};
    for (const auto& button : buttons)
        for (const UINT action : {ODA_DRAWENTIRE, ODA_SELECT, ODA_FOCUS, ODA_DRAWENTIRE | ODA_SELECT})
            for (const UINT state : {0, ODS_SELECTED, ODS_FOCUS, ODS_SELECTED | ODS_FOCUS}) {
                DRAWITEMSTRUCT request = Item(ODT_BUTTON, button.first);
                request.itemAction = action;
                request.itemState = state;
                ExpectDrawn(request, [&](Canvas& canvas) {
                    const int in = state == (ODS_SELECTED | ODS_FOCUS) ? 6 : 4;
                    if (button.second)
                        Lay(canvas, button.second, kItem.left + in, kItem.top + in, kMagenta);
                    else
                        Fill(canvas, kItem, GetSysColor(COLOR_BTNFACE));
                    DrawItemEdge(Request(canvas, ODT_BUTTON, 0, kItem), ExpectedEdge(action, state));
                });
            }
}

/// The item's colours as letters: shadow, highlight, dark shadow, light.
Picture EdgeLetters(Canvas& canvas, int width, int height)
{
    constexpr std::pair<int, char> kLetters[] = {
        {COLOR_3DSHADOW, 's'}, {COLOR_3DHIGHLIGHT, 'h'}, {COLOR_3DDKSHADOW, 'd'}, {COLOR_3DLIGHT, 'l'}};
    Picture rows(static_cast<size_t>(height), std::string(static_cast<size_t>(width), '?'));
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            char& letter = rows[static_cast<size_t>(y)][static_cast<size_t>(x)];
            if (canvas.Color(x, y) == kGround)
                letter = '.';
            for (const auto& [color, name] : kLetters)
                if (canvas.Color(x, y) == GetSysColor(color))
                    letter = name;
        }
    return rows;
}

TEST_F(OwnerDraw, DrawsEdgesOfEightStyles)
{
    const std::pair<EdgeStyle, Picture> kStyles[] = {
        {EdgeStyle::ShadowLine, {"ssss", "....", "....", "...."}},
        {EdgeStyle::Etched, {"ssss", "hhhh", "....", "...."}},
        {EdgeStyle::Ridge, {"ssss", "dddd", "hhhh", "...."}},
        {EdgeStyle::Sunken, {"sssh", "s..h", "s..h", "hhhh"}},
        {EdgeStyle::SunkenDark, {"dddh", "d..h", "d..h", "hhhh"}},
        {EdgeStyle::Raised, {"hhhhhd", "hlllsd", "hl..sd", "hl..sd", "hssssd", "dddddd"}},
        {EdgeStyle::Focused,
         {"dddddddddddd", "dhhhhhhhhhdd", "dhlllllllsdd", "dhl......sdd", "dhl.d.dd.sdd", "dhl......sdd",
          "dhl.d..d.sdd", "dhl.d.d..sdd", "dhl......sdd", "dhssssssssdd", "dddddddddddd", "dddddddddddd"}},
        {EdgeStyle::Pressed,
         {"dddddddddddd", "ddddddddddhd", "ddssssssslhd", "dds......lhd", "dds.d.dd.lhd", "dds......lhd",
          "dds.d..d.lhd", "dds.d.d..lhd", "dds......lhd", "ddllllllllhd", "dhhhhhhhhhhd", "dddddddddddd"}},
    };
    for (const auto& [style, picture] : kStyles) {
        const int size = static_cast<int>(picture.size());
        Canvas canvas(size, size);
        canvas.Clear(kGround);
        DrawItemEdge(Request(canvas, ODT_BUTTON, 0, {0, 0, size, size}), style);
        EXPECT_EQ(EdgeLetters(canvas, size, size), picture) << static_cast<int>(style);
    }
}

constexpr UINT kSeparators[] = {4078, 4079, 4080, 3030, 3050, 3066, 3105, 3106, 3108, 3109, 3167,
                                3168, 3169, 4102, 4117, 4125, 4126, 4155, 4178, 4181, 4240, 6015};

TEST_F(OwnerDraw, DrawsSeparatorsAsLines)
{
    const auto rows = [&](UINT control) {
        Canvas drawn(4, 4);
        drawn.Clear(kGround);
        Draw(Request(drawn, ODT_BUTTON, control, {0, 0, 4, 4}), Record(1, 1));
        return EdgeLetters(drawn, 4, 4);
    };
    for (const UINT control : kSeparators)
        EXPECT_EQ(rows(control), (Picture{"ssss", "hhhh", "....", "...."})) << control;
    EXPECT_EQ(rows(4185), (Picture{"ssss", "....", "....", "...."}));
}

// List items

constexpr RECT kRow = {3, 2, 103, 38};
constexpr FavouriteItem kSlots[] = {{0, TEXT("First")}, {19, TEXT("Last & least")}};
constexpr uint32_t kModes[] = {1, 2, 3};

class ListItems : public OwnerDraw
{
protected:
    ListItems()
    {
        source_.favourites = kSlots;
        source_.colorModes = kModes;
    }
    void DrawItem(Canvas& canvas, UINT type, UINT control, ULONG_PTR data, UINT state = 0,
                  UINT action = ODA_DRAWENTIRE, HWND list = nullptr)
    {
        DRAWITEMSTRUCT request = Request(canvas, type, control, kRow);
        request.itemAction = action;
        request.itemState = state;
        request.itemData = data;
        request.hwndItem = list;
        Draw(request, Record(1, 1));
    }
    /// The columns, from the item's left edge, that hold pixels of a colour in the rows from..to of the item.
    std::vector<int> Columns(Canvas& canvas, COLORREF color, int from, int to)
    {
        std::vector<int> columns;
        for (int x = kRow.left; x < kRow.right; ++x)
            for (int y = kRow.top + from; y <= kRow.top + to; ++y)
                if (canvas.Color(x, y) == color) {
                    columns.push_back(x - static_cast<int>(kRow.left));
                    break;
                }
        return columns;
    }
};

constexpr std::pair<UINT, UINT> kAllItems[] = {
    {ODT_COMBOBOX, 3056}, {ODT_COMBOBOX, 3044}, {ODT_COMBOBOX, 6021}, {ODT_COMBOBOX, 6010},
    {ODT_LISTBOX, 6001},  {ODT_LISTBOX, 6016},  {ODT_LISTBOX, 4135},
};

TEST_F(ListItems, TakeTheColoursOfTheirState)
{
    for (const auto& [type, control] : kAllItems)
        for (const UINT state : {0, ODS_SELECTED, ODS_DISABLED, ODS_SELECTED | ODS_DISABLED}) {
            const bool list = control == 6001 || control == 4135 || control == 6016;
            const COLORREF background = GetSysColor(state & ODS_SELECTED             ? COLOR_HIGHLIGHT
                                                    : state == ODS_DISABLED && !list ? COLOR_BTNFACE
                                                                                     : COLOR_WINDOW);
            for (const UINT action : {ODA_DRAWENTIRE, ODA_SELECT}) {
                Canvas drawn(kWidth, kHeight);
                drawn.Clear(kGround);
                DrawItem(drawn, type, control, 1, state, action);
                EXPECT_EQ(drawn.Color(kRow.left, kRow.top), background) << control << ' ' << state;
                EXPECT_EQ(drawn.Color(kRow.right - 1, kRow.bottom - 1), background)
                    << control << ' ' << state;
                EXPECT_EQ(drawn.Color(kRow.right, kRow.bottom - 1), kGround);
            }
        }
}

TEST_F(ListItems, FrameTheFocusOverTheirContent)
{
    for (const auto& [type, control] : kAllItems) {
        Canvas expected(kWidth, kHeight), drawn(kWidth, kHeight);
        for (Canvas* const canvas : {&expected, &drawn})
            DrawItem(*canvas, type, control, 1);
        DrawFocusRect(expected.Dc(), &kRow);
        DrawItem(drawn, type, control, 1, ODS_FOCUS, ODA_FOCUS);
        // The content is smoothed over itself, so only the frame is compared.
        for (int x = kRow.left; x < kRow.right; ++x)
            EXPECT_EQ(drawn.At(x, kRow.top), expected.At(x, kRow.top)) << control << ' ' << x;
        DrawItem(drawn, type, control, 1, 0, ODA_FOCUS);
        DrawFocusRect(expected.Dc(), &kRow);
        EXPECT_TRUE(Same(drawn, expected)) << control << " has lost the focus";
    }
}

TEST_F(ListItems, ShowLinesInsteadOfTheNamesOfBorderLines)
{
    const COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
    const int middle = (kRow.bottom - kRow.top) / 2;
    std::vector<int> solid, dashed;
    for (int x = 3; x < 97; ++x)
        solid.push_back(x);
    for (int dash = 0; dash < (100 - 6) / 8 + 1; ++dash)
        for (int x = 0; x < 4; ++x)
            dashed.push_back(3 + 8 * dash + x);
    for (const auto& [data, line] : {std::pair{1, solid}, std::pair{2, dashed}}) {
        Canvas drawn(kWidth, kHeight);
        DrawItem(drawn, ODT_COMBOBOX, 3056, static_cast<ULONG_PTR>(data));
        EXPECT_EQ(Columns(drawn, text, middle, middle), line);
        EXPECT_TRUE(Columns(drawn, text, 0, middle - 1).empty());
        EXPECT_TRUE(Columns(drawn, text, middle + 1, kRow.bottom - kRow.top - 1).empty());
    }
    Canvas named(kWidth, kHeight);
    DrawItem(named, ODT_COMBOBOX, 3056, 0);
    EXPECT_GT(Columns(named, text, 0, middle - 1).size(), 5u);
}

TEST_F(ListItems, PlaceTheirPicturesAndTexts)
{
    const HWND list =
        CreateWindowExW(0, TEXT("LISTBOX"), TEXT(""), WS_POPUP | LBS_HASSTRINGS | LBS_OWNERDRAWFIXED, 0, 0,
                        100, 100, nullptr, nullptr, nullptr, nullptr);
    SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(TEXT("Hidden")));
    struct Case
    {
        UINT type, control;
        ULONG_PTR data;
        UINT icon, bitmap; // 0: none
        int iconDown;
        int textLeft; // 0: none
        bool dotted;
    };
    constexpr Case kCases[] = {
        {ODT_COMBOBOX, 3044, 0, 0, 13351, 10, 18, false}, {ODT_COMBOBOX, 3044, 1, 0, 13350, 10, 18, false},
        {ODT_COMBOBOX, 6021, 1, 22320, 0, 0, 28, false},  {ODT_COMBOBOX, 6010, 5, 22306, 0, 0, 0, false},
        {ODT_LISTBOX, 6001, 0, 0, 0, 0, 28, true},        {ODT_LISTBOX, 6001, 1, 22301, 0, 6, 28, true},
        {ODT_LISTBOX, 6016, 1, 22320, 0, 6, 28, true},    {ODT_LISTBOX, 4135, 7, 0, 0, 0, 10, true},
    };
    for (const Case& each : kCases) {
        Canvas drawn(kWidth, kHeight), expected(kWidth, kHeight);
        DrawItem(drawn, each.type, each.control, each.data, 0, ODA_DRAWENTIRE, list);
        if (each.icon) {
            const auto icon = static_cast<HICON>(
                LoadImageW(hOwnModule, MAKEINTRESOURCEW(each.icon), IMAGE_ICON, 24, 24, LR_DEFAULTCOLOR));
            DrawIconEx(expected.Dc(), kRow.left, kRow.top + each.iconDown, icon, 24, 24, 0, nullptr,
                       DI_NORMAL);
            DestroyIcon(icon);
        }
        if (each.bitmap)
            Lay(expected, each.bitmap, kRow.left + 1, kRow.top + each.iconDown, kOlive);
        const int textLeft = each.textLeft ? each.textLeft : 100;
        for (int y = kRow.top; y < kRow.bottom - 1; ++y)
            for (int x = 0; x < textLeft; ++x)
                ASSERT_EQ(drawn.At(kRow.left + x, y), expected.At(kRow.left + x, y))
                    << each.control << ' ' << x << ", " << y;
        const std::vector<int> text = Columns(drawn, GetSysColor(COLOR_WINDOWTEXT), 3, 32);
        const auto first = std::lower_bound(text.begin(), text.end(), textLeft);
        EXPECT_EQ(first == text.end(), each.textLeft == 0) << each.control;
        EXPECT_TRUE(first == text.end() || *first < textLeft + 4) << each.control << " starts at " << *first;
        EXPECT_EQ(Columns(drawn, GetSysColor(COLOR_WINDOWTEXT), 35, 35).size(), each.dotted ? 48u : 0u)
            << each.control;
    }
    DestroyWindow(list);
}

TEST_F(ListItems, DrawNothingOfWhatIsNotThere)
{
    constexpr auto kNone = static_cast<ULONG_PTR>(-1);
    // Control and item, and whether the background is there all the same.
    const std::tuple<UINT, UINT, ULONG_PTR, bool> cases[] = {
        {ODT_LISTBOX, 6001, kNone, false}, {ODT_COMBOBOX, 3044, 3, false},
        {ODT_COMBOBOX, 3044, 2, true},     {ODT_COMBOBOX, 3044, kNone, false},
        {ODT_COMBOBOX, 6010, 20, true},    {ODT_COMBOBOX, 6010, kNone, true},
        {ODT_COMBOBOX, 6021, 2, true},     {ODT_COMBOBOX, 6021, kNone, true},
        {ODT_COMBOBOX, 3056, 3, true},
    };
    for (const auto& [type, control, data, ground] : cases) {
        DRAWITEMSTRUCT request = Item(type, control, kRow);
        request.itemData = data;
        ExpectDrawn(request, [ground = ground](Canvas& canvas) {
            if (ground)
                Fill(canvas, kRow, GetSysColor(COLOR_WINDOW));
        });
    }
}

} // namespace
} // namespace psui
