#pragma once
// Papers and media by the names that users of the driver read.
#include "tools/psuictl/record_file.h"

namespace psuictl {

/// The language module of one language. Without it there are no names; that is not an error.
class RecordNames
{
public:
    explicit RecordNames(const std::string& language);
    ~RecordNames();
    RecordNames(const RecordNames&) = delete;
    RecordNames& operator=(const RecordNames&) = delete;

    /// The value at `bytes` (field.width bytes) as people read it, papers and media with their names.
    std::string Show(const RecordField& field, const uint8_t* bytes) const;

private:
    std::string NameOf(unsigned stringId) const;

    HMODULE module_;
};

} // namespace psuictl
