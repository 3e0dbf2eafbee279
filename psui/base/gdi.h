#pragma once
// Owners of what drawing needs for a moment.
#include <windows.h>

namespace psui {

/// A window's device context, given back in time.
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

    HDC get() const { return dc_; }

private:
    HWND window_;
    HDC dc_;
};

/// A font that is deleted with its owner.
class OwnedFont
{
public:
    explicit OwnedFont(HFONT font) : font_(font) {}
    ~OwnedFont()
    {
        if (font_)
            DeleteObject(font_);
    }
    OwnedFont(const OwnedFont&) = delete;
    OwnedFont& operator=(const OwnedFont&) = delete;

    HFONT get() const { return font_; }

private:
    HFONT font_;
};

/// Selects an object into a device context and the former one again.
class SelectedObject
{
public:
    SelectedObject(HDC dc, HGDIOBJ object) : dc_(dc), former_(SelectObject(dc, object)) {}
    ~SelectedObject()
    {
        if (former_)
            SelectObject(dc_, former_);
    }
    SelectedObject(const SelectedObject&) = delete;
    SelectedObject& operator=(const SelectedObject&) = delete;

private:
    HDC dc_;
    HGDIOBJ former_;
};

} // namespace psui
