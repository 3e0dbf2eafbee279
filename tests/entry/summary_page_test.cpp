// The summary page in the window of a sheet, with the language module's own template.
#include <commctrl.h>
#include <tuple>

#include "lang/ids/dialogs.h"
#include "lang/ids/main_dialog.h"
#include "lang/ids/summary.h"
#include "psui/maindlg/settings_summary.h"
#include "tests/entry/fail_each.h"
#include "tests/entry/sheet_caller.h"

namespace {

using namespace psui;
using namespace test;

constexpr UINT kGetTabControl = WM_USER + 116;

/// A sheet's window: it knows its tab control and notes the commands that it gets.
class SheetWindow
{
public:
    explicit SheetWindow(int tabs)
    {
        commands.clear();
        window = CreateWindowExW(0, TEXT("STATIC"), TEXT("Sheet"), WS_POPUP | WS_VISIBLE, 10, 10, 500, 400,
                                 nullptr, nullptr, nullptr, nullptr);
        EXPECT_NE(window, nullptr);
        own = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure)));
        tabControl = CreateWindowExW(0, WC_TABCONTROLW, nullptr, WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0,
                                     500, 30, window, nullptr, nullptr, nullptr);
        TCITEMW tab = {};
        for (int i = 0; i < tabs; ++i)
            SendMessageW(tabControl, TCM_INSERTITEMW, i, reinterpret_cast<LPARAM>(&tab));
    }
    ~SheetWindow() { DestroyWindow(window); }
    SheetWindow(const SheetWindow&) = delete;
    SheetWindow& operator=(const SheetWindow&) = delete;

    HWND window = nullptr;
    static inline HWND tabControl = nullptr;
    static inline std::vector<int> commands;

private:
    static inline WNDPROC own = nullptr;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == kGetTabControl)
            return reinterpret_cast<LRESULT>(tabControl);
        if (message == WM_COMMAND)
            commands.push_back(LOWORD(wParam));
        return CallWindowProcW(own, window, message, wParam, lParam);
    }
};

void HandlePostedMessages()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
}

class SummaryPage : public testing::Test
{
protected:
    World world_;
    Printer printer_{u"P1", kFullModel};
    alignas(8) DriverDevMode output_ = {};

    void TearDown() override { host::SetIdleHook(nullptr); }

    HWND OpenPage(SheetCaller& sheet, const SheetWindow& window)
    {
        EXPECT_EQ(sheet.Call(kSheetInitialise), 1);
        const HWND page = CreateDialogParamW(sheet.page.hInstance, sheet.page.pszTemplate, window.window,
                                             sheet.page.pfnDlgProc, reinterpret_cast<LPARAM>(&sheet.page));
        EXPECT_NE(page, nullptr) << GetLastError();
        EnableWindow(page, TRUE);
        ShowWindow(page, SW_SHOW);
        return page;
    }

    std::u16string SummaryOf(PrinterUiContext* context) const
    {
        std::vector<WCHAR> text(kSummaryUnits);
        TextCursor cursor = {text.data(), kSummaryUnits};
        BuildSettingsSummary(context, cursor);
        return text.data();
    }

    std::u16string Shown(HWND page) const
    {
        std::vector<WCHAR> text(kSummaryUnits);
        GetDlgItemTextW(page, IDC_SUMMARY, text.data(), kSummaryUnits);
        return text.data();
    }
};

TEST_F(SummaryPage, HidesItsSheetAndCancelsItWithoutAMainDialog)
{
    SheetCaller sheet(printer_, DM_COPY, &output_);
    const SheetWindow window(1);
    const HMODULE language = std::exchange(hLangModule, nullptr);
    ASSERT_EQ(sheet.Call(kSheetInitialise), 1);
    hLangModule = language;
    EXPECT_EQ(sheet.pageTitle, u"");
    EXPECT_EQ(sheet.page.hInstance, hOwnModule);
    const HWND page = CreateDialogParamW(language, MAKEINTRESOURCEW(IDD_SUMMARY), window.window,
                                         sheet.page.pfnDlgProc, reinterpret_cast<LPARAM>(&sheet.page));
    EXPECT_NE(page, nullptr);
    RECT box = {};
    GetWindowRect(window.window, &box);
    EXPECT_TRUE(IsRectEmpty(&box) && box.left == 0 && box.top == 0);
    HandlePostedMessages();
    EXPECT_EQ(window.commands, std::vector<int>{IDCANCEL});
}

TEST_F(SummaryPage, ConfirmsTheSheetWhoseMainDialogIsOpen)
{
    SheetCaller sheet(printer_, DM_COPY, &output_);
    const SheetWindow window(1);
    ASSERT_EQ(sheet.Call(kSheetInitialise), 1);
    sheet.context()->hMainDialog = window.window;
    CreateDialogParamW(sheet.page.hInstance, sheet.page.pszTemplate, window.window, sheet.page.pfnDlgProc,
                       reinterpret_cast<LPARAM>(&sheet.page));
    HandlePostedMessages();
    EXPECT_EQ(window.commands, std::vector<int>{IDOK});
}

TEST_F(SummaryPage, AppliesTheUsersOwnSize)
{
    SheetCaller sheet(printer_, DM_COPY, &output_);
    const SheetWindow window(2);
    const HWND page = OpenPage(sheet, window);
    NMHDR apply = {};
    apply.code = static_cast<UINT>(-202);
    const std::tuple<int, int, int, int, int> cases[] = {
        {256, DM_COPIES, DM_COPIES | DM_PAPERWIDTH | DM_PAPERLENGTH, 1500, 2500},
        {9, DM_COPIES | DM_PAPERWIDTH | DM_PAPERLENGTH, DM_COPIES, 7, 8}};
    for (const auto& [paper, fields, newFields, width, length] : cases) {
        DriverDevMode& work = sheet.context()->dmWork;
        SetAll(work, {{"dmPaperSize", paper}, {"dmFields", fields}});
        SetAll(work, "wCustomWidth=1500 wCustomLength=2500 dmPaperWidth=7 dmPaperLength=8");
        sheet.calls.clear();
        SendMessageW(page, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&apply));
        ExpectFields(work, {{"dmFields", newFields}, {"dmPaperWidth", width}, {"dmPaperLength", length}});
        ASSERT_EQ(sheet.calls.size(), 1u);
        EXPECT_EQ(sheet.calls[0].function, 9u);
        EXPECT_EQ(sheet.calls[0].first, 0x77);
        EXPECT_EQ(sheet.calls[0].second, 1);
    }
}

TEST_F(SummaryPage, OpensAndClosesEvenlyWhateverFails)
{
    WarmModelCache(printer_.handle());
    const SheetWindow window(2);
    for (const Requests& requests : {kAllocations, kAllocationsOnwards, kCalls})
        FailEach(
            requests, [] {},
            [&] {
                SheetCaller sheet(printer_, DM_COPY, &output_);
                if (sheet.Call(kSheetInitialise) != 1)
                    return;
                const HWND page =
                    CreateDialogParamW(sheet.page.hInstance, sheet.page.pszTemplate, window.window,
                                       sheet.page.pfnDlgProc, reinterpret_cast<LPARAM>(&sheet.page));
                DestroyWindow(page);
                HandlePostedMessages();
            },
            [](bool) {});
}

TEST_F(SummaryPage, ShowsTheSettingsOrCancelsItselfWithoutMemoryForThem)
{
    SheetCaller sheet(printer_, DM_COPY, &output_);
    const SheetWindow window(2);
    const HWND page = OpenPage(sheet, window);
    const std::u16string before = Shown(page);
    EXPECT_EQ(before, SummaryOf(sheet.context()));
    sheet.context()->dmWork.dmPublic.dmCopies = 77;
    host::FailAllocations(0, true);
    SendMessageW(page, WM_INITDIALOG, 0, reinterpret_cast<LPARAM>(&sheet.page));
    host::StopFailing();
    EXPECT_EQ(Shown(page), before);
    MSG message = {};
    bool cancelled = false;
    while (PeekMessageW(&message, page, WM_COMMAND, WM_COMMAND, PM_REMOVE))
        cancelled = cancelled || LOWORD(message.wParam) == IDCANCEL;
    EXPECT_TRUE(cancelled);
}

TEST_F(SummaryPage, IsBehindThePromptOfAnApplication)
{
    const std::tuple<int, LONG, LONG, int> cases[] = {{IDOK, 1, 1, 2}, {IDCANCEL, 2, 0, 0}};
    for (const auto& [button, result, advancedResult, orientation] : cases) {
        host::SetIdleHook([button = button] {
            const HWND dialog = GetActiveWindow();
            if (!GetDlgItem(dialog, IDC_TABS))
                return false;
            PostMessageW(dialog, WM_COMMAND, button, 0);
            return true;
        });
        alignas(8) DriverDevMode input = {}, output = {};
        ASSERT_EQ(DrvDocumentProperties(nullptr, printer_.handle(), printer_.name(), &input.dmPublic, nullptr,
                                        DM_COPY),
                  1);
        input.dmPublic.dmOrientation = DMORIENT_LANDSCAPE;
        EXPECT_EQ(DrvDocumentProperties(nullptr, printer_.handle(), printer_.name(), &output.dmPublic,
                                        &input.dmPublic, DM_PROMPT | DM_COPY),
                  result);
        EXPECT_EQ(output.dmPublic.dmOrientation, orientation);
        output = {};
        EXPECT_EQ(DrvAdvancedDocumentProperties(nullptr, printer_.handle(), printer_.name(), &output.dmPublic,
                                                &input.dmPublic),
                  advancedResult);
        EXPECT_EQ(output.dmPublic.dmOrientation, orientation);
    }
}

} // namespace
