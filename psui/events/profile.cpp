#include "psui/events/profile.h"

#include <iterator>
#include <string_view>

#include "psui/events/printer_name.h"

namespace psui {

namespace {

using WideView = std::basic_string_view<WCHAR>;

/// What the file functions add to a text that they had to cut: it ends one unit before the buffer does.
constexpr DWORD kCutMark = 1;

} // namespace

void ProfileSection::Read(const WCHAR* key, WCHAR* text, DWORD size) const
{
    text[0] = 0;
    // Without a section's name the platform would list the sections.
    if (!name_[0] || GetPrivateProfileStringW(name_, key, TEXT(""), text, size, file_) + kCutMark >= size)
        text[0] = 0;
}

bool ProfileSection::Has(const WCHAR* key) const
{
    WCHAR start[3];
    return name_[0] && GetPrivateProfileStringW(name_, key, TEXT(""), start, std::size(start), file_) > 0;
}

int ProfileSection::ReadNumber(const WCHAR* key, int fallback) const
{
    return name_[0] ? static_cast<int>(GetPrivateProfileIntW(name_, key, fallback, file_)) : fallback;
}

void ProfileSection::Write(const WCHAR* key, const WCHAR* text) const
{
    if (!HasControlCharacters(text))
        WritePrivateProfileStringW(name_, key, text, file_);
}

void ProfileSection::Delete(const WCHAR* key) const
{
    WritePrivateProfileStringW(name_, key, nullptr, file_);
}

void ProfileSection::Update(const WCHAR* key, const WCHAR* text) const
{
    WCHAR present[MAX_PATH];
    Read(key, present);
    if (WideView(present) != text)
        Write(key, text);
}

} // namespace psui
