#pragma once
// What the programs that write seeds share.
#include <filesystem>
#include <fstream>
#include <string>

namespace fuzz {

inline void WriteSeed(const std::filesystem::path& path, const std::string& bytes)
{
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

template <typename Value>
std::string BytesOf(const Value& value)
{
    return std::string(reinterpret_cast<const char*>(&value), sizeof(value));
}

} // namespace fuzz
