#pragma once
// The micro-scroll: a small spin control of the class "CL_MUS".
#include <cstdint>

#include <windows.h>

#include "psui/controls/control_colors.h"

namespace psui {

inline constexpr WCHAR kMicroScrollClass[] = TEXT("CL_MUS");

// Styles
constexpr DWORD MUS_VERTICAL = 0x01;
constexpr DWORD MUS_HORIZONTAL = 0x02;
constexpr DWORD MUS_NOPEG = 0x04;     ///< no notification at a limit
constexpr DWORD MUS_TEXTRANGE = 0x08; ///< the text has minimum, maximum and position
constexpr DWORD MUS_INVERT = 0x10;    ///< the first half increments

// Messages
constexpr UINT MUS_SETASSOCIATE = WM_USER + 1; ///< wParam a window; the associate stays; -1 for no window
constexpr UINT MUS_GETASSOCIATE = WM_USER + 2;
constexpr UINT MUS_SETRANGE = WM_USER + 3; ///< lParam minimum and maximum; the old range, or -1
constexpr UINT MUS_GETRANGE = WM_USER + 4;
constexpr UINT MUS_SETPOS = WM_USER + 5; ///< wParam; the old position, or -1 outside of the range
constexpr UINT MUS_GETPOS = WM_USER + 6;
constexpr UINT MUS_SETNOPEG = WM_USER + 7;
constexpr UINT MUS_GETNOPEG = WM_USER + 8;
constexpr UINT MUS_SETINVERT = WM_USER + 9;
constexpr UINT MUS_GETINVERT = WM_USER + 10;
constexpr UINT MUS_SETCOLOR = WM_USER + 11; ///< wParam slot, lParam colour; the old colour
constexpr UINT MUS_GETCOLOR = WM_USER + 12;

struct MicroScrollRecord
{
    HWND associate; ///< gets the notifications
    uint32_t style;
    uint16_t minimum;
    uint16_t maximum;
    uint16_t position;
    uint16_t state; ///< kMicro… bits
    ControlColors colors;
};

constexpr uint16_t kMicroDisabled = 0x01;
constexpr uint16_t kMicroHidden = 0x02;
constexpr uint16_t kMicroOutside = 0x04; ///< the pointer has left the pressed half
constexpr uint16_t kMicroFirst = 0x08;   ///< up or left is pressed
constexpr uint16_t kMicroSecond = 0x10;

/// One step of the half: the first goes towards the minimum, the second towards the maximum, turned round by
/// MUS_INVERT. Returns whether the associate is told: always, but for MUS_NOPEG at a limit.
bool StepMicroScroll(MicroScrollRecord& record, bool firstHalf);

/// Takes the range, and the middle for a position that is not inside of it; returns whether the position
/// moved.
bool SetMicroScrollRange(MicroScrollRecord& record, uint16_t minimum, uint16_t maximum);

} // namespace psui
