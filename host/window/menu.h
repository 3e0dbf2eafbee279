#pragma once
// Menus as records, for those who change them and for the loop that shows them.
#include <string>

#include "host/window/room.h"

namespace host {

struct MenuItem
{
    UINT flags = 0; // MF_GRAYED, MF_DISABLED, MF_CHECKED, MF_SEPARATOR, MF_POPUP, MF_DEFAULT
    UINT id = 0;
    std::u16string text; // behind a tab stands the key that does the same
    HMENU popup = nullptr;

    bool Separates() const { return (flags & MF_SEPARATOR) != 0; }
    bool Usable() const { return !Separates() && (flags & (MF_GRAYED | MF_DISABLED)) == 0; }
};

struct Menu
{
    std::vector<MenuItem> items;
};

/// The menu behind a handle; without one null, and ERROR_INVALID_MENU_HANDLE is set.
std::shared_ptr<Menu> MenuOf(HMENU handle);

} // namespace host
