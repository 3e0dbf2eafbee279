// The private-profile functions: what they return and how they fill a caller's buffer.
#include <algorithm>

#include "host/kernel/call.h"
#include "host/kernel/error.h"
#include "host/profile/profile_file.h"

namespace host::profile {
namespace {

constexpr std::u16string_view kLineEnds = u"\r\n";
constexpr DWORD kListEnd = 2; // units that close a list: of its last text, and its own

/// The text of a file, empty when the file cannot be read; then the last-error code tells why. The functions
/// that read have no failure of their own, so a failure that is injected takes the file away.
ProfileText Load(LPCWSTR fileName, bool injectedFailure)
{
    std::string bytes;
    const DWORD error =
        injectedFailure ? static_cast<DWORD>(ERROR_FILE_NOT_FOUND) : ReadBytes(FullFileName(fileName), bytes);
    if (error != ERROR_SUCCESS) {
        SetLastError(error);
        bytes.clear();
    }
    return ProfileText(bytes);
}

/// Fills a buffer with as much of a text as it takes; returns the units without terminator.
DWORD CopyText(std::u16string_view text, LPWSTR buffer, DWORD size)
{
    const size_t count = std::min<size_t>(text.size(), size - 1);
    std::copy_n(text.begin(), count, buffer);
    buffer[count] = 0;
    if (count < text.size())
        SetLastError(ERROR_MORE_DATA);
    return static_cast<DWORD>(count);
}

/// The same for a list of texts, each with its terminator.
DWORD CopyList(std::u16string_view list, LPWSTR buffer, DWORD size)
{
    if (size < kListEnd || list.empty()) {
        std::fill_n(buffer, std::min(size, kListEnd), u'\0');
        return 0;
    }
    const bool fits = list.size() < size;
    const size_t count = fits ? list.size() : size - kListEnd;
    std::copy_n(list.begin(), count, buffer);
    buffer[count] = 0;
    if (!fits) {
        buffer[count + 1] = 0;
        SetLastError(ERROR_MORE_DATA);
    }
    return static_cast<DWORD>(count);
}

std::u16string SectionList(const ProfileText& text)
{
    std::u16string list;
    for (const std::u16string& name : text.Sections())
        list.append(name).append(1, u'\0');
    return list;
}

/// A section's names alone, or its whole lines.
std::u16string EntryList(const ProfileText& text, LPCWSTR section, bool wholeLines)
{
    std::u16string list;
    for (const Entry& entry : text.Entries(section)) {
        if (!wholeLines && !entry.value)
            continue;
        list += entry.name;
        if (wholeLines && entry.value)
            list.append(1, u'=').append(*entry.value);
        list += u'\0';
    }
    return list;
}

/// Takes one pair of quotes off.
std::u16string_view Unquoted(std::u16string_view value)
{
    const bool quoted = value.size() >= 2 && (value.front() == u'"' || value.front() == u'\'') &&
                        value.back() == value.front();
    return quoted ? value.substr(1, value.size() - 2) : value;
}

std::u16string_view WithoutTrailingSpaces(std::u16string_view text)
{
    return text.substr(0, text.find_last_not_of(u' ') + 1);
}

/// One value, or the default, in a caller's buffer.
DWORD CopyValue(const ProfileText& text, LPCWSTR section, LPCWSTR key, LPCWSTR defaultText, LPWSTR buffer,
                DWORD size)
{
    const std::optional<std::u16string> value = text.Value(section, key);
    if (value)
        return CopyText(Unquoted(*value), buffer, size);
    return CopyText(WithoutTrailingSpaces(defaultText), buffer, size);
}

/// Any of the three things that GetPrivateProfileStringW can be asked for. `buffer` has room.
DWORD CopyAnswer(const ProfileText& text, LPCWSTR section, LPCWSTR key, LPCWSTR defaultText, LPWSTR buffer,
                 DWORD size)
{
    if (section == nullptr)
        return CopyList(SectionList(text), buffer, size);
    if (key != nullptr)
        return CopyValue(text, section, key, defaultText, buffer, size);
    const std::u16string names = EntryList(text, section, false);
    return names.empty() ? CopyText(WithoutTrailingSpaces(defaultText), buffer, size)
                         : CopyList(names, buffer, size);
}

unsigned DigitValue(char16_t unit)
{
    if (unit >= u'0' && unit <= u'9')
        return unit - u'0';
    const char16_t lower = unit | 0x20;
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10u : UINT32_MAX;
}

/// Cuts the mark of a base off: "0x", "0o" or "0b".
unsigned TakeBase(std::u16string_view& text)
{
    constexpr struct
    {
        std::u16string_view mark;
        unsigned base;
    } kBases[] = {{u"0x", 16}, {u"0o", 8}, {u"0b", 2}};
    for (const auto& [mark, base] : kBases) {
        if (text.starts_with(mark)) {
            text.remove_prefix(mark.size());
            return base;
        }
    }
    return 10;
}

/// The number at the front of a text, modulo 2 to the power of 32; 0 without one.
UINT ParseNumber(std::u16string_view text)
{
    while (!text.empty() && text.front() <= u' ')
        text.remove_prefix(1);
    const bool negative = text.starts_with(u'-');
    if (negative || text.starts_with(u'+'))
        text.remove_prefix(1);
    const unsigned base = TakeBase(text);
    UINT number = 0;
    for (const char16_t unit : text) {
        const unsigned digit = DigitValue(unit);
        if (digit >= base)
            break;
        number = number * base + digit;
    }
    return negative ? 0 - number : number;
}

bool HasLineBreak(std::u16string_view text)
{
    return text.find_first_of(kLineEnds) != std::u16string_view::npos;
}

/// A value ends where its line would.
std::u16string_view FirstLine(std::u16string_view text)
{
    return text.substr(0, text.find_first_of(kLineEnds));
}

/// Writes or deletes one entry, or a whole section. Returns 0 or the error code.
DWORD WriteEntry(LPCWSTR section, LPCWSTR key, LPCWSTR value, LPCWSTR fileName)
{
    if (section == nullptr || HasLineBreak(section) || (key != nullptr && HasLineBreak(key)))
        return ERROR_INVALID_PARAMETER;
    const std::u16string file = FullFileName(fileName);
    if (key == nullptr)
        return Edit(file, [&](ProfileText& text) { text.DeleteSection(section); });
    if (value == nullptr)
        return Edit(file, [&](ProfileText& text) { text.DeleteEntry(section, key); });
    const std::u16string_view line = FirstLine(value);
    // Such a line would open a section and take the rest of this one into it.
    if (IsHeader(std::u16string(key) + std::u16string(line)))
        return ERROR_INVALID_PARAMETER;
    return Edit(file, [&](ProfileText& text) { text.SetValue(section, key, line); });
}

/// The lines of a list of texts. False when one of them would open a section.
bool CutLines(LPCWSTR list, std::vector<std::u16string>& lines)
{
    for (; *list != 0; list += std::u16string_view(list).size() + 1) {
        const std::u16string_view line = FirstLine(list);
        if (IsHeader(line))
            return false;
        lines.emplace_back(line);
    }
    return true;
}

DWORD WriteSection(LPCWSTR section, LPCWSTR list, LPCWSTR fileName)
{
    std::vector<std::u16string> lines;
    if (section == nullptr || HasLineBreak(section) || (list != nullptr && !CutLines(list, lines)))
        return ERROR_INVALID_PARAMETER;
    const std::u16string file = FullFileName(fileName);
    if (list == nullptr)
        return Edit(file, [&](ProfileText& text) { text.DeleteSection(section); });
    return Edit(file, [&](ProfileText& text) { text.ReplaceSection(section, lines); });
}

BOOL Report(DWORD error)
{
    return error == ERROR_SUCCESS ? TRUE : FailWith(error);
}

} // namespace
} // namespace host::profile

using namespace host;
using namespace host::profile;

DWORD WINAPI GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR defaultText, LPWSTR buffer,
                                      DWORD size, LPCWSTR fileName)
{
    HOST_CALL_VOID(GetPrivateProfileStringW);
    const ReadScope read(hostCall_, &size, nullptr, nullptr);
    const bool fails = hostCall_.InjectedFailure() || read.Fails();
    if (buffer == nullptr || size == 0)
        return 0;
    const ProfileText text = Load(fileName, fails);
    return CopyAnswer(text, section, key, defaultText != nullptr ? defaultText : u"", buffer, size);
}

UINT WINAPI GetPrivateProfileIntW(LPCWSTR section, LPCWSTR key, INT defaultNumber, LPCWSTR fileName)
{
    HOST_CALL_VOID(GetPrivateProfileIntW);
    const ReadScope read(hostCall_, nullptr, nullptr, nullptr);
    const bool fails = hostCall_.InjectedFailure() || read.Fails();
    if (section == nullptr || key == nullptr)
        return static_cast<UINT>(defaultNumber);
    const std::optional<std::u16string> value = Load(fileName, fails).Value(section, key);
    const std::u16string_view number = value ? Unquoted(*value) : std::u16string_view();
    return number.empty() ? static_cast<UINT>(defaultNumber) : ParseNumber(number);
}

DWORD WINAPI GetPrivateProfileSectionW(LPCWSTR section, LPWSTR buffer, DWORD size, LPCWSTR fileName)
{
    HOST_CALL_VOID(GetPrivateProfileSectionW);
    const ReadScope read(hostCall_, &size, nullptr, nullptr);
    const bool fails = hostCall_.InjectedFailure() || read.Fails();
    if (section == nullptr || (buffer == nullptr && size != 0))
        return static_cast<DWORD>(FailWith(ERROR_INVALID_PARAMETER));
    return size == 0 ? 0 : CopyList(EntryList(Load(fileName, fails), section, true), buffer, size);
}

DWORD WINAPI GetPrivateProfileSectionNamesW(LPWSTR buffer, DWORD size, LPCWSTR fileName)
{
    HOST_CALL_VOID(GetPrivateProfileSectionNamesW);
    const ReadScope read(hostCall_, &size, nullptr, nullptr);
    const bool fails = hostCall_.InjectedFailure() || read.Fails();
    if (buffer == nullptr || size == 0)
        return 0;
    return CopyList(SectionList(Load(fileName, fails)), buffer, size);
}

BOOL WINAPI WritePrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR text, LPCWSTR fileName)
{
    HOST_CALL(WritePrivateProfileStringW, FALSE, ERROR_ACCESS_DENIED);
    // All null asks for what was kept back to be stored. Nothing is, and the answer is FALSE all the same.
    if (section == nullptr && key == nullptr && text == nullptr)
        return FALSE;
    return Report(WriteEntry(section, key, text, fileName));
}

BOOL WINAPI WritePrivateProfileSectionW(LPCWSTR section, LPCWSTR lines, LPCWSTR fileName)
{
    HOST_CALL(WritePrivateProfileSectionW, FALSE, ERROR_ACCESS_DENIED);
    return Report(WriteSection(section, lines, fileName));
}
