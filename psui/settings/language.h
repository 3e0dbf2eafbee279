#pragma once
// Which language the language module speaks.
#include <windows.h>

namespace psui {

constexpr int kLanguageCodeUnits = 256;

/// Copies the language code, "ENG" when the language module has none.
void LanguageCode(WCHAR (&code)[kLanguageCodeUnits]);

bool IsJapaneseLanguage();

/// Japanese, simplified or traditional Chinese.
bool IsCjkLanguage();

} // namespace psui
