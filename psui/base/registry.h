#pragma once
// Registry keys with an owner. Values are read into buffers of fixed size: a value that does not fit is not
// read at all.
#include <utility>

#include <windows.h>

namespace psui {

class RegistryKey
{
public:
    RegistryKey() = default;
    RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
    ~RegistryKey()
    {
        if (key_)
            RegCloseKey(key_);
    }
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;

    /// Opens an existing key; the result is false when it does not exist or may not be opened that way.
    static RegistryKey Open(HKEY parent, const WCHAR* path, REGSAM access);

    /// Opens the key and makes it when missing.
    static RegistryKey Create(HKEY parent, const WCHAR* path, REGSAM access);

    explicit operator bool() const { return key_ != nullptr; }

    /// Reads at most `size` bytes; `size` receives the value's own. Returns the registry's code, that of an
    /// invalid handle for a key that is not open.
    LSTATUS Read(const WCHAR* name, DWORD& type, void* bytes, DWORD& size) const;

    /// Reads a text and terminates it. False, with an empty text, for a missing value, one that is not text,
    /// and one of more than `units` - 1 units besides its terminators.
    bool ReadText(const WCHAR* name, WCHAR* text, DWORD units) const;

    bool Write(const WCHAR* name, DWORD type, const void* bytes, DWORD size) const;

    /// Writes a text with its terminator.
    bool WriteText(const WCHAR* name, const WCHAR* text) const;

private:
    HKEY key_ = nullptr;
};

} // namespace psui
