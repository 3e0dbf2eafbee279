#include "psui/settings/record.h"

#include <sstream>

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

using SyncSelectionsFromPublic = DefaultRecord;

TEST_F(SyncSelectionsFromPublic, FindsTheOptionThatAPublicFieldAsksFor)
{
    const struct
    {
        const char* field;
        psui::FeatureIndex feature;
        DWORD mask;
        const char* cases; ///< values and selections
    } fields[] = {
        {"dmCollate", psui::kFeatureCollate, DM_COLLATE, "1 0  0 1  9 1"},
        {"dmDuplex", psui::kFeatureDuplex, DM_DUPLEX, "3 1  2 2  1 0  77 0"},
        // "Draft" is no number and does not count.
        {"dmPrintQuality", psui::kFeatureResolution, DM_PRINTQUALITY, "300 0  1200 2  -3 255"},
        {"dmDefaultSource", psui::kFeatureInputSlot, DM_DEFAULTSOURCE, "258 2  256 0  7 255  -1 255"}};
    for (const auto& [field, feature, mask, cases] : fields) {
        std::istringstream rows(cases);
        uint8_t& selection = record_.dmPrivate.abFeatureSel[model_->featureByIndex[feature]->ordinal];
        int expected;
        for (int value; rows >> value >> expected;) {
            Set(record_, field, value);
            selection = 99;
            psui::SyncSelectionsFromPublic(&record_, ~mask, model_);
            EXPECT_EQ(selection, 99) << field << " is not in the mask";
            psui::SyncSelectionsFromPublic(&record_, mask, model_);
            EXPECT_EQ(selection, expected) << field << " " << value;
        }
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

struct RefreshTail : DefaultRecord
{
    RefreshTail() { psui::RefreshTail(&record_); }

    std::u16string ClientAfter(const FieldValues& fields)
    {
        alignas(8) psui::DriverDevMode record = record_;
        SetAll(record, fields);
        psui::RefreshTail(&record);
        return Text(record.dmPrivate.wszClientProcess, 32);
    }
};

TEST_F(RefreshTail, NamesTheClientProcessWhenSomethingNeedsIt)
{
    EXPECT_EQ(ClientAfter({}), u"_msplf.exe");
    for (const FieldValue& need :
         FieldValues("dmCopies=2 dmCollate=1 dwPagesPerSheet=2 dwPagesPerSheet=0 dwPagesPerSheet=-4 "
                     "dwWatermarkFlags=1 dwTailDatePrint=0x80 bTailReverse=1 bTailReverse=200"))
        EXPECT_EQ(ClientAfter({need}), u"vmsplf.exe") << need.name << need.value;
    for (const FieldValue& none :
         FieldValues("dmCopies=1 dmCollate=2 dwWatermarkFlags=2 dwDatePrint=0x80 dwTailDatePrint=0x7F"))
        EXPECT_EQ(ClientAfter({none}), u"_msplf.exe") << none.name;
}

TEST_F(RefreshTail, KeepsTheRestOfTheClientText)
{
    const std::u16string other = TEXT("other.exe");
    std::copy_n(other.c_str(), other.size() + 1, record_.dmPrivate.wszClientProcess);
    psui::RefreshTail(&record_);
    EXPECT_EQ(Text(record_.dmPrivate.wszClientProcess, 32), u"_ther.exe");
}

TEST_F(RefreshTail, CopiesTheDatePrintAndThePapersFittedTo)
{
    SetAll(record_,
           "dwDatePrint=0x1286 crDateText=5 crDateBack=6 bTailValid=0 wDocumentPaper=8 wOutputPaper=11");
    record_.dmPrivate.lfDateFont.lfWeight = 700;
    for (int fit = 0; fit < 3; ++fit) {
        Set(record_, "bFitToPaper", fit);
        psui::RefreshTail(&record_);
        ExpectFields(record_, "dwTailDatePrint=0x1286 crTailDateText=5 crTailDateBack=6 bTailValid=1");
        ExpectFields(record_,
                     fit == 1 ? "shTailDocPaper=8 shTailOutPaper=11" : "shTailDocPaper=-1 shTailOutPaper=-1");
        EXPECT_EQ(record_.dmPrivate.lfTailDateFont.lfWeight, 700);
    }
}

TEST_F(RefreshTail, MarksCallsFromTheMakersApplication)
{
    Set(record_, "bHostFlags", 0xF0);
    for (const auto& [windowClass, flags] :
         {std::pair{u"FLWApp", 0xF1}, {u"", 0xF0}, {u"flwAPP", 0xF1}, {u"FLWApp2", 0xF0}}) {
        host::SetActiveWindowClass(windowClass);
        psui::RefreshTail(&record_);
        EXPECT_EQ(Get(record_, "bHostFlags"), flags);
    }
}

} // namespace
