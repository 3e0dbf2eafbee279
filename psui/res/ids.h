#pragma once
/* Strings of the library itself, shared by the code and the resource script. */

/* Present when the text set of that number is (set i has its strings at id + 1000 * i). */
#define IDS_STRING_SET 1060
