#include "psui/settings/printer_data.h"

#include <algorithm>
#include <array>
#include <map>
#include <sstream>
#include <tuple>

#include <dlfcn.h>

#include "psui/settings/spooler.h"
#include "psui/settings/tray_forms.h"
#include "tests/entry/fail_each.h"
#include "tests/entry/printer.h"
#include "tests/settings/administered.h"
#include "tests/settings/support.h"

namespace {

DWORD overstatedForms = 0; // more forms than there are, as a faulty spooler may tell

}

// Stands in front of the layer's function of that name.
BOOL WINAPI EnumFormsW(HANDLE printer, DWORD level, LPBYTE forms, DWORD size, LPDWORD needed, LPDWORD count)
{
    static const auto next = reinterpret_cast<decltype(&EnumFormsW)>(dlsym(RTLD_NEXT, "EnumFormsW"));
    const BOOL result = next(printer, level, forms, size, needed, count);
    *count += result ? overstatedForms : 0;
    return result;
}

namespace {

using namespace std::literals;
using namespace test;
using psui::HeapPtr;
using psui::PrinterWideData;

constexpr std::string_view kInstallableModel = R"(*SuggestedJobTimeout: "31"
*SuggestedWaitTimeout: "242"
*PageSize A4/A4 sheet: "a"
*PageSize Letter: "b"
*PageSize Boundless: "c"
*PaperDimension A4: "595 842"
*PaperDimension Letter: "612 792"
*OpenGroup: InstallableOptions/Options
*OpenUI *VMOption/Memory: PickOne
*VMOption 4Meg: "4194304"
*VMOption 8Meg: "8388608"
*CloseUI: *VMOption
*OpenUI *Option1/Tray: PickOne
*DefaultOption1: False
*Option1 True: ""
*Option1 False: ""
*CloseUI: *Option1
*CloseGroup: InstallableOptions/Options
)";

void Store(HANDLE printer, std::u16string name, DWORD type, const void* bytes, size_t size)
{
    BYTE nothing = 0;
    auto* data = size ? static_cast<BYTE*>(const_cast<void*>(bytes)) : &nothing;
    ASSERT_EQ(SetPrinterDataW(printer, name.data(), type, data, static_cast<DWORD>(size)), ERROR_SUCCESS);
}

void Store(HANDLE printer, std::u16string name, DWORD number)
{
    Store(printer, std::move(name), REG_DWORD, &number, sizeof(number));
}

/// The bytes of a value; empty when it is missing.
std::string Stored(HANDLE printer, std::u16string name)
{
    BYTE data[65536];
    DWORD needed = 0;
    if (GetPrinterDataW(printer, name.data(), nullptr, data, sizeof(data), &needed) != ERROR_SUCCESS)
        return {};
    return {reinterpret_cast<char*>(data), needed};
}

std::string Bytes(std::u16string_view units)
{
    return {reinterpret_cast<const char*>(units.data()), units.size() * sizeof(WCHAR)};
}

void StoreTable(HANDLE printer, const std::string& table)
{
    Store(printer, u"TrayFormSize", static_cast<DWORD>(table.size()));
    Store(printer, u"TrayFormTable", REG_BINARY, table.data(), table.size());
}

struct PrinterDataTest : testing::Test
{
    World world;
    Printer printer{u"P1", kInstallableModel};
    Model model{kInstallableModel};
    Administered administered{printer};
    HANDLE handle = administered.get();

    HeapPtr<PrinterWideData> Read() { return psui::ReadPrinterWideData(handle, model); }

    void StoreData(DWORD stated, size_t size, const void* bytes, DWORD type = REG_BINARY)
    {
        Store(handle, u"PrinterDataSize", stated);
        Store(handle, u"PrinterData", type, bytes, size);
    }

    /// "tray|form|printer form|number " of the entries of the tray-form table.
    std::u16string Entries()
    {
        const psui::TrayFormTable table = psui::ReadTrayFormTable(handle);
        EXPECT_TRUE(table);
        std::u16string entries;
        psui::TrayFormEntry e;
        for (const WCHAR* p = table.begin; (p = psui::NextTrayFormEntry(table, p, &e));) {
            EXPECT_LE(p, table.end);
            entries += std::u16string(e.tray) + u'|' + e.form + u'|' + e.printerForm + u'|';
            entries += {static_cast<char16_t>(e.value), u' '};
        }
        return entries;
    }
};

TEST_F(PrinterDataTest, IsBuiltFromTheModelWhenNothingIsStored)
{
    const auto data = Read();
    ASSERT_TRUE(data);
    EXPECT_EQ(data->wVersion, 1301);
    EXPECT_EQ(data->wSize, 108);
    EXPECT_EQ(data->dwFreeMem, 4194304u);
    EXPECT_EQ(data->dwJobTimeout, 31u);
    EXPECT_EQ(data->dwWaitTimeout, 242u);
    EXPECT_EQ(data->dwStringSet, 0u);
    EXPECT_EQ(data->wModelCrc, model->sourceCrc);
    EXPECT_EQ(data->wInstallableCount, 2);
    EXPECT_EQ(data->abInstallableSel[0], 0);
    EXPECT_EQ(data->abInstallableSel[1], 1);
    EXPECT_EQ(Stored(handle, u"PrinterData"), "") << "reading writes nothing";
}

TEST_F(PrinterDataTest, TakesFreeMemoryInKilobytesWithinBounds)
{
    std::istringstream rows("0 102400  100 102400  101 103424  4194303 4294966272  4194304 4294967295 "
                            "4294967295 4294967295");
    for (DWORD stored, bytes; rows >> stored >> bytes;) {
        Store(handle, u"FreeMem", stored);
        EXPECT_EQ(Read()->dwFreeMem, bytes) << stored;
    }
}

TEST_F(PrinterDataTest, FlagsHalftoneAndMetricCountry)
{
    const uint32_t page = GetACP() == 1252 ? 0 : 4;
    SetCountry(u"1");
    EXPECT_EQ(Read()->dwFlags, page);
    SetCountry(u"49");
    EXPECT_EQ(Read()->dwFlags, page | 1);
    Store(handle, u"PrinterHT", REG_BINARY, "\0\0\0\0", 4);
    EXPECT_EQ(Read()->dwFlags, page | 1);
    Store(handle, u"PrinterHT", REG_BINARY, "\0\0\1\0", 4);
    EXPECT_EQ(Read()->dwFlags, page | 3);
}

TEST_F(PrinterDataTest, IgnoresNumbersOfAnotherTypeOrSize)
{
    const auto usual = Read();
    const std::tuple<const char16_t*, DWORD, size_t> cases[] = {{u"FreeMem", REG_BINARY, 4},
                                                                {u"FreeMem", REG_DWORD, 5},
                                                                {u"PrinterHT", REG_BINARY, 3},
                                                                {u"PrinterHT", REG_SZ, 4}};
    for (const auto& [name, type, size] : cases) {
        Store(handle, name, type, "\1\1\1\1\1", size);
        EXPECT_EQ(std::memcmp(Read().get(), usual.get(), sizeof(*usual)), 0) << type << ' ' << size;
    }
}

TEST_F(PrinterDataTest, KeepsWhatIsStoredForThisModel)
{
    PrinterWideData stored = *Read();
    stored.dwFreeMem = 77;
    stored.dwStringSet = 2;
    stored.abInstallableSel[1] = 0;
    StoreData(108, 108, &stored);
    EXPECT_EQ(std::memcmp(Read().get(), &stored, 108), 0);
}

TEST_F(PrinterDataTest, SelectsAnewWhenTheModelHasChanged)
{
    PrinterWideData stored = *Read();
    stored.dwFreeMem = 77;
    stored.wModelCrc ^= 1;
    stored.wInstallableCount = 60000;
    std::fill_n(stored.abInstallableSel, 64, uint8_t{200});
    StoreData(108, 108, &stored);
    const auto data = Read();
    EXPECT_EQ(data->wModelCrc, model->sourceCrc);
    EXPECT_EQ(data->wInstallableCount, 2);
    EXPECT_EQ(data->abInstallableSel[0], 0);
    EXPECT_EQ(data->abInstallableSel[1], 1);
    EXPECT_EQ(data->dwFreeMem, 77u);
    EXPECT_EQ(Stored(handle, u"PrinterData"), std::string(reinterpret_cast<char*>(&stored), 108));
}

TEST_F(PrinterDataTest, IsBuiltWhenWhatIsStoredIsNotSound)
{
    const auto usual = Read();
    std::string stored(216, '\x5A');
    const std::tuple<DWORD, size_t, DWORD> cases[] = {
        {108, 107, REG_BINARY}, {108, 109, REG_BINARY}, {109, 109, REG_BINARY}, {0xFFFFFFFF, 108, REG_BINARY},
        {0, 108, REG_BINARY},   {1, 1, REG_BINARY},     {216, 216, REG_BINARY}, {108, 108, REG_SZ}};
    for (const auto& [stated, size, type] : cases) {
        StoreData(stated, size, stored.data(), type);
        EXPECT_EQ(std::memcmp(Read().get(), usual.get(), 108), 0) << stated << ' ' << size;
    }
}

TEST_F(PrinterDataTest, AllocatesNoSizeThatNoPrinterHas)
{
    Store(handle, u"PrinterDataSize", 0x40000000);
    DWORD forms = 1;
    host::MisreadCalls(0, true, host::Misread::Huge);
    host::StartProfile();
    EXPECT_FALSE(psui::GetPrinterInfo(handle));
    EXPECT_FALSE(psui::GetDriverInfo(handle));
    EXPECT_FALSE(psui::EnumPrinterForms(handle, forms));
    EXPECT_EQ(forms, 0u);
    host::StopFailing();
    EXPECT_TRUE(Read());
    EXPECT_LT(host::StopProfile().peakBytes, 4096u);
}

// Two entries in the older format.
const std::u16string kOld(u"Upper\0A4\0A4 sheet\0Lower\0Letter\0\0\0", 33);

std::u16string Current(const std::u16string& entries)
{
    return static_cast<char16_t>((entries.size() + 1) * 2) + entries;
}

const std::u16string kNew = Current({u"Upper\0A4\0A4 sheet\0\0Lower\0Letter\0\0\0\0", 35});

TEST_F(PrinterDataTest, ConvertsAnOldTrayFormTable)
{
    EXPECT_TRUE(psui::ConvertTrayFormTable(handle)) << "there is none";
    EXPECT_EQ(Stored(handle, u"TrayFormSize"), "");
    StoreTable(handle, Bytes(kOld));
    for (const char* state : {"it is old", "it is current"}) {
        EXPECT_TRUE(psui::ConvertTrayFormTable(handle)) << state;
        EXPECT_EQ(Stored(handle, u"TrayFormTable"), Bytes(kNew)) << state;
        EXPECT_EQ(Stored(handle, u"TrayFormSize"), std::string("\x48\0\0\0", 4)) << state;
    }
    StoreTable(handle, Bytes({u"\0", 1}));
    EXPECT_TRUE(psui::ConvertTrayFormTable(handle));
    EXPECT_EQ(Stored(handle, u"TrayFormTable"), Bytes({u"\4\0", 2}));
}

TEST_F(PrinterDataTest, LeavesAnOldTrayFormTableThatIsNotSound)
{
    const std::string whole = Bytes(kOld);
    // A cut that ends in an entry's last zero is refused too: the zero that ends the table is missing.
    for (size_t size = 1; size < whole.size(); ++size) {
        const std::string cut = whole.substr(0, size);
        StoreTable(handle, cut);
        EXPECT_FALSE(psui::ConvertTrayFormTable(handle)) << size;
        EXPECT_EQ(Stored(handle, u"TrayFormTable"), cut) << size;
    }
    const std::u16string longest(32740, 'x');
    for (const std::u16string& table :
         {std::u16string(u"\0\0", 2), kOld + u'\0', kOld + u"x", kOld.substr(0, 32) + u"x",
          longest + std::u16string(u"\0A4\0A4 sheet\0B\0C\0D\0E\0F\0G\0", 26)}) {
        StoreTable(handle, Bytes(table));
        EXPECT_FALSE(psui::ConvertTrayFormTable(handle)) << table.size();
        EXPECT_EQ(Stored(handle, u"TrayFormTable"), Bytes(table));
    }
}

TEST_F(PrinterDataTest, WalksTheWholeEntriesOfATrayFormTable)
{
    std::u16string units = kNew;
    units[units.size() - 2] = 0xD800; // the second entry's number
    const std::string whole = Bytes(units);
    for (size_t size = 2; size <= whole.size(); ++size) {
        std::string cut = whole.substr(0, size);
        cut[0] = static_cast<char>(size);
        StoreTable(handle, cut);
        const std::u16string_view both(u"Upper|A4|A4 sheet|\0 Lower|Letter||\xD800 ", 36);
        EXPECT_EQ(Entries(), both.substr(0, size < 40 ? 0 : size < whole.size() - 2 ? 20 : 36)) << size;
    }
}

TEST_F(PrinterDataTest, HasNoTrayFormTableWhenItsSizesDisagree)
{
    std::string table = Bytes(kNew);
    EXPECT_FALSE(psui::ReadTrayFormTable(handle));
    Store(handle, u"TrayFormTable", REG_BINARY, table.data(), table.size());
    EXPECT_FALSE(psui::ReadTrayFormTable(handle)) << "no size is stored";
    for (DWORD stated : {0u, 1u, 2u, 71u, 72u, 73u, 0x10048u, 0xFFFFFFFFu}) {
        Store(handle, u"TrayFormSize", stated);
        EXPECT_EQ(bool{psui::ReadTrayFormTable(handle)}, stated == 72) << stated;
    }
    table[0] = 70;
    StoreTable(handle, table);
    EXPECT_FALSE(psui::ReadTrayFormTable(handle)) << "it says another size";
}

TEST_F(PrinterDataTest, NeverLosesATrayFormTableSilently)
{
    bool converted = false;
    for (const Requests& requests : {kAllocations, kCalls, kCallsOnwards, kReads<host::Misread::Huge>})
        FailEach(
            requests, [&] { StoreTable(handle, Bytes(kOld)); },
            [&] { converted = psui::ConvertTrayFormTable(handle); },
            [&](bool failed) {
                EXPECT_TRUE(failed || converted);
                const std::string table = Stored(handle, u"TrayFormTable");
                EXPECT_TRUE(table == Bytes(kOld) || (converted && table == Bytes(kNew)));
            });
}

/// Flags, size and right and bottom of the imageable area.
using Form = std::array<LONG, 5>;

std::map<std::u16string, Form> Forms(HANDLE printer)
{
    std::map<std::u16string, Form> result;
    DWORD count = 0;
    const auto forms = psui::EnumPrinterForms(printer, count);
    for (const FORM_INFO_1W* f = forms.get(); f != forms.get() + count; ++f)
        result[f->pName] = {static_cast<LONG>(f->Flags), f->Size.cx, f->Size.cy, f->ImageableArea.right,
                            f->ImageableArea.bottom};
    return result;
}

void AddUserForm(HANDLE printer, std::u16string name)
{
    FORM_INFO_1W form = {};
    form.pName = name.data();
    form.Size = {1000, 2000};
    form.ImageableArea = {0, 0, 1000, 2000};
    ASSERT_TRUE(AddFormW(printer, 1, reinterpret_cast<BYTE*>(&form))) << GetLastError();
}

constexpr Form kA4Form = {FORM_PRINTER, 209902, 297038, 209902, 297038};

TEST_F(PrinterDataTest, RegistersTheModelsPageSizesOnce)
{
    auto expected = Forms(handle);
    expected[u"A4 sheet"] = kA4Form;
    psui::RegisterModelForms(handle, model);
    EXPECT_EQ(Forms(handle), expected) << "Letter is built in, Boundless has no size";
    EXPECT_EQ(Stored(handle, u"Forms?"), std::string("\2\0\0\0", 4));

    std::u16string name = u"A4 sheet";
    ASSERT_TRUE(DeleteFormW(handle, name.data()));
    psui::RegisterModelForms(handle, model);
    EXPECT_EQ(Forms(handle).count(name), 0u);
    Store(handle, u"Forms?", 0);
    psui::RegisterModelForms(handle, model);
    EXPECT_EQ(Forms(handle), expected);
}

TEST_F(PrinterDataTest, RemembersRegistrationOnlyForModelsWithPageSizes)
{
    const auto before = Forms(handle);
    const Model none(kEmptyModel);
    psui::RegisterModelForms(handle, none);
    EXPECT_EQ(Stored(handle, u"Forms?"), "");
    const Model noOptions("*OpenUI *PageSize: PickOne\n*CloseUI: *PageSize\n");
    ASSERT_NE(psui::BuiltinFeature(noOptions, psui::kFeaturePageSize), nullptr);
    psui::RegisterModelForms(handle, noOptions);
    EXPECT_EQ(Stored(handle, u"Forms?"), std::string("\2\0\0\0", 4));
    EXPECT_EQ(Forms(handle), before);
}

TEST_F(PrinterDataTest, ReplacesUserFormsOfTheModelsNames)
{
    AddUserForm(handle, u"A4 sheet");
    for (const std::u16string& other :
         {u"A4 sheets"s, u"A4 shee"s, u"A4 sheet\x01"s, u"A4 sheet\xD800"s, u"\xDC00\xD800"s, u"%s[A4]=;"s})
        AddUserForm(handle, other);
    auto expected = Forms(handle);
    psui::RefreshModelForms(handle, model);
    EXPECT_EQ(Forms(handle), expected) << "the forms were never registered";
    psui::RegisterModelForms(handle, model);
    EXPECT_EQ(Forms(handle), expected) << "the user's form bears the name";
    psui::RefreshModelForms(handle, model);
    expected[u"A4 sheet"] = kA4Form;
    EXPECT_EQ(Forms(handle), expected);
    psui::RefreshModelForms(handle, model);
    EXPECT_EQ(Forms(handle), expected);
}

TEST_F(PrinterDataTest, ReadsNoMoreFormsThanTheSpoolerGave)
{
    psui::RegisterModelForms(handle, model);
    AddUserForm(handle, u"A4 sheets");
    DWORD given = 0, count = 0;
    psui::EnumPrinterForms(handle, given);
    const auto expected = Forms(handle);
    for (const DWORD overstated : {1u, 100u, 0x7FFFFFFFu, 0xFFFFFFFFu - given}) {
        overstatedForms = overstated;
        psui::EnumPrinterForms(handle, count);
        EXPECT_GE(count, given) << overstated;
        psui::RefreshModelForms(handle, model);
        overstatedForms = 0;
        EXPECT_EQ(Forms(handle), expected) << overstated;
    }
}

TEST_F(PrinterDataTest, GivesEverythingBackWhenFormsCannotBeRefreshed)
{
    for (const Requests& requests : {kAllocations, kCalls, kCallsOnwards, kReads<host::Misread::Huge>})
        FailEach(
            requests,
            [&] {
                std::u16string name = u"A4 sheet";
                DeleteFormW(handle, name.data());
                AddUserForm(handle, name);
                Store(handle, u"Forms?", 2);
            },
            [&] { psui::RefreshModelForms(handle, model); },
            [&](bool failed) { EXPECT_TRUE(failed || Forms(handle)[u"A4 sheet"] == kA4Form); });
}

} // namespace
