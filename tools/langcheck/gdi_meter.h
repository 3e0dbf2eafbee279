#pragma once
// Measures with the platform's own text output.
#include <memory>

#include "tools/langcheck/fit.h"

namespace langcheck {

/// A meter for a dialog font on a display of `dpi` dots per inch. Null when the platform has no such font.
/// The meter owns a device context and a font for as long as it lives.
std::unique_ptr<Meter> MakeGdiMeter(const WideString& face, int points, int dpi);

} // namespace langcheck
