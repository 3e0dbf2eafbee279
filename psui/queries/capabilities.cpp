#include "psui/queries/capabilities.h"

#include <iterator>

#include "psui/base/memory.h"
#include "psui/model/cache.h"
#include "psui/model/queries.h"
#include "psui/queries/lists.h"
#include "psui/settings/environment.h"
#include "psui/settings/merge.h"
#include "psui/settings/record.h"
#include "psui/settings/spooler.h"

namespace psui {

namespace {

constexpr DWORD kFailed = static_cast<DWORD>(-1);

// Extents of the user-defined size, tenths of a millimetre.
constexpr WORD kLeastWidth = 889;
constexpr WORD kLeastLength = 1270;
constexpr WORD kMostWidth = 2870;
constexpr WORD kMostLength = 4318;

constexpr DWORD kMostCopies = 999;
constexpr uint32_t kLandscapeIs90 = 0x200; // bit of dwOptionFlags

/// DC_BINADJUST answers: how a sheet source reacts to a change of its paper.
constexpr DWORD kBinAdjustNone = 1;
constexpr DWORD kBinAdjustScaled = 2;

struct Query
{
    const ModelDescription* model;
    const DriverDevMode* record;
    const FORM_INFO_1W* forms; ///< only for rows that need forms
    DWORD formCount;
    void* output; ///< may be null

    const DEVMODEW& Public() const { return record->dmPublic; }
    bool HasField(DWORD field) const { return (Public().dmFields & field) != 0; }
};

DWORD Papers(const Query& query, PaperName* names, WORD* ids, POINT* sizes)
{
    return ListPapers(query.model, query.forms, query.formCount, names, ids, sizes, query.record);
}

DWORD Fields(const Query& query)
{
    return query.Public().dmFields;
}

DWORD PaperIds(const Query& query)
{
    return Papers(query, nullptr, static_cast<WORD*>(query.output), nullptr);
}

DWORD PaperSizes(const Query& query)
{
    return Papers(query, nullptr, nullptr, static_cast<POINT*>(query.output));
}

DWORD PaperNames(const Query& query)
{
    return Papers(query, static_cast<PaperName*>(query.output), nullptr, nullptr);
}

DWORD LeastExtent(const Query&)
{
    return MAKELONG(kLeastWidth, kLeastLength);
}

DWORD MostExtent(const Query&)
{
    return MAKELONG(kMostWidth, kMostLength);
}

DWORD BinIds(const Query& query)
{
    return ListBinIds(static_cast<WORD*>(query.output), query.model);
}

DWORD BinNames(const Query& query)
{
    return ListBins(static_cast<BinName*>(query.output), query.model);
}

DWORD Duplex(const Query& query)
{
    return DuplexAvailable(query.model);
}

DWORD PublicSize(const Query& query)
{
    return query.Public().dmSize;
}

DWORD PrivateSize(const Query& query)
{
    return query.Public().dmDriverExtra;
}

DWORD SpecVersion(const Query& query)
{
    return query.Public().dmSpecVersion;
}

DWORD DriverVersion(const Query& query)
{
    return query.Public().dmDriverVersion;
}

DWORD FileDependencies(const Query& query)
{
    if (query.output)
        *static_cast<WCHAR*>(query.output) = 0;
    return 0;
}

DWORD TrueTypeOptions(const Query& query)
{
    return query.HasField(DM_TTOPTION) ? DCTT_DOWNLOAD | DCTT_SUBDEV : DCTT_BITMAP;
}

DWORD LandscapeRotation(const Query& query)
{
    return (query.record->dmPrivate.dwOptionFlags & kLandscapeIs90) != 0 ? 90 : 270;
}

DWORD Copies(const Query&)
{
    return kMostCopies;
}

DWORD BinAdjust(const Query& query)
{
    return query.Public().dmScale < 100 ? kBinAdjustScaled : kBinAdjustNone;
}

DWORD Collate(const Query& query)
{
    return query.HasField(DM_COLLATE);
}

DWORD PrintRate(const Query& query)
{
    return query.model->printRatePpm;
}

DWORD PrintRateUnit(const Query&)
{
    return PRINTRATEUNIT_PPM;
}

DWORD Staple(const Query&)
{
    return 0;
}

DWORD ColorDevice(const Query& query)
{
    return query.HasField(DM_COLOR);
}

DWORD MediaTypeNames(const Query& query)
{
    return ListMediaTypeNames(static_cast<MediaName*>(query.output), query.model);
}

DWORD MediaTypes(const Query& query)
{
    return ListMediaTypes(static_cast<DWORD*>(query.output), query.model);
}

struct Capability
{
    WORD index;
    bool needsForms; ///< fails on a printer without forms
    DWORD (*answer)(const Query& query);
};

constexpr Capability kCapabilities[] = {
    {DC_FIELDS, false, Fields},
    {DC_PAPERS, true, PaperIds},
    {DC_PAPERSIZE, true, PaperSizes},
    {DC_MINEXTENT, true, LeastExtent},
    {DC_MAXEXTENT, true, MostExtent},
    {DC_BINS, false, BinIds},
    {DC_DUPLEX, false, Duplex},
    {DC_SIZE, false, PublicSize},
    {DC_EXTRA, false, PrivateSize},
    {DC_VERSION, false, SpecVersion},
    {DC_DRIVER, false, DriverVersion},
    {DC_BINNAMES, false, BinNames},
    {DC_FILEDEPENDENCIES, false, FileDependencies},
    {DC_TRUETYPE, false, TrueTypeOptions},
    {DC_PAPERNAMES, true, PaperNames},
    {DC_ORIENTATION, false, LandscapeRotation},
    {DC_COPIES, false, Copies},
    {DC_BINADJUST, false, BinAdjust},
    {DC_COLLATE, false, Collate},
    {DC_PRINTRATE, false, PrintRate},
    {DC_PRINTRATEUNIT, false, PrintRateUnit},
    {DC_MEDIAREADY, true, PaperNames},
    {DC_STAPLE, false, Staple},
    {DC_PRINTRATEPPM, false, PrintRate},
    {DC_COLORDEVICE, false, ColorDevice},
    {DC_MEDIATYPENAMES, false, MediaTypeNames},
    {DC_MEDIATYPES, false, MediaTypes},
};

const Capability* FindCapability(WORD index)
{
    for (const Capability& capability : kCapabilities)
        if (capability.index == index)
            return &capability;
    return nullptr;
}

/// The defaults, with the caller's record or else the printer's stored one merged into them.
bool BuildQueryRecord(HANDLE printer, const WCHAR* deviceName, const ModelDescription* model,
                      const DEVMODEW* record, DriverDevMode* built)
{
    BuildDefaultDevMode(built, deviceName, model, IsMetricCountry());
    if (record)
        return MergeDevMode(built, record, model) != 0;
    const SpoolerBlock<PRINTER_INFO_2W> info = GetPrinterInfo(printer);
    return MergeDevMode(built, StoredDevMode(info), model) != 0;
}

} // namespace

DWORD AnswerCapability(HANDLE printer, const WCHAR* deviceName, WORD index, void* output,
                       const DEVMODEW* record)
{
    const Capability* capability = FindCapability(index);
    if (!capability)
        return kFailed;
    const ModelHolder model(AcquireModel(printer, true));
    if (!model)
        return kFailed;
    const HeapPtr<DriverDevMode> merged = AllocateZeroed<DriverDevMode>();
    if (!merged || !BuildQueryRecord(printer, deviceName, model.get(), record, merged.get()))
        return kFailed;

    Query query = {model.get(), merged.get(), nullptr, 0, output};
    if (!capability->needsForms)
        return capability->answer(query);
    const SpoolerBlock<FORM_INFO_1W> forms = EnumPrinterForms(printer, query.formCount);
    if (!forms || query.formCount == 0)
        return kFailed;
    query.forms = forms.get();
    return capability->answer(query);
}

} // namespace psui
