#pragma once
// What holds of every merge, whatever the source. Shared by the exhaustive tests and the fuzzers; every check
// returns what is wrong, or an empty text.
#include <cstring>
#include <sstream>
#include <string>
#include <vector>

#include "psui/settings/copy.h"
#include "psui/settings/merge.h"
#include "tests/settings/record_fields.h"

namespace test {

/// Fields with the least and the greatest value that they have after every merge.
inline constexpr char kMergedRanges[] =
    "dmSpecVersion 1025 1025  dmDriverVersion 1301 1301  dmSize 220 220  dmDriverExtra 1632 1632 "
    "dmOrientation 1 2  dmScale 1 1000  dmCopies 1 999  dmPrintQuality -4 -1  dmColor 1 2  dmDuplex 1 3 "
    "dmCollate 0 1  dmNup 1 2  wMediaClass 0 13  bQualityLevel 0 5  bBorderless 0 1  bTailCollate 0 1 "
    "dwCollate 0 1  bTailValid 1 1";

inline std::string FieldOutOfRange(const psui::DriverDevMode& record)
{
    struct Range
    {
        const psui::DevModeField* field;
        int64_t first, last;
    };
    static const std::vector<Range> ranges = [] {
        std::vector<Range> read;
        std::istringstream words(kMergedRanges);
        int64_t first, last;
        for (std::string name; words >> name >> first >> last;)
            read.push_back({&FieldNamed(name), first, last});
        return read;
    }();
    for (const Range& range : ranges)
        if (const int64_t value = Get(record, *range.field); value < range.first || value > range.last)
            return std::string(range.field->name) + " is " + std::to_string(value);
    return {};
}

/// The fields that may still change when the result of merging `source` into `target` is merged again: three
/// rules read what a later step, or the refresh of the tail, writes.
inline std::string FieldsThatMaySettleLater(const psui::DriverDevMode& target, const DEVMODEW* source,
                                            const psui::DriverDevMode& merged)
{
    constexpr uint32_t kDatePrintOn = 0x80;
    alignas(8) psui::DriverDevMode spread = target;
    if (!psui::IsOwnRecord(source))
        spread.dmPublic.dmDriverExtra = 0;
    psui::CopyDevMode(source, &spread.dmPublic);
    const auto thick = [](const psui::PrivateDevMode& part) {
        return part.wThickness == 2 || part.wThickness == 4;
    };

    std::string names = " ";
    // The size bits follow the source's paper even when that is not taken over.
    if ((spread.dmPublic.dmPaperSize == DMPAPER_USER) != (merged.dmPublic.dmPaperSize == DMPAPER_USER))
        names += "dmFields dmPaperLength dmPaperWidth dmOrientation wCustomLength wCustomWidth ";
    // The client process follows the date print of the refresh before.
    if (((spread.dmPrivate.dwTailDatePrint ^ merged.dmPrivate.dwDatePrint) & kDatePrintOn) != 0)
        names += "wszClientProcess ";
    // The direction of user paper follows the thickness from before the thickness is settled.
    if (merged.dmPublic.dmPaperSize == DMPAPER_USER && thick(spread.dmPrivate) != thick(merged.dmPrivate))
        names += "dwDirModePlain dwDirModeOther ";
    return names;
}

/// Merges `source` into a copy of `target` and checks the result, its stability included.
inline std::string CheckMerge(const psui::DriverDevMode& target, const DEVMODEW* source,
                              const psui::ModelDescription* model)
{
    alignas(8) psui::DriverDevMode once = target;
    if (!psui::MergeDevMode(&once, source, model))
        return std::memcmp(&once, &target, sizeof(once)) == 0 ? "" : "a refused record changed the target";
    if (std::string wrong = FieldOutOfRange(once); !wrong.empty())
        return wrong;

    alignas(8) psui::DriverDevMode twice = once;
    psui::MergeDevMode(&twice, &once.dmPublic, model);
    if (std::memcmp(&once, &twice, sizeof(once)) == 0)
        return {};
    const std::string allowed = FieldsThatMaySettleLater(target, source, once);
    for (const psui::DevModeField& field : psui::kDevModeFields)
        if (FieldDiffers(once, twice, field) &&
            allowed.find(" " + std::string(field.name) + " ") == allowed.npos)
            return std::string(field.name) + " changed when merged again";
    alignas(8) psui::DriverDevMode thrice = twice;
    psui::MergeDevMode(&thrice, &twice.dmPublic, model);
    return std::memcmp(&thrice, &twice, sizeof(twice)) == 0 ? "" : "does not settle with the second merge";
}

} // namespace test
