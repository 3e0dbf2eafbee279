#include "host/spooler/driver_files.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "host/spooler/spooler.h"

namespace host::spooler {
namespace {

namespace fs = std::filesystem;

constexpr size_t kCompareBlock = 65536; // bytes

DWORD CodeOf(const std::error_code& code)
{
    if (code == std::errc::no_space_on_device)
        return ERROR_DISK_FULL;
    if (code == std::errc::no_such_file_or_directory)
        return ERROR_FILE_NOT_FOUND;
    return ERROR_ACCESS_DENIED;
}

std::u16string Inside(std::u16string_view folder, std::u16string_view fileName)
{
    std::u16string path(folder);
    path += u'\\';
    path += fileName;
    return path;
}

bool IsFile(const fs::path& path)
{
    std::error_code ignored;
    return !path.empty() && fs::is_regular_file(path, ignored);
}

// Where a file comes from, or an empty path.
fs::path FindSource(std::u16string_view path)
{
    std::u16string name = FileNamePart(path);
    if (name.empty())
        return {};
    std::u16string candidates[] = {std::u16string(path), u""};
    if (name.size() == path.size()) {
        candidates[0] = Inside(kDriverDirectory, name);
        candidates[1] = InstalledPath(name);
    }
    for (const std::u16string& candidate : candidates) {
        fs::path native = candidate.empty() ? fs::path() : fs::path(NativePath(candidate));
        if (IsFile(native))
            return native;
    }
    return {};
}

bool SameBytes(const fs::path& first, const fs::path& second)
{
    std::error_code code;
    if (fs::file_size(first, code) != fs::file_size(second, code) || code)
        return false;
    std::ifstream a(first, std::ios::binary), b(second, std::ios::binary);
    std::array<char, kCompareBlock> left, right;
    while (a && b) {
        a.read(left.data(), left.size());
        b.read(right.data(), right.size());
        if (a.gcount() != b.gcount() || !std::equal(left.begin(), left.begin() + a.gcount(), right.begin()))
            return false;
    }
    return a.eof() && b.eof();
}

bool IsCurrent(const fs::path& source, const fs::path& target, bool onlyNewer)
{
    if (!IsFile(target))
        return false;
    std::error_code code;
    if (onlyNewer && fs::last_write_time(target, code) > fs::last_write_time(source, code) && !code)
        return true;
    return SameBytes(source, target);
}

fs::path TemporaryName(const fs::path& target)
{
    static std::atomic<unsigned> serial = 0;
    fs::path name = target;
    name += ".new-" + std::to_string(getpid()) + "-" + std::to_string(serial++);
    return name;
}

DWORD Replace(const fs::path& source, const fs::path& target)
{
    fs::path fresh = TemporaryName(target);
    std::error_code code;
    fs::copy_file(source, fresh, code);
    if (!code)
        fs::last_write_time(fresh, fs::last_write_time(source, code), code);
    if (!code)
        fs::rename(fresh, target, code);
    if (!code)
        return ERROR_SUCCESS;
    std::error_code ignored;
    fs::remove(fresh, ignored);
    return CodeOf(code);
}

struct Copy
{
    fs::path source;
    fs::path target;
};

} // namespace

std::u16string FileNamePart(std::u16string_view path)
{
    size_t end = path.find_last_of(u"\\/:");
    return std::u16string(end == path.npos ? path : path.substr(end + 1));
}

std::u16string InstalledPath(std::u16string_view fileName)
{
    return Inside(kDriverFiles, fileName);
}

DWORD InstallFiles(const std::vector<std::u16string>& paths, bool onlyNewer)
{
    std::vector<Copy> copies;
    for (const std::u16string& path : paths) {
        fs::path source = FindSource(path);
        if (source.empty())
            return ERROR_FILE_NOT_FOUND;
        copies.push_back({source, NativePath(InstalledPath(FileNamePart(path)))});
    }
    for (const Copy& copy : copies) {
        if (IsCurrent(copy.source, copy.target, onlyNewer))
            continue;
        if (DWORD error = Replace(copy.source, copy.target))
            return error;
    }
    return ERROR_SUCCESS;
}

DWORD RemoveInstalledFile(std::u16string_view fileName)
{
    std::error_code code;
    fs::remove(NativePath(InstalledPath(fileName)), code);
    return code ? CodeOf(code) : ERROR_SUCCESS;
}

} // namespace host::spooler
