#pragma once
// Dialogs with nobody in front of them: what differs between Windows and our platform layer.
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>

namespace psuictl::platform {

/// While it lives, `step` is called whenever a message loop of the calling thread has nothing to do, also in
/// dialogs that `step` made open. `step` posts messages; it returns whether it did something. One at a time.
class IdleCalls
{
public:
    explicit IdleCalls(std::function<bool()> step);
    ~IdleCalls();
    IdleCalls(const IdleCalls&) = delete;
    IdleCalls& operator=(const IdleCalls&) = delete;
};

inline constexpr unsigned kShiftHeld = 1;
inline constexpr unsigned kControlHeld = 2;
inline constexpr unsigned kAltHeld = 4;

/// Presses and releases a key (VK_ code) while the modifier keys of the bits `modifiers` are held, as a
/// keyboard does: it goes to the window with the focus.
void PressKey(int key, unsigned modifiers);

/// Lets the clock of dialogs go forward. False where it cannot be put forward and the time has to be waited
/// for.
bool PassTime(unsigned milliseconds);

/// Writes a picture of the window to a PNG file. Throws Failure.
void Shoot(HWND window, const std::string& file);

/// Whether dialogs can be shown to a user here; opens the display where one has to be opened. Throws Failure
/// when there is none.
void OpenDisplay();

/// What this process holds of the system, by kind: windows, drawing objects, memory and the like.
std::vector<std::pair<std::string, int64_t>> OpenObjects();

} // namespace psuictl::platform
