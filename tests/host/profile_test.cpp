// Private-profile files.
#include <cstring>
#include <tuple>
#include <vector>

#include "tests/host/last_error.h"
#include "tests/host/scratch.h"
#include "tests/host/wine.h"

namespace {

constexpr DWORD kRoom = 4096;

class Profiles : public Scratch
{
protected:
    void SetUp() override
    {
        Scratch::SetUp();
        file_ = Path(TEXT("test.ini"));
    }

    void Put(const std::string& text) const { Write(file_, text); }
    std::string Content() const { return Read(file_); }

    /// What a query returns, with its closing zeros cut off; zeros within show as '|'.
    Wide Ask(const WCHAR* section, const WCHAR* key, const WCHAR* fallback, DWORD size = kRoom) const
    {
        std::vector<WCHAR> buffer(size, TEXT('~'));
        const DWORD count =
            GetPrivateProfileStringW(section, key, fallback, buffer.data(), size, file_.c_str());
        EXPECT_EQ(buffer[count], 0);
        return Shown({buffer.data(), count});
    }

    bool Store(const WCHAR* section, const WCHAR* key, const WCHAR* value) const
    {
        return WritePrivateProfileStringW(section, key, value, file_.c_str());
    }

    static Wide Shown(Wide list)
    {
        for (WCHAR& unit : list) {
            if (unit == 0)
                unit = TEXT('|');
        }
        return list;
    }

    Wide file_;
};

constexpr char kSample[] = "top=1\r\n"
                           "[First]\r\n"
                           "; a comment\r\n"
                           " a = 1 \r\n"
                           "word\r\n"
                           "both=\"quoted \"\r\n"
                           "single='x'\r\n"
                           "half=\"x\r\n"
                           "twice=\"\"x\"\"\r\n"
                           "lone=\"\r\n"
                           "nothing=\"\"\r\n"
                           "empty=\r\n"
                           "inner=x  y=z\r\n"
                           "\r\n"
                           "[ Second one ]\r\n"
                           "z=26\r\n"
                           "z=27\r\n"
                           "[first]\r\n"
                           "late=1\r\n"
                           "[no end\r\n"
                           "[a]b] tail\r\n"
                           "v=1\n"
                           "last=2";

TEST_F(Profiles, ValuesAreFoundWithoutRegardToCaseAndBlanks)
{
    Put(kSample);
    const std::tuple<const WCHAR*, const WCHAR*, const WCHAR*> cases[] = {
        {TEXT("FIRST"), TEXT("A"), TEXT("1")},
        {TEXT(" first "), TEXT(" a "), TEXT("1")},
        {TEXT("First"), TEXT("both"), TEXT("quoted ")},
        {TEXT("First"), TEXT("single"), TEXT("x")},
        {TEXT("First"), TEXT("half"), TEXT("\"x")},
        {TEXT("First"), TEXT("twice"), TEXT("\"x\"")},
        {TEXT("First"), TEXT("lone"), TEXT("\"")},
        {TEXT("First"), TEXT("nothing"), TEXT("")},
        {TEXT("First"), TEXT("empty"), TEXT("")},
        {TEXT("First"), TEXT("inner"), TEXT("x  y=z")},
        {TEXT("First"), TEXT("word"), TEXT("default")},
        {TEXT("First"), TEXT("late"), TEXT("default")},
        {TEXT("First"), TEXT(""), TEXT("default")},
        {TEXT("second one"), TEXT("z"), TEXT("26")},
        {TEXT("a]b"), TEXT("v"), TEXT("1")},
        {TEXT("a]b"), TEXT("last"), TEXT("2")},
        {TEXT("no end"), TEXT("v"), TEXT("default")},
        {TEXT("none"), TEXT("a"), TEXT("default")},
    };
    for (const auto& [section, key, value] : cases)
        EXPECT_EQ(Ask(section, key, TEXT("default  ")), value) << Wide(key).size();
    EXPECT_EQ(Ask(TEXT("First"), TEXT("none"), nullptr), Wide());
}

TEST_F(Profiles, ListsNameSectionsKeysAndLines)
{
    Put(kSample);
    EXPECT_EQ(Ask(nullptr, nullptr, TEXT("x")), TEXT("First|Second one|first|a]b|"));
    EXPECT_EQ(Ask(TEXT("First"), nullptr, TEXT("x")),
              TEXT("a|both|single|half|twice|lone|nothing|empty|inner|"));
    EXPECT_EQ(Ask(TEXT("none"), nullptr, TEXT("x")), TEXT("x"));

    WCHAR buffer[kRoom];
    DWORD count = GetPrivateProfileSectionW(TEXT("Second one"), buffer, kRoom, file_.c_str());
    EXPECT_EQ(Shown({buffer, count}), TEXT("z=26|z=27|"));
    EXPECT_EQ(buffer[count], 0);
    count = GetPrivateProfileSectionW(TEXT("First"), buffer, 12, file_.c_str());
    EXPECT_EQ(Shown({buffer, 12}), TEXT("a=1|word|b||")) << "cut";
    EXPECT_EQ(count, 10u);
    std::memset(buffer, 1, sizeof buffer);
    EXPECT_EQ(GetPrivateProfileSectionW(TEXT("none"), buffer, kRoom, file_.c_str()), 0u);
    EXPECT_EQ(Shown({buffer, 2}), TEXT("||"));
}

TEST_F(Profiles, SmallBuffersGetWhatFits)
{
    Put("[S]\r\nkey=value\r\nquoted=\"value\"\r\nk=1\r\n[T]\r\n");
    const std::tuple<const WCHAR*, const WCHAR*, DWORD, const WCHAR*> cases[] = {
        {TEXT("S"), TEXT("key"), 6, TEXT("value")}, {TEXT("S"), TEXT("key"), 5, TEXT("valu")},
        {TEXT("S"), TEXT("key"), 1, TEXT("")},      {TEXT("S"), TEXT("none"), 3, TEXT("de")},
        {nullptr, nullptr, 4, TEXT("S|")},          {nullptr, nullptr, 2, TEXT("")},
        {TEXT("S"), nullptr, 8, TEXT("key|qu")},
    };
    for (const auto& [section, key, size, answer] : cases)
        EXPECT_EQ(Ask(section, key, TEXT("default"), size), answer) << size;
    WCHAR untouched = TEXT('~');
    EXPECT_EQ(GetPrivateProfileStringW(TEXT("S"), TEXT("key"), TEXT(""), &untouched, 0, file_.c_str()), 0u);
    EXPECT_EQ(untouched, TEXT('~'));
    // Wine cuts before it takes the quotes off, and lists that just fit.
    if (!OnWine()) {
        EXPECT_EQ(Ask(nullptr, nullptr, TEXT(""), 5), TEXT("S|T|"));
        EXPECT_EQ(Ask(TEXT("S"), TEXT("quoted"), TEXT(""), 6), TEXT("value"));
    }
}

TEST_F(Profiles, NumbersAreReadUpToTheFirstOtherSign)
{
    const std::tuple<const char*, INT> cases[] = {
        {"12", 12},   {"-5", -5},
        {"+3", 3},    {"0x1F", 31},
        {"0X1f", 0},  {"017", 17},
        {"0b11", 3},  {" 7 pages", 7},
        {"\"9\"", 9}, {"4294967297", 1},
        {"- 5", 0},   {"pages", 0},
        {"", -77},    {"2147483648", INT32_MIN},
    };
    for (const auto& [text, number] : cases) {
        Put(std::string("[S]\r\nn=") + text + "\r\n");
        EXPECT_EQ(static_cast<INT>(GetPrivateProfileIntW(TEXT("S"), TEXT("n"), -77, file_.c_str())), number)
            << text;
    }
}

TEST_F(Profiles, FilesGrowKeyByKeyAndShrinkAgain)
{
    const std::tuple<const WCHAR*, const WCHAR*, const WCHAR*, const char*> steps[] = {
        {TEXT("S"), TEXT("none"), nullptr, "(absent)"},
        {TEXT("S"), TEXT("k"), TEXT("v"), "[S]\r\nk=v\r\n"},
        {TEXT("S"), TEXT("k2"), TEXT(" \"two\""), "[S]\r\nk=v\r\nk2=\"two\"\r\n"},
        {TEXT("T"), TEXT("k"), TEXT(""), "[S]\r\nk=v\r\nk2=\"two\"\r\n[T]\r\nk=\r\n"},
        {TEXT("s"), TEXT("K"), TEXT("w"), "[S]\r\nk=w\r\nk2=\"two\"\r\n[T]\r\nk=\r\n"},
        {TEXT("S"), TEXT("k2"), nullptr, "[S]\r\nk=w\r\n[T]\r\nk=\r\n"},
        {TEXT("S"), TEXT("none"), nullptr, "[S]\r\nk=w\r\n[T]\r\nk=\r\n"},
        {TEXT("none"), nullptr, nullptr, "[S]\r\nk=w\r\n[T]\r\nk=\r\n"},
        {TEXT("S"), nullptr, nullptr, "[T]\r\nk=\r\n"},
    };
    for (const auto& [section, key, value, content] : steps) {
        EXPECT_TRUE(Store(section, key, value)) << content;
        EXPECT_EQ(Content(), content);
    }
    EXPECT_FALSE(Store(nullptr, nullptr, nullptr))
        << "the documented answer to a request to store everything";
    EXPECT_FALSE(Store(nullptr, TEXT("k"), TEXT("v")));
}

// Wine rewrites the whole file in a layout of its own.
TEST_F(Profiles, WritingLeavesOtherLinesAsTheyAre)
{
    if (OnWine())
        GTEST_SKIP();
    Put("; head\r\n[S]\r\n;c\r\n  a  =  1\r\nword\n\r\nb=2\r\n\r\n\r\n[T]\r\nx=1");
    EXPECT_TRUE(Store(TEXT("S"), TEXT("new"), TEXT("3")));
    EXPECT_TRUE(Store(TEXT("S"), TEXT("b"), TEXT("4")));
    EXPECT_TRUE(Store(TEXT("T"), TEXT("y"), TEXT("5")));
    EXPECT_TRUE(Store(TEXT("U"), TEXT("z"), TEXT("6")));
    EXPECT_EQ(Content(), "; head\r\n[S]\r\n;c\r\n  a  =  1\r\nword\n\r\nb=4\r\nnew=3\r\n\r\n\r\n"
                         "[T]\r\nx=1\r\ny=5\r\n[U]\r\nz=6\r\n");
}

TEST_F(Profiles, EncodingOfTheFileStays)
{
    Put("[S]\r\na=\xE9\r\n");
    EXPECT_EQ(Ask(TEXT("S"), TEXT("a"), TEXT("")), TEXT("\u00E9"));
    EXPECT_TRUE(Store(TEXT("S"), TEXT("b"), TEXT("\u00E8\u3042")));
    EXPECT_EQ(Content(), "[S]\r\na=\xE9\r\nb=\xE8?\r\n") << "the code page has no such letter";

    // Twenty bytes behind the mark: a section and one letter.
    const std::string mark = "\xFF\xFE";
    Put(mark + std::string("[\0S\0]\0\r\0\n\0a\0=\0\x42\x30\r\0\n\0", 20));
    EXPECT_EQ(Ask(TEXT("S"), TEXT("a"), TEXT("")), TEXT("\u3042"));
    EXPECT_TRUE(Store(TEXT("S"), TEXT("a"), TEXT("\u3044")));
    EXPECT_EQ(Content(), mark + std::string("[\0S\0]\0\r\0\n\0a\0=\0\x44\x30\r\0\n\0", 20));
}

// Wine writes all of these as they come, and then finds other sections and keys.
TEST_F(Profiles, NoNameOrValueBreaksTheFile)
{
    if (OnWine())
        GTEST_SKIP();
    const std::string before = "[S]\r\nk=v\r\n";
    Put(before);
    const WCHAR* const refused[][3] = {
        {TEXT("S\r\nT"), TEXT("k"), TEXT("v")},
        {TEXT("S"), TEXT("k\nl"), TEXT("v")},
        {TEXT("S"), TEXT("[x"), TEXT("y]")},
        {TEXT("S\n"), nullptr, nullptr},
    };
    for (const auto& each : refused) {
        EXPECT_TRUE(Fails(ERROR_INVALID_PARAMETER, Store(each[0], each[1], each[2])));
        EXPECT_EQ(Content(), before);
    }
    EXPECT_TRUE(Store(TEXT("S"), TEXT("k"), TEXT("one\r\n[T]")));
    EXPECT_TRUE(Store(TEXT("a]b["), TEXT(";x"), TEXT("[y]")));
    EXPECT_EQ(Content(), "[S]\r\nk=one\r\n[a]b[]\r\n;x=[y]\r\n");
    EXPECT_EQ(Ask(TEXT("a]b["), TEXT(";x"), TEXT("")), TEXT("[y]"));
}

TEST_F(Profiles, FilesThatCannotBeWrittenAreLeftAlone)
{
    EXPECT_TRUE(
        Fails(ERROR_PATH_NOT_FOUND, WritePrivateProfileStringW(TEXT("S"), TEXT("k"), TEXT("v"),
                                                               Path(TEXT("none\\test.ini")).c_str())));
    Put("[S]\r\nk=1\r\n");
    const HANDLE alone = Open(file_, GENERIC_READ, 0, OPEN_EXISTING);
    EXPECT_TRUE(Fails(ERROR_SHARING_VIOLATION, Store(TEXT("S"), TEXT("k"), TEXT("v"))));
    EXPECT_EQ(Ask(TEXT("S"), TEXT("k"), TEXT("default")), TEXT("default"));
    CloseHandle(alone);
    // Wine runs as the user who may write all files.
    if (!OnWine()) {
        SetFileAttributesW(file_.c_str(), FILE_ATTRIBUTE_READONLY);
        EXPECT_TRUE(Fails(ERROR_ACCESS_DENIED, Store(TEXT("S"), TEXT("k"), TEXT("v"))));
    }
    EXPECT_EQ(Content(), "[S]\r\nk=1\r\n");
}

TEST_F(Profiles, MissingFilesAnswerTheDefaultAndSayWhy)
{
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(Ask(TEXT("S"), TEXT("k"), TEXT("default  ")), TEXT("default"));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(Ask(nullptr, nullptr, TEXT("x")), Wide());
    EXPECT_EQ(Ask(TEXT("S"), nullptr, TEXT("x")), TEXT("x"));
}

TEST_F(Profiles, SectionsAreReplacedWhole)
{
    Put("[S]\r\n;c\r\na=1\r\nword\r\n[T]\r\nx=1\r\n");
    const WCHAR* const file = file_.c_str();
    EXPECT_TRUE(WritePrivateProfileSectionW(TEXT("s"), TEXT("k=1\0k=2\0"), file));
    EXPECT_EQ(Content(), "[S]\r\nk=1\r\nk=2\r\n[T]\r\nx=1\r\n");
    EXPECT_TRUE(WritePrivateProfileSectionW(TEXT("N"), TEXT(""), file));
    EXPECT_TRUE(WritePrivateProfileSectionW(TEXT("T"), TEXT(""), file));
    EXPECT_EQ(Content(), "[S]\r\nk=1\r\nk=2\r\n[T]\r\n");
    EXPECT_TRUE(WritePrivateProfileSectionW(TEXT("S"), nullptr, file));
    EXPECT_TRUE(WritePrivateProfileSectionW(TEXT("N"), TEXT("n=1\0"), file));
    EXPECT_EQ(Content(), "[T]\r\n[N]\r\nn=1\r\n");
}

TEST_F(Profiles, BareNamesLieInTheWindowsFolder)
{
    WCHAR folder[MAX_PATH];
    GetWindowsDirectoryW(folder, MAX_PATH);
    const Wide path = Wide(folder) + TEXT("\\psuitest.ini");
    DeleteFileW(path.c_str());
    EXPECT_TRUE(WritePrivateProfileStringW(TEXT("S"), TEXT("k"), TEXT("v"), TEXT("psuitest.ini")));
    EXPECT_EQ(Read(path), "[S]\r\nk=v\r\n");
    WCHAR value[8];
    EXPECT_EQ(GetPrivateProfileStringW(TEXT("S"), TEXT("k"), TEXT(""), value, 8, path.c_str()), 1u);
    DeleteFileW(path.c_str());
}

} // namespace
