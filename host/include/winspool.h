#pragma once
// Print spooler client interface.
#include <windows.h>

#define SERVER_ACCESS_ADMINISTER  0x00000001u
#define SERVER_ACCESS_ENUMERATE   0x00000002u
#define PRINTER_ACCESS_ADMINISTER 0x00000004u
#define PRINTER_ACCESS_USE        0x00000008u
#define PRINTER_ALL_ACCESS        (STANDARD_RIGHTS_REQUIRED | PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE)

#define PRINTER_ENUM_LOCAL 0x00000002
#define PRINTER_ENUM_NAME  0x00000008

#define PRINTER_ENUM_ICON8 0x00800000

#define PRINTER_ATTRIBUTE_LOCAL 0x00000040

#define FORM_USER    0x00000000
#define FORM_BUILTIN 0x00000001
#define FORM_PRINTER 0x00000002

#define APD_COPY_ALL_FILES          0x00000004
#define APD_COPY_NEW_FILES          0x00000008
#define APD_COPY_FROM_DIRECTORY     0x00000010
#define DPD_DELETE_UNUSED_FILES     0x00000001
#define DPD_DELETE_SPECIFIC_VERSION 0x00000002
#define DPD_DELETE_ALL_FILES        0x00000004

typedef struct _PRINTER_DEFAULTSW
{
    LPWSTR pDatatype;
    PDEVMODEW pDevMode;
    ACCESS_MASK DesiredAccess;
} PRINTER_DEFAULTSW, *PPRINTER_DEFAULTSW, *LPPRINTER_DEFAULTSW;

typedef struct _PRINTER_INFO_1W
{
    DWORD Flags;
    LPWSTR pDescription; // name, driver and location, separated by commas
    LPWSTR pName;
    LPWSTR pComment;
} PRINTER_INFO_1W, *PPRINTER_INFO_1W, *LPPRINTER_INFO_1W;

typedef struct _PRINTER_INFO_2W
{
    LPWSTR pServerName;
    LPWSTR pPrinterName;
    LPWSTR pShareName;
    LPWSTR pPortName;
    LPWSTR pDriverName;
    LPWSTR pComment;
    LPWSTR pLocation;
    PDEVMODEW pDevMode;
    LPWSTR pSepFile;
    LPWSTR pPrintProcessor;
    LPWSTR pDatatype;
    LPWSTR pParameters;
    PSECURITY_DESCRIPTOR pSecurityDescriptor;
    DWORD Attributes;
    DWORD Priority;
    DWORD DefaultPriority;
    DWORD StartTime;
    DWORD UntilTime;
    DWORD Status;
    DWORD cJobs;
    DWORD AveragePPM;
} PRINTER_INFO_2W, *PPRINTER_INFO_2W, *LPPRINTER_INFO_2W;

typedef struct _PRINTER_INFO_4W
{
    LPWSTR pPrinterName;
    LPWSTR pServerName;
    DWORD Attributes;
} PRINTER_INFO_4W, *PPRINTER_INFO_4W, *LPPRINTER_INFO_4W;

typedef struct _DRIVER_INFO_2W
{
    DWORD cVersion;
    LPWSTR pName;
    LPWSTR pEnvironment;
    LPWSTR pDriverPath;
    LPWSTR pDataFile;
    LPWSTR pConfigFile;
} DRIVER_INFO_2W, *PDRIVER_INFO_2W, *LPDRIVER_INFO_2W;

typedef struct _DRIVER_INFO_3W
{
    DWORD cVersion;
    LPWSTR pName;
    LPWSTR pEnvironment;
    LPWSTR pDriverPath;
    LPWSTR pDataFile;
    LPWSTR pConfigFile;
    LPWSTR pHelpFile;
    LPWSTR pDependentFiles;
    LPWSTR pMonitorName;
    LPWSTR pDefaultDataType;
} DRIVER_INFO_3W, *PDRIVER_INFO_3W, *LPDRIVER_INFO_3W;

// Lengths in thousandths of a millimetre.
typedef struct _FORM_INFO_1W
{
    DWORD Flags;
    LPWSTR pName;
    SIZEL Size;
    RECTL ImageableArea;
} FORM_INFO_1W, *PFORM_INFO_1W, *LPFORM_INFO_1W;

extern "C" {
HOSTAPI BOOL WINAPI OpenPrinterW(LPWSTR name, LPHANDLE printer, LPPRINTER_DEFAULTSW defaults);
HOSTAPI BOOL WINAPI ClosePrinter(HANDLE printer);
HOSTAPI BOOL WINAPI GetPrinterW(HANDLE printer, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed);
HOSTAPI BOOL WINAPI SetPrinterW(HANDLE printer, DWORD level, LPBYTE info, DWORD command);
HOSTAPI BOOL WINAPI EnumPrintersW(DWORD flags, LPWSTR name, DWORD level, LPBYTE buffer, DWORD size,
                                  LPDWORD needed, LPDWORD count);
HOSTAPI HANDLE WINAPI AddPrinterW(LPWSTR server, DWORD level, LPBYTE info);
HOSTAPI BOOL WINAPI DeletePrinter(HANDLE printer);
HOSTAPI BOOL WINAPI GetPrinterDriverW(HANDLE printer, LPWSTR environment, DWORD level, LPBYTE buffer,
                                      DWORD size, LPDWORD needed);
HOSTAPI BOOL WINAPI EnumPrinterDriversW(LPWSTR server, LPWSTR environment, DWORD level, LPBYTE buffer,
                                        DWORD size, LPDWORD needed, LPDWORD count);
HOSTAPI BOOL WINAPI AddPrinterDriverExW(LPWSTR server, DWORD level, LPBYTE info, DWORD flags);
HOSTAPI BOOL WINAPI DeletePrinterDriverExW(LPWSTR server, LPWSTR environment, LPWSTR driver, DWORD flags,
                                           DWORD version);
HOSTAPI BOOL WINAPI GetPrinterDriverDirectoryW(LPWSTR server, LPWSTR environment, DWORD level, LPBYTE buffer,
                                               DWORD size, LPDWORD needed);
HOSTAPI BOOL WINAPI EnumFormsW(HANDLE printer, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed,
                               LPDWORD count);
HOSTAPI BOOL WINAPI AddFormW(HANDLE printer, DWORD level, LPBYTE info);
HOSTAPI BOOL WINAPI GetFormW(HANDLE printer, LPWSTR name, DWORD level, LPBYTE buffer, DWORD size,
                             LPDWORD needed);
HOSTAPI BOOL WINAPI DeleteFormW(HANDLE printer, LPWSTR name);
HOSTAPI DWORD WINAPI GetPrinterDataW(HANDLE printer, LPWSTR value, LPDWORD type, LPBYTE data, DWORD size,
                                     LPDWORD needed);
HOSTAPI DWORD WINAPI SetPrinterDataW(HANDLE printer, LPWSTR value, DWORD type, LPBYTE data, DWORD size);
HOSTAPI DWORD WINAPI DeletePrinterDataW(HANDLE printer, LPWSTR value);
HOSTAPI DWORD WINAPI EnumPrinterDataW(HANDLE printer, DWORD index, LPWSTR value, DWORD valueSize,
                                      LPDWORD valueNeeded, LPDWORD type, LPBYTE data, DWORD dataSize,
                                      LPDWORD dataNeeded);
}
