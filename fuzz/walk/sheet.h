#pragma once
// One sheet of a walk: opened through the library's own entry point, walked, closed.
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "fuzz/walk/journal.h"
#include "fuzz/walk/random.h"
#include "fuzz/walk/user.h"
#include "psui/entry/context.h"
#include "psui/entry/exports.h"
#include "tests/entry/printer.h"

namespace walk {

/// What the sheet is opened with.
struct Request
{
    const psui::DriverDevMode* input; ///< null for none
    DWORD mode;                       ///< bits of the document header beyond those of every sheet
    size_t pages;
};

struct Closing
{
    bool confirmed = false;
    psui::DriverDevMode output = {};
    /// What the main dialog showed when the user confirmed it; nothing when he left in another way.
    std::vector<std::string> shown;
};

class Sheet
{
public:
    Sheet(psui::PropSheetUiFn function, test::Printer& printer, Random& random, Journal& journal, User& user);
    ~Sheet();
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

    /// Walks until the user closes the sheet or the journal has `lastStep` steps. `expected` is what the main
    /// dialog has to show when it opens, if not null.
    Closing Walk(const Request& request, size_t lastStep, const Closing* expected);

private:
    static LONG WINAPI Forward(psui::PropSheetUiInfo* info, LPARAM param);
    static LRESULT CALLBACK WatchSheet(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    LONG Note(psui::PropSheetUiInfo* info, LPARAM param);
    bool OnIdle();
    void Check();
    void CheckFirstLook();
    void Step();
    void NoteDialog();
    bool ChangedSinceConfirmed() const;
    void TakeApplied();

    static Sheet* current_; // neither the common UI nor a window procedure hands anything of ours

    psui::PropSheetUiFn function_;
    test::Printer& printer_;
    Random& random_;
    Journal& journal_;
    User& user_;
    psui::PrinterUiContext* context_ = nullptr; ///< of the open sheet
    std::unique_ptr<psui::PrinterUiContext> applied_ = std::make_unique<psui::PrinterUiContext>();
    bool appliedKnown_ = true; ///< false once a dialog has opened unseen
    HWND dialog_ = nullptr;    ///< the main dialog as it was last seen
    HWND watched_ = nullptr;
    WNDPROC watchedProc_ = nullptr;
    size_t lastStep_ = 0;
    size_t leaving_ = 0; ///< attempts to close what is left when the steps are used up
    const Closing* expected_ = nullptr;
    Closing closing_;
    bool outputShown_ = false;           ///< the caller's record is the one that was confirmed
    psui::DriverDevMode confirmed_ = {}; ///< the record when the main dialog was confirmed
};

} // namespace walk
