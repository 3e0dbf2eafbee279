// Lengths, copies and comparison of texts.
#include <algorithm>
#include <cstring>
#include <string_view>

#include "host/kernel/call.h"
#include "host/kernel/error.h"
#include "host/kernel/world.h"

namespace {

using host::UpperCase;

/// Signs sort before digits, digits before letters, letters by alphabet whatever their case.
struct Weight
{
    int group;
    char16_t letter;

    auto operator<=>(const Weight&) const = default;
};

Weight WeightOf(char16_t unit)
{
    const char16_t upper = UpperCase(unit);
    const bool letter = (upper >= u'A' && upper <= u'Z') || upper >= 0xC0;
    const bool digit = unit >= u'0' && unit <= u'9';
    return {letter ? 2 : digit ? 1 : 0, upper};
}

/// Negative, zero or positive, letters of both cases alike.
int CompareWords(std::u16string_view first, std::u16string_view second)
{
    const size_t common = std::min(first.size(), second.size());
    for (size_t i = 0; i < common; ++i) {
        const auto order = WeightOf(first[i]) <=> WeightOf(second[i]);
        if (order != 0)
            return order < 0 ? -1 : 1;
    }
    return first.size() == second.size() ? 0 : first.size() < second.size() ? -1 : 1;
}

/// Null sorts before every text.
bool CompareNull(LPCWSTR first, LPCWSTR second, int& result)
{
    result = (first != nullptr) - (second != nullptr);
    return first == nullptr || second == nullptr;
}

std::u16string_view View(LPCWCH text, int size)
{
    return size < 0 ? std::u16string_view(text) : std::u16string_view(text, static_cast<size_t>(size));
}

} // namespace

int WINAPI lstrlenW(LPCWSTR text)
{
    HOST_CALL_VOID(lstrlenW);
    return text != nullptr ? static_cast<int>(std::u16string_view(text).size()) : 0;
}

int WINAPI lstrlenA(LPCSTR text)
{
    HOST_CALL_VOID(lstrlenA);
    return text != nullptr ? static_cast<int>(std::strlen(text)) : 0;
}

int WINAPI lstrcmpiW(LPCWSTR first, LPCWSTR second)
{
    HOST_CALL_VOID(lstrcmpiW);
    int result;
    return CompareNull(first, second, result) ? result : CompareWords(first, second);
}

int WINAPI lstrcmpW(LPCWSTR first, LPCWSTR second)
{
    HOST_CALL_VOID(lstrcmpW);
    int result;
    if (CompareNull(first, second, result))
        return result;
    result = CompareWords(first, second);
    if (result != 0)
        return result;
    // Texts that differ in case alone: the first small letter sorts before its capital.
    while (*first == *second && *first != 0) {
        ++first;
        ++second;
    }
    return *first == *second ? 0 : UpperCase(*second) == *second ? -1 : 1;
}

LPWSTR WINAPI lstrcpynW(LPWSTR destination, LPCWSTR source, int size)
{
    HOST_CALL_VOID(lstrcpynW);
    if (destination == nullptr || source == nullptr || size <= 0)
        return nullptr;
    int i = 0;
    for (; i < size - 1 && source[i] != 0; ++i)
        destination[i] = source[i];
    destination[i] = 0;
    return destination;
}

int WINAPI CompareStringOrdinal(LPCWCH first, int firstSize, LPCWCH second, int secondSize, BOOL ignoreCase)
{
    HOST_CALL_VOID(CompareStringOrdinal);
    if (first == nullptr || second == nullptr || firstSize < -1 || secondSize < -1)
        return host::FailWith(ERROR_INVALID_PARAMETER);
    const std::u16string_view a = View(first, firstSize);
    const std::u16string_view b = View(second, secondSize);
    for (size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
        const char16_t x = ignoreCase ? UpperCase(a[i]) : a[i];
        const char16_t y = ignoreCase ? UpperCase(b[i]) : b[i];
        if (x != y)
            return x < y ? CSTR_LESS_THAN : CSTR_GREATER_THAN;
    }
    return a.size() == b.size() ? CSTR_EQUAL : a.size() < b.size() ? CSTR_LESS_THAN : CSTR_GREATER_THAN;
}
