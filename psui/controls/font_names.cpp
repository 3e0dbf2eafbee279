#include "psui/controls/font_names.h"

#include "lang/ids/watermark.h"

namespace psui {

int CALLBACK AddTrueTypeFaceName(const LOGFONTW* font, const TEXTMETRICW*, DWORD fontType, LPARAM dialog)
{
    if (fontType & TRUETYPE_FONTTYPE)
        SendDlgItemMessageW(reinterpret_cast<HWND>(dialog), IDC_WM_FONT, CB_ADDSTRING, 0,
                            reinterpret_cast<LPARAM>(font->lfFaceName));
    return 1;
}

} // namespace psui
