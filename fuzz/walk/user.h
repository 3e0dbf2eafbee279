#pragma once
// A user who does anything that mouse and keyboard can do, rarely what leads out of the dialog.
#include <string>

#include <windows.h>

#include "fuzz/walk/journal.h"
#include "fuzz/walk/random.h"

namespace walk {

class User
{
public:
    /// `elsewhere` is a window of another use of the thread, which the user may turn to.
    User(Random& random, Journal& journal, HWND elsewhere)
        : random_(random), journal_(journal), elsewhere_(elsewhere)
    {
    }

    /// Does one thing with the dialogs that are open; null for no dialog.
    void Act(HWND front);

    /// Closes whatever is in front, in the shortest way.
    void Leave(HWND front);

    /// Presses the dialog's OK button.
    void Confirm(HWND dialog);

    /// Whether what was done last may go on in a dialog that it opened: a second click, further letters.
    bool goesOn() const { return goesOn_; }

private:
    struct Deed;
    static const Deed kDeeds[];

    void Click();
    void ClickTwice();
    void ClickRight();
    void HoldOrRelease();
    void Drag();
    void Hover();
    void Wheel();
    void Pick();
    void Answer();
    void PressKey();
    void PressMnemonic();
    void Type();
    void HoldKeysOnBanner();
    void ClickPreview();
    void AskForHelp();
    void TurnElsewhere();
    void Close();
    void Wait();
    void Repaint();

    HWND SomeControl();
    HWND SomeOfClass(const WCHAR* name);
    bool MoveInto(HWND window);
    bool LeadsOut(HWND window) const;
    std::u16string SomeText();

    Random& random_;
    Journal& journal_;
    HWND elsewhere_;
    HWND front_ = nullptr;
    bool held_ = false; ///< the left button is down
    bool goesOn_ = false;
};

} // namespace walk
