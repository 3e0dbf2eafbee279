#include <algorithm>

#include "psui/model/compiler.h"
#include "psui/model/features.h"
#include "psui/model/names.h"
#include "psui/model/queries.h"
#include "psui/model/review.h"

namespace psui {

namespace compiler {

namespace {

constexpr uint32_t kLeastFreeVm = 102400; // bytes
constexpr int32_t kFallbackDpi = 300;

void ApplyAllSlotsMark(CompileRoot& root)
{
    constexpr uint16_t kBothMarks = kFlagAllSlotsRequirePageRegion | kFlagNoSlotRequiresPageRegion;
    Feature* slots = root.featureByIndex[kFeatureInputSlot];
    if (!slots || !(slots->flags & kBothMarks))
        return;
    for (Option* slot = slots->options.first; slot; slot = slot->next)
        static_cast<InputSlot*>(slot)->requiresPageRegion =
            slots->flags & kFlagAllSlotsRequirePageRegion ? 1 : 0;
}

// Puts the document features before the installable ones and numbers both.
void GroupFeatures(CompileRoot& root)
{
    List<Feature> groups[2]{};
    Feature* next;
    for (Feature* feature = root.features.first; feature; feature = next) {
        next = feature->next;
        feature->next = nullptr;
        List<Feature>& group = groups[feature->installable];
        feature->ordinal = static_cast<uint16_t>(group.count);
        group.Append(feature);
    }
    root.header.documentFeatureCount = static_cast<uint16_t>(groups[0].count);
    root.header.installableFeatureCount = static_cast<uint16_t>(groups[1].count);
    root.features.first = groups[0].count ? groups[0].first : groups[1].first;
    if (groups[0].count)
        groups[0].last->next = groups[1].first;
    root.features.last = groups[1].count ? groups[1].last : groups[0].last;
    uint32_t number = 0;
    for (Feature* feature = root.features.first; feature; feature = feature->next)
        feature->number = number++;
}

void LimitHeader(ModelDescription& header)
{
    header.freeVm = std::max<uint32_t>(header.freeVm, kLeastFreeVm);
    if (header.maxMediaWidth == 0 && header.maxMediaHeight == 0)
        header.customPageSize = 0;
}

void LimitArea(ImageableArea& area, uint32_t width, uint32_t height)
{
    area.right = std::min<uint32_t>(area.right, width);
    area.top = std::min<uint32_t>(area.top, height);
    if (area.left >= area.right || area.bottom >= area.top) {
        area.left = 0;
        area.bottom = 0;
        area.top = height;
    }
    if (area.further[0] > width)
        area.further[0] = 0;
    if (area.further[1] > height)
        area.further[1] = 0;
}

void LimitPageSizes(CompileRoot& root)
{
    Feature* sizes = root.featureByIndex[kFeaturePageSize];
    for (Option* option = sizes ? sizes->options.first : nullptr; option; option = option->next) {
        auto* size = static_cast<PageSize*>(option);
        if (size->width == 0 || size->height == 0)
            size->width = size->height = 0;
        LimitArea(size->imageableArea, size->width, size->height);
        LimitArea(size->imageableAreaL, size->width, size->height);
    }
}

uint64_t DefaultDpi(const Feature& resolutions)
{
    std::string_view text = resolutions.Text();
    if (!text.data() && resolutions.options.first)
        text = resolutions.options.first->Name();
    const int32_t dpi = DecimalOf(text);
    return static_cast<uint64_t>(dpi < 1 ? kFallbackDpi : dpi);
}

void ResolveDefaults(CompileRoot& root)
{
    for (Feature* feature = root.features.first; feature; feature = feature->next) {
        if (feature->featureIndex == kFeatureResolution) {
            feature->defaultOption = DefaultDpi(*feature);
            continue;
        }
        const Option* option = feature->text ? FindOption(root, *feature, feature->Text()) : nullptr;
        feature->defaultOption = option ? option->index : 0;
    }
}

// Finds features and options for entries that name them. Rules are written feature by feature, and most of
// them a second time with their sides exchanged: one of the last two answers is often the next one, too.
class Resolver
{
public:
    explicit Resolver(const CompileRoot& root) : root_(root) {}

    /// Number of the feature and index of its option (kAnyOption for a view without data). What is not found,
    /// or has a number that an entry cannot hold, is kUnresolved; then the result is false.
    bool Resolve(std::string_view featureName, std::string_view optionName, uint16_t& number, uint16_t& index)
    {
        const Answer& answer = AnswerFor(featureName, optionName);
        number = answer.number;
        index = answer.index;
        return number != kUnresolved && index != kUnresolved;
    }

private:
    struct Answer
    {
        std::string_view featureName; ///< empty before there is an answer
        std::string_view optionName;
        Feature* feature = nullptr; ///< null when there is none of that name
        uint16_t number = kUnresolved;
        uint16_t index = kUnresolved;
    };

    const Answer& AnswerFor(std::string_view featureName, std::string_view optionName)
    {
        const Answer* sameFeature = nullptr;
        for (Answer& answer : answers_) {
            if (!IsSameName(answer.featureName, featureName))
                continue;
            if (IsSameName(answer.optionName, optionName)) {
                latest_ = &answer;
                return answer;
            }
            sameFeature = &answer;
        }
        Feature* feature =
            sameFeature ? sameFeature->feature : static_cast<Feature*>(root_.names.Find(0, featureName));
        latest_ = latest_ == answers_ ? answers_ + 1 : answers_;
        *latest_ = {featureName, optionName, feature, kUnresolved, kUnresolved};
        if (feature)
            latest_->number = static_cast<uint16_t>(feature->number);
        latest_->index = IndexOf(feature, optionName);
        return *latest_;
    }

    uint16_t IndexOf(Feature* feature, std::string_view optionName) const
    {
        if (!optionName.data())
            return kAnyOption;
        const Option* option = feature ? FindOption(root_, *feature, optionName) : nullptr;
        // An option at the index that means any option cannot be told from it.
        return option && option->index != kAnyOption && option->index < kUnresolved
                   ? static_cast<uint16_t>(option->index)
                   : kUnresolved;
    }

    const CompileRoot& root_;
    Answer answers_[2];
    Answer* latest_ = answers_;
};

void ResolveOrders(CompileRoot& root)
{
    Resolver resolver(root);
    for (PendingOrder* order = root.orders.first; order; order = order->next)
        if (!resolver.Resolve(order->feature, order->option, order->entry.featureNumber,
                              order->entry.optionIndex))
            order->entry.featureNumber = kUnresolved;
}

void ResolveConstraints(CompileRoot& root)
{
    Resolver resolver(root);
    for (PendingConstraint* pending = root.constraints.first; pending; pending = pending->next) {
        const PendingChoice& a = pending->sides[0];
        const PendingChoice& b = pending->sides[1];
        ConstraintEntry& entry = pending->entry;
        const bool firstKnown = resolver.Resolve(a.Feature(), a.Option(), entry.feature1, entry.option1);
        const bool secondKnown = resolver.Resolve(b.Feature(), b.Option(), entry.feature2, entry.option2);
        if (!firstKnown || !secondKnown)
            entry.feature1 = kUnresolved;
    }
}

} // namespace

} // namespace compiler

void FinishModelDescription(CompileRoot& root, std::string_view text, DiagnosticSink* sink)
{
    compiler::ApplyAllSlotsMark(root);
    compiler::GroupFeatures(root);
    compiler::LimitHeader(root.header);
    compiler::LimitPageSizes(root);
    compiler::ResolveDefaults(root);
    compiler::ResolveOrders(root);
    compiler::ResolveConstraints(root);
    if (sink)
        compiler::ReviewModel(root, text, *sink);
    root.names.Clear();
}

} // namespace psui
