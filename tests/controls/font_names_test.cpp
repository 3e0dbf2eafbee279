// The list of font families that a text can be set in.
#include "psui/controls/font_names.h"

#include "lang/ids/watermark.h"
#include "tests/settings/support.h"

namespace psui {
namespace {

TEST(FontNames, AreThoseOfTrueTypeFonts)
{
    const test::World world;
    const HWND dialog = CreateWindowExW(0, TEXT("Static"), TEXT(""), WS_POPUP, 0, 0, 200, 200, nullptr,
                                        nullptr, nullptr, nullptr);
    const HWND list =
        CreateWindowExW(0, TEXT("ComboBox"), TEXT(""), WS_CHILD | CBS_DROPDOWNLIST, 0, 0, 99, 99, dialog,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(IDC_WM_FONT)), nullptr, nullptr);
    LOGFONTW font = {};
    lstrcpynW(font.lfFaceName, TEXT("Arial"), LF_FACESIZE);
    for (const DWORD type : {DEVICE_FONTTYPE, TRUETYPE_FONTTYPE, RASTER_FONTTYPE})
        EXPECT_EQ(AddTrueTypeFaceName(&font, nullptr, type, reinterpret_cast<LPARAM>(dialog)), 1)
            << "goes on";
    EXPECT_EQ(SendMessageW(list, CB_GETCOUNT, 0, 0), 1);
    EXPECT_EQ(SendMessageW(list, CB_FINDSTRINGEXACT, 0, reinterpret_cast<LPARAM>(TEXT("Arial"))), 0);
    DestroyWindow(dialog);
}

} // namespace
} // namespace psui
