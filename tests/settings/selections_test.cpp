#include <tuple>

#include "psui/settings/record.h"
#include "psui/settings/text.h"
#include "tests/settings/support.h"

namespace {

using namespace test;

TEST(SyncSelectionsFromPublic, FindsTheOptionThatAPublicFieldAsksFor)
{
    const std::tuple<psui::FeatureIndex, DWORD, FieldValue, int> cases[] = {
        {psui::kFeatureCollate, DM_COLLATE, {"dmCollate", 1}, 0},
        {psui::kFeatureCollate, DM_COLLATE, {"dmCollate", 9}, 1},
        {psui::kFeatureDuplex, DM_DUPLEX, {"dmDuplex", 3}, 1},
        {psui::kFeatureDuplex, DM_DUPLEX, {"dmDuplex", 2}, 2},
        {psui::kFeatureDuplex, DM_DUPLEX, {"dmDuplex", 77}, 0},
        // "Draft" is no number and does not count.
        {psui::kFeatureResolution, DM_PRINTQUALITY, {"dmPrintQuality", 300}, 0},
        {psui::kFeatureResolution, DM_PRINTQUALITY, {"dmPrintQuality", 1200}, 2},
        {psui::kFeatureResolution, DM_PRINTQUALITY, {"dmPrintQuality", -3}, 255},
        {psui::kFeatureInputSlot, DM_DEFAULTSOURCE, {"dmDefaultSource", 258}, 2},
        {psui::kFeatureInputSlot, DM_DEFAULTSOURCE, {"dmDefaultSource", 256}, 0},
        {psui::kFeatureInputSlot, DM_DEFAULTSOURCE, {"dmDefaultSource", 7}, 255},
        {psui::kFeatureInputSlot, DM_DEFAULTSOURCE, {"dmDefaultSource", -1}, 255}};
    World world;
    const Model model(kFullModel);
    alignas(8) psui::DriverDevMode record;
    psui::BuildDefaultDevMode(&record, nullptr, model, true);
    for (const auto& [feature, mask, field, expected] : cases) {
        Set(record, field.name, field.value);
        uint8_t& selection = record.dmPrivate.abFeatureSel[model->featureByIndex[feature]->ordinal];
        selection = 99;
        psui::SyncSelectionsFromPublic(&record, ~mask, model);
        EXPECT_EQ(selection, 99) << field.name << " is not in the mask";
        psui::SyncSelectionsFromPublic(&record, mask, model);
        EXPECT_EQ(selection, expected) << field.name << " " << field.value;
    }
}

TEST(SyncSelectionsFromPublic, FindsPageSizesByTranslationAndName)
{
    World world;
    const Model model(kFullModel);
    alignas(8) psui::DriverDevMode record;
    psui::BuildDefaultDevMode(&record, nullptr, model, true);
    const uint8_t& selection =
        record.dmPrivate.abFeatureSel[model->featureByIndex[psui::kFeaturePageSize]->ordinal];
    const std::pair<std::u16string, int> cases[] = {
        {u"A4 sheet", 0}, {u"A4", 0}, {u"Letter", 1}, {u"letter", 255}, {std::u16string(32, u'\x8000'), 255}};
    for (const auto& [form, expected] : cases) {
        std::fill_n(record.dmPublic.dmFormName, 32, u'\0');
        std::copy(form.begin(), form.end(), record.dmPublic.dmFormName);
        psui::SyncSelectionsFromPublic(&record, DM_FORMNAME, model);
        EXPECT_EQ(selection, expected);
    }
}

TEST(SyncSelectionsFromPublic, SkipsFeaturesThatTheModelLacks)
{
    World world;
    alignas(8) psui::DriverDevMode record;
    psui::BuildDefaultDevMode(&record, nullptr, Model(kEmptyModel), true);
    const psui::DriverDevMode before = record;
    psui::SyncSelectionsFromPublic(&record, ~DWORD{0}, Model(kEmptyModel));
    EXPECT_EQ(Differences(before, record), "");
}

} // namespace
