#pragma once
/*
 * Texts of the dialogs, Japanese. A macro's name starts with the dialog it stands in. "(&X)" marks the letter
 * that reaches a control with Alt: one letter may serve one control of a dialog, and a tab shares its letters
 * with the dialog around it. The build's check tells which texts do not fit.
 */

/* Buttons of many dialogs */
#define TXT_OK      "OK"
#define TXT_CANCEL  "キャンセル"
#define TXT_HELP    "ヘルプ(&H)"
#define TXT_DEFAULT "標準に戻す(&D)"

/* Summary */
#define TXT_SUMMARY         "印刷設定"
#define TXT_SETTINGS_BUTTON "設定の変更(&C)..."
