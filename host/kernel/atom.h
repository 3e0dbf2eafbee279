#pragma once
#include <string>

namespace host {

/// Makes the table of global atoms, which the processes of a root share.
bool OpenAtoms(std::string* error);

} // namespace host
