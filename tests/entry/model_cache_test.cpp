#include "psui/entry/model_cache.h"

#include "psui/model/cache.h"
#include "tests/entry/printer.h"
#include "tests/settings/support.h"

namespace {

using namespace test;

class ModelCache : public testing::Test
{
protected:
    World world_;
    Printer printer_{u"Alpha", kFullModel};
    Printer other_{u"Beta", kEmptyModel};

    ~ModelCache() override { psui::FlushModelCache(); }
};

TEST_F(ModelCache, SharesOneModelAndKeepsItWithoutHolders)
{
    const auto* first = psui::AcquireModel(printer_.handle(), true);
    const auto* second = psui::AcquireModel(printer_.handle(), true);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first, second);
    EXPECT_EQ(psui::cCachedModelRefs, 2u);
    psui::ReleaseModel(first);
    psui::ReleaseModel(second);
    EXPECT_EQ(psui::pCachedModel, first);
    EXPECT_EQ(psui::cCachedModelRefs, 0u);
    EXPECT_EQ(psui::AcquireModel(printer_.handle(), true), first);
}

TEST_F(ModelCache, LoadsAPrivateModelWhileTheCachedOneIsHeld)
{
    const auto* cached = psui::AcquireModel(printer_.handle(), true);
    const host::Ledger before = host::OpenObjects();
    const auto* fresh = psui::AcquireModel(printer_.handle(), false);
    ASSERT_NE(fresh, nullptr);
    EXPECT_NE(fresh, cached);
    EXPECT_EQ(psui::pCachedModel, cached);
    EXPECT_EQ(psui::cCachedModelRefs, 1u);
    psui::ReleaseModel(fresh);
    EXPECT_EQ(host::OpenObjects(), before);
    psui::ReleaseModel(cached);
}

TEST_F(ModelCache, ReplacesAnUnheldModelByAFreshLoad)
{
    psui::ReleaseModel(psui::AcquireModel(printer_.handle(), true));
    printer_.ReplaceModel("*PrintRatePPM: \"99\"\n");
    const auto* stale = psui::AcquireModel(printer_.handle(), true);
    EXPECT_EQ(stale->printRatePpm, 12u);
    psui::ReleaseModel(stale);
    const auto* fresh = psui::AcquireModel(printer_.handle(), false);
    EXPECT_EQ(fresh->printRatePpm, 99u);
    EXPECT_EQ(psui::pCachedModel, fresh);
    psui::ReleaseModel(fresh);
}

TEST_F(ModelCache, HoldsOneDriverAtATime)
{
    const auto* cached = psui::AcquireModel(printer_.handle(), true);
    const auto* uncached = psui::AcquireModel(other_.handle(), true);
    EXPECT_EQ(psui::pCachedModel, cached);
    psui::ReleaseModel(uncached);
    psui::ReleaseModel(cached);
    const auto* next = psui::AcquireModel(other_.handle(), true);
    EXPECT_EQ(psui::pCachedModel, next);
    EXPECT_EQ(psui::cCachedModelRefs, 1u);
    psui::ReleaseModel(next);
}

TEST_F(ModelCache, StaysAsItWasWhenNothingCanBeLoaded)
{
    const auto* cached = psui::AcquireModel(printer_.handle(), true);
    psui::ReleaseModel(cached);
    std::filesystem::remove(other_.DataFile());
    EXPECT_EQ(psui::AcquireModel(other_.handle(), true), nullptr);
    EXPECT_EQ(psui::AcquireModel(nullptr, true), nullptr);
    EXPECT_EQ(psui::pCachedModel, cached);
    psui::ReleaseModel(nullptr);
    EXPECT_EQ(psui::cCachedModelRefs, 0u);
}

} // namespace
