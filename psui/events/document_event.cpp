#include "psui/events/document_event.h"

#include "psui/base/format.h"
#include "psui/settings/spooler.h"

namespace psui {

namespace {

constexpr int kContextCreated = 2;
constexpr int kDocumentStart = 5;
constexpr int kContextDeleted = 10;

/// The monitor looks for this text with the printer's name behind it.
constexpr WCHAR kPopupAtom[] = TEXT("VMSTSWIN-POPUPONPRINT ");
constexpr int kAtomUnits = 256;

void MarkContext(HANDLE printer, HDC dc)
{
    SetEnvironmentVariableA(TextOfPointer(printer).text, TextOfPointer(dc).text);
}

void UnmarkContext(HANDLE printer, HDC)
{
    SetEnvironmentVariableA(TextOfPointer(printer).text, nullptr);
}

/// The monitor deletes the atom when it has seen it.
void RaisePopupAtom(HANDLE printer, HDC)
{
    const SpoolerBlock<PRINTER_INFO_1W> info = GetPrinterInfo<PRINTER_INFO_1W>(printer, 1);
    WCHAR atom[kAtomUnits];
    if (info && info->pName && JoinText(atom, {kPopupAtom, info->pName}))
        GlobalAddAtomW(atom);
}

struct EventRow
{
    int event;
    void (*handle)(HANDLE printer, HDC dc);
};
constexpr EventRow kEvents[] = {
    {kContextCreated, MarkContext},
    {kDocumentStart, RaisePopupAtom},
    {kContextDeleted, UnmarkContext},
};

} // namespace

void HandleDocumentEvent(HANDLE printer, HDC dc, int event)
{
    for (const EventRow& row : kEvents)
        if (row.event == event)
            row.handle(printer, dc);
}

} // namespace psui
