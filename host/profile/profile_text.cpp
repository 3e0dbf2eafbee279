#include "host/profile/profile_text.h"

#include <algorithm>
#include <cstring>

#include "host/kernel/convert.h"
#include "host/kernel/world.h"

namespace host::profile {
namespace {

constexpr std::string_view kWideMark = "\xFF\xFE";
constexpr std::u16string_view kLineBreak = u"\r\n";
constexpr std::u16string_view kLineEnds = u"\r\n";
constexpr std::u16string_view kBlanks = u" \t\v\f\x1A"; // old editors close a file with 0x1A

bool IsAscii(std::u16string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
}

/// Each byte as a unit.
std::u16string Widened(std::string_view bytes)
{
    std::u16string units(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), units.begin(),
                   [](char byte) { return static_cast<char16_t>(static_cast<unsigned char>(byte)); });
    return units;
}

std::string Narrowed(std::u16string_view units)
{
    std::string bytes(units.size(), '\0');
    std::transform(units.begin(), units.end(), bytes.begin(),
                   [](char16_t unit) { return static_cast<char>(unit); });
    return bytes;
}

/// The name in a line that is a header.
std::optional<std::u16string_view> NameInHeader(std::u16string_view line)
{
    const std::u16string_view text = Trimmed(line);
    const size_t close = text.rfind(u']');
    if (!text.starts_with(u'[') || close == std::u16string_view::npos)
        return std::nullopt;
    return Trimmed(text.substr(1, close - 1));
}

} // namespace

std::u16string_view Trimmed(std::u16string_view text)
{
    const size_t first = text.find_first_not_of(kBlanks);
    if (first == std::u16string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool IsHeader(std::u16string_view line)
{
    return NameInHeader(line).has_value();
}

ProfileText::ProfileText(std::string_view bytes) : wide_(bytes.starts_with(kWideMark))
{
    if (!wide_) {
        units_ = Widened(bytes);
        return;
    }
    bytes.remove_prefix(kWideMark.size());
    units_.resize(bytes.size() / sizeof(char16_t));
    if (!units_.empty())
        std::memcpy(units_.data(), bytes.data(), units_.size() * sizeof(char16_t));
}

std::string ProfileText::Bytes() const
{
    if (!wide_)
        return Narrowed(units_);
    std::string bytes(kWideMark);
    return bytes.append(reinterpret_cast<const char*>(units_.data()), units_.size() * sizeof(char16_t));
}

std::vector<std::u16string> ProfileText::Sections() const
{
    std::vector<std::u16string> names;
    for (size_t at = 0; at < units_.size();) {
        const Line line = LineAt(at);
        if (auto name = HeaderName(line))
            names.push_back(std::move(*name));
        at = line.next;
    }
    return names;
}

std::vector<Entry> ProfileText::Entries(std::u16string_view name) const
{
    std::vector<Entry> entries;
    const std::optional<Section> section = FindSection(name);
    for (size_t at = section ? section->body : 0; section && at < section->end;) {
        const Line line = LineAt(at);
        std::optional<Entry> entry = EntryAt(line);
        if (entry && !entry->name.starts_with(u';'))
            entries.push_back(std::move(*entry));
        at = line.next;
    }
    return entries;
}

std::optional<std::u16string> ProfileText::Value(std::u16string_view section, std::u16string_view name) const
{
    const std::optional<Section> found = FindSection(section);
    std::optional<FoundEntry> entry = found ? FindEntry(*found, name) : std::nullopt;
    return entry ? std::move(entry->entry.value) : std::nullopt;
}

void ProfileText::SetValue(std::u16string_view section, std::u16string_view name, std::u16string_view value)
{
    const std::optional<Section> found = FindSection(section);
    const std::u16string assignment = u"=" + std::u16string(Trimmed(value));
    if (!found) {
        InsertLines(units_.size(), u"[" + std::u16string(Trimmed(section)) + u"]" +
                                       std::u16string(kLineBreak) + std::u16string(Trimmed(name)) +
                                       assignment + std::u16string(kLineBreak));
    } else if (const std::optional<FoundEntry> old = FindEntry(*found, name)) {
        Replace(old->line.begin, old->line.end, Encoded(old->entry.name + assignment));
    } else {
        InsertLines(EndOfLines(*found),
                    std::u16string(Trimmed(name)) + assignment + std::u16string(kLineBreak));
    }
}

void ProfileText::DeleteEntry(std::u16string_view section, std::u16string_view name)
{
    const std::optional<Section> found = FindSection(section);
    const std::optional<FoundEntry> entry = found ? FindEntry(*found, name) : std::nullopt;
    if (entry)
        Replace(entry->line.begin, entry->line.next, {});
}

void ProfileText::DeleteSection(std::u16string_view section)
{
    if (const std::optional<Section> found = FindSection(section))
        Replace(found->header, found->end, {});
}

void ProfileText::ReplaceSection(std::u16string_view section, const std::vector<std::u16string>& lines)
{
    std::u16string text;
    for (const std::u16string& line : lines)
        text.append(line).append(kLineBreak);
    if (const std::optional<Section> found = FindSection(section)) {
        Replace(found->body, EndOfLines(*found), {});
        InsertLines(found->body, std::move(text));
    } else if (!lines.empty()) {
        InsertLines(units_.size(),
                    u"[" + std::u16string(Trimmed(section)) + u"]" + std::u16string(kLineBreak) + text);
    }
}

ProfileText::Line ProfileText::LineAt(size_t begin) const
{
    const size_t end = std::min(units_.find_first_of(kLineEnds, begin), units_.size());
    const bool pair = units_.compare(end, kLineBreak.size(), kLineBreak) == 0;
    return {begin, end, std::min(end + (pair ? 2 : 1), units_.size())};
}

std::u16string ProfileText::Decoded(size_t begin, size_t end) const
{
    const std::u16string_view units = std::u16string_view(units_).substr(begin, end - begin);
    return wide_ || IsAscii(units) ? std::u16string(units) : FromCodePage(Narrowed(units));
}

std::u16string ProfileText::Encoded(std::u16string_view text) const
{
    return wide_ || IsAscii(text) ? std::u16string(text) : Widened(ToCodePage(text));
}

std::u16string ProfileText::Stored(std::u16string_view name) const
{
    const std::u16string_view text = Trimmed(name);
    return wide_ || IsAscii(text) ? std::u16string(text) : FromCodePage(ToCodePage(text));
}

std::optional<std::u16string> ProfileText::HeaderName(const Line& line) const
{
    // Most lines are no headers: look before decoding. No byte behind a lead byte can be a line's first.
    const size_t first = units_.find_first_not_of(kBlanks, line.begin);
    if (first >= line.end || units_[first] != u'[')
        return std::nullopt;
    const std::u16string text = Decoded(first, line.end);
    const auto name = NameInHeader(text);
    return name ? std::optional<std::u16string>(*name) : std::nullopt;
}

std::optional<Entry> ProfileText::EntryAt(const Line& line) const
{
    const std::u16string text = Decoded(line.begin, line.end);
    const std::u16string_view trimmed = Trimmed(text);
    if (trimmed.empty())
        return std::nullopt;
    const size_t equals = trimmed.find(u'=');
    Entry entry{std::u16string(Trimmed(trimmed.substr(0, equals))), std::nullopt};
    if (equals != std::u16string_view::npos)
        entry.value = Trimmed(trimmed.substr(equals + 1));
    return entry;
}

std::optional<ProfileText::Section> ProfileText::FindSection(std::u16string_view name) const
{
    const std::u16string wanted = Stored(name);
    std::optional<Section> section;
    for (size_t at = 0; at < units_.size();) {
        const Line line = LineAt(at);
        const std::optional<std::u16string> header = HeaderName(line);
        if (header && section) {
            section->end = line.begin;
            return section;
        }
        if (header && EqualNoCase(*header, wanted))
            section = Section{line.begin, line.next, units_.size()};
        at = line.next;
    }
    return section;
}

std::optional<ProfileText::FoundEntry> ProfileText::FindEntry(const Section& section,
                                                              std::u16string_view name) const
{
    const std::u16string wanted = Stored(name);
    for (size_t at = section.body; at < section.end;) {
        const Line line = LineAt(at);
        std::optional<Entry> entry = EntryAt(line);
        if (entry && entry->value && EqualNoCase(entry->name, wanted))
            return FoundEntry{line, std::move(*entry)};
        at = line.next;
    }
    return std::nullopt;
}

size_t ProfileText::EndOfLines(const Section& section) const
{
    size_t end = section.body;
    for (size_t at = section.body; at < section.end;) {
        const Line line = LineAt(at);
        if (EntryAt(line))
            end = line.next;
        at = line.next;
    }
    return end;
}

void ProfileText::Replace(size_t begin, size_t end, std::u16string_view text)
{
    units_.replace(begin, end - begin, text);
}

void ProfileText::InsertLines(size_t at, std::u16string lines)
{
    // The file's last line may lack its line break.
    const bool openLine = at > 0 && kLineEnds.find(units_[at - 1]) == std::u16string_view::npos;
    if (openLine && !lines.empty())
        lines.insert(0, kLineBreak);
    units_.insert(at, Encoded(lines));
}

} // namespace host::profile
