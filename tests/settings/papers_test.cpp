#include "psui/settings/record.h"
#include "tests/settings/support.h"

namespace {

using namespace test;
using psui::ResolvedPaper;

struct ResolvePaper : DefaultRecord
{
    psui::PaperForm form_;

    ResolvedPaper Resolve() { return psui::ResolvePaper(nullptr, &record_.dmPublic, &form_, model_); }
    std::u16string FormName() const { return Text(record_.dmPublic.dmFormName, 32); }
};

TEST_F(ResolvePaper, NamesAndMeasuresWhatItKnows)
{
    const struct
    {
        const char* fields;
        ResolvedPaper kind;
        const char16_t *recordsForm, *form;
        uint32_t width, height; ///< points
    } cases[] = {
        {"dmPaperSize=1", ResolvedPaper::Listed, u"Letter", u"Letter", 612, 792},
        {"dmPaperSize=5", ResolvedPaper::Unknown, u"Letter", u"", 0, 0},
        // 826 by 1169 hundredths of an inch
        {"dmPaperSize=256 wCustomWidth=2100 wCustomLength=2970", ResolvedPaper::User, u"User", u"User", 594,
         841},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.fields);
        SetAll(record_, c.fields);
        EXPECT_EQ(Resolve(), c.kind);
        EXPECT_EQ(FormName(), c.recordsForm);
        EXPECT_EQ(Text(form_.name, 32), c.form);
        EXPECT_EQ(form_.width, c.width * 256);
        EXPECT_EQ(form_.height, c.height * 256);
    }
}

TEST_F(ResolvePaper, MarksBorderlessPapers)
{
    for (int paper = 270; paper < 300; ++paper) {
        SetAll(record_, {{"dmPaperSize", paper}, {"bBorderless", 7}});
        Resolve();
        const bool borderless = (274 <= paper && paper <= 281) || (283 <= paper && paper <= 285) ||
                                (290 <= paper && paper <= 292);
        EXPECT_EQ(Get(record_, "bBorderless"), borderless) << paper;
    }
}

TEST_F(ResolvePaper, ChangesNothingWithoutAPaperSize)
{
    SetAll(record_, "dmFields=0 dmPaperSize=1 bBorderless=7");
    const psui::DriverDevMode before = record_;
    EXPECT_EQ(Resolve(), ResolvedPaper::Unknown);
    EXPECT_EQ(Differences(before, record_), "");
}

TEST_F(ResolvePaper, StaysInsideAForeignRecord)
{
    for (const auto& [size, name] : {std::pair{165, u"A4"}, {166, u"Letter"}, {188, u"Letter"}}) {
        psui::DriverDevMode before = record_;
        SetAll(record_, {{"dmSize", size}, {"dmDriverExtra", 0}, {"dmPaperSize", 1}, {"bBorderless", 7}});
        EXPECT_EQ(Resolve(), ResolvedPaper::Listed);
        EXPECT_EQ(FormName(), name) << size;
        EXPECT_EQ(Get(record_, "bBorderless"), 7);
        record_ = before;
    }
    SetAll(record_, "dmSize=72 dmDriverExtra=0");
    EXPECT_EQ(Resolve(), ResolvedPaper::Unknown);
}

} // namespace
