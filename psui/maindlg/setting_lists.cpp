// Lists whose entries are built in: qualities and layouts.
#include <algorithm>
#include <iterator>

#include "lang/ids/basic_tab.h"
#include "lang/ids/strings.h"
#include "psui/maindlg/combo_list.h"
#include "psui/maindlg/option_lists.h"
#include "psui/maindlg/qualities.h"
#include "psui/maindlg/rules.h"
#include "psui/settings/language.h"
#include "psui/settings/record_values.h"

namespace psui {

namespace {

struct Entry
{
    UINT text;
    int value;
};

constexpr Entry kMultiplePages[] = {
    {IDS_LAYOUT_NORMAL, 1},
    {IDS_LAYOUT_2IN1, 2},
    {IDS_LAYOUT_4IN1, 4},
    {IDS_LAYOUT_9IN1, 9},
    {IDS_LAYOUT_16IN1, 16},
    {IDS_LAYOUT_POSTER4, kPosterTwoByTwo},
    {IDS_LAYOUT_POSTER9, kPosterThreeByThree},
};
constexpr Entry kOrdersOfMany[] = {
    {IDS_ORDER_RIGHT_DOWN, 0},
    {IDS_ORDER_DOWN_RIGHT, 1},
    {IDS_ORDER_LEFT_DOWN, 2},
    {IDS_ORDER_DOWN_LEFT, 3},
};
constexpr Entry kOrdersOfTwo[] = {{IDS_ORDER_LEFT_RIGHT, 0}, {IDS_ORDER_RIGHT_LEFT, 2}};
constexpr Entry kOrdersOfTwoOnLandscape[] = {{IDS_ORDER_TOP_BOTTOM, 0}};
constexpr Entry kBorderLines[] = {{IDS_BORDER_SOLID, 1}, {IDS_BORDER_DASHED, 2}, {IDS_BORDER_NONE, 0}};

constexpr uint8_t kLargestBorderLine = 3;
constexpr uint8_t kSolidBorderLine = 1;
constexpr int kNoEntry = -1;

template <size_t N>
void FillEntries(HWND tab, int control, HMODULE module, const Entry (&entries)[N])
{
    ComboFiller filler(tab, control);
    for (const Entry& entry : entries)
        filler.AddString(module, entry.text, entry.value);
}

/// Selects the quality of the record's level and takes its codes.
void SelectQuality(HWND tab, DriverDevMode& record)
{
    const QualityRow* row = QualityOfLevel(record, record.dmPrivate.bQualityLevel);
    if (row && TakeQualityCode(record))
        SelectByItemData(tab, IDC_QUALITY, row->listPosition);
}

/// The order that the list of two pages on landscape shows; none for the numbers of another order.
int OrderOnLandscape(uint8_t pageOrder)
{
    return pageOrder <= 3 ? 0 : kNoEntry;
}

} // namespace

void BuildQualityList(HWND tab, PrinterUiContext* context)
{
    DriverDevMode& record = context->dmWork;
    {
        ComboFiller filler(tab, IDC_QUALITY);
        for (const QualityRow& row : Qualities())
            if (OffersQuality(record, row))
                filler.AddString(context->hPageRes, row.text, row.listPosition);
    }
    SelectQuality(tab, record);
}

void BuildDefaultQualityList(HWND tab, PrinterUiContext* context)
{
    TakeDefaultQualityLevel(context->dmWork);
    BuildQualityList(tab, context);
}

void BuildSingleQualityList(HWND tab, PrinterUiContext* context)
{
    const QualityRow& only = SingleQuality();
    {
        ComboFiller filler(tab, IDC_QUALITY);
        filler.AddString(context->hPageRes, only.text, only.listPosition);
    }
    SendDlgItemMessageW(tab, IDC_QUALITY, CB_SETCURSEL, 0, 0);
    TakeSingleQuality(context->dmWork);
}

void BuildMultiplePageList(HWND tab, PrinterUiContext* context)
{
    constexpr int kShownItems = 8;
    constexpr int kFrame = 9; // pixels
    const HWND combo = GetDlgItem(tab, IDC_LAYOUT);
    if (SendMessageW(combo, CB_GETCOUNT, 0, 0) != std::ssize(kMultiplePages)) {
        SetDroppedHeight(combo, DroppedHeight(combo, kShownItems, kFrame));
        FillEntries(tab, IDC_LAYOUT, context->hLangRes, kMultiplePages);
    }
    SelectByItemData(tab, IDC_LAYOUT, context->dmWork.dmPrivate.dwPagesPerSheet);
}

void BuildPageOrderList(HWND tab, PrinterUiContext* context)
{
    const DriverDevMode& record = context->dmWork;
    const uint8_t order = record.dmPrivate.bPageOrder;
    int selected = order;
    if (record.dmPrivate.dwPagesPerSheet != 2) {
        FillEntries(tab, IDC_PAGE_ORDER, context->hPageRes, kOrdersOfMany);
    } else if (record.dmPublic.dmOrientation == DMORIENT_LANDSCAPE) {
        FillEntries(tab, IDC_PAGE_ORDER, context->hPageRes, kOrdersOfTwoOnLandscape);
        selected = OrderOnLandscape(order);
    } else {
        FillEntries(tab, IDC_PAGE_ORDER, context->hPageRes, kOrdersOfTwo);
        selected = TwoPagesRunBackwards(order) ? 1 : 0;
    }
    SendDlgItemMessageW(tab, IDC_PAGE_ORDER, CB_SETCURSEL, static_cast<WPARAM>(selected), 0);
}

void BuildBorderLineList(HWND tab, PrinterUiContext* context)
{
    constexpr int kShownItems = 4;
    constexpr int kFrame = 5; // pixels
    uint8_t& line = context->dmWork.dmPrivate.bBorderLine;
    if (line > kLargestBorderLine)
        line = kSolidBorderLine;
    FillEntries(tab, IDC_BORDER_LINE, context->hLangRes, kBorderLines);
    SelectByItemData(tab, IDC_BORDER_LINE, line);

    const HWND combo = GetDlgItem(tab, IDC_BORDER_LINE);
    RECT dropped = {};
    SendMessageW(combo, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped));
    const int height = DroppedHeight(combo, kShownItems, kFrame);
    if (dropped.bottom - dropped.top != height)
        SetDroppedHeight(combo, height);
}

void SetBorderLineItemHeight(HWND tab)
{
    constexpr int kLessInJapanese = 4; // pixels
    constexpr int kLess = 5;
    RECT label = {};
    if (!GetWindowRect(GetDlgItem(tab, IDC_BORDER_LINE_LABEL), &label))
        return;
    const int height =
        std::max<int>(label.bottom - label.top - (IsJapaneseLanguage() ? kLessInJapanese : kLess), 1);
    for (const int part : {0, -1})
        SendDlgItemMessageW(tab, IDC_BORDER_LINE, CB_SETITEMHEIGHT, static_cast<WPARAM>(part), height);
}

} // namespace psui
