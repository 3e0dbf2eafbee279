#pragma once
/*
 * String ids of the language module, shared by the code and the resource scripts.
 *
 * Every language has every id, except those on lines that end in "optional": the library knows a language
 * that lacks one of them and acts on its absence. A line that ends in "places" names what the text is filled
 * with, in order. tests/lang and tools/langcheck compare each language with this list, so an id stands on a
 * line of its own, as a plain number.
 */

/* Language: region of the settings record, code ("ENG", "JPN", ...), face of the date font */
#define IDS_REGION        2113
#define IDS_LANGUAGE_CODE 8120
#define IDS_DATE_FONT     65280 /* optional */

/* Paper names; 1 to 63 units */
#define IDS_PAPER_A4            9130
#define IDS_PAPER_LETTER        9131
#define IDS_PAPER_LEGAL         9132
#define IDS_PAPER_EXECUTIVE     9133
#define IDS_PAPER_B5JIS         9134
#define IDS_PAPER_A5            9135
#define IDS_PAPER_A6            9136
#define IDS_PAPER_POST_CARD     9137
#define IDS_PAPER_INDEX_CARD    9138
#define IDS_PAPER_PHOTO_L       9139
#define IDS_PAPER_PHOTO_2L      9140
#define IDS_PAPER_HAGAKI        9141
#define IDS_PAPER_W_HAGAKI      9142
#define IDS_PAPER_C5            9143
#define IDS_PAPER_COM10         9144
#define IDS_PAPER_DL            9145
#define IDS_PAPER_MONARCH       9146
#define IDS_PAPER_JE4           9147
#define IDS_PAPER_A4_BL         9151
#define IDS_PAPER_LETTER_BL     9152
#define IDS_PAPER_A6_BL         9153
#define IDS_PAPER_POST_CARD_BL  9154
#define IDS_PAPER_INDEX_CARD_BL 9155
#define IDS_PAPER_PHOTO_L_BL    9156
#define IDS_PAPER_PHOTO_2L_BL   9157
#define IDS_PAPER_HAGAKI_BL     9158
#define IDS_PAPER_USER          9162
#define IDS_PAPER_A3            9169
#define IDS_PAPER_B4JIS         9170
#define IDS_PAPER_LEDGER        9171
#define IDS_PAPER_A3_SG         9172
#define IDS_PAPER_B4JIS_SG      9173
#define IDS_PAPER_LEDGER_SG     9174
#define IDS_PAPER_A3_BL         9175
#define IDS_PAPER_B4JIS_BL      9176
#define IDS_PAPER_LEDGER_BL     9177
#define IDS_PAPER_A3_BL_SG      9178
#define IDS_PAPER_B4JIS_BL_SG   9179
#define IDS_PAPER_LEDGER_BL_SG  9180

/* Paper source names; 1 to 23 units */
#define IDS_BIN_AUTO  1271
#define IDS_BIN_TRAY1 1272
#define IDS_BIN_TRAY2 1273

/* Media type names; 1 to 31 units */
#define IDS_MEDIA_PLAIN_PAPER     1240
#define IDS_MEDIA_INKJET_PAPER    1241
#define IDS_MEDIA_TRANSPARENCY    1244
#define IDS_MEDIA_GLOSSY_C        1247
#define IDS_MEDIA_GLOSSY_CB       1248
#define IDS_MEDIA_GLOSSY_RB       1250
#define IDS_MEDIA_GLOSSYHAGAKIATN 1251
#define IDS_MEDIA_GLOSSYHAGAKIURA 1252

/* Media type names that older models of the line offer; 1 to 31 units */
#define IDS_MEDIA_GLOSSY              1242
#define IDS_MEDIA_GLOSSY3             1243
#define IDS_MEDIA_TRANSPARENCY_MIRROR 1245
#define IDS_MEDIA_INKJET_HAGAKI       1246
#define IDS_MEDIA_GLOSSY_R            1249

/* Paper thickness */
#define IDS_THICKNESS_REGULAR  1280
#define IDS_THICKNESS_THIN     1281
#define IDS_THICKNESS_THICK    1282
#define IDS_THICKNESS_THICKER  1283
#define IDS_THICKNESS_ENVELOPE 1284

/* Papers on the main dialog; names of papers with two grains or margins are one */
#define IDS_CUSTOM_SIZE    1215
#define IDS_DISPLAY_A3     9148
#define IDS_DISPLAY_B4JIS  9149
#define IDS_DISPLAY_LEDGER 9150

/* Short paper names, in countries that use Letter (_IN) and in those that use A4 (_MM) */
#define IDS_SHORT_A4_IN         9001
#define IDS_SHORT_LETTER_IN     9002
#define IDS_SHORT_LEGAL_IN      9003
#define IDS_SHORT_EXECUTIVE_IN  9004
#define IDS_SHORT_B5JIS_IN      9005
#define IDS_SHORT_A5_IN         9006
#define IDS_SHORT_A6_IN         9007
#define IDS_SHORT_POST_CARD_IN  9008
#define IDS_SHORT_INDEX_CARD_IN 9009
#define IDS_SHORT_PHOTO_L_IN    9010
#define IDS_SHORT_PHOTO_2L_IN   9011
#define IDS_SHORT_HAGAKI_IN     9012
#define IDS_SHORT_W_HAGAKI_IN   9013
#define IDS_SHORT_C5_IN         9014
#define IDS_SHORT_COM10_IN      9015
#define IDS_SHORT_DL_IN         9016
#define IDS_SHORT_MONARCH_IN    9017
#define IDS_SHORT_JE4_IN        9018
#define IDS_SHORT_A3_IN         9019
#define IDS_SHORT_B4JIS_IN      9020
#define IDS_SHORT_LEDGER_IN     9021
#define IDS_SHORT_A4_MM         9022
#define IDS_SHORT_LETTER_MM     9023
#define IDS_SHORT_LEGAL_MM      9024
#define IDS_SHORT_EXECUTIVE_MM  9025
#define IDS_SHORT_B5JIS_MM      9026
#define IDS_SHORT_A5_MM         9027
#define IDS_SHORT_A6_MM         9028
#define IDS_SHORT_POST_CARD_MM  9029
#define IDS_SHORT_INDEX_CARD_MM 9030
#define IDS_SHORT_PHOTO_L_MM    9031
#define IDS_SHORT_PHOTO_2L_MM   9032
#define IDS_SHORT_HAGAKI_MM     9033
#define IDS_SHORT_W_HAGAKI_MM   9034
#define IDS_SHORT_C5_MM         9035
#define IDS_SHORT_COM10_MM      9036
#define IDS_SHORT_DL_MM         9037
#define IDS_SHORT_MONARCH_MM    9038
#define IDS_SHORT_JE4_MM        9039
#define IDS_SHORT_A3_MM         9040
#define IDS_SHORT_B4JIS_MM      9041
#define IDS_SHORT_LEDGER_MM     9042

/* Paper sizes, in inches and in millimetres */
#define IDS_SIZE_A4_IN         9181
#define IDS_SIZE_LETTER_IN     9182
#define IDS_SIZE_LEGAL_IN      9183
#define IDS_SIZE_EXECUTIVE_IN  9184
#define IDS_SIZE_B5JIS_IN      9185
#define IDS_SIZE_A5_IN         9186
#define IDS_SIZE_A6_IN         9187
#define IDS_SIZE_POST_CARD_IN  9188
#define IDS_SIZE_INDEX_CARD_IN 9189
#define IDS_SIZE_PHOTO_L_IN    9190
#define IDS_SIZE_PHOTO_2L_IN   9191
#define IDS_SIZE_HAGAKI_IN     9192
#define IDS_SIZE_W_HAGAKI_IN   9193
#define IDS_SIZE_C5_IN         9194
#define IDS_SIZE_COM10_IN      9195
#define IDS_SIZE_DL_IN         9196
#define IDS_SIZE_MONARCH_IN    9197
#define IDS_SIZE_JE4_IN        9198
#define IDS_SIZE_A3_IN         9199
#define IDS_SIZE_B4JIS_IN      9200
#define IDS_SIZE_LEDGER_IN     9201
#define IDS_SIZE_A4_MM         9202
#define IDS_SIZE_LETTER_MM     9203
#define IDS_SIZE_LEGAL_MM      9204
#define IDS_SIZE_EXECUTIVE_MM  9205
#define IDS_SIZE_B5JIS_MM      9206
#define IDS_SIZE_A5_MM         9207
#define IDS_SIZE_A6_MM         9208
#define IDS_SIZE_POST_CARD_MM  9209
#define IDS_SIZE_INDEX_CARD_MM 9210
#define IDS_SIZE_PHOTO_L_MM    9211
#define IDS_SIZE_PHOTO_2L_MM   9212
#define IDS_SIZE_HAGAKI_MM     9213
#define IDS_SIZE_W_HAGAKI_MM   9214
#define IDS_SIZE_C5_MM         9215
#define IDS_SIZE_COM10_MM      9216
#define IDS_SIZE_DL_MM         9217
#define IDS_SIZE_MONARCH_MM    9218
#define IDS_SIZE_JE4_MM        9219
#define IDS_SIZE_A3_MM         9220
#define IDS_SIZE_B4JIS_MM      9221
#define IDS_SIZE_LEDGER_MM     9222

/* Short paper names with their sizes */
#define IDS_FULL_A4_MM         9223
#define IDS_FULL_LETTER_MM     9224
#define IDS_FULL_LEGAL_MM      9225
#define IDS_FULL_EXECUTIVE_MM  9226
#define IDS_FULL_B5JIS_MM      9227
#define IDS_FULL_A5_MM         9228
#define IDS_FULL_A6_MM         9229
#define IDS_FULL_POST_CARD_MM  9230
#define IDS_FULL_INDEX_CARD_MM 9231
#define IDS_FULL_PHOTO_L_MM    9232
#define IDS_FULL_PHOTO_2L_MM   9233
#define IDS_FULL_HAGAKI_MM     9234
#define IDS_FULL_W_HAGAKI_MM   9235
#define IDS_FULL_C5_MM         9236
#define IDS_FULL_COM10_MM      9237
#define IDS_FULL_DL_MM         9238
#define IDS_FULL_MONARCH_MM    9239
#define IDS_FULL_JE4_MM        9240
#define IDS_FULL_A3_MM         9241
#define IDS_FULL_B4JIS_MM      9242
#define IDS_FULL_LEDGER_MM     9243
#define IDS_FULL_A4_IN         9244
#define IDS_FULL_LETTER_IN     9245
#define IDS_FULL_LEGAL_IN      9246
#define IDS_FULL_EXECUTIVE_IN  9247
#define IDS_FULL_B5JIS_IN      9248
#define IDS_FULL_A5_IN         9249
#define IDS_FULL_A6_IN         9250
#define IDS_FULL_POST_CARD_IN  9251
#define IDS_FULL_INDEX_CARD_IN 9252
#define IDS_FULL_PHOTO_L_IN    9253
#define IDS_FULL_PHOTO_2L_IN   9254
#define IDS_FULL_HAGAKI_IN     9255
#define IDS_FULL_W_HAGAKI_IN   9256
#define IDS_FULL_C5_IN         9257
#define IDS_FULL_COM10_IN      9258
#define IDS_FULL_DL_IN         9259
#define IDS_FULL_MONARCH_IN    9260
#define IDS_FULL_JE4_IN        9261
#define IDS_FULL_A3_IN         9262
#define IDS_FULL_B4JIS_IN      9263
#define IDS_FULL_LEDGER_IN     9264

/* Units of length and angle */
#define IDS_UNIT_MM     9085
#define IDS_UNIT_INCH   9086
#define IDS_UNIT_DEGREE 8001

/* The single paper source of a printer with one, and manual feed */
#define IDS_BIN_SINGLE 1270
#define IDS_BIN_MANUAL 1274

/* Titles of the tabs (shown between blanks) and of the summary page; at most 49 units */
#define IDS_TAB_BASIC      1262
#define IDS_TAB_ADVANCED   1263
#define IDS_TAB_FAVOURITES 1265
#define IDS_SUMMARY_PAGE   1268

/* Print quality, from the fastest; an id is IDS_QUALITY_DRAFT plus the level */
#define IDS_QUALITY_DRAFT      8083
#define IDS_QUALITY_FAST       8084
#define IDS_QUALITY_NORMAL     8085
#define IDS_QUALITY_FINE       8086
#define IDS_QUALITY_PHOTO      8087
#define IDS_QUALITY_BEST_PHOTO 8088

/* Entries of the list of output colors */
#define IDS_COLOR_ITEM      8090
#define IDS_MONOCHROME_ITEM 8091

/* Pages per sheet and posters */
#define IDS_LAYOUT_NORMAL  8093
#define IDS_LAYOUT_2IN1    8094
#define IDS_LAYOUT_4IN1    8095
#define IDS_LAYOUT_POSTER4 8096
#define IDS_LAYOUT_POSTER9 8097
#define IDS_LAYOUT_9IN1    8098
#define IDS_LAYOUT_16IN1   8099

/* Order of the pages on a sheet: of two pages, and of more */
#define IDS_ORDER_LEFT_RIGHT 8100
#define IDS_ORDER_RIGHT_LEFT 8101
#define IDS_ORDER_TOP_BOTTOM 8102
#define IDS_ORDER_RIGHT_DOWN 8105
#define IDS_ORDER_DOWN_RIGHT 8104
#define IDS_ORDER_LEFT_DOWN  8107
#define IDS_ORDER_DOWN_LEFT  8106

/* Lines between the pages on a sheet */
#define IDS_BORDER_NONE   8007
#define IDS_BORDER_SOLID  8008
#define IDS_BORDER_DASHED 8009

/* Labels of the settings summary and of the lines beside the page picture; no colon, no line break; at most
   63 units */
#define IDS_LABEL_MEDIA           8129
#define IDS_LABEL_QUALITY         8130
#define IDS_LABEL_PAPER           8131
#define IDS_LABEL_LAYOUT          8132
#define IDS_LABEL_SCALING         8133
#define IDS_LABEL_FIT_PAPER       8135
#define IDS_LABEL_ORIENTATION     8136
#define IDS_LABEL_COPIES          8139
#define IDS_LABEL_BORDERLESS      8141
#define IDS_LABEL_SOURCE          8142
#define IDS_LABEL_COLOR           8143
#define IDS_LABEL_COLOR_MODE      8146
#define IDS_LABEL_ENHANCEMENT     8151
#define IDS_LABEL_MIRROR          8152
#define IDS_LABEL_REVERSE         8153
#define IDS_LABEL_QUICK_SETUP     8154
#define IDS_LABEL_PAGE_ORDER      8167
#define IDS_LABEL_BORDER_LINE     8168
#define IDS_LABEL_DUPLEX          8169
#define IDS_LABEL_FREE_SCALE      8170
#define IDS_LABEL_DATE_PRINT      8172
#define IDS_LABEL_TRAY_NOTICE     8174
#define IDS_LABEL_JPEG            8175
#define IDS_LABEL_HALFTONE        8176
#define IDS_LABEL_WATERMARK       8177
#define IDS_LABEL_SLOW_DRYING     8178
#define IDS_LABEL_BIDIRECTIONAL   8179
#define IDS_LABEL_IMPROVE_PATTERN 8180
#define IDS_LABEL_COLLATE         8181
#define IDS_LABEL_REVERSE_ORDER   8182
#define IDS_LABEL_BOOKLET         8185
#define IDS_LABEL_DUPLEX_TYPE     8186
#define IDS_LABEL_BINDING_OFFSET  8193
#define IDS_LABEL_MATCH_MONITOR   6031
#define IDS_LINE_WATERMARK        8010

/* Headings of the settings summary; at most 123 units */
#define IDS_HEADING_BASIC           8157
#define IDS_HEADING_ADVANCED        8158
#define IDS_HEADING_DEVICE_OPTIONS  8171
#define IDS_HEADING_COLOR_SETTINGS  8183
#define IDS_HEADING_DUPLEX_SETTINGS 8184
#define IDS_HEADING_FAVOURITES      8199

/* Values of the settings summary. "places" names what a text is filled with, in this order */
#define IDS_OFF                8155
#define IDS_ON                 8156
#define IDS_VALUE_SCALE        8134 /* places: %d */
#define IDS_VALUE_PORTRAIT     8137
#define IDS_VALUE_LANDSCAPE    8138
#define IDS_VALUE_COPIES       8140 /* places: %d */
#define IDS_VALUE_COLOR        8144
#define IDS_VALUE_MONOCHROME   8145
#define IDS_VALUE_MODE_NONE    8147
#define IDS_VALUE_MODE_NATURAL 8148
#define IDS_VALUE_MODE_VIVID   8149
#define IDS_VALUE_MODE_CUSTOM  8150
#define IDS_VALUE_ADJUSTMENT   8166 /* places: %d */

/* Adjustments of color enhancement */
#define IDS_ADJUST_SATURATION    8159
#define IDS_ADJUST_WHITE_BALANCE 8160
#define IDS_ADJUST_BRIGHTNESS    8161
#define IDS_ADJUST_CONTRAST      8162
#define IDS_ADJUST_RED           8163
#define IDS_ADJUST_GREEN         8164
#define IDS_ADJUST_BLUE          8165

/* Duplex types: in the summary, and as captions of the six radio buttons */
#define IDS_DUPLEX_LONG1     8187
#define IDS_DUPLEX_LONG2     8188
#define IDS_DUPLEX_SHORT1    8189
#define IDS_DUPLEX_SHORT2    8190
#define IDS_DUPLEX_MIXED1    8191
#define IDS_DUPLEX_MIXED2    8192
#define IDS_BIND_LEFT        8281
#define IDS_BIND_RIGHT       8282
#define IDS_BIND_TOP         8283
#define IDS_BIND_BOTTOM      8284
#define IDS_BIND_MIXED_LEFT  8285
#define IDS_BIND_MIXED_RIGHT 8286

/* Values of the device options */
#define IDS_JPEG_AUTO            8194
#define IDS_JPEG_QUALITY         8195
#define IDS_JPEG_SPEED           8196
#define IDS_HALFTONE_DIFFUSION   8197
#define IDS_HALFTONE_DITHER      8198
#define IDS_PRINT_ORDER_STANDARD 8201
#define IDS_PRINT_ORDER_FAST     8202
#define IDS_PRINT_ORDER_FASTEST  8203

/* Device options, in their list */
#define IDS_OPTION_DATE        8033
#define IDS_OPTION_QUICK_SETUP 8035
#define IDS_OPTION_TRAY        8036
#define IDS_OPTION_JPEG        8037
#define IDS_OPTION_COLOR       8038
#define IDS_OPTION_PRINT_ORDER 8039
#define IDS_OPTION_PARAMETERS  8205

/* Formats of the printed date and time, as examples */
#define IDS_DATE_MONTH_FIRST   8042
#define IDS_DATE_WEEKDAY_MONTH 8043
#define IDS_DATE_DAY_FIRST     8044
#define IDS_DATE_WEEKDAY_DAY   8045
#define IDS_DATE_NONE          8046
#define IDS_TIME_24            8047
#define IDS_TIME_24_SECONDS    8048
#define IDS_TIME_12            8049
#define IDS_TIME_12_SECONDS    8050
#define IDS_TIME_NONE          8051

/* Formats of the printed date and time that a language brings itself, instead of those above. The first line
   is the example that is shown; a second one may follow for the printing side. Seven dates and thirty-one
   times at most, without gaps */
#define IDS_OWN_DATE1 3990  /* optional */
#define IDS_OWN_DATE2 3991  /* optional */
#define IDS_OWN_DATE3 3992  /* optional */
#define IDS_OWN_TIME1 13951 /* optional */
#define IDS_OWN_TIME2 13952 /* optional */
#define IDS_OWN_TIME3 13953 /* optional */

/* Days and months as printed with a date: at most 3 units, and 5 bytes in the language's code page */
#define IDS_SUNDAY    8057
#define IDS_MONDAY    8058
#define IDS_TUESDAY   8059
#define IDS_WEDNESDAY 8060
#define IDS_THURSDAY  8061
#define IDS_FRIDAY    8062
#define IDS_SATURDAY  8063
#define IDS_JANUARY   8064
#define IDS_FEBRUARY  8065
#define IDS_MARCH     8066
#define IDS_APRIL     8067
#define IDS_MAY       8068
#define IDS_JUNE      8069
#define IDS_JULY      8070
#define IDS_AUGUST    8071
#define IDS_SEPTEMBER 8072
#define IDS_OCTOBER   8073
#define IDS_NOVEMBER  8074
#define IDS_DECEMBER  8075

/* Parameter page of the device options, for service */
#define IDS_PARAMETER_LINE          8206 /* places: %u %s */
#define IDS_PARAMETER_UNKNOWN       8207
#define IDS_PARAMETER_NO_WEB_LINK   8208
#define IDS_PARAMETER_TAIL_COLLATE  8209
#define IDS_PARAMETER_PUBLIC_SCALE  8210
#define IDS_PARAMETER_TRUETYPE      8211
#define IDS_PARAMETER_NO_FAVOURITES 8212

/* Messages of the Basic tab, most in two parts: the second follows the first at once */
#define IDS_BORDERLESS_CAPTION      8252
#define IDS_BORDERLESS_REFUSED      8251
#define IDS_BORDERLESS_ALLOWED      8253
#define IDS_BEST_PHOTO_CAPTION      8248
#define IDS_BEST_PHOTO_QUESTION     8249
#define IDS_BEST_PHOTO_QUESTION2    8250
#define IDS_LIST_FULL               8254
#define IDS_TRAY2_CAPTION           8255
#define IDS_TRAY2_REFUSED           8256
#define IDS_INKJET_HAGAKI_CAPTION   8259
#define IDS_INKJET_HAGAKI_NOTICE    8260
#define IDS_INKJET_HAGAKI_NOTICE2   8261
#define IDS_BORDERLESS_ON_CAPTION   8262
#define IDS_BORDERLESS_ON_NOTICE    8263
#define IDS_BORDERLESS_ON_NOTICE2   8264
#define IDS_BOOKLET_BORDERLESS      8268
#define IDS_BOOKLET_BORDERLESS2     8269
#define IDS_DUPLEX_CAPTION          8270
#define IDS_DUPLEX_REFUSED          8271
#define IDS_DUPLEX_REFUSED2         8272
#define IDS_TRAY2_BORDERLESS        8273
#define IDS_TRAY2_BORDERLESS2       8274
#define IDS_TRAY2_DUPLEX            8275
#define IDS_TRAY2_DUPLEX2           8276
#define IDS_LAYOUT_SCALING_CAPTION  8108
#define IDS_LAYOUT_SCALING_QUESTION 8109

/* Messages of the Advanced tab and the device options */
#define IDS_SCALING_LAYOUT_CAPTION   8110
#define IDS_SCALING_LAYOUT_QUESTION  8111
#define IDS_SCALING_DUPLEX_QUESTION  8112
#define IDS_SCALING_DUPLEX_QUESTION2 8113
#define IDS_PRINT_ORDER_NOTICE       8278
#define IDS_PRINT_ORDER_NOTICE2      8279
#define IDS_NUMBER_OUT_OF_RANGE      22213
#define IDS_SCALED_TO                22214
#define IDS_OFFSET_OUT_OF_RANGE      8277

/* Favorites: the entry without one, and the names of the twelve presets; at most 49 bytes in the language's
   code page */
#define IDS_FAVOURITE_NONE                  8288
#define IDS_FAVOURITE_STANDARD              8289
#define IDS_FAVOURITE_INKJET                8290
#define IDS_FAVOURITE_DRAFT                 8291
#define IDS_FAVOURITE_2IN1                  8292
#define IDS_FAVOURITE_REDUCED               8293
#define IDS_FAVOURITE_PHOTO_L               8294
#define IDS_FAVOURITE_HAGAKI_ADDRESS        8295
#define IDS_FAVOURITE_HAGAKI_INKJET         8296
#define IDS_FAVOURITE_HAGAKI_GLOSSY_ADDRESS 8297
#define IDS_FAVOURITE_HAGAKI_GLOSSY         8298
#define IDS_FAVOURITE_HAGAKI_PICTURE        8299
#define IDS_FAVOURITE_CUSTOM                8300

/* Favorites: messages; those of a reset at most 49 units */
#define IDS_FAVOURITE_RESET_CAPTION  8302
#define IDS_FAVOURITE_RESET_QUESTION 8303
#define IDS_FAVOURITE_NAME_CAPTION   8305
#define IDS_FAVOURITE_NAME_MISSING   8306
#define IDS_FAVOURITE_SAVED          8313
#define IDS_FAVOURITE_SAVED_CAPTION  8334

/* Favorites: what the twenty icons show */
#define IDS_ICON_DOCUMENT  8314
#define IDS_ICON_GRAPHICS  8315
#define IDS_ICON_2IN1      8316
#define IDS_ICON_4IN1      8317
#define IDS_ICON_PHOTO_L   8318
#define IDS_ICON_CARD      8319
#define IDS_ICON_POSTCARD  8320
#define IDS_ICON_SCALED    8321
#define IDS_ICON_STAR      8322
#define IDS_ICON_HEART     8323
#define IDS_ICON_POSTER    8324
#define IDS_ICON_PORTRAIT  8325
#define IDS_ICON_LANDSCAPE 8326
#define IDS_ICON_CALENDAR  8327
#define IDS_ICON_CHART     8328
#define IDS_ICON_WEB       8329
#define IDS_ICON_MAIL      8330
#define IDS_ICON_ENVELOPE  8331
#define IDS_ICON_ADDRESS   8332
#define IDS_ICON_GLOSSY    8333

/* Watermarks */
#define IDS_WATERMARK_NONE             8000
#define IDS_WATERMARK_OTHER_PAGES      8002
#define IDS_STYLE_REGULAR              8011
#define IDS_STYLE_ITALIC               8012
#define IDS_STYLE_BOLD                 8013
#define IDS_STYLE_BOLD_ITALIC          8014
#define IDS_WATERMARK_NAME_MISSING     8015
#define IDS_WATERMARK_DELETE_QUESTION  8016 /* places: %s */
#define IDS_WATERMARK_DELETE_CAPTION   8018
#define IDS_BITMAP_UNREADABLE          8020
#define IDS_WATERMARK_UNSAVED_QUESTION 8025
#define IDS_WATERMARK_UNSAVED_CAPTION  8026
#define IDS_WATERMARK_COLOR            8027
#define IDS_BLANK_CHARACTER            8121

/* Support dialog: captions of the links, each a first line and two parts joined; the version line */
#define IDS_VERSION       8117
#define IDS_SUPPORT_LINK  8122
#define IDS_SUPPORT_LINK2 8123
#define IDS_SUPPORT_LINK3 8124
#define IDS_UPDATE_LINK   8125
#define IDS_UPDATE_LINK2  8126
#define IDS_UPDATE_LINK3  8127
#define IDS_WHATS_THIS    20013

/* Not shown to users: language of the web sites, language of the spooler as a decimal number of at most 15
 * units */
#define IDS_SITE_LANGUAGE    8118
#define IDS_SPOOLER_LANGUAGE 8119
