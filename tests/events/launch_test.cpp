#include <tuple>

#include <gtest/gtest.h>

#include "tests/events/monitor_world.h"

namespace {

using test::MonitorWorld;

TEST(LaunchStatusMonitor, TellsTheMonitorToShowItselfWhenItIsWanted)
{
    const struct
    {
        bool running, wanted;
        const char16_t* version;
        const char16_t* argument; ///< null: nothing is started
        bool withFile;
    } cases[] = {{false, false, u"3.10", nullptr, false}, {true, false, u"3.10", u" 0", true},
                 {false, true, u"3.10", u" 1", true},     {true, true, u"3.10", u" 1", true},
                 {false, true, u"3.0", u" 1", false},     {false, true, u"", u" 1", false}};
    for (const auto& c : cases) {
        MonitorWorld world(c.version);
        if (c.running)
            host::AddWindow(u"LODESTAT");
        host::AddWindow(u"OTHER");
        world.record.dmPrivate.bStatusMonitor = c.wanted;
        const UINT result = psui::LaunchStatusMonitor(&world.record.dmPrivate);
        std::vector<std::u16string> expected;
        if (c.argument)
            expected.push_back(
                test::kDriverFolder + u"\\3\\LODESTAT.EXE" + c.argument +
                (c.withFile ? u" \"" + MonitorWorld::DataFolder() + u"\\lodestat.ini\"" : u""));
        EXPECT_EQ(test::Launches(), expected) << c.running << c.wanted;
        EXPECT_EQ(result > 31, c.argument != nullptr);
    }
}

TEST(LaunchStatusMonitor, NeverRunsAClientsProgramWithTheSystemsRights)
{
    const std::tuple<const char16_t*, size_t> cases[] = {{u"SYSTEM", 0}, {u"system", 0}, {u"Service", 1}};
    for (const auto& [serviceUser, launches] : cases) {
        MonitorWorld world;
        const HMODULE spooler = LoadLibraryW(TEXT("spoolss.dll"));
        host::RunInSpooler(serviceUser);
        const host::Ledger before = host::OpenObjects();
        psui::LaunchStatusMonitor(&world.record.dmPrivate);
        EXPECT_EQ(test::Launches().size(), launches) << std::string(serviceUser, serviceUser + 6);
        EXPECT_EQ(host::OpenObjects(), before) << "the client's identity was not taken on again";
        host::RunInSpooler(u"");
        FreeLibrary(spooler);
    }
}

TEST(LaunchStatusMonitor, LeavesThePathOutWhenItIsNotKnownAndPassesAFailureOn)
{
    MonitorWorld world;
    host::SetApplicationDataKnown(false);
    psui::LaunchStatusMonitor(&world.record.dmPrivate);
    EXPECT_EQ(test::Launches(), std::vector<std::u16string>{test::kDriverFolder + u"\\3\\LODESTAT.EXE 1"});
    host::FailLaunches(2);
    EXPECT_EQ(psui::LaunchStatusMonitor(&world.record.dmPrivate), 2u);
}

} // namespace
