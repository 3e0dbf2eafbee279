#pragma once
// Fields of a settings record by their names.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "psui/settings/devmode_fields.h"

namespace test {

inline const psui::DevModeField& FieldNamed(std::string_view name)
{
    for (const psui::DevModeField& field : psui::kDevModeFields)
        if (name == field.name)
            return field;
    std::fprintf(stderr, "no field %.*s\n", static_cast<int>(name.size()), name.data());
    std::abort();
}

inline BYTE* BytesOf(psui::DriverDevMode& record, const psui::DevModeField& field)
{
    return reinterpret_cast<BYTE*>(&record) + field.offset;
}

/// Value of a number field, sign-extended when the field is signed.
inline int64_t Get(const psui::DriverDevMode& record, const psui::DevModeField& field)
{
    int64_t value = 0;
    std::memcpy(&value, reinterpret_cast<const BYTE*>(&record) + field.offset, field.width);
    if (field.kind == psui::FieldKind::I16)
        return static_cast<int16_t>(value);
    return field.kind == psui::FieldKind::I32 ? static_cast<int32_t>(value) : value;
}

inline int64_t Get(const psui::DriverDevMode& record, std::string_view name)
{
    return Get(record, FieldNamed(name));
}

inline void Set(psui::DriverDevMode& record, std::string_view name, int64_t value)
{
    const psui::DevModeField& field = FieldNamed(name);
    if (field.width > sizeof(value))
        std::abort();
    std::memcpy(BytesOf(record, field), &value, field.width);
}

/// A wide text of the record, which need not be terminated.
inline std::u16string Text(const WCHAR* field, size_t units)
{
    const std::u16string_view text(field, units);
    return std::u16string(text.substr(0, text.find(u'\0')));
}

struct FieldValue
{
    std::string name;
    int64_t value;
};

/// Fields and values from a text such as "dmCopies=2 dmFields=0x100".
class FieldValues : public std::vector<FieldValue>
{
public:
    using std::vector<FieldValue>::vector;
    FieldValues(std::vector<FieldValue> fields) : std::vector<FieldValue>(std::move(fields)) {}
    FieldValues(const char* text)
    {
        std::istringstream words(text);
        for (std::string word; words >> word;) {
            const size_t equals = word.find('=');
            char* end = nullptr;
            const int64_t value = std::strtoll(word.c_str() + equals + 1, &end, 0);
            if (equals == word.npos || *end) {
                std::fprintf(stderr, "%s is no field and value\n", word.c_str());
                std::abort();
            }
            push_back({word.substr(0, equals), value});
        }
    }
};

inline void SetAll(psui::DriverDevMode& record, const FieldValues& fields)
{
    for (const FieldValue& field : fields)
        Set(record, field.name, field.value);
}

inline bool FieldDiffers(const psui::DriverDevMode& first, const psui::DriverDevMode& second,
                         const psui::DevModeField& field)
{
    return std::memcmp(reinterpret_cast<const BYTE*>(&first) + field.offset,
                       reinterpret_cast<const BYTE*>(&second) + field.offset, field.width) != 0;
}

/// Names of the fields in which the records differ.
inline std::string Differences(const psui::DriverDevMode& first, const psui::DriverDevMode& second)
{
    std::string names;
    for (const psui::DevModeField& field : psui::kDevModeFields)
        if (FieldDiffers(first, second, field))
            names += std::string(names.empty() ? "" : " ") + field.name;
    return names;
}

} // namespace test
