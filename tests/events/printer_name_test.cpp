#include "psui/events/printer_name.h"

#include <gtest/gtest.h>

#include "tests/events/monitor_world.h"

namespace {

using test::MonitorWorld;

struct HostileName
{
    std::u16string name;
    bool kept; ///< the name is a section as it stands
};

const HostileName kNames[] = {
    {u"P1", true},
    {u"Palette 310 (Copy 1)", true},
    {u"a=b", true},
    {u";remark", true},
    {u"%s%n%d", true},
    {u"\\\\server\\P1", true},
    {u"say \"hello\" now", true},
    {u"..\\..\\x", true},
    {u"Office \u00C9tage", true},
    {std::u16string(255, u'n'), true},
    {u"", false},
    {u" ", false},
    {u" P1", false},
    {u"P1 ", false},
    {u"P1\r\n[LODESTAT]\r\nPrinter=x", false},
    {u"P\t1", false},
    {u"P\x7F", false},
    {u"P[1", false},
    {u"P]1", false},
    {u"\"P1\"", false},
    {u"'P1'", false},
    {u"\"", false},
    {std::u16string(256, u'n'), false},
    {std::u16string(32000, u'n'), false},
    {u"P\xD83D", false},         // half a character
    {u"\u5370\u5237 P1", false}, // the code page lacks these
};

std::string Show(const std::u16string& text)
{
    return {text.begin(), text.begin() + static_cast<ptrdiff_t>(std::min<size_t>(text.size(), 40))};
}

TEST(PrinterName, IsASectionOnlyWhenItReadsBack)
{
    const test::World world;
    const test::Profile file(u"C:\\names.ini");
    for (const HostileName& c : kNames) {
        const bool kept =
            psui::IsSectionName(c.name.c_str()) && psui::FileHoldsName(u"C:\\names.ini", c.name.c_str());
        EXPECT_EQ(kept, c.kept) << Show(c.name);
        if (!kept)
            continue;
        const test::Section values = {{u"Printer", c.name}};
        file.Write(c.name, values);
        EXPECT_EQ(file.Read(c.name), values) << Show(c.name);
    }
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

TEST(PrinterName, OutsideTheProtocolChangesNothing)
{
    for (const HostileName& c : kNames) {
        MonitorWorld world;
        world.Shared().Write(u"LODESTAT", u"Printer=Other");
        const std::string before = world.Shared().Bytes();
        const psui::DriverDevMode record = world.record;
        std::u16string name = c.name, processor = u"raw";
        PRINTER_INFO_2W info = {};
        info.pPrinterName = name.data();
        info.pPrintProcessor = processor.data();
        psui::SyncStatusMonitorIni(world.handle(), &world.record, &info);
        EXPECT_EQ(world.Shared().Bytes() != before, c.kept) << Show(c.name);
        if (c.kept)
            EXPECT_EQ(world.Shared().Read(u"LODESTAT"), (test::Section{{u"Printer", c.name}}))
                << Show(c.name);
        else
            EXPECT_EQ(test::Differences(world.record, record), "") << Show(c.name);
        EXPECT_EQ(test::Launches().size(), c.kept ? 1u : 0u) << Show(c.name);
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
