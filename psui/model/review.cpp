#include "psui/model/review.h"

#include "psui/model/compilation.h"
#include "psui/model/queries.h"

namespace psui::compiler {

namespace {

struct Review
{
    const CompileRoot& root;
    DiagnosticSink& sink;
    LineCounter lines;
};

// `detail` is a view of the text, unless it was decoded, and so tells the line.
void Report(Review& review, DiagnosticKind kind, std::string_view keyword, std::string_view detail)
{
    review.sink.Report({kind, false, review.lines.LineOf(detail.data()), keyword, detail});
}

bool HasResolution(const Feature& resolutions, uint64_t dpi)
{
    for (const Option* option = resolutions.options.first; option; option = option->next)
        if (static_cast<uint64_t>(DecimalOf(option->Name())) == dpi)
            return true;
    return false;
}

// Some generic features receive a default and nothing else; that is how the language is.
bool HasBadDefault(const CompileRoot& root, Feature& feature)
{
    if (!feature.text || (feature.featureIndex == kFeatureGeneric && feature.options.count == 0))
        return false;
    if (feature.featureIndex == kFeatureResolution)
        return !HasResolution(feature, feature.defaultOption);
    return !FindOption(root, feature, feature.Text());
}

void ReviewBlocks(Review& review)
{
    if (review.root.openBlock)
        Report(review, DiagnosticKind::BadBlock, "CloseUI", review.root.openBlock->Name());
    if (review.root.inInstallableGroup)
        Report(review, DiagnosticKind::BadBlock, "CloseGroup", {});
}

void ReviewDefaults(Review& review)
{
    for (Feature* feature = review.root.features.first; feature; feature = feature->next)
        if (HasBadDefault(review.root, *feature))
            Report(review, DiagnosticKind::DefaultNamesNothing, feature->Name(), feature->Text());
}

void ReviewConstraints(Review& review)
{
    for (const PendingConstraint* pending = review.root.constraints.first; pending; pending = pending->next)
        if (pending->entry.feature1 == kUnresolved)
            Report(review, DiagnosticKind::ConstraintNamesNothing, "UIConstraints",
                   pending->sides[0].Feature());
}

void ReviewOrders(Review& review)
{
    for (const PendingOrder* pending = review.root.orders.first; pending; pending = pending->next)
        if (pending->entry.featureNumber == kUnresolved)
            Report(review, DiagnosticKind::OrderNamesNothing, "OrderDependency", pending->feature);
}

void ReviewPageSizes(Review& review)
{
    const Feature* sizes = review.root.featureByIndex[kFeaturePageSize];
    for (const Option* size = sizes ? sizes->options.first : nullptr; size; size = size->next)
        if (static_cast<const PageSize*>(size)->width == 0)
            Report(review, DiagnosticKind::PageSizeWithoutGeometry, sizes->Name(), size->Name());
}

// Reports the first position at which the two lists differ.
void ReviewPapers(Review& review)
{
    const Feature* sizes = review.root.featureByIndex[kFeaturePageSize];
    const Feature* papers = review.root.featureByIndex[kFeaturePaper];
    if (!sizes || !papers)
        return;
    const Option* size = sizes->options.first;
    const Option* paper = papers->options.first;
    for (; size && paper && size->Name() == paper->Name(); paper = paper->next)
        size = size->next;
    if (paper)
        Report(review, DiagnosticKind::PaperListsOutOfStep, papers->Name(), paper->Name());
    else if (size)
        Report(review, DiagnosticKind::PaperListsOutOfStep, sizes->Name(), size->Name());
}

} // namespace

void ReviewModel(const CompileRoot& root, std::string_view text, DiagnosticSink& sink)
{
    Review review{root, sink, LineCounter(text)};
    ReviewBlocks(review);
    ReviewDefaults(review);
    ReviewConstraints(review);
    ReviewOrders(review);
    ReviewPageSizes(review);
    ReviewPapers(review);
}

} // namespace psui::compiler
