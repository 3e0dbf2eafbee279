#include "tools/psuictl/record_value.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

#include "tools/psuictl/failure.h"

namespace psuictl {
namespace {

using psui::FieldKind;
using psui::FieldStyle;
using psui::FieldWord;

bool IsSigned(FieldKind kind)
{
    return kind == FieldKind::I16 || kind == FieldKind::I32;
}

bool IsNumber(FieldKind kind)
{
    return IsSigned(kind) || kind == FieldKind::U8 || kind == FieldKind::U16 || kind == FieldKind::U32;
}

int64_t NumberOf(const RecordField& field, const uint8_t* bytes)
{
    uint64_t value = 0;
    for (size_t i = field.width; i-- > 0;)
        value = value << 8 | bytes[i];
    const unsigned bits = 8u * field.width;
    const bool negative = IsSigned(field.kind) && value >> (bits - 1);
    return static_cast<int64_t>(value) - (negative ? int64_t{1} << bits : 0);
}

void PutNumber(const RecordField& field, int64_t value, uint8_t* bytes)
{
    for (size_t i = 0; i < field.width; ++i)
        bytes[i] = static_cast<uint8_t>(static_cast<uint64_t>(value) >> (8 * i));
}

float FloatOf(const uint8_t* bytes)
{
    float value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

std::string FloatText(float value)
{
    char text[64];
    const auto [end, error] = std::to_chars(text, text + sizeof text, value);
    return error == std::errc() ? std::string(text, end) : "?";
}

std::string WideFieldText(const RecordField& field, const uint8_t* bytes)
{
    WideString text(field.width / sizeof(WCHAR), 0);
    std::memcpy(text.data(), bytes, text.size() * sizeof(WCHAR));
    return FieldText(text);
}

std::string NarrowFieldText(const RecordField& field, const uint8_t* bytes)
{
    const char* narrow = reinterpret_cast<const char*>(bytes);
    const int size = static_cast<int>(std::find(narrow, narrow + field.width, '\0') - narrow);
    WideString text(field.width, 0);
    text.resize(
        size ? static_cast<size_t>(MultiByteToWideChar(CP_ACP, 0, narrow, size, text.data(), field.width))
             : 0);
    return Utf8(text);
}

std::string HexText(const RecordField& field, const uint8_t* bytes)
{
    return HexBytes({reinterpret_cast<const char*>(bytes), field.width});
}

/// A run of equal bytes is shown once: most reserved stretches are zero.
std::string ShortHexText(const RecordField& field, const uint8_t* bytes)
{
    constexpr size_t kWorthShortening = 8;
    const std::string hex = HexText(field, bytes);
    for (size_t i = 1; i < field.width; ++i) {
        if (bytes[i] != bytes[0])
            return hex;
    }
    return field.width < kWorthShortening ? hex : std::to_string(field.width) + " x " + hex.substr(0, 2);
}

std::string WordsOf(const RecordField& field, int64_t value)
{
    std::string words;
    for (const FieldWord& word : field.words) {
        const bool applies =
            field.bits ? (value & word.value) != 0 : static_cast<uint32_t>(value) == word.value;
        if (applies)
            words += (words.empty() ? "" : "+") + std::string(word.word);
    }
    return words;
}

std::string ShowNumber(const RecordField& field, const uint8_t* bytes)
{
    const int64_t value = NumberOf(field, bytes);
    const std::string words = WordsOf(field, value);
    std::string text = field.style == FieldStyle::Hex ? Hex(static_cast<uint64_t>(value), 2 * field.width)
                                                      : std::to_string(value);
    return words.empty() ? text : text + " (" + words + ")";
}

[[noreturn]] void Refuse(const RecordField& field, const std::string& text, const std::string& advice)
{
    throw Failure("'" + text + "' is no value for " + field.name + "; " + advice);
}

std::string WordList(const RecordField& field)
{
    std::string list;
    for (const FieldWord& word : field.words)
        list += (list.empty() ? "" : ", ") + std::string(word.word);
    return list;
}

/// A word of the field, or for bits several joined by "+".
std::optional<int64_t> ParseWords(const RecordField& field, std::string_view text)
{
    int64_t value = 0;
    for (bool more = true; more;) {
        const size_t plus = field.bits ? text.find('+') : std::string_view::npos;
        const std::string_view part = text.substr(0, plus);
        const auto found = std::find_if(field.words.begin(), field.words.end(),
                                        [&](const FieldWord& word) { return part == word.word; });
        if (found == field.words.end())
            return std::nullopt;
        value |= IsSigned(field.kind) ? int64_t{static_cast<int32_t>(found->value)} : int64_t{found->value};
        more = plus != std::string_view::npos;
        text.remove_prefix(more ? plus + 1 : text.size());
    }
    return value;
}

void SetNumber(const RecordField& field, const std::string& text, uint8_t* bytes)
{
    const unsigned bits = 8u * field.width;
    const int64_t smallest = IsSigned(field.kind) ? -(int64_t{1} << (bits - 1)) : 0;
    const int64_t largest = (int64_t{1} << (IsSigned(field.kind) ? bits - 1 : bits)) - 1;
    std::optional<int64_t> value = ParseNumber(text);
    if (!value)
        value = ParseWords(field, text);
    if (value && *value >= smallest && *value <= largest)
        return PutNumber(field, *value, bytes);
    const std::string words = WordList(field);
    Refuse(field, text,
           "give a number from " + std::to_string(smallest) + " to " + std::to_string(largest) +
               (words.empty() ? "" : ", or a word: " + words));
}

void SetFloat(const RecordField& field, const std::string& text, uint8_t* bytes)
{
    float value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end || !std::isfinite(value))
        Refuse(field, text, "give a number such as 0.5");
    std::memcpy(bytes, &value, sizeof value);
}

void SetWideText(const RecordField& field, const std::string& text, uint8_t* bytes)
{
    const WideString wide = Wide(text);
    if (wide.size() * sizeof(WCHAR) > field.width)
        Refuse(field, text, "at most " + std::to_string(field.width / sizeof(WCHAR)) + " characters fit");
    std::memset(bytes, 0, field.width);
    std::memcpy(bytes, wide.data(), wide.size() * sizeof(WCHAR));
}

void SetNarrowText(const RecordField& field, const std::string& text, uint8_t* bytes)
{
    const WideString wide = Wide(text);
    const int units = static_cast<int>(wide.size());
    std::string narrow(4 * wide.size() + 1, 0);
    BOOL lost = FALSE;
    const int size = units
                         ? WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide.data(), units,
                                               narrow.data(), static_cast<int>(narrow.size()), nullptr, &lost)
                         : 0;
    if (lost || (units && !size))
        Refuse(field, text, "use characters of the system's 8-bit code page");
    if (size > field.width)
        Refuse(field, text, "at most " + std::to_string(field.width) + " bytes fit");
    std::memset(bytes, 0, field.width);
    std::memcpy(bytes, narrow.data(), static_cast<size_t>(size));
}

void SetHexBytes(const RecordField& field, const std::string& text, uint8_t* bytes)
{
    const std::optional<std::string> parsed = ParseHexBytes(text);
    if (!parsed || parsed->size() != field.width)
        Refuse(field, text, "give " + Counted(field.width, "byte") + " as pairs of hex digits");
    std::memcpy(bytes, parsed->data(), parsed->size());
}

} // namespace

std::string ShowValue(const RecordField& field, const uint8_t* bytes)
{
    if (IsNumber(field.kind))
        return ShowNumber(field, bytes);
    switch (field.kind) {
    case FieldKind::F32:
        return FloatText(FloatOf(bytes));
    case FieldKind::WideText:
        return "\"" + ReadableLine(WideFieldText(field, bytes)) + "\"";
    case FieldKind::NarrowText:
        return "\"" + ReadableLine(NarrowFieldText(field, bytes)) + "\"";
    default:
        return ShortHexText(field, bytes);
    }
}

Json JsonValue(const RecordField& field, const uint8_t* bytes)
{
    if (IsNumber(field.kind))
        return NumberOf(field, bytes);
    switch (field.kind) {
    case FieldKind::F32:
        return FloatOf(bytes);
    case FieldKind::WideText:
        return WideFieldText(field, bytes);
    case FieldKind::NarrowText:
        return NarrowFieldText(field, bytes);
    default:
        return HexText(field, bytes);
    }
}

void SetValue(const RecordField& field, const std::string& text, uint8_t* bytes)
{
    if (IsNumber(field.kind))
        return SetNumber(field, text, bytes);
    switch (field.kind) {
    case FieldKind::F32:
        return SetFloat(field, text, bytes);
    case FieldKind::WideText:
        return SetWideText(field, text, bytes);
    case FieldKind::NarrowText:
        return SetNarrowText(field, text, bytes);
    default:
        return SetHexBytes(field, text, bytes);
    }
}

} // namespace psuictl
