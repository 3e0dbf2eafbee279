#include "fuzz/walk/start_record.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "tests/settings/record_fields.h"

namespace walk {
namespace {

struct Choice
{
    const char* field;
    std::vector<int64_t> values;
};

const Choice kChoices[] = {
    {"dmFields", {0x02011B03, 0x02010B03, 0x02011F03, 0x7FFFFFFF, 0}},
    {"dmOrientation", {1, 2}},
    {"dmPaperSize", {1,   3,   5,   7,   8,   9,   11,  12,  20,  28,  43,  70,  256, 265, 266, 272,
                     273, 274, 275, 276, 277, 278, 280, 283, 284, 285, 286, 287, 290, 291, 294}},
    {"dmMediaType", {1, 261, 262, 263, 264, 265, 266, 268, 269, 270, 271, 272, 273}},
    {"dmCopies", {1, 2, 9, 99, 999}},
    {"dmDefaultSource", {1, 2, 4, 7}},
    {"dmColor", {1, 2}},
    {"dmDuplex", {1, 2, 3}},
    {"dmCollate", {0, 1}},
    {"dmScale", {100, 25, 400}},
    {"wScale", {100, 25, 400}},
    {"bUsePublicScale", {0, 1}},
    {"bCollateFromTail", {0, 1}},
    {"bQualityLevel", {0, 1, 2, 3, 4, 5}},
    {"bDocType", {0, 1, 2, 3}},
    {"bBorderless", {0, 1}},
    {"dwPagesPerSheet", {1, 2, 4, 9, 16, -4, -9}},
    {"dwSavedNup", {1, 2, 4, 9, 16}},
    {"wPoster", {1, 2, 3}},
    {"bPageOrder", {0, 1, 2, 3, 4, 5, 6, 7}},
    {"bBorderLine", {0, 1, 2, 3}},
    {"wDuplexFlags", {0, 0x100, 0x101, 0x102, 0x103, 0x104, 0x105}},
    {"bBookletFlags", {0, 0, 1}},
    {"bFitToPaper", {0, 1, 2}},
    {"wOutputPaper", {1, 8, 9, 13, 20, 256}},
    {"wCustomThickness", {0, 1, 2, 3, 4}},
    {"wCustomWidth", {550, 2100, 2870}},
    {"wCustomLength", {910, 2970, 4318}},
    {"dwSdPaper", {0, 1}},
    {"dwColorModeOn", {0, 1}},
    {"dwTrayChoice", {0, 1}},
    {"wModelType", {0, 0x001, 0x002, 0x010, 0x100, 0x111, 0x300}},
    {"dwPhotoNotice", {0, 1}},
    {"dwNoFavourites", {0, 1}},
    {"bNoWebLink", {0, 1}},
    {"dwDirChoicePlain", {0, 1}},
    {"dwDirChoiceOther", {0, 1}},
    {"dwDeviceOptions", {0, 1, 2, 3}},
    {"dwWatermarkFlags", {0, 1}},
    {"dwDatePrint", {0, 0x80, 0x86}},
    {"bPrintOrderOpt", {0, 1}},
    {"dwReverseOrder", {0, 1}},
    {"dwCollate", {0, 1}},
};

void TakeKnownValues(psui::DriverDevMode& record, Random& random)
{
    const int share = random.Between(1, 6);
    for (const Choice& choice : kChoices)
        if (random.OneIn(share))
            test::Set(record, choice.field, random.Pick(choice.values));
}

bool KeepsShape(const psui::DevModeField& field)
{
    constexpr const char* kShape[] = {"dmSpecVersion", "dmDriverVersion", "dmSize", "dmDriverExtra",
                                      "dwSignature"};
    return std::none_of(std::begin(kShape), std::end(kShape),
                        [&](const char* name) { return std::strcmp(name, field.name) == 0; });
}

void TakeAnyBytes(psui::DriverDevMode& record, Random& random)
{
    const int share = random.Between(1, 8);
    const int kind = random.Below(3);
    for (const psui::DevModeField& field : psui::kDevModeFields) {
        if (!KeepsShape(field) || !random.OneIn(share))
            continue;
        BYTE* const bytes = test::BytesOf(record, field);
        for (size_t i = 0; i < field.width; ++i)
            bytes[i] = kind == 0   ? 0xFF
                       : kind == 1 ? static_cast<BYTE>(i == 0 ? random.Below(12) : 0)
                                   : static_cast<BYTE>(random.Next());
    }
}

} // namespace

std::string NameOf(Origin origin)
{
    return origin == Origin::Defaults ? "defaults"
           : origin == Origin::Legal  ? "legal record"
                                      : "hostile record";
}

void Spoil(psui::DriverDevMode& record, Origin origin, Random& random)
{
    if (origin == Origin::Defaults)
        return;
    TakeKnownValues(record, random);
    if (origin == Origin::Hostile)
        TakeAnyBytes(record, random);
}

} // namespace walk
