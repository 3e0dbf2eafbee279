// Pictures from modules' resources.
#include <algorithm>
#include <cstring>
#include <map>
#include <tuple>

#include "host/gdi/bitmap.h"
#include "host/gdi/blit.h"
#include "host/gdi/icon.h"
#include "host/gdi/system_icon.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"

namespace host {
namespace {

constexpr int kDefaultSide = 32; // of icons and cursors, in pixels

std::span<const std::byte> ResourceBytes(HINSTANCE module, LPCWSTR name, LPCWSTR type)
{
    const HRSRC resource = FindResourceW(module, name, type);
    if (resource == nullptr)
        return {};
    const auto* const bytes = static_cast<const std::byte*>(LockResource(LoadResource(module, resource)));
    return {bytes, bytes != nullptr ? SizeofResource(module, resource) : 0};
}

bool IsBlackAndWhite(const Image& image)
{
    return image.depth == 1 && ((image.table[0] == kBlackPixel && image.table[1] == kWhitePixel) ||
                                (image.table[0] == kWhitePixel && image.table[1] == kBlackPixel));
}

HBITMAP LoadBitmapImage(HINSTANCE module, LPCWSTR name)
{
    const std::span<const std::byte> data = ResourceBytes(module, name, RT_BITMAP);
    if (data.empty()) {
        SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return nullptr;
    }
    const std::optional<Image> picture = ViewOfPackedDib(data);
    if (!picture) {
        SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
        return nullptr;
    }
    const GdiLock lock;
    const int depth = IsBlackAndWhite(*picture) ? 1 : 32; // else like the screen
    const std::shared_ptr<Bitmap> bitmap = MakeBitmap(picture->width, picture->height, depth);
    if (!bitmap)
        return nullptr;
    for (int y = 0; y < picture->height; ++y)
        CopyRow(*picture, y, bitmap->image, y, picture->width);
    return NewBitmapHandle(bitmap);
}

/// One picture of an icon or cursor, as its group lists it.
struct GroupEntry
{
    int width;
    int height;
    int bits;
    WORD id;
};

#pragma pack(push, 1)
struct GroupHeader
{
    WORD reserved;
    WORD kind; // 1 icon, 2 cursor
    WORD count;
};

struct GroupRow
{
    union {
        struct
        {
            BYTE width; // 0 is 256
            BYTE height;
            BYTE colors;
            BYTE reserved;
        } icon;
        struct
        {
            WORD width;
            WORD height; // of picture and mask together
        } cursor;
    };
    WORD planes;
    WORD bits;
    DWORD bytes;
    WORD id;
};
#pragma pack(pop)
static_assert(sizeof(GroupRow) == 14);

std::vector<GroupEntry> EntriesOf(std::span<const std::byte> group, bool cursor)
{
    constexpr int kFullSide = 256;
    GroupHeader header;
    if (group.size() < sizeof header)
        return {};
    std::memcpy(&header, group.data(), sizeof header);
    std::vector<GroupEntry> entries;
    for (size_t i = 0; i < header.count; ++i) {
        const size_t offset = sizeof header + i * sizeof(GroupRow);
        if (group.size() - sizeof header < (i + 1) * sizeof(GroupRow))
            break;
        GroupRow row;
        std::memcpy(&row, group.data() + offset, sizeof row);
        if (cursor)
            entries.push_back({row.cursor.width, row.cursor.height / 2, row.bits, row.id});
        else
            entries.push_back({row.icon.width != 0 ? row.icon.width : kFullSide,
                               row.icon.height != 0 ? row.icon.height : kFullSide, row.bits, row.id});
    }
    return entries;
}

/// The picture nearest to a size; of equally near ones the larger, then the one with most colours.
const GroupEntry* BestEntry(const std::vector<GroupEntry>& entries, int width, int height)
{
    const auto rank = [=](const GroupEntry& entry) {
        const int distance = std::abs(entry.width - width) + std::abs(entry.height - height);
        return std::tuple(distance, -entry.width, -entry.bits);
    };
    const auto best =
        std::min_element(entries.begin(), entries.end(),
                         [=](const auto& first, const auto& second) { return rank(first) < rank(second); });
    return best != entries.end() ? &*best : nullptr;
}

/// What LR_DEFAULTSIZE and LoadIconW mean by no size.
int SideOrDefault(int side, UINT flags)
{
    return side == 0 && (flags & LR_DEFAULTSIZE) != 0 ? kDefaultSide : side;
}

using SharedKey = std::tuple<HINSTANCE, const void*, bool, int, int>;

std::map<SharedKey, HICON>& SharedIcons()
{
    static std::map<SharedKey, HICON> icons;
    return icons;
}

HICON FindShared(const SharedKey& key)
{
    const GdiLock lock;
    const auto found = SharedIcons().find(key);
    return found != SharedIcons().end() ? found->second : nullptr;
}

/// A handle for the picture; a shared one is kept, unless another thread was faster.
HICON KeepIcon(const SharedKey& key, std::shared_ptr<Icon> icon, bool shared)
{
    const GdiLock lock;
    if (!shared)
        return NewIconHandle(std::move(icon), false);
    HICON& kept = SharedIcons()[key];
    if (kept == nullptr)
        kept = NewIconHandle(std::move(icon), true);
    return kept;
}

/// The room's lock is not held while the module is read, because a module may draw while it is being loaded.
HICON LoadIconImage(HINSTANCE module, LPCWSTR name, bool cursor, int width, int height, UINT flags)
{
    const auto group = ResourceBytes(module, name, cursor ? RT_GROUP_CURSOR : RT_GROUP_ICON);
    const int cx = SideOrDefault(width, flags);
    const int cy = SideOrDefault(height, flags);
    const bool shared = (flags & LR_SHARED) != 0;
    const SharedKey key = {module, group.data(), cursor, cx, cy};
    if (const HICON found = shared ? FindShared(key) : nullptr)
        return found;
    const std::vector<GroupEntry> entries = EntriesOf(group, cursor);
    const GroupEntry* const entry =
        BestEntry(entries, cx != 0 ? cx : kDefaultSide, cy != 0 ? cy : kDefaultSide);
    if (entry == nullptr) {
        SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return nullptr;
    }
    const auto data = ResourceBytes(module, MAKEINTRESOURCEW(entry->id), cursor ? RT_CURSOR : RT_ICON);
    std::shared_ptr<Icon> icon = ReadIcon(data, cursor, cx, cy);
    if (!icon) {
        SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
        return nullptr;
    }
    return KeepIcon(key, std::move(icon), shared);
}

/// The system's own icons and cursors, by number. They are told apart by their handles; cursors show nothing.
HICON SystemIcon(LPCWSTR name, bool cursor)
{
    static std::map<std::pair<ULONG_PTR, bool>, HICON> icons;
    const ULONG_PTR number = reinterpret_cast<ULONG_PTR>(name);
    const bool known = cursor ? IsSystemCursor(number) : IsSystemIcon(number);
    if (!known) {
        SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return nullptr;
    }
    const GdiLock lock;
    HICON& icon = icons[{number, cursor}];
    if (icon == nullptr)
        icon = NewIconHandle(MakeSystemIcon(number, cursor), true);
    return icon;
}

} // namespace

void DropSharedIcons()
{
    for (const auto& [key, icon] : SharedIcons())
        DropGdiHandle(icon);
    SharedIcons().clear();
}

} // namespace host

using namespace host;

HANDLE WINAPI LoadImageW(HINSTANCE module, LPCWSTR name, UINT type, int width, int height, UINT flags)
{
    HOST_CALL(LoadImageW, nullptr, ERROR_RESOURCE_NAME_NOT_FOUND);
    // Bitmaps come in their own size only: LoadBitmapW loads them.
    if (name == nullptr || width < 0 || height < 0 || (type != IMAGE_ICON && type != IMAGE_CURSOR)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (module == nullptr)
        return SystemIcon(name, type == IMAGE_CURSOR);
    return LoadIconImage(module, name, type == IMAGE_CURSOR, width, height, flags);
}

HBITMAP WINAPI LoadBitmapW(HINSTANCE module, LPCWSTR name)
{
    HOST_CALL(LoadBitmapW, nullptr, ERROR_RESOURCE_NAME_NOT_FOUND);
    return LoadBitmapImage(module, name);
}

HICON WINAPI LoadIconW(HINSTANCE module, LPCWSTR name)
{
    HOST_CALL(LoadIconW, nullptr, ERROR_RESOURCE_NAME_NOT_FOUND);
    return static_cast<HICON>(LoadImageW(module, name, IMAGE_ICON, 0, 0, LR_DEFAULTSIZE | LR_SHARED));
}

HCURSOR WINAPI LoadCursorW(HINSTANCE module, LPCWSTR name)
{
    HOST_CALL(LoadCursorW, nullptr, ERROR_RESOURCE_NAME_NOT_FOUND);
    return static_cast<HCURSOR>(LoadImageW(module, name, IMAGE_CURSOR, 0, 0, LR_DEFAULTSIZE | LR_SHARED));
}
