#pragma once
// The library as its callers have it: loaded by path from the product folder, its entry points by name.
#include <string>

#include "psui/base/procedure.h"
#include "psui/entry/exports.h"
#include "tests/entry/printer.h"

namespace test {

class OpenWorld
{
public:
    OpenWorld()
    {
        std::string error;
        EXPECT_TRUE(host::Open({.root = ":memory:"}, &error)) << error;
    }
    ~OpenWorld() { host::Close(); }
};

struct Library
{
    HMODULE module;
    psui::DrvConvertDevModeFn convert;
    psui::DrvDeviceCapabilitiesFn capabilities;

    explicit Library(const std::string& language = "eng")
        : Library(host::WindowsPath(std::string(PSUI_PRODUCT_DIR) + "/" + language + "/psui.dll"))
    {
    }
    explicit Library(const std::u16string& path)
        : module(LoadLibraryW(path.c_str())),
          convert(psui::FindProcedure<psui::DrvConvertDevModeFn>(module, "DrvConvertDevMode")),
          capabilities(psui::FindProcedure<psui::DrvDeviceCapabilitiesFn>(module, "DrvDeviceCapabilities"))
    {
        EXPECT_NE(module, nullptr);
        EXPECT_NE(convert, nullptr);
        EXPECT_NE(capabilities, nullptr);
    }
};

constexpr DWORD kFailed = static_cast<DWORD>(-1);

/// Bytes of an output entry of that capability; 0 when it writes none.
inline size_t EntryBytes(WORD capability)
{
    switch (capability) {
    case DC_PAPERS:
    case DC_BINS:
    case DC_FILEDEPENDENCIES:
        return 2;
    case DC_PAPERSIZE:
        return 8;
    case DC_BINNAMES:
        return 48;
    case DC_PAPERNAMES:
    case DC_MEDIAREADY:
    case DC_MEDIATYPENAMES:
        return 128;
    case DC_MEDIATYPES:
        return 4;
    default:
        return 0;
    }
}

} // namespace test
