#pragma once
/* Controls of IDD_DUPLEX. */

#define IDC_BOOKLET           3148
#define IDC_DUPLEX_TYPE       3150 /* first of six radio buttons */
#define IDC_DUPLEX_TYPE_LAST  3155
#define IDC_BINDING_OFFSET    3156
#define IDC_OFFSET            3157
#define IDC_OFFSET_LABEL      3158
#define IDC_OFFSET_RANGE      3159
#define IDC_OFFSET_RANGE_TO   3160
#define IDC_OFFSET_GROUP      3161
#define IDC_OFFSET_UNIT_LABEL 3162
#define IDC_OFFSET_MIN        3163
#define IDC_OFFSET_MAX        3164
#define IDC_OFFSET_MM         3165
#define IDC_OFFSET_INCH       3166
#define IDC_DUPLEX_PICTURE    3170
