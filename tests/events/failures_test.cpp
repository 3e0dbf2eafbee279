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

/// A world in which each operation has everything to do.
void Prepare(MonitorWorld& world)
{
    MonitorWorld::InstallProgram("3_10");
    world.Shared().Write(u"LODESTAT", {{u"Printer", u"Other"}});
    world.Shared().Write(u"P1", {{u"10", u"4"}, {u"3", u"4097"}, {u"10C", u"1"}});
    MonitorWorld::OfModel().Write(u"ENG", {{u"Set", u"10,3"}, {u"Bits", u"0x104"}});
}

/// Runs an operation with each of its requests failing in turn, until none of them is reached.
template <typename Inject, typename Seen>
void FailEach(const Operation& operation, Inject inject, Seen seen)
{
    uint64_t reached = 1;
    for (uint64_t skip = 0; skip < reached; ++skip) {
        SCOPED_TRACE(testing::Message() << operation.name << ", request " << skip);
        MonitorWorld world;
        Prepare(world);
        const host::Ledger before = host::OpenObjects();
        inject(skip);
        operation.run(world);
        reached = seen();
        host::StopFailing();
        ASSERT_EQ(host::OpenObjects(), before);
        ASSERT_EQ(world.record.dmPublic.dmSize, psui::kPublicSize);
    }
    EXPECT_GT(reached, 1u) << operation.name;
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
