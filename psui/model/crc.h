#pragma once
#include <cstdint>
#include <string_view>

namespace psui::compiler {

/// CRC-16/XMODEM of `bytes`: polynomial 0x1021, start value 0, no reflection, no final inversion.
uint16_t CrcOf(std::string_view bytes);

} // namespace psui::compiler
