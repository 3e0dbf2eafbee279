#pragma once
// FILE arguments: ordinary paths of this machine, paths inside the host (drive letter and colon), and "-" for
// the standard streams.
#include <cstdint>
#include <string>
#include <vector>

#include "tools/psuictl/text.h"

namespace psuictl {

using Bytes = std::vector<uint8_t>;

/// Largest file that is read. Model descriptions and settings records stay far below.
constexpr uint64_t kMaxFileBytes = 64 * 1024 * 1024;

/// The platform's path of a FILE argument other than "-".
WideString HostPath(const std::string& file);

/// Whether the path names an existing file.
bool FileExists(const WideString& path);

/// The whole file, or standard input. Throws Failure.
Bytes LoadFile(const std::string& file);
Bytes LoadHostFile(const WideString& path);

/// Writes the whole file, or standard output. Throws Failure; a file that could not be written whole is
/// removed.
void SaveFile(const std::string& file, const void* bytes, size_t size);

/// Makes a folder and those above it where they are missing. What cannot be made shows itself when it is
/// used.
void MakeFolder(const std::string& folder);

/// The part of a path after the last backslash, and that part without its last extension.
WideString FileName(const WideString& path);
WideString FileStem(const WideString& path);

} // namespace psuictl
