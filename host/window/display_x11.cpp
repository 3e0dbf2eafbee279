// The desktop in a window of the machine's display. Xlib's names collide with the platform's, so this file
// touches the room only through a few functions.
#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/keysym.h>
#include <poll.h>

#include "host/window/display_x11.h"

namespace host {
namespace {

constexpr int kWheelUp = 4; // buttons of the wheel
constexpr int kWheelDown = 5;

struct Shown
{
    Display* display = nullptr;
    ::Window window = 0;
    GC context = nullptr;
    Atom closed = 0;
    DesktopPicture picture; // what the window shows
    bool stale = true;      // it may have lost that
};

Shown shown;

struct KeyPair
{
    KeySym symbol;
    unsigned key; // virtual-key code
};

constexpr KeyPair kKeys[] = {
    {XK_BackSpace, 0x08}, {XK_Tab, 0x09},     {XK_ISO_Left_Tab, 0x09}, {XK_Return, 0x0D},
    {XK_KP_Enter, 0x0D},  {XK_Shift_L, 0x10}, {XK_Shift_R, 0x10},      {XK_Control_L, 0x11},
    {XK_Control_R, 0x11}, {XK_Alt_L, 0x12},   {XK_Alt_R, 0x12},        {XK_Caps_Lock, 0x14},
    {XK_Escape, 0x1B},    {XK_space, 0x20},   {XK_Prior, 0x21},        {XK_Next, 0x22},
    {XK_End, 0x23},       {XK_Home, 0x24},    {XK_Left, 0x25},         {XK_Up, 0x26},
    {XK_Right, 0x27},     {XK_Down, 0x28},    {XK_Insert, 0x2D},       {XK_Delete, 0x2E},
    {XK_Menu, 0x5D},
};

/// 0 for a key that is known only by its character.
unsigned KeyOf(KeySym symbol)
{
    for (const KeyPair& each : kKeys) {
        if (each.symbol == symbol)
            return each.key;
    }
    if (symbol >= XK_F1 && symbol <= XK_F12)
        return 0x70 + static_cast<unsigned>(symbol - XK_F1);
    if (symbol >= XK_a && symbol <= XK_z)
        return static_cast<unsigned>('A' + (symbol - XK_a));
    if (symbol >= XK_0 && symbol <= XK_9)
        return static_cast<unsigned>('0' + (symbol - XK_0));
    return 0;
}

void OnKey(XKeyEvent& event)
{
    const bool down = event.type == KeyPress;
    const unsigned key = KeyOf(XkbKeycodeToKeysym(shown.display, static_cast<KeyCode>(event.keycode), 0, 0));
    if (key != 0) {
        down ? PressKeyDown(key) : ReleaseKey(key);
        return;
    }
    char bytes[8];
    KeySym symbol = 0;
    const int count = XLookupString(&event, bytes, sizeof bytes, &symbol, nullptr);
    constexpr KeySym kUnicode = 0x01000000; // symbols above it are characters
    if (down && symbol > kUnicode && symbol < kUnicode + 0x10000)
        TypeText(std::u16string(1, static_cast<char16_t>(symbol - kUnicode)));
    else if (down && count == 1 && static_cast<unsigned char>(bytes[0]) >= ' ')
        TypeText(std::u16string(1, static_cast<unsigned char>(bytes[0])));
}

void OnButton(const XButtonEvent& event)
{
    const bool down = event.type == ButtonPress;
    MoveMouse(event.x, event.y);
    if (event.button == kWheelUp || event.button == kWheelDown) {
        if (down)
            TurnMouseWheel(event.button == kWheelUp ? 1 : -1);
        return;
    }
    constexpr MouseButton kButtons[] = {MouseButton::Left, MouseButton::Middle, MouseButton::Right};
    if (event.button < 1 || event.button > std::size(kButtons))
        return;
    const MouseButton button = kButtons[event.button - 1];
    down ? PressMouse(button) : ReleaseMouse(button);
}

/// False when the user closed the display's window.
bool OnEvent(XEvent& event)
{
    switch (event.type) {
    case KeyPress:
    case KeyRelease:
        OnKey(event.xkey);
        break;
    case ButtonPress:
    case ButtonRelease:
        OnButton(event.xbutton);
        break;
    case MotionNotify:
        MoveMouse(event.xmotion.x, event.xmotion.y);
        break;
    case ClientMessage:
        return static_cast<Atom>(event.xclient.data.l[0]) != shown.closed;
    }
    return true;
}

void ShowOnWindow(const DesktopPicture& picture)
{
    XImage image = {};
    image.width = picture.width;
    image.height = picture.height;
    image.format = ZPixmap;
    image.data = reinterpret_cast<char*>(const_cast<uint32_t*>(picture.pixels.data()));
    image.byte_order = LSBFirst;
    image.bitmap_unit = image.bitmap_pad = image.bits_per_pixel = 32;
    image.bitmap_bit_order = LSBFirst;
    image.depth = DefaultDepth(shown.display, DefaultScreen(shown.display));
    image.bytes_per_line = picture.width * 4;
    if (XInitImage(&image) != 0)
        XPutImage(shown.display, shown.window, shown.context, &image, 0, 0, 0, 0,
                  static_cast<unsigned>(picture.width), static_cast<unsigned>(picture.height));
}

void ShowPicture()
{
    DesktopPicture picture = PictureOfDesktop();
    if (picture.pixels.empty() || (!shown.stale && picture.pixels == shown.picture.pixels))
        return;
    shown.stale = false;
    shown.picture = std::move(picture);
    ShowOnWindow(shown.picture);
}

} // namespace

bool OpenDisplay()
{
    if (shown.display != nullptr)
        return true;
    shown.display = XOpenDisplay(nullptr);
    if (shown.display == nullptr)
        return false;
    const int screen = DefaultScreen(shown.display);
    const DesktopPicture picture = PictureOfDesktop();
    shown.window = XCreateSimpleWindow(shown.display, RootWindow(shown.display, screen), 0, 0,
                                       static_cast<unsigned>(picture.width),
                                       static_cast<unsigned>(picture.height), 0, 0, 0);
    XStoreName(shown.display, shown.window, "psui");
    XSelectInput(shown.display, shown.window,
                 KeyPressMask | KeyReleaseMask | ButtonPressMask | ButtonReleaseMask | PointerMotionMask |
                     ExposureMask);
    shown.closed = XInternAtom(shown.display, "WM_DELETE_WINDOW", False);
    XSetWMProtocols(shown.display, shown.window, &shown.closed, 1);
    shown.context = XCreateGC(shown.display, shown.window, 0, nullptr);
    XMapWindow(shown.display, shown.window);
    return true;
}

bool HasDisplay()
{
    return shown.display != nullptr;
}

void PumpDisplay(int timeout)
{
    ShowPicture();
    XFlush(shown.display);
    pollfd connection = {ConnectionNumber(shown.display), POLLIN, 0};
    if (XPending(shown.display) == 0)
        poll(&connection, 1, timeout);
    while (shown.display != nullptr && XPending(shown.display) > 0) {
        XEvent event;
        XNextEvent(shown.display, &event);
        if (!OnEvent(event))
            CloseDisplay();
    }
}

void CloseDisplay()
{
    if (shown.display == nullptr)
        return;
    XFreeGC(shown.display, shown.context);
    XCloseDisplay(shown.display);
    shown = {};
}

} // namespace host
