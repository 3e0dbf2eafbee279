#include "psui/dialogs/html_help.h"

#include <objbase.h>

#include "psui/base/module.h"
#include "psui/base/registry.h"

namespace psui {

namespace {

constexpr WCHAR kControlKey[] = TEXT("CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32");
constexpr WCHAR kControlName[] = TEXT("hhctrl.ocx");
constexpr DWORD kPathUnits = 260;
constexpr WORD kEntryOrdinal = 15;

using HtmlHelpFn = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);

HMODULE LoadControl()
{
    WCHAR path[kPathUnits];
    const RegistryKey key = RegistryKey::Open(HKEY_CLASSES_ROOT, kControlKey, KEY_READ);
    HMODULE control = key && key.ReadText(nullptr, path, kPathUnits) ? LoadLibraryW(path) : nullptr;
    return control ? control : LoadLibraryW(kControlName);
}

HtmlHelpFn FindHtmlHelp()
{
    const HMODULE control = LoadControl();
    return control ? reinterpret_cast<HtmlHelpFn>(reinterpret_cast<void*>(GetProcAddress(
                         control, reinterpret_cast<LPCSTR>(static_cast<ULONG_PTR>(kEntryOrdinal)))))
                   : nullptr;
}

HtmlHelpFn htmlHelp;
bool asked;

HtmlHelpFn HtmlHelp()
{
    const DriverLock lock;
    if (!asked) {
        htmlHelp = FindHtmlHelp();
        asked = true;
    }
    return htmlHelp;
}

} // namespace

ComSession::ComSession() : open_(SUCCEEDED(CoInitialize(nullptr))) {}

ComSession::~ComSession()
{
    if (open_)
        CoUninitialize();
}

HWND CallHtmlHelp(HWND owner, const WCHAR* file, UINT command, DWORD_PTR data)
{
    const HtmlHelpFn call = HtmlHelp();
    return call ? call(owner, file, command, data) : nullptr;
}

} // namespace psui
