// Shortcut menus on the screen: one window a level, and the loop that plays them with mouse and keyboard.
#include <algorithm>

#include "host/window/controls/theme.h"
#include "host/window/dialog.h"
#include "host/window/handles.h"
#include "host/window/menu.h"

namespace host {
namespace {

// Pixels
constexpr int kBorder = 1;
constexpr int kPadding = 3;
constexpr int kMarkColumn = 24;
constexpr int kRightMargin = 24;
constexpr int kKeyGap = 16;
constexpr int kItemHeight = 22;
constexpr int kSeparatorHeight = 7;
constexpr COLORREF kBackground = RGB(0xFB, 0xFB, 0xFC);
constexpr int kNone = -1;

struct Level
{
    HMENU handle;
    std::shared_ptr<Menu> menu;
    HWND window;
    int selected;
};

struct Tracking
{
    HWND owner;
    UINT flags;
    std::vector<Level> levels;
    bool done = false;
    bool pressed = false; // a button went down on the menu
    UINT chosen = 0;
};

thread_local Tracking* current;

int HeightOf(const MenuItem& item)
{
    return item.Separates() ? kSeparatorHeight : kItemHeight;
}

RECT RectOf(const Menu& menu, int item, int width)
{
    int top = kBorder + kPadding;
    for (int i = 0; i < item; ++i)
        top += HeightOf(menu.items[static_cast<size_t>(i)]);
    return {kBorder, top, width - kBorder, top + HeightOf(menu.items[static_cast<size_t>(item)])};
}

HFONT MenuFont()
{
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return CreateFontIndirectW(&metrics.lfMenuFont);
}

std::u16string_view LabelOf(const MenuItem& item)
{
    return std::u16string_view(item.text).substr(0, item.text.find(u'\t'));
}

std::u16string_view KeyOf(const MenuItem& item)
{
    const size_t tab = item.text.find(u'\t');
    return tab == item.text.npos ? std::u16string_view() : std::u16string_view(item.text).substr(tab + 1);
}

int WidthOf(HDC dc, std::u16string_view text)
{
    RECT rect = {};
    DrawTextW(dc, text.data(), static_cast<int>(text.size()), &rect, DT_SINGLELINE | DT_CALCRECT);
    return rect.right;
}

SIZE SizeOfMenu(const Menu& menu)
{
    const HDC dc = GetDC(nullptr);
    const HFONT font = MenuFont();
    const HGDIOBJ previous = SelectObject(dc, font);
    int widest = 0;
    int height = 2 * (kBorder + kPadding);
    for (const MenuItem& item : menu.items) {
        const std::u16string_view key = KeyOf(item);
        widest =
            std::max(widest, WidthOf(dc, LabelOf(item)) + (key.empty() ? 0 : kKeyGap + WidthOf(dc, key)));
        height += HeightOf(item);
    }
    SelectObject(dc, previous);
    DeleteObject(font);
    ReleaseDC(nullptr, dc);
    return {2 * kBorder + kMarkColumn + widest + kRightMargin, height};
}

void PaintItem(HDC dc, const MenuItem& item, RECT rect, bool selected)
{
    if (item.Separates()) {
        const int middle = (rect.top + rect.bottom) / 2;
        theme::Fill(dc, {rect.left + kMarkColumn, middle, rect.right, middle + 1}, theme::kDisabledBorder);
        return;
    }
    if (selected)
        theme::Fill(dc, rect, theme::kPressed);
    const COLORREF color = item.Usable() ? GetSysColor(COLOR_MENUTEXT) : theme::kDisabledText;
    SetTextColor(dc, color);
    if ((item.flags & MF_CHECKED) != 0) {
        RECT mark = rect;
        mark.right = mark.left + kMarkColumn;
        DrawTextW(dc, TEXT("\x2713"), 1, &mark, DT_SINGLELINE | DT_VCENTER | DT_CENTER);
    }
    rect.left += kMarkColumn;
    const std::u16string_view label = LabelOf(item);
    DrawTextW(dc, label.data(), static_cast<int>(label.size()), &rect, DT_SINGLELINE | DT_VCENTER);
    if (item.popup != nullptr)
        theme::DrawArrow(dc, {rect.right - kRightMargin, rect.top, rect.right, rect.bottom},
                         theme::Arrow::right, color);
    rect.right -= kPadding;
    const std::u16string_view key = KeyOf(item);
    if (!key.empty())
        DrawTextW(dc, key.data(), static_cast<int>(key.size()), &rect, DT_SINGLELINE | DT_VCENTER | DT_RIGHT);
}

void Paint(HWND window, const Level& level)
{
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window, &paint);
    RECT client;
    GetClientRect(window, &client);
    const HFONT font = MenuFont();
    const HGDIOBJ previous = SelectObject(dc, font);
    SetBkMode(dc, TRANSPARENT);
    theme::Fill(dc, client, kBackground);
    theme::Frame(dc, client, theme::kBorder);
    for (size_t i = 0; i < level.menu->items.size(); ++i) {
        const auto index = static_cast<int>(i);
        PaintItem(dc, level.menu->items[i], RectOf(*level.menu, index, client.right),
                  index == level.selected);
    }
    SelectObject(dc, previous);
    DeleteObject(font);
    EndPaint(window, &paint);
}

void Notify(const Tracking& tracking, UINT message, WPARAM wParam, LPARAM lParam)
{
    if ((tracking.flags & TPM_NONOTIFY) == 0 && LookUp(tracking.owner) != nullptr)
        SendMessageW(tracking.owner, message, wParam, lParam);
}

void Select(Tracking& tracking, Level& level, int item)
{
    if (level.selected == item)
        return;
    level.selected = item;
    InvalidateRect(level.window, nullptr, FALSE);
    if (item == kNone)
        return;
    const MenuItem& chosen = level.menu->items[static_cast<size_t>(item)];
    const UINT number = chosen.popup != nullptr ? static_cast<UINT>(item) : chosen.id;
    Notify(tracking, WM_MENUSELECT, MAKEWPARAM(number, chosen.flags | MF_HILITE | MF_MOUSESELECT),
           reinterpret_cast<LPARAM>(level.handle));
}

void CloseLevel(Tracking& tracking)
{
    const Level level = tracking.levels.back();
    tracking.levels.pop_back();
    DestroyWindow(level.window);
    Notify(tracking, WM_UNINITMENUPOPUP, reinterpret_cast<WPARAM>(level.handle), 0);
}

bool OpenLevel(Tracking& tracking, HMENU handle, POINT corner, UINT flags)
{
    const std::shared_ptr<Menu> menu = MenuOf(handle);
    if (menu == nullptr)
        return false;
    Notify(tracking, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(handle), 0);
    const SIZE size = SizeOfMenu(*menu);
    if ((flags & TPM_RIGHTALIGN) != 0)
        corner.x -= size.cx;
    else if ((flags & TPM_CENTERALIGN) != 0)
        corner.x -= size.cx / 2;
    if ((flags & TPM_BOTTOMALIGN) != 0)
        corner.y -= size.cy;
    else if ((flags & TPM_VCENTERALIGN) != 0)
        corner.y -= size.cy / 2;
    corner.x = std::clamp<LONG>(corner.x, 0, std::max<LONG>(0, kScreenWidth - size.cx));
    corner.y = std::clamp<LONG>(corner.y, 0, std::max<LONG>(0, kScreenHeight - size.cy));
    const HWND window = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, TEXT("#32768"),
                                        nullptr, WS_POPUP, corner.x, corner.y, size.cx, size.cy,
                                        tracking.owner, nullptr, nullptr, nullptr);
    if (window == nullptr)
        return false;
    tracking.levels.push_back({handle, menu, window, kNone});
    ShowWindow(window, SW_SHOWNA);
    return true;
}

/// The level and item under a desktop point; kNone for both where there is none.
struct Hit
{
    int level = kNone;
    int item = kNone;
};

Hit HitTestMenus(const Tracking& tracking, POINT point)
{
    for (auto i = static_cast<int>(tracking.levels.size()) - 1; i >= 0; --i) {
        const Level& level = tracking.levels[static_cast<size_t>(i)];
        RECT rect;
        GetWindowRect(level.window, &rect);
        if (!PtInRect(&rect, point))
            continue;
        for (size_t item = 0; item < level.menu->items.size(); ++item) {
            RECT place = RectOf(*level.menu, static_cast<int>(item), rect.right - rect.left);
            OffsetRect(&place, rect.left, rect.top);
            if (PtInRect(&place, point))
                return {i, static_cast<int>(item)};
        }
        return {i, kNone};
    }
    return {};
}

void OpenPopup(Tracking& tracking, bool selectFirst);

/// Moves up or down to the next item that can be selected, round the ends.
void Step(Tracking& tracking, int by)
{
    Level& level = tracking.levels.back();
    const auto count = static_cast<int>(level.menu->items.size());
    int item = level.selected;
    if (item == kNone)
        item = by > 0 ? -1 : count;
    for (int tried = 0; tried < count; ++tried) {
        item = (item + by + count) % count;
        if (!level.menu->items[static_cast<size_t>(item)].Separates()) {
            Select(tracking, level, item);
            return;
        }
    }
}

void Choose(Tracking& tracking)
{
    const Level& level = tracking.levels.back();
    if (level.selected == kNone)
        return;
    const MenuItem& item = level.menu->items[static_cast<size_t>(level.selected)];
    if (!item.Usable())
        return;
    if (item.popup != nullptr) {
        OpenPopup(tracking, true);
        return;
    }
    tracking.chosen = item.id;
    tracking.done = true;
}

void OpenPopup(Tracking& tracking, bool selectFirst)
{
    const Level& level = tracking.levels.back();
    const MenuItem& item = level.menu->items[static_cast<size_t>(level.selected)];
    RECT window;
    GetWindowRect(level.window, &window);
    const RECT place = RectOf(*level.menu, level.selected, window.right - window.left);
    const POINT corner = {window.right - kPadding, window.top + place.top - kPadding};
    if (OpenLevel(tracking, item.popup, corner, TPM_LEFTALIGN) && selectFirst)
        Step(tracking, 1);
}

void OnMouseMove(Tracking& tracking, POINT point)
{
    const Hit hit = HitTestMenus(tracking, point);
    if (hit.level == kNone)
        return;
    Level& under = tracking.levels[static_cast<size_t>(hit.level)];
    if (hit.item == under.selected)
        return;
    while (static_cast<int>(tracking.levels.size()) > hit.level + 1)
        CloseLevel(tracking);
    Level& level = tracking.levels.back();
    Select(tracking, level, hit.item);
    if (hit.item != kNone && level.menu->items[static_cast<size_t>(hit.item)].popup != nullptr &&
        level.menu->items[static_cast<size_t>(hit.item)].Usable())
        OpenPopup(tracking, false);
}

void OnPress(Tracking& tracking, POINT point)
{
    tracking.pressed = HitTestMenus(tracking, point).level != kNone;
    if (tracking.pressed)
        OnMouseMove(tracking, point);
    else
        tracking.done = true;
}

void OnRelease(Tracking& tracking, POINT point)
{
    const Hit hit = HitTestMenus(tracking, point);
    const bool onInnermost = hit.level == static_cast<int>(tracking.levels.size()) - 1;
    if (hit.item == kNone || !onInnermost)
        return;
    Select(tracking, tracking.levels.back(), hit.item);
    Choose(tracking);
}

void OnKey(Tracking& tracking, WPARAM key)
{
    const Level& level = tracking.levels.back();
    const MenuItem* const item =
        level.selected != kNone ? &level.menu->items[static_cast<size_t>(level.selected)] : nullptr;
    switch (key) {
    case VK_UP:
        Step(tracking, -1);
        break;
    case VK_DOWN:
        Step(tracking, 1);
        break;
    case VK_RETURN:
        Choose(tracking);
        break;
    case VK_RIGHT:
        if (item != nullptr && item->popup != nullptr && item->Usable())
            OpenPopup(tracking, true);
        break;
    case VK_LEFT:
        if (tracking.levels.size() > 1)
            CloseLevel(tracking);
        break;
    case VK_ESCAPE:
        if (tracking.levels.size() > 1)
            CloseLevel(tracking);
        else
            tracking.done = true;
        break;
    case VK_MENU:
    case VK_F10:
        tracking.done = true;
        break;
    }
}

void OnCharacter(Tracking& tracking, char16_t character)
{
    Level& level = tracking.levels.back();
    for (size_t i = 0; i < level.menu->items.size(); ++i) {
        if (HasMnemonic(LabelOf(level.menu->items[i]), character)) {
            Select(tracking, level, static_cast<int>(i));
            Choose(tracking);
            return;
        }
    }
}

void OnMessage(Tracking& tracking, const MSG& message)
{
    switch (message.message) {
    case WM_MOUSEMOVE:
        OnMouseMove(tracking, message.pt);
        return;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDBLCLK:
        OnPress(tracking, message.pt);
        return;
    case WM_RBUTTONUP:
        if (!tracking.pressed && (tracking.flags & TPM_RIGHTBUTTON) == 0)
            return;
        [[fallthrough]];
    case WM_LBUTTONUP:
        OnRelease(tracking, message.pt);
        return;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        TranslateMessage(&message);
        OnKey(tracking, message.wParam);
        return;
    case WM_CHAR:
    case WM_SYSCHAR:
        OnCharacter(tracking, static_cast<char16_t>(message.wParam));
        return;
    case WM_KEYUP:
    case WM_SYSKEYUP:
        return;
    }
    DispatchMessageW(&message);
}

void RunTracking(Tracking& tracking)
{
    SetCapture(tracking.owner);
    MSG message;
    while (!tracking.done && GetCapture() == tracking.owner) {
        if (!PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE))
            Notify(tracking, WM_ENTERIDLE, MSGF_MENU,
                   reinterpret_cast<LPARAM>(tracking.levels.back().window));
        if (tracking.done || !NextWhileCaptured(tracking.owner, message))
            break;
        OnMessage(tracking, message);
    }
    if (GetCapture() == tracking.owner)
        ReleaseCapture();
}

const Level* LevelOf(HWND window)
{
    if (current == nullptr)
        return nullptr;
    const auto found = std::find_if(current->levels.begin(), current->levels.end(),
                                    [=](const Level& each) { return each.window == window; });
    return found != current->levels.end() ? &*found : nullptr;
}

} // namespace

LRESULT CALLBACK MenuWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const Level* const level = LevelOf(window);
    if (level == nullptr || message != WM_PAINT)
        return message == WM_MOUSEACTIVATE ? MA_NOACTIVATE : DefWindowProcW(window, message, wParam, lParam);
    Paint(window, *level);
    return 0;
}

void EndMenuOf(HWND window)
{
    if (current != nullptr && current->owner == window)
        current->done = true;
}

} // namespace host

using namespace host;

BOOL WINAPI TrackPopupMenuEx(HMENU menu, UINT flags, int x, int y, HWND owner, LPTPMPARAMS)
{
    HOST_CALL(TrackPopupMenuEx, FALSE, ERROR_NOT_ENOUGH_MEMORY);
    if (current != nullptr)
        return FailWith(ERROR_POPUP_ALREADY_ACTIVE);
    if (OwnWindowOf(owner) == nullptr || MenuOf(menu) == nullptr)
        return FALSE;
    Tracking tracking = {owner, flags, {}};
    current = &tracking;
    Notify(tracking, WM_ENTERMENULOOP, TRUE, 0);
    Notify(tracking, WM_INITMENU, reinterpret_cast<WPARAM>(menu), 0);
    const bool opened = OpenLevel(tracking, menu, {x, y}, flags);
    if (opened)
        RunTracking(tracking);
    while (!tracking.levels.empty())
        CloseLevel(tracking);
    current = nullptr;
    Notify(tracking, WM_EXITMENULOOP, TRUE, 0);
    if ((flags & TPM_RETURNCMD) != 0)
        return static_cast<BOOL>(tracking.chosen);
    if (tracking.chosen != 0)
        PostMessageW(owner, WM_COMMAND, tracking.chosen, 0);
    return opened;
}

BOOL WINAPI TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int, HWND owner, const RECT*)
{
    HOST_CALL(TrackPopupMenu, FALSE, ERROR_NOT_ENOUGH_MEMORY);
    return TrackPopupMenuEx(menu, flags, x, y, owner, nullptr);
}
