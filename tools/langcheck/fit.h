#pragma once
// Whether texts fit their controls.
#include <functional>

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

/// Picture controls that are smaller than their bitmap. The meter is that of the smallest display.
void CheckPictures(const Language& language, const Facts& facts, const Meter& meter, Findings& findings);

} // namespace langcheck
