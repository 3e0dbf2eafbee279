#include "psui/queries/job_check.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "psui/base/memory.h"
#include "psui/base/module.h"
#include "psui/model/cache.h"
#include "psui/model/queries.h"
#include "psui/queries/error_text.h"
#include "psui/res/ids.h"
#include "psui/settings/environment.h"
#include "psui/settings/merge.h"
#include "psui/settings/printer_data.h"
#include "psui/settings/text.h"
#include "psui/settings/tray_forms.h"

namespace psui {

namespace {

constexpr int kMostTrayUnits = 64;       // with the terminator
constexpr int kMostTrayFormatUnits = 64; // of the message's format, with the terminator

using TrayName = WCHAR[kMostTrayUnits];

/// What a check looks at; `record` is the job merged into the defaults.
struct Job
{
    DevQueryPrintInfo* query;
    const ModelDescription* model;
    DriverDevMode* record;
};

bool Refuse(DevQueryPrintInfo* query, UINT messageId)
{
    FormatErrorText(hOwnModule, query->pszErrorStr, query->cchErrorStr, &query->cchNeeded, TEXT("%!"),
                    messageId);
    return false;
}

/// `tray` is null when any will do.
bool RefuseTray(DevQueryPrintInfo* query, const WCHAR* form, const WCHAR* tray)
{
    WCHAR format[kMostTrayFormatUnits] = {};
    LoadStringW(hOwnModule, IDS_JOB_TRAY, format, kMostTrayFormatUnits);
    FormatErrorText(hOwnModule, query->pszErrorStr, query->cchErrorStr, &query->cchNeeded, format, form,
                    tray);
    return false;
}

/// The name of the model's input slot that the job asks for; empty when any tray will do.
void NameTray(const Job& job, TrayName& tray)
{
    tray[0] = 0;
    const DEVMODEW& record = job.record->dmPublic;
    if ((record.dmFields & DM_DEFAULTSOURCE) == 0 || record.dmDefaultSource < DMBIN_USER)
        return;
    const ModelOption* slot = NthNode(FirstOption(BuiltinFeature(job.model, kFeatureInputSlot)),
                                      static_cast<uint32_t>(record.dmDefaultSource - DMBIN_USER));
    if (!slot)
        return;
    const char* translation = slot->translation.get();
    WideFromNarrow(tray, translation && *translation ? translation : slot->name.get(), kMostTrayUnits);
}

bool Equal(const WCHAR* first, const WCHAR* second)
{
    return std::basic_string_view<WCHAR>(first) == second;
}

/// Whether the table has the form in that tray, or in any when `tray` is empty.
bool IsAssigned(const TrayFormTable& table, const WCHAR* form, const WCHAR* tray)
{
    TrayFormEntry entry;
    const WCHAR* position = table.begin;
    while ((position = NextTrayFormEntry(table, position, &entry)))
        if (Equal(entry.form, form) && (*tray == 0 || Equal(entry.tray, tray)))
            return true;
    return false;
}

bool IsFedByHand(const DEVMODEW& record)
{
    return (record.dmFields & DM_DEFAULTSOURCE) != 0 &&
           (record.dmDefaultSource == DMBIN_MANUAL || record.dmDefaultSource == DMBIN_ENVMANUAL);
}

bool CheckTray(const Job& job, const PaperForm& form)
{
    const TrayFormTable table = ReadTrayFormTable(job.query->hPrinter);
    TrayName tray;
    NameTray(job, tray);
    return !table || IsAssigned(table, form.name, tray) ||
           RefuseTray(job.query, form.name, *tray ? tray : nullptr);
}

bool CheckPaper(const Job& job)
{
    PaperForm form;
    const ResolvedPaper paper = ResolvePaper(job.query->hPrinter, job.query->pDevMode, &form, job.model);
    if (paper == ResolvedPaper::User)
        return Refuse(job.query, IDS_JOB_USER_PAPER);
    if (paper == ResolvedPaper::Unknown)
        return Refuse(job.query, IDS_JOB_PAPER);
    if (IsFedByHand(job.record->dmPublic))
        return MatchFormToPageSize(job.model, paper, form) || Refuse(job.query, IDS_JOB_MANUAL_PAPER);
    return CheckTray(job, form);
}

bool CheckInstalledOptions(const Job& job)
{
    const HeapPtr<PrinterWideData> printer = ReadPrinterWideData(job.query->hPrinter, job.model);
    if (!printer)
        return true;
    SyncSelectionsFromPublic(job.record, job.record->dmPublic.dmFields, job.model);
    const uint8_t* selections = job.record->dmPrivate.abFeatureSel;
    const uint16_t features = std::min(job.model->documentFeatureCount, kMaxSelections);
    for (uint16_t f = 0; f < features; ++f)
        if (FindConflict(job.model, printer->abInstallableSel, selections, f, selections[f]) != 0)
            return Refuse(job.query, IDS_JOB_CONFLICT);
    return true;
}

bool CheckResolution(const Job& job)
{
    const int32_t dpi = job.record->dmPublic.dmPrintQuality;
    return FindResolutionOption(job.model, dpi) ||
           static_cast<int32_t>(DefaultResolutionDpi(job.model)) == dpi ||
           Refuse(job.query, IDS_JOB_RESOLUTION);
}

constexpr bool (*kChecks[])(const Job& job) = {CheckPaper, CheckInstalledOptions, CheckResolution};

} // namespace

bool MatchFormToPageSize(const ModelDescription* model, ResolvedPaper paper, const PaperForm& form)
{
    if (paper != ResolvedPaper::Listed)
        return false;
    char name[CCHFORMNAME];
    NarrowFromWide(name, form.name, CCHFORMNAME);
    return FindByTranslationOrName(FirstOption(BuiltinFeature(model, kFeaturePageSize)), name).node !=
           nullptr;
}

BOOL CheckJob(DevQueryPrintInfo* query)
{
    if (!query || !query->pDevMode)
        return TRUE;
    const ModelHolder model(AcquireModel(query->hPrinter, true));
    if (!model)
        return Refuse(query, IDS_JOB_NO_MODEL);
    const HeapPtr<DriverDevMode> record = AllocateZeroed<DriverDevMode>();
    if (!record)
        return Refuse(query, IDS_JOB_NO_MEMORY);
    BuildDefaultDevMode(record.get(), nullptr, model.get(), IsMetricCountry());
    if (!MergeDevMode(record.get(), query->pDevMode, model.get()))
        return Refuse(query, IDS_JOB_RECORD);
    const Job job = {query, model.get(), record.get()};
    return std::all_of(std::begin(kChecks), std::end(kChecks), [&](auto check) { return check(job); });
}

} // namespace psui
