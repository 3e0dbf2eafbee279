#include "psui/settings/text.h"

#include <algorithm>
#include <cstring>

namespace psui {

void WideFromNarrow(WCHAR* destination, const char* source, int count)
{
    int bytes = lstrlenA(source);
    if (count <= 0)
        count = bytes + 1;
    // No code page makes more than one unit of one byte, so what is taken always fits.
    bytes = std::min(bytes, count - 1);
    const int units = bytes > 0 ? MultiByteToWideChar(CP_ACP, 0, source, bytes, destination, count - 1) : 0;
    std::fill(destination + units, destination + count, WCHAR{0});
}

void NarrowFromWide(char* destination, const WCHAR* source, int count)
{
    constexpr int kMostBytesPerUnit = 2;
    int units = lstrlenW(source);
    if (count <= 0)
        count = units * kMostBytesPerUnit + 1;
    units = std::min(units, count - 1);
    int bytes = 0;
    // A failure means that the last characters need more bytes than are left.
    for (; units > 0 && bytes == 0; --units)
        bytes = WideCharToMultiByte(CP_ACP, 0, source, units, destination, count - 1, nullptr, nullptr);
    std::fill(destination + bytes, destination + count, char{0});
}

void CopyWide(WCHAR* destination, const WCHAR* source, int count)
{
    if (count <= 0)
        return;
    const int length = BoundedLength(source, count - 1);
    std::memcpy(destination, source, length * sizeof(WCHAR));
    std::fill(destination + length, destination + count, WCHAR{0});
}

int BoundedLength(const WCHAR* text, int size)
{
    return static_cast<int>(std::find(text, text + size, WCHAR{0}) - text);
}

bool EqualNoCase(const WCHAR* first, const WCHAR* second)
{
    return CompareStringOrdinal(first, -1, second, -1, TRUE) == CSTR_EQUAL;
}

} // namespace psui
