#pragma once
// Combo boxes as the tabs fill them.
#include <windows.h>

namespace psui {

/// Selects the first entry whose item data is `value`; with `fromEnd` the last one. Without such an entry it
/// selects the first and returns false.
bool SelectByItemData(HWND dialog, int control, LPARAM value, bool fromEnd = false);

/// Fills a combo box anew, with redrawing off until the object goes. A control that does not exist stays
/// empty.
class ComboFiller
{
public:
    ComboFiller(HWND dialog, int control);
    ~ComboFiller();
    ComboFiller(const ComboFiller&) = delete;
    ComboFiller& operator=(const ComboFiller&) = delete;

    void Add(const WCHAR* text, LPARAM value);

    /// Adds string `id` of `module`; an empty text for an id of 0 and a missing string.
    void AddString(HMODULE module, UINT id, LPARAM value);

    /// The same, but a missing string has no entry.
    void AddStringIfAny(HMODULE module, UINT id, LPARAM value);

private:
    HWND combo_;
};

/// Height of a combo box with its list open, for `items` entries and `extra` pixels.
int DroppedHeight(HWND combo, int items, int extra);

/// Sets that height; the rest of the box keeps its place and size.
void SetDroppedHeight(HWND combo, int height);

/// Longest text of an entry, in units with the terminator.
constexpr int kEntryUnits = 258;

} // namespace psui
