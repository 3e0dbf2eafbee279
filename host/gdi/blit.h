#pragma once
// Carrying pictures onto device contexts.
#include "host/gdi/paint.h"

namespace host {

/// A rectangle to carry from or to. A negative side runs to the left or upwards from (x, y).
struct Frame
{
    int x;
    int y;
    int width;
    int height;
};

/// What a monochrome picture's pixels become, and which colour becomes white on a monochrome target.
struct TransferColors
{
    uint32_t black = kBlackPixel;
    uint32_t white = kWhitePixel;
    bool keyed = false; // `key` counts; else a monochrome target takes the nearest colour
    uint32_t key = 0;
};

/// Combines the part `from` of `source` with the part `to` of the device context, on its surface, with its
/// brush as the pattern. What lies outside the source changes nothing.
void Transfer(DeviceContext& dc, const Frame& to, const Image& source, const Frame& from,
              const TransferColors& colors, RasterTable table);

/// `frame` on the surface, where it was logical.
Frame OnSurface(const DeviceContext& dc, const Frame& frame);

} // namespace host
