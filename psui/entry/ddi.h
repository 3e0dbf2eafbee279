#pragma once
// Records of the printer-interface contract and of the common property-sheet UI, by their published layout:
// the public headers at hand have only some of them. Fields bear their published names.
#include <cstddef>

#include <windows.h>

namespace psui {

struct PropSheetUiInfo;

/// Service function of the common property-sheet UI.
using ComPropSheetFn = LONG_PTR(CALLBACK*)(HANDLE hComPropSheet, UINT function, LPARAM param1, LPARAM param2);

/// A sheet function, which the common UI calls for every reason.
using PropSheetUiFn = LONG(WINAPI*)(PropSheetUiInfo* info, LPARAM param);

/// PropSheetUiInfo::Reason.
enum SheetReason : WORD
{
    kSheetInitialise = 0,
    kSheetGetInfoHeader = 1,
    kSheetDestroy = 2,
    kSheetSetResult = 3,
};

/// What the common UI hands a sheet function.
struct PropSheetUiInfo
{
    WORD cbSize;
    WORD Version;
    WORD Flags;
    WORD Reason; ///< SheetReason
    HANDLE hComPropSheet;
    ComPropSheetFn pfnComPropSheet;
    LPARAM lParamInit; ///< for a document sheet its DocumentPropertyHeader
    ULONG_PTR UserData;
    ULONG_PTR Result;
};
static_assert(sizeof(PropSheetUiInfo) == 48 && offsetof(PropSheetUiInfo, lParamInit) == 24);

/// Answer to kSheetGetInfoHeader.
struct PropSheetUiInfoHeader
{
    WORD cbSize;
    WORD Flags;
    LPWSTR pTitle;
    HWND hWndParent;
    HINSTANCE hInst;
    ULONG_PTR IconID; ///< or an icon's handle, as Flags say
};
static_assert(sizeof(PropSheetUiInfoHeader) == 40);

/// Parameter of kSheetSetResult.
struct SetResultInfo
{
    WORD cbSize;
    WORD wReserved;
    HANDLE hSetResult;
    LRESULT Result;
};
static_assert(sizeof(SetResultInfo) == 24);

/// Asks the common UI to insert a page or a group of pages.
struct InsertPageInfo
{
    WORD cbSize;
    BYTE Type;
    BYTE Mode;
    ULONG_PTR dwData1;
    ULONG_PTR dwData2;
    ULONG_PTR dwData3;
};
static_assert(sizeof(InsertPageInfo) == 32);

/// InsertPageInfo: what is inserted, and where.
constexpr BYTE kInsertPropSheetPage = 3;
constexpr BYTE kInsertByIndex = 4;

/// Functions of the service function.
constexpr UINT kServiceSetResult = 9;
constexpr UINT kServiceInsertPage = 17;

/// Result of a sheet that the user confirmed, for kServiceSetResult and in SetResultInfo.
constexpr LRESULT kSheetConfirmed = 1;

/// PropSheetUiInfoHeader: no Apply button, and a title that names a printer.
constexpr WORD kHeaderNoApply = 2;
constexpr WORD kHeaderPrinterTitle = 4;

/// The common UI's own icon of a printer.
constexpr ULONG_PTR kPrinterIcon = 64062;

/// A property page. Its dialog is created with the address of this record, or of a copy, as parameter.
struct PropSheetPage
{
    DWORD dwSize;
    DWORD dwFlags;
    HINSTANCE hInstance;
    LPCWSTR pszTemplate;
    HANDLE hIcon;
    LPCWSTR pszTitle;
    DLGPROC pfnDlgProc;
    LPARAM lParam;
    void* pfnCallback;
    UINT* pcRefParent;
    LPCWSTR pszHeaderTitle;
    LPCWSTR pszHeaderSubTitle;
    HANDLE hActCtx;
};
static_assert(sizeof(PropSheetPage) == 96 && offsetof(PropSheetPage, lParam) == 48);

/// PropSheetPage::dwFlags.
constexpr DWORD kPageUseTitle = 0x08;
constexpr DWORD kPageHasHelp = 0x20;

/// Notifications of a sheet to its pages.
constexpr UINT kPageSetActive = static_cast<UINT>(-200);
constexpr UINT kPageApply = static_cast<UINT>(-202);

/// Asks a sheet's window for its tab control.
constexpr UINT kSheetGetTabControl = WM_USER + 116;

/// What a document sheet is asked for. Callers state in cbSize how much of it they have.
struct DocumentPropertyHeader
{
    WORD cbSize;
    WORD Reserved;
    HANDLE hPrinter;
    LPWSTR pszPrinterName;
    PDEVMODEW pdmIn;
    PDEVMODEW pdmOut;
    DWORD cbOut; ///< receives the size of a settings record
    DWORD fMode; ///< DM_ bits, and those below
};
static_assert(sizeof(DocumentPropertyHeader) == 48 && offsetof(DocumentPropertyHeader, fMode) == 44);

/// Bits of DocumentPropertyHeader::fMode that the platform's public headers do not name.
constexpr DWORD kModeAdvanced = 0x10;
constexpr DWORD kModeNoPermission = 0x20;
constexpr DWORD kModeUserDefault = 0x40;

/// What a printer-properties sheet is asked for.
struct DevicePropertyHeader
{
    WORD cbSize;
    WORD Flags;
    HANDLE hPrinter;
    LPWSTR pszPrinterName;
};
static_assert(sizeof(DevicePropertyHeader) == 24);

} // namespace psui
