#pragma once
#include <windows.h>

namespace host {

class ResourceIndex;

/// A module's resources, which stay as long as the module; null for a handle that is none and for the running
/// program.
const ResourceIndex* ResourcesOf(HMODULE module);

/// Tells every loaded module that the process ends, last loaded first, and unloads all.
void DetachAllModules();

} // namespace host
