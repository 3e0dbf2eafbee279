#pragma once
// The lists of the tabs, filled from the model and the tables built in. Each function empties its list, fills
// it and selects an entry; a dialog that lacks the control gets the table alone. Texts come from the module
// of the pages. Lists without memory for their table show the built-in one.
#include <windows.h>

#include "psui/entry/context.h"

namespace psui {

/// Lists of the Basic tab. The entry of the current value is selected, the first one when there is none. The
/// item data of every entry is the value that choosing it stores.
void BuildMediaList(HWND tab, PrinterUiContext* context, DWORD media);
void BuildSourceList(HWND tab, PrinterUiContext* context, short source);

/// Takes the list of sources and its label away, as BuildSourceList does for a printer with a single source.
void HideSource(HWND tab);

/// The paper list and the paper table, with the first entry selected. The place of the user-defined size is
/// kept in the context, kNoUserPaper when the model has none.
void BuildPaperList(HWND tab, PrinterUiContext* context);
constexpr uint32_t kNoUserPaper = 0xFFFFFFFF;

/// The thickness list of the dialog of user-defined sizes; elsewhere its table alone.
void BuildThicknessList(HWND dialog, PrinterUiContext* context, uint16_t thickness);

/// Tables that radio buttons take their values from.
void BuildColorTables(HWND tab, PrinterUiContext* context); ///< CM and ICM
void BuildDocTypeTable(HWND tab, PrinterUiContext* context);
void BuildColorTable(HWND tab, PrinterUiContext* context);

/// The papers that a document can be fitted to, in list `control`: those of the paper table with borders. The
/// table is built first when there is none yet. The first entry is selected.
void BuildFitPaperList(HWND dialog, PrinterUiContext* context, int control);

/// The qualities of the record's media. The first takes the level as it is, the second the media's default;
/// both set the print-quality codes from the entry of that level, and change and select nothing when there
/// is none. The third offers the one quality of borderless A3 and takes it. The item data is the place in
/// the list.
void BuildQualityList(HWND tab, PrinterUiContext* context);
void BuildDefaultQualityList(HWND tab, PrinterUiContext* context);
void BuildSingleQualityList(HWND tab, PrinterUiContext* context);

/// Pages per sheet and posters; filled once.
void BuildMultiplePageList(HWND tab, PrinterUiContext* context);

/// The orders that the pages per sheet and the orientation leave.
void BuildPageOrderList(HWND tab, PrinterUiContext* context);

/// Lines between pages. A number that no line has becomes the first line's.
void BuildBorderLineList(HWND tab, PrinterUiContext* context);

/// Fits the entries of the border-line list, which are drawn, to the height of its label.
void SetBorderLineItemHeight(HWND tab);

} // namespace psui
