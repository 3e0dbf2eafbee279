#include "psui/entry/context.h"

#include <gtest/gtest.h>

#include "psui/entry/help_file.h"
#include "psui/settings/record.h"
#include "tests/entry/fail_each.h"
#include "tests/entry/printer.h"
#include "tests/settings/administered.h"
#include "tests/settings/merge_checks.h"
#include "tests/settings/support.h"

namespace {

using namespace psui;
using namespace test;

struct ContextTest : testing::Test
{
    World world;
    Printer printer{u"P1", kFullModel};

    ContextPtr Create(const DEVMODEW* input = nullptr)
    {
        return ContextPtr(CreatePrinterUiContext(printer.handle(), input));
    }

    /// The record that a context without any other record holds.
    DriverDevMode Default() { return Create()->dmWork; }
};

TEST_F(ContextTest, HoldsThePrinterAndItsDefaults)
{
    const ContextPtr context = Create();
    ASSERT_TRUE(IsValidContext(context.get()));
    EXPECT_EQ(context->hPrinter, printer.handle());
    ASSERT_NE(context->pModel, nullptr);
    EXPECT_EQ(context->pModel->printRatePpm, 12u);
    EXPECT_EQ(std::u16string(context->pDriverName), u"P1");
    EXPECT_EQ(context->bHubProcessor, 0u);
    EXPECT_EQ(std::u16string(context->pHelpFile), u"C:\\windows\\system32\\spool\\drivers\\x64\\pscript.hlp");
    ExpectFields(context->dmWork, {{"dmSize", 220}, {"dmDriverExtra", 1632}, {"dmPaperSize", 1}});
    EXPECT_EQ(Text(context->dmWork.dmPublic.dmDeviceName, 32), u"P1");
    EXPECT_EQ(context->PrinterData.wVersion, 1301);
    EXPECT_EQ(context->PrinterData.wSize, 108);
    EXPECT_EQ(context->wCurrentWatermark, 0);
    EXPECT_EQ(context->cPapers + context->cBins + context->cResolutions, 0u) << "tables come later";
}

TEST_F(ContextTest, MergesTheStoredThenTheCallersRecord)
{
    DriverDevMode stored = Default(), input = stored;
    SetAll(stored, "dmOrientation=2 wMediaValue=77 dmPaperSize=9");
    SetAll(input, "dmPaperSize=1 wHrcValue=88");
    const Printer other(u"P2", kFullModel, &stored.dmPublic);
    const ContextPtr alone(CreatePrinterUiContext(other.handle(), nullptr));
    ExpectFields(alone->dmWork, "dmOrientation=2 wMediaValue=77 dmPaperSize=9");
    EXPECT_EQ(Text(alone->dmWork.dmPublic.dmFormName, 32), u"A4");
    const ContextPtr both(CreatePrinterUiContext(other.handle(), &input.dmPublic));
    ExpectFields(both->dmWork, "dmOrientation=1 wHrcValue=88 dmPaperSize=1");
    EXPECT_EQ(Text(both->dmWork.dmPublic.dmFormName, 32), u"Letter");
}

TEST_F(ContextTest, KeepsTheWatermarkThatIsSwitchedOn)
{
    const std::pair<const char*, int> cases[] = {{"wWatermarkIndex=5", 0},
                                                 {"wWatermarkIndex=5 dwWatermarkFlags=3", 5},
                                                 {"wWatermarkIndex=5 dwWatermarkFlags=2", 0}};
    for (const auto& [fields, current] : cases) {
        DriverDevMode input = Default();
        SetAll(input, fields);
        EXPECT_EQ(Create(&input.dmPublic)->wCurrentWatermark, current) << fields;
    }
}

TEST_F(ContextTest, TakesTheStoredPrinterWideDataAndKeepsItsOwnVersion)
{
    const Administered administered(printer);
    PrinterWideData stored = Create()->PrinterData;
    stored.wVersion = 7;
    stored.wSize = 9;
    stored.dwStringSet = 3;
    ASSERT_TRUE(
        WritePrinterDataBlock(administered.get(), &stored, sizeof(stored), PrinterDataPair::PrinterWide));
    const ContextPtr context = Create();
    EXPECT_EQ(context->PrinterData.dwStringSet, 3u);
    EXPECT_EQ(context->PrinterData.wVersion, 1301);
    EXPECT_EQ(context->PrinterData.wSize, 108);
}

TEST_F(ContextTest, RegistersTheModelsPapersOnce)
{
    const Administered administered(printer);
    std::u16string form = u"A4_BL";
    for (const bool added : {true, false}) {
        ContextPtr(CreatePrinterUiContext(administered.get(), nullptr));
        EXPECT_EQ(DeleteFormW(administered.get(), form.data()), added);
    }
}

TEST_F(ContextTest, IsValidOnlyAtItsOwnAddress)
{
    const ContextPtr context = Create();
    alignas(PrinterUiContext) BYTE copy[sizeof(PrinterUiContext) + 8];
    auto* moved = reinterpret_cast<PrinterUiContext*>(copy);
    std::memcpy(copy, context.get(), sizeof(PrinterUiContext));
    EXPECT_FALSE(IsValidContext(moved));
    moved->pSelf = moved;
    EXPECT_FALSE(IsValidContext(moved));
    moved->pSelfCheck = moved;
    EXPECT_TRUE(IsValidContext(moved));
    moved->pSelf = nullptr;
    EXPECT_FALSE(IsValidContext(moved));
    EXPECT_FALSE(IsValidContext(nullptr));
    for (uintptr_t address = 1; address < 8; ++address) // none of these may be read
        EXPECT_FALSE(IsValidContext(reinterpret_cast<PrinterUiContext*>(address)));
}

TEST_F(ContextTest, LoadsTheTablesOfItsModel)
{
    using Numbers = std::vector<uint32_t>;
    const ContextPtr context = Create();
    ASSERT_TRUE(LoadContextTables(context.get()));
    ASSERT_EQ(context->cPapers, 5u);
    EXPECT_EQ(context->pPaperIds[1], 1);
    EXPECT_EQ(std::u16string(context->pPaperNames[1]), u"Letter");
    EXPECT_EQ(context->cBins, 4u);
    EXPECT_NE(context->pBinNames[0][0], 0);
    EXPECT_EQ(context->cResolutions, 3u);
    EXPECT_EQ(context->pResolutions[0][0], 300);
    const std::tuple<uint32_t, const uint32_t*, Numbers> tables[] = {
        {context->cMediaTypeValues, context->pMediaTypeValues, {266, 261, 263, 269, 271, 264, 270, 0}},
        {context->cThicknessValues, context->pThicknessValues, {4}},
        {context->cHrcValues, context->pHrcValues, {11}},
        {context->cPageProtectValues, context->pPageProtectValues, {12}},
        {context->cMultiplePageValues, context->pMultiplePageValues, {0}},
        {context->cTonerSaveValues, context->pTonerSaveValues, {}},
    };
    for (const auto& [count, values, expected] : tables)
        EXPECT_EQ(Numbers(values, values + count), expected);
}

/// Every count is 0 and no table is left to be read.
void ExpectNoTables(const PrinterUiContext& context)
{
    EXPECT_EQ(context.cPapers + context.cBins + context.cResolutions + context.cMultiplePageValues +
                  context.cTonerSaveValues + context.cMediaTypeValues + context.cPageProtectValues +
                  context.cHrcValues + context.cThicknessValues,
              0u);
    EXPECT_EQ(context.pPaperNames, nullptr);
    EXPECT_EQ(context.pMediaTypeValues, nullptr);
}

TEST_F(ContextTest, HasNoTablesAtAllWhenOneCannotBeHad)
{
    ContextPtr context;
    bool loaded = false;
    const auto create = [&] { context = Create(); };
    const auto load = [&] { loaded = LoadContextTables(context.get()); };
    FailEach(kAllocations, create, load, [&](bool failed) {
        EXPECT_EQ(loaded, !failed);
        if (!loaded)
            ExpectNoTables(*context);
        create(); // as the ledger knows it
    });
    host::FailCalls(0, true); // the forms cannot be enumerated
    load();
    host::StopFailing();
    EXPECT_FALSE(loaded);
    ExpectNoTables(*context);
}

/// A path in the process heap as a text, "" for null.
std::u16string TakePath(WCHAR* path)
{
    const std::u16string text = path ? path : TEXT("");
    HeapFree(GetProcessHeap(), 0, path);
    return text;
}

TEST_F(ContextTest, NamesTheDriversHelpFileElseThePlatforms)
{
    const HANDLE heap = GetProcessHeap();
    const std::u16string folder = u"C:\\windows\\system32\\spool\\drivers\\x64\\";
    EXPECT_EQ(TakePath(GetHelpFilePath(printer.handle(), heap)), folder + u"pscript.hlp");

    alignas(8) BYTE info[4096];
    DWORD needed = 0;
    ASSERT_TRUE(GetPrinterDriverW(printer.handle(), nullptr, 3, info, sizeof(info), &needed));
    auto* driver = reinterpret_cast<DRIVER_INFO_3W*>(info);
    std::u16string help = u"C:\\palette.hlp";
    WriteNative(host::NativePath(help), "help");
    driver->pHelpFile = help.data();
    ASSERT_TRUE(AddPrinterDriverExW(nullptr, 3, info, APD_COPY_ALL_FILES | APD_COPY_FROM_DIRECTORY));
    EXPECT_EQ(TakePath(GetHelpFilePath(printer.handle(), heap)), folder + u"3\\palette.hlp");

    host::FailCalls(0, true);
    EXPECT_EQ(TakePath(GetHelpFilePath(printer.handle(), heap)), u"");
    host::StopFailing();
}

} // namespace
