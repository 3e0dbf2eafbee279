#pragma once
// The painted frame: a control of the class "CL_FRAME".
#include <cstdint>

#include <windows.h>

#include "psui/controls/control_colors.h"

namespace psui {

inline constexpr WCHAR kFrameClass[] = TEXT("CL_FRAME");
constexpr int kFrameCaptionUnits = 128;

// Styles
constexpr DWORD kFrameSwapsEdges = 0x01;
constexpr DWORD kFrameOutlined = 0x04;
constexpr DWORD kFrameGroup = 0x08; ///< an engraved double line with a caption
constexpr DWORD kFrameFilled = 0x10;

struct FrameRecord
{
    HWND associate;
    uint32_t style;
    uint16_t bevel;
    uint16_t second;
    uint16_t third;
    uint16_t state;
    ControlColors colors;
    WCHAR caption[kFrameCaptionUnits];
};

} // namespace psui
