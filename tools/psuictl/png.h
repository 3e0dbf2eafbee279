#pragma once
#include <cstdint>
#include <string>

namespace psuictl {

/// A PNG file of rows of 0x00RRGGBB pixels, top down, not compressed.
std::string EncodePng(const uint32_t* pixels, size_t width, size_t height);

} // namespace psuictl
