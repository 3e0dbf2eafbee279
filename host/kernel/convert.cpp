#include "host/kernel/convert.h"

#include <windows.h>

namespace host {

std::u16string FromCodePage(std::string_view bytes)
{
    if (bytes.empty())
        return {};
    // No code page makes more units than it has bytes.
    std::u16string text(bytes.size(), u'\0');
    const int size = static_cast<int>(bytes.size());
    text.resize(static_cast<size_t>(MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, text.data(), size)));
    return text;
}

std::string ToCodePage(std::u16string_view text)
{
    if (text.empty())
        return {};
    constexpr size_t kMostBytes = 2; // a unit
    std::string bytes(text.size() * kMostBytes, '\0');
    const int written = WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()),
                                            bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<size_t>(written));
    return bytes;
}

} // namespace host
