// Pictures from modules' resources and from files.
#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <string>
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
constexpr DWORD kMaxFileBytes = 1u << 28;

std::span<const std::byte> ResourceBytes(HINSTANCE module, LPCWSTR name, LPCWSTR type)
{
    const HRSRC resource = FindResourceW(module, name, type);
    if (resource == nullptr)
        return {};
    const auto* const bytes = static_cast<const std::byte*>(LockResource(LoadResource(module, resource)));
    return {bytes, bytes != nullptr ? SizeofResource(module, resource) : 0};
}

/// The bytes of a file; none when it cannot be read.
std::vector<std::byte> FileBytes(LPCWSTR path)
{
    const HANDLE file = CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return {};
    const DWORD size = GetFileSize(file, nullptr);
    std::vector<std::byte> bytes(size < kMaxFileBytes ? size : 0);
    DWORD count = 0;
    if (!ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr))
        count = 0;
    bytes.resize(count);
    CloseHandle(file);
    return bytes;
}

/// The image in a bitmap file, which must stay in memory.
std::optional<Image> ImageInFile(std::span<const std::byte> file)
{
    constexpr WORD kMark = 0x4D42; // "BM"
    BITMAPFILEHEADER header;
    if (file.size() < sizeof header)
        return {};
    std::memcpy(&header, file.data(), sizeof header);
    if (header.bfType != kMark || header.bfOffBits < sizeof header)
        return {};
    return ViewOfPackedDib(file.subspan(sizeof header), header.bfOffBits - sizeof header);
}

/// Colours that LR_LOADMAP3DCOLORS exchanges.
constexpr struct
{
    uint32_t pixel;
    int systemColor;
} kMappedColors[] = {
    {0x808080, COLOR_3DSHADOW},
    {0xC0C0C0, COLOR_3DFACE},
    {0xDFDFDF, COLOR_3DLIGHT},
};

void MapColors(Image& image, UINT flags)
{
    if ((flags & LR_LOADMAP3DCOLORS) != 0) {
        for (uint32_t& pixel : image.table) {
            for (const auto& row : kMappedColors) {
                if (row.pixel == pixel)
                    pixel = ExchangeRedBlue(GetSysColor(row.systemColor));
            }
        }
    }
    if ((flags & LR_LOADTRANSPARENT) != 0 && !image.table.empty()) {
        const uint32_t first = RowAccess(image, 0, 0, 1, RowUse::Read).Pixels()[0];
        std::replace(image.table.begin(), image.table.end(), first,
                     ExchangeRedBlue(GetSysColor(COLOR_WINDOW)));
    }
}

bool IsBlackAndWhite(const Image& image)
{
    return image.depth == 1 && ((image.table[0] == kBlackPixel && image.table[1] == kWhitePixel) ||
                                (image.table[0] == kWhitePixel && image.table[1] == kBlackPixel));
}

/// A bitmap for the size wanted: a section that keeps the picture's depth and colours, or one like the
/// screen.
std::shared_ptr<Bitmap> BitmapFor(const Image& picture, int width, int height, UINT flags)
{
    if ((flags & LR_CREATEDIBSECTION) == 0)
        return MakeBitmap(width, height, IsBlackAndWhite(picture) || (flags & LR_MONOCHROME) != 0 ? 1 : 32);
    BITMAPINFOHEADER header = {};
    header.biSize = sizeof header;
    header.biWidth = width;
    header.biHeight = height;
    header.biPlanes = 1;
    header.biBitCount = static_cast<WORD>(picture.depth);
    const std::optional<DibFormat> format = ReadDibHeader(header);
    return format ? MakeSection(*format, header, picture.table) : nullptr;
}

HBITMAP LoadPicture(std::optional<Image> picture, int width, int height, UINT flags)
{
    if (!picture) {
        SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
        return nullptr;
    }
    const GdiLock lock;
    MapColors(*picture, flags);
    const int cx = width > 0 ? width : picture->width;
    const int cy = height > 0 ? height : picture->height;
    const std::shared_ptr<Bitmap> bitmap = BitmapFor(*picture, cx, cy, flags);
    if (!bitmap)
        return nullptr;
    for (int y = 0; y < cy; ++y) {
        const int fromY = static_cast<int>(int64_t{y} * picture->height / cy);
        const RowAccess from(*picture, fromY, 0, picture->width, RowUse::Read);
        const RowAccess to(bitmap->image, y, 0, cx, RowUse::Write);
        for (int x = 0; x < cx; ++x)
            to.Pixels()[x] = from.Pixels()[int64_t{x} * picture->width / cx];
    }
    return NewBitmapHandle(bitmap);
}

HANDLE LoadBitmapImage(HINSTANCE module, LPCWSTR name, int width, int height, UINT flags)
{
    if ((flags & LR_LOADFROMFILE) != 0) {
        const std::vector<std::byte> file = FileBytes(name);
        return LoadPicture(ImageInFile(file), width, height, flags);
    }
    const std::span<const std::byte> data = ResourceBytes(module, name, RT_BITMAP);
    if (data.empty()) {
        SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return nullptr;
    }
    return LoadPicture(ViewOfPackedDib(data), width, height, flags);
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
    if (name == nullptr || width < 0 || height < 0 || type > IMAGE_CURSOR) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (type == IMAGE_BITMAP)
        return LoadBitmapImage(module, name, width, height, flags);
    if (module == nullptr && (flags & LR_LOADFROMFILE) == 0)
        return SystemIcon(name, type == IMAGE_CURSOR);
    return LoadIconImage(module, name, type == IMAGE_CURSOR, width, height, flags);
}

HBITMAP WINAPI LoadBitmapW(HINSTANCE module, LPCWSTR name)
{
    HOST_CALL(LoadBitmapW, nullptr, ERROR_RESOURCE_NAME_NOT_FOUND);
    return static_cast<HBITMAP>(LoadImageW(module, name, IMAGE_BITMAP, 0, 0, 0));
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
