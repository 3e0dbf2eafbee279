// The common property-sheet UI: what sheet functions and pages see. Pages act by posting to their sheet, as
// the drivers' own do, so that the sheet's loop runs and ends by itself.
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>
#include <compstui.h>
#include <prsht.h>

#include "tests/host/dialog_words.h"

namespace {

using Text = std::basic_string<WCHAR>;

constexpr WORD kBeforeInitialise = 5;
constexpr int kApplyButton = 0x3021;
constexpr ULONG_PTR kPrinterIcon = 64062;

const DialogWords kEmptyPage(WS_POPUP | WS_CAPTION, 200, 100);

/// A page under test: what it was told, and what it does when it is told it.
struct Page
{
    std::vector<UINT> told; ///< codes of notifications
    std::function<void(HWND page)> onInitialise = [](HWND) {};
    std::function<LONG_PTR(HWND page, UINT code)> onNotify = [](HWND, UINT) { return 0; };
    HANDLE handle = nullptr;
    HANDLE group = nullptr;
    PFNCOMPROPSHEET service = nullptr;
};

INT_PTR CALLBACK PageProc(HWND window, UINT message, WPARAM, LPARAM lParam)
{
    if (message == WM_INITDIALOG) {
        const LPARAM param = reinterpret_cast<const PROPSHEETPAGEW*>(lParam)->lParam;
        SetWindowLongPtrW(window, DWLP_USER, param);
        reinterpret_cast<Page*>(param)->onInitialise(window);
        return TRUE;
    }
    Page* const page = reinterpret_cast<Page*>(GetWindowLongPtrW(window, DWLP_USER));
    if (message != WM_NOTIFY || !page)
        return FALSE;
    const UINT code = reinterpret_cast<const NMHDR*>(lParam)->code;
    page->told.push_back(code);
    SetWindowLongPtrW(window, DWLP_MSGRESULT, page->onNotify(window, code));
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

void InsertFirst(PROPSHEETUI_INFO& info, Page& page)
{
    page.handle = InsertFirst(info, RecordOf(page));
    page.group = info.hComPropSheet;
    page.service = info.pfnComPropSheet;
    ASSERT_NE(page.handle, nullptr);
}

/// A sheet function under test, which is its own user data.
struct Sheet
{
    explicit Sheet(std::vector<Page*> ofPages) : pages(std::move(ofPages)) {}

    std::vector<Page*> pages; ///< in their order
    std::function<LONG(PROPSHEETUI_INFO&)> onInitialise = [](PROPSHEETUI_INFO&) { return 1; };
    std::vector<WORD> reasons;
    LONG answer = 0;
    DWORD result = 77;

    void Run();
};

LONG SheetFunction(PROPSHEETUI_INFO* info, LPARAM param)
{
    Sheet& sheet = *reinterpret_cast<Sheet*>(info->lParamInit);
    sheet.reasons.push_back(info->Reason);
    switch (info->Reason) {
    case PROPSHEETUI_REASON_INIT:
        info->UserData = reinterpret_cast<ULONG_PTR>(&sheet);
        for (auto page = sheet.pages.rbegin(); page != sheet.pages.rend(); ++page)
            InsertFirst(*info, **page);
        return sheet.onInitialise(*info);
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

/// Lets the page confirm with result 1 when it is told to apply.
void ConfirmOnApply(Page& page)
{
    page.onNotify = [&page](HWND, UINT code) -> LONG_PTR {
        if (code == PSN_APPLY)
            page.service(page.group, CPSFUNC_SET_RESULT, reinterpret_cast<LPARAM>(page.handle), CPSUI_OK);
        return 0;
    };
}

void Press(HWND page, int button)
{
    PostMessageW(GetParent(page), WM_COMMAND, static_cast<WPARAM>(button), 0);
}

HWND TabsOf(HWND page)
{
    return reinterpret_cast<HWND>(SendMessageW(GetParent(page), PSM_GETTABCONTROL, 0, 0));
}

TEST(CommonSheet, TellsPageAndFunctionHowItEnds)
{
    struct Case
    {
        int button;
        std::vector<UINT> told;
        std::vector<WORD> reasons;
        DWORD result;
    };
    const Case kCases[] = {
        {IDOK, {PSN_SETACTIVE, PSN_KILLACTIVE, PSN_APPLY}, {kBeforeInitialise, 0, 1, 3, 2}, CPSUI_OK},
        {IDCANCEL, {PSN_SETACTIVE, PSN_QUERYCANCEL, PSN_RESET}, {kBeforeInitialise, 0, 1, 2}, CPSUI_CANCEL},
    };
    for (const Case& each : kCases) {
        Page page;
        ConfirmOnApply(page);
        page.onInitialise = [&](HWND window) { Press(window, each.button); };
        Sheet sheet({&page});
        sheet.Run();
        EXPECT_GT(sheet.answer, 0);
        EXPECT_EQ(sheet.result, each.result);
        EXPECT_EQ(sheet.reasons, each.reasons);
        EXPECT_EQ(page.told, each.told);
    }
}

TEST(CommonSheet, ShowsTitleTabsAndButtonsAsAskedFor)
{
    Page page, other;
    Text title;
    int tabs = 0;
    bool apply = true, pageIsChild = false, icon = false;
    page.onInitialise = [&](HWND window) {
        icon = SendMessageW(GetParent(window), WM_GETICON, ICON_SMALL, 0) != 0;
        WCHAR text[100];
        title.assign(text, static_cast<size_t>(GetWindowTextW(GetParent(window), text, 100)));
        tabs = static_cast<int>(SendMessageW(TabsOf(window), TCM_GETITEMCOUNT, 0, 0));
        apply = GetDlgItem(GetParent(window), kApplyButton) != nullptr;
        const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
        pageIsChild = (style & WS_CHILD) != 0 && (style & WS_CAPTION) == 0;
        Press(window, IDCANCEL);
    };
    Sheet sheet({&page, &other});
    sheet.Run();
    EXPECT_EQ(title, TEXT("Office printer"));
    EXPECT_TRUE(icon);
    EXPECT_EQ(tabs, 2);
    EXPECT_FALSE(apply);
    EXPECT_TRUE(pageIsChild);
    EXPECT_TRUE(other.told.empty()) << "a page that was never shown is not told of the cancellation";
}

TEST(CommonSheet, TurnsToAnotherPageOnlyWhenTheShownOneLets)
{
    Page first, second;
    bool stays = true;
    LRESULT refused = 77;
    second.onInitialise = [](HWND window) { Press(window, IDCANCEL); };
    Sheet sheet({&first, &second});
    first.onNotify = [&](HWND window, UINT code) -> LONG_PTR {
        if (code == PSN_SETACTIVE) {
            refused = SendMessageW(GetParent(window), PSM_SETCURSEL, 1, 0);
            stays = false;
            PostMessageW(GetParent(window), PSM_SETCURSEL, 1, 0);
        }
        return code == PSN_KILLACTIVE && stays;
    };
    sheet.Run();
    EXPECT_EQ(refused, 0);
    EXPECT_EQ(first.told, (std::vector<UINT>{PSN_SETACTIVE, PSN_KILLACTIVE, PSN_KILLACTIVE, PSN_RESET}));
    EXPECT_EQ(second.told, (std::vector<UINT>{PSN_SETACTIVE, PSN_QUERYCANCEL, PSN_RESET}));
}

TEST(CommonSheet, StaysOpenWhilePageRefusesToApplyOrToCancel)
{
    Page page;
    int refusals = 0;
    page.onInitialise = [](HWND window) {
        Press(window, IDOK);
        Press(window, IDCANCEL);
        Press(window, IDCANCEL);
    };
    page.onNotify = [&](HWND, UINT code) -> LONG_PTR {
        if (code == PSN_APPLY)
            return PSNRET_INVALID_NOCHANGEPAGE;
        return code == PSN_QUERYCANCEL && ++refusals == 1;
    };
    Sheet sheet({&page});
    sheet.Run();
    EXPECT_EQ(page.told, (std::vector<UINT>{PSN_SETACTIVE, PSN_KILLACTIVE, PSN_APPLY, PSN_QUERYCANCEL,
                                            PSN_QUERYCANCEL, PSN_RESET}));
}

TEST(CommonSheet, RefusesPagesThatCannotBeShown)
{
    Page page;
    struct Case
    {
        const char* name;
        void (*spoil)(PROPSHEETPAGEW& record);
    };
    const Case kCases[] = {
        {"record too short", [](PROPSHEETPAGEW& record) { record.dwSize = 71; }},
        {"record too long", [](PROPSHEETPAGEW& record) { record.dwSize = 0x7FFFFFFF; }},
        {"no template in memory", [](PROPSHEETPAGEW& record) { record.pResource = nullptr; }},
        {"no template of that id",
         [](PROPSHEETPAGEW& record) {
             record.dwFlags = 0;
             record.pszTemplate = MAKEINTRESOURCEW(4711);
         }},
    };
    Sheet sheet({});
    sheet.onInitialise = [&](PROPSHEETUI_INFO& info) {
        for (const Case& each : kCases) {
            PROPSHEETPAGEW record = RecordOf(page);
            each.spoil(record);
            EXPECT_EQ(InsertFirst(info, record), nullptr) << each.name;
        }
        return 1;
    };
    sheet.Run();
    EXPECT_EQ(sheet.answer, ERR_CPSUI_NO_PROPSHEETPAGE);
    EXPECT_EQ(sheet.reasons.back(), PROPSHEETUI_REASON_DESTROY);
}

TEST(CommonSheet, ForgetsFunctionThatRefusesToBegin)
{
    Page page;
    Sheet sheet({&page});
    sheet.onInitialise = [](PROPSHEETUI_INFO&) { return -1; };
    sheet.Run();
    EXPECT_LT(sheet.answer, 0);
    EXPECT_EQ(sheet.reasons, (std::vector<WORD>{kBeforeInitialise, 0}));
    EXPECT_TRUE(page.told.empty());
}

TEST(CommonSheet, RefusesHandlesThatAreNone)
{
    Page page;
    page.onInitialise = [](HWND window) { Press(window, IDCANCEL); };
    Sheet sheet({&page});
    sheet.onInitialise = [&](PROPSHEETUI_INFO& info) {
        int nobody = 0;
        const auto wrong = reinterpret_cast<LPARAM>(&nobody);
        EXPECT_LT(info.pfnComPropSheet(&nobody, CPSFUNC_GET_PAGECOUNT, 0, 0), 0);
        EXPECT_LT(info.pfnComPropSheet(page.handle, CPSFUNC_GET_PAGECOUNT, 0, 0), 0);
        EXPECT_LT(info.pfnComPropSheet(info.hComPropSheet, CPSFUNC_SET_RESULT, wrong, CPSUI_OK), 0);
        EXPECT_LE(info.pfnComPropSheet(info.hComPropSheet, CPSFUNC_SET_HSTARTPAGE, wrong, 0), 0);
        EXPECT_LT(info.pfnComPropSheet(info.hComPropSheet, 9999, 0, 0), 0);
        EXPECT_EQ(info.pfnComPropSheet(info.hComPropSheet, CPSFUNC_GET_PAGECOUNT, 0, 0), 1);
        return 1;
    };
    sheet.Run();
}

} // namespace
