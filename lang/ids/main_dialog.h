#pragma once
/* Controls of IDD_MAIN. */

#define IDC_TABS           3000
#define IDC_APPLY          3028
#define IDC_SUPPORT        3012 /* opens IDD_SUPPORT */
#define IDC_CONTROL_CENTRE 3019 /* starts the control centre */

/* Pictures */
#define IDC_PREVIEW_FRAME 3001
#define IDC_PREVIEW       3033
#define IDC_BANNER        3013
#define IDC_WEB_LINK      3016
#define IDC_FIT_PICTURE   3020
#define IDC_COLOR_PICTURE 3029
#define IDC_HOVER_TIP     4006
#define IDC_BACKGROUND    3031

/* Lines of the side panel */
#define IDC_LINE_MEDIA      3002
#define IDC_LINE_QUALITY    3003
#define IDC_LINE_COLOR      3004
#define IDC_LINE_COPIES     3005
#define IDC_LINE_LAYOUT     3006
#define IDC_LINE_COLOR_MODE 3007
#define IDC_LINE_BORDERLESS 3008
#define IDC_LINE_MIRROR     3009
#define IDC_LINE_REVERSE    3010
#define IDC_LINE_WATERMARK  3011
#define IDC_LINE_PAPER_SIZE 3023
#define IDC_LINE_DUPLEX     3024
#define IDC_LINE_SCALING    3025
#define IDC_LINE_PAPER      3026
#define IDC_LINE_FIT_PAPER  3027
#define IDC_LINE_SCALED_TO  4351
#define IDC_LINE_FIGURE     3038
