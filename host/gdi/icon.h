#pragma once
// Icons and cursors: a picture with a mask, and the point of a cursor that points.
#include <memory>
#include <span>

#include "host/gdi/object.h"

namespace host {

struct Icon : GdiObject
{
    static constexpr GdiKind kKind = GdiKind::Icon;
    Icon() : GdiObject(kKind) {}

    Image color; // 32 bits; the top byte is the opacity when `blended` is set
    Image mask;  // 1 bit: white where what is below stays, and is inverted by the picture's colour
    bool blended = false;
    bool cursor = false;
    POINT hotspot{};
};

/// An icon of this size, fully see-through. Null when the size is nonsense or memory is missing.
std::shared_ptr<Icon> MakeIcon(int width, int height);

/// An icon of the size wanted from the bytes of an icon or cursor resource; 0 is the picture's own size. Null
/// when they are not sound.
std::shared_ptr<Icon> ReadIcon(std::span<const std::byte> data, bool cursor, int width, int height);

/// Null for null. A shared icon is the system's and in no ledger.
HICON NewIconHandle(std::shared_ptr<Icon> icon, bool shared);

/// Ends the icons that LoadIconW and its like keep for all callers.
void DropSharedIcons();

} // namespace host
