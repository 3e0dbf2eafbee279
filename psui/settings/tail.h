#pragma once
#include <windows.h>

namespace psui {

/// Program that prints for the calling application while wszClientProcess names it.
constexpr WCHAR kClientProcess[] = TEXT("vmsplf.exe");

} // namespace psui
