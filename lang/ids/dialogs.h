#pragma once
/* Dialog templates and the menu of the language module, and the controls that many of them share. */

/* Templates */
#define IDD_SUMMARY         100 /* page of the common property sheet */
#define IDD_VERSION         110 /* page of the printer properties */
#define IDD_MAIN            200
#define IDD_SUPPORT         201
#define IDD_SUMMARY_TEXT    202
#define IDD_BASIC           300 /* tab */
#define IDD_USER_PAPER      301
#define IDD_NOTICE          303
#define IDD_DUPLEX          304
#define IDD_ADVANCED        400 /* tab */
#define IDD_COLOR_SETTINGS  401
#define IDD_WATERMARK       402
#define IDD_WATERMARK_PAGES 403
#define IDD_DEVICE_OPTIONS  404
#define IDD_CUSTOM_COLOR    405
#define IDD_COLOR_MATCHING  406
#define IDD_FAVOURITES      500 /* tab */
#define IDD_SAVE_FAVOURITE  501

/* The only item of the menu "MYPOPUP" */
#define IDM_WHATS_THIS 20014

/* Buttons of many dialogs; OK, Cancel and Help have the platform's ids */
#define IDC_DEFAULT 16
