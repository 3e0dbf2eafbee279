#pragma once
// The maker's short names of the product line's models.
#include <windows.h>

namespace psui {

/// The code of the first model whose name occurs in the device name; the first model's when none does.
const WCHAR* ModelCodeForDevice(const WCHAR* deviceName);

} // namespace psui
