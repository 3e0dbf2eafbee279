// Menus: made by programs or loaded from their resources.
#include "host/window/menu.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <span>

namespace host {
namespace {

constexpr UINT kStates = MF_GRAYED | MF_DISABLED | MF_CHECKED;
constexpr UINT kNotFound = 0xFFFFFFFF;
constexpr uintptr_t kFirstHandle = 0x20001;

std::recursive_mutex menuLock;
std::map<HMENU, std::shared_ptr<Menu>> menus;
uintptr_t nextHandle = kFirstHandle;

HMENU AddMenu(Menu menu)
{
    std::lock_guard lock(menuLock);
    const HMENU handle = reinterpret_cast<HMENU>(nextHandle++);
    menus[handle] = std::make_shared<Menu>(std::move(menu));
    CountOpen(&Ledger::menus, 1);
    return handle;
}

bool Destroy(HMENU handle)
{
    std::lock_guard lock(menuLock);
    const auto found = menus.extract(handle);
    if (found.empty())
        return false;
    CountOpen(&Ledger::menus, -1);
    for (const MenuItem& item : found.mapped()->items) {
        if (item.popup != nullptr)
            Destroy(item.popup);
    }
    return true;
}

struct Found
{
    std::shared_ptr<Menu> menu;
    size_t place = 0;

    explicit operator bool() const { return menu != nullptr; }
    MenuItem& Item() const { return menu->items[place]; }
};

/// An item by its place, or by its number in the menu or in one that opens from it.
Found FindItem(HMENU handle, UINT item, UINT flags)
{
    const std::shared_ptr<Menu> menu = MenuOf(handle);
    if (menu == nullptr)
        return {};
    if ((flags & MF_BYPOSITION) != 0)
        return item < menu->items.size() ? Found{menu, item} : Found{};
    for (size_t i = 0; i < menu->items.size(); ++i) {
        const MenuItem& each = menu->items[i];
        if (each.popup == nullptr && !each.Separates() && each.id == item)
            return {menu, i};
        if (each.popup != nullptr) {
            if (const Found inside = FindItem(each.popup, item, flags))
                return inside;
        }
    }
    return {};
}

MenuItem MakeItem(UINT flags, UINT_PTR id, LPCWSTR text)
{
    MenuItem item;
    item.flags = flags & (kStates | MF_SEPARATOR | MF_POPUP | MF_DEFAULT);
    if ((flags & MF_POPUP) != 0)
        item.popup = reinterpret_cast<HMENU>(id);
    else
        item.id = static_cast<UINT>(id);
    if (text != nullptr && !item.Separates())
        item.text = text;
    return item;
}

/// Reads the items of one menu; everything behind a cut is left out.
class TemplateReader
{
public:
    explicit TemplateReader(std::span<const std::byte> bytes) : bytes_(bytes) {}

    WORD Number()
    {
        WORD value = 0;
        if (bytes_.size() < sizeof value) {
            failed_ = true;
            return 0;
        }
        std::memcpy(&value, bytes_.data(), sizeof value);
        bytes_ = bytes_.subspan(sizeof value);
        return value;
    }

    void Skip(size_t count) { bytes_ = bytes_.subspan(std::min(count, bytes_.size())); }

    Menu Items(int depth)
    {
        constexpr int kDeepest = 16;
        Menu menu;
        for (bool last = depth > kDeepest; !last && !failed_;) {
            const WORD flags = Number();
            last = (flags & MF_END) != 0;
            MenuItem item;
            item.flags = flags & (kStates | MF_SEPARATOR | MF_POPUP);
            if ((flags & MF_POPUP) == 0)
                item.id = Number();
            for (char16_t unit = Number(); unit != 0; unit = Number())
                item.text += unit;
            if (item.id == 0 && item.text.empty() && (flags & MF_POPUP) == 0)
                item.flags |= MF_SEPARATOR;
            if (failed_)
                break;
            if ((flags & MF_POPUP) != 0)
                item.popup = AddMenu(Items(depth + 1));
            menu.items.push_back(std::move(item));
        }
        return menu;
    }

private:
    std::span<const std::byte> bytes_;
    bool failed_ = false;
};

} // namespace

std::shared_ptr<Menu> MenuOf(HMENU handle)
{
    std::lock_guard lock(menuLock);
    const auto found = menus.find(handle);
    if (found == menus.end()) {
        SetLastError(ERROR_INVALID_MENU_HANDLE);
        return nullptr;
    }
    return found->second;
}

void CloseMenus()
{
    std::lock_guard lock(menuLock);
    CountOpen(&Ledger::menus, -static_cast<int64_t>(menus.size()));
    menus.clear();
    nextHandle = kFirstHandle;
}

} // namespace host

using namespace host;

HMENU WINAPI LoadMenuW(HINSTANCE instance, LPCWSTR name)
{
    HOST_CALL(LoadMenuW, nullptr, ERROR_RESOURCE_NAME_NOT_FOUND);
    const HRSRC resource = FindResourceW(instance, name, RT_MENU);
    if (resource == nullptr)
        return nullptr;
    const auto* const bytes = static_cast<const std::byte*>(LockResource(LoadResource(instance, resource)));
    TemplateReader reader({bytes, SizeofResource(instance, resource)});
    if (reader.Number() != 0) { // the extended format
        SetLastError(ERROR_INVALID_DATA);
        return nullptr;
    }
    reader.Skip(reader.Number());
    return AddMenu(reader.Items(0));
}

HMENU WINAPI CreateMenu(void)
{
    HOST_CALL(CreateMenu, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    return AddMenu({});
}

HMENU WINAPI CreatePopupMenu(void)
{
    HOST_CALL(CreatePopupMenu, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    return AddMenu({});
}

BOOL WINAPI DestroyMenu(HMENU menu)
{
    HOST_CALL_VOID(DestroyMenu);
    return Destroy(menu) || FailWith(ERROR_INVALID_MENU_HANDLE);
}

BOOL WINAPI IsMenu(HMENU menu)
{
    HOST_CALL_VOID(IsMenu);
    return MenuOf(menu) != nullptr;
}

HMENU WINAPI GetSubMenu(HMENU menu, int position)
{
    HOST_CALL_VOID(GetSubMenu);
    const Found found = FindItem(menu, static_cast<UINT>(position), MF_BYPOSITION);
    return found ? found.Item().popup : nullptr;
}

int WINAPI GetMenuItemCount(HMENU menu)
{
    HOST_CALL_VOID(GetMenuItemCount);
    const std::shared_ptr<Menu> found = MenuOf(menu);
    return found != nullptr ? static_cast<int>(found->items.size()) : -1;
}

UINT WINAPI GetMenuItemID(HMENU menu, int position)
{
    HOST_CALL_VOID(GetMenuItemID);
    const Found found = FindItem(menu, static_cast<UINT>(position), MF_BYPOSITION);
    return found && found.Item().popup == nullptr ? found.Item().id : kNotFound;
}

UINT WINAPI GetMenuState(HMENU menu, UINT item, UINT flags)
{
    HOST_CALL_VOID(GetMenuState);
    const Found found = FindItem(menu, item, flags);
    if (!found)
        return kNotFound;
    const MenuItem& each = found.Item();
    if (each.popup == nullptr)
        return each.flags;
    const std::shared_ptr<Menu> popup = MenuOf(each.popup);
    const auto count = static_cast<UINT>(popup != nullptr ? popup->items.size() : 0);
    return (each.flags & 0xFF) | (count << 8);
}

int WINAPI GetMenuStringW(HMENU menu, UINT item, LPWSTR text, int size, UINT flags)
{
    HOST_CALL(GetMenuStringW, 0, ERROR_MENU_ITEM_NOT_FOUND);
    const Found found = FindItem(menu, item, flags);
    if (!found)
        return FailWith(ERROR_MENU_ITEM_NOT_FOUND);
    const std::u16string& all = found.Item().text;
    if (text == nullptr || size <= 0)
        return static_cast<int>(all.size());
    lstrcpynW(text, all.c_str(), size);
    return lstrlenW(text);
}

BOOL WINAPI AppendMenuW(HMENU menu, UINT flags, UINT_PTR item, LPCWSTR text)
{
    HOST_CALL(AppendMenuW, FALSE, ERROR_NOT_ENOUGH_MEMORY);
    const std::shared_ptr<Menu> found = MenuOf(menu);
    if (found == nullptr)
        return FALSE;
    found->items.push_back(MakeItem(flags, item, text));
    return TRUE;
}

BOOL WINAPI InsertMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR item, LPCWSTR text)
{
    HOST_CALL(InsertMenuW, FALSE, ERROR_NOT_ENOUGH_MEMORY);
    const std::shared_ptr<Menu> own = MenuOf(menu);
    if (own == nullptr)
        return FALSE;
    Found found = FindItem(menu, position, flags);
    if (!found) {
        if ((flags & MF_BYPOSITION) == 0)
            return FailWith(ERROR_MENU_ITEM_NOT_FOUND);
        found = {own, own->items.size()};
    }
    found.menu->items.insert(found.menu->items.begin() + static_cast<std::ptrdiff_t>(found.place),
                             MakeItem(flags, item, text));
    return TRUE;
}

BOOL WINAPI ModifyMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR item, LPCWSTR text)
{
    HOST_CALL(ModifyMenuW, FALSE, ERROR_MENU_ITEM_NOT_FOUND);
    const Found found = FindItem(menu, position, flags);
    if (!found)
        return FailWith(ERROR_MENU_ITEM_NOT_FOUND);
    MenuItem& old = found.Item();
    const MenuItem changed = MakeItem(flags, item, text);
    if (old.popup != nullptr && old.popup != changed.popup)
        Destroy(old.popup);
    old = changed;
    return TRUE;
}

BOOL WINAPI RemoveMenu(HMENU menu, UINT position, UINT flags)
{
    HOST_CALL_VOID(RemoveMenu);
    const Found found = FindItem(menu, position, flags);
    if (!found)
        return FailWith(ERROR_MENU_ITEM_NOT_FOUND);
    found.menu->items.erase(found.menu->items.begin() + static_cast<std::ptrdiff_t>(found.place));
    return TRUE;
}

BOOL WINAPI DeleteMenu(HMENU menu, UINT position, UINT flags)
{
    HOST_CALL_VOID(DeleteMenu);
    const Found found = FindItem(menu, position, flags);
    if (!found)
        return FailWith(ERROR_MENU_ITEM_NOT_FOUND);
    if (found.Item().popup != nullptr)
        Destroy(found.Item().popup);
    return RemoveMenu(menu, position, flags);
}

DWORD WINAPI CheckMenuItem(HMENU menu, UINT item, UINT check)
{
    HOST_CALL_VOID(CheckMenuItem);
    const Found found = FindItem(menu, item, check);
    if (!found)
        return kNotFound;
    UINT& flags = found.Item().flags;
    const DWORD previous = flags & MF_CHECKED;
    flags = (flags & ~static_cast<UINT>(MF_CHECKED)) | (check & MF_CHECKED);
    return previous;
}

BOOL WINAPI EnableMenuItem(HMENU menu, UINT item, UINT enable)
{
    HOST_CALL_VOID(EnableMenuItem);
    const Found found = FindItem(menu, item, enable);
    if (!found)
        return -1;
    constexpr UINT kBoth = MF_GRAYED | MF_DISABLED;
    UINT& flags = found.Item().flags;
    const UINT previous = flags & kBoth;
    flags = (flags & ~kBoth) | (enable & kBoth);
    return static_cast<BOOL>(previous);
}

HMENU WINAPI GetSystemMenu(HWND handle, BOOL revert)
{
    HOST_CALL_VOID(GetSystemMenu);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr || (window->style & WS_SYSMENU) == 0)
        return nullptr;
    if (revert || window->systemMenu == nullptr) {
        if (window->systemMenu != nullptr)
            Destroy(window->systemMenu);
        window->systemMenu = nullptr;
    }
    if (!revert && window->systemMenu == nullptr)
        window->systemMenu =
            AddMenu({{MakeItem(0, SC_MOVE, TEXT("&Move")), MakeItem(0, SC_CLOSE, TEXT("&Close\tAlt+F4"))}});
    return window->systemMenu;
}
