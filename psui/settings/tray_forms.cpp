#include "psui/settings/tray_forms.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "psui/settings/printer_data.h"

namespace psui {

namespace {

constexpr DWORD kUnit = sizeof(WCHAR);

const WCHAR* UnitsOf(const HeapPtr<BYTE>& block)
{
    return reinterpret_cast<const WCHAR*>(block.get());
}

bool IsCurrent(const HeapPtr<BYTE>& block, DWORD size)
{
    return size >= kUnit && UnitsOf(block)[0] == size;
}

/// Passes over a text and its terminator; null when it has none before `end`.
const WCHAR* SkipText(const WCHAR* text, const WCHAR* end)
{
    const WCHAR* terminator = std::find(text, end, WCHAR{0});
    return terminator == end ? nullptr : terminator + 1;
}

/// Passes over the three texts of an entry, whose places go to `entry`; null when they do not all end before
/// `end`, or when the first one is empty and there is no entry.
const WCHAR* SkipTexts(const WCHAR* position, const WCHAR* end, TrayFormEntry* entry)
{
    if (position == end || *position == 0)
        return nullptr;
    for (const WCHAR** text : {&entry->tray, &entry->form, &entry->printerForm}) {
        *text = position;
        position = SkipText(position, end);
        if (!position)
            return nullptr;
    }
    return position;
}

/// Number of entries of a table of the older format of `size` bytes; nothing when it does not end exactly
/// where its last entry does.
std::optional<DWORD> CountOldEntries(const WCHAR* table, DWORD size)
{
    if (size < kUnit || size % kUnit != 0)
        return std::nullopt;
    const WCHAR* end = table + size / kUnit - 1;
    const WCHAR* position = table;
    DWORD entries = 0;
    for (TrayFormEntry entry; position != end; ++entries) {
        position = SkipTexts(position, end, &entry);
        if (!position)
            return std::nullopt;
    }
    if (*end != 0)
        return std::nullopt;
    return entries;
}

/// `table` is zero-filled and has room for the old one, its size and a number an entry.
void CopyOldEntries(const WCHAR* old, DWORD entries, const WCHAR* end, WCHAR* table)
{
    TrayFormEntry entry;
    for (; entries > 0; --entries) {
        const WCHAR* next = SkipTexts(old, end, &entry);
        table = std::copy(old, next, table) + 1;
        old = next;
    }
}

} // namespace

TrayFormTable ReadTrayFormTable(HANDLE printer)
{
    DWORD size = 0;
    HeapPtr<BYTE> block = ReadPrinterDataBlock(printer, &size, PrinterDataPair::TrayForms);
    if (!block || !IsCurrent(block, size))
        return {};
    const WCHAR* units = UnitsOf(block);
    return {std::move(block), units + 1, units + size / kUnit};
}

const WCHAR* NextTrayFormEntry(const TrayFormTable& table, const WCHAR* position, TrayFormEntry* entry)
{
    TrayFormEntry found;
    const WCHAR* value = SkipTexts(position, table.end, &found);
    if (!value || value == table.end)
        return nullptr;
    found.value = static_cast<WORD>(*value);
    *entry = found;
    return value + 1;
}

bool WriteTrayFormTable(HANDLE printer, const void* table, DWORD size)
{
    return WritePrinterDataBlock(printer, table, size, PrinterDataPair::TrayForms);
}

bool ConvertTrayFormTable(HANDLE printer)
{
    DWORD oldSize = 0;
    const HeapPtr<BYTE> old = ReadPrinterDataBlock(printer, &oldSize, PrinterDataPair::TrayForms);
    if (!old || IsCurrent(old, oldSize))
        return true;
    const std::optional<DWORD> entries = CountOldEntries(UnitsOf(old), oldSize);
    if (!entries)
        return false;
    const uint64_t size = uint64_t{oldSize} + kUnit + uint64_t{kUnit} * *entries;
    if (size > UINT16_MAX)
        return false;
    const HeapPtr<WCHAR> table = AllocateZeroed<WCHAR>(size / kUnit);
    if (!table)
        return false;
    table.get()[0] = static_cast<WCHAR>(size);
    CopyOldEntries(UnitsOf(old), *entries, UnitsOf(old) + oldSize / kUnit - 1, table.get() + 1);
    return WriteTrayFormTable(printer, table.get(), static_cast<DWORD>(size));
}

} // namespace psui
