#include "psui/entry/model_cache.h"

#include "psui/model/cache.h"
#include "tests/entry/printer.h"
#include "tests/settings/support.h"

namespace {

using namespace psui;
using namespace test;

class ModelCache : public testing::Test
{
protected:
    World world_;
    Printer printer_{u"Alpha", kFullModel};
    Printer other_{u"Beta", kEmptyModel};

    ~ModelCache() override { FlushModelCache(); }
};

TEST_F(ModelCache, SharesOneModelAndKeepsItWithoutHolders)
{
    const auto* first = AcquireModel(printer_.handle(), true);
    const auto* second = AcquireModel(printer_.handle(), true);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first, second);
    EXPECT_EQ(cCachedModelRefs, 2u);
    ReleaseModel(first);
    ReleaseModel(second);
    EXPECT_EQ(pCachedModel, first);
    EXPECT_EQ(cCachedModelRefs, 0u);
    EXPECT_EQ(AcquireModel(printer_.handle(), true), first);
}

TEST_F(ModelCache, LoadsPrivateModelsWhileTheCachedOneIsHeld)
{
    const auto* cached = AcquireModel(printer_.handle(), true);
    const host::Ledger before = host::OpenObjects();
    const auto* fresh = AcquireModel(printer_.handle(), false);
    const auto* other = AcquireModel(other_.handle(), true);
    ASSERT_TRUE(fresh && other);
    EXPECT_NE(fresh, cached);
    EXPECT_EQ(pCachedModel, cached);
    EXPECT_EQ(cCachedModelRefs, 1u);
    ReleaseModel(fresh);
    ReleaseModel(other);
    EXPECT_EQ(host::OpenObjects(), before);
    ReleaseModel(cached);
    const auto* next = AcquireModel(other_.handle(), true);
    EXPECT_EQ(pCachedModel, next);
    EXPECT_EQ(cCachedModelRefs, 1u);
    ReleaseModel(next);
}

TEST_F(ModelCache, ReplacesAnUnheldModelByAFreshLoad)
{
    ReleaseModel(AcquireModel(printer_.handle(), true));
    printer_.ReplaceModel("*PrintRatePPM: \"99\"\n");
    const auto* stale = AcquireModel(printer_.handle(), true);
    EXPECT_EQ(stale->printRatePpm, 12u);
    ReleaseModel(stale);
    const auto* fresh = AcquireModel(printer_.handle(), false);
    EXPECT_EQ(fresh->printRatePpm, 99u);
    EXPECT_EQ(pCachedModel, fresh);
    ReleaseModel(fresh);
}

TEST_F(ModelCache, StaysAsItWasWhenNothingCanBeLoaded)
{
    const auto* cached = AcquireModel(printer_.handle(), true);
    ReleaseModel(cached);
    std::filesystem::remove(other_.DataFile());
    EXPECT_EQ(AcquireModel(other_.handle(), true), nullptr);
    EXPECT_EQ(AcquireModel(nullptr, true), nullptr);
    EXPECT_EQ(pCachedModel, cached);
    ReleaseModel(nullptr);
    EXPECT_EQ(cCachedModelRefs, 0u);
}

} // namespace
