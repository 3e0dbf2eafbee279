#include "tools/psuictl/desktop.h"

#include <utility>

#include "tools/psuictl/failure.h"
#include "tools/psuictl/files.h"
#include "tools/psuictl/png.h"

namespace psuictl::platform {
namespace {

std::function<bool()> idleStep;
UINT_PTR idleTimer = 0;

// A timer's message comes when a queue has nothing else, in whatever loop of the thread is running.
void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD)
{
    if (idleStep)
        idleStep();
}

struct ModifierKey
{
    unsigned flag;
    BYTE key;
};

constexpr ModifierKey kModifierKeys[] = {
    {kShiftHeld, VK_SHIFT},
    {kControlHeld, VK_CONTROL},
    {kAltHeld, VK_MENU},
};

void Press(BYTE key, DWORD flags)
{
    keybd_event(key, static_cast<BYTE>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC)), flags, 0);
}

/// A 32-bit picture in memory.
class Picture
{
public:
    Picture(int width, int height) : dc_(CreateCompatibleDC(nullptr))
    {
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height; // top down
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        bitmap_ =
            CreateDIBSection(dc_, &info, DIB_RGB_COLORS, reinterpret_cast<void**>(&pixels_), nullptr, 0);
        before_ = bitmap_ ? SelectObject(dc_, bitmap_) : nullptr;
    }
    ~Picture()
    {
        if (before_)
            SelectObject(dc_, before_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    HDC dc() const { return dc_; }
    const uint32_t* pixels() const { return before_ ? pixels_ : nullptr; }

private:
    HDC dc_;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ before_ = nullptr;
    uint32_t* pixels_ = nullptr;
};

} // namespace

IdleCalls::IdleCalls(std::function<bool()> step)
{
    idleStep = std::move(step);
    idleTimer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, OnTimer);
}

IdleCalls::~IdleCalls()
{
    KillTimer(nullptr, idleTimer);
    idleStep = nullptr;
}

void PressKey(int key, unsigned modifiers)
{
    for (const ModifierKey& each : kModifierKeys) {
        if (modifiers & each.flag)
            Press(each.key, 0);
    }
    Press(static_cast<BYTE>(key), 0);
    Press(static_cast<BYTE>(key), KEYEVENTF_KEYUP);
    for (const ModifierKey& each : kModifierKeys) {
        if (modifiers & each.flag)
            Press(each.key, KEYEVENTF_KEYUP);
    }
}

bool PassTime(unsigned)
{
    return false;
}

void Shoot(HWND window, const std::string& file)
{
    RECT frame = {};
    GetWindowRect(window, &frame);
    const int width = frame.right - frame.left, height = frame.bottom - frame.top;
    const Picture picture(width, height);
    if (!picture.pixels())
        throw Failure("the dialog cannot be pictured; look at its size");
    // The dialog is on top, so the screen shows it; printing a window would leave its children out.
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    const HDC screen = GetDC(nullptr);
    BitBlt(picture.dc(), 0, 0, width, height, screen, frame.left, frame.top, SRCCOPY);
    ReleaseDC(nullptr, screen);
    GdiFlush();
    const std::string png =
        EncodePng(picture.pixels(), static_cast<size_t>(width), static_cast<size_t>(height));
    SaveFile(file, png.data(), png.size());
}

std::vector<std::pair<std::string, int64_t>> OpenObjects()
{
    const HANDLE process = GetCurrentProcess();
    DWORD handles = 0;
    GetProcessHandleCount(process, &handles);
    return {{"gdi", GetGuiResources(process, GR_GDIOBJECTS)},
            {"windows", GetGuiResources(process, GR_USEROBJECTS)},
            {"handles", handles}};
}

void OpenDisplay() {} // Windows shows every window itself

} // namespace psuictl::platform
