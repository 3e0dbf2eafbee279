// Every step is best effort: whatever fails, nothing is left open and the record stays whole.
#include <functional>

#include <gtest/gtest.h>

#include "psui/events/document_event.h"
#include "tests/entry/fail_each.h"
#include "tests/events/monitor_world.h"
#include "tests/settings/merge_checks.h"

namespace {

using test::MonitorWorld;

struct Operation
{
    const char* name;
    std::function<void(MonitorWorld&)> run;
};

const Operation kOperations[] = {
    {"register", [](MonitorWorld&) { psui::RegisterStatusMonitorPath(); }},
    {"sync", [](MonitorWorld& world) { world.Sync(); }},
    {"update", [](MonitorWorld& world) { world.Update(); }},
    {"read items", [](MonitorWorld& world) { psui::ReadStatusMonitorItems(world.handle(), &world.record); }},
    {"write items",
     [](MonitorWorld& world) { psui::WriteStatusMonitorItems(world.handle(), &world.record, 4); }},
    {"document start", [](MonitorWorld& world) { psui::HandleDocumentEvent(world.handle(), nullptr, 5); }},
};

/// Gives each operation everything to do, whatever the one before did.
void Prepare(MonitorWorld& world)
{
    RegDeleteKeyW(HKEY_CURRENT_USER, test::kMonitorKey);
    world.Shared().Replace("[LODESTAT]\r\nPrinter=Other\r\n[P1]\r\n10=4\r\n3=4097\r\n10C=1\r\n");
    MonitorWorld::OfModel().Replace("[ENG]\r\nSet=10,3\r\nBits=0x104\r\n");
    test::SetAll(world.record, "dwPagesPerSheet=2 dmNup=2");
}

TEST(StatusMonitor, LeavesNothingOpenWhateverFails)
{
    for (const test::Requests& requests :
         {test::kCalls, test::kAllocations, test::kReads<host::Misread::Grow>,
          test::kReads<host::Misread::TooSmall>, test::kReads<host::Misread::Huge>,
          test::kReads<host::Misread::WrongType>})
        for (const Operation& operation : kOperations) {
            SCOPED_TRACE(operation.name);
            MonitorWorld world(u"");
            MonitorWorld::InstallProgram("3_10");
            test::FailEach(
                requests, [&] { Prepare(world); }, [&] { operation.run(world); },
                [&](bool) { EXPECT_EQ(test::FieldOutOfRange(world.record), ""); });
        }
}

} // namespace
