#include "tools/psuictl/library.h"

#include "tools/psuictl/failure.h"
#include "tools/psuictl/files.h"

namespace psuictl {
namespace {

constexpr DWORD kMaxPathUnits = 32768;

WideString ProgramFolder()
{
    WideString path(kMaxPathUnits, 0);
    path.resize(GetModuleFileNameW(nullptr, path.data(), kMaxPathUnits));
    return path.substr(0, path.rfind(WCHAR{'\\'}) + 1);
}

} // namespace

WideString ProductFile(const std::string& language, const WCHAR* name)
{
    const WideString path = ProgramFolder() + Wide(language) + TEXT("\\") + name;
    if (!FileExists(path))
        throw Failure("'" + Utf8(path) + "' is missing; keep psuictl in the folder it was installed in");
    return path;
}

DriverLibrary::DriverLibrary(const std::string& language)
{
    const WideString path = ProductFile(language, TEXT("psui.dll"));
    module_ = LoadLibraryW(path.c_str());
    if (!module_)
        throw Failure("the library '" + Utf8(path) + "' cannot be loaded: " + ErrorWords(GetLastError()) +
                      "; install psuictl again");
    Find(deviceCapabilities, "DrvDeviceCapabilities");
    Find(convertDevMode, "DrvConvertDevMode");
}

DriverLibrary::~DriverLibrary()
{
    FreeLibrary(module_);
}

template <typename Function>
void DriverLibrary::Find(Function& function, const char* name)
{
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
    if (function)
        return;
    FreeLibrary(module_);
    throw Failure(std::string("the library has no entry point ") + name + "; install psuictl again");
}

} // namespace psuictl
