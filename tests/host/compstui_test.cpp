// The common property-sheet UI: what sheet functions and pages see. Pages act by posting to their sheet, as
// the drivers' own do, so that the sheet's loop runs and ends by itself.
#include <functional>
#include <vector>

#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>
#include <compstui.h>
#include <prsht.h>

#include "tests/host/dialog_words.h"

namespace {

constexpr WORD kBeforeInitialise = 5;
constexpr int kApplyButton = 0x3021;
constexpr ULONG_PTR kPrinterIcon = 64062;
const DialogWords kEmptyPage(WS_POPUP | WS_CAPTION, 200, 100);

using Post = std::pair<UINT, int>; // message and its first parameter
constexpr Post kOk = {WM_COMMAND, IDOK};
constexpr Post kCancel = {WM_COMMAND, IDCANCEL};

/// A page under test. It confirms with result 1 when it is told to apply.
struct Page
{
    std::vector<Post> posts; ///< to the sheet, when the page is made
    UINT refuses = 0;        ///< the code of a notification that is refused the first time
    std::function<void(HWND page)> look = [](HWND) {};
    std::vector<UINT> told = {}; ///< codes of notifications
    HANDLE handle = nullptr;
    HANDLE group = nullptr;
    PFNCOMPROPSHEET service = nullptr;

    void OnInitialise(HWND window) const
    {
        look(window);
        for (const auto& [message, parameter] : posts)
            PostMessageW(GetParent(window), message, static_cast<WPARAM>(parameter), 0);
    }
    LONG_PTR OnNotify(UINT code)
    {
        told.push_back(code);
        if (std::exchange(refuses, code == refuses ? 0 : refuses) == code)
            return PSNRET_INVALID_NOCHANGEPAGE;
        if (code == PSN_APPLY)
            service(group, CPSFUNC_SET_RESULT, reinterpret_cast<LPARAM>(handle), CPSUI_OK);
        return 0;
    }
};

INT_PTR CALLBACK PageProc(HWND window, UINT message, WPARAM, LPARAM lParam)
{
    if (message == WM_INITDIALOG) {
        const LPARAM param = reinterpret_cast<const PROPSHEETPAGEW*>(lParam)->lParam;
        SetWindowLongPtrW(window, DWLP_USER, param);
        reinterpret_cast<Page*>(param)->OnInitialise(window);
        return TRUE;
    }
    Page* const page = reinterpret_cast<Page*>(GetWindowLongPtrW(window, DWLP_USER));
    if (message != WM_NOTIFY || !page)
        return FALSE;
    SetWindowLongPtrW(window, DWLP_MSGRESULT, page->OnNotify(reinterpret_cast<const NMHDR*>(lParam)->code));
    return TRUE;
}

PROPSHEETPAGEW RecordOf(Page& page)
{
    PROPSHEETPAGEW record = {};
    record.dwSize = sizeof(record);
    record.dwFlags = PSP_DLGINDIRECT;
    record.pResource = kEmptyPage.Get();
    record.pfnDlgProc = PageProc;
    record.lParam = reinterpret_cast<LPARAM>(&page);
    return record;
}

HANDLE InsertFirst(PROPSHEETUI_INFO& info, const PROPSHEETPAGEW& record)
{
    INSERTPSUIPAGE_INFO insertion = {};
    insertion.cbSize = sizeof(insertion);
    insertion.Type = PSUIPAGEINSERT_PROPSHEETPAGE;
    insertion.Mode = INSPSUIPAGE_MODE_INDEX;
    insertion.dwData1 = reinterpret_cast<ULONG_PTR>(&record);
    return reinterpret_cast<HANDLE>(info.pfnComPropSheet(info.hComPropSheet, CPSFUNC_INSERT_PSUIPAGEW, 0,
                                                         reinterpret_cast<LPARAM>(&insertion)));
}

/// A sheet function under test, which is its own user data.
struct Sheet
{
    std::vector<Page*> pages; ///< in their order
    std::function<LONG(PROPSHEETUI_INFO&)> onInitialise = [](PROPSHEETUI_INFO&) { return 1; };
    std::vector<WORD> reasons = {};
    LONG answer = 0;
    DWORD result = 77;

    void Run();
};

LONG OnInitialise(PROPSHEETUI_INFO& info, Sheet& sheet)
{
    info.UserData = reinterpret_cast<ULONG_PTR>(&sheet);
    for (auto page = sheet.pages.rbegin(); page != sheet.pages.rend(); ++page) {
        (*page)->handle = InsertFirst(info, RecordOf(**page));
        (*page)->group = info.hComPropSheet;
        (*page)->service = info.pfnComPropSheet;
        EXPECT_NE((*page)->handle, nullptr);
    }
    return sheet.onInitialise(info);
}

LONG SheetFunction(PROPSHEETUI_INFO* info, LPARAM param)
{
    Sheet& sheet = *reinterpret_cast<Sheet*>(info->lParamInit);
    sheet.reasons.push_back(info->Reason);
    switch (info->Reason) {
    case PROPSHEETUI_REASON_INIT:
        return OnInitialise(*info, sheet);
    case PROPSHEETUI_REASON_GET_INFO_HEADER: {
        auto& header = *reinterpret_cast<PROPSHEETUI_INFO_HEADER*>(param);
        header.Flags = PSUIHDRF_NOAPPLYNOW | PSUIHDRF_EXACT_PTITLE;
        header.IconID = kPrinterIcon;
        header.pTitle = const_cast<WCHAR*>(TEXT("Office printer"));
        return 1;
    }
    case PROPSHEETUI_REASON_SET_RESULT:
        EXPECT_EQ(info->UserData, reinterpret_cast<ULONG_PTR>(&sheet));
        info->Result = static_cast<ULONG_PTR>(reinterpret_cast<const SETRESULT_INFO*>(param)->Result);
        return 1;
    case PROPSHEETUI_REASON_DESTROY:
        return 1;
    }
    return -1; // as drivers do that know only these
}

void Sheet::Run()
{
    answer = CommonPropertySheetUIW(nullptr, SheetFunction, reinterpret_cast<LPARAM>(this), &result);
}

TEST(CommonSheet, TellsPageAndFunctionHowItEnds)
{
    const struct
    {
        Page page;
        std::vector<UINT> told;
        std::vector<WORD> reasons;
        DWORD result;
    } kCases[] = {
        {{{kOk}}, {PSN_SETACTIVE, PSN_KILLACTIVE, PSN_APPLY}, {kBeforeInitialise, 0, 1, 3, 2}, CPSUI_OK},
        {{{kCancel}},
         {PSN_SETACTIVE, PSN_QUERYCANCEL, PSN_RESET},
         {kBeforeInitialise, 0, 1, 2},
         CPSUI_CANCEL},
        {{{kOk, kCancel}, PSN_APPLY},
         {PSN_SETACTIVE, PSN_KILLACTIVE, PSN_APPLY, PSN_QUERYCANCEL, PSN_RESET},
         {kBeforeInitialise, 0, 1, 2},
         CPSUI_CANCEL},
        {{{kCancel, kCancel}, PSN_QUERYCANCEL},
         {PSN_SETACTIVE, PSN_QUERYCANCEL, PSN_QUERYCANCEL, PSN_RESET},
         {kBeforeInitialise, 0, 1, 2},
         CPSUI_CANCEL},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(&each - kCases);
        Page page = each.page;
        Sheet sheet{{&page}};
        sheet.Run();
        EXPECT_GT(sheet.answer, 0);
        EXPECT_EQ(sheet.result, each.result);
        EXPECT_EQ(sheet.reasons, each.reasons);
        EXPECT_EQ(page.told, each.told);
    }
}

TEST(CommonSheet, ShowsTitleTabsAndButtonsAsAskedFor)
{
    const auto look = [](HWND page) {
        const HWND window = GetParent(page);
        WCHAR text[100];
        GetWindowTextW(window, text, 100);
        EXPECT_EQ(lstrcmpW(text, TEXT("Office printer")), 0);
        EXPECT_NE(SendMessageW(window, WM_GETICON, ICON_SMALL, 0), 0);
        const HWND tabs = reinterpret_cast<HWND>(SendMessageW(window, PSM_GETTABCONTROL, 0, 0));
        EXPECT_EQ(SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0), 2);
        EXPECT_EQ(GetDlgItem(window, kApplyButton), nullptr);
        EXPECT_EQ(GetWindowLongPtrW(page, GWL_STYLE) & (WS_CHILD | WS_CAPTION), WS_CHILD);
    };
    Page page{{kCancel}, 0, look};
    Page other{{}};
    Sheet sheet{{&page, &other}};
    sheet.Run();
    EXPECT_EQ(page.told.size(), 3u);
    EXPECT_TRUE(other.told.empty()) << "a page that was never shown is not told of the cancellation";
}

TEST(CommonSheet, TurnsToAnotherPageOnlyWhenTheShownOneLets)
{
    Page first{{{PSM_SETCURSEL, 1}, {PSM_SETCURSEL, 1}}, PSN_KILLACTIVE};
    Page second{{kCancel}};
    Sheet sheet{{&first, &second}};
    sheet.Run();
    EXPECT_EQ(first.told, (std::vector<UINT>{PSN_SETACTIVE, PSN_KILLACTIVE, PSN_KILLACTIVE, PSN_RESET}));
    EXPECT_EQ(second.told, (std::vector<UINT>{PSN_SETACTIVE, PSN_QUERYCANCEL, PSN_RESET}));
}

TEST(CommonSheet, RefusesPagesThatCannotBeShown)
{
    Page page{{}};
    PROPSHEETPAGEW tooShort = RecordOf(page);
    tooShort.dwSize = 71;
    PROPSHEETPAGEW tooLong = RecordOf(page);
    tooLong.dwSize = 0x7FFFFFFF;
    PROPSHEETPAGEW withoutTemplate = RecordOf(page);
    withoutTemplate.pResource = nullptr;
    PROPSHEETPAGEW withUnknownId = RecordOf(page);
    withUnknownId.dwFlags = 0;
    withUnknownId.pszTemplate = MAKEINTRESOURCEW(4711);
    Sheet sheet{{}};
    sheet.onInitialise = [&](PROPSHEETUI_INFO& info) {
        for (const PROPSHEETPAGEW* record : {&tooShort, &tooLong, &withoutTemplate, &withUnknownId})
            EXPECT_EQ(InsertFirst(info, *record), nullptr) << record->dwSize << ' ' << record->dwFlags;
        return 1;
    };
    sheet.Run();
    EXPECT_EQ(sheet.answer, ERR_CPSUI_NO_PROPSHEETPAGE);
    EXPECT_EQ(sheet.reasons.back(), PROPSHEETUI_REASON_DESTROY);
}

TEST(CommonSheet, ForgetsFunctionThatRefusesToBegin)
{
    Page page{{}};
    Sheet sheet{{&page}, [](PROPSHEETUI_INFO&) { return -1; }};
    sheet.Run();
    EXPECT_LT(sheet.answer, 0);
    EXPECT_EQ(sheet.reasons, (std::vector<WORD>{kBeforeInitialise, 0}));
    EXPECT_TRUE(page.told.empty());
}

TEST(CommonSheet, RefusesHandlesThatAreNone)
{
    Page page{{kCancel}};
    Sheet sheet{{&page}};
    sheet.onInitialise = [&](PROPSHEETUI_INFO& info) {
        int nobody = 0;
        const auto wrong = reinterpret_cast<LPARAM>(&nobody);
        const auto ask = info.pfnComPropSheet;
        EXPECT_LT(ask(&nobody, CPSFUNC_GET_PAGECOUNT, 0, 0), 0);
        EXPECT_LT(ask(page.handle, CPSFUNC_GET_PAGECOUNT, 0, 0), 0);
        EXPECT_LT(ask(info.hComPropSheet, CPSFUNC_SET_RESULT, wrong, CPSUI_OK), 0);
        EXPECT_LE(ask(info.hComPropSheet, CPSFUNC_SET_HSTARTPAGE, wrong, 0), 0);
        EXPECT_LT(ask(info.hComPropSheet, 9999, 0, 0), 0);
        EXPECT_EQ(ask(info.hComPropSheet, CPSFUNC_GET_PAGECOUNT, 0, 0), 1);
        return 1;
    };
    sheet.Run();
}

} // namespace
