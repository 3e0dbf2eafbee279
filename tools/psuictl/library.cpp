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

WideString ProductFolder(const std::string& language)
{
    return ProgramFolder() + Wide(language) + TEXT("\\");
}

WideString ProductFile(const std::string& language, const WCHAR* name)
{
    const WideString path = ProductFolder(language) + name;
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
}

DriverLibrary::~DriverLibrary()
{
    FreeLibrary(module_);
}

void* DriverLibrary::Address(const char* name) const
{
    void* const address = reinterpret_cast<void*>(GetProcAddress(module_, name));
    if (!address)
        throw Failure(std::string("this library does not export ") + name +
                      "; use the library that belongs to this psuictl");
    return address;
}

} // namespace psuictl
