#include <tuple>

#include "tests/entry/library.h"
#include "tests/settings/support.h"

namespace {

using namespace psui;
using namespace test;

class ConvertDevMode : public testing::Test
{
protected:
    OpenWorld world_;
    Library library_;
    Printer printer_{u"Alpha", kFullModel};
    alignas(8) DriverDevMode default_ = library_.DefaultRecord(printer_.name());

    using Outcome = std::tuple<BOOL, LONG, DWORD>; ///< result, size, error

    Outcome Convert(DWORD mode, DEVMODEW* input, DEVMODEW* output, LONG size)
    {
        SetLastError(4711);
        const BOOL result = library_.convert(printer_.name(), input, output, &size, mode);
        return {result, size, result ? 0 : GetLastError()};
    }
};

TEST_F(ConvertDevMode, BuildsTheDefaultOfTheCountryAndOfTheTextAsItIsNow)
{
    ExpectFields(default_, "dmFields=0x02011A03 dmPaperSize=1 wCaptValue=13 dwStringMask=1");
    EXPECT_EQ(Text(default_.dmPublic.dmDeviceName, 32), u"Alpha");
    SetCountry(u"49");
    EXPECT_EQ(library_.DefaultRecord(printer_.name()).dmPublic.dmPaperSize, 9);
    library_.Ask(printer_, DC_COPIES);
    printer_.ReplaceModel("*CAPT X: \"77\"\n");
    EXPECT_EQ(Get(library_.DefaultRecord(printer_.name()), "wCaptValue"), 77);
}

TEST_F(ConvertDevMode, AnswersBadArgumentsAsDocumented)
{
    alignas(8) DriverDevMode output = default_;
    DEVMODEW* in = &default_.dmPublic;
    DEVMODEW* out = &output.dmPublic;
    const std::tuple<const char*, DWORD, DEVMODEW*, DEVMODEW*, LONG, Outcome> cases[] = {
        {"convert", 1, in, out, 1852, {TRUE, 1852, 0}},
        {"convert with room to spare", 1, in, out, 9999, {TRUE, 1852, 0}},
        {"convert with too little room", 1, in, out, 1851, {FALSE, 1851, 87}},
        {"convert with no room for the header", 1, in, out, 71, {FALSE, 71, 87}},
        {"convert with a negative size", 1, in, out, -1, {FALSE, -1, 87}},
        {"convert without input", 1, nullptr, out, 1852, {FALSE, 1852, 87}},
        {"convert without output", 1, in, nullptr, 1852, {FALSE, 1852, 87}},
        {"old format", 2, in, out, 300, {TRUE, 300, 0}},
        {"old format with too little room", 2, in, out, 200, {FALSE, 300, 122}},
        {"old format without output", 2, in, nullptr, 999, {FALSE, 300, 122}},
        {"old format without input", 2, nullptr, out, 999, {FALSE, 999, 87}},
        {"default with room to spare", 4, nullptr, out, 5000, {TRUE, 1852, 0}},
        {"default with too little room", 4, nullptr, out, 1851, {FALSE, 1852, 122}},
        {"default without output", 4, nullptr, nullptr, 1852, {FALSE, 1852, 122}},
        {"mode 0", 0, in, out, 1852, {FALSE, 1852, 4711}},
        {"mode 3", 3, in, out, 1852, {FALSE, 1852, 4711}},
    };
    for (const auto& [what, mode, input, result, size, outcome] : cases) {
        output = default_;
        EXPECT_EQ(Convert(mode, input, result, size), outcome) << what;
        EXPECT_TRUE(std::get<0>(outcome) || Differences(default_, output).empty()) << what;
    }
    SetLastError(0);
    EXPECT_FALSE(library_.convert(printer_.name(), in, out, nullptr, 1));
    EXPECT_EQ(GetLastError(), 87u);
}

TEST_F(ConvertDevMode, FailsForAPrinterThatIsNotThere)
{
    alignas(8) DriverDevMode output;
    std::u16string missing = u"Missing";
    for (WCHAR* name : {missing.data(), static_cast<WCHAR*>(nullptr)}) {
        LONG size = 9999;
        EXPECT_FALSE(library_.convert(name, nullptr, &output.dmPublic, &size, kDriverDefault));
        EXPECT_EQ(size, 1852);
    }
    std::filesystem::remove(printer_.DataFile());
    EXPECT_FALSE(std::get<0>(Convert(4, nullptr, &output.dmPublic, 1852)));
}

TEST_F(ConvertDevMode, MakesTheOldFormat)
{
    alignas(8) BYTE old[301];
    std::memset(old, 0xEE, sizeof(old));
    ASSERT_TRUE(std::get<0>(Convert(2, &default_.dmPublic, reinterpret_cast<DEVMODEW*>(old), 300)));
    const auto* record = reinterpret_cast<const DEVMODEW*>(old);
    EXPECT_EQ(record->dmSpecVersion, 0x0320);
    EXPECT_EQ(record->dmDriverVersion, 848);
    EXPECT_EQ(record->dmSize, 188);
    EXPECT_EQ(record->dmDriverExtra, 112);
    EXPECT_EQ(record->dmFields, default_.dmPublic.dmFields);
    EXPECT_EQ(std::memcmp(old + 188, &default_.dmPrivate, 112), 0);
    EXPECT_EQ(old[300], 0xEE);

    alignas(8) DriverDevMode inPlace = default_;
    ASSERT_TRUE(std::get<0>(Convert(2, &inPlace.dmPublic, &inPlace.dmPublic, sizeof(inPlace))));
    EXPECT_EQ(std::memcmp(&inPlace, old, 300), 0);

    alignas(8) DriverDevMode back = default_;
    ASSERT_TRUE(std::get<0>(Convert(1, reinterpret_cast<DEVMODEW*>(old), &back.dmPublic, sizeof(back))));
    EXPECT_EQ(Differences(default_, back), "");
}

} // namespace
