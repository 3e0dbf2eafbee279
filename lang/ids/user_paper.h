#pragma once
/* Controls of IDD_USER_PAPER. */

#define IDC_SIZE_NAME   3081
#define IDC_WIDTH       3085
#define IDC_WIDTH_MIN   3083
#define IDC_WIDTH_MAX   3084
#define IDC_LENGTH      3088
#define IDC_LENGTH_MIN  3086
#define IDC_LENGTH_MAX  3087
#define IDC_UNIT_MM     3089
#define IDC_UNIT_INCH   3090
#define IDC_THICKNESS   3091
#define IDC_SIZE_SAVE   3092
#define IDC_SIZE_DELETE 3093
