// The printer's data and forms as anybody may have stored them: what a sheet and the job check make of them.
//
// Input: flags (below), number of the read that the spooler answers wrongly, a form, then the values in the
// order of kValues: a byte of ValueBits, a 16-bit length and that many bytes.
#include "fuzz/printer_store.h"
#include "psui/entry/context.h"
#include "psui/model/cache.h"
#include "psui/queries/job_check.h"
#include "psui/settings/spooler.h"
#include "tests/settings/support.h"

namespace {

enum Flags : uint8_t
{
    kMisreadBits = 7, ///< one more than a host::Misread; 0, 6 and 7 let the spooler answer truly
    kOwnStamp = 8,    ///< the printer-wide record is one of this model
    kOtherForm = 16,  ///< a user form is added
    kForms = 32,      ///< the user form bears the name of one of the model's papers
};

enum ValueBits : uint8_t
{
    kStored = 1,
    kOtherType = 2, ///< the type is what is left of the byte
};

struct Value
{
    const WCHAR* name;
    DWORD type;
};
constexpr Value kValues[] = {
    {TEXT("PrinterDataSize"), REG_DWORD}, {TEXT("PrinterData"), REG_BINARY},
    {TEXT("FreeMem"), REG_DWORD},         {TEXT("PrinterHT"), REG_BINARY},
    {TEXT("Forms?"), REG_DWORD},          {TEXT("TrayFormSize"), REG_DWORD},
    {TEXT("TrayFormTable"), REG_BINARY},
};
constexpr DWORD kErrorUnits = 100;

fuzz::PrinterStore* store;
const psui::ModelDescription* model;

std::string ModelText()
{
    return std::string(test::kFullModel) + R"(*OpenGroup: InstallableOptions/Options
*OpenUI *VMOption/Memory: PickOne
*VMOption 4Meg: "4194304"
*VMOption 8Meg: "8388608"
*CloseUI: *VMOption
*OpenUI *Unit/Duplex unit: Boolean
*DefaultUnit: False
*Unit True: ""
*Unit False: ""
*CloseUI: *Unit
*CloseGroup: InstallableOptions/Options
*UIConstraints: *Unit False *Duplex DuplexTumble
)";
}

void StoreValues(fuzz::Input& input, bool ownStamp)
{
    for (const Value& value : kValues) {
        const uint8_t bits = input.Take<uint8_t>();
        std::string bytes(input.TakeBytes(input.Take<uint16_t>()));
        if (ownStamp && bytes.size() == sizeof(psui::PrinterWideData))
            std::memcpy(bytes.data() + offsetof(psui::PrinterWideData, wModelCrc), &model->sourceCrc,
                        sizeof(model->sourceCrc));
        if (bits & kStored)
            store->Write(value.name, (bits & kOtherType) ? bits >> 2 : value.type, bytes);
        else
            store->Delete(value.name);
    }
}

/// A form of the user's; gone when this is.
class UserForm
{
public:
    UserForm(fuzz::Input& input, uint8_t flags)
    {
        input.TakeInto(name_, sizeof(name_) - sizeof(WCHAR));
        if (flags & kForms)
            lstrcpynW(name_, TEXT("A4 sheet"), CCHFORMNAME);
        FORM_INFO_1W form = {};
        form.pName = name_;
        form.Size = {input.Take<LONG>(), input.Take<LONG>()};
        form.ImageableArea = {0, 0, form.Size.cx, form.Size.cy};
        if (flags & (kOtherForm | kForms))
            AddFormW(store->handle(), 1, reinterpret_cast<BYTE*>(&form));
    }
    ~UserForm() { DeleteFormW(store->handle(), name_); }

private:
    WCHAR name_[CCHFORMNAME + 1] = {};
};

void CheckSelections(const psui::PrinterWideData& data)
{
    uint8_t resolved[psui::kMaxSelections] = {};
    const uint16_t count = psui::ResolveInstallableConflicts(model, resolved);
    fuzz::Require(data.wInstallableCount == count &&
                      std::equal(resolved, resolved + count, data.abInstallableSel),
                  "selections of another model are made anew");
}

void CheckPrinterWide()
{
    const std::string before = store->Read(TEXT("PrinterData"));
    const auto data = psui::ReadPrinterWideData(store->handle(), model);
    fuzz::Require(data && data->wModelCrc == model->sourceCrc, "the record is the model's");
    psui::PrinterWideData stored = {};
    if (before.size() == sizeof(stored))
        std::memcpy(&stored, before.data(), sizeof(stored));
    if (stored.wModelCrc != model->sourceCrc)
        CheckSelections(*data);
    const auto built = psui::BuildDefaultPrinterData(store->handle(), model);
    fuzz::Require(built && built->wSize == sizeof(*built) && (built->dwFlags & ~7u) == 0,
                  "the default record");
    fuzz::Require(built->dwFreeMem >= 102400, "free memory");
    CheckSelections(*built);
    fuzz::Require(store->Read(TEXT("PrinterData")) == before, "reading writes nothing");
}

template <typename Name>
void RequireTerminated(const Name* names, uint32_t count)
{
    for (uint32_t i = 0; i < count; ++i)
        fuzz::Require(std::find(std::begin(names[i]), std::end(names[i]), u'\0') != std::end(names[i]),
                      "names are terminated");
}

void OpenSheet()
{
    const psui::ContextPtr context(psui::CreatePrinterUiContext(store->handle(), nullptr));
    if (!context || !psui::LoadContextTables(context.get()))
        return;
    RequireTerminated(context->pPaperNames, context->cPapers);
    RequireTerminated(context->pBinNames, context->cBins);
}

void CheckJob()
{
    alignas(8) psui::DriverDevMode job;
    psui::BuildDefaultDevMode(&job, nullptr, model, true);
    const auto message = std::make_unique<WCHAR[]>(kErrorUnits);
    std::fill_n(message.get(), kErrorUnits, u'#');
    psui::DevQueryPrintInfo query = {sizeof(query), 1, store->handle(), &job.dmPublic, message.get(),
                                     kErrorUnits,   0};
    const bool accepted = psui::CheckJob(&query);
    WCHAR* end = message.get() + kErrorUnits;
    fuzz::Require((std::find(message.get(), end, u'\0') == end) == accepted, "a refusal has its reason");
}

/// Every form of the model must be there once they count as registered, unless they did so before.
void RegisterForms()
{
    psui::RefreshModelForms(store->handle(), model);
    psui::RegisterModelForms(store->handle(), model);
    DWORD state = 0;
    fuzz::Require(psui::ReadPrinterNumber(store->handle(), TEXT("Forms?"), state) && state != 0,
                  "registration is remembered");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz::OpenWorld();
    store = new fuzz::PrinterStore(ModelText());
    model = psui::AcquireModel(store->handle(), true); // kept, so that it is not loaded again and again
    fuzz::Require(model != nullptr, "model");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t length)
{
    fuzz::Input input(data, length);
    const uint8_t flags = input.Take<uint8_t>();
    const uint8_t skippedReads = input.Take<uint8_t>();
    const UserForm form(input, flags);
    StoreValues(input, (flags & kOwnStamp) != 0);

    const host::Ledger before = host::OpenObjects();
    const int misread = (flags & kMisreadBits) - 1;
    const bool lies = misread >= 0 && misread <= static_cast<int>(host::Misread::WrongType);
    if (lies) {
        host::MisreadCalls(skippedReads % 64, false, static_cast<host::Misread>(misread));
        psui::ReadPrinterWideData(store->handle(), model);
        psui::RefreshModelForms(store->handle(), model);
    } else {
        CheckPrinterWide();
        RegisterForms();
    }
    OpenSheet();
    CheckJob();
    host::StopFailing();
    fuzz::Require(host::OpenObjects() == before, "everything is given back");
    return 0;
}
