#include "psui/settings/environment.h"

#include <algorithm>
#include <iterator>

#include "psui/base/registry.h"
#include "psui/settings/text.h"

namespace psui {

namespace {

constexpr WCHAR kInternationalKey[] = TEXT("Control Panel\\International");
constexpr WCHAR kPrintersKey[] = TEXT("SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\");
constexpr int kLongestKeyName = 255;

constexpr int kUnitedStates = 1;

/// Blanks, sign and digits up to the first other character; 0 without digits. Large numbers saturate.
int DecimalOf(const WCHAR* text)
{
    constexpr int kLargest = 100'000'000;
    while (*text == ' ' || *text == '\t')
        ++text;
    const bool negative = *text == '-';
    if (*text == '-' || *text == '+')
        ++text;
    int number = 0;
    for (; *text >= '0' && *text <= '9'; ++text)
        number = std::min(number * 10 + (*text - '0'), kLargest);
    return negative ? -number : number;
}

bool CountryUsesLetter(int country)
{
    struct Range
    {
        int first, last;
    };
    constexpr Range kLetterCountries[] = {{1, 2}, {50, 54}, {56, 59}, {500, 599}};
    return std::any_of(std::begin(kLetterCountries), std::end(kLetterCountries),
                       [=](Range range) { return range.first <= country && country <= range.last; });
}

bool HasPrintProcessor(const WCHAR* printerName, const WCHAR* processor)
{
    constexpr int kProcessorUnits = 20; // 40 bytes, terminator included
    if (!printerName || !*printerName)
        return false;
    const int length = BoundedLength(printerName, kLongestKeyName + 1);
    if (length > kLongestKeyName)
        return false;
    WCHAR path[std::size(kPrintersKey) + kLongestKeyName];
    WCHAR* end = std::copy_n(kPrintersKey, std::size(kPrintersKey) - 1, path);
    *std::copy_n(printerName, length, end) = 0;

    WCHAR value[kProcessorUnits];
    const RegistryKey printer = RegistryKey::Open(HKEY_LOCAL_MACHINE, path, KEY_QUERY_VALUE);
    return printer.ReadText(TEXT("Print Processor"), value, std::size(value)) &&
           EqualNoCase(value, processor);
}

} // namespace

bool IsMetricCountry()
{
    WCHAR text[32];
    const RegistryKey key = RegistryKey::Open(HKEY_CURRENT_USER, kInternationalKey, KEY_QUERY_VALUE);
    const bool known = key.ReadText(TEXT("iCountry"), text, std::size(text));
    return !CountryUsesLetter(known ? DecimalOf(text) : kUnitedStates);
}

bool IsHubPrintProcessor(const WCHAR* printerName)
{
    return HasPrintProcessor(printerName, TEXT("VMHUB PRINT"));
}

bool IsWinPrintProcessor(const WCHAR* printerName)
{
    return HasPrintProcessor(printerName, TEXT("WinPrint"));
}

} // namespace psui
