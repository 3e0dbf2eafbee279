#include <fstream>
#include <sstream>
#include <vector>

#include "tests/entry/library.h"
#include "tests/settings/guarded.h"
#include "tests/settings/support.h"

namespace {

using namespace test;

class Capabilities : public testing::Test
{
protected:
    OpenWorld world_;
    Library library_;
    Printer printer_{u"Alpha", kFullModel};

    DWORD Ask(WORD capability, void* output = nullptr, DEVMODEW* record = nullptr)
    {
        return library_.capabilities(printer_.handle(), printer_.name(), capability, output, record);
    }
};

TEST_F(Capabilities, AnswerEveryIndex)
{
    const std::pair<WORD, DWORD> answers[] = {
        {DC_FIELDS, 0x02011B03},    {DC_PAPERS, 5},         {DC_PAPERSIZE, 5},  {DC_MINEXTENT, 0x04F60379},
        {DC_MAXEXTENT, 0x10DE0B36}, {DC_BINS, 4},           {DC_DUPLEX, 1},     {DC_SIZE, 220},
        {DC_EXTRA, 1632},           {DC_VERSION, 0x0401},   {DC_DRIVER, 1301},  {DC_BINNAMES, 4},
        {DC_FILEDEPENDENCIES, 0},   {DC_TRUETYPE, 1},       {DC_PAPERNAMES, 5}, {DC_ORIENTATION, 270},
        {DC_COPIES, 999},           {DC_BINADJUST, 1},      {DC_COLLATE, 0},    {DC_PRINTRATE, 12},
        {DC_PRINTRATEUNIT, 1},      {DC_MEDIAREADY, 5},     {DC_STAPLE, 0},     {DC_PRINTRATEPPM, 12},
        {DC_COLORDEVICE, 1},        {DC_MEDIATYPENAMES, 6}, {DC_MEDIATYPES, 6},
    };
    alignas(8) psui::DriverDevMode stored = {};
    for (const auto& [capability, answer] : answers) {
        // Without a record of the caller's the printer's stored one counts; a printer may have none.
        EXPECT_EQ(Ask(capability), capability == DC_FIELDS ? 0x02011A03u : answer) << capability;
        LONG size = sizeof(stored);
        ASSERT_TRUE(
            library_.convert(printer_.name(), nullptr, &stored.dmPublic, &size, psui::kDriverDefault));
        EXPECT_EQ(Ask(capability, nullptr, &stored.dmPublic), answer) << capability;
    }
}

TEST_F(Capabilities, FollowTheRecord)
{
    alignas(8) psui::DriverDevMode record;
    LONG size = sizeof(record);
    ASSERT_TRUE(library_.convert(printer_.name(), nullptr, &record.dmPublic, &size, psui::kDriverDefault));
    SetAll(record, {{"dwOptionFlags", 0x200},
                    {"wScale", 99},
                    {"dmFields", 0x8000 | 0x0F},
                    {"dmPaperSize", 256},
                    {"dmPaperWidth", 1111},
                    {"dmPaperLength", 2222}});
    EXPECT_EQ(Ask(DC_ORIENTATION, nullptr, &record.dmPublic), 90u);
    EXPECT_EQ(Ask(DC_BINADJUST, nullptr, &record.dmPublic), 2u);
    EXPECT_EQ(Ask(DC_COLLATE, nullptr, &record.dmPublic), 1u);
    POINT sizes[5];
    ASSERT_EQ(Ask(DC_PAPERSIZE, sizes, &record.dmPublic), 5u);
    EXPECT_EQ(sizes[2].x, 1111);
    EXPECT_EQ(sizes[2].y, 2222);

    SetAll(record, {{"dmSize", 100}, {"dmSpecVersion", 0}});
    EXPECT_EQ(Ask(DC_COPIES, nullptr, &record.dmPublic), kFailed) << "a record without a shape";
}

TEST_F(Capabilities, TakeThePrintersStoredRecordWhenNoneIsGiven)
{
    alignas(8) psui::DriverDevMode stored;
    LONG size = sizeof(stored);
    ASSERT_TRUE(library_.convert(printer_.name(), nullptr, &stored.dmPublic, &size, psui::kDriverDefault));
    SetAll(stored, {{"dwOptionFlags", 0x200}});
    Printer other(u"Beta", kFullModel, &stored.dmPublic);
    EXPECT_EQ(library_.capabilities(other.handle(), other.name(), DC_ORIENTATION, nullptr, nullptr), 90u);
    EXPECT_EQ(Ask(DC_ORIENTATION), 270u);
}

TEST_F(Capabilities, EmptyTheListOfDependentFiles)
{
    WCHAR text[2] = {u'x', u'y'};
    EXPECT_EQ(Ask(DC_FILEDEPENDENCIES, text), 0u);
    EXPECT_EQ(text[0], 0);
    EXPECT_EQ(text[1], u'y');
}

TEST_F(Capabilities, FailWithoutPrinterOrModel)
{
    EXPECT_EQ(library_.capabilities(nullptr, printer_.name(), DC_COPIES, nullptr, nullptr), kFailed);
    Printer gone(u"Gone", kFullModel);
    std::filesystem::remove(gone.DataFile());
    EXPECT_EQ(library_.capabilities(gone.handle(), gone.name(), DC_COPIES, nullptr, nullptr), kFailed);
    EXPECT_EQ(Ask(DC_COPIES), 999u);
}

TEST_F(Capabilities, NeedNoDeviceName)
{
    EXPECT_EQ(library_.capabilities(printer_.handle(), nullptr, DC_COPIES, nullptr, nullptr), 999u);
}

/// Every number there is, first for the count, then into a buffer of exactly the promised size.
void ExpectTwoCallContract(const Library& library, Printer& printer)
{
    GuardedMemory memory(1 << 16);
    for (DWORD index = 0; index <= 65535; ++index) {
        const WORD capability = static_cast<WORD>(index);
        const DWORD count =
            library.capabilities(printer.handle(), printer.name(), capability, nullptr, nullptr);
        const size_t entry = EntryBytes(capability);
        if (count == kFailed) {
            ASSERT_EQ(entry, 0u) << capability;
            continue;
        }
        const size_t bytes = capability == DC_FILEDEPENDENCIES ? entry : entry * count;
        BYTE* output = memory.Last(bytes);
        std::memset(output, 0xEE, bytes);
        ASSERT_EQ(library.capabilities(printer.handle(), printer.name(), capability, output, nullptr), count)
            << capability;
        if (entry >= 48)
            for (DWORD i = 0; i < count; ++i) {
                // Terminated, and nothing but zeros behind the terminator.
                const WCHAR* name = reinterpret_cast<const WCHAR*>(output + i * entry);
                const WCHAR* end = name + entry / sizeof(WCHAR);
                const WCHAR* zero = std::find(name, end, u'\0');
                ASSERT_NE(zero, end) << capability << " entry " << i;
                ASSERT_EQ(std::count(zero, end, u'\0'), end - zero) << capability << " entry " << i;
            }
    }
}

std::string ReadSourceFile(const std::string& path)
{
    std::ifstream file(std::string(PSUI_SOURCE_DIR) + "/" + path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

TEST(CapabilityContract, HoldsForEveryNumberAndModel)
{
    OpenWorld world;
    const Library library("jpn");
    Printer full(u"Full", kFullModel), empty(u"Empty", kEmptyModel);
    ExpectTwoCallContract(library, full);
    ExpectTwoCallContract(library, empty);
    for (const char* model : {"palette310", "palette520", "palette940"}) {
        const std::string name = model;
        const std::string text = ReadSourceFile("models/" + name + ".ppd");
        ASSERT_FALSE(text.empty());
        Printer printer(std::u16string(name.begin(), name.end()), text);
        SCOPED_TRACE(model);
        ExpectTwoCallContract(library, printer);
    }
}

TEST(CapabilityContract, HoldsForHostileRecords)
{
    OpenWorld world;
    const Library library;
    Printer printer(u"Alpha", kFullModel);
    GuardedMemory memory(2 * 65535);
    const WORD sizes[] = {0, 1, 68, 71, 72, 73, 76, 112, 188, 212, 219, 220, 221, 1632, 1852, 65535};
    for (const WORD publicSize : sizes)
        for (const WORD privateSize : sizes) {
            BYTE* record = memory.Last(std::max<size_t>(72, size_t{publicSize} + privateSize));
            const WORD shape[] = {0x0401, 1301, publicSize, privateSize};
            std::memcpy(record + 64, shape, sizeof(shape));
            EXPECT_EQ(library.capabilities(printer.handle(), printer.name(), DC_COPIES, nullptr,
                                           reinterpret_cast<DEVMODEW*>(record)),
                      999u)
                << publicSize << " " << privateSize;
        }
}

} // namespace
