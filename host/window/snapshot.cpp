// Pictures of windows and of the desktop.
#include "host/host.h"
#include "host/window/handles.h"

namespace host {
namespace {

constexpr uint32_t kDesktopColor = 0x3A6EA5;

void FillSurface(Surface& surface, uint32_t color)
{
    for (int y = 0; y < surface.Height(); ++y)
        std::fill_n(surface.Row(y), surface.Width(), color);
}

/// Draws the caret of a window's thread where it shows; `topOrigin` is where the window's top-level is drawn.
void DrawCaretOn(Surface& surface, Window& top, POINT topOrigin)
{
    const Caret& caret = top.queue->caret;
    const WindowPtr window = LookUp(caret.window);
    if (caret.hidden > 0 || window == nullptr || &TopLevelOf(*window) != &top)
        return;
    const POINT client = ClientOrigin(*window);
    const POINT origin = WindowOrigin(top);
    const POINT at = {topOrigin.x + client.x - origin.x, topOrigin.y + client.y - origin.y};
    RECT rect = Intersection(
        {caret.place.x, caret.place.y, caret.place.x + caret.size.cx, caret.place.y + caret.size.cy},
        ClientRectOfWindow(*window));
    rect = Intersection(Moved(rect, at), {0, 0, surface.Width(), surface.Height()});
    for (LONG y = rect.top; y < rect.bottom; ++y) {
        for (LONG x = rect.left; x < rect.right; ++x)
            surface.Row(y)[x] ^= 0xFFFFFF;
    }
}

void DrawTopLevel(Surface& on, Window& top, POINT at)
{
    if (top.surface == nullptr)
        return;
    const SIZE size = SizeOf(top.rect);
    CopySurface(on, at, *top.surface, {0, 0, size.cx, size.cy});
    DrawCaretOn(on, top, at);
}

} // namespace

std::shared_ptr<Surface> ComposeDesktop()
{
    std::shared_ptr<Surface> desktop = MakeSurface(kScreenWidth, kScreenHeight);
    if (desktop == nullptr)
        return nullptr;
    FillSurface(*desktop, kDesktopColor);
    const std::vector<HWND> all = ChildrenOf(Desktop());
    for (auto each = all.rbegin(); each != all.rend(); ++each) {
        const WindowPtr window = LookUp(*each);
        if (window != nullptr && window->queue != nullptr && IsVisibleStyle(*window))
            DrawTopLevel(*desktop, *window, {window->rect.left, window->rect.top});
    }
    return desktop;
}

DesktopPicture PictureOfDesktop()
{
    const std::shared_ptr<Surface> desktop = ComposeDesktop();
    if (desktop == nullptr)
        return {};
    DesktopPicture picture = {desktop->Width(), desktop->Height(), {}};
    for (int y = 0; y < desktop->Height(); ++y)
        picture.pixels.insert(picture.pixels.end(), desktop->Row(y), desktop->Row(y) + desktop->Width());
    return picture;
}

bool ShootWindow(void* handle, const std::filesystem::path& file)
{
    const WindowPtr window = LookUp(static_cast<HWND>(handle));
    if (window == nullptr || window->queue != CurrentQueue() || !IsShown(*window))
        return false;
    Window& top = TopLevelOf(*window);
    PaintNow(top.handle);
    if (top.surface == nullptr)
        return false;
    const SIZE size = SizeOf(window->rect);
    const std::shared_ptr<Surface> picture = MakeSurface(size.cx, size.cy);
    if (picture == nullptr)
        return false;
    const POINT place = WindowOrigin(*window);
    const POINT origin = WindowOrigin(top);
    DrawTopLevel(*picture, top, {origin.x - place.x, origin.y - place.y});
    return WritePng(*picture, file);
}

bool ShootDesktop(const std::filesystem::path& file)
{
    for (const HWND each : ChildrenOf(Desktop()))
        PaintNow(each);
    const std::shared_ptr<Surface> picture = ComposeDesktop();
    return picture != nullptr && WritePng(*picture, file);
}

} // namespace host
