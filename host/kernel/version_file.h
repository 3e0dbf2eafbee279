#pragma once
// The version resource in a module file, read without loading the module.
#include <cstddef>
#include <vector>

#include <windows.h>

namespace host {

/// Reads resource VS_VERSION_INFO of type VS_FILE_INFO from a module of the layer (a shared object with its
/// compiled resources) or of the platform (a portable executable). Returns 0, ERROR_RESOURCE_DATA_NOT_FOUND
/// for a file that is neither or has no resources, ERROR_RESOURCE_TYPE_NOT_FOUND for one without that
/// resource, or the code of the file error.
DWORD ReadVersionResource(LPCWSTR fileName, std::vector<std::byte>& resource);

} // namespace host
