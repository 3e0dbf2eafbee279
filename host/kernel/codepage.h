#pragma once

namespace host {

/// The system's code page is 1252 again.
void ResetCodePage();

} // namespace host
