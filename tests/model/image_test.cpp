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
    const std::tuple<const char*, uint64_t, uint64_t, bool> patches[] = {
        {"option list runs in a circle", b, a, false},
        {"option follows itself", a, a, false},
        {"feature list runs in a circle", icm, cm, false},
        {"feature list runs backwards", memory, icm, false},
        {"two features share their options", icm + 56, a, false},
        {"option inside a feature", cm + 56, cm + 8, false},
        {"record in the header", 280, 8, false},
        {"record not at a multiple of 4", 280, cm + 2, false},
        {"record over the end", b, whole.size() - 8, false},
        {"record at the end", b, whole.size(), false},
        {"record beyond the end is none", b, whole.size() + 1, true},
        {"last record far beyond the end is none", b, ~uint64_t{0}, true},
        {"feature list cut short against its count", icm, 0, false},
        {"name is none", b + 8, 0, false},
        {"name beyond the end is none", b + 8, whole.size() + 1, false},
        {"name at the end", b + 8, whole.size(), false},
        {"name in the header", b + 8, 16, false},
        {"translation beyond the end is none", b + 24, whole.size() + 1, true},
        {"invocation at the end", b + 32, whole.size(), false},
        {"keyword is none", icm + 8, 0, false},
        {"font without name", font + 8, 0, false},
        {"font without value", font + 24, 0, false},
        {"font before the features", 552, a, false},
        {"no fonts", 552, 0, true},
        {"no source path", 8, 0, false},
        {"source path in the header", 8, 100, false},
        {"no orders", 560, 0, true},
        {"no constraints", 568, 0, true},
        {"arrays in the wrong order", 568, at(560), false},
        {"array over the end", 568, whole.size() - 2, false},
        {"default of any number", cm + 32, ~uint64_t{0}, true}};
    const auto isSoundWith = [&whole](uint64_t offset, auto value) {
        Bytes bytes = whole;
        Put(bytes, offset, value);
        return IsSound(bytes);
    };
    ASSERT_TRUE(IsSound(whole));
    for (const auto& [why, offset, value, sound] : patches)
        EXPECT_EQ(isSoundWith(offset, value), sound) << why;
    const std::tuple<const char*, uint64_t, uint16_t> patches16[] = {
        {"another format version", 24, 2},
        {"size word too large", 0, static_cast<uint16_t>(whole.size() + 4)},
        {"size word too small", 0, static_cast<uint16_t>(whole.size() - 4)},
        {"option record size of another kind", cm + 40, 48},
        {"feature index of another kind", cm + 44, kFeaturePageSize},
        {"feature index past the slots", cm + 44, 33},
        {"slot taken twice", icm + 44, kFeatureCm},
        {"wrong ordinal", icm + 50, 0},
        {"installable before a document feature", cm + 52, 1},
        {"installable of another value", memory + 52, 2},
        {"document feature count", 272, 3},
        {"installable feature count", 274, 0},
        {"entry size", at(560) + 2, 8},
        {"more entries than the block holds", at(568), 60000},
        {"last byte", whole.size() - 2, 0x100},
    };
    for (const auto& [why, offset, value] : patches16)
        EXPECT_FALSE(isSoundWith(offset, value)) << why;
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
