#pragma once
// The registry's tree in the data base: what the registry functions and the spooler build on. Keys are named
// by paths from two roots, "MACHINE" and "USER", in UTF-8 and upper case; names keep the case they were
// created with. Everything here is called with DatabaseLock() held.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <windows.h>

namespace host::registry {

/// Never used twice in a data base, so that the id of a deleted key finds nothing. 0 is no key.
using KeyId = int64_t;

constexpr char kMachine[] = "MACHINE";
constexpr char kUsers[] = "USER";
constexpr char kCurrentUser[] = "USER\\S-1-5-21-0-0-0-1000";
constexpr char kClasses[] = "MACHINE\\SOFTWARE\\CLASSES";

/// Longest name of a key and of a value, in UTF-16 units.
constexpr size_t kKeyNameLimit = 255;
constexpr size_t kValueNameLimit = 16383;

struct Value
{
    std::u16string name;
    DWORD type = REG_NONE;
    std::string data;
};

/// The path of `subKey` below `base`; doubled and closing backslashes do not count. Nothing when it starts
/// with a backslash or holds a name that is too long.
std::optional<std::string> JoinPath(std::string_view base, std::u16string_view subKey);

KeyId FindKey(std::string_view path);
bool KeyExists(KeyId key);
/// The name a key was created with; empty when it is gone.
std::u16string KeyName(KeyId key);

/// Finds a key below `base` and makes what is missing of its path; `*created` (may be null) tells whether
/// anything was. Returns 0 when there is no `base`, and after a data base error.
KeyId CreateKey(std::string_view base, std::u16string_view subKey, bool* created = nullptr);

/// The names below a key in order; the order of keys is that of their upper-case names, the order of values
/// that of their creation.
std::vector<std::u16string> SubKeyNames(KeyId key);
std::optional<std::u16string> SubKeyName(KeyId key, DWORD index, int64_t* written);
std::vector<Value> Values(KeyId key);

std::optional<Value> ReadValue(KeyId key, std::u16string_view name);
std::optional<Value> ReadValueAt(KeyId key, DWORD index);

/// Changes return ERROR_SUCCESS, ERROR_KEY_DELETED, or what became of the data base. DeleteValue also returns
/// ERROR_FILE_NOT_FOUND.
LSTATUS WriteValue(KeyId key, std::u16string_view name, DWORD type, std::string_view data);
LSTATUS DeleteValue(KeyId key, std::u16string_view name);

/// Removes a key with everything below it, or with `keepKey` only its values and what is below it.
LSTATUS DeleteTree(KeyId key, std::string_view path, bool keepKey);

/// When a key or one of its values last changed, in 100 ns since 1601.
int64_t LastWritten(KeyId key);

/// A text of the caller; empty for a null pointer.
inline std::u16string_view View(LPCWSTR text)
{
    return text ? std::u16string_view(text) : std::u16string_view();
}

/// A value's bytes as text, up to the first zero; nothing when the value is no text.
std::optional<std::u16string> AsText(const Value& value);
/// A text's bytes as a value, closing zero included.
std::string TextBytes(std::u16string_view text);

/// Makes the tables and, in a new data base, the keys of a freshly installed system.
bool OpenStore(std::string* error);

} // namespace host::registry
