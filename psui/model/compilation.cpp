#include "psui/model/compilation.h"

#include <functional>

#include "psui/model/characters.h"

namespace psui::compiler {

namespace {

constexpr char kHexOpen = '<';
constexpr char kHexClose = '>';

void Report(Compilation& c, DiagnosticKind kind, bool rejected, std::string_view detail)
{
    if (c.sink)
        c.sink->Report({kind, rejected, c.lines.LineOf(c.statement.star), c.statement.keyword, detail});
}

unsigned HexValue(char digit)
{
    return IsA(digit, kDecimalDigit) ? static_cast<unsigned>(digit - '0')
                                     : static_cast<unsigned>((digit | 0x20) - 'a' + 10);
}

// Writes the bytes of the stretch that opens at `at` behind `length` bytes of `bytes`, and moves `at` behind
// its end. False when the stretch is not well formed.
bool DecodeStretch(std::string_view text, size_t& at, char* bytes, size_t& length)
{
    for (++at; at < text.size() && text[at] != kHexClose; at += 2) {
        if (at + 1 == text.size() || !IsA(text[at], kHexLetter | kDecimalDigit) ||
            !IsA(text[at + 1], kHexLetter | kDecimalDigit))
            return false;
        bytes[length++] = static_cast<char>(HexValue(text[at]) << 4 | HexValue(text[at + 1]));
    }
    return at++ < text.size();
}

bool DecodeInto(std::string_view text, char* bytes, size_t& length)
{
    length = 0;
    for (size_t at = 0; at < text.size();) {
        if (text[at] != kHexOpen)
            bytes[length++] = text[at++];
        else if (!DecodeStretch(text, at, bytes, length))
            return false;
    }
    return true;
}

// Decodes the statement's translation unless `record` has one already; no data when there is nothing to take.
Outcome ReadTranslation(Compilation& c, const NamedRecord* record, std::string_view& translation)
{
    translation = {};
    if (c.statement.translation.empty() || (record && record->translation))
        return Outcome::Done;
    return DecodeHex(c, c.statement.translation, translation);
}

void KeepTranslation(NamedRecord& record, std::string_view translation)
{
    if (!translation.data())
        return;
    record.translation = translation.data();
    record.translationLength = static_cast<uint8_t>(translation.size());
}

// `feature` is null when it must be created from its description.
Outcome TakeOptionOf(Compilation& c, Feature* feature, const BuiltinFeature& description, Option*& option)
{
    option = feature ? FindOption(c.root, *feature, c.statement.option) : nullptr;
    std::string_view translation;
    Outcome outcome = ReadTranslation(c, option, translation);
    if (outcome == Outcome::Done && !feature)
        outcome = TakeFeature(c, description, feature);
    if (outcome != Outcome::Done)
        return outcome;
    if (!option)
        option = CreateOption(c.root, *feature, c.statement.option);
    if (!option)
        return Outcome::OutOfMemory;
    KeepTranslation(*option, translation);
    return Outcome::Done;
}

} // namespace

uint32_t LineCounter::LineOf(const char* place)
{
    const std::less<const char*> before;
    if (!place || before(place, text_.data()) || before(text_.data() + text_.size(), place))
        return 0;
    const size_t target = static_cast<size_t>(place - text_.data());
    if (target < at_) {
        at_ = 0;
        line_ = 1;
    }
    for (; at_ < target; ++at_)
        if (text_[at_] == '\n' || (text_[at_] == '\r' && !text_.substr(at_ + 1).starts_with('\n')))
            ++line_;
    return line_;
}

Outcome Reject(Compilation& c, DiagnosticKind kind, std::string_view detail)
{
    Report(c, kind, true, detail);
    return Outcome::Rejected;
}

void Note(Compilation& c, DiagnosticKind kind, std::string_view detail)
{
    Report(c, kind, false, detail);
}

Outcome DecodeHex(Compilation& c, std::string_view text, std::string_view& decoded)
{
    decoded = text;
    if (text.find(kHexOpen) == text.npos)
        return Outcome::Done;
    auto* bytes = static_cast<char*>(c.root.pool->Allocate(text.size() + 1));
    if (!bytes)
        return Outcome::OutOfMemory;
    size_t length = 0;
    if (!DecodeInto(text, bytes, length))
        return Reject(c, DiagnosticKind::BadHexText, text);
    decoded = {bytes, length};
    decoded = decoded.substr(0, decoded.find('\0'));
    return Outcome::Done;
}

void KeepFirst(std::string_view& kept, std::string_view text)
{
    if (!kept.data())
        kept = text;
}

void KeepFirstText(NamedRecord& record, std::string_view text)
{
    if (record.text)
        return;
    record.text = text.data();
    record.textLength = static_cast<uint32_t>(text.size());
}

Outcome TakeFeature(Compilation& c, const BuiltinFeature& description, Feature*& feature)
{
    feature = FindFeature(c.root, description);
    if (feature)
        return Outcome::Done;
    if (c.root.features.count == kMaxEntries)
        return Reject(c, DiagnosticKind::TooMany, description.name);
    feature = CreateFeature(c.root, description);
    return feature ? Outcome::Done : Outcome::OutOfMemory;
}

Outcome TakeTranslatedFeature(Compilation& c, const BuiltinFeature& description, Feature*& feature)
{
    std::string_view translation;
    Outcome outcome = ReadTranslation(c, FindFeature(c.root, description), translation);
    if (outcome == Outcome::Done)
        outcome = TakeFeature(c, description, feature);
    if (outcome == Outcome::Done)
        KeepTranslation(*feature, translation);
    return outcome;
}

Outcome TakeOption(Compilation& c, const BuiltinFeature& description, Option*& option)
{
    return TakeOptionOf(c, FindFeature(c.root, description), description, option);
}

Outcome TakeOpenBlockOption(Compilation& c, Option*& option)
{
    return TakeOptionOf(c, c.root.openBlock, {}, option);
}

Outcome ReadInvocation(Compilation& c, std::string_view& invocation)
{
    invocation = c.statement.value;
    if (c.root.openBlock && (c.root.openBlock->flags & kFlagJobControl))
        return DecodeHex(c, c.statement.value, invocation);
    return Outcome::Done;
}

} // namespace psui::compiler
