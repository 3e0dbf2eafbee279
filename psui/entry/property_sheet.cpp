#include "psui/entry/property_sheet.h"

#include "psui/base/procedure.h"

namespace psui {

namespace {

class LoadedModule
{
public:
    explicit LoadedModule(const WCHAR* name) : module_(LoadLibraryW(name)) {}
    ~LoadedModule()
    {
        if (module_)
            FreeLibrary(module_);
    }
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    template <typename Function>
    Function Find(const char* name) const
    {
        return module_ ? FindProcedure<Function>(module_, name) : nullptr;
    }

private:
    HMODULE module_;
};

using CommonPropertySheetFn = LONG(WINAPI*)(HWND parent, PropSheetUiFn sheet, LPARAM header, DWORD* result);

} // namespace

LONG CallCommonPropertySheet(HWND parent, PropSheetUiFn sheet, LPARAM header, DWORD* result)
{
    const LoadedModule common(TEXT("compstui.dll"));
    const auto run = common.Find<CommonPropertySheetFn>("CommonPropertySheetUIW");
    return run ? run(parent, sheet, header, result) : -1;
}

} // namespace psui
