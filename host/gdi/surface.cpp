#include "host/gdi/surface.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <new>

#include <png.h>

#include "host/gdi/image.h"
#include "host/gdi/region.h"

namespace host {
namespace {

struct CloseFile
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};

} // namespace

std::shared_ptr<Surface> MakeSurface(int width, int height)
try {
    if (width <= 0 || height <= 0 || width > kMaxImageSide || height > kMaxImageSide)
        return nullptr;
    const size_t count = static_cast<size_t>(width) * static_cast<size_t>(height);
    return std::make_shared<Surface>(width, height, std::vector<uint32_t>(count, kBlackPixel));
} catch (const std::bad_alloc&) {
    return nullptr;
}

void CopySurface(Surface& to, POINT position, const Surface& from, const RECT& source)
{
    const POINT shift = {position.x - source.left, position.y - source.top};
    RECT area = Intersection(source, {0, 0, from.Width(), from.Height()});
    area = Intersection(Moved(area, shift), {0, 0, to.Width(), to.Height()});
    const size_t bytes = static_cast<size_t>(area.right - area.left) * sizeof(uint32_t);
    const bool upwards = &to == &from && shift.y > 0; // so that rows are read before they are written
    for (LONG i = 0; i < area.bottom - area.top; ++i) {
        const LONG y = upwards ? area.bottom - 1 - i : area.top + i;
        std::memmove(to.Row(y) + area.left, from.Row(y - shift.y) + area.left - shift.x, bytes);
    }
}

bool WritePng(const Surface& surface, const std::filesystem::path& file)
{
    const std::unique_ptr<std::FILE, CloseFile> stream(std::fopen(file.c_str(), "wb"));
    if (!stream)
        return false;
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(surface.Width());
    image.height = static_cast<png_uint_32>(surface.Height());
    image.format = PNG_FORMAT_BGR;
    std::vector<uint8_t> bytes;
    bytes.reserve(size_t{3} * image.width * image.height);
    for (int y = 0; y < surface.Height(); ++y) {
        for (const uint32_t* pixel = surface.Row(y); pixel != surface.Row(y) + surface.Width(); ++pixel) {
            for (const int shift : {0, 8, 16})
                bytes.push_back(static_cast<uint8_t>(*pixel >> shift));
        }
    }
    const bool written = png_image_write_to_stdio(&image, stream.get(), 0, bytes.data(), 0, nullptr) != 0;
    return written && std::fflush(stream.get()) == 0;
}

} // namespace host
