// Sizes and looks of a combo box.
#include "host/window/controls/combo_box.h"
#include "host/window/controls/list_items.h"

namespace host {
namespace {

constexpr int kBorder = 1;       // pixels
constexpr int kFieldPadding = 2; // between border and entry
constexpr int kTextLeading = 2;  // a line of text in the field is this much higher than its letters
constexpr int kMaxFieldHeight = 255;
constexpr int kHalfFrame = kBorder + kFieldPadding;

/// The platform's default rectangle of the list's border.
constexpr int kListBorders = 2;

int TextHeight(const ComboBox& combo)
{
    return std::clamp(LineHeight(combo.window, combo.font) + kTextLeading, 1, kMaxFieldHeight);
}

} // namespace

int FieldWindowHeight(const ComboBox& combo)
{
    return combo.fieldHeight + 2 * kHalfFrame;
}

RECT ButtonRect(const ComboBox& combo)
{
    RECT rect = ClientRectOf(combo.window);
    if (!HasDropList(combo))
        return {};
    InflateRect(&rect, -kBorder, -kBorder);
    rect.left = std::max<LONG>(rect.left, rect.right - theme::kArrowLength);
    return rect;
}

RECT EntryRect(const ComboBox& combo)
{
    const RECT client = ClientRectOf(combo.window);
    RECT rect = {kHalfFrame, kHalfFrame, client.right - kHalfFrame, kHalfFrame + combo.fieldHeight};
    if (HasDropList(combo))
        rect.right = ButtonRect(combo).left - 1;
    rect.right = std::max(rect.right, rect.left);
    return rect;
}

void MeasureField(ComboBox& combo)
{
    combo.fieldHeight = TextHeight(combo);
    if (!IsOwnerDrawn(combo))
        return;
    MEASUREITEMSTRUCT measure = {};
    measure.CtlType = ODT_COMBOBOX;
    measure.CtlID = ControlId(combo.window);
    measure.itemID = static_cast<UINT>(kNoItem);
    measure.itemWidth = static_cast<UINT>(ClientRectOf(combo.window).right);
    measure.itemHeight = static_cast<UINT>(combo.fieldHeight);
    SendMessageW(GetParent(combo.window), WM_MEASUREITEM, measure.CtlID, reinterpret_cast<LPARAM>(&measure));
    combo.fieldHeight = std::clamp(static_cast<int>(measure.itemHeight), 1, kMaxFieldHeight);
    combo.ownHeight = true;
}

RECT DropRect(const ComboBox& combo)
{
    RECT field = {};
    GetWindowRect(combo.window, &field);
    RECT work = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);

    // As high as was asked for, but no higher than its entries, and at least one of them.
    const int count = static_cast<int>(AskList(combo, LB_GETCOUNT));
    const int room = combo.listHeight - kListBorders;
    int entries = 0;
    bool fits = true;
    for (int index = 0; index < count && fits; ++index) {
        const int height = static_cast<int>(AskList(combo, LB_GETITEMHEIGHT, static_cast<WPARAM>(index)));
        fits = entries + height <= room || index == 0;
        entries += fits ? height : 0;
    }
    if (!fits && (combo.style & CBS_NOINTEGRALHEIGHT) != 0)
        entries = room;
    if (count == 0)
        entries = std::max(room, static_cast<int>(AskList(combo, LB_GETITEMHEIGHT)));

    const int width = std::max<int>(field.right - field.left, combo.droppedWidth);
    const int height = entries + kListBorders;
    const bool above = field.bottom + height > work.bottom && field.top - height >= work.top;
    const int top = above ? field.top - height : field.bottom;
    return {field.left, top, field.left + width, top + height};
}

void LayOut(ComboBox& combo)
{
    if (HasDropList(combo)) {
        RECT window = {};
        GetWindowRect(combo.window, &window);
        SetWindowPos(combo.window, nullptr, 0, 0, window.right - window.left, FieldWindowHeight(combo),
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    if (combo.edit != nullptr) {
        const RECT rect = EntryRect(combo);
        MoveWindow(combo.edit, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, TRUE);
    }
    if (!HasDropList(combo) && combo.list != nullptr) {
        const RECT client = ClientRectOf(combo.window);
        const int top = FieldWindowHeight(combo);
        MoveWindow(combo.list, 0, top, client.right, std::max<LONG>(client.bottom - top, 0), TRUE);
    }
    RepaintField(combo);
}

void RepaintField(const ComboBox& combo)
{
    if (combo.redraw)
        Repaint(combo.window);
}

LRESULT OnComboPosChanging(ComboBox& combo, WPARAM wParam, LPARAM lParam)
{
    auto* const position = reinterpret_cast<WINDOWPOS*>(lParam);
    if (HasDropList(combo) && combo.list != nullptr && (position->flags & SWP_NOSIZE) == 0) {
        // A height is that of field and open list together; one without room for a list changes nothing.
        const int field = FieldWindowHeight(combo);
        if (position->cy > field)
            combo.listHeight = position->cy - field;
        position->cy = field;
    }
    return DefWindowProcW(combo.window, WM_WINDOWPOSCHANGING, wParam, lParam);
}

LRESULT OnComboSize(ComboBox& combo, WPARAM, LPARAM)
{
    if (combo.list != nullptr)
        LayOut(combo);
    return 0;
}

LRESULT OnComboSetFont(ComboBox& combo, WPARAM font, LPARAM redraw)
{
    combo.font = reinterpret_cast<HFONT>(font);
    AskList(combo, WM_SETFONT, font, redraw);
    if (combo.edit != nullptr)
        SendMessageW(combo.edit, WM_SETFONT, font, redraw);
    if (!combo.ownHeight)
        combo.fieldHeight = TextHeight(combo);
    LayOut(combo);
    return 0;
}

LRESULT OnComboSetRedraw(ComboBox& combo, WPARAM redraw, LPARAM lParam)
{
    combo.redraw = redraw != 0;
    AskList(combo, WM_SETREDRAW, redraw, lParam);
    if (combo.edit != nullptr)
        SendMessageW(combo.edit, WM_SETREDRAW, redraw, lParam);
    RepaintField(combo);
    return 0;
}

LRESULT OnComboGetItemHeight(ComboBox& combo, WPARAM index, LPARAM)
{
    return static_cast<int>(index) == kNoItem ? combo.fieldHeight : AskList(combo, LB_GETITEMHEIGHT, index);
}

LRESULT OnComboSetItemHeight(ComboBox& combo, WPARAM index, LPARAM height)
{
    if (static_cast<int>(index) != kNoItem)
        return AskList(combo, LB_SETITEMHEIGHT, index, height);
    if (height <= 0 || height > kMaxFieldHeight)
        return CB_ERR;
    combo.fieldHeight = static_cast<int>(height);
    combo.ownHeight = true;
    LayOut(combo);
    return combo.fieldHeight;
}

namespace {

// --- Painting ---

/// A closed drop-down list shows by its entry that it has the focus.
bool IsEntryMarked(const ComboBox& combo)
{
    return combo.edit == nullptr && combo.focused && !combo.dropped;
}

HBRUSH AskColors(const ComboBox& combo, HDC dc)
{
    const bool enabled = IsWindowEnabled(combo.window) != FALSE;
    return AskParentForColours(combo.window, dc, enabled ? WM_CTLCOLORLISTBOX : WM_CTLCOLORSTATIC);
}

void DrawByOwner(const ComboBox& combo, HDC dc, const RECT& rect)
{
    DRAWITEMSTRUCT draw = {};
    draw.CtlType = ODT_COMBOBOX;
    draw.CtlID = ControlId(combo.window);
    draw.itemID = static_cast<UINT>(combo.shown);
    draw.itemAction = ODA_DRAWENTIRE;
    draw.itemState = ODS_COMBOBOXEDIT | (IsEntryMarked(combo) ? ODS_SELECTED | ODS_FOCUS : 0) |
                     (IsWindowEnabled(combo.window) ? 0 : ODS_DISABLED);
    draw.hwndItem = combo.window;
    draw.hDC = dc;
    draw.rcItem = rect;
    draw.itemData =
        combo.shown == kNoItem
            ? static_cast<ULONG_PTR>(-1)
            : static_cast<ULONG_PTR>(AskList(combo, LB_GETITEMDATA, static_cast<WPARAM>(combo.shown)));
    const int saved = SaveDC(dc);
    IntersectClipRect(dc, rect.left, rect.top, rect.right, rect.bottom);
    SendMessageW(GetParent(combo.window), WM_DRAWITEM, draw.CtlID, reinterpret_cast<LPARAM>(&draw));
    RestoreDC(dc, saved);
}

void DrawEntryText(const ComboBox& combo, HDC dc, RECT rect)
{
    constexpr int kTextMargin = 1; // pixels
    if (!IsWindowEnabled(combo.window))
        SetTextColor(dc, theme::kDisabledText);
    if (IsEntryMarked(combo)) {
        FillRect(dc, &rect, GetSysColorBrush(COLOR_HIGHLIGHT));
        SetTextColor(dc, GetSysColor(COLOR_HIGHLIGHTTEXT));
    }
    SetBkMode(dc, TRANSPARENT);
    rect.left += kTextMargin;
    const Text text = EntryText(combo, combo.shown);
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &rect,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

void DrawField(const ComboBox& combo, HDC dc)
{
    theme::Look look = LookOf(combo.window);
    look.focused = combo.focused;
    RECT rect = ClientRectOf(combo.window);
    rect.bottom = std::min<LONG>(rect.bottom, FieldWindowHeight(combo));
    const int saved = SaveDC(dc);
    FillRect(dc, &rect, AskColors(combo, dc));
    if (combo.edit == nullptr && IsOwnerDrawn(combo))
        DrawByOwner(combo, dc, EntryRect(combo));
    else if (combo.edit == nullptr)
        DrawEntryText(combo, dc, EntryRect(combo));
    RestoreDC(dc, saved);
    theme::DrawFieldBorder(dc, rect, look);
    if (HasDropList(combo))
        theme::DrawArrow(dc, ButtonRect(combo), theme::Arrow::down,
                         look.enabled ? theme::kGlyph : theme::kDisabledText);
}

} // namespace

LRESULT OnComboPaint(ComboBox& combo, WPARAM dc, LPARAM)
{
    const ControlPaint paint(combo.window, dc, combo.font);
    if (combo.redraw)
        DrawField(combo, paint.Dc());
    return 0;
}

LRESULT OnComboErase(ComboBox&, WPARAM, LPARAM)
{
    return TRUE; // painting leaves nothing out
}

} // namespace host
