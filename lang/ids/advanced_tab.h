#pragma once
/* Controls of IDD_ADVANCED. */

#define IDC_COLOR_GROUP        3043
#define IDC_COLOR              4014
#define IDC_MONOCHROME         4015
#define IDC_COLOR_SETTINGS     3049 /* opens IDD_COLOR_SETTINGS */
#define IDC_SCALING_LABEL      4068
#define IDC_SCALING_OFF        4069
#define IDC_SCALING_FIT        4070
#define IDC_SCALING_FREE       4072
#define IDC_SCALING_PAPER      4067 /* short name of the paper */
#define IDC_FIT_PAPER_LABEL    4073
#define IDC_FIT_PAPER          4074
#define IDC_SCALE_LABEL        4075
#define IDC_SCALE              4076
#define IDC_SCALE_SPIN         4077
#define IDC_SCALING_SEPARATOR  4078
#define IDC_MIRROR             4081
#define IDC_REVERSE            4082
#define IDC_WATERMARK          4089
#define IDC_WATERMARK_LIST     4262
#define IDC_WATERMARK_SETTINGS 4115 /* opens IDD_WATERMARK */
#define IDC_DEVICE_OPTIONS     4116 /* opens IDD_DEVICE_OPTIONS */

/* Pictures */
#define IDC_COLOR_SYMBOL      4083
#define IDC_MONOCHROME_SYMBOL 4084

/* Watermark settings of the tab, shared with IDD_WATERMARK */
#define IDC_WATERMARK_PREVIEW     4088
#define IDC_WATERMARK_TRANSPARENT 4090
#define IDC_WATERMARK_OUTLINE     4101
