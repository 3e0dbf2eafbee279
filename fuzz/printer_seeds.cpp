// printer_seeds DIR: writes the seeds of printer_tray_forms and printer_data below DIR.
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "fuzz/seeds.h"

namespace {

using fuzz::BytesOf;

std::string BytesOfUnits(std::u16string_view units)
{
    return std::string(reinterpret_cast<const char*>(units.data()), units.size() * sizeof(char16_t));
}

struct TableSeed
{
    const char* name;
    uint8_t flags; ///< of printer_tray_forms: 1 other size, 2 and 4 other types, 8 own size
    uint32_t number;
    std::u16string table;
};

const TableSeed kTableSeeds[] = {
    {"old", 0, 0, {u"Upper\0A4\0A4 sheet\0Lower\0Letter\0\0\0", 33}},
    {"old-empty", 0, 0, {u"\0", 1}},
    {"old-unterminated", 0, 0, {u"Upper\0A4\0A4 sheet\0", 18}},
    {"old-cut", 0, 0, {u"Upper\0A4\0A4", 11}},
    {"current", 8, 0, {u" Upper\0A4\0A4 sheet\0\0Lower\0Letter\0\0\7\0", 36}},
    {"current-empty", 8, 0, {u" \0", 2}},
    {"current-cut", 8, 0, {u" Upper\0A4\0A4 sheet\0", 19}},
    {"other-size", 1, 0xFFFFFFFF, {u"\0", 1}},
    {"other-size-type", 2, 3, {u"\0", 1}},
    {"other-table-type", 4, 1, {u"\0", 1}},
    {"too-long", 0, 0, std::u16string(4000, u'x') + std::u16string(u"\0A4\0A4\0\0", 8)},
    {"nothing", 0, 0, {}},
};

/// A value as printer_data takes it: absent, or of its own type (1) or another (2 and the type times 4).
std::string Value(uint8_t bits, const std::string& bytes)
{
    return BytesOf(bits) + BytesOf(static_cast<uint16_t>(bytes.size())) + bytes;
}

const std::string kAbsent = Value(0, {});

std::string Number(uint32_t number, uint8_t bits = 1)
{
    return Value(bits, BytesOf(number));
}

std::string Form(std::u16string name)
{
    name.resize(32);
    return BytesOfUnits(name) + BytesOf(int32_t{210000}) + BytesOf(int32_t{297000});
}

struct DataSeed
{
    const char* name;
    uint8_t flags; ///< of printer_data: 1 to 5 misread, 8 own stamp, 16 and 32 forms
    uint8_t skippedReads;
    std::string values;
};

const std::string kWide(108, '\1');
const std::string kTable = BytesOfUnits({u"\x24Tray1\0A4\0A4 sheet\0\0", 19});

const DataSeed kDataSeeds[] = {
    {"nothing", 0, 0, {}},
    {"own", 8, 0, Number(108) + Value(1, kWide)},
    {"other-model", 0, 0, Number(108) + Value(1, kWide)},
    {"short", 8, 0, Number(107) + Value(1, std::string(107, '\1'))},
    {"sizes-differ", 8, 0, Number(107) + Value(1, kWide)},
    {"huge-size", 8, 0, Number(0xFFFFFFFF) + Value(1, kWide)},
    {"other-types", 8, 0, Number(108, 2 + 4 * 3) + Value(2 + 4 * 1, kWide)},
    {"memory", 0, 0, kAbsent + kAbsent + Number(50) + Number(1)},
    {"much-memory", 0, 0, kAbsent + kAbsent + Number(0xFFFFFFFF)},
    {"registered", 32, 0, kAbsent + kAbsent + kAbsent + kAbsent + Number(2)},
    {"user-form", 16, 0, kAbsent + kAbsent + kAbsent + kAbsent + Number(0)},
    {"trays", 0, 0, kAbsent + kAbsent + kAbsent + kAbsent + Number(2) + Number(38) + Value(1, kTable)},
};

void WriteTables(const std::filesystem::path& folder)
{
    for (const TableSeed& seed : kTableSeeds)
        fuzz::WriteSeed(folder / seed.name,
                        BytesOf(seed.flags) + BytesOf(seed.number) + BytesOfUnits(seed.table));
}

void WriteData(const std::filesystem::path& folder)
{
    for (const DataSeed& seed : kDataSeeds)
        fuzz::WriteSeed(folder / seed.name,
                        BytesOf(seed.flags) + BytesOf(seed.skippedReads) + Form(u"A form") + seed.values);
    // Each wrong answer of the spooler to each of the first reads of a sheet.
    for (uint8_t misread = 1; misread <= 5; ++misread)
        for (uint8_t skipped = 0; skipped < 24; ++skipped)
            fuzz::WriteSeed(folder / ("misread-" + std::to_string(misread) + "-" + std::to_string(skipped)),
                            BytesOf(misread) + BytesOf(skipped) + Form(u""));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: printer_seeds DIR\n", stderr);
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    WriteTables(folder / "printer_tray_forms");
    WriteData(folder / "printer_data");
    return 0;
}
