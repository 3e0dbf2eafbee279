#include "psui/settings/spooler.h"

#include <algorithm>

#include "psui/settings/copy.h"
#include "psui/settings/text.h"

namespace psui {

namespace {

// What is asked for may grow between the question for its size and its fetching.
constexpr int kFetchAttempts = 4;

// Far above any true answer: a settings record has at most 128 KiB, and thousands of forms fit. A spooler
// that asks for more is wrong, and must not make its client allocate gigabytes.
constexpr DWORD kMostInfoBytes = 16 << 20;

/// Runs the spooler's size-then-data protocol: `fetch(buffer, size, &needed)` first without a buffer, which
/// must fail for want of room, then with one of the size it asked for.
template <typename Info, typename Fetch>
SpoolerBlock<Info> FetchBlock(Fetch fetch)
{
    SpoolerBlock<Info> block;
    DWORD needed = 0;
    if (fetch(nullptr, 0, &needed))
        return {};
    for (int attempt = 0; attempt < kFetchAttempts; ++attempt) {
        if (GetLastError() != ERROR_INSUFFICIENT_BUFFER || needed < sizeof(Info) || needed > kMostInfoBytes)
            return {};
        block.size = needed;
        block.bytes = AllocateZeroed<BYTE>(needed);
        if (!block)
            return {};
        if (fetch(block.bytes.get(), block.size, &needed))
            return block;
    }
    return {};
}

/// Bytes of the block from `place` on; 0 when it lies outside.
template <typename Info>
size_t RoomAt(const SpoolerBlock<Info>& block, const void* place)
{
    const auto start = reinterpret_cast<uintptr_t>(block.bytes.get());
    const auto at = reinterpret_cast<uintptr_t>(place);
    return at < start || at - start > block.size ? 0 : block.size - (at - start);
}

bool HasNameInside(const SpoolerBlock<FORM_INFO_1W>& forms, const FORM_INFO_1W& form)
{
    const auto units = static_cast<int>(RoomAt(forms, form.pName) / sizeof(WCHAR));
    return !form.pName || BoundedLength(form.pName, units) < units;
}

} // namespace

template <typename Info>
SpoolerBlock<Info> GetPrinterInfo(HANDLE printer, DWORD level)
{
    return FetchBlock<Info>([=](BYTE* buffer, DWORD size, DWORD* needed) {
        return GetPrinterW(printer, level, buffer, size, needed);
    });
}

template <typename Info>
SpoolerBlock<Info> GetDriverInfo(HANDLE printer, DWORD level)
{
    return FetchBlock<Info>([=](BYTE* buffer, DWORD size, DWORD* needed) {
        return GetPrinterDriverW(printer, nullptr, level, buffer, size, needed);
    });
}

template SpoolerBlock<PRINTER_INFO_1W> GetPrinterInfo(HANDLE, DWORD);
template SpoolerBlock<PRINTER_INFO_2W> GetPrinterInfo(HANDLE, DWORD);
template SpoolerBlock<DRIVER_INFO_2W> GetDriverInfo(HANDLE, DWORD);
template SpoolerBlock<DRIVER_INFO_3W> GetDriverInfo(HANDLE, DWORD);

SpoolerBlock<FORM_INFO_1W> EnumPrinterForms(HANDLE printer, DWORD& count)
{
    count = 0;
    auto forms = FetchBlock<FORM_INFO_1W>([&](BYTE* buffer, DWORD size, DWORD* needed) {
        return EnumFormsW(printer, 1, buffer, size, needed, &count);
    });
    const DWORD most = std::min(count, forms.size / static_cast<DWORD>(sizeof(FORM_INFO_1W)));
    count = 0;
    while (count < most && HasNameInside(forms, forms.get()[count]))
        ++count;
    return forms;
}

const DEVMODEW* StoredDevMode(const SpoolerBlock<PRINTER_INFO_2W>& info)
{
    if (!info || !info->pDevMode)
        return nullptr;
    const size_t room = RoomAt(info, info->pDevMode);
    if (room < kHeaderSize || room < ShapeOf(info->pDevMode).TotalSize())
        return nullptr;
    return info->pDevMode;
}

} // namespace psui
