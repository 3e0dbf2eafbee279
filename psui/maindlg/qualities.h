#pragma once
// Print qualities: which of them a media has, and what each stands for.
#include <cstdint>
#include <span>

#include <windows.h>

#include "psui/settings/devmode.h"

namespace psui {

struct QualityRow
{
    DWORD media;           ///< dmMediaType
    uint8_t colors;        ///< bits of dmColor that have the quality
    uint8_t level;         ///< bQualityLevel
    int16_t code;          ///< shQuality and dmPrintQuality
    uint16_t listPosition; ///< in the media's quality list
    uint16_t text;         ///< string id
};

/// Every quality, a media's together and in the order of its list.
std::span<const QualityRow> Qualities();

/// Whether the record's media and colour have that quality.
bool OffersQuality(const DriverDevMode& record, const QualityRow& row);

/// The quality at a position of the record's quality list, or the one of a level; null when it has none.
const QualityRow* QualityAtPosition(const DriverDevMode& record, int listPosition);
const QualityRow* QualityOfLevel(const DriverDevMode& record, int level);

/// Sets the print-quality code of the record's level; false, with nothing changed, when its media and colour
/// do not have that level.
bool TakeQualityCode(DriverDevMode& record);

/// Sets the level that the record's media starts with; keeps it when the media has none.
void TakeDefaultQualityLevel(DriverDevMode& record);

/// Whether plain paper of a size that is printed to its edges leaves one quality only.
bool HasSingleQuality(const DriverDevMode& record);

/// That quality.
const QualityRow& SingleQuality();

/// Sets its level and code.
void TakeSingleQuality(DriverDevMode& record);

/// String id of a level's name; the draft's for a level that has none of its own.
UINT QualityNameText(int level);

} // namespace psui
