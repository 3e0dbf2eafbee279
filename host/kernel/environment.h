#pragma once

namespace host {

/// The environment is that of a freshly started process again.
void ResetEnvironment();

} // namespace host
