#include "host/gdi/object.h"

#include <algorithm>
#include <cstring>

#include "host/gdi/dc.h"
#include "host/gdi/icon.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"
#include "host/kernel/world.h"

namespace host {
namespace {

// A handle: how often the place was used in the upper half of 32 bits, the place plus kFirstPlace in the
// lower. Colour numbers passed for brushes and control numbers passed by mistake are never handles.
constexpr uintptr_t kFirstPlace = 0x100;
constexpr size_t kMaxObjects = 0xFF00;
constexpr int kPlaceBits = 16;

struct Place
{
    std::shared_ptr<GdiObject> object;
    uint16_t uses = 0;
};

std::vector<Place>& Places()
{
    static std::vector<Place> places;
    return places;
}

std::vector<size_t>& FreePlaces()
{
    static std::vector<size_t> places;
    return places;
}

std::recursive_mutex& Mutex()
{
    static std::recursive_mutex mutex;
    return mutex;
}

int64_t Ledger::*EntryOf(GdiKind kind)
{
    switch (kind) {
    case GdiKind::Bitmap:
        return &Ledger::bitmaps;
    case GdiKind::Brush:
        return &Ledger::brushes;
    case GdiKind::DeviceContext:
        return &Ledger::deviceContexts;
    case GdiKind::Font:
        return &Ledger::fonts;
    case GdiKind::Icon:
        return &Ledger::icons;
    case GdiKind::Palette:
        return &Ledger::palettes;
    case GdiKind::Pen:
        return &Ledger::pens;
    default:
        return &Ledger::regions;
    }
}

Place* PlaceOf(HGDIOBJ handle)
{
    const uintptr_t value = reinterpret_cast<uintptr_t>(handle);
    const uintptr_t place = value & ((1u << kPlaceBits) - 1);
    if (place < kFirstPlace || place - kFirstPlace >= Places().size())
        return nullptr;
    Place& found = Places()[place - kFirstPlace];
    return found.object && found.object->handle == handle ? &found : nullptr;
}

constexpr int kStockCount = DEFAULT_GUI_FONT + 1;

struct StockFont
{
    int index;
    LONG height;
    LONG weight;
    const WCHAR* face;
};

constexpr StockFont kStockFonts[] = {
    {OEM_FIXED_FONT, 12, FW_NORMAL, TEXT("Courier New")},
    {ANSI_FIXED_FONT, 12, FW_NORMAL, TEXT("Courier New")},
    {ANSI_VAR_FONT, -11, FW_NORMAL, TEXT("MS Sans Serif")},
    {SYSTEM_FONT, 16, FW_BOLD, TEXT("System")},
    {DEVICE_DEFAULT_FONT, 16, FW_BOLD, TEXT("System")},
    {SYSTEM_FIXED_FONT, 15, FW_NORMAL, TEXT("Courier New")},
    {DEFAULT_GUI_FONT, -11, FW_NORMAL, TEXT("MS Shell Dlg")},
};

std::shared_ptr<GdiObject> MakeStockBrush(int index)
{
    constexpr COLORREF kColors[] = {RGB(255, 255, 255), RGB(192, 192, 192), RGB(128, 128, 128),
                                    RGB(64, 64, 64), RGB(0, 0, 0)};
    if (index == NULL_BRUSH)
        return std::make_shared<Brush>(LOGBRUSH{BS_NULL, 0, 0});
    return std::make_shared<Brush>(LOGBRUSH{BS_SOLID, kColors[index - WHITE_BRUSH], 0});
}

std::shared_ptr<GdiObject> MakeStockPen(int index)
{
    const UINT style = index == NULL_PEN ? PS_NULL : PS_SOLID;
    const COLORREF color = index == WHITE_PEN ? RGB(255, 255, 255) : RGB(0, 0, 0);
    return std::make_shared<Pen>(LOGPEN{style, {1, 0}, color});
}

std::shared_ptr<GdiObject> MakeStockFont(int index)
{
    for (const StockFont& row : kStockFonts) {
        if (row.index != index)
            continue;
        LOGFONTW description = {};
        description.lfHeight = row.height;
        description.lfWeight = row.weight;
        description.lfCharSet = DEFAULT_CHARSET;
        for (int i = 0; row.face[i] != 0; ++i)
            description.lfFaceName[i] = row.face[i];
        return std::make_shared<Font>(description);
    }
    return nullptr;
}

std::shared_ptr<GdiObject> MakeStockPalette()
{
    constexpr PALETTEENTRY kEntries[] = {
        {0, 0, 0, 0},       {128, 0, 0, 0},     {0, 128, 0, 0},     {128, 128, 0, 0},   {0, 0, 128, 0},
        {128, 0, 128, 0},   {0, 128, 128, 0},   {192, 192, 192, 0}, {192, 220, 192, 0}, {166, 202, 240, 0},
        {255, 251, 240, 0}, {160, 160, 164, 0}, {128, 128, 128, 0}, {255, 0, 0, 0},     {0, 255, 0, 0},
        {255, 255, 0, 0},   {0, 0, 255, 0},     {255, 0, 255, 0},   {0, 255, 255, 0},   {255, 255, 255, 0},
    };
    auto palette = std::make_shared<Palette>();
    palette->entries.assign(std::begin(kEntries), std::end(kEntries));
    return palette;
}

std::shared_ptr<GdiObject> MakeStock(int index)
{
    if (index >= WHITE_BRUSH && index <= NULL_BRUSH)
        return MakeStockBrush(index);
    if (index >= WHITE_PEN && index <= NULL_PEN)
        return MakeStockPen(index);
    return index == DEFAULT_PALETTE ? MakeStockPalette() : MakeStockFont(index);
}

/// Permanent objects have places of their own that outlive the world, and no ledger entry.
HGDIOBJ PutIntoTable(std::shared_ptr<GdiObject> object)
{
    size_t place = Places().size();
    if (!FreePlaces().empty()) {
        place = FreePlaces().back();
        FreePlaces().pop_back();
    } else if (place < kMaxObjects) {
        Places().emplace_back();
    } else {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    Place& found = Places()[place];
    const uintptr_t value = uintptr_t{++found.uses} << kPlaceBits | (place + kFirstPlace);
    object->handle = reinterpret_cast<HGDIOBJ>(value);
    found.object = std::move(object);
    return found.object->handle;
}

template <class T>
int CopyOut(const T& description, int size, LPVOID buffer)
{
    const int whole = static_cast<int>(sizeof description);
    if (buffer == nullptr)
        return whole;
    if (size < whole)
        return FailWith(ERROR_INVALID_PARAMETER);
    std::memcpy(buffer, &description, sizeof description);
    return whole;
}

int DescribeBitmap(const Bitmap& bitmap, int size, LPVOID buffer)
{
    const Image& image = bitmap.image;
    const int alignment = bitmap.section ? 4 : 2;
    BITMAP description = {};
    description.bmWidth = image.width;
    description.bmHeight = image.height;
    description.bmWidthBytes = static_cast<LONG>(RowBytes(image.width, image.depth, alignment));
    description.bmPlanes = 1;
    description.bmBitsPixel = static_cast<WORD>(image.depth);
    if (bitmap.section)
        description.bmBits = image.stride > 0 ? image.top : image.top + image.stride * (image.height - 1);
    if (!bitmap.section || buffer == nullptr || size < static_cast<int>(sizeof(DIBSECTION)))
        return CopyOut(description, size, buffer);
    DIBSECTION section = {};
    section.dsBm = description;
    section.dsBmih = bitmap.header;
    return CopyOut(section, size, buffer);
}

int DescribePalette(const Palette& palette, int size, LPVOID buffer)
{
    return CopyOut(static_cast<WORD>(palette.entries.size()), size, buffer);
}

DWORD TypeOf(const GdiObject& object)
{
    switch (object.kind) {
    case GdiKind::Bitmap:
        return OBJ_BITMAP;
    case GdiKind::Brush:
        return OBJ_BRUSH;
    case GdiKind::DeviceContext:
        return static_cast<const DeviceContext&>(object).memory ? OBJ_MEMDC : OBJ_DC;
    case GdiKind::Font:
        return OBJ_FONT;
    case GdiKind::Palette:
        return OBJ_PAL;
    case GdiKind::Pen:
        return OBJ_PEN;
    case GdiKind::Region:
        return OBJ_REGION;
    default:
        return 0;
    }
}

} // namespace

GdiLock::GdiLock() : lock_(Mutex()) {}

HGDIOBJ NewGdiHandle(std::shared_ptr<GdiObject> object)
{
    const GdiLock lock;
    const GdiKind kind = object->kind;
    const HGDIOBJ handle = PutIntoTable(std::move(object));
    if (handle != nullptr)
        CountOpen(EntryOf(kind), 1);
    return handle;
}

std::shared_ptr<GdiObject> GdiObjectOf(HGDIOBJ handle)
{
    const Place* const place = PlaceOf(handle);
    return place != nullptr ? place->object : nullptr;
}

std::shared_ptr<GdiObject> GdiObjectOf(HGDIOBJ handle, GdiKind kind)
{
    std::shared_ptr<GdiObject> object = GdiObjectOf(handle);
    if (object && object->kind == kind)
        return object;
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

void DropGdiHandle(HGDIOBJ handle)
{
    Place* const place = PlaceOf(handle);
    if (place == nullptr)
        return;
    if (!place->object->permanent)
        CountOpen(EntryOf(place->object->kind), -1);
    FreePlaces().push_back(static_cast<size_t>(place - Places().data()));
    place->object.reset();
}

void CloseGdiRoom()
{
    const GdiLock lock;
    DropSharedIcons();
    for (const Place& place : Places()) {
        if (place.object && !place.object->permanent)
            DropGdiHandle(place.object->handle);
    }
}

HGDIOBJ NewPermanentHandle(std::shared_ptr<GdiObject> object)
{
    object->permanent = true;
    return PutIntoTable(std::move(object));
}

} // namespace host

using namespace host;

HGDIOBJ WINAPI GetStockObject(int index)
{
    HOST_CALL_VOID(GetStockObject);
    static std::array<HGDIOBJ, kStockCount> handles;
    if (index < 0 || index >= kStockCount)
        return nullptr;
    const GdiLock lock;
    HGDIOBJ& handle = handles[static_cast<size_t>(index)];
    if (handle == nullptr) {
        if (std::shared_ptr<GdiObject> object = MakeStock(index))
            handle = NewPermanentHandle(std::move(object));
    }
    return handle;
}

BOOL WINAPI DeleteObject(HGDIOBJ handle)
{
    HOST_CALL_VOID(DeleteObject);
    const GdiLock lock;
    const std::shared_ptr<GdiObject> object = GdiObjectOf(handle);
    if (!object || object->kind == GdiKind::Icon)
        return FailWith(ERROR_INVALID_HANDLE);
    if (object->permanent)
        return TRUE;
    if (object->kind == GdiKind::DeviceContext)
        return DeleteDC(static_cast<HDC>(handle));
    if (object->selections != 0)
        return FALSE;
    DropGdiHandle(handle);
    return TRUE;
}

DWORD WINAPI GetObjectType(HGDIOBJ handle)
{
    HOST_CALL_VOID(GetObjectType);
    const GdiLock lock;
    const std::shared_ptr<GdiObject> object = GdiObjectOf(handle);
    const DWORD type = object ? TypeOf(*object) : 0;
    if (type == 0)
        SetLastError(ERROR_INVALID_HANDLE);
    return type;
}

int WINAPI GetObjectW(HANDLE handle, int size, LPVOID buffer)
{
    HOST_CALL(GetObjectW, 0, ERROR_INVALID_HANDLE);
    const GdiLock lock;
    const std::shared_ptr<GdiObject> object = GdiObjectOf(handle);
    if (!object)
        return FailWith(ERROR_INVALID_HANDLE);
    switch (object->kind) {
    case GdiKind::Bitmap:
        return DescribeBitmap(static_cast<const Bitmap&>(*object), size, buffer);
    case GdiKind::Brush:
        return CopyOut(static_cast<const Brush&>(*object).description, size, buffer);
    case GdiKind::Font:
        return CopyOut(static_cast<const Font&>(*object).description, size, buffer);
    case GdiKind::Palette:
        return DescribePalette(static_cast<const Palette&>(*object), size, buffer);
    case GdiKind::Pen:
        return CopyOut(static_cast<const Pen&>(*object).description, size, buffer);
    default:
        return FailWith(ERROR_INVALID_HANDLE);
    }
}
