#include <iterator>
#include <string_view>

#include "psui/base/format.h"
#include "psui/base/paths.h"
#include "psui/events/choices.h"
#include "psui/events/items.h"
#include "psui/events/settings_file.h"
#include "psui/events/status_monitor.h"
#include "psui/settings/language.h"
#include "psui/settings/spooler.h"
#include "psui/settings/text.h"

namespace psui {

namespace {

constexpr WCHAR kPrinter[] = TEXT("Printer");
constexpr WCHAR kModel[] = TEXT("Model");
constexpr WCHAR kLanguage[] = TEXT("Lang");
constexpr WCHAR kChanged[] = TEXT("New");
constexpr WCHAR kMonitorWaits[] = TEXT("10C"); // the monitor's; goes when kChanged comes
constexpr WCHAR kOtherProcessor[] = TEXT("Proc");
constexpr WCHAR kOffered[] = TEXT("Set");
constexpr WCHAR kOfferedBits[] = TEXT("Bits");
constexpr WCHAR kLayout[] = TEXT("10");
constexpr WCHAR kColour[] = TEXT("3");
constexpr WCHAR kOn[] = TEXT("1");

constexpr int kUnknownBits = -1; // every item is offered
constexpr int kMonitorsColour = 2;

/// A name out of the settings file that is to be a file in the system directory.
bool IsPlainFileName(const WCHAR* name)
{
    return name[0] && std::basic_string_view<WCHAR>(name).find_first_of(TEXT("\\/:")) ==
                          std::basic_string_view<WCHAR>::npos;
}

bool InSystemDirectory(const PathText& file)
{
    PathText system;
    const int length = static_cast<int>(GetSystemDirectoryW(system, std::size(system)));
    return length > 0 && length < static_cast<int>(std::size(system)) && lstrlenW(file) >= length &&
           CompareStringOrdinal(file, length, system, length, TRUE) == CSTR_EQUAL;
}

bool LocatePrinter(HANDLE printer, MonitorPlace& place)
{
    const SpoolerBlock<PRINTER_INFO_2W> info = GetPrinterInfo(printer);
    ChooseSettingsFile(place.file);
    return LocatePrinter(info.get(), place);
}

/// Tells the monitor which printer to show, and keeps the printer's own entries up to date.
void MaintainSection(HANDLE printer, const MonitorPlace& place)
{
    const ProfileSection section = place.PrinterSection();
    WCHAR shown[kLongestSectionName + 2];
    place.MonitorSection().Read(kPrinter, shown);
    if (!EqualNoCase(shown, place.printer)) {
        PathText model;
        place.MonitorSection().Write(kPrinter, place.printer);
        if (ModelSettingsFile(printer, model))
            section.Update(kModel, FileNamePart(model));
    }
    WCHAR language[kLanguageCodeUnits];
    LanguageCode(language);
    section.Update(kLanguage, language);

    if (place.hubProcessor && !section.Has(kMonitorWaits))
        return;
    section.Write(kChanged, kOn);
    section.Delete(kMonitorWaits);
    if (place.hubProcessor)
        section.Delete(kOtherProcessor);
    else
        section.Write(kOtherProcessor, kOn);
}

uint32_t OfferedBits(const ProfileSection& section)
{
    return static_cast<uint32_t>(section.ReadNumber(kOfferedBits, kUnknownBits));
}

/// The items of the printer's section, else those that its model's settings file has for the language.
uint32_t OfferedItems(HANDLE printer, const ProfileSection& section)
{
    const int bits = section.ReadNumber(kOfferedBits, kUnknownBits);
    PathText model;
    if (bits >= 0 || !ModelSettingsFile(printer, model))
        return static_cast<uint32_t>(bits);
    WCHAR language[kLanguageCodeUnits];
    LanguageCode(language);
    return OfferedBits(ProfileSection(model, language));
}

void StoreItems(const ProfileSection& section, const ItemList& items, uint32_t mask)
{
    section.Write(kOffered, items);
    section.Write(kOfferedBits, HexText(mask).text);
}

/// The mask of the printer's items, which become those `found` at its model when there are any.
uint32_t AdoptItems(const ProfileSection& section, const ItemList& found)
{
    if (!found[0])
        return OfferedBits(section);
    const uint32_t mask = MaskOfItems(found);
    StoreItems(section, found, mask);
    return mask;
}

/// The items of the printer's section, which takes them from the model's settings file when it has none.
/// False when there is no telling what that file is called.
bool SettleItems(HANDLE printer, const ProfileSection& section, uint32_t& mask)
{
    ItemList found = {};
    if (!section.Has(kOffered)) {
        PathText model;
        WCHAR language[kLanguageCodeUnits];
        if (!ModelSettingsFile(printer, model))
            return false;
        LanguageCode(language);
        ProfileSection(model, language).Read(kOffered, found);
    }
    mask = AdoptItems(section, found);
    return true;
}

/// The model's default items as the settings file names its file, in the system directory, and its language.
void ReadModelItems(const ProfileSection& section, ItemList& items)
{
    PathText system, model, path;
    WCHAR language[kLanguageCodeUnits];
    items[0] = 0;
    section.Read(kModel, model);
    section.Read(kLanguage, language);
    const UINT length = GetSystemDirectoryW(system, std::size(system));
    if (IsPlainFileName(model) && length > 0 && length < std::size(system) &&
        JoinText(path, {system, TEXT("\\"), model}))
        ProfileSection(path, language).Read(kOffered, items);
}

void TakeChoices(DriverDevMode* record, const ProfileSection& section, uint32_t offered)
{
    if (offered & kItemPagesPerSheet)
        TakeLayout(record, section.ReadNumber(kLayout, 0));
    if (offered & kItemColour)
        TakeColour(record, section.ReadNumber(kColour, kMonitorsColour));
}

void TellNumber(const ProfileSection& section, const WCHAR* key, int32_t present, int32_t number)
{
    if (present != number)
        section.Write(key, DecimalText(number).text);
}

void TellChoices(const DriverDevMode* record, const ProfileSection& section, uint32_t offered)
{
    if (offered & kItemPagesPerSheet)
        TellNumber(section, kLayout, section.ReadNumber(kLayout, 0), record->dmPrivate.dwPagesPerSheet);
    if (offered & kItemColour) {
        const int32_t present = section.ReadNumber(kColour, 0);
        TellNumber(section, kColour, present, ColourWithRecords(present, record));
    }
}

} // namespace

void SyncStatusMonitorIni(HANDLE printer, DriverDevMode* record, const PRINTER_INFO_2W* info)
{
    MonitorPlace place;
    if (!ChooseSettingsFile(place.file) || InSystemDirectory(place.file) ||
        !place.MonitorSection().Has(kPrinter))
        return;
    if (record->dmPrivate.bStatusMonitor == 0) {
        LaunchStatusMonitor(&record->dmPrivate);
        return;
    }
    if (!LocatePrinter(info, place))
        return;
    MaintainSection(printer, place);
    LaunchStatusMonitor(&record->dmPrivate);
    TakeChoices(record, place.PrinterSection(), OfferedItems(printer, place.PrinterSection()));
}

void UpdateStatusMonitorIni(HANDLE printer, const DriverDevMode* record)
{
    MonitorPlace place;
    if (record->dmPrivate.bStatusMonitor != 0) {
        if (!LocatePrinter(printer, place))
            return;
        MaintainSection(printer, place);
        uint32_t offered = 0;
        if (!SettleItems(printer, place.PrinterSection(), offered))
            return;
        TellChoices(record, place.PrinterSection(), offered);
    }
    LaunchStatusMonitor(&record->dmPrivate);
}

uint32_t ReadStatusMonitorItems(HANDLE printer, const DriverDevMode*)
{
    MonitorPlace place;
    if (!LocatePrinter(printer, place))
        return kExchangedItems;
    const ProfileSection section = place.PrinterSection();
    ItemList found = {};
    if (!section.Has(kOffered))
        ReadModelItems(section, found);
    return AdoptItems(section, found) & kExchangedItems;
}

void WriteStatusMonitorItems(HANDLE printer, const DriverDevMode* record, uint32_t mask)
{
    MonitorPlace place;
    if (!LocatePrinter(printer, place))
        return;
    const ProfileSection section = place.PrinterSection();
    ItemList wanted, present;
    ItemsOfMask(mask, wanted);
    section.Read(kOffered, present);
    if (!present[0])
        ReadModelItems(section, present);
    if (std::basic_string_view<WCHAR>(wanted) == present)
        return;
    StoreItems(section, wanted, mask);
    section.Write(kChanged, kOn);
    LaunchStatusMonitor(&record->dmPrivate);
}

} // namespace psui
