#pragma once
// The context of one property sheet or of one settings call without a sheet. It lives in a heap of its own,
// with everything that it points to but the model, and belongs to the one thread of its sheet.
#include <cstdint>
#include <memory>

#include <windows.h>

#include "psui/entry/ddi.h"
#include "psui/model/model.h"
#include "psui/queries/lists.h"
#include "psui/settings/devmode.h"
#include "psui/settings/printer_data.h"

namespace psui {

constexpr int kDocumentPages = 1;
constexpr int kGlobalBlocks = 21;
constexpr DWORD kNoFavourite = 255;

/// Bits of PrinterUiContext::bWebFlags.
constexpr BYTE kVscOn = 0x01;
constexpr BYTE kWuOn = 0x02;
constexpr BYTE kWebLinkOff = 0x80; ///< one of the two is off

/// A table that a dialog built: a global-memory block and its locked address.
struct GlobalBlock
{
    HGLOBAL hBlock;
    void* pLocked;
};

/// One entry of a list of options: its text, by string id, and what choosing it stores. An id of 0 means that
/// the text is found by the option's name. A table ends with kOptionTableEnd.
struct OptionRow
{
    uint16_t wStringId;
    uint32_t dwValue;
};

constexpr uint16_t kOptionTableEnd = 0xFFFF;

/// Tables of options, each in the global block of the same number.
enum OptionTableIndex : int
{
    kMediaTable,
    kPaperTable,
    kSourceTable,
    kCmTable,
    kIcmTable,
    kColorTable,
    kDocTypeTable,
    kThicknessTable,
    kOptionTables,
};
static_assert(kOptionTables <= kGlobalBlocks);

/// Dots per inch, horizontal and vertical.
using ResolutionPair = LONG[2];

struct PrinterUiContext
{
    PrinterUiContext* pSelf; ///< the context's own address
    DWORD bPermission;       ///< 1 when the caller may change settings
    HANDLE hPrinter;         ///< the caller's; never closed here
    const ModelDescription* pModel;
    HANDLE hHeap; ///< holds the context and its tables

    ComPropSheetFn pfnComPropSheet;
    HANDLE hComPropSheet;
    WCHAR* pHelpFile;    ///< null when there is none
    DWORD bHubProcessor; ///< 1 when jobs go through the maker's own print processor
    WCHAR* pDriverName;
    PrinterWideData PrinterData;
    alignas(DEVMODEW) DriverDevMode dmWork; ///< the record that every page and dialog edits in place

    uint32_t cPapers;
    PaperName* pPaperNames;
    WORD* pPaperIds;
    uint32_t cBins;
    BinName* pBinNames;
    uint32_t cResolutions;
    ResolutionPair* pResolutions;

    WORD awPageEnabled[kDocumentPages]; ///< 1 when the page is shown
    DWORD dwCurrentFavourite;           ///< kNoFavourite for none
    DWORD dwPendingFavourite;           ///< kNoFavourite for none

    // Numbers of a feature's options, in their order.
    uint32_t cMultiplePageValues;
    uint32_t* pMultiplePageValues;
    uint32_t cTonerSaveValues;
    uint32_t* pTonerSaveValues;
    uint32_t cMediaTypeValues;
    uint32_t* pMediaTypeValues;
    uint32_t cPageProtectValues;
    uint32_t* pPageProtectValues;
    uint32_t cHrcValues;
    uint32_t* pHrcValues;
    uint32_t cThicknessValues;
    uint32_t* pThicknessValues;

    HMODULE hLangRes;
    HMODULE hOwnRes;
    HMODULE hPageRes; ///< templates and strings of the pages
    GlobalBlock aGlobalBlocks[kGlobalBlocks];
    const OptionRow* apOptionTables[kOptionTables]; ///< in a global block, or built in; null before the first
    uint32_t dwUserPaperPosition;                   ///< of the user-defined size in the paper list
    HWND hSummaryPage;
    HWND hMainDialog; ///< null while none is open
    HWND hBasicTab;
    HWND hAdvancedTab;
    HWND hFavouritesTab;
    HWND hHelpWindow;        ///< the one opened last
    HWND hContextHelpWindow; ///< the one opened last
    DWORD bLinkHover;        ///< 1 while the pointer is over the web link
    DWORD bContextHelpMode;  ///< 1 from the title bar's help button to the next click
    DWORD bBannerDiagnostics;
    DWORD bUserDefault; ///< the caller's mode has the user-default bit
    WORD wCurrentWatermark;
    HANDLE ahPages[kDocumentPages];
    WORD wVscSetting;
    WORD wWuSetting;
    BYTE bWebFlags;
    BYTE bPageApplied; ///< 1 when the page has handed the settings out since the main dialog asked for it

    PrinterUiContext* pSelfCheck; ///< the context's own address again
};

/// A new context whose working record holds the printer's defaults with the printer's stored record and
/// `input` (any caller's record, or null) merged into it. The status monitor's choices are taken over and
/// the model's papers registered as forms. Null, with nothing left behind, when the memory, the model, the
/// printer's information or its printer-wide data cannot be had.
PrinterUiContext* CreatePrinterUiContext(HANDLE printer, const DEVMODEW* input);

/// Fills the paper, bin, resolution and feature-value tables. False, with every count 0, when the printer
/// has no forms or there is no memory. A feature that the model lacks has count 0 and no table.
bool LoadContextTables(PrinterUiContext* context);

/// Frees a global block and forgets it; one that holds nothing is passed over.
void FreeGlobalBlock(GlobalBlock& block);

/// Frees all global blocks of the context, and with them the option tables.
void FreeGlobalBlocks(PrinterUiContext* context);

/// Gives the model back and destroys the heap. The sheet frees the global blocks first. Null is ignored.
void ReleasePrinterUiContext(PrinterUiContext* context);

/// Whether `context` is the address of a live context. Memory at an aligned address other than null must be
/// readable for the size of a context.
bool IsValidContext(const PrinterUiContext* context);

struct ContextReleaser
{
    void operator()(PrinterUiContext* context) const { ReleasePrinterUiContext(context); }
};

/// Owner of a context.
using ContextPtr = std::unique_ptr<PrinterUiContext, ContextReleaser>;

} // namespace psui
