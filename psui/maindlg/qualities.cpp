#include "psui/maindlg/qualities.h"

#include <algorithm>
#include <iterator>

#include "lang/ids/strings.h"
#include "psui/maindlg/rules.h"
#include "psui/settings/record_values.h"

namespace psui {

namespace {

constexpr uint8_t kBothColors = DMCOLOR_MONOCHROME | DMCOLOR_COLOR;
constexpr int kBestLevel = kQualityPhotoFine;

constexpr QualityRow Row(DWORD media, uint16_t listPosition, uint8_t level, int16_t code)
{
    return {media, kBothColors, level, code, listPosition, static_cast<uint16_t>(IDS_QUALITY_DRAFT + level)};
}

constexpr QualityRow kQualities[] = {
    Row(kMediaPlain, 0, 3, DMRES_HIGH),         Row(kMediaPlain, 1, 2, DMRES_MEDIUM),
    Row(kMediaPlain, 2, 1, DMRES_LOW),          Row(kMediaPlain, 3, 0, DMRES_DRAFT),
    Row(kMediaInkjetHagaki, 0, 3, DMRES_HIGH),  Row(kMediaInkjetHagaki, 1, 2, DMRES_MEDIUM),
    Row(kMediaInkjetHagaki, 2, 1, DMRES_LOW),   Row(kMediaInkjetHagaki, 3, 0, DMRES_DRAFT),
    Row(kMediaHagakiAddress, 0, 3, DMRES_HIGH), Row(kMediaHagakiAddress, 1, 2, DMRES_MEDIUM),
    Row(kMediaHagakiAddress, 2, 1, DMRES_LOW),  Row(kMediaHagakiAddress, 3, 0, DMRES_DRAFT),
    Row(kMediaInkjet, 0, 4, DMRES_HIGH),        Row(kMediaInkjet, 1, 3, DMRES_MEDIUM),
    Row(kMediaGlossy, 0, 5, DMRES_HIGH),        Row(kMediaGlossy, 1, 4, DMRES_MEDIUM),
    Row(kMediaGlossy, 2, 3, DMRES_LOW),         Row(kMediaGlossyC, 0, 5, DMRES_HIGH),
    Row(kMediaGlossyC, 1, 4, DMRES_MEDIUM),     Row(kMediaGlossyC, 2, 3, DMRES_LOW),
    Row(kMediaHagakiPicture, 0, 5, DMRES_HIGH), Row(kMediaHagakiPicture, 1, 4, DMRES_MEDIUM),
    Row(kMediaHagakiPicture, 2, 3, DMRES_LOW),  Row(kMediaGlossyCB, 0, 5, DMRES_HIGH),
    Row(kMediaGlossyCB, 1, 4, DMRES_MEDIUM),    Row(kMediaGlossyCB, 2, 3, DMRES_LOW),
    Row(kMediaGlossyR, 0, 5, DMRES_HIGH),       Row(kMediaGlossyR, 1, 4, DMRES_MEDIUM),
    Row(kMediaGlossyR, 2, 3, DMRES_LOW),        Row(kMediaGlossyRB, 0, 5, DMRES_HIGH),
    Row(kMediaGlossyRB, 1, 4, DMRES_MEDIUM),    Row(kMediaGlossyRB, 2, 3, DMRES_LOW),
    Row(kMediaTransparency, 0, 3, DMRES_HIGH),  Row(kMediaTransparency, 1, 2, DMRES_MEDIUM),
};

struct DefaultLevel
{
    DWORD media;
    uint8_t colors;
    uint8_t level;
};
constexpr DefaultLevel kDefaultLevels[] = {
    {kMediaPlain, kBothColors, 2},         {kMediaInkjetHagaki, kBothColors, 2},
    {kMediaHagakiAddress, kBothColors, 3}, {kMediaInkjet, kBothColors, 4},
    {kMediaGlossy, kBothColors, 4},        {kMediaGlossyC, kBothColors, 4},
    {kMediaHagakiPicture, kBothColors, 4}, {kMediaGlossyCB, kBothColors, 4},
    {kMediaGlossyR, kBothColors, 4},       {kMediaGlossyRB, kBothColors, 4},
    {kMediaTransparency, kBothColors, 2},
};

constexpr short kSingleQualityPapers[] = {283, 290}; // A3 without borders

template <typename Predicate>
const QualityRow* FindQuality(const DriverDevMode& record, Predicate predicate)
{
    const auto* found = std::find_if(std::begin(kQualities), std::end(kQualities), [&](const auto& row) {
        return OffersQuality(record, row) && predicate(row);
    });
    return found == std::end(kQualities) ? nullptr : found;
}

} // namespace

std::span<const QualityRow> Qualities()
{
    return kQualities;
}

bool OffersQuality(const DriverDevMode& record, const QualityRow& row)
{
    return row.media == record.dmPublic.dmMediaType && (row.colors & record.dmPublic.dmColor) != 0;
}

const QualityRow* QualityAtPosition(const DriverDevMode& record, int listPosition)
{
    return FindQuality(record, [=](const QualityRow& row) { return row.listPosition == listPosition; });
}

const QualityRow* QualityOfLevel(const DriverDevMode& record, int level)
{
    return FindQuality(record, [=](const QualityRow& row) { return row.level == level; });
}

bool TakeQualityCode(DriverDevMode& record)
{
    const QualityRow* row = QualityOfLevel(record, record.dmPrivate.bQualityLevel);
    if (!row)
        return false;
    record.dmPrivate.shQuality = row->code;
    record.dmPublic.dmPrintQuality = row->code;
    return true;
}

void TakeDefaultQualityLevel(DriverDevMode& record)
{
    for (const DefaultLevel& row : kDefaultLevels)
        if (row.media == record.dmPublic.dmMediaType && (row.colors & record.dmPublic.dmColor) != 0)
            record.dmPrivate.bQualityLevel = row.level;
}

bool HasSingleQuality(const DriverDevMode& record)
{
    const int paper = record.dmPublic.dmPaperSize;
    return IsTwoSidedMedia(record.dmPublic.dmMediaType) &&
           std::find(std::begin(kSingleQualityPapers), std::end(kSingleQualityPapers), paper) !=
               std::end(kSingleQualityPapers);
}

const QualityRow& SingleQuality()
{
    return kQualities[0];
}

void TakeSingleQuality(DriverDevMode& record)
{
    record.dmPrivate.bQualityLevel = SingleQuality().level;
    record.dmPrivate.shQuality = SingleQuality().code;
    record.dmPublic.dmPrintQuality = SingleQuality().code;
}

UINT QualityNameText(int level)
{
    return IDS_QUALITY_DRAFT + (level >= 1 && level <= kBestLevel ? level : 0);
}

} // namespace psui
