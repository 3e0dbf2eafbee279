#pragma once
/* String ids of the language module, shared by the code and the resource scripts. */

/* Language: code ("ENG", "JPN" ...), region of the settings record, face of the date font */
#define IDS_REGION        2113
#define IDS_LANGUAGE_CODE 8120
#define IDS_DATE_FONT     65280
