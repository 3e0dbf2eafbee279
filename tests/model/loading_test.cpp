#include <filesystem>
#include <fstream>

#include "host/host.h"
#include "model_fixture.h"
#include "tests/entry/fail_each.h"

namespace psui::test {

namespace {

namespace fs = std::filesystem;

// A folder on drive C: with a description and, after a load, its image.
class Loading : public testing::Test
{
protected:
    void SetUp() override
    {
        folder_ = fs::path(host::RootFolder()) / "drive_c" / "load";
        fs::remove_all(folder_);
        fs::create_directories(folder_);
    }
    void TearDown() override
    {
        host::StopFailing();
        host::LimitDiskSpace(-1);
        EXPECT_EQ(host::OpenObjects(), before_);
    }

    fs::path File(const char* name) const { return folder_ / name; }

    void Write(const char* name, std::string_view bytes) const
    {
        std::ofstream(File(name), std::ios::binary)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }

    std::string Read(const char* name) const
    {
        std::ifstream file(File(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// Loads m.ppd and says where it came from, with the number of its MediaType options.
    std::string Load(const WCHAR* path = TEXT("C:\\load\\m.ppd")) const
    {
        ModelSource source = ModelSource::None;
        const ModelPtr model(LoadModelDescription(path, &source));
        EXPECT_EQ(model == nullptr, source == ModelSource::None);
        if (!model)
            return "none";
        const uint32_t options = OptionCount(BuiltinFeature(model.get(), kFeatureMediaType));
        return (source == ModelSource::Image ? "image " : "compiled ") + std::to_string(options);
    }

    fs::path folder_;
    host::Ledger before_ = host::OpenObjects();
};

constexpr char kVersion1[] = "*FileVersion: \"1.00\"\r\n*MediaType 0: \"0\"\r\n";
constexpr char kVersion1More[] = "*FileVersion: \"1.00\"\r\n*MediaType 0: \"0\"\r\n*MediaType 1: \"1\"\r\n";
constexpr char kVersion101[] = "*FileVersion: \"1.01\"\r\n*MediaType 0: \"0\"\r\n*MediaType 1: \"1\"\r\n";

} // namespace

TEST_F(Loading, CompilesOnceAVersion)
{
    Write("m.ppd", kVersion1);
    EXPECT_EQ(Load(), "compiled 1");
    EXPECT_EQ(Load(), "image 1");
    Write("m.ppd", kVersion1More);
    EXPECT_EQ(Load(), "image 1") << "a text edited without a new version keeps its image";
    Write("m.ppd", kVersion101);
    EXPECT_EQ(Load(), "compiled 2")
        << "an edit within the same second and of any length counts by its version";
    EXPECT_EQ(Load(), "image 2");
    fs::remove(File("m.ppd"));
    EXPECT_EQ(Load(), "none");
    EXPECT_TRUE(fs::exists(File("m.BDD")));
}

TEST_F(Loading, ReadsTheVersionFromTheFirstMentionOnly)
{
    const auto loadTwice = [&](std::string_view text) {
        Write("m.ppd", text);
        fs::remove(File("m.BDD"));
        EXPECT_EQ(Load(), "compiled 1") << text;
        return Load();
    };
    const std::string medium = "*MediaType 0: \"0\"\n", version = "*FileVersion: \"1.0\"\n";
    for (const std::string& fresh :
         {version + medium, "*% FileVersion is \"1\" here\n" + version + medium,
          "*% FileVersion below\n" + version + medium, "*% FileVersion\n*MediaType 0: \"1\"\n" + version})
        EXPECT_EQ(loadTwice(fresh), "image 1") << fresh;
    for (const std::string& unknown :
         {medium, "*% FileVersion \"2\"\n" + version + medium, "*FileVersion: \"0\"\n" + medium,
          "*FileVersion: \"x\"\n" + medium, "*FileVersion: 1.0\n" + medium, medium + "*FileVersion: \"1",
          medium + '\0' + version}) // the search ends at a zero byte
        EXPECT_EQ(loadTwice(unknown), "compiled 1") << unknown;
}

TEST_F(Loading, ReplacesAnImageThatIsNotSound)
{
    Write("m.ppd", kVersion1);
    EXPECT_EQ(Load(), "compiled 1");
    const std::string good = Read("m.BDD");
    for (size_t size : {size_t{0}, size_t{3}, size_t{600}, size_t{608}, good.size() - 4, good.size() - 1}) {
        Write("m.BDD", good.substr(0, size));
        EXPECT_EQ(Load(), "compiled 1") << size;
        EXPECT_EQ(Read("m.BDD"), good) << size;
    }
    for (const auto& [offset, value] : {std::pair{24, 2}, {280, 3}, {241, 2}, {620, 3}}) {
        std::string bad = good;
        bad[static_cast<size_t>(offset)] = static_cast<char>(value);
        Write("m.BDD", bad);
        EXPECT_EQ(Load(), "compiled 1") << offset;
        EXPECT_EQ(Read("m.BDD"), good) << offset;
    }
    Write("m.BDD", good + "more");
    EXPECT_EQ(Load(), "compiled 1");
    EXPECT_EQ(Load(), "image 1");
}

TEST_F(Loading, RefusesTheImageOfAnotherText)
{
    Write("m.ppd", kVersion1);
    Write("n.ppd", kVersion1More);
    EXPECT_EQ(Load(), "compiled 1");
    EXPECT_EQ(Load(TEXT("C:\\load\\n.ppd")), "compiled 2");
    fs::copy_file(File("m.BDD"), File("n.BDD"), fs::copy_options::overwrite_existing);
    EXPECT_EQ(Load(TEXT("C:\\load\\n.ppd")), "compiled 2");
    EXPECT_EQ(Load(TEXT("C:\\load\\N.PPD")), "image 2") << "names are compared without regard to case";
}

TEST_F(Loading, NeverTakesATornImageForAWholeOne)
{
    Write("m.ppd", kVersion1);
    EXPECT_EQ(Load(), "compiled 1");
    const auto size = static_cast<int64_t>(fs::file_size(File("m.BDD")));
    for (int64_t space = 0; space <= size + 4; space += space < size - 8 ? 37 : 1) {
        fs::remove(File("m.BDD"));
        host::LimitDiskSpace(space);
        EXPECT_EQ(Load(), "compiled 1") << space;
        host::LimitDiskSpace(-1);
        EXPECT_EQ(Load(), space < size + 4 ? "compiled 1" : "image 1") << space;
    }
}

TEST_F(Loading, KeepsNoImageForAPathThatIsTooLong)
{
    Write("m.ppd", kVersion1);
    std::u16string path = TEXT("C:\\load\\m.ppd");
    while (path.size() < MAX_PATH + 5)
        path.insert(path.rfind(u'\\'), TEXT("\\."));
    EXPECT_EQ(Load(path.c_str()), "compiled 1");
    EXPECT_FALSE(fs::exists(File("m.BDD")));
}

TEST_F(Loading, YieldsNothingWithoutAReadableText)
{
    EXPECT_EQ(Load(), "none");
    fs::create_directory(File("m.ppd"));
    EXPECT_EQ(Load(), "none");
    fs::remove(File("m.ppd"));
    Write("m.ppd", "*" + std::string(41, 'k') + ": 1\n");
    EXPECT_EQ(Load(), "none");
    EXPECT_FALSE(fs::exists(File("m.BDD"))) << "a text that does not compile leaves no image";
    Write("m.ppd", "");
    EXPECT_EQ(Load(), "compiled 0");
}

TEST_F(Loading, SurvivesTheFailureOfAnyRequestOrCall)
{
    Write("m.ppd", kVersion1);
    for (bool withImage : {false, true}) {
        const std::string whole = withImage ? "image 1" : "compiled 1";
        std::string result;
        for (const ::test::Requests& requests : {::test::kAllocations, ::test::kCalls})
            ::test::FailEach(
                requests,
                [&] {
                    if (withImage)
                        Load();
                    else
                        fs::remove(File("m.BDD"));
                },
                [&] { result = Load(); },
                [&](bool failed) {
                    EXPECT_TRUE(result == whole || (failed && (result == "none" || result == "compiled 1")))
                        << result;
                });
    }
    EXPECT_NE(Load(), "none");
}

} // namespace psui::test
