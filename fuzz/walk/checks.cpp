#include "fuzz/walk/checks.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include <commctrl.h>

#include "fuzz/walk/screen.h"
#include "lang/ids/basic_tab.h"
#include "lang/ids/main_dialog.h"
#include "psui/maindlg/apply_state.h"
#include "psui/maindlg/basic_rules.h"
#include "psui/maindlg/fit_text.h"
#include "psui/maindlg/flags.h"
#include "psui/maindlg/qualities.h"
#include "psui/maindlg/rules.h"
#include "psui/maindlg/side_panel.h"
#include "psui/settings/merge.h"
#include "tests/settings/record_fields.h"

namespace walk {
namespace {

using psui::DriverDevMode;
using psui::PrinterUiContext;

constexpr UINT kRefreshTab = WM_USER + 10;
constexpr int kNothing = -1;

// Lists

int PositionOfData(HWND list, LRESULT value)
{
    const LRESULT count = SendMessageW(list, CB_GETCOUNT, 0, 0);
    for (LRESULT entry = 0; entry < count; ++entry)
        if (SendMessageW(list, CB_GETITEMDATA, static_cast<WPARAM>(entry), 0) == value)
            return static_cast<int>(entry);
    return kNothing;
}

/// A value that is not offered is shown as the first entry.
int PositionOrFirst(HWND list, LRESULT value)
{
    const int position = PositionOfData(list, value);
    return position == kNothing && SendMessageW(list, CB_GETCOUNT, 0, 0) > 0 ? 0 : position;
}

int QualityPosition(HWND list, const DriverDevMode& record)
{
    if (psui::HasSingleQuality(record))
        return 0;
    const psui::QualityRow* row = psui::QualityOfLevel(record, record.dmPrivate.bQualityLevel);
    return row ? PositionOrFirst(list, row->listPosition) : kNothing;
}

int PageOrderPosition(HWND list, const DriverDevMode& record)
{
    const int order = record.dmPrivate.bPageOrder;
    if (record.dmPrivate.dwPagesPerSheet != 2)
        return PositionOfData(list, order);
    if (record.dmPublic.dmOrientation == DMORIENT_LANDSCAPE)
        return order <= 3 ? 0 : kNothing;
    return order == 0 || order == 1 || order == 4 || order == 5 ? 0 : 1;
}

struct ListRule
{
    int control;
    int (*position)(HWND list, const DriverDevMode& record);
};
constexpr ListRule kListRules[] = {
    {IDC_MEDIA, [](HWND l, const DriverDevMode& r) { return PositionOrFirst(l, r.dmPublic.dmMediaType); }},
    {IDC_PAPER, [](HWND l, const DriverDevMode& r) { return PositionOfData(l, r.dmPublic.dmPaperSize); }},
    {IDC_LAYOUT,
     [](HWND l, const DriverDevMode& r) { return PositionOrFirst(l, r.dmPrivate.dwPagesPerSheet); }},
    {IDC_BORDER_LINE,
     [](HWND l, const DriverDevMode& r) { return PositionOrFirst(l, r.dmPrivate.bBorderLine); }},
    {IDC_QUALITY, QualityPosition},
    {IDC_PAGE_ORDER, PageOrderPosition},
};

// Boxes

bool IsDuplexOn(const DriverDevMode& record)
{
    return (record.dmPrivate.wDuplexFlags & psui::kDuplexOn) != 0;
}

struct BoxRule
{
    int control;
    bool (*checked)(const DriverDevMode& record);
};
constexpr BoxRule kBoxRules[] = {
    {IDC_SLOW_DRYING,
     [](const DriverDevMode& r) {
         return psui::IsTwoSidedMedia(r.dmPublic.dmMediaType) && r.dmPrivate.dwSdPaper == 1;
     }},
    {IDC_NATURAL, [](const DriverDevMode& r) { return r.dmPrivate.bDocType == 2; }},
    {IDC_VIVID, [](const DriverDevMode& r) { return r.dmPrivate.bDocType == 1; }},
    {IDC_PORTRAIT, [](const DriverDevMode& r) { return r.dmPublic.dmOrientation == DMORIENT_PORTRAIT; }},
    {IDC_LANDSCAPE, [](const DriverDevMode& r) { return r.dmPublic.dmOrientation != DMORIENT_PORTRAIT; }},
    {IDC_COLLATE, [](const DriverDevMode& r) { return r.dmPrivate.dwCollate == 1; }},
    {IDC_REVERSE_ORDER, [](const DriverDevMode& r) { return r.dmPrivate.dwReverseOrder == 1; }},
    {IDC_BORDERLESS, [](const DriverDevMode& r) { return r.dmPrivate.bBorderless != 0; }},
};

constexpr int kLines[] = {
    IDC_LINE_MEDIA,   IDC_LINE_QUALITY,    IDC_LINE_COLOR,      IDC_LINE_COPIES,
    IDC_LINE_LAYOUT,  IDC_LINE_COLOR_MODE, IDC_LINE_BORDERLESS, IDC_LINE_DUPLEX,
    IDC_LINE_SCALING, IDC_LINE_MIRROR,     IDC_LINE_REVERSE,    IDC_LINE_WATERMARK,
};

constexpr int kPanelControls[] = {
    IDC_LINE_MEDIA,
    IDC_LINE_QUALITY,
    IDC_LINE_COLOR,
    IDC_LINE_PAPER,
    IDC_LINE_PAPER_SIZE,
    IDC_LINE_COPIES,
    IDC_LINE_LAYOUT,
    IDC_LINE_COLOR_MODE,
    IDC_LINE_BORDERLESS,
    IDC_LINE_DUPLEX,
    IDC_LINE_SCALING,
    IDC_LINE_MIRROR,
    IDC_LINE_REVERSE,
    IDC_LINE_WATERMARK,
    IDC_CONTROL_CENTRE,
    IDC_SUPPORT,
    IDC_TABS,
    IDOK,
    IDCANCEL,
    IDHELP,
};

std::string Wrong(int control, const std::string& what, int64_t expected, int64_t found)
{
    return std::to_string(control) + " " + what + ": expected " + std::to_string(expected) + ", found " +
           std::to_string(found) + "; ";
}

std::string Compare(int control, const char* what, int64_t expected, int64_t found)
{
    return expected == found ? "" : Wrong(control, what, expected, found);
}

std::string CheckList(HWND tab, int control, int expected)
{
    return Compare(control, "selection", expected, SendDlgItemMessageW(tab, control, CB_GETCURSEL, 0, 0));
}

std::string CheckLists(HWND tab, const DriverDevMode& record)
{
    std::string wrong;
    for (const ListRule& rule : kListRules)
        wrong += CheckList(tab, rule.control, rule.position(GetDlgItem(tab, rule.control), record));
    if (record.dmPrivate.dwTrayChoice == 1)
        wrong += CheckList(tab, IDC_SOURCE,
                           PositionOrFirst(GetDlgItem(tab, IDC_SOURCE), record.dmPublic.dmDefaultSource));
    return wrong;
}

std::string CheckBoxes(HWND tab, const DriverDevMode& record)
{
    std::string wrong;
    for (const BoxRule& rule : kBoxRules)
        wrong += Compare(rule.control, "check mark", rule.checked(record),
                         IsDlgButtonChecked(tab, rule.control) == BST_CHECKED);
    if (record.dmPublic.dmFields & DM_DUPLEX)
        wrong += Compare(IDC_DUPLEX, "check mark", IsDuplexOn(record),
                         IsDlgButtonChecked(tab, IDC_DUPLEX) == BST_CHECKED);
    return wrong;
}

/// The box may hold nothing or zero while it is being typed in.
std::string CheckCopies(HWND tab, const DriverDevMode& record)
{
    const int copies = record.dmPublic.dmCopies;
    const bool edited = GetFocus() == GetDlgItem(tab, IDC_COPIES);
    const UINT shown = GetDlgItemInt(tab, IDC_COPIES, nullptr, FALSE);
    if (edited && shown == 0)
        return "";
    return Compare(IDC_COPIES, "number", copies, shown) +
           Compare(IDC_COPIES_SPIN, "position", copies,
                   SendDlgItemMessageW(tab, IDC_COPIES_SPIN, UDM_GETPOS32, 0, 0));
}

std::string CheckLines(const PrinterUiContext& context)
{
    std::string wrong;
    for (const int line : kLines) {
        WCHAR expected[256] = {}, found[256] = {};
        psui::SidePanelText(&context, line, expected, static_cast<int>(std::size(expected)));
        psui::FitTextToLine(context.hMainDialog, line, expected);
        GetDlgItemTextW(context.hMainDialog, line, found, static_cast<int>(std::size(found)));
        if (lstrcmpW(expected, found) != 0)
            wrong +=
                std::to_string(line) + " shows \"" + TextOf(GetDlgItem(context.hMainDialog, line)) + "\"; ";
    }
    return wrong;
}

std::string CheckEnabled(HWND dialog, int control, bool expected)
{
    const HWND window = GetDlgItem(dialog, control);
    // The control's own state, whatever the windows around it have.
    return window ? Compare(control, "enabled", expected,
                            (GetWindowLongPtrW(window, GWL_STYLE) & WS_DISABLED) == 0)
                  : "";
}

std::string CheckEnables(const PrinterUiContext& context)
{
    std::string wrong;
    const bool trays = context.dmWork.dmPrivate.dwTrayChoice == 1;
    for (const int control : psui::BasicEnableControls()) {
        const bool absent = !trays && (control == IDC_SOURCE || control == IDC_SOURCE_LABEL);
        wrong += CheckEnabled(context.hBasicTab, control, !absent && psui::IsBasicEnabled(&context, control));
    }
    for (const int control : kPanelControls)
        wrong += CheckEnabled(context.hMainDialog, control, psui::IsSidePanelEnabled(&context, control));
    return wrong;
}

std::string CheckApply(const PrinterUiContext& context, const PrinterUiContext& applied)
{
    return CheckEnabled(context.hMainDialog, IDC_APPLY,
                        context.bUserDefault && psui::SettingsDiffer(context, applied));
}

} // namespace

std::string MergeChanges(const DriverDevMode& before, const DriverDevMode& after)
{
    return test::Differences(before, after);
}

std::string CheckRecord(const PrinterUiContext& context)
{
    alignas(DEVMODEW) DriverDevMode merged = context.dmWork;
    alignas(DEVMODEW) DriverDevMode source = context.dmWork;
    if (psui::MergeDevMode(&merged, &source.dmPublic, context.pModel) != 1)
        return "the record cannot be merged; ";
    const std::string changes = MergeChanges(context.dmWork, merged);
    return changes.empty() ? "" : "the merge changes " + changes + "; ";
}

std::string CheckControls(const PrinterUiContext& context, const PrinterUiContext& applied)
{
    const DriverDevMode& record = context.dmWork;
    const HWND tab = context.hBasicTab;
    return CheckLists(tab, record) + CheckBoxes(tab, record) + CheckCopies(tab, record) +
           CheckLines(context) + CheckEnables(context) + CheckApply(context, applied);
}

std::string CheckRefresh(PrinterUiContext& context)
{
    const auto record = std::make_unique<DriverDevMode>(context.dmWork);
    const std::vector<std::string> before = Picture(context.hMainDialog);
    SendMessageW(context.hBasicTab, kRefreshTab, 0, 0);
    std::string wrong = test::Differences(*record, context.dmWork);
    if (!wrong.empty())
        wrong = "reading the record again changes " + wrong + "; ";
    return wrong + PictureChanges(before, Picture(context.hMainDialog));
}

std::string CheckTitles()
{
    for (const HWND dialog : OpenDialogs()) {
        if (TextOf(dialog).empty())
            return "a dialog has no title; ";
        if (IsMessageBox(dialog) && MessageOf(dialog).empty())
            return "the message box \"" + TextOf(dialog) + "\" has no text; ";
    }
    return "";
}

} // namespace walk
