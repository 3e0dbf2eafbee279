#pragma once
#include <string>
#include <string_view>

namespace host {

/// Text of the system's 8-bit code page to UTF-16 and back. What the code page lacks becomes what the
/// platform puts in its place.
std::u16string FromCodePage(std::string_view bytes);
std::string ToCodePage(std::u16string_view text);

} // namespace host
