// The document sheet without its window: what the sheet function answers for each reason.
#include <tuple>

#include "tests/entry/fail_each.h"
#include "tests/entry/sheet_caller.h"
#include "tests/settings/administered.h"
#include "tests/settings/merge_checks.h"

namespace {

using namespace psui;
using namespace test;

constexpr LONG kRecordSize = 1852;

struct DocumentSheet : testing::Test
{
    World world;
    Printer printer{u"P1", kFullModel};
    alignas(8) DriverDevMode output = {};
    const DriverDevMode untouched = {};

    void SetNumber(const WCHAR* name, DWORD number, DWORD type = REG_DWORD)
    {
        const Administered administered(printer);
        SetPrinterDataW(administered.get(), const_cast<WCHAR*>(name), type, reinterpret_cast<BYTE*>(&number),
                        sizeof(number));
    }
};

TEST_F(DocumentSheet, InsertsItsPage)
{
    SheetCaller sheet(printer, DM_COPY, &output);
    ASSERT_EQ(sheet.Call(kSheetInitialise), 1);
    EXPECT_EQ(sheet.info.Result, 0u);
    const PrinterUiContext* context = sheet.context();
    ASSERT_TRUE(IsValidContext(context));

    ASSERT_EQ(sheet.calls.size(), 1u);
    EXPECT_EQ(sheet.calls[0].sheet, &sheet);
    EXPECT_EQ(sheet.calls[0].function, 17u);
    EXPECT_EQ(sheet.calls[0].first, 0);
    EXPECT_EQ(sheet.insertion.cbSize, 32);
    EXPECT_EQ(sheet.insertion.Type, 3);
    EXPECT_EQ(sheet.insertion.Mode, 4);
    EXPECT_EQ(sheet.insertion.dwData2, 0u);
    EXPECT_EQ(sheet.page.dwSize, 96u);
    EXPECT_EQ(sheet.page.dwFlags, 0x28u);
    EXPECT_EQ(sheet.page.hInstance, hLangModule);
    EXPECT_EQ(sheet.page.pszTemplate, MAKEINTRESOURCEW(100));
    EXPECT_EQ(sheet.page.lParam, reinterpret_cast<LPARAM>(context));
    WCHAR title[50];
    LoadLanguageString(1268, title, 50);
    EXPECT_EQ(sheet.pageTitle, title);
    EXPECT_EQ(context->ahPages[0], reinterpret_cast<HANDLE>(0x77));
    EXPECT_EQ(context->awPageEnabled[0], 1);
    EXPECT_EQ(context->dwCurrentFavourite, 255u);
    EXPECT_EQ(context->dwPendingFavourite, 255u);
    EXPECT_EQ(context->cPapers, 5u) << "the tables are loaded";
}

TEST_F(DocumentSheet, TakesItsMode)
{
    const std::tuple<DWORD, DWORD, DWORD> modes[] = {
        {0, 0, 1}, {DM_COPY | 0x40, 1, 1}, {0x20, 0, 0}, {0x60, 1, 0}};
    for (const auto& [mode, userDefault, permission] : modes) {
        SheetCaller sheet(printer, mode, &output);
        ASSERT_EQ(sheet.Call(kSheetInitialise), 1);
        EXPECT_EQ(sheet.context()->bUserDefault, userDefault) << mode;
        EXPECT_EQ(sheet.context()->bPermission, permission) << mode;
    }
}

TEST_F(DocumentSheet, TakesThePrintersSwitches)
{
    const std::tuple<DWORD, DWORD, DWORD, int, int> switches[] = {
        {1, 1, REG_DWORD, 3, 1},    {0, 1, REG_DWORD, 0x82, 0}, {1, 0, REG_DWORD, 0x81, 1},
        {0, 0, REG_DWORD, 0x80, 0}, {2, 3, REG_DWORD, 3, 2},    {0x10000, 1, REG_DWORD, 3, 0},
        {0, 1, REG_BINARY, 3, 1}}; // a value that cannot be read counts as on
    for (const auto& [vsc, wu, type, flags, shownVsc] : switches) {
        SetNumber(TEXT("VSC"), vsc, type);
        SetNumber(TEXT("WU"), wu);
        SheetCaller sheet(printer, DM_COPY, &output);
        ASSERT_EQ(sheet.Call(kSheetInitialise), 1);
        EXPECT_EQ(sheet.context()->bWebFlags, flags);
        EXPECT_EQ(sheet.context()->wVscSetting, shownVsc);
        EXPECT_EQ(sheet.context()->wWuSetting, wu);
    }
}

TEST_F(DocumentSheet, SaysHowItsWindowIsHeaded)
{
    SheetCaller sheet(printer, DM_COPY, &output);
    ASSERT_EQ(sheet.Call(kSheetInitialise), 1);
    PropSheetUiInfoHeader header = {};
    EXPECT_EQ(sheet.Call(kSheetGetInfoHeader, reinterpret_cast<LPARAM>(&header)), 1);
    EXPECT_EQ(header.Flags, 6);
    EXPECT_EQ(header.pTitle, printer.name());
    EXPECT_EQ(header.hInst, hOwnModule);
    EXPECT_EQ(header.IconID, 64062u);
    EXPECT_EQ(sheet.Call(kSheetGetInfoHeader), -1);
}

TEST_F(DocumentSheet, HandsTheRecordOutOnceConfirmed)
{
    constexpr uint16_t kNone = 0xFFFF;
    const struct
    {
        DWORD mode;
        LRESULT result;
        bool hasOutput, written;
        uint16_t currentWatermark = 3;
    } cases[] = {{DM_COPY, 1, true, true},       {DM_UPDATE, 1, true, true},  {DM_COPY, 2, true, false},
                 {DM_COPY, 0, true, false},      {DM_MODIFY, 1, true, false}, {DM_COPY, 1, false, false},
                 {DM_COPY, 1, true, true, kNone}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "mode " << c.mode << " result " << c.result);
        output = untouched;
        SheetCaller sheet(printer, c.mode, c.hasOutput ? &output : nullptr);
        ASSERT_EQ(sheet.Call(kSheetInitialise), 1);
        SetAll(sheet.context()->dmWork, "dmOrientation=2 dwDatePrint=0x86 wWatermarkIndex=5");
        sheet.context()->wCurrentWatermark = c.currentWatermark;
        EXPECT_EQ(sheet.SetResult(c.result), c.written ? 1 : kRecordSize);
        EXPECT_EQ(sheet.info.Result, c.written ? 1u : 0u);
        EXPECT_EQ(sheet.header.cbOut, c.written ? 0u : 1852u);
        EXPECT_EQ(Differences(output, untouched) == "", !c.written);
        if (c.written)
            ExpectFields(output, {{"dmSize", 220},
                                  {"dmOrientation", 2},
                                  {"dwTailDatePrint", 0x86},
                                  {"wWatermarkIndex", c.currentWatermark == kNone ? 5 : 3}});
    }
}

TEST_F(DocumentSheet, RefusesWhatItCannotUse)
{
    SheetCaller sheet(printer, DM_COPY, &output);
    const LPARAM header = std::exchange(sheet.info.lParamInit, 0);
    EXPECT_EQ(sheet.Call(kSheetInitialise), -1) << "no header";
    sheet.info.lParamInit = header;
    sheet.header.hPrinter = nullptr;
    EXPECT_EQ(sheet.Call(kSheetInitialise), -1) << "no printer";
    sheet.header.hPrinter = printer.handle();
    ASSERT_EQ(sheet.Call(kSheetInitialise), 1);
    for (const WORD reason : {4, 5, 77})
        EXPECT_EQ(sheet.Call(reason), -1) << reason;
    EXPECT_EQ(sheet.Call(kSheetSetResult), -1) << "no result";
    PrinterUiContext* context = sheet.context();
    context->pSelfCheck = nullptr;
    for (const WORD reason : {1, 2, 3})
        EXPECT_EQ(sheet.Call(reason), -1) << "a broken context, reason " << reason;
    context->pSelfCheck = context;
}

TEST_F(DocumentSheet, LeavesNothingBehindWhenItsPageIsRefused)
{
    for (const LONG_PTR answer : {LONG_PTR{0}, LONG_PTR{-1}}) {
        WarmModelCache(printer.handle());
        const host::Ledger before = host::OpenObjects();
        SheetCaller sheet(printer, DM_COPY, &output);
        sheet.pageHandle = answer;
        EXPECT_EQ(sheet.Call(kSheetInitialise), -1);
        EXPECT_EQ(sheet.info.UserData, 0u);
        EXPECT_EQ(host::OpenObjects(), before);
    }
}

TEST_F(DocumentSheet, EndsItsContextAndRefusesToBeUsedAgain)
{
    WarmModelCache(printer.handle());
    const host::Ledger before = host::OpenObjects();
    SheetCaller sheet(printer, DM_COPY, &output);
    ASSERT_EQ(sheet.Call(kSheetInitialise), 1);
    GlobalBlock& block = sheet.context()->aGlobalBlocks[kGlobalBlocks - 1];
    block.hBlock = GlobalAlloc(GMEM_MOVEABLE, 10);
    block.pLocked = GlobalLock(block.hBlock);
    EXPECT_EQ(sheet.Call(kSheetDestroy), 1);
    EXPECT_EQ(sheet.info.UserData, 0u);
    EXPECT_EQ(sheet.Call(kSheetDestroy), -1);
    EXPECT_EQ(host::OpenObjects(), before);
}

TEST_F(DocumentSheet, SurvivesEveryFailedRequest)
{
    alignas(8) DriverDevMode input = {};
    ASSERT_EQ(
        DrvDocumentProperties(nullptr, printer.handle(), printer.name(), &input.dmPublic, nullptr, DM_COPY),
        1);
    WarmModelCache(printer.handle());
    for (const Requests& requests :
         {kAllocations, kAllocationsOnwards, kCalls, kCallsOnwards, kReads<host::Misread::Huge>,
          kReads<host::Misread::Grow>, kReads<host::Misread::TooSmall>}) {
        LONG opened = 0, confirmed = 0, destroyed = 0;
        bool empty = false;
        FailEach(
            requests, [&] { output = untouched; },
            [&] {
                SheetCaller sheet(printer, DM_COPY, &output, &input.dmPublic);
                opened = sheet.Call(kSheetInitialise);
                if (opened != 1)
                    return;
                empty = sheet.context()->cPapers == 0;
                confirmed = sheet.SetResult(1);
                destroyed = sheet.Call(kSheetDestroy);
            },
            [&](bool failed) {
                if (failed && opened == -1) {
                    EXPECT_EQ(Differences(output, untouched), "");
                    return;
                }
                EXPECT_EQ(opened, 1);
                EXPECT_EQ(confirmed, 1);
                EXPECT_EQ(destroyed, 1);
                EXPECT_TRUE(failed || !empty);
                EXPECT_EQ(FieldOutOfRange(output), "");
            });
    }
}

} // namespace
