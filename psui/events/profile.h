#pragma once
// One section of a private-profile file. Other programs write the same files, key by key and without locks.
#include <cstddef>

#include <windows.h>

namespace psui {

/// Names a file and a section of it; both texts outlive the object.
class ProfileSection
{
public:
    ProfileSection(const WCHAR* file, const WCHAR* name) : file_(file), name_(name) {}

    /// Reads a value; an empty text when it is missing or does not fit whole.
    template <size_t N>
    void Read(const WCHAR* key, WCHAR (&text)[N]) const
    {
        Read(key, text, static_cast<DWORD>(N));
    }

    /// Whether there is a value that is not empty.
    bool Has(const WCHAR* key) const;

    /// Reads a decimal number, or one that begins with 0x.
    int ReadNumber(const WCHAR* key, int fallback) const;

    /// Writes a value. One with control characters is not written: it would turn into lines of its own.
    void Write(const WCHAR* key, const WCHAR* text) const;

    void Delete(const WCHAR* key) const;

    /// Writes the value unless the file has it.
    void Update(const WCHAR* key, const WCHAR* text) const;

private:
    void Read(const WCHAR* key, WCHAR* text, DWORD size) const;

    const WCHAR* file_;
    const WCHAR* name_;
};

} // namespace psui
