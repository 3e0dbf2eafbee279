// Every step is best effort: whatever fails, nothing is left open and the record stays whole.
#include <functional>

#include <gtest/gtest.h>

#include "psui/events/document_event.h"
#include "tests/events/monitor_world.h"

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
    test::Set(world.record, "dwPagesPerSheet", 2);
}

/// Runs an operation with each of its requests failing in turn, until none of them is reached.
template <typename Inject, typename Seen>
void FailEach(const Operation& operation, Inject inject, Seen seen)
{
    MonitorWorld world(u"");
    MonitorWorld::InstallProgram("3_10");
    for (uint64_t skip = 0, reached = 1; reached > skip; ++skip) {
        SCOPED_TRACE(testing::Message() << operation.name << ", request " << skip);
        Prepare(world);
        const host::Ledger before = host::OpenObjects();
        inject(skip);
        operation.run(world);
        reached = seen();
        host::StopFailing();
        ASSERT_EQ(host::OpenObjects(), before);
        ASSERT_EQ(world.record.dmPublic.dmSize, psui::kPublicSize);
        ASSERT_TRUE(skip > 0 || reached > 0);
    }
}

TEST(StatusMonitor, LeavesNothingOpenWhateverCallFails)
{
    for (const Operation& operation : kOperations)
        FailEach(
            operation, [](uint64_t skip) { host::FailCalls(skip, false); }, host::CallsSeen);
}

TEST(StatusMonitor, LeavesNothingOpenWhateverAllocationFails)
{
    for (const Operation& operation : kOperations)
        FailEach(
            operation, [](uint64_t skip) { host::FailAllocations(skip, true); }, host::AllocationsSeen);
}

TEST(StatusMonitor, SurvivesWrongAnswers)
{
    for (const host::Misread how :
         {host::Misread::Grow, host::Misread::TooSmall, host::Misread::Huge, host::Misread::WrongType})
        for (const Operation& operation : kOperations)
            FailEach(
                operation, [=](uint64_t skip) { host::MisreadCalls(skip, false, how); }, host::ReadsSeen);
}

} // namespace
