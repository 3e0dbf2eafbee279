#include "tools/langcheck/facts.h"

#include "lang/ids/advanced_tab.h"
#include "lang/ids/basic_tab.h"
#include "lang/ids/device_options.h"
#include "lang/ids/dialogs.h"
#include "lang/ids/main_dialog.h"
#include "lang/ids/strings.h"

namespace langcheck {

const Facts& ProductFacts()
{
    constexpr unsigned options = IDD_DEVICE_OPTIONS;
    static const Facts facts = {
        {{options, IDC_DATE_LABEL, IDC_DATE_TEXT, 1},
         {options, IDC_DATE_FORMAT_LABEL, IDC_DATE_POSITION_LABEL, 1},
         {options, IDC_QUICK_LABEL, IDC_QUICK_COLOR, 2},
         {options, IDC_TRAY_LABEL, IDC_TRAY_OFF, 3},
         {options, IDC_JPEG_LABEL, IDC_JPEG_SPEED, 4},
         {options, IDC_HALFTONE_TITLE, IDC_MATCH_MONITOR_HELP, 5},
         {options, IDC_ORDER_LABEL, IDC_ORDER_FASTEST, 6},
         {options, IDC_PARAMETER_ROW, IDC_PARAMETER_FRAME, 7}},

        {{IDD_MAIN, IDD_BASIC}, {IDD_MAIN, IDD_ADVANCED}, {IDD_MAIN, IDD_FAVOURITES}},

        {{IDD_MAIN, IDC_LINE_PAPER, IDS_PAPER_A4, IDS_DISPLAY_LEDGER},
         {IDD_MAIN, IDC_LINE_PAPER_SIZE, IDS_SIZE_A4_IN, IDS_SIZE_LEDGER_MM},
         {IDD_MAIN, IDC_LINE_MEDIA, IDS_MEDIA_PLAIN_PAPER, IDS_MEDIA_GLOSSYHAGAKIURA},
         {IDD_MAIN, IDC_LINE_QUALITY, IDS_QUALITY_DRAFT, IDS_QUALITY_BEST_PHOTO, IDS_LABEL_QUALITY,
          TEXT(" : ")},
         {IDD_MAIN, IDC_LINE_COPIES, IDS_LABEL_COPIES, IDS_LABEL_COPIES, IDS_LABEL_COPIES, TEXT(" 999")},
         {IDD_MAIN, IDC_LINE_LAYOUT, IDS_LAYOUT_NORMAL, IDS_LAYOUT_16IN1, IDS_LABEL_LAYOUT, TEXT(" : ")},
         {IDD_MAIN, IDC_LINE_COLOR_MODE, IDS_VALUE_MODE_NONE, IDS_VALUE_MODE_CUSTOM, IDS_LABEL_COLOR_MODE,
          TEXT(" : ")},
         {IDD_MAIN, IDC_LINE_BORDERLESS, IDS_OFF, IDS_ON, IDS_LABEL_BORDERLESS, TEXT(" ")},
         {IDD_MAIN, IDC_LINE_DUPLEX, IDS_OFF, IDS_ON, IDS_LABEL_DUPLEX, TEXT(" ")},
         {IDD_MAIN, IDC_LINE_COLOR, IDS_VALUE_COLOR, IDS_VALUE_MONOCHROME},
         {IDD_MAIN, IDC_LINE_SCALING, IDS_OFF, IDS_ON, IDS_LABEL_SCALING, TEXT(" ")},
         {IDD_MAIN, IDC_LINE_MIRROR, IDS_OFF, IDS_ON, IDS_LABEL_MIRROR, TEXT(" ")},
         {IDD_MAIN, IDC_LINE_REVERSE, IDS_OFF, IDS_ON, IDS_LABEL_REVERSE, TEXT(" ")},
         {IDD_MAIN, IDC_LINE_WATERMARK, IDS_OFF, IDS_ON, IDS_LINE_WATERMARK, TEXT(" ")},
         {IDD_MAIN, IDC_LINE_FIT_PAPER, IDS_SHORT_A4_IN, IDS_SHORT_LEDGER_MM},
         {IDD_MAIN, IDC_LINE_SCALED_TO, IDS_SCALED_TO, IDS_SCALED_TO},
         {IDD_MAIN, IDC_LINE_FIGURE, IDS_SHORT_A4_IN, IDS_SHORT_LEDGER_MM},
         {IDD_BASIC, IDC_MEDIA, IDS_MEDIA_PLAIN_PAPER, IDS_MEDIA_GLOSSYHAGAKIURA},
         {IDD_BASIC, IDC_QUALITY, IDS_QUALITY_DRAFT, IDS_QUALITY_BEST_PHOTO},
         {IDD_BASIC, IDC_PAPER, IDS_PAPER_A4, IDS_PAPER_USER},
         {IDD_BASIC, IDC_PAPER, IDS_PAPER_A3, IDS_PAPER_LEDGER_BL_SG},
         {IDD_BASIC, IDC_LAYOUT, IDS_LAYOUT_NORMAL, IDS_LAYOUT_16IN1},
         {IDD_BASIC, IDC_PAGE_ORDER, IDS_ORDER_LEFT_RIGHT, IDS_ORDER_LEFT_DOWN},
         {IDD_BASIC, IDC_BORDER_LINE, IDS_BORDER_NONE, IDS_BORDER_DASHED},
         {IDD_BASIC, IDC_SOURCE, IDS_BIN_SINGLE, IDS_BIN_MANUAL},
         {IDD_ADVANCED, IDC_SCALING_PAPER, IDS_SHORT_A4_IN, IDS_SHORT_LEDGER_MM},
         {IDD_ADVANCED, IDC_FIT_PAPER, IDS_PAPER_A4, IDS_PAPER_JE4},
         {options, IDC_DATE_FORMAT, IDS_DATE_MONTH_FIRST, IDS_DATE_NONE},
         {options, IDC_DATE_FORMAT, IDS_OWN_DATE1, IDS_OWN_DATE3},
         {options, IDC_TIME_FORMAT, IDS_TIME_24, IDS_TIME_NONE},
         {options, IDC_TIME_FORMAT, IDS_OWN_TIME1, IDS_OWN_TIME3},
         {options, IDC_OPTION_LIST, IDS_OPTION_DATE, IDS_OPTION_PRINT_ORDER, 0, TEXT(""), 10},
         {options, IDC_OPTION_LIST, IDS_OPTION_PARAMETERS, IDS_OPTION_PARAMETERS, 0, TEXT(""), 10}}};
    return facts;
}

int PageOf(const Facts& facts, unsigned dialog, unsigned control)
{
    for (const PageRange& range : facts.pages) {
        if (range.dialog == dialog && range.first <= control && control <= range.last)
            return range.page;
    }
    return 0;
}

} // namespace langcheck
