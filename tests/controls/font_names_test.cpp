// The list of font families that a text can be set in.
#include "psui/controls/font_names.h"

#include "lang/ids/watermark.h"
#include "tests/settings/support.h"

namespace psui {
namespace {

int CALLBACK AddEveryName(const LOGFONTW* font, const TEXTMETRICW* metrics, DWORD fontType, LPARAM dialog)
{
    // A device's own font of the same face stands beside each, and must not be listed.
    return AddTrueTypeFaceName(font, metrics, DEVICE_FONTTYPE, dialog) +
           AddTrueTypeFaceName(font, metrics, fontType, dialog) - 1;
}

TEST(FontNames, AreThoseOfTrueTypeFonts)
{
    const test::World world;
    const HWND dialog = CreateWindowExW(0, TEXT("Static"), TEXT(""), WS_POPUP, 0, 0, 200, 200, nullptr,
                                        nullptr, nullptr, nullptr);
    const HWND list =
        CreateWindowExW(0, TEXT("ComboBox"), TEXT(""), WS_CHILD | CBS_DROPDOWNLIST, 0, 0, 99, 99, dialog,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(IDC_WM_FONT)), nullptr, nullptr);
    const HDC dc = GetDC(dialog);
    EXPECT_EQ(EnumFontFamiliesW(dc, nullptr, AddEveryName, reinterpret_cast<LPARAM>(dialog)), 1)
        << "the enumeration ran to its end";
    const auto arial = reinterpret_cast<LPARAM>(TEXT("Arial"));
    const LRESULT place = SendMessageW(list, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), arial);
    ASSERT_NE(place, CB_ERR);
    EXPECT_EQ(SendMessageW(list, CB_FINDSTRINGEXACT, static_cast<WPARAM>(place), arial), place)
        << "listed once";
    ReleaseDC(dialog, dc);
    DestroyWindow(dialog);
}

} // namespace
} // namespace psui
