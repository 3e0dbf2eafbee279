#include "host/gdi/blit.h"

#include <algorithm>
#include <cstring>

#include "host/gdi/dib.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"

namespace host {
namespace {

/// Where the pixels along one axis of the target come from.
struct Axis
{
    int first = 0;            // the target's coordinate that the first entry is for
    std::vector<int> sources; // the source's coordinates; -1 outside of it

    int At(int target) const { return sources[static_cast<size_t>(target - first)]; }
    int End() const { return first + static_cast<int>(sources.size()); }
};

/// Every pixel takes the source's one below its centre; nothing is averaged.
Axis MakeAxis(int to, int toLength, int from, int fromLength, int sourceSize)
{
    const int count = std::abs(toLength);
    const int64_t available = std::abs(fromLength);
    const bool mirrored = (toLength < 0) != (fromLength < 0);
    Axis axis;
    axis.first = toLength < 0 ? to + toLength : to;
    const int64_t begin = fromLength < 0 ? int64_t{from} + fromLength : from;
    axis.sources.resize(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i) {
        const int place = mirrored ? count - 1 - i : i;
        const int64_t source = begin + (2 * int64_t{place} + 1) * available / (2 * int64_t{count});
        axis.sources[static_cast<size_t>(i)] =
            source >= 0 && source < sourceSize ? static_cast<int>(source) : -1;
    }
    return axis;
}

/// The target's part that the source has pixels for: they are in one piece.
void TrimAxis(const Axis& axis, LONG& begin, LONG& end)
{
    begin = std::max<LONG>(begin, axis.first);
    end = std::min<LONG>(end, axis.End());
    while (begin < end && axis.At(begin) < 0)
        ++begin;
    while (begin < end && axis.At(end - 1) < 0)
        --end;
}

bool IsSequence(const Axis& axis, LONG begin, LONG end)
{
    return begin < end && axis.At(end - 1) - axis.At(begin) == end - 1 - begin &&
           (end - begin < 2 || axis.At(begin + 1) == axis.At(begin) + 1);
}

bool SharesMemory(const Image& first, const Image& second)
{
    return first.top == second.top && first.stride == second.stride;
}

/// A copy with 32 bits a pixel, for sources that are drawn on themselves.
Image CopyOf(const Image& image)
{
    Image copy;
    if (!MakeImage(copy, image.width, image.height, image.depth, 4, false))
        return image;
    copy.monochrome = image.monochrome;
    copy.table = image.table;
    for (int y = 0; y < image.height; ++y)
        std::memcpy(copy.top + copy.stride * y, image.top + image.stride * y,
                    static_cast<size_t>(RowBytes(image.width, image.depth, 1)));
    return copy;
}

class Transferrer
{
public:
    Transferrer(DeviceContext& dc, const Image& source, Axis columns, Axis rows, const TransferColors& colors,
                RasterTable table)
        : target_(dc.Target()), source_(source), columns_(std::move(columns)), rows_(std::move(rows)),
          colors_(colors), table_(table), ink_(InkOf(dc, *dc.state.brush.Get()))
    {
    }

    void Part(RECT area)
    {
        TrimAxis(columns_, area.left, area.right);
        TrimAxis(rows_, area.top, area.bottom);
        if (IsEmpty(area))
            return;
        sequence_ = IsSequence(columns_, area.left, area.right);
        for (LONG y = area.top; y < area.bottom; ++y)
            Row(y, area.left, area.right - area.left);
    }

private:
    void Row(int y, int left, int count)
    {
        const RowUse use = table_ == kCopySource ? RowUse::Write : RowUse::Change;
        const RowAccess to(target_, y, left, count, use);
        const int sourceY = rows_.At(y);
        if (sequence_ && table_ == kCopySource && !NeedsColors()) {
            const RowAccess from(source_, sourceY, columns_.At(left), count, RowUse::Read);
            std::copy_n(from.Pixels(), count, to.Pixels());
            return;
        }
        Gather(sourceY, left, count);
        if (NeedsColors())
            Color();
        const uint32_t* pattern = nullptr;
        if (UsesPattern(table_)) {
            pattern_.assign(static_cast<size_t>(count), ink_.color);
            if (ink_.tileWidth != 0)
                ink_.Fill(pattern_.data(), left, y, count);
            pattern = pattern_.data();
        }
        CombineRow(table_, to.Pixels(), pixels_.data(), pattern, count);
    }

    bool NeedsColors() const { return source_.monochrome != target_.monochrome; }

    void Gather(int sourceY, int left, int count)
    {
        const RowAccess from(source_, sourceY, 0, source_.width, RowUse::Read);
        pixels_.resize(static_cast<size_t>(count));
        for (int i = 0; i < count; ++i)
            pixels_[static_cast<size_t>(i)] = from.Pixels()[columns_.At(left + i)] & kColorBits;
    }

    void Color()
    {
        for (uint32_t& pixel : pixels_) {
            if (source_.monochrome)
                pixel = pixel == kBlackPixel ? colors_.black : colors_.white;
            else if (colors_.keyed)
                pixel = pixel == colors_.key ? kWhitePixel : kBlackPixel;
        }
    }

    const Image& target_;
    const Image& source_;
    Axis columns_;
    Axis rows_;
    TransferColors colors_;
    RasterTable table_;
    Ink ink_;
    bool sequence_ = false;
    std::vector<uint32_t> pixels_;
    std::vector<uint32_t> pattern_;
};

void FillPattern(DeviceContext& dc, const Frame& frame, RasterTable table)
{
    const Frame area = OnSurface(dc, frame);
    Painter painter(dc, InkOf(dc, *dc.state.brush.Get()), table);
    painter.Rect(Ordered({area.x, area.y, area.x + area.width, area.y + area.height}));
}

bool Stretch(HDC handle, const Frame& to, HDC sourceHandle, const Frame& from, DWORD operation)
{
    const LockedDc dc(handle);
    if (!dc)
        return false;
    const RasterTable table = TableOf(operation);
    if (!UsesSource(table)) {
        FillPattern(*dc, to, table);
        return true;
    }
    const LockedDc source(sourceHandle);
    if (!source)
        return false;
    TransferColors colors;
    colors.black = dc->PixelOf(dc->state.textColor);
    colors.white = dc->PixelOf(dc->state.backColor);
    colors.keyed = true;
    colors.key = source->PixelOf(source->state.backColor);
    const bool onItself = SharesMemory(source->Target(), dc->Target());
    const Image image = onItself ? CopyOf(source->Target()) : source->Target();
    Transfer(*dc, OnSurface(*dc, to), image, OnSurface(*source, from), colors, table);
    return true;
}

/// The view of a DIB that a program hands in; nothing when it is not sound.
std::optional<Image> ProgramDib(const DeviceContext& dc, const void* bits, const BITMAPINFO* info, UINT usage)
{
    if (bits == nullptr || info == nullptr)
        return {};
    const std::optional<DibFormat> format = ReadDibHeader(info->bmiHeader);
    if (!format)
        return {};
    return ViewOf(*format, bits, ReadColorTable(info, *format, usage, *dc.state.palette.Get()));
}

} // namespace

Frame OnSurface(const DeviceContext& dc, const Frame& frame)
{
    const POINT corner = dc.ToSurface(POINT{frame.x, frame.y});
    return {corner.x, corner.y, frame.width, frame.height};
}

void Transfer(DeviceContext& dc, const Frame& to, const Image& source, const Frame& from,
              const TransferColors& colors, RasterTable table)
{
    constexpr int kMaxSide = 0x10000; // what a surface can hold, twice
    if (to.width == 0 || to.height == 0 || std::abs(int64_t{to.width}) > kMaxSide ||
        std::abs(int64_t{to.height}) > kMaxSide)
        return;
    Transferrer transferrer(dc, source, MakeAxis(to.x, to.width, from.x, from.width, source.width),
                            MakeAxis(to.y, to.height, from.y, from.height, source.height), colors, table);
    for (const RECT& part : dc.Reach().Rects())
        transferrer.Part(part);
}

} // namespace host

using namespace host;

BOOL WINAPI PatBlt(HDC handle, int x, int y, int width, int height, DWORD operation)
{
    HOST_CALL_VOID(PatBlt);
    const LockedDc dc(handle);
    if (!dc || UsesSource(TableOf(operation)))
        return FALSE;
    FillPattern(*dc, {x, y, width, height}, TableOf(operation));
    return TRUE;
}

BOOL WINAPI BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                   DWORD operation)
{
    HOST_CALL_VOID(BitBlt);
    return Stretch(dc, {x, y, width, height}, source, {sourceX, sourceY, width, height}, operation);
}

BOOL WINAPI StretchBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                       int sourceWidth, int sourceHeight, DWORD operation)
{
    HOST_CALL_VOID(StretchBlt);
    return Stretch(dc, {x, y, width, height}, source, {sourceX, sourceY, sourceWidth, sourceHeight},
                   operation);
}

int WINAPI StretchDIBits(HDC handle, int x, int y, int width, int height, int sourceX, int sourceY,
                         int sourceWidth, int sourceHeight, const VOID* bits, const BITMAPINFO* info,
                         UINT usage, DWORD operation)
{
    HOST_CALL_VOID(StretchDIBits);
    const LockedDc dc(handle);
    if (!dc)
        return 0;
    const std::optional<Image> image = ProgramDib(*dc, bits, info, usage);
    if (!image)
        return FailWith(ERROR_INVALID_PARAMETER);
    // Rows are counted from the end where the memory begins.
    const bool bottomUp = image->stride < 0;
    const int top = bottomUp ? image->height - sourceY - sourceHeight : sourceY;
    Transfer(*dc, OnSurface(*dc, {x, y, width, height}), *image, {sourceX, top, sourceWidth, sourceHeight},
             {}, TableOf(operation));
    return image->height;
}

int WINAPI SetDIBitsToDevice(HDC handle, int x, int y, DWORD width, DWORD height, int sourceX, int sourceY,
                             UINT startScan, UINT scanCount, const VOID* bits, const BITMAPINFO* info,
                             UINT usage)
{
    HOST_CALL_VOID(SetDIBitsToDevice);
    const LockedDc dc(handle);
    if (!dc || bits == nullptr || info == nullptr)
        return 0;
    std::optional<DibFormat> format = ReadDibHeader(info->bmiHeader);
    if (!format || startScan >= static_cast<UINT>(format->height))
        return FailWith(ERROR_INVALID_PARAMETER);
    const int wholeHeight = format->height;
    const int start = static_cast<int>(startScan);
    format->height = static_cast<int>(std::min(scanCount, static_cast<UINT>(wholeHeight - start)));
    if (format->height == 0)
        return 0;
    const Image image = ViewOf(*format, bits, ReadColorTable(info, *format, usage, *dc->state.palette.Get()));
    const int cx = static_cast<int>(std::min<DWORD>(width, INT16_MAX));
    const int cy = static_cast<int>(std::min<DWORD>(height, INT16_MAX));
    // The source's row that belongs to the target's top, counted from the top of the rows that are here.
    const int top = format->bottomUp ? start + format->height - sourceY - cy : sourceY - start;
    Transfer(*dc, OnSurface(*dc, {x, y, cx, cy}), image, {sourceX, top, cx, cy}, {}, kCopySource);
    return format->height;
}
