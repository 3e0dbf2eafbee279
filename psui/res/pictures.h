#pragma once
/* Pictures of the library (bitmaps unless stated), drawn by tools/pictures. */

#define IDC_HAND_CURSOR 13002 /* cursor of links and help pictures */
#define IDB_HELP        13003
#define IDB_BANNER_LOGO 13010
#define IDB_BANNER      13013 /* one colour a row */

#define IDB_LINK         13011
#define IDB_LINK_PRESSED 13012
#define IDB_LINK_HOVER   13014

#define IDB_FIT_TO_PAPER    13015
#define IDB_OUTLINED_LETTER 13022
#define IDB_PRINTER         13040
#define IDB_SUPPORT_LINK    13047
#define IDB_UPDATE_LINK     13048

/* Colour modes of the Basic tab, and how both look when there is none */
#define IDB_MODE_NATURAL 13030
#define IDB_MODE_VIVID   13031
#define IDB_MODE_OFF     13032

/* The page as it will be printed: + 20 a quality level, + 10 landscape, + 5 monochrome, + 1 or 2 for posters
   of 2 x 2 and 3 x 3 sheets */
#define IDB_PAGE           13100
#define IDB_PAGE_SIZE_FROM 13120 /* the preview takes the size of this one */

/* Several pages on a sheet; those of 4, 9 and 16 pages plus the page order */
#define IDB_2UP_LEFT_TO_RIGHT 13301
#define IDB_2UP_RIGHT_TO_LEFT 13302
#define IDB_4UP_PORTRAIT      13303
#define IDB_9UP_PORTRAIT      13307
#define IDB_16UP_PORTRAIT     13311
#define IDB_2UP_TOP_TO_BOTTOM 13316
#define IDB_4UP_LANDSCAPE     13318
#define IDB_9UP_LANDSCAPE     13322
#define IDB_16UP_LANDSCAPE    13326

/* Copies; each followed by its reversed form */
#define IDB_COPY_ONE        13251
#define IDB_COPY_COLLATED   13253
#define IDB_COPY_UNCOLLATED 13255

#define IDB_COLOR      13350 /* key olive */
#define IDB_MONOCHROME 13351 /* key olive */

#define IDB_NOTICE_TRAY    13355
#define IDB_NOTICE_LOADING 13356

/* Duplex, plus the type; booklets plus 0 or 1 for the side of the binding */
#define IDB_DUPLEX_PORTRAIT   13371
#define IDB_DUPLEX_LANDSCAPE  13378
#define IDB_BOOKLET_PORTRAIT  13384
#define IDB_BOOKLET_LANDSCAPE 13386

#define IDB_COLOR_SAMPLE      20301
#define IDB_SERVICE           20303
#define IDB_FAVOURITE_SAVE    22321
#define IDB_FAVOURITE_RESTORE 22322

#define IDI_FAVOURITE   22301 /* icons, plus 0 to 19 */
#define FAVOURITE_ICONS 20
