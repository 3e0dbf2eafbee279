#include "psui/events/printer_name.h"

#include <gtest/gtest.h>

#include "tests/events/monitor_world.h"

namespace {

using namespace std::literals;
using test::MonitorWorld;

std::string Show(const std::u16string& text)
{
    return {text.begin(), text.begin() + static_cast<ptrdiff_t>(std::min<size_t>(text.size(), 40))};
}

TEST(PrinterName, MayHaveAnyCharactersInAUtf16File)
{
    const test::World world;
    test::WriteNative(host::NativePath(u"C:\\wide.ini"), "\xFF\xFE");
    test::WriteNative(host::NativePath(test::kWindowsFolder + u"\\wide.ini"), "\xFF\xFE");
    test::WriteNative(host::NativePath(u"C:\\narrow.ini"), "[x]");
    const WCHAR* name = u"\u5370\u5237 P1";
    EXPECT_TRUE(psui::FileHoldsName(u"C:\\wide.ini", name));
    EXPECT_TRUE(psui::FileHoldsName(u"wide.ini", name));
    EXPECT_FALSE(psui::FileHoldsName(u"C:\\narrow.ini", name));
    EXPECT_FALSE(psui::FileHoldsName(u"narrow.ini", name));
    host::SetCodePage(932);
    EXPECT_TRUE(psui::FileHoldsName(u"C:\\narrow.ini", name));
}

void SyncAs(MonitorWorld& world, std::u16string name)
{
    world.Info()->pPrinterName = name.data();
    world.Sync();
}

TEST(PrinterName, IsASectionWhenItReadsBack)
{
    for (const std::u16string& name :
         {u"P1"s, u"Palette 310 (Copy 1)"s, u"a=b"s, u";remark"s, u"%s%n%d"s, u"\\\\server\\P1"s,
          u"say \"hello\" now"s, u"..\\..\\x"s, u"Office \u00C9tage"s, std::u16string(255, u'n')}) {
        SCOPED_TRACE(Show(name));
        MonitorWorld world;
        world.Shared().Write(u"LODESTAT", u"Printer=Other");
        SyncAs(world, name);
        EXPECT_EQ(world.Shared().Read(u"LODESTAT"), (test::Section{{u"Printer", name}}));
        EXPECT_EQ(world.Shared().Read(name)[u"Lang"], u"ENG");
        EXPECT_EQ(test::Launches().size(), 1u);
    }
}

TEST(PrinterName, OutsideTheProtocolChangesNothing)
{
    MonitorWorld world;
    world.Shared().Write(u"LODESTAT", u"Printer=Other");
    const std::string before = world.Shared().Bytes();
    const psui::DriverDevMode record = world.record;
    for (const std::u16string& name :
         {u""s, u" "s, u" P1"s, u"P1 "s, u"P1\r\n[LODESTAT]\r\nPrinter=x"s, u"P\t1"s, u"P\x7F"s, u"P[1"s,
          u"P]1"s, u"\"P1\""s, u"'P1'"s, u"\""s, std::u16string(256, u'n'), std::u16string(32000, u'n'),
          u"half a character \xD83D"s, u"not in the code page \u5370\u5237"s}) {
        SyncAs(world, name);
        EXPECT_EQ(world.Shared().Bytes(), before) << Show(name);
        EXPECT_EQ(test::Differences(world.record, record), "") << Show(name);
        EXPECT_TRUE(test::Launches().empty()) << Show(name);
    }
}

TEST(PrinterName, MayBeMissing)
{
    MonitorWorld world;
    world.Shared().Write(u"LODESTAT", u"Printer=Other");
    const std::string before = world.Shared().Bytes();
    PRINTER_INFO_2W info = {};
    psui::SyncStatusMonitorIni(world.handle(), &world.record, &info);
    psui::SyncStatusMonitorIni(world.handle(), &world.record, nullptr);
    psui::UpdateStatusMonitorIni(nullptr, &world.record);
    psui::WriteStatusMonitorItems(nullptr, &world.record, 0x100);
    EXPECT_EQ(psui::ReadStatusMonitorItems(nullptr, &world.record), 0x104u);
    EXPECT_EQ(world.Shared().Bytes(), before);
}

} // namespace
