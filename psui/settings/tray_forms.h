#pragma once
// Which form lies in which tray of a printer: the value "TrayFormTable" of its data. The table is a 16-bit
// byte size of the whole table, then entries of three terminated UTF-16 texts and a 16-bit number, then a
// 16-bit zero where the next entry would begin. The older format has neither the size nor the numbers.
#include <cstddef>

#include <windows.h>

#include "psui/base/memory.h"

namespace psui {

/// A table in the current format as it was stored: its entries may lie.
struct TrayFormTable
{
    HeapPtr<BYTE> block; ///< null when the printer has no such table
    const WCHAR* begin;  ///< first entry
    const WCHAR* end;

    explicit operator bool() const { return block != nullptr; }
};

/// The texts lie in the table.
struct TrayFormEntry
{
    const WCHAR* tray;
    const WCHAR* form;
    const WCHAR* printerForm;
    WORD value;
};

/// The printer's table; nothing when it is missing or its leading size is not its stored one.
TrayFormTable ReadTrayFormTable(HANDLE printer);

/// Takes the entry at `position` (table.begin for the first) apart. Returns the position of the next one; or
/// null, with `entry` untouched, at the end of the table and where no whole entry is left.
const WCHAR* NextTrayFormEntry(const TrayFormTable& table, const WCHAR* position, TrayFormEntry* entry);

/// Stores a table of `size` bytes; true when it is stored whole.
bool WriteTrayFormTable(HANDLE printer, const void* table, DWORD size);

/// Brings a table of the older format into the current one. True when the printer has no table or a current
/// one afterwards; false, with the old one untouched, when the table is not sound or too long for its 16-bit
/// size, when there is no memory, and when it cannot be written.
bool ConvertTrayFormTable(HANDLE printer);

} // namespace psui
