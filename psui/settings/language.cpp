#include "psui/settings/language.h"

#include <string_view>

#include "lang/ids/strings.h"
#include "psui/base/module.h"
#include "psui/settings/text.h"

namespace psui {

namespace {

using WideView = std::basic_string_view<WCHAR>;

bool LanguageIsOneOf(std::initializer_list<WideView> codes)
{
    WCHAR own[kLanguageCodeUnits];
    LanguageCode(own);
    for (WideView code : codes)
        if (code == own)
            return true;
    return false;
}

} // namespace

void LanguageCode(WCHAR (&code)[kLanguageCodeUnits])
{
    if (LoadLanguageString(IDS_LANGUAGE_CODE, code, kLanguageCodeUnits) == 0)
        CopyWide(code, TEXT("ENG"), kLanguageCodeUnits);
}

bool IsJapaneseLanguage()
{
    return LanguageIsOneOf({TEXT("JPN")});
}

bool IsCjkLanguage()
{
    return LanguageIsOneOf({TEXT("JPN"), TEXT("SCH"), TEXT("TCH")});
}

} // namespace psui
