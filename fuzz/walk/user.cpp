#include "fuzz/walk/user.h"

#include <algorithm>
#include <iterator>
#include <numeric>

#include "fuzz/walk/screen.h"
#include "host/host.h"
#include "lang/ids/main_dialog.h"

namespace walk {
namespace {

constexpr int kWaysOut = 12; ///< one in so many is taken
constexpr unsigned kModifiers[] = {VK_SHIFT, VK_CONTROL, VK_MENU};
constexpr unsigned kKeys[] = {
    VK_TAB,    VK_TAB,    VK_TAB,    VK_UP,    VK_DOWN, VK_DOWN,  VK_LEFT,
    VK_RIGHT,  VK_HOME,   VK_END,    VK_PRIOR, VK_NEXT, VK_SPACE, VK_BACK,
    VK_DELETE, VK_RETURN, VK_ESCAPE, VK_F1,    VK_F4,   VK_F10,   VK_INSERT,
};

bool IsWayOut(unsigned key)
{
    return key == VK_RETURN || key == VK_ESCAPE;
}

std::string Numbers(POINT place)
{
    return std::to_string(place.x) + "," + std::to_string(place.y);
}

} // namespace

struct User::Deed
{
    int weight;
    void (User::*act)();
};

const User::Deed User::kDeeds[] = {
    {34, &User::Click},        {2, &User::ClickTwice}, {2, &User::ClickRight},
    {3, &User::HoldOrRelease}, {3, &User::Drag},       {6, &User::Hover},
    {3, &User::Wheel},         {24, &User::Pick},      {26, &User::PressKey},
    {5, &User::PressMnemonic}, {9, &User::Type},       {1, &User::HoldKeysOnBanner},
    {4, &User::ClickPreview},  {2, &User::AskForHelp}, {2, &User::TurnElsewhere},
    {1, &User::Close},         {6, &User::Wait},       {2, &User::Repaint},
};

void User::Act(HWND front)
{
    front_ = front;
    goesOn_ = false;
    if (IsMessageBox(front) && !random_.OneIn(3))
        return Answer();
    const int all = std::accumulate(std::begin(kDeeds), std::end(kDeeds), 0,
                                    [](int sum, const Deed& deed) { return sum + deed.weight; });
    int left = random_.Below(all);
    const Deed* deed = kDeeds;
    while (left >= deed->weight)
        left -= deed++->weight;
    (this->*deed->act)();
    // Mostly slower than a double click, sometimes long enough for every timer.
    host::AdvanceTime(static_cast<unsigned>(random_.OneIn(8) ? random_.Below(1500) : random_.Below(300)));
}

void User::Leave(HWND front)
{
    if (held_) {
        host::ReleaseMouse(host::MouseButton::Left);
        held_ = false;
    }
    if (OpenPopup())
        host::PressKey(VK_ESCAPE);
    else if (IsMessageBox(front))
        host::PressKey(VK_RETURN);
    else
        PostMessageW(front, WM_CLOSE, 0, 0);
}

void User::Confirm(HWND dialog)
{
    journal_.Note("confirm");
    SendDlgItemMessageW(dialog, IDOK, BM_CLICK, 0, 0);
}

bool User::LeadsOut(HWND window) const
{
    const int id = GetDlgCtrlID(window);
    return GetParent(window) == front_ && (id == IDOK || id == IDCANCEL) && !IsMessageBox(front_);
}

HWND User::SomeControl()
{
    if (const HWND popup = OpenPopup(); popup && !random_.OneIn(6))
        return popup;
    const std::vector<HWND> controls = VisibleInside(front_);
    if (controls.empty())
        return front_;
    for (int tries = 0; tries < 4; ++tries) {
        const HWND control = random_.Pick(controls);
        const bool chosen = IsWindowEnabled(control) || random_.OneIn(10);
        if (chosen && (!LeadsOut(control) || random_.OneIn(kWaysOut)))
            return control;
    }
    return front_;
}

HWND User::SomeOfClass(const WCHAR* name)
{
    std::vector<HWND> controls = VisibleInside(front_);
    std::erase_if(controls, [=](HWND each) { return !IsWindowEnabled(each) || !IsOfClass(each, name); });
    return controls.empty() ? nullptr : random_.Pick(controls);
}

/// The pointer goes to any place of the window. False when the window has none.
bool User::MoveInto(HWND window)
{
    RECT box = {};
    if (!GetWindowRect(window, &box) || box.right <= box.left || box.bottom <= box.top)
        return false;
    const POINT place = {random_.Between(box.left, box.right - 1), random_.Between(box.top, box.bottom - 1)};
    host::MoveMouse(place.x, place.y);
    journal_.Note("point at " + NameOf(window) + " at " + Numbers({place.x - box.left, place.y - box.top}));
    return true;
}

void User::Click()
{
    if (!MoveInto(SomeControl()))
        return;
    journal_.Note("click");
    host::PressMouse(host::MouseButton::Left);
    host::ReleaseMouse(host::MouseButton::Left);
    held_ = false;
}

void User::ClickTwice()
{
    Click();
    goesOn_ = true;
    journal_.Note("click again");
    host::PressMouse(host::MouseButton::Left);
    host::ReleaseMouse(host::MouseButton::Left);
}

void User::ClickRight()
{
    if (!MoveInto(SomeControl()))
        return;
    journal_.Note("click right");
    host::PressMouse(host::MouseButton::Right);
    host::ReleaseMouse(host::MouseButton::Right);
}

void User::HoldOrRelease()
{
    if (!MoveInto(SomeControl()))
        return;
    journal_.Note(held_ ? "release" : "hold");
    if (held_)
        host::ReleaseMouse(host::MouseButton::Left);
    else
        host::PressMouse(host::MouseButton::Left);
    held_ = !held_;
}

void User::Drag()
{
    const HWND from = SomeControl();
    if (!MoveInto(from))
        return;
    journal_.Note("drag");
    host::PressMouse(host::MouseButton::Left);
    MoveInto(random_.OneIn(2) ? from : SomeControl());
    host::ReleaseMouse(host::MouseButton::Left);
    held_ = false;
}

void User::Hover()
{
    MoveInto(random_.OneIn(4) ? GetDlgItem(front_, IDC_WEB_LINK) : SomeControl());
}

void User::Wheel()
{
    const int notches = random_.Between(-3, 3);
    journal_.Note("wheel " + std::to_string(notches));
    host::TurnMouseWheel(notches);
}

/// Drops a list and clicks an entry, or browses a closed one with the keyboard.
void User::Pick()
{
    const HWND popup = OpenPopup();
    if (popup) {
        if (!MoveInto(popup))
            return;
        journal_.Note("pick");
        host::PressMouse(host::MouseButton::Left);
        host::ReleaseMouse(host::MouseButton::Left);
        return;
    }
    const HWND list = SomeOfClass(TEXT("ComboBox"));
    if (!list)
        return;
    if (random_.OneIn(2)) {
        if (!MoveInto(list))
            return;
        journal_.Note("drop");
        host::PressMouse(host::MouseButton::Left);
        host::ReleaseMouse(host::MouseButton::Left);
        return;
    }
    journal_.Note("browse " + NameOf(list));
    SetFocus(list);
    constexpr unsigned kBrowsing[] = {VK_UP, VK_DOWN, VK_DOWN, VK_HOME, VK_END, VK_NEXT, VK_PRIOR, VK_F4};
    for (int times = random_.Between(1, 4); times > 0; --times)
        host::PressKey(random_.Pick(kBrowsing));
}

void User::Answer()
{
    const HWND button = SomeOfClass(TEXT("Button"));
    journal_.Note("answer \"" + TextOf(front_) + "\" by " + (button ? NameOf(button) : "Enter"));
    if (button && !random_.OneIn(3)) {
        SendMessageW(button, BM_CLICK, 0, 0);
        return;
    }
    host::PressKey(random_.OneIn(3) ? VK_ESCAPE : VK_RETURN);
}

void User::PressKey()
{
    unsigned key = random_.Pick(kKeys);
    if (random_.OneIn(4))
        key = static_cast<unsigned>(random_.OneIn(2) ? 'A' + random_.Below(26) : '0' + random_.Below(10));
    const unsigned modifier = random_.Pick(kModifiers);
    const bool modified = random_.OneIn(6);
    const bool closes = modified && modifier == VK_MENU && key == VK_F4;
    if ((IsWayOut(key) || closes) && !OpenPopup() && !random_.OneIn(kWaysOut))
        return;
    journal_.Note("key " + std::to_string(key) + (modified ? " with " + std::to_string(modifier) : ""));
    if (modified)
        host::PressKeyDown(modifier);
    host::PressKey(key);
    if (modified)
        host::ReleaseKey(modifier);
}

/// With Alt, and a letter that one of the dialog's texts has.
void User::PressMnemonic()
{
    const std::string text = TextOf(SomeControl());
    const size_t mark = text.find('&');
    if (mark == std::string::npos || mark + 1 >= text.size())
        return;
    const char letter = text[mark + 1];
    const bool key = (letter >= 'A' && letter <= 'Z') || (letter >= '0' && letter <= '9');
    const bool small = letter >= 'a' && letter <= 'z';
    if (!key && !small)
        return;
    journal_.Note(std::string("mnemonic ") + letter);
    host::PressKeyDown(VK_MENU);
    host::PressKey(static_cast<unsigned>(small ? letter - 'a' + 'A' : letter));
    host::ReleaseKey(VK_MENU);
}

std::u16string User::SomeText()
{
    // Digits first; then what a number may hold, letters, half a pair, and keys that are characters.
    static constexpr char16_t kUnits[] = u"0123456789 -+.,xA\u00E9\u7528\xD83D\b\t";
    constexpr int kDigits = 10;
    constexpr int kAll = static_cast<int>(std::size(kUnits)) - 1;
    std::u16string text;
    const bool digits = !random_.OneIn(4);
    for (int length = random_.OneIn(10) ? 300 : random_.Between(1, 5); length > 0; --length)
        text += kUnits[random_.Below(digits ? kDigits : kAll)];
    return text;
}

void User::Type()
{
    goesOn_ = true;
    const std::u16string text = SomeText();
    const HWND edit = SomeOfClass(TEXT("Edit"));
    const bool into = edit && !random_.OneIn(4);
    journal_.Note("type " + std::to_string(text.size()) + " units into " +
                  (into ? NameOf(edit) : "the focus"));
    if (into) {
        SetFocus(edit);
        const int from = random_.Between(-1, 3);
        SendMessageW(edit, EM_SETSEL, static_cast<WPARAM>(from), random_.Between(-1, 4));
    }
    host::TypeText(text);
}

/// A double click on the banner with everything held that it asks for, and more.
void User::HoldKeysOnBanner()
{
    const HWND banner = GetDlgItem(front_, IDC_BANNER);
    if (!banner || !MoveInto(banner))
        return;
    constexpr unsigned kHidden[] = {'D', 'R'};
    const unsigned key = random_.Pick(kHidden);
    journal_.Note("hidden key " + std::to_string(key));
    for (const unsigned each : {unsigned{VK_SHIFT}, unsigned{VK_CONTROL}, key})
        host::PressKeyDown(each);
    for (int clicks = 0; clicks < 2; ++clicks) {
        host::PressMouse(host::MouseButton::Left);
        host::ReleaseMouse(host::MouseButton::Left);
    }
    for (const unsigned each : {key, unsigned{VK_CONTROL}, unsigned{VK_SHIFT}})
        host::ReleaseKey(each);
    held_ = false;
}

void User::ClickPreview()
{
    const HWND preview = GetDlgItem(front_, IDC_PREVIEW);
    if (!preview || !MoveInto(preview))
        return;
    journal_.Note("click the preview");
    host::PressMouse(host::MouseButton::Left);
    host::ReleaseMouse(host::MouseButton::Left);
    held_ = false;
}

void User::AskForHelp()
{
    journal_.Note("title bar's help");
    PostMessageW(front_, WM_SYSCOMMAND, SC_CONTEXTHELP, 0);
}

void User::TurnElsewhere()
{
    const bool away = GetActiveWindow() != elsewhere_;
    journal_.Note(away ? "turn elsewhere" : "come back");
    SetActiveWindow(away ? elsewhere_ : front_);
}

void User::Close()
{
    if (!random_.OneIn(3))
        return;
    journal_.Note("close " + NameOf(front_));
    PostMessageW(front_, WM_CLOSE, 0, 0);
}

void User::Wait()
{
    const int passed = random_.Between(10, 2000);
    journal_.Note("wait " + std::to_string(passed));
    host::AdvanceTime(static_cast<unsigned>(passed));
}

void User::Repaint()
{
    journal_.Note("repaint");
    RedrawWindow(front_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

} // namespace walk
