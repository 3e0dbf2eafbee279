#pragma once
// How a built-in class is registered: a row of the controls' table, made when the first window of the world
// is.
#include <span>

#include <windows.h>

namespace host {

/// A control is an ordinary window procedure that uses public functions. What it remembers of a window hangs
/// on extra bytes (SetWindowLongPtrW with index 0: allocate at WM_NCCREATE or WM_CREATE, free at
/// WM_NCDESTROY).
struct BuiltInClass
{
    const char16_t* name; ///< as programs write it, "Button"; looked up without regard to case
    WNDPROC procedure;    ///< also what a class's first window gets, so it can be subclassed
    UINT style;           ///< CS_*; every built-in class is global
    int extra;            ///< bytes of window longs
    LPCWSTR cursor;       ///< system cursor (IDC_*); null for none
    int background;       ///< system colour plus one; 0 for none, so that WM_ERASEBKGND does nothing
    WORD dialogOrdinal =
        0; ///< the class's number in dialog templates (0x80 Button ... 0x85 ComboBox); 0 none
};

/// The controls' classes. A row may be removed or added freely; the table lives as long as the program.
std::span<const BuiltInClass> ControlClasses();

} // namespace host
