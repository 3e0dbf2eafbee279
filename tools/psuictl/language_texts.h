#pragma once
#include <string>

#include "tools/psuictl/text.h"

namespace psuictl {

/// The texts of one language module, by id. Without the module every text is empty.
class LanguageTexts
{
public:
    explicit LanguageTexts(const std::string& language);
    ~LanguageTexts();
    LanguageTexts(const LanguageTexts&) = delete;
    LanguageTexts& operator=(const LanguageTexts&) = delete;

    /// In UTF-8, with line breaks as single line feeds.
    std::string Text(int id) const;

private:
    HMODULE module_;
};

} // namespace psuictl
