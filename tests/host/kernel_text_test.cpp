#include <climits>
#include <string>
#include <tuple>

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/host/last_error.h"
#include "tests/host/wine.h"

namespace {

using Wide = std::basic_string<WCHAR>;

constexpr UINT kLatin = 1252;
constexpr UINT kJapanese = 932;

Wide Decode(UINT page, DWORD flags, const std::string& bytes)
{
    WCHAR buffer[64];
    const int size =
        MultiByteToWideChar(page, flags, bytes.data(), static_cast<int>(bytes.size()), buffer, 64);
    return Wide(buffer, static_cast<size_t>(size));
}

std::string Encode(UINT page, DWORD flags, const Wide& text)
{
    char buffer[64];
    const int size = WideCharToMultiByte(page, flags, text.data(), static_cast<int>(text.size()), buffer, 64,
                                         nullptr, nullptr);
    return std::string(buffer, static_cast<size_t>(size));
}

struct TextCase
{
    UINT page;
    std::string bytes;
    Wide text;
};

TEST(CodePages, GoBothWays)
{
    const TextCase cases[] = {
        {kLatin, "plain", TEXT("plain")},
        {kLatin, "\x80\x99\xE9\xFF\x81", TEXT("\u20AC\u2122\u00E9\u00FF\u0081")},
        {kLatin, std::string("a\0b", 3), Wide(TEXT("a\0b"), 3)},
        {kJapanese, "A\\~", TEXT("A\\~")},
        {kJapanese, "\x93\xFA\x96\x7B", TEXT("\u65E5\u672C")},
        {kJapanese, "\xB1\xDF", TEXT("\uFF71\uFF9F")},
        {kJapanese, "\x80\xA0\xFD\xFF", TEXT("\u0080\uF8F0\uF8F1\uF8F3")},
        {kJapanese, "\x81\x60\x87\x40\xFA\x40", TEXT("\uFF5E\u2460\u2170")},
        {kJapanese, "\x81\xCA\x81\xE6", TEXT("\uFFE2\u2235")},
        {CP_UTF8, "z\xC3\xA9\xE6\x97\xA5\xF0\x9F\x96\xA8", TEXT("z\u00E9\u65E5\U0001F5A8")},
    };
    for (const TextCase& each : cases) {
        EXPECT_EQ(Decode(each.page, 0, each.bytes), each.text) << each.page;
        EXPECT_EQ(Encode(each.page, 0, each.text), each.bytes) << each.page;
    }
}

TEST(CodePages, UnsoundUtf8IsReplacedOrRefused)
{
    const TextCase cases[] = {
        {CP_UTF8, "a\xFFz", TEXT("a\uFFFDz")},     {CP_UTF8, "\xE6\x97", TEXT("\uFFFD")},
        {CP_UTF8, "\xE6\x97z", TEXT("\uFFFDz")},   {CP_UTF8, "\xC0\x80", TEXT("\uFFFD\uFFFD")},
        {CP_UTF8, "\xF0\x9F\x96", TEXT("\uFFFD")},
    };
    for (const TextCase& each : cases) {
        EXPECT_EQ(Decode(each.page, 0, each.bytes), each.text);
        EXPECT_EQ(Decode(each.page, MB_ERR_INVALID_CHARS, each.bytes), Wide());
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NO_UNICODE_TRANSLATION));
    }
    const WCHAR lone[] = {0x61, 0xD800, 0x7A};
    EXPECT_EQ(Encode(CP_UTF8, 0, Wide(lone, 3)), "a\xEF\xBF\xBDz");
    EXPECT_EQ(Encode(CP_UTF8, WC_ERR_INVALID_CHARS, Wide(lone, 3)), "");
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NO_UNICODE_TRANSLATION));
}

TEST(CodePages, DefaultCharacterStandsInAndIsReported)
{
    char buffer[8] = {};
    BOOL used = FALSE;
    EXPECT_EQ(
        WideCharToMultiByte(kLatin, WC_NO_BEST_FIT_CHARS, TEXT("a\u65E5"), 3, buffer, 8, nullptr, &used), 3);
    EXPECT_STREQ(buffer, "a?");
    EXPECT_TRUE(used);
    EXPECT_EQ(WideCharToMultiByte(kLatin, WC_NO_BEST_FIT_CHARS, TEXT("\u65E5"), 2, buffer, 8, "#", &used), 2);
    EXPECT_STREQ(buffer, "#");
    EXPECT_EQ(WideCharToMultiByte(kLatin, 0, TEXT("ab"), 3, buffer, 8, nullptr, &used), 3);
    EXPECT_FALSE(used);
}

TEST(CodePages, SizesAreAskedForFirst)
{
    WCHAR wide[3];
    char narrow[3];
    EXPECT_EQ(MultiByteToWideChar(kLatin, 0, "abc", -1, nullptr, 0), 4);
    EXPECT_EQ(MultiByteToWideChar(kLatin, 0, "abc", 3, wide, 3), 3);
    EXPECT_TRUE(Fails(ERROR_INSUFFICIENT_BUFFER, MultiByteToWideChar(kLatin, 0, "abc", -1, wide, 3)));
    EXPECT_EQ(WideCharToMultiByte(kJapanese, 0, TEXT("\u65E5\u672C"), -1, nullptr, 0, nullptr, nullptr), 5);
    EXPECT_TRUE(Fails(ERROR_INSUFFICIENT_BUFFER, WideCharToMultiByte(kJapanese, 0, TEXT("\u65E5\u672C"), 2,
                                                                     narrow, 3, nullptr, nullptr)));
}

TEST(CodePages, WrongArgumentsAreRefused)
{
    WCHAR wide[4];
    const std::tuple<UINT, int, int> cases[] = {{kLatin, 0, 4}, {kLatin, 1, -1}, {12345, 1, 4}};
    for (const auto& [page, sourceSize, targetSize] : cases) {
        SetLastError(ERROR_SUCCESS);
        EXPECT_TRUE(
            Fails(ERROR_INVALID_PARAMETER, MultiByteToWideChar(page, 0, "a", sourceSize, wide, targetSize)))
            << page;
    }
    if (OnWine())
        GTEST_SKIP() << "takes arguments that do not suit the page";
    BOOL used;
    char narrow[4];
    EXPECT_TRUE(Fails(ERROR_INVALID_PARAMETER,
                      WideCharToMultiByte(CP_UTF8, 0, TEXT("a"), 1, narrow, 4, nullptr, &used)));
}

int Sign(int value)
{
    return (value > 0) - (value < 0);
}

TEST(Comparison, OrdersSignsDigitsLettersAndIgnoresCaseFirst)
{
    const std::tuple<const WCHAR*, const WCHAR*, int, int> cases[] = {
        {TEXT("same"), TEXT("same"), 0, 0},
        {TEXT("same"), TEXT("SAME"), -1, 0},
        {TEXT("\u00E9t\u00E9"), TEXT("\u00C9T\u00C9"), -1, 0},
        {TEXT("a"), TEXT("B"), -1, -1},
        {TEXT("B"), TEXT("a"), 1, 1},
        {TEXT("ab"), TEXT("abc"), -1, -1},
        {TEXT("_"), TEXT("1"), -1, -1},
        {TEXT("9"), TEXT("a"), -1, -1},
        {TEXT(""), TEXT("a"), -1, -1},
    };
    for (const auto& [first, second, exact, ignoringCase] : cases) {
        EXPECT_EQ(Sign(lstrcmpW(first, second)), exact) << testing::PrintToString(Wide(first));
        EXPECT_EQ(Sign(lstrcmpW(second, first)), -exact);
        EXPECT_EQ(Sign(lstrcmpiW(first, second)), ignoringCase);
    }
}

TEST(Comparison, OrdinalGoesByUnits)
{
    EXPECT_EQ(CompareStringOrdinal(TEXT("a"), -1, TEXT("A"), -1, TRUE), CSTR_EQUAL);
    EXPECT_EQ(CompareStringOrdinal(TEXT("a"), -1, TEXT("A"), -1, FALSE), CSTR_GREATER_THAN);
    EXPECT_EQ(CompareStringOrdinal(TEXT("ab"), 1, TEXT("ac"), 1, FALSE), CSTR_EQUAL);
    EXPECT_EQ(CompareStringOrdinal(TEXT("a"), -1, TEXT("ab"), -1, TRUE), CSTR_LESS_THAN);
    EXPECT_TRUE(Fails(ERROR_INVALID_PARAMETER, CompareStringOrdinal(nullptr, -1, TEXT("a"), -1, TRUE)));
}

TEST(Strings, CopyIsCutAndTerminated)
{
    WCHAR buffer[5] = {TEXT('x'), TEXT('x'), TEXT('x'), TEXT('x'), TEXT('x')};
    EXPECT_EQ(lstrcpynW(buffer, TEXT("abcdef"), 4), buffer);
    EXPECT_EQ(Wide(buffer), TEXT("abc"));
    EXPECT_EQ(buffer[4], TEXT('x'));
    EXPECT_EQ(lstrlenW(nullptr), 0);
    EXPECT_EQ(lstrlenA(nullptr), 0);
}

} // namespace
