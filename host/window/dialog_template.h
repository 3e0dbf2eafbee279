#pragma once
// Dialog templates, both formats, as read from a resource or from memory.
#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include <windows.h>

namespace host {

/// A text or, when that is empty, a number (0: neither).
struct TemplateName
{
    std::u16string text;
    WORD number = 0;
};

/// Places and sizes are in dialog units.
struct DialogItem
{
    DWORD style = 0;
    DWORD exStyle = 0;
    short x = 0;
    short y = 0;
    short cx = 0;
    short cy = 0;
    DWORD id = 0;
    TemplateName className;
    TemplateName title;
    std::span<const std::byte> data; // handed to the control at its creation, with its size before it
};

struct DialogTemplate
{
    DWORD style = 0;
    DWORD exStyle = 0;
    short x = 0;
    short y = 0;
    short cx = 0;
    short cy = 0;
    TemplateName menu;
    TemplateName className;
    std::u16string title;
    WORD points = 0; // font size; 0 without a font
    WORD weight = 0;
    bool italic = false;
    BYTE charset = DEFAULT_CHARSET;
    std::u16string face;
    std::vector<DialogItem> items;
};

/// Reads a template; false when it is cut short or not sound.
HOSTAPI bool ReadDialogTemplate(std::span<const std::byte> bytes, DialogTemplate& result);

} // namespace host
