#pragma once
// Settings records in files, as callers hand them to the library: nothing in them is certain but their bytes.
#include <optional>
#include <string>
#include <vector>

#include "psui/settings/devmode_fields.h"
#include "tools/psuictl/files.h"

namespace psuictl {

/// A field by the name that commands use: "dmCopies", "lfDateFont.lfHeight", "unnamed262". Offsets are those
/// of the driver's own record.
struct RecordField
{
    std::string name;
    uint16_t offset;
    uint16_t width;
    psui::FieldKind kind;
    psui::FieldStyle style;
    bool bits;
    std::span<const psui::FieldWord> words;
};

/// Every field in record order; fonts are split into their members.
const std::vector<RecordField>& RecordFields();
const RecordField* FindRecordField(const std::string& name);

/// Where the parts of a record lie, by what its header says and by what is really there.
class RecordLayout
{
public:
    explicit RecordLayout(const Bytes& record);

    /// Offset of the field in this record; nothing when the record does not reach that far. The private part
    /// follows the public one, whatever that one's size.
    std::optional<size_t> Place(const RecordField& field) const;

    /// Sentences about what is missing or foreign; empty for a whole record of this driver.
    const std::vector<std::string>& notes() const { return notes_; }
    /// Bytes that the header promises; 0 when there is no header.
    size_t statedSize() const { return publicSize_ + privateSize_; }
    /// Whether the private part carries the driver's signature.
    bool ownPrivate() const { return ownPrivate_; }

private:
    void ReadHeader(const Bytes& record);
    void NoteGaps(size_t size);

    size_t publicSize_ = 0;
    size_t privateSize_ = 0;
    size_t end_ = 0; ///< bytes that are both promised and there
    bool ownPrivate_ = false;
    std::vector<std::string> notes_;
};

/// The smallest record that has a header: up to dmDriverExtra.
constexpr size_t kRecordHeaderSize = offsetof(DEVMODEW, dmDriverExtra) + sizeof(DEVMODEW::dmDriverExtra);

/// Reads a record to be handed to the library, which believes the sizes in its header. Throws Failure when
/// the file has no header or is shorter than it says.
Bytes LoadRecordForCall(const std::string& file);

} // namespace psuictl
