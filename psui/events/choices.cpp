#include "psui/events/choices.h"

#include <windows.h>

namespace psui {

namespace {

struct LayoutRow
{
    int32_t layout;
    uint16_t poster;
    bool unscaled; ///< scaling and fitting to the paper are taken back
};
constexpr LayoutRow kLayouts[] = {
    {-9, 3, true}, {-4, 2, true}, {1, 1, false}, {2, 1, true}, {4, 1, true}, {9, 1, true}, {16, 1, true},
};

/// Colour mode in the low bits; any bit above them marks that the monitor has set it.
constexpr uint32_t kColourBits = 0xFFF;

bool SetByMonitor(int32_t colour)
{
    return (static_cast<uint32_t>(colour) & ~kColourBits) != 0;
}

void ApplyLayout(DriverDevMode* record, const LayoutRow& row)
{
    record->dmPrivate.wPoster = row.poster;
    record->dmPrivate.wMultiPageMode = 1;
    record->dmPrivate.dwPagesPerSheet = row.layout;
    if (!row.unscaled)
        return;
    record->dmPublic.dmScale = 100;
    record->dmPrivate.wScale = 100;
    record->dmPrivate.bFitToPaper = 0;
}

} // namespace

void TakeLayout(DriverDevMode* record, int32_t layout)
{
    for (const LayoutRow& row : kLayouts)
        if (row.layout == layout)
            ApplyLayout(record, row);
    record->dmPrivate.dwSavedNup = static_cast<uint32_t>(layout);
}

void TakeColour(DriverDevMode* record, int32_t colour)
{
    if (!SetByMonitor(colour))
        return;
    const bool monochrome = (static_cast<uint32_t>(colour) & kColourBits) == DMCOLOR_MONOCHROME;
    record->dmPublic.dmColor = monochrome ? short{DMCOLOR_MONOCHROME} : short{DMCOLOR_COLOR};
}

int32_t ColourWithRecords(int32_t colour, const DriverDevMode* record)
{
    if (!SetByMonitor(colour))
        return colour;
    const uint32_t own =
        record->dmPublic.dmColor == DMCOLOR_COLOR ? uint32_t{DMCOLOR_COLOR} : uint32_t{DMCOLOR_MONOCHROME};
    return static_cast<int32_t>((static_cast<uint32_t>(colour) & ~kColourBits) | own);
}

} // namespace psui
