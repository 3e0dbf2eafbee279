#include "psui/events/printer_name.h"

#include <gtest/gtest.h>

#include "tests/events/monitor_world.h"

namespace {

using test::MonitorWorld;

/// Names that a section may have as they stand.
const std::u16string kKept[] = {u"P1",
                                u"Palette 310 (Copy 1)",
                                u"a=b",
                                u";remark",
                                u"%s%n%d",
                                u"\\\\server\\P1",
                                u"say \"hello\" now",
                                u"..\\..\\x",
                                u"Office \u00C9tage",
                                std::u16string(255, u'n')};

/// The last two have half a character, and characters that the code page lacks.
const std::u16string kRefused[] = {u"",
                                   u" ",
                                   u" P1",
                                   u"P1 ",
                                   u"P1\r\n[LODESTAT]\r\nPrinter=x",
                                   u"P\t1",
                                   u"P\x7F",
                                   u"P[1",
                                   u"P]1",
                                   u"\"P1\"",
                                   u"'P1'",
                                   u"\"",
                                   std::u16string(256, u'n'),
                                   std::u16string(32000, u'n'),
                                   u"P\xD83D",
                                   u"\u5370\u5237 P1"};

std::string Show(const std::u16string& text)
{
    return {text.begin(), text.begin() + static_cast<ptrdiff_t>(std::min<size_t>(text.size(), 40))};
}

TEST(PrinterName, MayHaveAnyCharactersInAUtf16File)
{
    const test::World world;
    test::WriteNative(host::NativePath(u"C:\\wide.ini"), "\xFF\xFE");
    test::WriteNative(host::NativePath(test::WindowsFolder() + u"\\wide.ini"), "\xFF\xFE");
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
    std::u16string processor = u"raw";
    PRINTER_INFO_2W info = {};
    info.pPrinterName = name.data();
    info.pPrintProcessor = processor.data();
    psui::SyncStatusMonitorIni(world.handle(), &world.record, &info);
}

TEST(PrinterName, IsASectionWhenItReadsBack)
{
    for (const std::u16string& name : kKept) {
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
    for (const std::u16string& name : kRefused) {
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
