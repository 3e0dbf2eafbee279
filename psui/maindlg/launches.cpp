#include "psui/maindlg/launches.h"

#include <iterator>
#include <string_view>

#include <shellapi.h>

#include "lang/ids/strings.h"
#include "psui/base/label.h"
#include "psui/base/module.h"
#include "psui/base/registry.h"
#include "psui/maindlg/model_codes.h"
#include "psui/settings/spooler.h"

namespace psui {

namespace {

using Text = std::basic_string_view<WCHAR>;

constexpr int kAddressUnits = 512;
constexpr int kLanguageUnits = 32;
constexpr DWORD kFolderUnits = 256;
constexpr int kParameterUnits = 1024;

constexpr Text kSupportPage = TEXT("https://support.velmora.example/cgi-bin/solutions.cgi?MDL=");
constexpr Text kLanguagePlace = TEXT("&LNG=");
constexpr Text kSourcePlace = TEXT("&SRC=DRIVER");

constexpr WCHAR kControlCentreKey[] =
    TEXT("SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\VmHubWnd.exe");
constexpr Text kControlCentreProgram = TEXT("\\VmHubWnd.exe");

void Open(HWND dialog, const WCHAR* file, const WCHAR* parameters)
{
    ShellExecuteW(dialog, TEXT("open"), file, parameters, TEXT("C:\\"), SW_SHOWNORMAL);
}

template <int units>
struct Builder
{
    WCHAR text[units] = {};
    TextCursor cursor{text, units};

    Builder& operator<<(Text piece)
    {
        Append(cursor, piece);
        return *this;
    }
};

} // namespace

void OpenWebSupport(HWND dialog, const PrinterUiContext* context)
{
    WCHAR language[kLanguageUnits];
    if (LoadModuleString(context->hPageRes, IDS_SITE_LANGUAGE, language, kLanguageUnits) == 0)
        return;
    Builder<kAddressUnits> address;
    address << kSupportPage << ModelCodeForDevice(context->dmWork.dmPublic.dmDeviceName) << kLanguagePlace
            << language << kSourcePlace;
    Open(dialog, address.text, nullptr);
}

void StartControlCentre(HWND dialog, const PrinterUiContext* context)
{
    const SpoolerBlock<PRINTER_INFO_2W> printer = GetPrinterInfo(context->hPrinter);
    if (!printer || !printer->pPrinterName || !printer->pPortName)
        return;
    WCHAR folder[kFolderUnits];
    const RegistryKey key = RegistryKey::Open(HKEY_LOCAL_MACHINE, kControlCentreKey, KEY_READ);
    if (!key || !key.ReadText(TEXT("Path"), folder, kFolderUnits))
        return;
    Builder<kFolderUnits + static_cast<int>(kControlCentreProgram.size())> program;
    program << folder << kControlCentreProgram;
    Builder<kParameterUnits> parameters;
    parameters << printer->pPrinterName << TEXT(" on ") << printer->pPortName << TEXT(" /SHOW");
    Open(dialog, program.text, parameters.text);
}

} // namespace psui
