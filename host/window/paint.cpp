// Painting: what is marked for it, the device contexts it happens in, and the surfaces that show it.
//
// Each top-level window has a surface of its own. All windows in it draw there, each kept inside its visible
// part, so drawing never needs to know what lies on top.
#include <algorithm>
#include <map>

#include "host/gdi/object.h"
#include "host/host.h"
#include "host/window/handles.h"

namespace host {
namespace {

std::mutex dcLock;
std::map<HDC, HWND> openDcs;     // null for the screen's
std::shared_ptr<Surface> screen; // what GetDC(nullptr) draws on

Region Without(const Region& from, const RECT& rect)
{
    return from.Overlaps(rect) ? Region::Combined(from, Region(rect), RGN_DIFF) : from;
}

Region Within(const Region& from, const RECT& rect)
{
    const RECT box = from.Box();
    const RECT common = Intersection(box, rect);
    return EqualRect(&common, &box) ? from : Region::Combined(from, Region(rect), RGN_AND);
}

RECT At(const RECT& rect, POINT origin)
{
    return Moved(rect, origin);
}

POINT Minus(POINT a, POINT b)
{
    return {a.x - b.x, a.y - b.y};
}

/// Takes away what siblings above a window cover; `parentOrigin` is its parent's client corner.
void ClipSiblings(Region& region, const Window& window, POINT parentOrigin)
{
    for (const Window* sibling : window.parent->children) {
        if (sibling == &window)
            return;
        if (IsVisibleStyle(*sibling) && (sibling->exStyle & WS_EX_TRANSPARENT) == 0)
            region = Without(region, At(sibling->rect, parentOrigin));
    }
}

HDC OpenDc(Window& window, bool wholeWindow, const Region& clip)
{
    Window& top = TopLevelOf(window);
    FitSurface(top);
    if (top.surface == nullptr)
        return nullptr;
    POINT origin = Minus(WindowOrigin(window), WindowOrigin(top));
    if (!wholeWindow)
        origin = {origin.x + window.client.left, origin.y + window.client.top};
    const HDC dc = OpenSurfaceDC(top.surface, origin, clip.Rects().data(), clip.Rects().size());
    std::lock_guard lock(dcLock);
    if (dc != nullptr)
        openDcs[dc] = window.handle;
    return dc;
}

HDC OpenScreenDc()
{
    std::lock_guard lock(dcLock);
    if (screen == nullptr)
        screen = MakeSurface(kScreenWidth, kScreenHeight);
    const RECT all = {0, 0, kScreenWidth, kScreenHeight};
    const HDC dc = screen != nullptr ? OpenSurfaceDC(screen, {0, 0}, &all, 1) : nullptr;
    if (dc != nullptr)
        openDcs[dc] = nullptr;
    return dc;
}

/// False when it is not an open one.
bool CloseDc(HDC dc)
{
    std::lock_guard lock(dcLock);
    if (openDcs.erase(dc) == 0)
        return false;
    CloseSurfaceDC(dc);
    return true;
}

HDC GetWindowsDc(HWND handle, bool wholeWindow)
{
    if (handle == nullptr || handle == Desktop().handle)
        return OpenScreenDc();
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return nullptr;
    return OpenDc(*window, wholeWindow, VisibleRegion(*window, wholeWindow));
}

bool NeedsPainting(const Window& window)
{
    return !window.update.Empty() || window.internalPaint;
}

/// Frames are painted on the way: they are no message of their own.
HWND FindToPaint(const Queue& queue, HWND handle)
{
    const WindowPtr window = LookUp(handle);
    if (window == nullptr || window->queue.get() != &queue || !IsVisibleStyle(*window))
        return nullptr;
    if (window->frameInvalid && !NeedsPainting(*window)) {
        window->frameInvalid = false;
        SendMessageW(handle, WM_NCPAINT, 1, 0);
    }
    if (NeedsPainting(*window))
        return handle;
    for (const HWND child : ChildrenOf(*window)) {
        const HWND found = FindToPaint(queue, child);
        if (found != nullptr)
            return found;
    }
    return nullptr;
}

void UpdateTree(HWND handle, bool children)
{
    const WindowPtr window = LookUp(handle);
    if (window == nullptr || !IsShown(*window))
        return;
    if (window->queue == CurrentQueue() && (NeedsPainting(*window) || window->frameInvalid))
        SendMessageW(handle, WM_PAINT, 0, 0);
    if (!children || LookUp(handle) == nullptr)
        return;
    for (const HWND child : ChildrenOf(*window))
        UpdateTree(child, true);
}

void EraseNow(Window& window, HDC dc, PAINTSTRUCT& paint)
{
    paint.fErase = FALSE;
    if (!window.erase)
        return;
    window.erase = false;
    paint.fErase = SendMessageW(window.handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0) == 0;
}

void Validate(Window& window, const RECT* rect)
{
    if (rect == nullptr) {
        window.update = {};
        window.erase = false;
        return;
    }
    window.update = Without(window.update, *rect);
}

/// The region behind a handle; everything without one.
const Region* RegionOf(HRGN handle, std::shared_ptr<RegionObject>& keep)
{
    keep = handle != nullptr ? Gdi<RegionObject>(handle) : nullptr;
    return keep != nullptr ? &keep->region : nullptr;
}

BOOL Redraw(HWND handle, const Region* part, UINT flags)
{
    const WindowPtr window = handle != nullptr ? WindowOf(handle) : LookUp(Desktop().handle);
    if (window == nullptr)
        return FALSE;
    if ((flags & RDW_VALIDATE) != 0) {
        window->update = part != nullptr ? Region::Combined(window->update, *part, RGN_DIFF) : Region();
        window->frameInvalid = window->frameInvalid && (flags & RDW_NOFRAME) == 0;
    }
    if ((flags & RDW_INVALIDATE) != 0)
        Invalidate(*window, part, flags);
    if ((flags & RDW_INTERNALPAINT) != 0)
        window->internalPaint = true;
    if ((flags & (RDW_UPDATENOW | RDW_ERASENOW)) != 0)
        UpdateTree(window->handle, (flags & RDW_NOCHILDREN) == 0);
    return TRUE;
}

/// Moves pixels of the client area; false when they cannot all be moved.
bool MovePixels(Window& window, const RECT& from, POINT by)
{
    Window& top = TopLevelOf(window);
    const Region visible = VisibleRegion(window, false);
    if (top.surface == nullptr || visible.Rects().size() != 1 || !window.update.Empty())
        return false;
    const POINT origin = Minus(ClientOrigin(window), WindowOrigin(top));
    const RECT& box = visible.Rects().front();
    const RECT source = Intersection(At(from, origin), box);
    RECT target = Intersection(At(source, by), box);
    const RECT copied = Moved(target, {-by.x, -by.y});
    if (!IsEmpty(copied))
        CopySurface(*top.surface, {target.left, target.top}, *top.surface, copied);
    return true;
}

} // namespace

Region VisibleRegion(Window& window, bool wholeWindow)
{
    if (!IsShown(window) || window.parent == nullptr)
        return {};
    std::lock_guard lock(WindowLock());
    const POINT surfaceOrigin = WindowOrigin(TopLevelOf(window));
    POINT origin = Minus(WindowOrigin(window), surfaceOrigin);
    const SIZE size = SizeOf(window.rect);
    const RECT inner = wholeWindow ? RECT{0, 0, size.cx, size.cy} : window.client;
    Region region(At(inner, origin));
    if ((window.style & WS_CLIPCHILDREN) != 0) {
        const POINT client = {origin.x + window.client.left, origin.y + window.client.top};
        for (const Window* child : window.children) {
            if (IsVisibleStyle(*child))
                region = Without(region, At(child->rect, client));
        }
    }
    for (const Window* each = &window; !IsTopLevel(*each); each = each->parent) {
        const Window& parent = *each->parent;
        const POINT parentOrigin = Minus(WindowOrigin(parent), surfaceOrigin);
        region = Within(region, At(parent.client, parentOrigin));
        if ((each->style & WS_CLIPSIBLINGS) != 0)
            ClipSiblings(region, *each,
                         {parentOrigin.x + parent.client.left, parentOrigin.y + parent.client.top});
    }
    return region;
}

void FitSurface(Window& topLevel)
{
    const SIZE size = SizeOf(topLevel.rect);
    const int width = std::max<int>(size.cx, 1);
    const int height = std::max<int>(size.cy, 1);
    const std::shared_ptr<Surface>& now = topLevel.surface;
    if (now == nullptr || now->Width() != width || now->Height() != height)
        topLevel.surface = MakeSurface(width, height);
}

void Invalidate(Window& window, const Region* part, UINT flags)
{
    if (!IsShown(window))
        return;
    const RECT client = ClientRectOfWindow(window);
    const Region added = part != nullptr ? Within(*part, client) : Region(client);
    if ((flags & RDW_FRAME) != 0)
        window.frameInvalid = true;
    if (!added.Empty()) {
        window.update = Region::Combined(window.update, added, RGN_OR);
        window.erase = window.erase || (flags & RDW_ERASE) != 0;
    }
    const bool children = (flags & RDW_ALLCHILDREN) != 0 ||
                          ((flags & RDW_NOCHILDREN) == 0 && (window.style & WS_CLIPCHILDREN) == 0);
    if (!children || added.Empty())
        return;
    for (const HWND handle : ChildrenOf(window)) {
        const WindowPtr child = LookUp(handle);
        if (child == nullptr || !IsVisibleStyle(*child) || !added.Overlaps(child->rect))
            continue;
        Region inside = added;
        inside.Move({-child->rect.left - child->client.left, -child->rect.top - child->client.top});
        Invalidate(*child, &inside, flags | RDW_FRAME);
    }
}

void InvalidateUnder(Window& window, const RECT& rect)
{
    if (window.parent == nullptr || IsTopLevel(window))
        return;
    const Region under(rect);
    Invalidate(*window.parent, &under, RDW_ERASE | RDW_ALLCHILDREN);
}

HWND NextToPaint(const Queue& queue)
{
    for (const HWND top : ChildrenOf(Desktop())) {
        const HWND found = FindToPaint(queue, top);
        if (found != nullptr)
            return found;
    }
    return nullptr;
}

void PaintNow(HWND handle)
{
    const std::shared_ptr<Queue> queue = CurrentQueue();
    for (HWND next = FindToPaint(*queue, handle); next != nullptr; next = FindToPaint(*queue, handle)) {
        const WindowPtr window = LookUp(next);
        SendMessageW(next, WM_PAINT, 0, 0);
        // A procedure that does not begin painting would be asked for ever.
        window->update = {};
        window->internalPaint = false;
    }
}

void CloseDcsOf(HWND handle)
{
    std::lock_guard lock(dcLock);
    for (auto each = openDcs.begin(); each != openDcs.end();) {
        if (each->second == handle && handle != nullptr) {
            CloseSurfaceDC(each->first);
            each = openDcs.erase(each);
        } else {
            ++each;
        }
    }
}

void ClosePainting()
{
    std::lock_guard lock(dcLock);
    for (const auto& [dc, window] : openDcs)
        CloseSurfaceDC(dc);
    openDcs.clear();
    screen.reset();
}

} // namespace host

using namespace host;

HDC WINAPI BeginPaint(HWND handle, LPPAINTSTRUCT paint)
{
    HOST_CALL(BeginPaint, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    const WindowPtr window = OwnWindowOf(handle);
    if (window == nullptr || paint == nullptr)
        return nullptr;
    *paint = {};
    if (window->frameInvalid) {
        window->frameInvalid = false;
        SendMessageW(handle, WM_NCPAINT, 1, 0);
    }
    Region clip = std::exchange(window->update, Region());
    window->internalPaint = false;
    const RECT box = clip.Box();
    clip.Move(Minus(ClientOrigin(*window), WindowOrigin(TopLevelOf(*window))));
    clip = Region::Combined(clip, VisibleRegion(*window, false), RGN_AND);
    const HDC dc = OpenDc(*window, false, clip);
    if (dc == nullptr)
        return nullptr;
    paint->hdc = dc;
    paint->rcPaint = box;
    EraseNow(*window, dc, *paint);
    return dc;
}

BOOL WINAPI EndPaint(HWND, const PAINTSTRUCT* paint)
{
    HOST_CALL_VOID(EndPaint);
    if (paint == nullptr)
        return FALSE;
    CloseDc(paint->hdc);
    return TRUE;
}

HDC WINAPI GetDC(HWND window)
{
    HOST_CALL(GetDC, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    return GetWindowsDc(window, false);
}

HDC WINAPI GetDCEx(HWND window, HRGN, DWORD flags)
{
    HOST_CALL(GetDCEx, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    return GetWindowsDc(window, (flags & DCX_WINDOW) != 0);
}

HDC WINAPI GetWindowDC(HWND window)
{
    HOST_CALL(GetWindowDC, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    return GetWindowsDc(window, true);
}

int WINAPI ReleaseDC(HWND, HDC dc)
{
    HOST_CALL_VOID(ReleaseDC);
    return CloseDc(dc);
}

HWND WINAPI WindowFromDC(HDC dc)
{
    HOST_CALL_VOID(WindowFromDC);
    std::lock_guard lock(dcLock);
    const auto found = openDcs.find(dc);
    if (found == openDcs.end())
        return nullptr;
    return found->second != nullptr ? found->second : Desktop().handle;
}

BOOL WINAPI InvalidateRect(HWND window, const RECT* rect, BOOL erase)
{
    HOST_CALL_VOID(InvalidateRect);
    const Region part = rect != nullptr ? Region(*rect) : Region();
    return Redraw(window, rect != nullptr ? &part : nullptr, RDW_INVALIDATE | (erase ? RDW_ERASE : 0));
}

BOOL WINAPI InvalidateRgn(HWND window, HRGN region, BOOL erase)
{
    HOST_CALL_VOID(InvalidateRgn);
    std::shared_ptr<RegionObject> keep;
    return Redraw(window, RegionOf(region, keep), RDW_INVALIDATE | (erase ? RDW_ERASE : 0));
}

BOOL WINAPI ValidateRect(HWND handle, const RECT* rect)
{
    HOST_CALL_VOID(ValidateRect);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return FALSE;
    Validate(*window, rect);
    return TRUE;
}

BOOL WINAPI ValidateRgn(HWND window, HRGN region)
{
    HOST_CALL_VOID(ValidateRgn);
    std::shared_ptr<RegionObject> keep;
    return Redraw(window, RegionOf(region, keep), RDW_VALIDATE);
}

BOOL WINAPI UpdateWindow(HWND window)
{
    HOST_CALL_VOID(UpdateWindow);
    if (WindowOf(window) == nullptr)
        return FALSE;
    UpdateTree(window, true);
    return TRUE;
}

BOOL WINAPI RedrawWindow(HWND window, const RECT* rect, HRGN region, UINT flags)
{
    HOST_CALL_VOID(RedrawWindow);
    std::shared_ptr<RegionObject> keep;
    const Region* part = RegionOf(region, keep);
    const Region ofRect = rect != nullptr ? Region(*rect) : Region();
    if (part == nullptr && rect != nullptr)
        part = &ofRect;
    return Redraw(window, part, flags);
}

BOOL WINAPI GetUpdateRect(HWND handle, LPRECT rect, BOOL)
{
    HOST_CALL_VOID(GetUpdateRect);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return FALSE;
    if (rect != nullptr)
        *rect = window->update.Box();
    return !window->update.Empty();
}

int WINAPI GetUpdateRgn(HWND handle, HRGN region, BOOL)
{
    HOST_CALL_VOID(GetUpdateRgn);
    const WindowPtr window = WindowOf(handle);
    const std::shared_ptr<RegionObject> object = Gdi<RegionObject>(region);
    if (window == nullptr || object == nullptr)
        return ERROR;
    object->region = window->update;
    return object->region.Complexity();
}

int WINAPI ExcludeUpdateRgn(HDC dc, HWND handle)
{
    HOST_CALL_VOID(ExcludeUpdateRgn);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return ERROR;
    RECT box;
    int result = GetClipBox(dc, &box);
    for (const RECT& rect : window->update.Rects())
        result = ExcludeClipRect(dc, rect.left, rect.top, rect.right, rect.bottom);
    return result;
}

BOOL WINAPI LockWindowUpdate(HWND window)
{
    HOST_CALL_VOID(LockWindowUpdate);
    // Nothing shows before the queue is idle, so there is no flicker to hold back.
    return window == nullptr || LookUp(window) != nullptr;
}

int WINAPI ScrollWindowEx(HWND handle, int x, int y, const RECT* scroll, const RECT* clip, HRGN update,
                          LPRECT updateRect, UINT flags)
{
    HOST_CALL_VOID(ScrollWindowEx);
    const WindowPtr window = OwnWindowOf(handle);
    if (window == nullptr)
        return ERROR;
    RECT area = ClientRectOfWindow(*window);
    if (scroll != nullptr)
        area = Intersection(area, *scroll);
    if (clip != nullptr)
        area = Intersection(area, *clip);
    Region uncovered(area);
    if (MovePixels(*window, area, {x, y}))
        uncovered = Without(uncovered, Moved(area, {x, y}));
    if ((flags & SW_SCROLLCHILDREN) != 0) {
        for (const HWND child : ChildrenOf(*window)) {
            const WindowPtr each = LookUp(child);
            if (each != nullptr)
                SetWindowPos(child, nullptr, each->rect.left + x, each->rect.top + y, 0, 0,
                             SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        }
    }
    if (const std::shared_ptr<RegionObject> object = update != nullptr ? Gdi<RegionObject>(update) : nullptr)
        object->region = uncovered;
    if (updateRect != nullptr)
        *updateRect = uncovered.Box();
    if ((flags & SW_INVALIDATE) != 0)
        Invalidate(*window, &uncovered, (flags & SW_ERASE) != 0 ? RDW_ERASE : 0);
    return uncovered.Complexity();
}

BOOL WINAPI ScrollWindow(HWND window, int x, int y, const RECT* scroll, const RECT* clip)
{
    HOST_CALL_VOID(ScrollWindow);
    const UINT children = scroll == nullptr ? SW_SCROLLCHILDREN : 0;
    return ScrollWindowEx(window, x, y, scroll, clip, nullptr, nullptr,
                          SW_INVALIDATE | SW_ERASE | children) != ERROR;
}
