#include "psui/events/document_event.h"

#include <tuple>

#include <gtest/gtest.h>

#include "tests/events/monitor_world.h"

namespace {

/// The process's variable, "(none)" when it is not set.
std::string Variable(const char* name)
{
    char value[64];
    return GetEnvironmentVariableA(name, value, sizeof(value)) ? value : "(none)";
}

HANDLE HandleOf(uintptr_t value)
{
    return reinterpret_cast<HANDLE>(value);
}

TEST(DocumentEvent, MarksTheContextFromItsCreationToItsDeletion)
{
    const test::World world;
    const std::tuple<uintptr_t, uintptr_t, const char*, const char*> cases[] = {
        {0xDEADBEEF, 0x1A, "0x00000000DEADBEEF", "0x000000000000001A"},
        {UINTPTR_MAX, UINTPTR_MAX - 1, "0xFFFFFFFFFFFFFFFF", "0xFFFFFFFFFFFFFFFE"},
        {0, 0, "0x0000000000000000", "0x0000000000000000"},
    };
    for (const auto& [printer, dc, name, value] : cases) {
        psui::HandleDocumentEvent(HandleOf(printer), reinterpret_cast<HDC>(dc), 2);
        EXPECT_EQ(Variable(name), value);
        psui::HandleDocumentEvent(HandleOf(printer), nullptr, 10);
        EXPECT_EQ(Variable(name), "(none)");
    }
}

TEST(DocumentEvent, AsksTheMonitorToPopUpWhenADocumentStarts)
{
    const std::u16string prefix = u"VMSTSWIN-POPUPONPRINT ";
    for (const std::u16string& name :
         {std::u16string(u"P1"), std::u16string(u"%s%n"), std::u16string(u"\"[a=b];\""),
          std::u16string(u"half \xD83D"), std::u16string(u"tab\tline\n"), std::u16string(220, u'n')}) {
        const test::World world;
        const test::Printer printer(name, test::kEmptyModel);
        psui::HandleDocumentEvent(printer.handle(), nullptr, 5);
        EXPECT_NE(GlobalFindAtomW((prefix + name).c_str()), 0) << testing::PrintToString(name);
    }
}

TEST(DocumentEvent, DoesNothingForAnyOtherEvent)
{
    const test::World world;
    const test::Printer printer(u"P1", test::kEmptyModel);
    const host::Ledger before = host::OpenObjects();
    host::StartProfile();
    for (const int event : {0, 1, 3, 4, 6, 7, 8, 9, 11, 12, 13, 14, 0x10002, -1, INT32_MIN, INT32_MAX})
        psui::HandleDocumentEvent(printer.handle(), nullptr, event);
    EXPECT_TRUE(host::StopProfile().calls.empty());
    psui::HandleDocumentEvent(nullptr, nullptr, 5);
    psui::HandleDocumentEvent(HandleOf(0x123), nullptr, 5);
    EXPECT_EQ(GlobalFindAtomW(TEXT("VMSTSWIN-POPUPONPRINT P1")), 0);
    EXPECT_EQ(host::OpenObjects(), before);
}

} // namespace
