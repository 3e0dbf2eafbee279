#pragma once
/* Controls of the summary: IDD_SUMMARY and IDD_SUMMARY_TEXT. */

#define IDC_SUMMARY  4344 /* multi-line edit */
#define IDC_SETTINGS 3032 /* opens the main dialog */
