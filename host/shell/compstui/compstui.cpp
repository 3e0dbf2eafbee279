#include "host/shell/compstui/printer_icon.h"
#include "host/shell/compstui/sheet.h"
#include "host/shell/compstui/window.h"

namespace compstui {
namespace {

constexpr LONG kSucceeded = 1;
constexpr int kMaxTitleUnits = 256;

Text TitleOf(const PROPSHEETUI_INFO_HEADER& header)
{
    if (header.pTitle == nullptr || !IS_INTRESOURCE(header.pTitle))
        return header.pTitle != nullptr ? Text(header.pTitle) : Text();
    WCHAR buffer[kMaxTitleUnits];
    const auto id = static_cast<UINT>(reinterpret_cast<ULONG_PTR>(header.pTitle));
    return Text(buffer, static_cast<size_t>(LoadStringW(header.hInst, id, buffer, kMaxTitleUnits)));
}

/// Asks the root's sheet function what stands in the sheet's head.
bool AskForHeader(Sheet& sheet, HWND owner)
{
    PROPSHEETUI_INFO_HEADER header = {};
    header.cbSize = sizeof(header);
    header.hWndParent = owner;
    if (CallGroup(sheet.root, PROPSHEETUI_REASON_GET_INFO_HEADER, reinterpret_cast<LPARAM>(&header)) <= 0)
        return false;
    sheet.title = TitleOf(header);
    if (header.Flags & PSUIHDRF_PROPTITLE)
        sheet.title += PropertiesSuffix();
    sheet.canApply = (header.Flags & PSUIHDRF_NOAPPLYNOW) == 0;
    if (header.Flags & PSUIHDRF_USEHICON)
        sheet.icon = header.hIcon;
    else if (header.IconID == kPrinterIcon)
        sheet.icon = sheet.ownIcon = MakePrinterIcon();
    return true;
}

LONG Run(Sheet& sheet, HWND owner)
{
    if (!AskForHeader(sheet, owner))
        return ERR_CPSUI_GETLASTERROR;
    sheet.pages = PagesOf(sheet.root);
    if (sheet.pages.empty())
        return ERR_CPSUI_NO_PROPSHEETPAGE;
    return ShowSheet(sheet, owner) ? kSucceeded : ERR_CPSUI_CREATEPROPPAGE_FAILED;
}

} // namespace
} // namespace compstui

using namespace compstui;

extern "C" LONG WINAPI CommonPropertySheetUIW(HWND owner, PFNPROPSHEETUI function, LPARAM param,
                                              LPDWORD result)
{
    if (function == nullptr)
        return ERR_CPSUI_INVALID_PDATA;
    Sheet sheet;
    if (!InitialiseGroup(sheet.root, function, param))
        return ERR_CPSUI_GETLASTERROR;
    const LONG answer = Run(sheet, owner);
    if (result != nullptr)
        *result = static_cast<DWORD>(sheet.root.info.Result);
    DestroyGroup(sheet.root);
    return answer;
}
