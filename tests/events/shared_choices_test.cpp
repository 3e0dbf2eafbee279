#include <tuple>

#include <gtest/gtest.h>

#include "psui/events/settings_file.h"
#include "tests/events/monitor_world.h"

namespace {

using test::MonitorWorld;
using test::Section;

/// `base` with other values, where an empty value takes a key away.
Section With(Section base, const Section& changes)
{
    for (const auto& [key, value] : changes) {
        if (value.empty())
            base.erase(key);
        else
            base[key] = value;
    }
    return base;
}

/// What every maintained section of the printer holds; its processor is not the maker's.
const Section kMaintained = u"Model=P1.INI Lang=ENG New=1 Proc=1";

TEST(SettingsFileOf, CutsTheNameAtItsFirstDot)
{
    const std::u16string longest(255, u'n'), tooLong(256, u'n'), far(32000, u'n');
    const std::pair<std::u16string, std::u16string> cases[] = {
        {u"C:\\d.x\\palette.ppd", u"C:\\d.x\\palette.INI"},
        {u"C:\\d\\a.b.c.ppd", u"C:\\d\\a.INI"},
        {u"C:\\d\\.ppd", u"C:\\d\\.INI"},
        {u"palette.", u"palette.INI"},
        {longest + u".p", longest + u".INI"}};
    psui::PathText path;
    for (const auto& [dataFile, expected] : cases) {
        EXPECT_TRUE(psui::SettingsFileOf(dataFile.c_str(), path));
        EXPECT_EQ(std::u16string(path), expected);
    }
    for (const std::u16string& none : {std::u16string(u"C:\\d.x\\palette"), tooLong + u".p", far + u".p"}) {
        EXPECT_FALSE(psui::SettingsFileOf(none.c_str(), path));
        EXPECT_EQ(std::u16string(path), u"");
    }
}

TEST(SyncStatusMonitorIni, NeedsAMonitorThatHasShownAPrinter)
{
    for (const bool emptyValue : {false, true}) {
        MonitorWorld world;
        if (emptyValue)
            world.Shared().Write(u"LODESTAT", u"Printer=");
        const std::string before = world.Shared().Bytes();
        const psui::DriverDevMode record = world.record;
        world.Sync();
        EXPECT_EQ(world.Shared().Bytes(), before);
        EXPECT_EQ(test::Differences(world.record, record), "");
        EXPECT_TRUE(test::Launches().empty());
    }
}

TEST(StatusMonitorIni, OnlyLaunchesForADocumentWithoutTheMonitor)
{
    MonitorWorld world;
    world.Shared().Write(u"LODESTAT", u"Printer=Other");
    world.Shared().Write(u"P1", u"10=4");
    world.record.dmPrivate.bStatusMonitor = 0;
    const std::string before = world.Shared().Bytes();
    const psui::DriverDevMode record = world.record;
    world.Sync();
    world.Update();
    EXPECT_TRUE(test::Launches().empty());
    host::AddWindow(u"LODESTAT");
    world.Sync();
    EXPECT_EQ(test::Launches().size(), 1u);
    world.Update();
    EXPECT_EQ(test::Launches().size(), 2u);
    EXPECT_EQ(world.Shared().Bytes(), before);
    EXPECT_EQ(test::Differences(world.record, record), "");
}

TEST(SyncStatusMonitorIni, KeepsThePrintersSection)
{
    const struct
    {
        const char* what;
        const char16_t* shown;
        const char16_t* processor;
        Section before, after;
    } cases[] = {
        {"another printer was shown", u"Other", u"raw", {}, kMaintained},
        {"this printer was shown", u"P1", u"raw", {}, With(kMaintained, u"Model=")},
        {"in another case", u"p1", u"raw", {}, With(kMaintained, u"Model=")},
        {"old entries", u"Other", u"raw", u"Model=x.INI Lang=JPN", kMaintained},
        {"the monitor waits", u"P1", u"raw", u"10C=1", With(kMaintained, u"Model=")},
        {"the maker's processor", u"Other", u"VMHUB PRINT", {}, u"Model=P1.INI Lang=ENG"},
        {"its name in another case", u"P1", u"vmhub print", u"Proc=1", u"Proc=1 Lang=ENG"},
        {"the maker's processor, the monitor waits", u"P1", u"VMHUB PRINT", u"10C=0 Proc=1",
         u"New=1 Lang=ENG"},
        {"what is not the driver's stays", u"P1", u"VMHUB PRINT", u"Own=x Set=10", u"Own=x Set=10 Lang=ENG"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        MonitorWorld world;
        world.SetProcessor(c.processor);
        world.Shared().Write(u"LODESTAT", {{u"Printer", c.shown}});
        world.Shared().Write(u"P1", c.before);
        world.Sync();
        EXPECT_EQ(world.Shared().Read(u"P1"), c.after);
        EXPECT_EQ(test::Launches().size(), 1u);
        const bool taken = std::u16string(c.shown) == u"Other";
        EXPECT_EQ(world.Shared().Read(u"LODESTAT"), (Section{{u"Printer", taken ? u"P1" : c.shown}}));
    }
}

TEST(SyncStatusMonitorIni, UsesTheWindowsDirectoryForAnOldMonitor)
{
    MonitorWorld world(u"3.0");
    const test::Profile old(u"lodestat.ini");
    const test::Profile oldWhole(test::kWindowsFolder + u"\\lodestat.ini");
    old.Write(u"LODESTAT", u"Printer=Other");
    world.Shared().Write(u"LODESTAT", u"Printer=Other");
    world.Sync();
    EXPECT_EQ(oldWhole.Read(u"LODESTAT"), Section(u"Printer=P1"));
    EXPECT_EQ(oldWhole.Read(u"P1"), kMaintained);
    EXPECT_EQ(world.Shared().Read(u"LODESTAT"), Section(u"Printer=Other"));
}

TEST(SyncStatusMonitorIni, GivesUpWhenTheNewFilesFolderIsNotKnown)
{
    MonitorWorld world;
    const test::Profile old(u"lodestat.ini");
    old.Write(u"LODESTAT", u"Printer=Other");
    host::SetApplicationDataKnown(false);
    world.Sync();
    EXPECT_EQ(old.Read(u"LODESTAT"), Section(u"Printer=Other"));
    EXPECT_TRUE(test::Launches().empty());
    world.Update();
    EXPECT_EQ(old.Read(u"LODESTAT"), Section(u"Printer=P1")) << "the update has the old file left";
}

TEST(SyncStatusMonitorIni, TakesTheOfferedItemsOver)
{
    const Section choices = u"10=-4 3=4097";
    const struct
    {
        const char* what;
        Section printer, model;
        int64_t pages, color;
    } cases[] = {
        {"nothing says which", choices, {}, -4, 1},
        {"both", With(choices, u"Bits=0x104"), {}, -4, 1},
        {"decimal", With(choices, u"Bits=260"), {}, -4, 1},
        {"the layout", With(choices, u"Bits=0x100"), {}, -4, 2},
        {"the colour", With(choices, u"Bits=0x4"), {}, 1, 1},
        {"none", With(choices, u"Bits=0x603"), u"Bits=0x104", 1, 2},
        {"the model's", choices, u"Bits=0x100", -4, 2},
        {"the model's for a negative number", With(choices, u"Bits=-1"), u"Bits=0x0", 1, 2},
        {"no text is a mask", With(choices, u"Bits=x"), u"Bits=0x104", 1, 2},
        {"the monitor set no colour", u"Bits=0x4 3=1", {}, 1, 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        MonitorWorld world;
        world.Shared().Write(u"LODESTAT", u"Printer=P1");
        world.Shared().Write(u"P1", c.printer);
        MonitorWorld::OfModel().Write(u"ENG", c.model);
        MonitorWorld::OfModel().Write(u"JPN", u"Bits=0x1");
        world.Sync();
        test::ExpectFields(world.record, {{"dwPagesPerSheet", c.pages}, {"dmColor", c.color}});
    }
}

TEST(SyncStatusMonitorIni, NeverWorksInTheSystemDirectory)
{
    MonitorWorld world;
    host::SetUserName(u"SYSTEM");
    psui::PathText path;
    ASSERT_TRUE(psui::StatusMonitorIniPath(path, false));
    ASSERT_TRUE(std::u16string(path).starts_with(test::kSystemFolder));
    std::filesystem::create_directories(std::filesystem::path(host::NativePath(path)).parent_path());
    const test::Profile file{path};
    file.Write(u"LODESTAT", u"Printer=Other");
    test::SetRegistryText(HKEY_CURRENT_USER, test::kMonitorKey, u"Lodestat", u"3.10");
    world.Sync();
    EXPECT_EQ(file.Read(u"LODESTAT"), Section(u"Printer=Other"));
    EXPECT_TRUE(test::Launches().empty());
}

TEST(UpdateStatusMonitorIni, TellsTheMonitorTheDocumentsChoices)
{
    const Section told = With(kMaintained, u"10=-4");
    const std::tuple<const char*, Section, Section, Section> cases[] = {
        {"nothing is known", {}, {}, told},
        {"items from the model", {}, u"Set=1,10,3,99", With(told, u"Set=1,10,3,99 Bits=0x105")},
        {"items of the model without a layout", {}, u"Set=1,3", With(kMaintained, u"Set=1,3 Bits=0x5")},
        {"items of the printer", u"Set=3 Bits=0x4", u"Set=10", With(kMaintained, u"Set=3 Bits=0x4")},
        {"items without their mask", u"Set=3", {}, With(told, u"Set=3")},
        {"the same layout", u"10=-4x", {}, With(kMaintained, u"10=-4x")},
        {"another layout than the poster", u"10=16", {}, told},
        {"a colour that the monitor set", u"3=4098", {}, With(told, u"3=4097")},
        {"the same colour", u"3=0x1001", {}, With(told, u"3=0x1001")},
        {"a colour that the monitor did not set", u"3=2", {}, With(told, u"3=2")},
        {"a list longer than any", {}, {{u"Set", std::u16string(400, u'1')}}, told},
    };
    for (const auto& [what, before, model, after] : cases) {
        SCOPED_TRACE(what);
        MonitorWorld world;
        test::SetAll(world.record, "dwPagesPerSheet=-4 dmColor=1");
        world.Shared().Write(u"P1", before);
        MonitorWorld::OfModel().Write(u"ENG", model);
        const psui::DriverDevMode record = world.record;
        world.Update();
        EXPECT_EQ(world.Shared().Read(u"P1"), after);
        EXPECT_EQ(test::Differences(world.record, record), "");
        EXPECT_EQ(test::Launches().size(), 1u);
    }
}

TEST(StatusMonitorItems, ComeFromThePrinterElseFromItsModel)
{
    const Section named = u"Model=P1.INI Lang=JPN";
    const struct
    {
        const char* what;
        Section printer, model;
        uint32_t mask;
        Section after;
    } cases[] = {
        {"nothing is known", {}, {}, 0x104, {}},
        {"the printer's", u"Set=3 Bits=0x707", {}, 0x104, u"Set=3 Bits=0x707"},
        {"the printer's without a mask", u"Set=3", {}, 0x104, u"Set=3"},
        {"the model's", named, u"Set=1,3", 4, With(named, u"Set=1,3 Bits=0x5")},
        {"a model without items", With(named, u"Bits=0x100"), {}, 0x100, With(named, u"Bits=0x100")},
        {"a model file elsewhere", With(named, u"Model=..\\system32\\P1.INI"), u"Set=3", 0x104,
         With(named, u"Model=..\\system32\\P1.INI")},
        {"no language", u"Model=P1.INI", u"Set=3", 0x104, u"Model=P1.INI"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        MonitorWorld world;
        world.Shared().Write(u"P1", c.printer);
        test::Profile(test::kSystemFolder + u"\\P1.INI").Write(u"JPN", c.model);
        EXPECT_EQ(psui::ReadStatusMonitorItems(world.handle(), &world.record), c.mask);
        EXPECT_EQ(world.Shared().Read(u"P1"), c.after);
        EXPECT_TRUE(test::Launches().empty());
    }
}

TEST(StatusMonitorItems, AreWrittenWhenTheyChange)
{
    const Section named = u"Model=P1.INI Lang=JPN";
    const struct
    {
        const char* what;
        uint32_t mask;
        Section before, model, after;
    } cases[] = {
        {"new", 0x104, {}, {}, u"Set=10,3 Bits=0x104 New=1"},
        {"all", 0x707, u"Set=3", {}, u"Set=10,11,12,1,2,3 Bits=0x707 New=1"},
        {"the same", 0x104, u"Set=10,3 Bits=0x5", {}, u"Set=10,3 Bits=0x5"},
        {"the same in another order", 0x104, u"Set=3,10", {}, u"Set=10,3 Bits=0x104 New=1"},
        {"those of the model", 0x104, named, u"Set=10,3", named},
        {"other than those of the model", 0x100, named, u"Set=10,3", With(named, u"Set=10 Bits=0x100 New=1")},
        {"none where there are none", 0x603, {}, {}, {}},
        {"none", 0x603, u"Set=10", {}, u"Set= Bits=0x603 New=1"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        MonitorWorld world;
        world.Shared().Write(u"P1", c.before);
        test::Profile(test::kSystemFolder + u"\\P1.INI").Write(u"JPN", c.model);
        psui::WriteStatusMonitorItems(world.handle(), &world.record, c.mask);
        EXPECT_EQ(world.Shared().Read(u"P1"), c.after);
        EXPECT_EQ(test::Launches().size(), c.after == c.before ? 0u : 1u);
    }
}

} // namespace
