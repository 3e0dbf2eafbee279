// The tray-form table as anybody may have stored it: read, converted from the older format, read again.
//
// Input: flags (below), a 32-bit number that is used where a flag asks for it, the table.
#include <optional>
#include <vector>

#include "fuzz/printer_store.h"
#include "psui/settings/tray_forms.h"

namespace {

enum Flags : uint8_t
{
    kOtherSize = 1,      ///< the number is stored as the table's size
    kOtherSizeType = 2,  ///< the number is the type of the size
    kOtherTableType = 4, ///< the number is the type of the table
    kOwnSize = 8,        ///< the table begins with its own size, as the current format has it
};

constexpr WCHAR kSizeValue[] = TEXT("TrayFormSize");
constexpr WCHAR kTableValue[] = TEXT("TrayFormTable");

struct Entry
{
    std::u16string texts[3];
    uint16_t value = 0;

    bool operator==(const Entry&) const = default;
};
using Entries = std::vector<Entry>;

fuzz::PrinterStore* store;

/// Takes the whole entries from the front of `units`.
Entries TakeEntries(std::u16string_view& units, bool numbered)
{
    Entries entries;
    while (!units.empty() && units[0] != 0) {
        std::u16string_view rest = units;
        Entry entry;
        for (std::u16string& text : entry.texts) {
            const size_t zero = rest.find(u'\0');
            if (zero == rest.npos)
                return entries;
            text = rest.substr(0, zero);
            rest.remove_prefix(zero + 1);
        }
        if (numbered) {
            if (rest.empty())
                return entries;
            entry.value = rest[0];
            rest.remove_prefix(1);
        }
        units = rest;
        entries.push_back(std::move(entry));
    }
    return entries;
}

std::u16string UnitsOf(std::string_view bytes)
{
    std::u16string units(bytes.size() / sizeof(char16_t), u'\0');
    std::memcpy(units.data(), bytes.data(), units.size() * sizeof(char16_t));
    return units;
}

bool IsCurrent(std::string_view table)
{
    const std::u16string units = UnitsOf(table);
    return !units.empty() && units[0] == table.size();
}

/// The entries of a current table.
Entries NumberedEntries(std::string_view table)
{
    const std::u16string units = UnitsOf(table);
    std::u16string_view rest(units);
    rest.remove_prefix(1);
    return TakeEntries(rest, true);
}

/// The entries of a whole table of the older format.
std::optional<Entries> OldEntries(std::string_view table)
{
    const std::u16string units = UnitsOf(table);
    std::u16string_view rest(units);
    Entries entries = TakeEntries(rest, false);
    if (table.size() % sizeof(char16_t) != 0 || rest != std::u16string_view(u"\0", 1))
        return std::nullopt;
    return entries;
}

Entries Walk(const psui::TrayFormTable& table)
{
    Entries entries;
    psui::TrayFormEntry entry;
    for (const WCHAR* at = table.begin; (at = psui::NextTrayFormEntry(table, at, &entry));)
        entries.push_back({{entry.tray, entry.form, entry.printerForm}, entry.value});
    return entries;
}

/// The table that the printer has must be current and have these entries.
void RequireEntries(const Entries& entries)
{
    const psui::TrayFormTable table = psui::ReadTrayFormTable(store->handle());
    fuzz::Require(table && Walk(table) == entries, "the entries of the table");
}

/// Stores the pair and tells whether it holds together.
bool StorePair(uint8_t flags, uint32_t number, std::string_view table)
{
    const DWORD size = (flags & kOtherSize) ? number : static_cast<DWORD>(table.size());
    const DWORD sizeType = (flags & kOtherSizeType) ? number : REG_DWORD;
    const DWORD tableType = (flags & kOtherTableType) ? number : REG_BINARY;
    store->Write(kSizeValue, sizeType, {reinterpret_cast<const char*>(&size), sizeof(size)});
    store->Write(kTableValue, tableType, table);
    return size == table.size() && size != 0 && sizeType == REG_DWORD && tableType == REG_BINARY;
}

void CheckConversion(const std::string& table)
{
    const std::optional<Entries> old = OldEntries(table);
    const size_t size = table.size() + 2 + 2 * (old ? old->size() : 0);
    const bool converted = psui::ConvertTrayFormTable(store->handle());
    fuzz::Require(converted == (old && size <= UINT16_MAX), "sound tables of the older format are converted");
    if (converted) {
        fuzz::Require(store->Read(kTableValue).size() == size, "size of the converted table");
        RequireEntries(*old);
    } else {
        fuzz::Require(store->Read(kTableValue) == table, "a table that is not sound is left alone");
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz::OpenWorld();
    store = new fuzz::PrinterStore("*NickName: \"Trays\"\n");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t length)
{
    fuzz::Input input(data, length);
    const uint8_t flags = input.Take<uint8_t>();
    const uint32_t number = input.Take<uint32_t>();
    std::string table(input.TakeRest());
    const auto ownSize = static_cast<uint16_t>(table.size());
    if ((flags & kOwnSize) && table.size() >= sizeof(ownSize))
        std::memcpy(table.data(), &ownSize, sizeof(ownSize));

    const bool stored = StorePair(flags, number, table);
    const bool current = stored && IsCurrent(table);
    if (current)
        RequireEntries(NumberedEntries(table));
    else
        fuzz::Require(!psui::ReadTrayFormTable(store->handle()), "only current tables are read");
    if (stored && !current) {
        CheckConversion(table);
        return 0;
    }
    fuzz::Require(psui::ConvertTrayFormTable(store->handle()), "there is nothing to convert");
    fuzz::Require(store->Read(kTableValue) == table, "there was nothing to convert");
    return 0;
}
