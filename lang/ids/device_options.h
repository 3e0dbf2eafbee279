#pragma once
/* Controls of IDD_DEVICE_OPTIONS. ShowOptionPage hides and shows the range 4136 to 4222. */

#define IDC_OPTION_FRAME 4134 /* where the gesture for the parameter page counts */
#define IDC_OPTION_LIST  4135

/* Date and time print */
#define IDC_DATE_LABEL          4139
#define IDC_DATE_PRINT          4140
#define IDC_DATE_TEXT           4141
#define IDC_DATE_FORMAT_LABEL   4174
#define IDC_DATE_FORMAT         4175
#define IDC_TIME_FORMAT_LABEL   4176
#define IDC_TIME_FORMAT         4177
#define IDC_DATE_SEPARATOR1     4178
#define IDC_DATE_FONT           4179
#define IDC_DATE_BACK_COLOR     4180
#define IDC_DATE_SEPARATOR2     4181
#define IDC_DATE_LEFT           4182
#define IDC_DATE_CENTRE         4183
#define IDC_DATE_RIGHT          4184
#define IDC_DATE_LINE           4185
#define IDC_DATE_TOP            4186
#define IDC_DATE_BOTTOM         4187
#define IDC_DATE_OPAQUE         4188
#define IDC_DATE_TRANSPARENT    4189
#define IDC_DATE_POSITION_LABEL 4190

/* Every page */
#define IDC_PAGE_LINE  4191
#define IDC_PAGE_FRAME 4192

/* Quick print setup */
#define IDC_QUICK_LABEL  4145
#define IDC_QUICK_OFF    4146
#define IDC_QUICK_ON     4147
#define IDC_QUICK_LAYOUT 4148
#define IDC_QUICK_COLOR  4149

/* Photo paper notice */
#define IDC_TRAY_LABEL 4171
#define IDC_TRAY_ON    4172
#define IDC_TRAY_OFF   4173

/* JPEG printing */
#define IDC_JPEG_LABEL   4193
#define IDC_JPEG_AUTO    4194
#define IDC_JPEG_QUALITY 4195
#define IDC_JPEG_SPEED   4196

/* Advanced color settings */
#define IDC_HALFTONE_TITLE     4197
#define IDC_HALFTONE_DIFFUSION 4198
#define IDC_HALFTONE_DITHER    4199
#define IDC_MATCH_MONITOR      4200
#define IDC_HALFTONE_LABEL     4201
#define IDC_MATCH_MONITOR_HELP 4202

/* Print order */
#define IDC_ORDER_LABEL    4203
#define IDC_ORDER_STANDARD 4204
#define IDC_ORDER_FAST     4205
#define IDC_ORDER_FASTEST  4206

/* Parameter page */
#define IDC_PARAMETER_ROW         4150 /* hidden: row of the parameter */
#define IDC_PARAMETER_TITLE       4151
#define IDC_PARAMETER_CODE_LABEL  4152
#define IDC_PARAMETER_CODE        4153
#define IDC_PARAMETER_FIND        4154
#define IDC_PARAMETER_SEPARATOR   4155
#define IDC_PARAMETER_NAME        4156
#define IDC_PARAMETER_VALUE_LABEL 4157
#define IDC_PARAMETER_NEW_LABEL   4158
#define IDC_PARAMETER_VALUE       4159
#define IDC_PARAMETER_NEW         4160
#define IDC_PARAMETER_SET         4161
#define IDC_PARAMETER_RESET       4162
#define IDC_PARAMETER_FRAME       4163
