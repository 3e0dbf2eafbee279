#pragma once
/*
 * String ids of the language module, shared by the code and the resource scripts.
 *
 * Every language has every id, except those on lines that end in "optional": the library knows a language
 * that lacks one of them and acts on its absence. tests/lang compares each language with this list, so an id
 * stands on a line of its own, as a plain number.
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
