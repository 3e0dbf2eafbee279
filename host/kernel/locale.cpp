#include <algorithm>
#include <string_view>

#include "host/kernel/call.h"
#include "host/kernel/error.h"

namespace {

constexpr LANGID kEnglishUs = 0x0409;
constexpr LANGID kJapanese = 0x0411;
constexpr LCID kUserDefault = 0x0400;
constexpr LCID kSystemDefault = 0x0800;

struct LocaleFact
{
    LCID locale;
    LCTYPE type;
    std::u16string_view value;
};

constexpr LocaleFact kFacts[] = {
    {kEnglishUs, LOCALE_IMEASURE, u"1"},          {kEnglishUs, LOCALE_ICOUNTRY, u"1"},
    {kEnglishUs, LOCALE_SABBREVLANGNAME, u"ENU"}, {kEnglishUs, LOCALE_IDEFAULTANSICODEPAGE, u"1252"},
    {kJapanese, LOCALE_IMEASURE, u"0"},           {kJapanese, LOCALE_ICOUNTRY, u"81"},
    {kJapanese, LOCALE_SABBREVLANGNAME, u"JPN"},  {kJapanese, LOCALE_IDEFAULTANSICODEPAGE, u"932"},
};

const LocaleFact* FindFact(LCID locale, LCTYPE type)
{
    if (locale == kUserDefault || locale == kSystemDefault)
        locale = kEnglishUs;
    for (const LocaleFact& fact : kFacts) {
        if (fact.locale == locale && fact.type == type)
            return &fact;
    }
    return nullptr;
}

} // namespace

LANGID WINAPI GetUserDefaultUILanguage(void)
{
    HOST_CALL_VOID(GetUserDefaultUILanguage);
    return kEnglishUs;
}

LCID WINAPI GetUserDefaultLCID(void)
{
    HOST_CALL_VOID(GetUserDefaultLCID);
    return kEnglishUs;
}

int WINAPI GetLocaleInfoW(LCID locale, LCTYPE type, LPWSTR data, int size)
{
    HOST_CALL(GetLocaleInfoW, 0, ERROR_INVALID_PARAMETER);
    const LocaleFact* const fact = FindFact(locale, type);
    if (fact == nullptr || size < 0 || (size > 0 && data == nullptr))
        return host::FailWith(ERROR_INVALID_PARAMETER);
    const int needed = static_cast<int>(fact->value.size()) + 1;
    if (size == 0)
        return needed;
    if (size < needed)
        return host::FailWith(ERROR_INSUFFICIENT_BUFFER);
    std::copy(fact->value.begin(), fact->value.end(), data);
    data[needed - 1] = 0;
    return needed;
}
