#pragma once
// Text between the console (UTF-8), the platform (UTF-16) and files (8-bit).
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <windows.h>

namespace psuictl {

using WideString = std::basic_string<WCHAR>;
using WideView = std::basic_string_view<WCHAR>;

WideString Wide(std::string_view utf8);
std::string Utf8(WideView text);

/// The text of a field of fixed width: ends at the first zero, or at the field's end.
std::string FieldText(WideView field);

/// An 8-bit text of unknown origin as UTF-8: bytes that are no UTF-8 are written as hex digits between < and
/// >, the notation that model descriptions use themselves.
std::string ReadableBytes(std::string_view bytes);

/// The same for one line of a console: control characters are written in hex, too.
std::string ReadableLine(std::string_view bytes);

/// At most 40 bytes of the text, cut between characters, with dots for what is missing.
std::string Shortened(const std::string& utf8);

/// Columns that a console needs for the text; Japanese characters take two.
size_t DisplayWidth(std::string_view utf8);

/// A whole number, decimal or with 0x in hex, with an optional minus sign. Nothing when anything else is in
/// the text or the number does not fit.
std::optional<int64_t> ParseNumber(std::string_view text);

/// Bytes from pairs of hex digits; blanks between pairs are skipped. Nothing when the text is anything else.
std::optional<std::string> ParseHexBytes(std::string_view text);

std::string HexBytes(std::string_view bytes);

/// `value` in hex with at least `digits` digits: 0x01F4.
std::string Hex(uint64_t value, int digits);

/// `value` with two decimals whatever the locale: 595.28.
std::string Fixed2(double value);

/// A platform error code in words, with its number.
std::string ErrorWords(DWORD code);

} // namespace psuictl
