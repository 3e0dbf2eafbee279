// A description text from anywhere: it compiles unless a field is too long, the image resolves, and
// everything in it can be read and asked.
#include <cstring>
#include <memory>
#include <numeric>

#include "fuzz/require.h"
#include "psui/model/image.h"
#include "tests/model/walk.h"

namespace {

struct ModelDeleter
{
    void operator()(psui::ModelDescription* model) const { psui::FreeModelDescription(model); }
};
using ModelPtr = std::unique_ptr<psui::ModelDescription, ModelDeleter>;

class Reader final : public psui::DiagnosticSink
{
public:
    void Report(const psui::Diagnostic& diagnostic) override
    {
        stopped_ = stopped_ || diagnostic.kind == psui::DiagnosticKind::FieldTooLong;
        const auto add = [](uint64_t sum, char c) { return sum + static_cast<uint8_t>(c); };
        read_ = std::accumulate(diagnostic.keyword.begin(), diagnostic.keyword.end(), read_, add);
        read_ = std::accumulate(diagnostic.detail.begin(), diagnostic.detail.end(), read_, add);
        read_ += diagnostic.line;
    }

    bool Stopped() const { return stopped_; }

private:
    bool stopped_ = false;
    uint64_t read_ = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::unique_ptr<char[]> text(new char[size]);
    std::memcpy(text.get(), data, size);
    Reader reader;
    constexpr const WCHAR* kPath = TEXT("C:\\drv\\model.ppd");
    const ModelPtr model(psui::CompileToImage({text.get(), size}, kPath, &reader));
    const ModelPtr quiet(psui::CompileToImage({text.get(), size}, kPath));
    fuzz::Require((model != nullptr) == !reader.Stopped(), "only an overlong field stops a compilation");
    fuzz::Require((model != nullptr) == (quiet != nullptr), "a sink changes nothing");
    if (!model)
        return 0;
    fuzz::Require(model->imageSize == quiet->imageSize &&
                      std::memcmp(model.get(), quiet.get(), model->imageSize) == 0,
                  "a text has one image");
    fuzz::Require(psui::ResolveImage({reinterpret_cast<uint8_t*>(model.get()), model->imageSize}),
                  "a packed image is sound");
    psui::test::WalkEverything(*model);
    return 0;
}
