#include <fstream>
#include <map>
#include <sstream>
#include <vector>

#include "tests/entry/library.h"
#include "tests/settings/guarded.h"
#include "tests/settings/support.h"

namespace {

using namespace psui;
using namespace test;

class Capabilities : public testing::Test
{
protected:
    OpenWorld world_;
    Library library_;
    Printer printer_{u"Alpha", kFullModel};
    alignas(8) DriverDevMode default_ = library_.DefaultRecord(printer_.name());

    DWORD Ask(WORD capability, void* output = nullptr, DEVMODEW* record = nullptr)
    {
        return library_.Ask(printer_, capability, output, record);
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
    for (const auto& [capability, answer] : answers) {
        // Without a record of the caller's the printer's stored one counts; a printer may have none.
        EXPECT_EQ(Ask(capability), capability == DC_FIELDS ? 0x02011A03u : answer) << capability;
        alignas(8) DriverDevMode record = default_;
        EXPECT_EQ(Ask(capability, nullptr, &record.dmPublic), answer) << capability;
    }
}

TEST_F(Capabilities, FollowTheRecord)
{
    SetAll(default_, "dwOptionFlags=0x200 wScale=99 dmFields=0x800F dmPaperSize=256 dmPaperWidth=1111 "
                     "dmPaperLength=2222");
    EXPECT_EQ(Ask(DC_ORIENTATION, nullptr, &default_.dmPublic), 90u);
    EXPECT_EQ(Ask(DC_BINADJUST, nullptr, &default_.dmPublic), 2u);
    EXPECT_EQ(Ask(DC_COLLATE, nullptr, &default_.dmPublic), 1u);
    POINT sizes[5];
    ASSERT_EQ(Ask(DC_PAPERSIZE, sizes, &default_.dmPublic), 5u);
    EXPECT_EQ(sizes[2].x, 1111);
    EXPECT_EQ(sizes[2].y, 2222);

    SetAll(default_, "dmSize=100 dmSpecVersion=0");
    EXPECT_EQ(Ask(DC_COPIES, nullptr, &default_.dmPublic), kFailed) << "a record without a shape";
}

TEST_F(Capabilities, TakeThePrintersStoredRecordWhenNoneIsGiven)
{
    Set(default_, "dwOptionFlags", 0x200);
    Printer other(u"Beta", kFullModel, &default_.dmPublic);
    EXPECT_EQ(library_.Ask(other, DC_ORIENTATION), 90u);
    EXPECT_EQ(Ask(DC_ORIENTATION), 270u);
}

TEST_F(Capabilities, EmptyTheListOfDependentFiles)
{
    WCHAR text[2] = {u'x', u'y'};
    EXPECT_EQ(Ask(DC_FILEDEPENDENCIES, text), 0u);
    EXPECT_EQ(text[0], 0);
    EXPECT_EQ(text[1], u'y');
}

TEST_F(Capabilities, NeedPrinterAndModelButNoDeviceName)
{
    EXPECT_EQ(library_.capabilities(nullptr, printer_.name(), DC_COPIES, nullptr, nullptr), kFailed);
    EXPECT_EQ(library_.capabilities(printer_.handle(), nullptr, DC_COPIES, nullptr, nullptr), 999u);
    Printer gone(u"Gone", kFullModel);
    std::filesystem::remove(gone.DataFile());
    EXPECT_EQ(library_.Ask(gone, DC_COPIES), kFailed);
    EXPECT_EQ(Ask(DC_COPIES), 999u);
}

/// Bytes of an output entry of that capability; 0 when it writes none.
size_t EntryBytes(WORD capability)
{
    static const std::map<WORD, size_t> bytes = {
        {DC_PAPERS, 2},       {DC_BINS, 2},         {DC_FILEDEPENDENCIES, 2},
        {DC_MEDIATYPES, 4},   {DC_PAPERSIZE, 8},    {DC_BINNAMES, 48},
        {DC_PAPERNAMES, 128}, {DC_MEDIAREADY, 128}, {DC_MEDIATYPENAMES, 128}};
    const auto found = bytes.find(capability);
    return found == bytes.end() ? 0 : found->second;
}

/// Text in every cell, and nothing but zeros behind its terminator.
void ExpectNames(const BYTE* cells, DWORD count, size_t entry)
{
    for (DWORD i = 0; i < count; ++i) {
        const WCHAR* name = reinterpret_cast<const WCHAR*>(cells + i * entry);
        const WCHAR* end = name + entry / sizeof(WCHAR);
        const WCHAR* zero = std::find(name, end, u'\0');
        ASSERT_NE(zero, end) << i;
        ASSERT_EQ(std::count(zero, end, u'\0'), end - zero) << i;
    }
}

/// Every number there is, first for the count, then into a buffer of exactly the promised size.
void ExpectTwoCallContract(const Library& library, Printer& printer)
{
    constexpr size_t kSmallestName = 48;
    GuardedMemory memory(1 << 16);
    for (DWORD index = 0; index <= 65535; ++index) {
        SCOPED_TRACE(index);
        const WORD capability = static_cast<WORD>(index);
        const DWORD count = library.Ask(printer, capability);
        const size_t entry = EntryBytes(capability);
        if (count == kFailed) {
            ASSERT_EQ(entry, 0u);
            continue;
        }
        const size_t bytes = capability == DC_FILEDEPENDENCIES ? entry : entry * count;
        BYTE* output = memory.Last(bytes);
        std::memset(output, 0xEE, bytes);
        ASSERT_EQ(library.Ask(printer, capability, output), count);
        if (entry >= kSmallestName)
            ExpectNames(output, count, entry);
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
            EXPECT_EQ(library.Ask(printer, DC_COPIES, nullptr, reinterpret_cast<DEVMODEW*>(record)), 999u)
                << publicSize << " " << privateSize;
        }
}

} // namespace
