#include "psui/base/paths.h"

#include <iterator>
#include <string_view>

#include <winspool.h>

#include "psui/base/format.h"
#include "psui/base/module.h"

namespace psui {

bool PrinterDriverDirectory(PathText& path)
{
    DWORD needed = 0;
    if (GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(path), sizeof(path),
                                   &needed) &&
        path[0])
        return true;
    path[0] = 0;
    return false;
}

bool PathBesideLibrary(const WCHAR* name, PathText& path)
{
    PathText library;
    const DWORD length = GetModuleFileNameW(hOwnModule, library, std::size(library));
    path[0] = 0;
    if (length == 0 || length >= std::size(library))
        return false;
    const std::basic_string_view<WCHAR> text(library, length);
    return JoinText(path, {text.substr(0, text.rfind('\\') + 1), name});
}

} // namespace psui
