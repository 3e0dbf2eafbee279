#pragma once
// What other drawing functions share with the rectangles.
#include <memory>

#include "host/gdi/dc.h"
#include "host/gdi/paint.h"

namespace host {

/// A brush by its handle, or by a system colour's number plus 1 as window classes give it. Null, with
/// ERROR_INVALID_HANDLE set, when it is neither.
std::shared_ptr<Brush> BrushOf(HBRUSH handle);

/// Fills a rectangle in logical coordinates.
void FillColor(DeviceContext& dc, const RECT& rect, COLORREF color);

} // namespace host
