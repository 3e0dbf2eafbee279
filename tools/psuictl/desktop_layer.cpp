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

struct Kind
{
    const char* name;
    int64_t host::Ledger::*count;
};

constexpr Kind kKinds[] = {
    {"files", &host::Ledger::files},
    {"finds", &host::Ledger::finds},
    {"mappings", &host::Ledger::mappings},
    {"heaps", &host::Ledger::heaps},
    {"blocks", &host::Ledger::blocks},
    {"bytes", &host::Ledger::bytes},
    {"modules", &host::Ledger::modules},
    {"criticalSections", &host::Ledger::criticalSections},
    {"keys", &host::Ledger::keys},
    {"printers", &host::Ledger::printers},
    {"deviceContexts", &host::Ledger::deviceContexts},
    {"bitmaps", &host::Ledger::bitmaps},
    {"brushes", &host::Ledger::brushes},
    {"fonts", &host::Ledger::fonts},
    {"icons", &host::Ledger::icons},
    {"palettes", &host::Ledger::palettes},
    {"pens", &host::Ledger::pens},
    {"regions", &host::Ledger::regions},
    {"windows", &host::Ledger::windows},
    {"classes", &host::Ledger::classes},
    {"menus", &host::Ledger::menus},
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

std::vector<std::pair<std::string, int64_t>> OpenObjects()
{
    const host::Ledger ledger = host::OpenObjects();
    std::vector<std::pair<std::string, int64_t>> objects;
    for (const Kind& kind : kKinds)
        objects.emplace_back(kind.name, ledger.*kind.count);
    return objects;
}

void OpenDisplay()
{
    if (!host::OpenDisplay())
        throw Failure("there is no display to show dialogs on; set DISPLAY or give --scenario");
}

} // namespace psuictl::platform
