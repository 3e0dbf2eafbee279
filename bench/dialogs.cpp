// How long a user waits for what he sees: from a press to the picture that is complete. A picture is complete
// when the queue of messages is empty, for then everything that was marked for painting is painted. Times are
// those of the thread on the processor, which the clock shows too where nothing else runs. The library's own
// share is known by the clock alone, so the run that was disturbed least tells it.
#include <cstdio>
#include <ctime>
#include <deque>
#include <functional>
#include <map>

#include "bench/bench.h"
#include "lang/ids/basic_tab.h"
#include "lang/ids/main_dialog.h"
#include "lang/ids/summary.h"
#include "psui/base/procedure.h"
#include "psui/entry/exports.h"
#include "tools/psuictl/sheet_run.h"

namespace bench {

namespace {

struct List
{
    int control;
    const char* name;
};

constexpr List kLists[] = {
    {IDC_MEDIA, "IDC_MEDIA"},   {IDC_QUALITY, "IDC_QUALITY"},       {IDC_PAPER, "IDC_PAPER"},
    {IDC_LAYOUT, "IDC_LAYOUT"}, {IDC_PAGE_ORDER, "IDC_PAGE_ORDER"}, {IDC_BORDER_LINE, "IDC_BORDER_LINE"},
    {IDC_SOURCE, "IDC_SOURCE"},
};

constexpr double kMicrosecondsOfMillisecond = 1000;

/// Times of what was done again and again, in milliseconds.
struct Waits
{
    std::vector<double> whole;
    std::vector<double> own; ///< of the library, without the platform

    double Median() const
    {
        std::vector<double> sorted = whole;
        std::nth_element(sorted.begin(), sorted.begin() + sorted.size() / 2, sorted.end());
        return sorted.empty() ? 0 : sorted[sorted.size() / 2];
    }
    double Most() const { return whole.empty() ? 0 : *std::max_element(whole.begin(), whole.end()); }
    double Own() const { return own.empty() ? 0 : *std::min_element(own.begin(), own.end()); }
};

/// A user who acts whenever the dialogs wait for him, one step after another, and takes the time of each.
class User
{
public:
    explicit User(double profileCost) : profileCost_(profileCost)
    {
        host::SetIdleHook([this] { return TakeTurn(); });
    }
    ~User() { host::SetIdleHook(nullptr); }
    User(const User&) = delete;
    User& operator=(const User&) = delete;

    /// Does `step` when the steps before it are done, and adds its time to `waits`, unless that is null.
    void Then(Waits* waits, std::function<void()> step) { steps_.push_back({waits, std::move(step)}); }

    /// Starts the time of something that is done outside of the steps.
    void Start(Waits* waits)
    {
        waits_ = waits;
        host::StartProfile();
        start_ = Clock::now();
        startOnProcessor_ = ProcessorTime();
    }

private:
    using Clock = std::chrono::steady_clock;

    struct Step
    {
        Waits* waits;
        std::function<void()> act;
    };

    /// Microseconds that this thread has run.
    static double ProcessorTime()
    {
        timespec time;
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
    }

    bool TakeTurn()
    {
        const double processor = ProcessorTime() - startOnProcessor_;
        const Clock::time_point end = Clock::now();
        const host::Profile profile = host::StopProfile();
        if (waits_) {
            const double whole = std::chrono::duration<double, std::micro>(end - start_).count();
            const double platform = static_cast<double>(profile.nanoseconds) / 1000;
            const double counting = static_cast<double>(CallsOf(profile)) * profileCost_;
            waits_->whole.push_back((processor - counting) / kMicrosecondsOfMillisecond);
            waits_->own.push_back((whole - counting - platform) / kMicrosecondsOfMillisecond);
        }
        const bool more = !steps_.empty();
        const Step step = more ? std::move(steps_.front()) : Step{nullptr, [] {}};
        if (more)
            steps_.pop_front();
        Start(step.waits);
        step.act();
        return more;
    }

    double profileCost_;
    std::deque<Step> steps_;
    Waits* waits_ = nullptr;
    Clock::time_point start_;
    double startOnProcessor_ = 0;
};

/// The control of that id in a window or in one of its pages.
HWND Find(HWND window, int control)
{
    struct Search
    {
        int control;
        HWND found;
    } search = {control, nullptr};
    EnumChildWindows(
        window,
        [](HWND child, LPARAM data) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(data);
            if (GetDlgCtrlID(child) == wanted.control && IsWindowVisible(child))
                wanted.found = child;
            return wanted.found == nullptr;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

void Press(int button)
{
    PostMessageW(Find(GetActiveWindow(), button), BM_CLICK, 0, 0);
}

/// The user's choice of an entry, as the list tells its dialog.
void Choose(HWND list, LRESULT entry)
{
    SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
    PostMessageW(GetParent(list), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(list), CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(list));
}

void ChooseNext(int control)
{
    const HWND list = Find(GetActiveWindow(), control);
    const LRESULT count = SendMessageW(list, CB_GETCOUNT, 0, 0);
    if (!list || count < 2 || !IsWindowEnabled(list))
        std::printf("  list %d cannot be changed\n", control);
    else
        Choose(list, (SendMessageW(list, CB_GETCURSEL, 0, 0) + 1) % count);
}

/// The lists of page order and border line can be used with several pages on a sheet alone.
void ChooseSeveralPages()
{
    constexpr LRESULT kFourPages = 2;
    if (const HWND list = Find(GetActiveWindow(), IDC_LAYOUT))
        Choose(list, kFourPages);
}

/// Answers the message that a choice may have raised: its time is none of the list's.
void AnswerMessage()
{
    const HWND active = GetActiveWindow();
    if (Find(active, IDC_TABS))
        return;
    for (const int answer : {IDOK, IDYES})
        if (const HWND button = GetDlgItem(active, answer)) {
            PostMessageW(button, BM_CLICK, 0, 0);
            return;
        }
}

void PrintWaits(const char* what, const Waits& waits, double wanted, double wantedOwn)
{
    PrintFigure(what, waits.Median(), "ms", wanted, false);
    if (wantedOwn > 0)
        PrintFigure("  the library's own work of it", waits.Own(), "ms", wantedOwn, false);
}

void PrintLists(const std::map<std::string, Waits>& lists)
{
    const auto slowest = std::max_element(lists.begin(), lists.end(), [](const auto& one, const auto& other) {
        return one.second.Median() < other.second.Median();
    });
    for (const auto& [name, waits] : lists)
        std::printf("  %-16s %.2f ms, at most %.2f, of which own %.3f\n", name.c_str(), waits.Median(),
                    waits.Most(), waits.Own());
    PrintWaits(("the slowest list, " + slowest->first + ", to its repaint").c_str(), slowest->second, 4, 0);
}

} // namespace

void BenchDialogs(const Settings& settings)
{
    std::printf("Dialogs: from a press to the complete picture\n");
    const Stage stage(settings);
    const auto sheet =
        psui::FindProcedure<psui::DrvDocumentPropertySheetsFn>(stage.library, "DrvDocumentPropertySheets");
    if (!stage.printer || !sheet)
        return;
    constexpr size_t kPages = 2; // with one page alone the main dialog opens by itself
    const int openings = settings.quick ? 5 : 25, changes = settings.quick ? 8 : 40;
    std::u16string name = TEXT("Bench");
    psui::DocumentPropertyHeader header = {};
    header.cbSize = sizeof(header);
    header.hPrinter = stage.printer;
    header.pszPrinterName = name.data();
    Waits sheets, dialogs;
    std::map<std::string, Waits> lists;
    for (int opening = 0; opening <= openings; ++opening) {
        User user(stage.profileCost);
        bool opened = false;
        user.Then(&dialogs, [] { Press(IDC_SETTINGS); });
        user.Then(nullptr, [&] { opened = Find(GetActiveWindow(), IDC_TABS) != nullptr; });
        for (const List& list : kLists) {
            if (opening < openings)
                break;
            if (list.control == IDC_PAGE_ORDER)
                user.Then(nullptr, ChooseSeveralPages);
            for (int change = 0; change < changes; ++change) {
                user.Then(&lists[list.name], [&] { ChooseNext(list.control); });
                for (int i = 0; i < 2; ++i)
                    user.Then(nullptr, AnswerMessage);
            }
        }
        for (int i = 0; i < 2; ++i)
            user.Then(nullptr, [] { Press(IDCANCEL); });
        user.Start(&sheets);
        const psuictl::SheetRun run =
            psuictl::CommonSheet(sheet, reinterpret_cast<LPARAM>(&header), kPages).Run();
        host::StopProfile();
        if (run.answer < 0 || !opened) {
            std::printf("  no dialog (answer %d)\n", static_cast<int>(run.answer));
            return;
        }
    }
    PrintWaits("the document sheet", sheets, 20, 2);
    PrintWaits("the main dialog", dialogs, 40, 5);
    PrintLists(lists);
}

} // namespace bench
