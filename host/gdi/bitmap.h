#pragma once
// Making bitmaps, for the functions that load pictures.
#include <memory>

#include "host/gdi/dib.h"
#include "host/gdi/object.h"

namespace host {

/// A bitmap of the program's, all bits zero: monochrome when `depth` is 1. Null, with the last error set, on
/// nonsense sizes or missing memory.
std::shared_ptr<Bitmap> MakeBitmap(int width, int height, int depth);

/// A DIB section of the image's own depth and colours. Null as above.
std::shared_ptr<Bitmap> MakeSection(const DibFormat& format, const BITMAPINFOHEADER& header,
                                    std::vector<uint32_t> table);

/// Null for null.
HBITMAP NewBitmapHandle(std::shared_ptr<Bitmap> bitmap);

} // namespace host
