#pragma once
// Field values between bytes, text and JSON.
#include "tools/psuictl/output.h"
#include "tools/psuictl/record_file.h"

namespace psuictl {

/// The value at `bytes` (field.width bytes) as people read it: a number with its words, a text, hex bytes.
std::string ShowValue(const RecordField& field, const uint8_t* bytes);

/// The bare value: a number, a text, or hex digits.
Json JsonValue(const RecordField& field, const uint8_t* bytes);

/// Writes the value that `text` stands for to `bytes` (field.width bytes). Throws Failure, and changes
/// nothing, when the text is no value for the field.
void SetValue(const RecordField& field, const std::string& text, uint8_t* bytes);

} // namespace psuictl
