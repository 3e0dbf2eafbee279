#include "tools/psuictl/language_texts.h"

#include <algorithm>

#include "tools/psuictl/library.h"

namespace psuictl {

LanguageTexts::LanguageTexts(const std::string& language)
    : module_(LoadLibraryExW((ProductFolder(language) + TEXT("VMLANG.DLL")).c_str(), nullptr,
                             LOAD_LIBRARY_AS_DATAFILE))
{
}

LanguageTexts::~LanguageTexts()
{
    if (module_)
        FreeLibrary(module_);
}

std::string LanguageTexts::Text(int id) const
{
    constexpr int kMaxUnits = 4096;
    WideString text(kMaxUnits, 0);
    text.resize(module_
                    ? static_cast<size_t>(LoadStringW(module_, static_cast<UINT>(id), text.data(), kMaxUnits))
                    : 0);
    text.erase(std::remove(text.begin(), text.end(), WCHAR{'\r'}), text.end());
    return Utf8(text);
}

} // namespace psuictl
