#pragma once
#include <string>

namespace host {

/// Who the calling thread runs as when that is the spooler's own user, else empty.
std::u16string SpoolerUserOfThread();

} // namespace host
