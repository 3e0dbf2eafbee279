// The merge of a hostile record into a default one, and of a second into the result.
//
// Input: flags (below), first source, second source.
#include <array>

#include "fuzz/settings_input.h"
#include "tests/settings/merge_checks.h"
#include "tests/settings/support.h"

namespace {

enum Flags : uint8_t
{
    kModelBits = 3,
    kMetric = 4,
    kWinPrint = 8, ///< the printer has the print processor that changes the merge
    kOwn = 16,     ///< the source states this driver's own shape and is made for the model
};

constexpr std::string_view kModelTexts[] = {
    "*NickName: \"Mono\"\n",
    "*ColorDevice: True\n*Duplex None: \"0\"\n*MediaType Plain_Paper: \"266\"\n*Thickness Thick: \"4\"\n",
    "*ColorDevice: True\n*DefaultMediaType: Film\n*MediaType Film: \"264\"\n*PrtArea Wide: \"1\"\n",
    "*Duplex None: \"0\"\n*Resolution 600dpi: \"r\"\n*MultiplePage Four: \"4\"\n*COLOR Mono: \"1\"\n",
};
std::array<const psui::ModelDescription*, std::size(kModelTexts)> models;
constexpr WCHAR kWinPrintPrinter[] = TEXT("WinPrinter");

fuzz::Block TakeOwnRecord(fuzz::Input& input, const psui::ModelDescription* model)
{
    fuzz::Block record(sizeof(psui::DriverDevMode));
    input.TakeInto(record.bytes.get(), record.size);
    psui::SetShape(record.bytes.get(),
                   {psui::kSpecVersion, psui::kDriverVersion, psui::kPublicSize, psui::kPrivateSize});
    BYTE* privatePart = record.bytes.get() + psui::kPublicSize;
    std::memcpy(privatePart + offsetof(psui::PrivateDevMode, dwSignature), psui::kPrivateSignature,
                sizeof(psui::kPrivateSignature));
    std::memcpy(privatePart + offsetof(psui::PrivateDevMode, wModelCrc), &model->sourceCrc,
                sizeof(model->sourceCrc));
    return record;
}

void MergeChecked(psui::DriverDevMode& target, fuzz::Block& source, const psui::ModelDescription* model)
{
    const std::string wrong = test::CheckMerge(target, source.Record(), model);
    fuzz::Require(wrong.empty(), wrong);
    psui::MergeDevMode(&target, source.Record(), model);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz::OpenWorld();
    test::SetPrintProcessor(kWinPrintPrinter, TEXT("WinPrint"));
    for (size_t i = 0; i < models.size(); ++i)
        models[i] = fuzz::CompileModel(kModelTexts[i]);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t length)
{
    fuzz::Input input(data, length);
    const uint8_t flags = input.Take<uint8_t>();
    const psui::ModelDescription* model = models[flags & kModelBits];
    const auto takeSource = [&] {
        return (flags & kOwn) != 0 ? TakeOwnRecord(input, model) : fuzz::TakeRecord(input);
    };
    alignas(8) psui::DriverDevMode target;
    psui::BuildDefaultDevMode(&target, (flags & kWinPrint) != 0 ? kWinPrintPrinter : nullptr, model,
                              (flags & kMetric) != 0);
    fuzz::Block first = takeSource();
    MergeChecked(target, first, model);
    fuzz::Block source = takeSource();
    MergeChecked(target, source, model);

    // Handing the result back in the shape of the source keeps inside the source's bytes.
    const std::string before(reinterpret_cast<char*>(source.bytes.get()), source.size);
    if (!psui::CopyDevModeOut(&target, source.Record(), source.Record()))
        fuzz::Require(std::memcmp(before.data(), source.bytes.get(), source.size) == 0,
                      "a refused copy writes nothing");
    return 0;
}
