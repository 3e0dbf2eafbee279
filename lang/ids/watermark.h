#pragma once
/* Controls of IDD_WATERMARK and IDD_WATERMARK_PAGES; see advanced_tab.h for those shared with the tab. */

/* IDD_WATERMARK: the list */
#define IDC_WM_LIST          4092
#define IDC_WM_NAME          4133
#define IDC_WM_NEW           4095
#define IDC_WM_SAVE          4124
#define IDC_WM_DELETE        4094
#define IDC_WM_PAGES         4121 /* opens IDD_WATERMARK_PAGES */
#define IDC_WM_NAME_LABEL    4109
#define IDC_WM_PREVIEW_FRAME 4087

/* IDD_WATERMARK: text */
#define IDC_WM_TEXT_CHOICE     4264
#define IDC_WM_TEXT_LABEL      4267
#define IDC_WM_TEXT            4268
#define IDC_WM_FONT_LABEL      4269
#define IDC_WM_FONT            4270
#define IDC_WM_SIZE_LABEL      4271
#define IDC_WM_SIZE            4272
#define IDC_WM_SIZE_SPIN       4273
#define IDC_WM_STYLE_LABEL     4278
#define IDC_WM_STYLE           4279
#define IDC_WM_COLOR           4305
#define IDC_WM_COLOR_LABEL     4306
#define IDC_WM_COLOR_SWATCH    4315
#define IDC_WM_ANGLE_RANGE     4120
#define IDC_WM_ANGLE_LABEL     4293
#define IDC_WM_ANGLE           4294
#define IDC_WM_ANGLE_SPIN      4295
#define IDC_WM_TEXT_GROUP      4122
#define IDC_WM_OUTLINE_PICTURE 4132

/* IDD_WATERMARK: bitmap */
#define IDC_WM_BITMAP_CHOICE 4265
#define IDC_WM_BITMAP_GROUP  4123
#define IDC_WM_FILE          4282
#define IDC_WM_BROWSE        4283
#define IDC_WM_SCALE_LABEL   4284
#define IDC_WM_SCALE         4285
#define IDC_WM_SCALE_SPIN    4286
#define IDC_WM_PALE_LABEL    4308
#define IDC_WM_PALE          4309
#define IDC_WM_PALE_SPIN     4310

/* IDD_WATERMARK: place on the page */
#define IDC_WM_PLACE_GROUP 4287
#define IDC_WM_CENTRE      4288
#define IDC_WM_X_LABEL     4118
#define IDC_WM_X           4289
#define IDC_WM_X_SPIN      4290
#define IDC_WM_X_RANGE     4313
#define IDC_WM_Y_LABEL     4119
#define IDC_WM_Y           4291
#define IDC_WM_Y_SPIN      4292
#define IDC_WM_Y_RANGE     4314

/* IDD_WATERMARK_PAGES */
#define IDC_PAGES_ALL        4097
#define IDC_PAGES_FIRST      4098
#define IDC_PAGES_SECOND     4099
#define IDC_PAGES_LIST_MODE  4100
#define IDC_PAGES_GROUP      4104
#define IDC_PAGES_LIST_LABEL 4105
#define IDC_PAGES_LIST       4106
#define IDC_PAGES_REMOVE     4107
#define IDC_PAGES_NAME_LABEL 4108
#define IDC_PAGES_PAGE_LABEL 4131
#define IDC_PAGES_ADD        4110
#define IDC_PAGES_PAGE       4111
#define IDC_PAGES_NAME       4112
