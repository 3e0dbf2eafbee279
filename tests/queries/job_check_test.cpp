#include "psui/queries/job_check.h"

#include <tuple>

#include "psui/model/cache.h"
#include "psui/queries/error_text.h"
#include "psui/res/ids.h"
#include "psui/settings/printer_data.h"
#include "psui/settings/tray_forms.h"
#include "tests/entry/fail_each.h"
#include "tests/entry/printer.h"
#include "tests/settings/administered.h"
#include "tests/settings/support.h"

namespace {

using namespace test;
using psui::DriverDevMode;

constexpr DWORD kErrorUnits = 256;

/// The text of one of the library's own strings.
std::u16string OwnText(UINT id)
{
    WCHAR text[kErrorUnits] = {};
    EXPECT_GT(LoadStringW(psui::hOwnModule, id, text, kErrorUnits), 0) << id;
    return text;
}

struct JobCheckTest : testing::Test
{
    World world;
    std::string text = std::string(kFullModel) + R"(*Resolution -3: "r"
*OpenGroup: InstallableOptions/Options
*OpenUI *Unit/Duplex unit: Boolean
*DefaultUnit: False
*Unit True: ""
*Unit False: ""
*CloseUI: *Unit
*CloseGroup: InstallableOptions/Options
*UIConstraints: *Unit False *Duplex DuplexTumble
)";
    Printer printer{u"P1", text};
    Administered administered{printer};
    Model model{text};
    alignas(8) DriverDevMode job;
    WCHAR message[kErrorUnits];
    psui::DevQueryPrintInfo query;

    JobCheckTest()
    {
        psui::hOwnModule = LoadLibraryW(ProductFile("eng/psui.dll").c_str());
        EXPECT_NE(psui::hOwnModule, nullptr);
        Reset();
    }
    ~JobCheckTest() override
    {
        psui::FlushModelCache();
        FreeLibrary(psui::hOwnModule);
        psui::hOwnModule = nullptr;
    }

    /// A job of the printer's defaults (A4, 600 dots per inch) but for these fields.
    void Reset(const FieldValues& fields = {})
    {
        psui::BuildDefaultDevMode(&job, nullptr, model, true);
        std::fill_n(message, kErrorUnits, u'#');
        query = {sizeof(query), 1, printer.handle(), &job.dmPublic, message, kErrorUnits, 12345};
        SetAll(job, fields);
    }

    void AssignTrays(std::u16string entries)
    {
        entries.insert(0, 1, static_cast<char16_t>((entries.size() + 1) * 2));
        ASSERT_TRUE(psui::WriteTrayFormTable(administered.get(), entries.data(),
                                             static_cast<DWORD>(entries.size() * 2)));
    }

    void ExpectPrints()
    {
        const bool prints = psui::CheckJob(&query);
        EXPECT_TRUE(prints) << testing::PrintToString(std::u16string(message, prints ? 0 : 80));
        EXPECT_EQ(message[0], u'#');
        EXPECT_EQ(query.cchNeeded, 12345u);
    }

    /// The blank that stands for no text is not counted among the characters needed.
    void ExpectRefused(const std::u16string& expected, size_t blanks = 0)
    {
        EXPECT_FALSE(psui::CheckJob(&query));
        EXPECT_EQ(std::u16string(message), expected);
        EXPECT_EQ(query.cchNeeded, expected.size() + 1 - blanks);
    }

    static std::u16string TrayText(const std::u16string& form, const std::u16string& tray)
    {
        std::u16string filled = OwnText(IDS_JOB_TRAY);
        EXPECT_LT(filled.size(), 64u) << "it would be cut";
        filled.replace(filled.find(u"%s"), 2, form);
        return filled.replace(filled.find(u"%s"), 2, tray);
    }
};

TEST_F(JobCheckTest, PrintsWhatThePrinterIsSetUpFor)
{
    ExpectPrints();
    query.pDevMode = nullptr;
    query.hPrinter = nullptr;
    ExpectPrints();
    EXPECT_TRUE(psui::CheckJob(nullptr));
}

TEST_F(JobCheckTest, NamesTheReasonOfARefusal)
{
    const std::tuple<const char*, FieldValues, UINT> cases[] = {
        {"user-defined size", "dmPaperSize=256", IDS_JOB_USER_PAPER},
        {"unknown paper", "dmPaperSize=8", IDS_JOB_PAPER},
        {"no paper", {{"dmFields", DM_ORIENTATION}}, IDS_JOB_PAPER},
        {"duplex without its unit",
         {{"dmFields", DM_PAPERSIZE | DM_DUPLEX}, {"dmDuplex", 3}},
         IDS_JOB_CONFLICT},
        {"unusable record", "dmSize=1 dmSpecVersion=0", IDS_JOB_RECORD},
    };
    for (const auto& [name, fields, reason] : cases) {
        SCOPED_TRACE(name);
        Reset(fields);
        ExpectRefused(OwnText(reason));
    }
    Reset();
    query.hPrinter = nullptr;
    ExpectRefused(OwnText(IDS_JOB_NO_MODEL));
}

TEST_F(JobCheckTest, AsksTheInstalledOptionsAboutConflicts)
{
    const auto data = psui::BuildDefaultPrinterData(printer.handle(), model);
    data->abInstallableSel[0] = 0;
    const DWORD size = sizeof(*data);
    ASSERT_TRUE(psui::WritePrinterDataBlock(administered.get(), data.get(), size,
                                            psui::PrinterDataPair::PrinterWide));
    Reset({{"dmFields", DM_PAPERSIZE | DM_DUPLEX}, {"dmDuplex", 3}});
    ExpectPrints();
}

TEST_F(JobCheckTest, RefusesAResolutionThatTheModelLacks)
{
    const Printer other(u"P2", "*PageSize A4: \"a\"\n*Paper A4: \"9\"\n*DefaultResolution: 600dpi\n"
                               "*Resolution 600dpi: \"r\"\n*Resolution -2fine: \"r\"\n");
    for (const short quality : {-1, -3, 300}) {
        SCOPED_TRACE(quality);
        Reset({{"dmFields", DM_PAPERSIZE | DM_PRINTQUALITY}, {"dmPrintQuality", quality}});
        query.hPrinter = other.handle();
        ExpectRefused(OwnText(IDS_JOB_RESOLUTION));
    }
}

TEST_F(JobCheckTest, LooksForThePaperInTheTray)
{
    const std::u16string twoTrays(u"Cassette\0A4\0x\0\0Manual\0Letter\0\0\0\0", 32);
    const struct
    {
        const char* name;
        int paper, source;
        std::u16string table;
        std::u16string missingIn; ///< empty when the job prints, else the tray as the message names it
    } cases[] = {
        {"no table", 9, 257, u"", u""},
        {"the tray has it", 9, 256, twoTrays, u""},
        {"the tray has another", 9, 257, twoTrays, u"Manual"},
        {"any tray", 1, 7, twoTrays, u""},
        {"a tray that the model lacks", 1, 300, twoTrays, u""},
        {"no tray has it", 9, 7, {u"Cassette\0Letter\0x\0\0\0", 20}, u" "},
        {"the table is empty", 9, 256, {u"\0", 1}, u"Cassette"},
        {"letters differ", 9, 256, {u"cassette\0a4\0x\0\0\0", 16}, u"Cassette"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        if (!c.table.empty())
            AssignTrays(c.table);
        Reset({{"dmFields", DM_PAPERSIZE | DM_DEFAULTSOURCE},
               {"dmPaperSize", c.paper},
               {"dmDefaultSource", c.source}});
        if (c.missingIn.empty())
            ExpectPrints();
        else
            ExpectRefused(TrayText(u"A4", c.missingIn), c.missingIn == u" ");
    }
}

TEST_F(JobCheckTest, FeedsByHandOnlyPapersAmongThePageSizes)
{
    const Printer other(u"P2", "*PageSize Letter: \"a\"\n*Paper A4: \"9\"\n*Paper Letter: \"1\"\n"
                               "*Resolution -3: \"r\"\n");
    AssignTrays({u"\0", 1});
    for (int source : {DMBIN_MANUAL, 6}) {
        SCOPED_TRACE(source);
        Reset(
            {{"dmFields", DM_PAPERSIZE | DM_DEFAULTSOURCE}, {"dmPaperSize", 1}, {"dmDefaultSource", source}});
        query.hPrinter = other.handle();
        ExpectPrints();
        Set(job, "dmPaperSize", 9);
        ExpectRefused(OwnText(IDS_JOB_MANUAL_PAPER));
    }
}

TEST_F(JobCheckTest, CutsTheMessageToTheBuffer)
{
    Reset("dmPaperSize=256");
    const std::u16string whole = OwnText(IDS_JOB_USER_PAPER);
    query.cchErrorStr = 5;
    EXPECT_FALSE(psui::CheckJob(&query));
    EXPECT_EQ(std::u16string(message, 6), whole.substr(0, 4) + u'\0' + u'#');
    EXPECT_EQ(query.cchNeeded, whole.size() + 1);
    query.pszErrorStr = nullptr;
    query.cchNeeded = 0;
    EXPECT_FALSE(psui::CheckJob(&query));
    EXPECT_EQ(query.cchNeeded, whole.size() + 1);
}

TEST_F(JobCheckTest, AnswersAndGivesEverythingBackWhateverFails)
{
    AssignTrays({u"Cassette\0A4\0x\0\0\0", 16});
    BOOL prints = FALSE;
    for (const Requests& requests :
         {kAllocations, kAllocationsOnwards, kCalls, kCallsOnwards, kReads<host::Misread::Grow>,
          kReads<host::Misread::TooSmall>, kReads<host::Misread::Huge>, kReads<host::Misread::WrongType>})
        FailEach(
            requests,
            [&] {
                psui::FlushModelCache();
                EXPECT_TRUE(psui::CheckJob(&query)) << "the model is cached from here on";
                Reset();
            },
            [&] { prints = psui::CheckJob(&query); },
            [&](bool failed) {
                EXPECT_TRUE(failed || prints);
                EXPECT_NE(message[0] == u'#', prints == FALSE);
            });
}

TEST_F(JobCheckTest, FormatsErrorTexts)
{
    const std::u16string longName(32000, u'%');
    const std::u16string own = OwnText(IDS_JOB_PAPER);
    WCHAR out[40001];
    DWORD needed = 0;
    const auto format = [&](const WCHAR* pattern, auto... arguments) {
        std::fill_n(out, std::size(out), u'#');
        const DWORD written =
            psui::FormatErrorText(psui::hOwnModule, out, 40000, &needed, pattern, arguments...);
        EXPECT_EQ(out[written], 0);
        EXPECT_EQ(out[written + 1], u'#');
        return std::u16string(out, written);
    };
    EXPECT_EQ(format(u""), u"");
    EXPECT_EQ(needed, 1u);
    EXPECT_EQ(format(u"%!|", UINT{IDS_JOB_PAPER}), own + u"|");
    EXPECT_EQ(needed, own.size() + 2);
    EXPECT_EQ(format(u"%!", 1u), u"") << "there is no such string";
    EXPECT_EQ(format(u"a%sb%s|", u"%s%!", u"\xD800"), u"a%s%!b\xD800|");
    EXPECT_EQ(format(u"%s%s", longName.c_str(), longName.c_str()),
              longName.substr(0, 32000) + longName.substr(0, 7999));
    EXPECT_EQ(needed, 64001u);
    EXPECT_EQ(format(u"%s", static_cast<const WCHAR*>(nullptr)), u" ");
    EXPECT_EQ(needed, 1u) << "the blank is not counted";
    EXPECT_EQ(format(u"%c%c", 'x', 0xDC00), u"x\xDC00");
    EXPECT_EQ(format(u"%d %d %u %x %X", -2147483647 - 1, 7, 4294967295u, 0xABCDEFu, 0xABCDEFu),
              u"-2147483648 7 4294967295 abcdef ABCDEF");
    EXPECT_EQ(format(u"%%%q% %~%\xE9"), u"%q ~\xE9");
    EXPECT_EQ(format(u"end%"), u"end");
}

TEST_F(JobCheckTest, CutsErrorTextsAtEveryLength)
{
    for (DWORD size = 0; size <= 9; ++size) {
        WCHAR out[10];
        std::fill_n(out, std::size(out), u'#');
        DWORD needed = 0;
        const DWORD written = psui::FormatErrorText(nullptr, out, size, &needed, u"ab%sef%u", u"cd", 7u);
        EXPECT_EQ(needed, 8u);
        EXPECT_EQ(written, size == 0 ? 0 : std::min<DWORD>(size - 1, 7)) << size;
        EXPECT_EQ(std::u16string(out, written), std::u16string(u"abcdef7").substr(0, written));
        EXPECT_EQ(out[written], size > 0 ? u'\0' : u'#');
        EXPECT_EQ(out[size == 0 ? 0 : written + 1], u'#') << size;
    }
    EXPECT_EQ(psui::FormatErrorText(nullptr, nullptr, 9, nullptr, u"x"), 0u);
}

} // namespace
