#pragma once
// The driver's library, reached as a spooler reaches it: by its file and its exported names.
#include <string>

#include "psui/entry/exports.h"
#include "tools/psuictl/text.h"

namespace psuictl {

/// Windows path of a file of the product in that language: psui.dll or VMLANG.DLL. Throws Failure when it is
/// not there.
WideString ProductFile(const std::string& language, const WCHAR* name);

class DriverLibrary
{
public:
    /// Loads the library of that language. Throws Failure.
    explicit DriverLibrary(const std::string& language);
    ~DriverLibrary();
    DriverLibrary(const DriverLibrary&) = delete;
    DriverLibrary& operator=(const DriverLibrary&) = delete;

    psui::DrvDeviceCapabilitiesFn deviceCapabilities = nullptr;
    psui::DrvConvertDevModeFn convertDevMode = nullptr;

private:
    template <typename Function>
    void Find(Function& function, const char* name);

    HMODULE module_;
};

} // namespace psuictl
