#pragma once
// The lists of what a printer offers, in the platform's capability formats.
//
// Every function returns the number of entries; each output may be null and must else hold that many. Name
// entries are zero-padded and always terminated. Any thread.
#include <cstdint>
#include <string_view>

#include <windows.h>
#include <winspool.h>

#include "psui/model/model.h"
#include "psui/settings/devmode.h"

namespace psui {

constexpr int kPaperNameUnits = 64;
constexpr int kBinNameUnits = 24;
constexpr int kMediaNameUnits = 64;

using PaperName = WCHAR[kPaperNameUnits];
using BinName = WCHAR[kBinNameUnits];
using MediaName = WCHAR[kMediaNameUnits];

/// Language string of a Paper option's name; 0 for a keyword without one.
UINT PaperNameStringId(std::string_view keyword);

/// Papers, in the order of the Paper options. `sizes` are widths and lengths in tenths of a millimetre; the
/// user-defined size is the record's. The forms have been enumerated to show that the printer has some;
/// nothing is read from them.
uint32_t ListPapers(const ModelDescription* model, const FORM_INFO_1W* forms, DWORD formCount,
                    PaperName* names, WORD* ids, POINT* sizes, const DriverDevMode* record);

uint32_t ListBins(BinName* names, const ModelDescription* model);
uint32_t ListBinIds(WORD* ids, const ModelDescription* model);

/// Horizontal and vertical dots per inch, two numbers an entry. Never empty.
uint32_t ListResolutions(LONG (*pairs)[2], const ModelDescription* model);

/// Media types: all of the model's in Japanese, else the first six at most.
uint32_t ListMediaTypeNames(MediaName* names, const ModelDescription* model);
uint32_t ListMediaTypes(DWORD* ids, const ModelDescription* model);

} // namespace psui
