#include "psui/events/printer_name.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "psui/base/file.h"
#include "psui/base/format.h"
#include "psui/base/paths.h"
#include "psui/settings/text.h"

namespace psui {

namespace {

using WideView = std::basic_string_view<WCHAR>;

constexpr WCHAR kUtf16Mark = 0xFEFF;

bool IsControl(WCHAR c)
{
    return c < ' ' || c == 0x7F;
}

bool IsBracket(WCHAR c)
{
    return c == '[' || c == ']';
}

/// Reading a value takes a pair of quotes around it away.
bool IsQuoted(WideView text)
{
    return (text.front() == '"' || text.front() == '\'') && text.front() == text.back();
}

bool SurvivesCodePage(const WCHAR* name)
{
    char bytes[2 * kLongestSectionName + 1];
    WCHAR back[kLongestSectionName + 1];
    const int size =
        WideCharToMultiByte(CP_ACP, 0, name, -1, bytes, static_cast<int>(std::size(bytes)), nullptr, nullptr);
    return size > 0 &&
           MultiByteToWideChar(CP_ACP, 0, bytes, size, back, static_cast<int>(std::size(back))) > 0 &&
           WideView(back) == name;
}

bool IsUtf16File(const WCHAR* file)
{
    PathText path;
    if (FileNamePart(file) == file) {
        PathText folder;
        const UINT length = GetWindowsDirectoryW(folder, std::size(folder));
        if (length == 0 || length >= std::size(folder) || !JoinText(path, {folder, TEXT("\\"), file}))
            return false;
        file = path;
    }
    const FileHandle opened(CreateFileW(file, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    WCHAR mark = 0;
    return opened && ReadExactly(opened, &mark, sizeof(mark)) && mark == kUtf16Mark;
}

} // namespace

bool HasControlCharacters(const WCHAR* text)
{
    const WideView view(text);
    return std::any_of(view.begin(), view.end(), IsControl);
}

bool IsSectionName(const WCHAR* name)
{
    const WideView text(name, BoundedLength(name, kLongestSectionName + 1));
    if (text.empty() || text.size() > kLongestSectionName)
        return false;
    return text.front() != ' ' && text.back() != ' ' && !IsQuoted(text) &&
           std::none_of(text.begin(), text.end(), [](WCHAR c) { return IsControl(c) || IsBracket(c); });
}

bool FileHoldsName(const WCHAR* file, const WCHAR* name)
{
    return SurvivesCodePage(name) || IsUtf16File(file);
}

} // namespace psui
