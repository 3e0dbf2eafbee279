#include "psui/maindlg/drawing.h"

#include "lang/ids/main_dialog.h"
#include "psui/controls/owner_draw.h"

namespace psui {

void DrawContextItem(HWND dialog, const DRAWITEMSTRUCT* request, const PrinterUiContext* context)
{
    const OwnerDrawSource source = {
        .language = context->hPageRes,
        .deviceName = context->dmWork.dmPublic.dmDeviceName,
        .colorModes = {},
        .favourites = {},
        .linkHover = context->bLinkHover != 0,
        .bannerDiagnostics = context->bBannerDiagnostics != 0,
    };
    DrawOwnerItem(dialog, *request, source, context->dmWork);
}

void RepaintControl(HWND dialog, int control)
{
    if (const HWND window = GetDlgItem(dialog, control))
        InvalidateRect(window, nullptr, TRUE);
}

void RepaintPreview(const PrinterUiContext* context)
{
    RepaintControl(context->hMainDialog, IDC_PREVIEW);
}

void RepaintFitPicture(const PrinterUiContext* context)
{
    RepaintControl(context->hMainDialog, IDC_FIT_PICTURE);
}

} // namespace psui
