#pragma once
// The drawing objects that programs hold handles of. A handle is a place in a table and how often it was
// used before, so that a wrong or stale one is recognised.
#include <array>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

#include <windows.h>

#include "host/gdi/image.h"
#include "host/gdi/region.h"
#include "host/host.h"

namespace host {

/// Every public function of the room holds it while it works, and lets it go around calls into a program.
class GdiLock
{
public:
    GdiLock();

private:
    std::unique_lock<std::recursive_mutex> lock_;
};

enum class GdiKind
{
    Bitmap,
    Brush,
    DeviceContext,
    Font,
    Icon,
    Palette,
    Pen,
    Region
};

struct GdiObject
{
    explicit GdiObject(GdiKind objectKind) : kind(objectKind) {}
    virtual ~GdiObject() = default;
    GdiObject(const GdiObject&) = delete;
    GdiObject& operator=(const GdiObject&) = delete;

    const GdiKind kind;
    bool permanent = false; // the system's own: deleting it succeeds and does nothing
    int selections = 0;     // in device contexts and their saved states; it cannot be deleted meanwhile
    HGDIOBJ handle = nullptr;
};

struct Pen : GdiObject
{
    static constexpr GdiKind kKind = GdiKind::Pen;
    explicit Pen(const LOGPEN& value) : GdiObject(kKind), description(value) {}
    const LOGPEN description;
};

struct Brush : GdiObject
{
    static constexpr GdiKind kKind = GdiKind::Brush;
    explicit Brush(const LOGBRUSH& value) : GdiObject(kKind), description(value) {}
    const LOGBRUSH description; // of a pattern brush, lbHatch is the bitmap that it was made from
    Image pattern;              // a copy of that bitmap
};

struct Bitmap : GdiObject
{
    static constexpr GdiKind kKind = GdiKind::Bitmap;
    Bitmap() : GdiObject(kKind) {}
    Image image;
    bool section = false;      // a DIB section: the program sees the bits
    BITMAPINFOHEADER header{}; // of a DIB section
};

struct RegionObject : GdiObject
{
    static constexpr GdiKind kKind = GdiKind::Region;
    explicit RegionObject(Region value) : GdiObject(kKind), region(std::move(value)) {}
    Region region;
};

struct Palette : GdiObject
{
    static constexpr GdiKind kKind = GdiKind::Palette;
    Palette() : GdiObject(kKind) {}
    std::vector<PALETTEENTRY> entries;
};

struct Font : GdiObject
{
    static constexpr GdiKind kKind = GdiKind::Font;
    explicit Font(const LOGFONTW& value) : GdiObject(kKind), description(value) {}
    const LOGFONTW description;
};

/// Keeps an object selected as long as it lives.
template <class T>
class Selection
{
public:
    Selection() = default;
    explicit Selection(std::shared_ptr<T> object) : object_(std::move(object)) { Count(1); }
    Selection(const Selection& other) : object_(other.object_) { Count(1); }
    Selection& operator=(Selection other)
    {
        object_.swap(other.object_);
        return *this;
    }
    ~Selection() { Count(-1); }

    T* operator->() const { return object_.get(); }
    T* Get() const { return object_.get(); }
    explicit operator bool() const { return object_ != nullptr; }

private:
    void Count(int amount)
    {
        if (object_)
            object_->selections += amount;
    }
    std::shared_ptr<T> object_;
};

/// Puts an object into the table and counts it in the ledger. Null, with the last error set, when the table
/// is full.
HGDIOBJ NewGdiHandle(std::shared_ptr<GdiObject> object);

/// The same for an object of the system's own, which lasts as long as the process.
HGDIOBJ NewPermanentHandle(std::shared_ptr<GdiObject> object);

/// The object behind a handle, or null. Sets no error.
std::shared_ptr<GdiObject> GdiObjectOf(HGDIOBJ handle);

/// The object behind a handle; without one of that kind null, and ERROR_INVALID_HANDLE is set.
std::shared_ptr<GdiObject> GdiObjectOf(HGDIOBJ handle, GdiKind kind);

template <class T>
std::shared_ptr<T> Gdi(HGDIOBJ handle)
{
    return std::static_pointer_cast<T>(GdiObjectOf(handle, T::kKind));
}

/// Takes an object out of the table.
void DropGdiHandle(HGDIOBJ handle);

/// A stock object; null when there is none of that number.
template <class T>
std::shared_ptr<T> Stock(int index)
{
    const GdiLock lock;
    return Gdi<T>(GetStockObject(index));
}

/// Deletes every object that a program left.
void CloseGdiRoom();

} // namespace host
