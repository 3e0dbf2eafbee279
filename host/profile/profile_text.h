#pragma once
// The text of a private-profile file: where its sections and keys are, and what changes when one is written.
//
// A line whose first sign is '[' and that has a ']' is a section's header; its name lies between the first
// '[' and the last ']'. Every other line of a section is an entry: "name=value", or a word. Entries that
// begin with ';' are comments: they can be asked for by name but are listed nowhere. Blanks around names and
// values do not count, nor does the case of names. Of sections and entries of one name the first one counts.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host::profile {

struct Entry
{
    std::u16string name;
    std::optional<std::u16string> value; ///< nothing for a line without '='
};

class ProfileText
{
public:
    /// The content of a file; without a UTF-16 mark it is text of the system's code page.
    explicit ProfileText(std::string_view bytes);

    /// The content as it is to be stored.
    std::string Bytes() const;

    /// Every section's name in order.
    std::vector<std::u16string> Sections() const;
    /// A section's entries in order, without comments; nothing when there is no such section.
    std::vector<Entry> Entries(std::u16string_view section) const;
    /// An entry's value as it stands, quotes included.
    std::optional<std::u16string> Value(std::u16string_view section, std::u16string_view name) const;

    // Changes. Lines that they do not concern keep their bytes. Names and values must be free of line breaks.
    void SetValue(std::u16string_view section, std::u16string_view name, std::u16string_view value);
    void DeleteEntry(std::u16string_view section, std::u16string_view name);
    void DeleteSection(std::u16string_view section);
    /// Replaces all lines of a section, comments too. Without lines a missing section stays missing.
    void ReplaceSection(std::u16string_view section, const std::vector<std::u16string>& lines);

private:
    /// Units of one line: from `begin` to `end`, and its line break up to `next`.
    struct Line
    {
        size_t begin;
        size_t end;
        size_t next;
    };
    /// Units of a section: its header from `header` to `body`, its lines from there to `end`.
    struct Section
    {
        size_t header;
        size_t body;
        size_t end;
    };
    struct FoundEntry
    {
        Line line;
        Entry entry;
    };

    Line LineAt(size_t begin) const;
    std::u16string Decoded(size_t begin, size_t end) const;
    std::u16string Encoded(std::u16string_view text) const;
    /// A name as it looks when it has been stored and read again.
    std::u16string Stored(std::u16string_view name) const;

    std::optional<std::u16string> HeaderName(const Line& line) const;
    std::optional<Entry> EntryAt(const Line& line) const;
    std::optional<Section> FindSection(std::u16string_view name) const;
    std::optional<FoundEntry> FindEntry(const Section& section, std::u16string_view name) const;
    /// The end of a section's last line that is not blank.
    size_t EndOfLines(const Section& section) const;

    void Replace(size_t begin, size_t end, std::u16string_view text);
    /// Puts lines, each with its line break, at the start of a line or the end of the text.
    void InsertLines(size_t at, std::u16string lines);

    bool wide_;
    std::u16string units_; // UTF-16, or one byte of the code page each
};

/// Whether a line would be read as a section's header.
bool IsHeader(std::u16string_view line);

std::u16string_view Trimmed(std::u16string_view text);

} // namespace host::profile
