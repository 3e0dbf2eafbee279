#pragma once
// As much of COM as a program needs before it asks for help.
#include <windef.h>

#define COINIT_APARTMENTTHREADED 0x2

extern "C" {
HOSTAPI HRESULT WINAPI CoInitialize(LPVOID reserved);
HOSTAPI void WINAPI CoUninitialize(void);
}
