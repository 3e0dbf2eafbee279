#include "psui/dialogs/favourite_store.h"

#include <iterator>

#include <winspool.h>

#include "lang/ids/strings.h"
#include "psui/base/format.h"
#include "psui/base/memory.h"
#include "psui/base/module.h"
#include "psui/maindlg/stores.h"
#include "psui/settings/text.h"

namespace psui {

namespace {

/// The stored favourite, or null when it is missing or of another size.
HeapPtr<FavouriteRecord> ReadFavourite(HANDLE printer, uint32_t slot)
{
    WCHAR value[16];
    HeapPtr<FavouriteRecord> record = AllocateZeroed<FavouriteRecord>();
    DWORD needed = 0;
    if (!record || !JoinText(value, {TEXT("Devmode"), DecimalText(static_cast<int32_t>(slot)).text}) ||
        GetPrinterDataW(printer, value, nullptr, reinterpret_cast<BYTE*>(record.get()),
                        sizeof(FavouriteRecord), &needed) != ERROR_SUCCESS ||
        needed != sizeof(FavouriteRecord))
        return nullptr;
    return record;
}

} // namespace

void FavouriteName(const PrinterUiContext* context, uint32_t slot, WCHAR (&name)[kFavouriteNameUnits])
{
    name[0] = 0;
    if (slot >= kFavouriteSlots)
        return;
    const HeapPtr<FavouriteRecord> record = ReadFavourite(context->hPrinter, slot);
    if (record) {
        record->szName[std::size(record->szName) - 1] = 0;
        WideFromNarrow(name, record->szName, std::size(name));
        return;
    }
    // A slot that cannot be read is replaced by its preset when the favourites are next shown.
    LoadLanguageString(IDS_FAVOURITE_STANDARD + slot, name, std::size(name));
}

} // namespace psui
