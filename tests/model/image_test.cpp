#include "psui/model/image.h"

#include <sstream>
#include <tuple>

#include "host/host.h"
#include "model_fixture.h"
#include "tests/entry/fail_each.h"
#include "tests/model/walk.h"

namespace psui::test {

namespace {

using Bytes = std::vector<uint8_t>;

Bytes BytesOf(const ModelPtr& image)
{
    const auto* begin = reinterpret_cast<const uint8_t*>(image.get());
    return Bytes(begin, begin + image->imageSize);
}

template <typename T>
void Put(Bytes& bytes, size_t offset, T value)
{
    ASSERT_LE(offset + sizeof(value), bytes.size());
    std::memcpy(bytes.data() + offset, &value, sizeof(value));
}

// Resolves a copy of exactly that size; when it is sound, asks everything of it.
bool IsSound(const Bytes& bytes)
{
    const std::unique_ptr<uint8_t[]> copy(new uint8_t[bytes.size()]);
    std::copy(bytes.begin(), bytes.end(), copy.get());
    if (!ResolveImage({copy.get(), bytes.size()}))
        return false;
    EXPECT_GT(WalkEverything(*reinterpret_cast<ModelDescription*>(copy.get())), 0u);
    return true;
}

// Everything an image can hold, once.
constexpr char kSmallModel[] =
    "*NickName: \"N\"\n*FileVersion: \"1.0\"\n*JCLBegin: \"<1B>\"\n*SleepMode x: \"1,2,3\"\n"
    "*PageSize A4/A4: \"s\"\n*PageRegion A4: \"r\"\n*PaperDimension A4: \"595 842\"\n"
    "*ImageableArea A4: \"10 10 580 830\"\n*InputSlot Up: \"u\"\n*Resolution 600: \"x\"\n*JCLResolution 600: "
    "j\n"
    "*VMOption 8: 8\n*VMOption None: 0\n*MediaType 0/P: \"0\"\n*MediaType None: \"1\"\n"
    "*OpenGroup: InstallableOptions\n*OpenUI *G/Gg: PickOne\n*G a: \"1\"\n*G b: \"2\"\n*CloseUI: *G\n"
    "*CloseGroup: InstallableOptions\n*Font Utah: v\n*Font Symbol: w\n"
    "*UIConstraints: *MediaType 0 *G\n*UIConstraints: *VMOption *G a\n*OrderDependency: 1 Prolog "
    "*MediaType\n";

} // namespace

TEST(Image, IsTheWorkedExampleByteForByte)
{
    const std::string text = "*FileVersion: \"1.0\"\r\n*MediaType 0: \"0\"\r\n";
    ASSERT_EQ(text.size(), 40u);
    const ModelPtr image(CompileToImage({text.data(), text.size()}, TEXT("C:\\x\\y.ppd")));
    ASSERT_TRUE(image);
    ASSERT_EQ(image->imageSize, 732u);

    // Offsets and what stands there, little-endian; everything else is zero.
    std::istringstream fields(
        "0 732  8 576  24 3  26 37248  36 102400  40 1  68 240  204 11520  208 15360  240 256 "
        "272 1  280 608  560 600  568 604  602 12  606 8  616 672  624 28273  648 40  652 7 "
        "656 1  664 684  692 724  700 48  716 728");
    Bytes expected(732);
    size_t offset;
    for (uint64_t value; fields >> offset >> value;)
        for (; value > 0; value >>= 8)
            expected[offset++] = static_cast<uint8_t>(value);
    for (size_t i = 0; i < 10; ++i)
        expected[576 + 2 * i] = static_cast<uint8_t>("C:\\x\\y.ppd"[i]);
    for (const auto& [place, name] : {std::pair{672, "MediaType"}, {724, "0"}, {728, "0"}})
        std::copy_n(name, std::strlen(name), expected.begin() + place);

    const Bytes bytes = BytesOf(image);
    for (size_t i = 0; i < expected.size(); ++i)
        ASSERT_EQ(bytes[i], expected[i]) << "byte " << i;
    EXPECT_TRUE(IsSound(bytes));
}

TEST(Image, HoldsBothArraysWith12BytesAnEntry)
{
    const Bytes empty = BytesOf(CompileImage(""));
    EXPECT_EQ(empty.size(), 576u + 28 + 4 + 4);
    EXPECT_TRUE(IsSound(empty));
    const std::string name = "*CM a: \"\"\n";
    const size_t none = BytesOf(CompileImage(name)).size();
    for (const char* entry : {"*UIConstraints: *CM *CM\n", "*OrderDependency: 1 Prolog *CM\n"})
        EXPECT_EQ(BytesOf(CompileImage(name + entry)).size(), none + 12) << entry;
}

TEST(Image, IsRefusedWhenCutAnywhere)
{
    const Bytes whole = BytesOf(CompileImage(kSmallModel));
    ASSERT_TRUE(IsSound(whole));
    for (size_t size = 0; size < whole.size(); ++size) {
        Bytes cut(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size));
        EXPECT_FALSE(IsSound(cut)) << size;
        if (size >= sizeof(ModelDescription)) {
            Put(cut, 0, static_cast<uint32_t>(size));
            IsSound(cut);
        }
    }
}

TEST(Image, IsSafeToUseOrRefusedWhenAnyBitIsFlipped)
{
    const Bytes whole = BytesOf(CompileImage(kSmallModel));
    size_t refused = 0;
    for (size_t bit = 0; bit < whole.size() * 8; ++bit) {
        Bytes flipped = whole;
        flipped[bit / 8] ^= static_cast<uint8_t>(1 << (bit % 8));
        refused += IsSound(flipped) ? 0 : 1;
    }
    EXPECT_GT(refused, whole.size());
}

TEST(Image, IsRefusedWhenARecordIsNotWhereTheFormatPutsIt)
{
    const Bytes whole = BytesOf(CompileImage("*CM a: \"1\"\n*CM b: \"2\"\n*ICM c: \"3\"\n*Font Utah: v\n"
                                             "*VMOption 8: 8\n"));
    auto at = [&whole](size_t offset) {
        uint64_t value;
        std::memcpy(&value, whole.data() + offset, sizeof(value));
        return value;
    };
    const uint64_t cm = at(280);
    const uint64_t icm = at(cm);
    const uint64_t memory = at(icm);
    const uint64_t a = at(cm + 56);
    const uint64_t b = at(a);
    const uint64_t font = at(552);
    const auto isSoundWith = [&whole](uint64_t offset, auto value) {
        Bytes bytes = whole;
        Put(bytes, offset, value);
        return IsSound(bytes);
    };
    const size_t end = whole.size();
    using Patch = std::pair<uint64_t, uint64_t>; // an offset and what is put there
    const std::pair<const char*, std::vector<Patch>> refused[] = {
        {"lists in circles, backwards, shared or cut short",
         {{b, a}, {a, a}, {icm, cm}, {memory, icm}, {icm + 56, a}, {icm, 0}}},
        {"records in the header, in another, not at a multiple of 4, over and at the end",
         {{280, 8}, {cm + 56, cm + 8}, {280, cm + 2}, {b, end - 8}, {b, end}}},
        {"names of none, beyond and at the end, in the header; an invocation at the end",
         {{b + 8, 0}, {b + 8, end + 1}, {b + 8, end}, {b + 8, 16}, {icm + 8, 0}, {b + 32, end}}},
        {"fonts without name or value, and before the features", {{font + 8, 0}, {font + 24, 0}, {552, a}}},
        {"a source path of none, and in the header", {{8, 0}, {8, 100}}},
        {"arrays in the wrong order, and over the end", {{568, at(560)}, {568, end - 2}}},
    };
    // Records and texts beyond the end are none, and so may fonts, orders and constraints be.
    const Patch sound[] = {
        {b, end + 1}, {b, ~uint64_t{0}}, {b + 24, end + 1},      {552, 0},
        {560, 0},     {568, 0},          {cm + 32, ~uint64_t{0}}}; // a default of any number
    ASSERT_TRUE(IsSound(whole));
    for (const auto& [why, patches] : refused)
        for (const auto& [offset, value] : patches)
            EXPECT_FALSE(isSoundWith(offset, value)) << why << ": " << value << " at " << offset;
    for (const auto& [offset, value] : sound)
        EXPECT_TRUE(isSoundWith(offset, value)) << value << " at " << offset;

    const std::pair<const char*, std::vector<Patch>> refused16[] = {
        {"another format version", {{24, 2}}},
        {"a size word too large, and too small", {{0, end + 4}, {0, end - 4}}},
        {"records of another kind",
         {{cm + 40, 48}, {cm + 44, kFeaturePageSize}, {cm + 44, 33}, {icm + 44, kFeatureCm}}},
        {"a wrong ordinal, and wrong groups", {{icm + 50, 0}, {cm + 52, 1}, {memory + 52, 2}}},
        {"counts of document and installable features", {{272, 3}, {274, 0}}},
        {"the size and the number of an array's entries", {{at(560) + 2, 8}, {at(568), 60000}}},
        {"the last byte", {{end - 2, 0x100}}},
    };
    for (const auto& [why, patches] : refused16)
        for (const auto& [offset, value] : patches)
            EXPECT_FALSE(isSoundWith(offset, static_cast<uint16_t>(value)))
                << why << ": " << value << " at " << offset;
}

TEST(Image, IsRefusedWhenItsPathDoesNotEnd)
{
    Bytes bytes = BytesOf(CompileImage(""));
    std::fill(bytes.begin() + 576, bytes.end(), uint8_t{'x'});
    bytes.back() = 0;
    Put<uint64_t>(bytes, 560, 0);
    Put<uint64_t>(bytes, 568, 0);
    EXPECT_FALSE(IsSound(bytes));
}

TEST(Image, HasItsNameFromTheText)
{
    constexpr std::tuple<const WCHAR*, const WCHAR*> kCases[] = {
        {TEXT("C:\\drv\\model.ppd"), TEXT("C:\\drv\\model.BDD")},
        {TEXT("C:\\drv.old\\model"), TEXT("C:\\drv.BDD")},
        {TEXT("model"), TEXT("model.BDD")},
        {TEXT("a.b.c"), TEXT("a.b.BDD")},
        {TEXT("model."), TEXT("model.BDD")},
        {TEXT(""), TEXT(".BDD")},
    };
    for (const auto& [path, expected] : kCases) {
        WCHAR name[kImagePathUnits];
        ASSERT_TRUE(ImagePathOf(path, name));
        EXPECT_EQ(lstrcmpW(name, expected), 0);
    }
    WCHAR name[kImagePathUnits];
    EXPECT_TRUE(ImagePathOf(std::basic_string<WCHAR>(259, 'x').c_str(), name));
    EXPECT_EQ(lstrlenW(name), 263);
    EXPECT_FALSE(ImagePathOf(std::basic_string<WCHAR>(260, 'x').c_str(), name));
    EXPECT_TRUE(ImagePathOf((std::basic_string<WCHAR>(259, 'x') + TEXT(".longer")).c_str(), name));
}

TEST(Compilation, YieldsNothingAndLeaksNothingWhenAnyAllocationFails)
{
    std::string text = kSmallModel;
    for (int i = 0; i < 500; ++i)
        text += "*GMODE option" + std::to_string(i) + "/<41>: \"1\"\n*UIConstraints: *GMODE *CM\n";
    host::FailAllocations(UINT64_MAX, false);
    ASSERT_TRUE(CompileImage(text));
    const uint64_t requests = host::AllocationsSeen();
    EXPECT_GT(requests, 5u);
    EXPECT_LT(requests, 60u);
    Collector collector;
    ModelPtr image;
    ::test::FailEach(
        ::test::kAllocations, [&] { image.reset(); }, [&] { image = CompileImage(text, &collector); },
        [&](bool failed) {
            EXPECT_EQ(image == nullptr, failed);
            image.reset();
        });
}

} // namespace psui::test
