#pragma once
/*
 * Texts of the dialogs, English. A macro's name starts with the dialog it stands in. "&" marks the letter
 * that reaches a control with Alt: one letter may serve one control of a dialog, and a tab shares its letters
 * with the dialog around it. The build's check tells which texts do not fit.
 */

/* Buttons of many dialogs */
#define TXT_OK      "OK"
#define TXT_CANCEL  "Cancel"
#define TXT_HELP    "&Help"
#define TXT_DEFAULT "&Default"

/* Summary */
#define TXT_SUMMARY         "Print settings"
#define TXT_SETTINGS_BUTTON "&Change settings..."
