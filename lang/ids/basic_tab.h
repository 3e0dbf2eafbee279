#pragma once
/* Controls of IDD_BASIC. */

#define IDC_SLOW_DRYING       3074
#define IDC_MEDIA_LABEL       3039
#define IDC_MEDIA             3040
#define IDC_QUALITY_LABEL     3041
#define IDC_QUALITY           3042
#define IDC_COLOR_MODE_LABEL  4017
#define IDC_NATURAL           4019
#define IDC_VIVID             4020
#define IDC_PAPER_LABEL       3051
#define IDC_PAPER             3052
#define IDC_BORDERLESS        3065
#define IDC_ORIENTATION_LABEL 3057
#define IDC_PORTRAIT          3058
#define IDC_LANDSCAPE         3059
#define IDC_COPIES_LABEL      3060
#define IDC_COPIES            3061
#define IDC_COPIES_SPIN       3062
#define IDC_COLLATE           3063
#define IDC_REVERSE_ORDER     3064
#define IDC_LAYOUT_LABEL      3053
#define IDC_LAYOUT            3054
#define IDC_PAGE_ORDER_LABEL  3072
#define IDC_PAGE_ORDER        3073
#define IDC_BORDER_LINE_LABEL 3055
#define IDC_BORDER_LINE       3056
#define IDC_DUPLEX            3075
#define IDC_DUPLEX_SETTINGS   3076 /* opens IDD_DUPLEX */
#define IDC_SOURCE_LABEL      3067
#define IDC_SOURCE            3068

/* Pictures */
#define IDC_SLOW_DRYING_HELP 3070
#define IDC_BORDERLESS_HELP  3071
#define IDC_COLOR_MODE_HELP  3079
#define IDC_NATURAL_PICTURE  3077
#define IDC_VIVID_PICTURE    3078
#define IDC_COLLATE_PICTURE  3034
