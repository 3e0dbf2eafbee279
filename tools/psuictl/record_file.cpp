#include "tools/psuictl/record_file.h"

#include <algorithm>
#include <cstring>

#include "tools/psuictl/failure.h"
#include "tools/psuictl/output.h"

namespace psuictl {
namespace {

using psui::FieldKind;
using psui::FieldStyle;

struct FontMember
{
    const char* name;
    uint16_t offset;
    uint16_t width;
    FieldKind kind;
};

#define FONT_MEMBER(member, kind)                                                                            \
    {                                                                                                        \
#member, offsetof(LOGFONTW, member), sizeof(LOGFONTW::member), FieldKind::kind                       \
    }
constexpr FontMember kFontMembers[] = {
    FONT_MEMBER(lfHeight, I32),        FONT_MEMBER(lfWidth, I32),         FONT_MEMBER(lfEscapement, I32),
    FONT_MEMBER(lfOrientation, I32),   FONT_MEMBER(lfWeight, I32),        FONT_MEMBER(lfItalic, U8),
    FONT_MEMBER(lfUnderline, U8),      FONT_MEMBER(lfStrikeOut, U8),      FONT_MEMBER(lfCharSet, U8),
    FONT_MEMBER(lfOutPrecision, U8),   FONT_MEMBER(lfClipPrecision, U8),  FONT_MEMBER(lfQuality, U8),
    FONT_MEMBER(lfPitchAndFamily, U8), FONT_MEMBER(lfFaceName, WideText),
};
#undef FONT_MEMBER

void AddFontMembers(std::vector<RecordField>& fields, const psui::DevModeField& font)
{
    for (const FontMember& member : kFontMembers) {
        const uint16_t offset = static_cast<uint16_t>(font.offset + member.offset);
        fields.push_back({std::string(font.name) + "." + member.name,
                          offset,
                          member.width,
                          member.kind,
                          FieldStyle::Decimal,
                          false,
                          {}});
    }
}

std::vector<RecordField> BuildFields()
{
    std::vector<RecordField> fields;
    for (const psui::DevModeField& field : psui::kDevModeFields) {
        if (field.kind == FieldKind::LogFont)
            AddFontMembers(fields, field);
        else
            fields.push_back(
                {field.name, field.offset, field.width, field.kind, field.style, field.bits, field.words});
    }
    return fields;
}

uint16_t WordAt(const Bytes& record, size_t offset)
{
    return static_cast<uint16_t>(record[offset] | record[offset + 1] << 8);
}

} // namespace

const std::vector<RecordField>& RecordFields()
{
    static const std::vector<RecordField> kFields = BuildFields();
    return kFields;
}

const RecordField* FindRecordField(const std::string& name)
{
    for (const RecordField& field : RecordFields()) {
        if (field.name == name)
            return &field;
    }
    return nullptr;
}

RecordLayout::RecordLayout(const Bytes& record)
{
    if (record.size() < kRecordHeaderSize) {
        publicSize_ = psui::kPublicSize;
        end_ = record.size();
        notes_.push_back("the file ends inside the record's header, after " + Counted(record.size(), "byte"));
        return;
    }
    ReadHeader(record);
    NoteGaps(record.size());
}

void RecordLayout::ReadHeader(const Bytes& record)
{
    publicSize_ = WordAt(record, offsetof(DEVMODEW, dmSize));
    privateSize_ = WordAt(record, offsetof(DEVMODEW, dmDriverExtra));
    end_ = std::min(record.size(), statedSize());
    const size_t signature = publicSize_ + offsetof(psui::PrivateDevMode, dwSignature);
    constexpr size_t kLength = sizeof psui::kPrivateSignature;
    ownPrivate_ = signature + kLength <= end_ &&
                  std::memcmp(record.data() + signature, psui::kPrivateSignature, kLength) == 0;
}

void RecordLayout::NoteGaps(size_t size)
{
    const std::string stated = Counted(statedSize(), "byte");
    if (size < statedSize())
        notes_.push_back("the header promises " + stated + " and the file has " + std::to_string(size));
    if (size > statedSize())
        notes_.push_back(Counted(size - statedSize(), "byte") + " follow the record");
    if (publicSize_ != psui::kPublicSize)
        notes_.push_back("the public part has " + std::to_string(publicSize_) + " of " +
                         Counted(psui::kPublicSize, "byte"));
    if (privateSize_ != psui::kPrivateSize)
        notes_.push_back("the private part has " + std::to_string(privateSize_) + " of " +
                         Counted(psui::kPrivateSize, "byte"));
    if (privateSize_ != 0 && !ownPrivate_)
        notes_.push_back("the private part belongs to another driver");
}

std::optional<size_t> RecordLayout::Place(const RecordField& field) const
{
    const bool isPublic = field.offset < psui::kPublicSize;
    const size_t offset = isPublic ? field.offset : field.offset - psui::kPublicSize + publicSize_;
    const size_t end = isPublic ? std::min(end_, publicSize_) : end_;
    return offset + field.width <= end ? std::optional(offset) : std::nullopt;
}

Bytes LoadRecordForCall(const std::string& file)
{
    Bytes record = LoadFile(file);
    const RecordLayout layout(record);
    if (record.size() < kRecordHeaderSize || record.size() < layout.statedSize())
        throw Failure("'" + file + "' is no whole settings record: " + layout.notes().front() +
                      "; 'psuictl record show' tells what is there");
    return record;
}

} // namespace psuictl
