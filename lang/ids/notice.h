#pragma once
/* Controls of IDD_NOTICE. */

#define IDC_NOTICE_PICTURE1 3134
#define IDC_NOTICE_PICTURE2 3135
#define IDC_NOTICE_OFF      3136 /* show no more */
