#pragma once
/* Strings of the library itself, shared by the code and the resource script. */

/* Why a job cannot be printed. */
#define IDS_JOB_RESOLUTION   1043
#define IDS_JOB_RECORD       1047
#define IDS_JOB_MANUAL_PAPER 1048
#define IDS_JOB_PAPER        1049
#define IDS_JOB_CONFLICT     1054
#define IDS_JOB_NO_MODEL     1055
#define IDS_JOB_NO_MEMORY    1056
#define IDS_JOB_TRAY         1057 /* a format: paper, then tray; at most 63 characters */
#define IDS_JOB_USER_PAPER   1058

/* Present when the text set of that number is (set i has its strings at id + 1000 * i). */
#define IDS_STRING_SET 1060
