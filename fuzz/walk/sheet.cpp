#include "fuzz/walk/sheet.h"

#include <cstring>

#include <prsht.h>

#include "fuzz/walk/checks.h"
#include "fuzz/walk/screen.h"
#include "host/pace.h"
#include "lang/ids/basic_tab.h"
#include "lang/ids/main_dialog.h"
#include "tools/psuictl/sheet_run.h"

namespace walk {
namespace {

constexpr size_t kMostClosings = 200;
constexpr size_t kStepsAPainting = 8; ///< drawing takes longer than everything else together
constexpr int kRefreshes = 16;        ///< one step in so many is followed by a refresh
constexpr int kConfirms = 250;        ///< one step in so many confirms the dialog

/// The status monitor's file takes the scaling of several pages a sheet back when the record comes again.
bool IsScaledLayout(const psui::DriverDevMode& record)
{
    return record.dmPrivate.bFitToPaper != 0 && record.dmPrivate.dwPagesPerSheet != 1;
}

/// What the record alone decides.
std::vector<std::string> LastingPicture(const psui::PrinterUiContext& context)
{
    const HWND dialog = context.hMainDialog;
    return Picture(dialog, {GetDlgItem(dialog, IDC_HOVER_TIP), GetDlgItem(dialog, IDC_APPLY),
                            GetDlgItem(context.hBasicTab, IDC_COPIES)});
}

} // namespace

Sheet* Sheet::current_ = nullptr;

Sheet::Sheet(psui::PropSheetUiFn function, test::Printer& printer, Random& random, Journal& journal,
             User& user)
    : function_(function), printer_(printer), random_(random), journal_(journal), user_(user)
{
    current_ = this;
    host::SetIdleHook([this] { return OnIdle(); });
}

Sheet::~Sheet()
{
    host::SetIdleHook(nullptr);
    // What was typed last may have closed the dialogs; the rest is not for the next ones.
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
    if (OpenClipboard(nullptr)) {
        EmptyClipboard();
        CloseClipboard();
    }
    current_ = nullptr;
}

Closing Sheet::Walk(const Request& request, size_t lastStep, const Closing* expected)
{
    lastStep_ = lastStep;
    expected_ = expected;
    auto input = std::make_unique<psui::DriverDevMode>();
    psui::DocumentPropertyHeader header = {};
    header.cbSize = sizeof(header);
    header.hPrinter = printer_.handle();
    header.pszPrinterName = printer_.name();
    if (request.input) {
        *input = *request.input;
        header.pdmIn = &input->dmPublic;
    }
    header.pdmOut = &closing_.output.dmPublic;
    header.fMode = DM_PROMPT | DM_COPY | request.mode;
    psuictl::CommonSheet sheet(Forward, reinterpret_cast<LPARAM>(&header), request.pages);
    const psuictl::SheetRun run = sheet.Run();
    if (run.answer <= 0)
        journal_.Fail("the sheet does not open: " + std::to_string(run.answer));
    closing_.confirmed = run.result != 0;
    if (!outputShown_) // what was applied before counts, and not what was confirmed and then left
        closing_.shown.clear();
    return closing_;
}

LONG WINAPI Sheet::Forward(psui::PropSheetUiInfo* info, LPARAM param)
{
    return current_->Note(info, param);
}

LONG Sheet::Note(psui::PropSheetUiInfo* info, LPARAM param)
{
    if (info->Reason == psui::kSheetSetResult && context_)
        outputShown_ = !closing_.shown.empty() && !ChangedSinceConfirmed();
    const LONG answer = function_(info, param);
    context_ = reinterpret_cast<psui::PrinterUiContext*>(info->UserData);
    if (info->Reason == psui::kSheetInitialise && context_)
        TakeApplied();
    return answer;
}

/// One step may open the dialog again from the same sheet and change the record. The page itself stores the
/// user-defined size when it applies.
bool Sheet::ChangedSinceConfirmed() const
{
    psui::DriverDevMode now = context_->dmWork;
    now.dmPublic.dmFields = confirmed_.dmPublic.dmFields;
    now.dmPublic.dmPaperLength = confirmed_.dmPublic.dmPaperLength;
    now.dmPublic.dmPaperWidth = confirmed_.dmPublic.dmPaperWidth;
    return std::memcmp(&now, &confirmed_, sizeof(now)) != 0;
}

LRESULT CALLBACK Sheet::WatchSheet(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    Sheet& sheet = *current_;
    if (message == PSM_APPLY && sheet.context_)
        sheet.TakeApplied();
    return CallWindowProcW(sheet.watchedProc_, window, message, wParam, lParam);
}

/// One step may close the dialog and open the next, which takes its settings for applied ones.
void Sheet::NoteDialog()
{
    const HWND dialog = context_ ? context_->hMainDialog : nullptr;
    if (context_ && !dialog)
        TakeApplied();
    else if (dialog_ && dialog != dialog_)
        appliedKnown_ = false;
    dialog_ = dialog;
}

void Sheet::TakeApplied()
{
    appliedKnown_ = true;
    *applied_ = *context_;
}

bool Sheet::OnIdle()
{
    const HWND front = FrontDialog();
    if (!front && OpenPopup() &&
        ++leaving_ <= kMostClosings) { // a menu outlives the dialog that it belongs to
        host::PressKey(VK_ESCAPE);
        return true;
    }
    if (!front)
        journal_.Fail("no dialog can be used, but one waits");
    const HWND sheet = context_ && context_->hSummaryPage ? GetParent(context_->hSummaryPage) : nullptr;
    if (sheet && sheet != watched_) {
        watched_ = sheet;
        watchedProc_ = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
            sheet, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>(WatchSheet))));
    }
    Check();
    Step();
    return true;
}

void Sheet::Check()
{
    std::string wrong = CheckTitles();
    NoteDialog();
    if (expected_ && context_ && context_->hMainDialog && user_.goesOn())
        expected_ = nullptr; // already used
    if (context_ && context_->hMainDialog && FrontDialog() == context_->hMainDialog && !OpenPopup()) {
        CheckFirstLook();
        wrong += CheckRecord(*context_) + CheckControls(*context_, appliedKnown_ ? applied_.get() : nullptr);
        if (wrong.empty() && random_.OneIn(kRefreshes))
            wrong += CheckRefresh(*context_);
    }
    if (!wrong.empty())
        journal_.Fail(wrong);
}

void Sheet::CheckFirstLook()
{
    if (!expected_)
        return;
    const std::string changes = PictureChanges(expected_->shown, LastingPicture(*context_));
    if (!changes.empty())
        journal_.Fail("opened again with the record that came back, the dialog shows something else:\n" +
                      changes);
    expected_ = nullptr;
}

void Sheet::Step()
{
    const HWND front = FrontDialog();
    if (journal_.step() >= lastStep_) {
        if (++leaving_ > kMostClosings)
            journal_.Fail("the dialogs do not close");
        // The system's help is loaded with its first use and stays.
        if (leaving_ == 1)
            SendMessageW(front, WM_COMMAND, IDHELP, 0);
        return user_.Leave(front);
    }
    journal_.BeginStep();
    host::HoldPainting(journal_.step() % kStepsAPainting != 0);
    const bool isMain = context_ && front == context_->hMainDialog;
    if (isMain)
        closing_.shown.clear(); // confirmed, but opened again from the same sheet
    if (isMain && context_->bPermission == 1 && !OpenPopup() && random_.OneIn(kConfirms)) {
        if (!IsScaledLayout(context_->dmWork) && KeepsQuality(*context_))
            closing_.shown = LastingPicture(*context_);
        confirmed_ = context_->dmWork;
        outputShown_ = false;
        return user_.Confirm(front);
    }
    user_.Act(front);
}

} // namespace walk
