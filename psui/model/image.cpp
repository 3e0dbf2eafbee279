#include "psui/model/image.h"

#include <algorithm>
#include <iterator>

#include "psui/model/image_layout.h"

namespace psui {

namespace {

// Turns references into addresses and checks on the way that following them can do no harm: records stand in
// the order in which the format writes them, each at or behind the end of the one before it, so no list can
// run in circles and no record is resolved twice; and the block ends in a zero byte that belongs to no
// record, so every text ends.
class Resolver
{
public:
    explicit Resolver(std::span<uint8_t> image)
        : base_(image.data()), size_(image.size()), recordsEnd_(sizeof(ModelDescription))
    {
    }

    bool Run();

private:
    ModelDescription& Header() { return *reinterpret_cast<ModelDescription*>(base_); }

    /// A reference beyond the image counts as none.
    uint64_t OffsetOf(uint64_t stored) const { return stored > size_ ? 0 : stored; }

    bool IsAligned(uint64_t offset) const { return offset % kImageAlignment == 0; }

    template <typename T>
    void PointTo(Ref<T>& ref, uint64_t offset)
    {
        ref.value = offset ? reinterpret_cast<uintptr_t>(base_) + offset : 0;
    }

    /// Resolves a reference to a text, which stands behind the record that refers to it.
    bool ResolveText(TextRef& ref);
    bool ResolveRequiredText(TextRef& ref);

    /// Resolves a reference to the next record, which is `bytes` long. `record` is null for none.
    template <typename Record>
    bool ResolveRecord(Ref<Record>& ref, Record*& record, uint64_t bytes);

    bool ResolveSourcePath();
    bool ResolveHeaderTexts();
    template <typename Entry>
    bool ResolveArray(Ref<PackedArray<Entry>>& ref);
    bool ResolveFeatures();
    bool ResolveFeature(ModelFeature& feature);
    bool PlaceFeature(ModelFeature& feature);
    bool ResolveOptions(ModelFeature& feature);
    bool ResolveOption(ModelOption& option, uint16_t featureIndex);
    bool ResolveFonts();

    uint8_t* base_;
    uint64_t size_;
    uint64_t recordsEnd_; ///< end of the last record seen
    uint32_t documentFeatures_ = 0;
    uint32_t installableFeatures_ = 0;
};

bool Resolver::Run()
{
    if (size_ <= sizeof(ModelDescription) || size_ % kImageAlignment != 0 || base_[size_ - 1] != 0)
        return false;
    if (Header().imageSize != size_ || Header().formatVersion != kImageFormatVersion)
        return false;
    std::fill(std::begin(Header().featureByIndex), std::end(Header().featureByIndex), Ref<ModelFeature>{0});
    return ResolveSourcePath() && ResolveHeaderTexts() && ResolveArray(Header().orderDependencies) &&
           ResolveArray(Header().constraints) && ResolveFeatures() && ResolveFonts();
}

bool Resolver::ResolveText(TextRef& ref)
{
    const uint64_t offset = OffsetOf(ref.value);
    PointTo(ref, offset);
    return offset == 0 || (offset >= recordsEnd_ && offset < size_ && IsAligned(offset));
}

bool Resolver::ResolveRequiredText(TextRef& ref)
{
    return ResolveText(ref) && ref;
}

template <typename Record>
bool Resolver::ResolveRecord(Ref<Record>& ref, Record*& record, uint64_t bytes)
{
    const uint64_t offset = OffsetOf(ref.value);
    PointTo(ref, offset);
    record = offset ? reinterpret_cast<Record*>(base_ + offset) : nullptr;
    if (offset == 0)
        return true;
    // The last byte is nobody's but a text's.
    if (offset < recordsEnd_ || !IsAligned(offset) || bytes > size_ - 1 || offset > size_ - 1 - bytes)
        return false;
    recordsEnd_ = offset + bytes;
    return true;
}

// The path stands in front of all records, so resolving them cannot take its end away.
bool Resolver::ResolveSourcePath()
{
    Ref<WCHAR>& ref = Header().sourcePath;
    const uint64_t offset = OffsetOf(ref.value);
    if (offset < recordsEnd_ || !IsAligned(offset))
        return false;
    const auto* path = reinterpret_cast<const WCHAR*>(base_ + offset);
    const uint64_t units = (size_ - offset) / sizeof(WCHAR);
    const WCHAR* end = std::find(path, path + units, WCHAR{0});
    if (end == path + units)
        return false;
    PointTo(ref, offset);
    recordsEnd_ = static_cast<uint64_t>(reinterpret_cast<const uint8_t*>(end + 1) - base_);
    return true;
}

bool Resolver::ResolveHeaderTexts()
{
    for (TextRef ModelDescription::*text : kHeaderTexts)
        if (!ResolveText(Header().*text))
            return false;
    return true;
}

template <typename Entry>
bool Resolver::ResolveArray(Ref<PackedArray<Entry>>& ref)
{
    const uint64_t offset = OffsetOf(ref.value);
    PointTo(ref, offset);
    if (offset == 0)
        return true;
    using Array = PackedArray<Entry>;
    if (offset < recordsEnd_ || !IsAligned(offset) || offset > size_ - sizeof(Array))
        return false;
    const auto* array = reinterpret_cast<const Array*>(base_ + offset);
    const uint64_t bytes = sizeof(Array) + array->count * kArrayBytesPerEntry;
    if (array->entrySize != sizeof(Entry) || bytes > size_ - offset)
        return false;
    recordsEnd_ = offset + bytes;
    return true;
}

bool Resolver::ResolveFeatures()
{
    ModelFeature* feature;
    if (!ResolveRecord(Header().features, feature, sizeof(ModelFeature)))
        return false;
    while (feature) {
        if (!ResolveFeature(*feature) || !ResolveRecord(feature->next, feature, sizeof(ModelFeature)))
            return false;
    }
    return documentFeatures_ == Header().documentFeatureCount &&
           installableFeatures_ == Header().installableFeatureCount;
}

bool Resolver::ResolveFeature(ModelFeature& feature)
{
    return PlaceFeature(feature) && ResolveRequiredText(feature.keyword) &&
           ResolveText(feature.translation) && ResolveOptions(feature);
}

// Checks what a feature says of itself against its place in the list, and puts it into its slot.
bool Resolver::PlaceFeature(ModelFeature& feature)
{
    if (feature.installable > 1 || (!feature.installable && installableFeatures_ > 0))
        return false;
    uint32_t& position = feature.installable ? installableFeatures_ : documentFeatures_;
    if (feature.ordinal != position++)
        return false;
    if (feature.featureIndex > kFeatureGeneric ||
        feature.optionRecordSize != OptionRecordSize(feature.featureIndex))
        return false;
    if (feature.featureIndex == kFeatureGeneric)
        return true;
    Ref<ModelFeature>& slot = Header().featureByIndex[feature.featureIndex];
    if (slot)
        return false;
    slot.value = reinterpret_cast<uintptr_t>(&feature);
    return true;
}

bool Resolver::ResolveOptions(ModelFeature& feature)
{
    ModelOption* option;
    if (!ResolveRecord(feature.options, option, feature.optionRecordSize))
        return false;
    while (option) {
        if (!ResolveOption(*option, feature.featureIndex) ||
            !ResolveRecord(option->next, option, feature.optionRecordSize))
            return false;
    }
    return true;
}

bool Resolver::ResolveOption(ModelOption& option, uint16_t featureIndex)
{
    if (!ResolveRequiredText(option.name) || !ResolveText(option.translation) ||
        !ResolveText(option.invocation))
        return false;
    if (featureIndex == kFeaturePageSize) {
        auto& size = reinterpret_cast<PageSizeOption&>(option);
        return ResolveText(size.pageSizeLInvocation) && ResolveText(size.pageRegionInvocation);
    }
    if (featureIndex == kFeatureResolution) {
        auto& resolution = reinterpret_cast<ResolutionOption&>(option);
        return ResolveText(resolution.jclInvocation) && ResolveText(resolution.setResolutionInvocation);
    }
    return true;
}

bool Resolver::ResolveFonts()
{
    ResidentFont* font;
    if (!ResolveRecord(Header().residentFonts, font, sizeof(ResidentFont)))
        return false;
    while (font) {
        if (!ResolveRequiredText(font->name) || !ResolveRequiredText(font->value) ||
            !ResolveRecord(font->next, font, sizeof(ResidentFont)))
            return false;
    }
    return true;
}

} // namespace

bool ResolveImage(std::span<uint8_t> image)
{
    return Resolver(image).Run();
}

void FreeModelDescription(const ModelDescription* model)
{
    if (model)
        HeapFree(GetProcessHeap(), 0, const_cast<ModelDescription*>(model));
}

} // namespace psui
