#pragma once
// The driver's library, reached as a spooler reaches it: by its file and its exported names.
#include <string>

#include "psui/entry/exports.h"
#include "tools/psuictl/text.h"

namespace psuictl {

/// Windows path, with a backslash at its end, of the folder that holds the product in that language.
WideString ProductFolder(const std::string& language);

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

    /// The entry point of that name. Throws Failure when the library exports none.
    template <typename Function>
    Function Entry(const char* name) const
    {
        return reinterpret_cast<Function>(Address(name));
    }

private:
    void* Address(const char* name) const;

    HMODULE module_;
};

} // namespace psuictl
