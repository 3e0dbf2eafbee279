#pragma once
// Whether texts fit their controls.
#include <filesystem>
#include <functional>
#include <map>

#include "tools/langcheck/checks.h"

namespace langcheck {

struct Extent
{
    int width, height;
};

/// How a dialog's font measures on a display of some dots per inch. All results in pixels.
struct Meter
{
    int dpi;
    Extent base;                                              ///< four by eight dialog units
    std::function<Extent(WideView text, int wrapWidth)> size; ///< on one line when wrapWidth is 0
};

/// Texts of the templates, and those that the code writes into controls, that are cut off.
void CheckFit(const Language& language, const Facts& facts, const Meter& meter, Findings& findings);

/// Sizes of the library's bitmaps, by id, in pixels.
using PictureSizes = std::map<unsigned, Extent>;

/// The sizes of the bitmap files ID.bmp of a folder; unreadable ones are left out.
PictureSizes ReadPictureSizes(const std::filesystem::path& folder);

/// Picture controls that are smaller than their bitmap, and those without one. The meter is that of the
/// smallest display.
void CheckPictures(const Language& language, const Facts& facts, const PictureSizes& sizes,
                   const Meter& meter, Findings& findings);

} // namespace langcheck
