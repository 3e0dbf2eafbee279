#pragma once
// Owners of GDI objects and device contexts, and of what a device context has selected. Each gives back what
// it took when it goes out of scope, so that a painter leaves nothing behind.
#include <windows.h>

namespace psui {

/// Owns a pen, brush, bitmap, font, region or palette. Null when it could not be made.
template <typename Handle>
class GdiObject
{
public:
    explicit GdiObject(Handle handle = nullptr) : handle_(handle) {}
    ~GdiObject()
    {
        if (handle_)
            DeleteObject(handle_);
    }
    GdiObject(const GdiObject&) = delete;
    GdiObject& operator=(const GdiObject&) = delete;
    GdiObject(GdiObject&& other) noexcept : handle_(other.handle_) { other.handle_ = nullptr; }

    explicit operator bool() const { return handle_ != nullptr; }
    Handle get() const { return handle_; }

private:
    Handle handle_;
};

/// A window's device context, given back in time. Null when the window has none to give.
class WindowDc
{
public:
    explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {}
    ~WindowDc()
    {
        if (dc_)
            ReleaseDC(window_, dc_);
    }
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;

    explicit operator bool() const { return dc_ != nullptr; }
    HDC get() const { return dc_; }

private:
    HWND window_;
    HDC dc_;
};

/// Selects an object into a device context and puts the previous one back. Null selects nothing.
class Selection
{
public:
    Selection(HDC dc, HGDIOBJ object) : dc_(dc), previous_(object ? SelectObject(dc, object) : nullptr) {}
    ~Selection()
    {
        if (previous_)
            SelectObject(dc_, previous_);
    }
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;

private:
    HDC dc_;
    HGDIOBJ previous_;
};

/// Selects a palette, tells the system to use it, and puts the previous one back. Null selects nothing.
class PaletteSelection
{
public:
    PaletteSelection(HDC dc, HPALETTE palette)
        : dc_(dc), previous_(palette ? SelectPalette(dc, palette, FALSE) : nullptr)
    {
        if (previous_)
            RealizePalette(dc);
    }
    ~PaletteSelection()
    {
        if (previous_)
            SelectPalette(dc_, previous_, FALSE);
    }
    PaletteSelection(const PaletteSelection&) = delete;
    PaletteSelection& operator=(const PaletteSelection&) = delete;

private:
    HDC dc_;
    HPALETTE previous_;
};

/// Saves everything that a device context has set and selected, and restores it.
class SavedState
{
public:
    explicit SavedState(HDC dc) : dc_(dc), level_(SaveDC(dc)) {}
    ~SavedState()
    {
        if (level_)
            RestoreDC(dc_, level_);
    }
    SavedState(const SavedState&) = delete;
    SavedState& operator=(const SavedState&) = delete;

private:
    HDC dc_;
    int level_;
};

/// A memory device context with a bitmap of its own, or with one of the caller's, selected.
class MemoryPicture
{
public:
    /// A new bitmap of that size, as deep as `like` or, where told so, of one bit a pixel.
    MemoryPicture(HDC like, int width, int height, bool monochrome = false)
        : dc_(CreateCompatibleDC(like)), bitmap_(monochrome ? CreateBitmap(width, height, 1, 1, nullptr)
                                                            : CreateCompatibleBitmap(like, width, height)),
          owned_(bitmap_), previous_(Select())
    {
    }
    /// The caller's bitmap, which must be selected nowhere else.
    MemoryPicture(HDC like, HBITMAP bitmap)
        : dc_(CreateCompatibleDC(like)), bitmap_(bitmap), previous_(Select())
    {
    }
    ~MemoryPicture()
    {
        if (previous_)
            SelectObject(dc_, previous_);
        if (dc_)
            DeleteDC(dc_);
    }
    MemoryPicture(const MemoryPicture&) = delete;
    MemoryPicture& operator=(const MemoryPicture&) = delete;

    explicit operator bool() const { return previous_ != nullptr; }
    HDC dc() const { return dc_; }

private:
    HGDIOBJ Select() { return dc_ && bitmap_ ? SelectObject(dc_, bitmap_) : nullptr; }

    HDC dc_;
    HBITMAP bitmap_;
    GdiObject<HBITMAP> owned_; // goes after the device context
    HGDIOBJ previous_;
};

/// Fills `rect` with one colour.
inline void FillWithColor(HDC dc, const RECT& rect, COLORREF color)
{
    const GdiObject<HBRUSH> brush(CreateSolidBrush(color));
    FillRect(dc, &rect, brush.get());
}

} // namespace psui
