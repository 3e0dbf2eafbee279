#pragma once

namespace host {

/// Unmaps every view that is still mapped.
void CloseAllViews();

} // namespace host
