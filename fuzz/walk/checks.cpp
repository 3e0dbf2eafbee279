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
#include "psui/maindlg/qualities.h"
#include "psui/maindlg/rules.h"
#include "psui/maindlg/side_panel.h"
#include "psui/settings/environment.h"
#include "psui/settings/merge.h"
#include "psui/settings/paper_groups.h"
#include "psui/settings/record.h"
#include "psui/settings/record_values.h"
#include "psui/settings/tail.h"
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

// What a merge changes in any record, or in one that the dialogs did not make.

constexpr int64_t kEveryBit = -1;
constexpr int64_t kMergesOwnFields =
    DM_COPIES | DM_COLLATE | DM_NUP | DM_SCALE | DM_PAPERLENGTH | DM_PAPERWIDTH;

bool Always(const DriverDevMode&)
{
    return true;
}

/// The date is not printed on borderless paper.
bool DropsDate(const DriverDevMode& record)
{
    return psui::IsBorderlessPaper(record.dmPublic.dmPaperSize) || record.dmPrivate.bBorderless == 1;
}

/// A user-defined size that lies on its side is turned where that makes it fit, and one of nothing is none.
bool IsMendedSize(const DriverDevMode& record)
{
    const DEVMODEW& pub = record.dmPublic;
    return pub.dmPaperSize == DMPAPER_USER &&
           (pub.dmPaperLength < pub.dmPaperWidth || pub.dmPaperLength < 1 || pub.dmPaperWidth < 1);
}

bool HasNoUserSize(const DriverDevMode& record)
{
    return record.dmPublic.dmPaperSize != DMPAPER_USER;
}

/// A media that nobody knows is plain paper to the merge only.
bool HasUnknownMedia(const DriverDevMode& record)
{
    const DWORD media = record.dmPublic.dmMediaType;
    return psui::MediaClassOf(media) == psui::kPlainClass && !psui::IsPlainMedia(media);
}

/// The dialogs decide on the direction by the paper that is printed on, the merge by the document's.
bool HasTwoDirections(const DriverDevMode& record)
{
    return HasUnknownMedia(record) || record.dmPrivate.bFitToPaper == psui::kFitToOutputPaper;
}

/// Media that have qualities in the dialog which the merge does not know.
bool HasUnmergedQualities(const DriverDevMode& record)
{
    const DWORD media = record.dmPublic.dmMediaType;
    return media == psui::kMediaGlossy || media == psui::kMediaGlossyR || HasUnknownMedia(record);
}

struct MergeChange
{
    const char* field;
    int64_t bits;
    bool (*expected)(const DriverDevMode& record);
};
constexpr MergeChange kMergeChanges[] = {
    {"dmFields", kMergesOwnFields, Always},
    {"dmNup", kEveryBit, Always},
    {"wMultiPageMode", kEveryBit, Always},
    {"dwDatePrint", psui::kDatePrintOn, DropsDate},
    {"dwTailDatePrint", psui::kDatePrintOn, DropsDate},
    {"dmOrientation", kEveryBit, IsMendedSize},
    {"dmPaperWidth", kEveryBit, HasNoUserSize},
    {"dmPaperLength", kEveryBit, HasNoUserSize},
    {"dmPaperWidth", kEveryBit, IsMendedSize},
    {"dmPaperLength", kEveryBit, IsMendedSize},
    {"wCustomWidth", kEveryBit, IsMendedSize},
    {"wCustomLength", kEveryBit, IsMendedSize},
    {"dwDeviceOptions", ~int64_t{psui::kMirrorPrinting | psui::kReversePrinting}, Always},
    {"dwDirModePlain", kEveryBit, HasTwoDirections},
    {"dwDirModeOther", kEveryBit, HasTwoDirections},
    {"dmPrintQuality", kEveryBit, HasUnmergedQualities},
    {"shQuality", kEveryBit, HasUnmergedQualities},
    {"bQualityLevel", kEveryBit, HasUnmergedQualities},
};

bool MergeLoses(const DriverDevMode& before, const DriverDevMode& after, const psui::DevModeField& field)
{
    if (!test::FieldDiffers(before, after, field))
        return false;
    for (const MergeChange& change : kMergeChanges)
        if (change.field == std::string_view(field.name) && change.expected(before))
            return ((test::Get(before, field) ^ test::Get(after, field)) & ~change.bits) != 0;
    return true;
}

std::string Shown(const DriverDevMode& record, const psui::DevModeField& field)
{
    return field.width <= sizeof(int64_t) ? std::to_string(test::Get(record, field)) : "other bytes";
}

/// The record as the confirmed sheet would hand it out.
DriverDevMode HandedOut(const DriverDevMode& record)
{
    alignas(DEVMODEW) DriverDevMode out = record;
    if (out.dmPublic.dmPaperSize == DMPAPER_USER) {
        out.dmPublic.dmPaperLength = static_cast<short>(out.dmPrivate.wCustomLength);
        out.dmPublic.dmPaperWidth = static_cast<short>(out.dmPrivate.wCustomWidth);
        out.dmPublic.dmFields |= DM_PAPERLENGTH | DM_PAPERWIDTH;
    }
    // Twice, because the first refresh asks for the date as the last one left it.
    psui::RefreshTail(&out);
    psui::RefreshTail(&out);
    return out;
}

/// The record that a sheet opens with when it is given `record`: merged into the printer's defaults.
DriverDevMode Reopened(const PrinterUiContext& context, const DriverDevMode& record)
{
    alignas(DEVMODEW) DriverDevMode merged;
    psui::BuildDefaultDevMode(&merged, context.pDriverName, context.pModel, psui::IsMetricCountry());
    alignas(DEVMODEW) DriverDevMode source = record;
    psui::MergeDevMode(&merged, &source.dmPublic, context.pModel);
    return merged;
}

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

std::string CheckApply(const PrinterUiContext& context, const PrinterUiContext* applied)
{
    if (!applied)
        return "";
    return CheckEnabled(context.hMainDialog, IDC_APPLY,
                        context.bUserDefault && psui::SettingsDiffer(context, *applied));
}

} // namespace

std::string CheckRecord(const PrinterUiContext& context)
{
    const DriverDevMode before = HandedOut(context.dmWork);
    const DriverDevMode after = Reopened(context, before);
    std::string wrong;
    for (const psui::DevModeField& field : psui::kDevModeFields)
        if (MergeLoses(before, after, field))
            wrong += std::string("the merge changes ") + field.name + ": " + Shown(before, field) +
                     " becomes " + Shown(after, field) + "; ";
    return wrong;
}

bool KeepsQuality(const PrinterUiContext& context)
{
    const DriverDevMode& record = context.dmWork;
    return Reopened(context, HandedOut(record)).dmPrivate.bQualityLevel == record.dmPrivate.bQualityLevel;
}

std::string CheckControls(const PrinterUiContext& context, const PrinterUiContext* applied)
{
    const DriverDevMode& record = context.dmWork;
    const HWND tab = context.hBasicTab;
    return CheckLists(tab, record) + CheckBoxes(tab, record) + CheckCopies(tab, record) +
           CheckLines(context) + CheckEnables(context) + CheckApply(context, applied);
}

std::string CheckRefresh(PrinterUiContext& context)
{
    const auto record = std::make_unique<DriverDevMode>(context.dmWork);
    const std::vector<HWND> copies = {GetDlgItem(context.hBasicTab, IDC_COPIES)};
    const std::vector<std::string> before = Picture(context.hMainDialog, copies);
    SendMessageW(context.hBasicTab, kRefreshTab, 0, 0);
    std::string wrong = test::Differences(*record, context.dmWork);
    if (!wrong.empty())
        wrong = "reading the record again changes " + wrong + "; ";
    return wrong + PictureChanges(before, Picture(context.hMainDialog, copies));
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
