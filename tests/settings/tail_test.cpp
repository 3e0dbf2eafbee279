#include "psui/settings/record.h"
#include "tests/settings/support.h"

namespace {

using namespace test;

class RefreshTail : public testing::Test
{
protected:
    World world_;
    alignas(8) psui::DriverDevMode record_;

    RefreshTail()
    {
        psui::BuildDefaultDevMode(&record_, TEXT("Palette"), Model(kEmptyModel), true);
        psui::RefreshTail(&record_);
    }

    std::u16string ClientAfter(const FieldValues& fields)
    {
        alignas(8) psui::DriverDevMode record = record_;
        SetAll(record, fields);
        psui::RefreshTail(&record);
        return Text(record.dmPrivate.wszClientProcess, 32);
    }
};

TEST_F(RefreshTail, NamesTheClientProcessWhenSomethingNeedsIt)
{
    EXPECT_EQ(ClientAfter({}), u"_msplf.exe");
    for (const FieldValue& need :
         FieldValues("dmCopies=2 dmCollate=1 dwPagesPerSheet=2 dwPagesPerSheet=0 dwPagesPerSheet=-4 "
                     "dwWatermarkFlags=1 dwTailDatePrint=0x80 bTailReverse=1 bTailReverse=200"))
        EXPECT_EQ(ClientAfter({need}), u"vmsplf.exe") << need.name << need.value;
    for (const FieldValue& none :
         FieldValues("dmCopies=1 dmCollate=2 dwWatermarkFlags=2 dwDatePrint=0x80 dwTailDatePrint=0x7F"))
        EXPECT_EQ(ClientAfter({none}), u"_msplf.exe") << none.name;
}

TEST_F(RefreshTail, KeepsTheRestOfTheClientText)
{
    const std::u16string other = TEXT("other.exe");
    std::copy_n(other.c_str(), other.size() + 1, record_.dmPrivate.wszClientProcess);
    psui::RefreshTail(&record_);
    EXPECT_EQ(Text(record_.dmPrivate.wszClientProcess, 32), u"_ther.exe");
}

TEST_F(RefreshTail, MarksCallsFromTheMakersApplication)
{
    Set(record_, "bHostFlags", 0xF0);
    for (const auto& [windowClass, flags] :
         {std::pair{u"FLWApp", 0xF1}, {u"", 0xF0}, {u"flwAPP", 0xF1}, {u"FLWApp2", 0xF0}}) {
        host::SetActiveWindowClass(windowClass);
        psui::RefreshTail(&record_);
        EXPECT_EQ(Get(record_, "bHostFlags"), flags);
    }
}

} // namespace
