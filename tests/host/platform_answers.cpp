// platform_answers LIBRARY PRINTER: asks the spooler's client functions what an application asks them about
// the printer, and the library itself, and says where the answers differ. Ends with 1 when they do.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <vector>

#include <windows.h>

#include <winspool.h>

#include "psui/entry/exports.h"

namespace {

// More than any list of a capability takes.
constexpr size_t kMostBytes = 1 << 20;

int differences = 0;

void Compare(const char* what, unsigned index, bool same)
{
    if (same)
        return;
    ++differences;
    std::printf("%s %u differs\n", what, index);
}

struct Library
{
    psui::DrvDeviceCapabilitiesFn capabilities;
    psui::DrvDocumentPropertiesFn properties;
};

template <typename Function>
Function Entry(HMODULE library, const char* name)
{
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

/// A list of a capability, or a record, as one call gave it.
struct Answer
{
    LONG result;
    DWORD error;
    std::vector<BYTE> bytes;

    bool operator==(const Answer&) const = default;
};

template <typename Ask>
Answer AskFor(Ask ask)
{
    Answer answer = {0, 0, std::vector<BYTE>(kMostBytes)};
    SetLastError(ERROR_SUCCESS);
    answer.result = ask(answer.bytes.data());
    answer.error = GetLastError();
    return answer;
}

/// Wine hands the driver the printer's name but no handle, so the driver can answer nothing; that its answer
/// and error code arrive shows that it was asked.
void CompareCapabilities(const Library& library, WCHAR* name)
{
    constexpr WORD kLastCapability = 40;
    for (WORD index = 1; index <= kLastCapability; ++index) {
        const auto own = [&](BYTE* list) {
            return static_cast<LONG>(library.capabilities(nullptr, name, index, list, nullptr));
        };
        const auto platform = [&](BYTE* list) {
            return static_cast<LONG>(
                DeviceCapabilitiesW(name, TEXT("FILE:"), index, reinterpret_cast<WCHAR*>(list), nullptr));
        };
        Compare("capability", index, AskFor(own) == AskFor(platform));
    }
}

void CompareRecords(const Library& library, HANDLE printer, WCHAR* name)
{
    const LONG size = DocumentPropertiesW(nullptr, printer, name, nullptr, nullptr, 0);
    Compare("size of the record", 0, size == library.properties(nullptr, printer, name, nullptr, nullptr, 0));
    std::vector<BYTE> wanted(static_cast<size_t>(std::max<LONG>(size, sizeof(DEVMODEW))));
    auto* input = reinterpret_cast<DEVMODEW*>(wanted.data());
    Compare("result for the record", 0,
            DocumentPropertiesW(nullptr, printer, name, input, nullptr, DM_OUT_BUFFER) > 0);
    const auto compare = [&](unsigned number, DEVMODEW* in, DWORD mode) {
        const auto ask = [&](auto function) {
            return AskFor([&](BYTE* record) {
                return function(nullptr, printer, name, reinterpret_cast<DEVMODEW*>(record), in, mode);
            });
        };
        Compare("record", number, ask(DocumentPropertiesW) == ask(library.properties));
    };
    compare(0, nullptr, DM_OUT_BUFFER);
    for (const short paper : {1, 9, 77, 256}) {
        input->dmFields |= DM_PAPERSIZE | DM_ORIENTATION;
        input->dmPaperSize = paper;
        input->dmOrientation = DMORIENT_LANDSCAPE;
        compare(static_cast<unsigned>(paper), input, DM_OUT_BUFFER | DM_IN_BUFFER);
    }
}

} // namespace

int wmain(int count, WCHAR** words)
{
    const HMODULE module = count == 3 ? LoadLibraryW(words[1]) : nullptr;
    HANDLE printer = nullptr;
    if (!module || !OpenPrinterW(words[2], &printer, nullptr)) {
        std::puts("usage: platform_answers LIBRARY PRINTER");
        return 2;
    }
    const Library library = {Entry<psui::DrvDeviceCapabilitiesFn>(module, "DrvDeviceCapabilities"),
                             Entry<psui::DrvDocumentPropertiesFn>(module, "DrvDocumentProperties")};
    CompareCapabilities(library, words[2]);
    CompareRecords(library, printer, words[2]);
    ClosePrinter(printer);
    std::printf("the platform's functions give the library's answers: %s\n", differences ? "NO" : "yes");
    return differences ? 1 : 0;
}
