#pragma once
// Answers of the spooler: records at the front of the caller's buffer, what they point to packed at its end.
#include <cstddef>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include <windows.h>

namespace host::spooler {

/// Lays out one answer. Without a buffer it only measures; both passes must be given the same things.
class Packer
{
public:
    Packer() = default;
    /// `size` bytes at `buffer`, at least Needed() of a measuring pass.
    Packer(BYTE* buffer, size_t size) : front_(buffer), end_(buffer + (size & ~(kAlignment - 1))) {}

    template <class Record>
    void Add(const Record& record)
    {
        if (front_)
            memcpy(front_ + frontSize_, &record, sizeof record);
        frontSize_ += sizeof record;
    }

    /// Copies a text with its closing zero. The result is null while measuring.
    LPWSTR Text(std::u16string_view text)
    {
        BYTE* place = Take((text.size() + 1) * sizeof(WCHAR), sizeof(WCHAR));
        if (place) {
            memcpy(place, text.data(), text.size() * sizeof(WCHAR));
            memset(place + text.size() * sizeof(WCHAR), 0, sizeof(WCHAR));
        }
        return reinterpret_cast<LPWSTR>(place);
    }

    /// Null stands for an empty text.
    LPWSTR OptionalText(std::u16string_view text) { return text.empty() ? nullptr : Text(text); }

    /// Copies bytes to an address that suits any record; null for none.
    void* Block(std::string_view bytes)
    {
        if (bytes.empty())
            return nullptr;
        BYTE* place = Take(bytes.size(), kAlignment);
        if (place)
            memcpy(place, bytes.data(), bytes.size());
        return place;
    }

    size_t Needed() const { return RoundUp(frontSize_ + backSize_, kAlignment); }

private:
    static constexpr size_t kAlignment = 8;

    static constexpr size_t RoundUp(size_t size, size_t alignment)
    {
        return (size + alignment - 1) / alignment * alignment;
    }

    BYTE* Take(size_t size, size_t alignment)
    {
        backSize_ = RoundUp(backSize_ + size, alignment);
        return end_ ? end_ - backSize_ : nullptr;
    }

    BYTE* front_ = nullptr;
    BYTE* end_ = nullptr;
    size_t frontSize_ = 0;
    size_t backSize_ = 0;
};

/// The caller's side of a two-call function.
struct Request
{
    LPBYTE buffer;
    DWORD size;
    LPDWORD needed;

    /// ERROR_SUCCESS, or what the platform says about pointers it cannot use.
    DWORD Check() const
    {
        if (!needed)
            return RPC_X_NULL_REF_POINTER;
        return size && !buffer ? ERROR_INVALID_USER_BUFFER : ERROR_SUCCESS;
    }

    /// Runs `fill(packer)` to measure, and again to write when the buffer is large enough.
    template <class Fill>
    DWORD Answer(Fill fill) const
    {
        Packer measure;
        fill(measure);
        if (measure.Needed() > UINT32_MAX)
            return ERROR_NOT_ENOUGH_MEMORY;
        *needed = static_cast<DWORD>(measure.Needed());
        if (*needed > size)
            return ERROR_INSUFFICIENT_BUFFER;
        if (buffer) {
            Packer packer(buffer, size);
            fill(packer);
        }
        return ERROR_SUCCESS;
    }
};

} // namespace host::spooler
