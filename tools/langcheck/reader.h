#pragma once
// A walk over little-endian bytes that stops at the end: what lies behind it reads as zero, and Good() tells.
#include <cstring>

#include "tools/langcheck/language.h"

namespace langcheck {

class Reader
{
public:
    Reader(const uint8_t* bytes, size_t size) : bytes_(bytes), size_(size) {}

    bool Good() const { return good_; }
    bool AtEnd() const { return at_ >= size_; }
    size_t At() const { return at_; }
    const uint8_t* Here() const { return bytes_ + at_; }

    template <typename Number>
    Number Read()
    {
        Number number{};
        if (Take(sizeof number))
            memcpy(&number, bytes_ + at_ - sizeof number, sizeof number);
        return number;
    }

    bool Skip(size_t count) { return Take(count); }

    /// To the next multiple of four from the start. The end of the bytes counts as one.
    void Align() { at_ = at_ + 3 < size_ ? (at_ + 3) & ~size_t{3} : size_; }

    /// Text up to its terminator.
    WideString ReadText()
    {
        WideString text;
        while (const WCHAR unit = Read<WCHAR>())
            text += unit;
        return text;
    }

    WideString ReadText(size_t units)
    {
        WideString text;
        while (good_ && text.size() < units)
            text += Read<WCHAR>();
        return text;
    }

private:
    bool Take(size_t count)
    {
        good_ = good_ && count <= size_ - at_;
        at_ = good_ ? at_ + count : size_;
        return good_;
    }

    const uint8_t* bytes_;
    size_t size_;
    size_t at_ = 0;
    bool good_ = true;
};

} // namespace langcheck
