#pragma once
#include <cstdint>
#include <optional>

#include "tools/psuictl/text.h"

namespace psuictl {

/// Gives the user another country number (the registry's iCountry) for the life of the object. Throws Failure
/// when the number cannot be set.
class CountrySetting
{
public:
    explicit CountrySetting(std::optional<int64_t> country);
    ~CountrySetting();
    CountrySetting(const CountrySetting&) = delete;
    CountrySetting& operator=(const CountrySetting&) = delete;

private:
    HKEY key_ = nullptr;
    std::optional<WideString> former_;
};

} // namespace psuictl
