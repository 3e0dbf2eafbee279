#pragma once
// The pictures that windows are drawn on, and the device contexts that draw there. For the layer's other
// rooms.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

#include <windows.h>

namespace host {

/// An image of 32-bit pixels 0x00RRGGBB, top row first. Device contexts that draw on it share it.
class HOSTAPI Surface
{
public:
    Surface(int width, int height, std::vector<uint32_t> pixels)
        : width_(width), height_(height), pixels_(std::move(pixels))
    {
    }

    int Width() const { return width_; }
    int Height() const { return height_; }
    /// Width() pixels; `y` counts from the top and must be inside.
    uint32_t* Row(int y) { return pixels_.data() + static_cast<size_t>(y) * static_cast<size_t>(width_); }
    const uint32_t* Row(int y) const { return const_cast<Surface*>(this)->Row(y); }

private:
    int width_;
    int height_;
    std::vector<uint32_t> pixels_;
};

/// A black surface; null when a side is not in 1..32767 or memory is missing.
HOSTAPI std::shared_ptr<Surface> MakeSurface(int width, int height);

/// Opens a device context that draws on `surface`; device coordinate (0, 0) is `origin` on the surface.
/// Drawing never leaves the `clipCount` rectangles at `clip`, which are in surface coordinates and may
/// overlap; none at all lets nothing through. Everything else is in the state of a new device context. Null
/// when the table of objects is full. Counts in the ledger; give it back with CloseSurfaceDC, for DeleteDC
/// refuses it.
HOSTAPI HDC OpenSurfaceDC(std::shared_ptr<Surface> surface, POINT origin, const RECT* clip, size_t clipCount);

/// Does nothing with a handle that is not an open surface's.
HOSTAPI void CloseSurfaceDC(HDC dc);

/// Copies the part `source` of `from` so that its top-left corner comes to `position` on `to`. What lies
/// outside either surface is left out. They may be the same surface.
HOSTAPI void CopySurface(Surface& to, POINT position, const Surface& from, const RECT& source);

/// Of the screen, and back to what it is when a world opens.
HOSTAPI int DotsPerInch();
HOSTAPI void ResetDotsPerInch();

/// Writes an opaque PNG file; false when it cannot be written.
HOSTAPI bool WritePng(const Surface& surface, const std::filesystem::path& file);

} // namespace host
