#include "tools/psuictl/sheet_run.h"

#include <cstddef>

#include <prsht.h>

#include "tools/psuictl/failure.h"

namespace psuictl {
namespace {

using CommonPropertySheetFn = LONG(WINAPI*)(HWND owner, psui::PropSheetUiFn function, LPARAM param,
                                            DWORD* result);

constexpr UINT kAddPage = 1; // service: add the property-sheet page whose record is the first parameter

/// The template of a page without controls, in the platform's layout.
struct EmptyPage
{
    DWORD style = WS_CHILD | WS_CAPTION;
    DWORD extendedStyle = 0;
    WORD itemCount = 0;
    SHORT left = 0, top = 0, width = 200, height = 100; // dialog units
    WORD menu = 0, windowClass = 0;
    WCHAR title = 0;
};
static_assert(offsetof(EmptyPage, menu) == sizeof(DLGTEMPLATE));

constexpr EmptyPage kEmptyPage;

INT_PTR CALLBACK EmptyPageProc(HWND, UINT, WPARAM, LPARAM)
{
    return FALSE;
}

class CommonUiModule
{
public:
    CommonUiModule() : module_(LoadLibraryW(TEXT("compstui.dll"))) {}
    ~CommonUiModule()
    {
        if (module_)
            FreeLibrary(module_);
    }
    CommonUiModule(const CommonUiModule&) = delete;
    CommonUiModule& operator=(const CommonUiModule&) = delete;

    CommonPropertySheetFn Function() const
    {
        FARPROC const found = module_ ? GetProcAddress(module_, "CommonPropertySheetUIW") : nullptr;
        if (!found)
            throw Failure("the system has no common property-sheet UI for printers; install compstui.dll");
        return reinterpret_cast<CommonPropertySheetFn>(reinterpret_cast<void*>(found));
    }

private:
    HMODULE module_;
};

} // namespace

CommonSheet* CommonSheet::current_ = nullptr;

CommonSheet::CommonSheet(psui::PropSheetUiFn function, LPARAM header, size_t pages)
    : function_(function), header_(header), pages_(pages)
{
    current_ = this;
}

CommonSheet::~CommonSheet()
{
    current_ = nullptr;
}

SheetRun CommonSheet::Run()
{
    const CommonUiModule module;
    DWORD result = 0;
    const LONG answer = module.Function()(nullptr, Forward, header_, &result);
    userData_ = 0;
    return {answer, result, initialised_};
}

LONG WINAPI CommonSheet::Forward(psui::PropSheetUiInfo* info, LPARAM param)
{
    return current_->Note(*info, param);
}

LONG CommonSheet::Note(psui::PropSheetUiInfo& info, LPARAM param)
{
    const LONG answer = function_(&info, param);
    if (info.Reason == psui::kSheetDestroy)
        userData_ = 0;
    if (info.Reason != psui::kSheetInitialise || answer <= 0)
        return answer;
    initialised_ = true;
    userData_ = info.UserData;
    return AddPages(info) ? answer : -1;
}

bool CommonSheet::AddPages(const psui::PropSheetUiInfo& info) const
{
    for (size_t number = 2; number <= pages_; ++number) {
        const WideString title = Wide("Page " + std::to_string(number));
        PROPSHEETPAGEW page = {};
        page.dwSize = sizeof(page);
        page.dwFlags = PSP_USETITLE | PSP_DLGINDIRECT;
        page.pResource = reinterpret_cast<LPCDLGTEMPLATEW>(&kEmptyPage);
        page.pszTitle = title.c_str();
        page.pfnDlgProc = EmptyPageProc;
        if (info.pfnComPropSheet(info.hComPropSheet, kAddPage, reinterpret_cast<LPARAM>(&page), 0) <= 0)
            return false;
    }
    return true;
}

} // namespace psuictl
