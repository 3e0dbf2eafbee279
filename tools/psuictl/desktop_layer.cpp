#include "tools/psuictl/desktop.h"

#include <utility>

#include "host/host.h"
#include "tools/psuictl/failure.h"

namespace psuictl::platform {
namespace {

struct ModifierKey
{
    unsigned flag;
    unsigned key;
};

constexpr ModifierKey kModifierKeys[] = {
    {kShiftHeld, VK_SHIFT},
    {kControlHeld, VK_CONTROL},
    {kAltHeld, VK_MENU},
};

} // namespace

IdleCalls::IdleCalls(std::function<bool()> step)
{
    host::SetIdleHook(std::move(step));
}

IdleCalls::~IdleCalls()
{
    host::SetIdleHook(nullptr);
}

void PressKey(int key, unsigned modifiers)
{
    for (const ModifierKey& each : kModifierKeys) {
        if (modifiers & each.flag)
            host::PressKeyDown(each.key);
    }
    host::PressKey(static_cast<unsigned>(key));
    for (const ModifierKey& each : kModifierKeys) {
        if (modifiers & each.flag)
            host::ReleaseKey(each.key);
    }
}

bool PassTime(unsigned milliseconds)
{
    host::AdvanceTime(milliseconds);
    return true;
}

void Shoot(HWND window, const std::string& file)
{
    if (!host::ShootWindow(window, file))
        throw Failure("the picture '" + file + "' cannot be written; check its folder");
}

void OpenDisplay()
{
    if (!host::OpenDisplay())
        throw Failure("there is no display to show dialogs on; set DISPLAY or give --scenario");
}

} // namespace psuictl::platform
