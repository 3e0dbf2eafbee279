// The smallest printer driver a spooler can live with: one settings record and no capabilities.
#include <windows.h>

#include <cstring>

namespace {

constexpr WORD kPrivateSize = 16;
constexpr DWORD kRecordSize = sizeof(DEVMODEW) + kPrivateSize;

// What the spooler passes instead of sheet information when it wants a record and no dialog.
struct DocumentRequest
{
    WORD cbSize;
    WORD reserved;
    HANDLE printer;
    LPWSTR printerName;
    DEVMODEW* in;
    DEVMODEW* out;
    DWORD outSize;
    DWORD mode;
};

} // namespace

extern "C" LONG WINAPI DrvDocumentPropertySheets(void* sheetInformation, LPARAM parameter)
{
    auto request = reinterpret_cast<DocumentRequest*>(parameter);
    if (sheetInformation || !request)
        return -1;
    if (request->mode == 0 || !request->out) {
        request->outSize = kRecordSize;
        return kRecordSize;
    }
    if (request->outSize < kRecordSize)
        return -1;
    memset(request->out, 0, kRecordSize);
    request->out->dmSpecVersion = DM_SPECVERSION;
    request->out->dmSize = sizeof(DEVMODEW);
    request->out->dmDriverExtra = kPrivateSize;
    return 1;
}

extern "C" DWORD WINAPI DrvDeviceCapabilities(HANDLE, LPWSTR, WORD, void*, DEVMODEW*)
{
    return static_cast<DWORD>(-1);
}

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID)
{
    return TRUE;
}
