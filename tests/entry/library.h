#pragma once
// The library as its callers have it: loaded by path from the product folder, its entry points by name.
#include <string>

#include "psui/base/procedure.h"
#include "psui/entry/exports.h"
#include "psui/settings/devmode.h"
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

    psui::DriverDevMode DefaultRecord(WCHAR* printer) const
    {
        alignas(8) psui::DriverDevMode record;
        LONG size = sizeof(record);
        EXPECT_TRUE(convert(printer, nullptr, &record.dmPublic, &size, psui::kDriverDefault));
        EXPECT_EQ(size, 1852);
        return record;
    }
    DWORD Ask(Printer& printer, WORD capability, void* output = nullptr, DEVMODEW* record = nullptr) const
    {
        return capabilities(printer.handle(), printer.name(), capability, output, record);
    }
};

constexpr DWORD kFailed = static_cast<DWORD>(-1);

} // namespace test
