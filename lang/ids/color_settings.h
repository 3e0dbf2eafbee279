#pragma once
/* Controls of IDD_COLOR_SETTINGS, IDD_CUSTOM_COLOR and IDD_COLOR_MATCHING. */

/* Adjustments: trackbars of IDD_COLOR_SETTINGS and scroll bars of IDD_CUSTOM_COLOR, with the edits that show
 * them */
#define IDC_ENHANCEMENT         3122
#define IDC_BRIGHTNESS_TRACK    3110
#define IDC_BRIGHTNESS_SCROLL   4034
#define IDC_BRIGHTNESS          4033
#define IDC_BRIGHTNESS_LABEL    4047
#define IDC_CONTRAST_TRACK      3111
#define IDC_CONTRAST_SCROLL     4036
#define IDC_CONTRAST            4035
#define IDC_CONTRAST_LABEL      4048
#define IDC_RED_TRACK           3112
#define IDC_RED_SCROLL          4039
#define IDC_RED                 4038
#define IDC_RED_LABEL           4049
#define IDC_GREEN_TRACK         3113
#define IDC_GREEN_SCROLL        4041
#define IDC_GREEN               4040
#define IDC_GREEN_LABEL         4050
#define IDC_BLUE_TRACK          3114
#define IDC_BLUE_SCROLL         4043
#define IDC_BLUE                4042
#define IDC_BLUE_LABEL          4051
#define IDC_SATURATION_TRACK    4026
#define IDC_SATURATION          4025
#define IDC_SATURATION_LABEL    4044
#define IDC_WHITE_BALANCE_TRACK 4028
#define IDC_WHITE_BALANCE       4027
#define IDC_WHITE_BALANCE_LABEL 4045
#define IDC_SAMPLE              4024

/* IDD_COLOR_SETTINGS */
#define IDC_BIDIRECTIONAL        3097
#define IDC_BIDIRECTIONAL_HELP   3098
#define IDC_IMPROVE_PATTERN      3125
#define IDC_IMPROVE_PATTERN_HELP 3102

/* IDD_CUSTOM_COLOR */
#define IDC_CUSTOM_COLOR    4031
#define IDC_CUSTOM_PICTURE  4052
#define IDC_DETAIL_TRACK    4030
#define IDC_DETAIL          4029
#define IDC_DETAIL_LABEL    4046
#define IDC_CUSTOM_PICTURE1 4023
#define IDC_CUSTOM_PICTURE2 4032
#define IDC_CUSTOM_PICTURE3 4037

/* IDD_COLOR_MATCHING; its other controls have the ids of the device options */
#define IDC_MATCHING_FIRST   4056
#define IDC_MATCHING_SECOND  4057
#define IDC_MATCHING_PICTURE 4053
#define IDC_HALFTONE_PICTURE 4054
