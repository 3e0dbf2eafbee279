#pragma once
// What the tests of the model folder share: descriptions compiled in memory, with everything that was
// skipped.
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include "psui/model/image.h"
#include "psui/model/queries.h"

namespace psui::test {

struct ModelDeleter
{
    void operator()(const ModelDescription* model) const { FreeModelDescription(model); }
};
using ModelPtr = std::unique_ptr<ModelDescription, ModelDeleter>;

struct Skipped
{
    DiagnosticKind kind;
    bool rejected;
    uint32_t line;
    std::string keyword;
    std::string detail;
};

class Collector final : public DiagnosticSink
{
public:
    void Report(const Diagnostic& d) override
    {
        all.push_back({d.kind, d.rejected, d.line, std::string(d.keyword), std::string(d.detail)});
    }

    std::vector<Skipped> all;
};

inline ModelPtr CompileImage(std::string_view text, DiagnosticSink* sink = nullptr)
{
    return ModelPtr(CompileToImage({text.data(), text.size()}, TEXT("C:\\drv\\x.ppd"), sink));
}

/// A compiled and resolved description. Null when the compilation stopped.
inline ModelPtr CompileModel(std::string_view text, DiagnosticSink* sink = nullptr)
{
    ModelPtr model = CompileImage(text, sink);
    if (model) {
        EXPECT_TRUE(ResolveImage({reinterpret_cast<uint8_t*>(model.get()), model->imageSize}));
    }
    return model;
}

inline std::string TextOf(TextRef text)
{
    return text ? text.get() : "(none)";
}

inline const ModelOption* OptionOf(const ModelPtr& model, std::string_view feature, std::string_view option)
{
    const ModelFeature* found = FindByName(model->features.get(), feature);
    return FindByName(FirstOption(found), option);
}

inline const PageSizeOption* PageSizeOf(const ModelPtr& model, std::string_view option)
{
    return reinterpret_cast<const PageSizeOption*>(OptionOf(model, "PageSize", option));
}

/// What sets a feature apart: Boolean, PickMany, job control, installable.
inline std::string Marks(const ModelFeature& feature)
{
    const std::string marks = std::string(feature.uiType == kUiBoolean ? "b" : "") +
                              (feature.uiType == kUiPickMany ? "m" : "") +
                              (feature.flags & kFlagJobControl ? "j" : "") + (feature.installable ? "i" : "");
    return marks.empty() ? "" : "(" + marks + ")";
}

/// "Feature(marks)[default]/translation: option=invocation/translation ..." of every feature, in order; one
/// line a feature. Input slots that require a page region have a "!".
inline std::string Summary(const ModelPtr& model)
{
    if (!model)
        return "(no model)";
    std::string lines;
    for (const ModelFeature* f = model->features.get(); f; f = f->next.get()) {
        lines += TextOf(f->keyword) + Marks(*f) + "[" + std::to_string(uint64_t{f->defaultOption}) + "]";
        lines += f->translation ? "/" + TextOf(f->translation) + ":" : ":";
        for (const ModelOption* o = f->options.get(); o; o = o->next.get()) {
            const bool required = f->featureIndex == kFeatureInputSlot &&
                                  reinterpret_cast<const InputSlotOption*>(o)->requiresPageRegion == 1;
            lines += " " + TextOf(o->name) + (required ? "!=" : "=") + TextOf(o->invocation);
            lines += o->translation ? "/" + TextOf(o->translation) : "";
        }
        lines += "\n";
    }
    for (const ResidentFont* f = model->residentFonts.get(); f; f = f->next.get())
        lines += "font " + TextOf(f->name) + "=" + TextOf(f->value) + "#" +
                 std::to_string(uint16_t{f->fontNumber}) + "\n";
    return lines;
}

} // namespace psui::test
