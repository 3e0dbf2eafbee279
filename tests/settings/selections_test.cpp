#include <tuple>

#include "psui/settings/record.h"
#include "psui/settings/text.h"
#include "tests/settings/support.h"

namespace {

using namespace test;

using SyncSelectionsFromPublic = DefaultRecord;

TEST_F(SyncSelectionsFromPublic, FindsTheOptionThatAPublicFieldAsksFor)
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
    for (const auto& [feature, mask, field, expected] : cases) {
        Set(record_, field.name, field.value);
        uint8_t& selection = record_.dmPrivate.abFeatureSel[model_->featureByIndex[feature]->ordinal];
        selection = 99;
        psui::SyncSelectionsFromPublic(&record_, ~mask, model_);
        EXPECT_EQ(selection, 99) << field.name << " is not in the mask";
        psui::SyncSelectionsFromPublic(&record_, mask, model_);
        EXPECT_EQ(selection, expected) << field.name << " " << field.value;
    }
}

TEST_F(SyncSelectionsFromPublic, FindsPageSizesByTranslationAndName)
{
    const uint8_t& selection =
        record_.dmPrivate.abFeatureSel[model_->featureByIndex[psui::kFeaturePageSize]->ordinal];
    const std::pair<std::u16string, int> cases[] = {
        {u"A4 sheet", 0}, {u"A4", 0}, {u"Letter", 1}, {u"letter", 255}, {std::u16string(32, u'\x8000'), 255}};
    for (const auto& [form, expected] : cases) {
        std::fill_n(record_.dmPublic.dmFormName, 32, u'\0');
        std::copy(form.begin(), form.end(), record_.dmPublic.dmFormName);
        psui::SyncSelectionsFromPublic(&record_, DM_FORMNAME, model_);
        EXPECT_EQ(selection, expected);
    }
}

TEST_F(SyncSelectionsFromPublic, SkipsFeaturesThatTheModelLacks)
{
    const psui::DriverDevMode before = record_;
    psui::SyncSelectionsFromPublic(&record_, ~DWORD{0}, Model(kEmptyModel));
    EXPECT_EQ(Differences(before, record_), "");
}

} // namespace
