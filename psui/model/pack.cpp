#include <cstring>
#include <iterator>

#include "psui/model/compiler.h"
#include "psui/model/image_layout.h"
#include "psui/model/queries.h"

namespace psui {

namespace compiler {

namespace {

static_assert(std::size(kHeaderTexts) == kHeaderTextCount);

// Where records and texts stand, one behind the other.
class ImagePlaces
{
public:
    /// Where the next part will stand. 64 bits wide, so an image that is too long shows after counting.
    uint64_t Position() const { return at_; }

    /// Makes room for a part and returns its offset.
    uint64_t Reserve(uint64_t bytes)
    {
        const uint64_t offset = at_;
        at_ += (bytes + kImageAlignment - 1) & ~(kImageAlignment - 1);
        return offset;
    }

    /// Reference to the record that is placed next, if there is one.
    template <typename Record, typename Node>
    Ref<Record> RefToNext(const Node* node) const
    {
        return {node ? at_ : 0};
    }

private:
    uint64_t at_ = sizeof(ModelDescription);
};

// One walk over the model serves to count an image's bytes and to write them: the walk is told which.
class ImageCounter : public ImagePlaces
{
public:
    void Write(uint64_t, const void*, size_t) {}
    uint32_t HashOf(std::string_view) const { return 0; }
};

class ImageWriter : public ImagePlaces
{
public:
    /// `block` is zero and as long as the counter says.
    explicit ImageWriter(uint8_t* block) : block_(block) {}

    void Write(uint64_t offset, const void* bytes, size_t size)
    {
        if (size > 0)
            std::memcpy(block_ + offset, bytes, size);
    }
    uint32_t HashOf(std::string_view name) const { return NameHash(name); }

private:
    uint8_t* block_;
};

template <typename Writer, typename Record>
void WriteRecord(Writer& writer, uint64_t offset, const Record& record)
{
    writer.Write(offset, &record, sizeof(record));
}

/// Places a text and returns its reference; none for a view without data.
template <typename Writer>
TextRef PlaceText(Writer& writer, std::string_view text)
{
    if (!text.data())
        return {0};
    const uint64_t offset = writer.Reserve(text.size() + 1);
    writer.Write(offset, text.data(), text.size());
    return {offset};
}

template <typename Writer>
Ref<WCHAR> PlaceSourcePath(Writer& writer, const CompileRoot& root)
{
    const size_t bytes = (root.sourcePathLength + 1) * sizeof(WCHAR);
    const uint64_t offset = writer.Reserve(bytes);
    writer.Write(offset, root.sourcePath, bytes);
    return {offset};
}

template <typename Entry, typename Writer, typename Pending>
Ref<PackedArray<Entry>> PlaceArray(Writer& writer, const List<Pending>& pending)
{
    const PackedArray<Entry> head{static_cast<uint16_t>(pending.count), sizeof(Entry)};
    const uint64_t offset = writer.Reserve(sizeof(head) + pending.count * kArrayBytesPerEntry);
    WriteRecord(writer, offset, head);
    uint64_t at = offset + sizeof(head);
    for (const Pending* node = pending.first; node; node = node->next, at += sizeof(Entry))
        WriteRecord(writer, at, node->entry);
    return {offset};
}

template <typename Writer>
void PlaceOptionTexts(Writer& writer, const Option& option, ModelOption& record)
{
    record.name = PlaceText(writer, {option.name ? option.name : "", option.nameLength});
    record.nameHash = writer.HashOf(option.Name());
    record.translation = PlaceText(writer, option.Translation());
    record.invocation = PlaceText(writer, option.Text());
}

// Places one option with its texts; `fill` places and sets what its kind has beyond the base.
template <typename Record, typename Writer, typename Fill>
void PlaceOption(Writer& writer, const Option& option, Fill fill)
{
    Record record{};
    const uint64_t offset = writer.Reserve(sizeof(record));
    PlaceOptionTexts(writer, option, record.base);
    fill(record);
    record.base.next = writer.template RefToNext<ModelOption>(option.next);
    WriteRecord(writer, offset, record);
}

struct PlainOption
{
    ModelOption base;
};
static_assert(sizeof(PlainOption) == sizeof(ModelOption));

template <typename Writer>
void PlacePageSize(Writer& writer, const PageSize& size)
{
    PlaceOption<PageSizeOption>(writer, size, [&](PageSizeOption& record) {
        record.pageSizeLInvocation = PlaceText(writer, size.pageSizeLInvocation);
        record.pageRegionInvocation = PlaceText(writer, size.pageRegionInvocation);
        record.width = size.width;
        record.height = size.height;
        record.imageableArea = size.imageableArea;
        record.imageableAreaL = size.imageableAreaL;
    });
}

template <typename Writer>
void PlaceResolution(Writer& writer, const Resolution& resolution)
{
    PlaceOption<ResolutionOption>(writer, resolution, [&](ResolutionOption& record) {
        record.jclInvocation = PlaceText(writer, resolution.jclInvocation);
        record.setResolutionInvocation = PlaceText(writer, resolution.setResolutionInvocation);
        record.screenAngle = resolution.screenAngle;
        record.screenFreq = resolution.screenFreq;
    });
}

template <typename Writer>
void PlaceOptionOf(Writer& writer, uint16_t featureIndex, const Option& option)
{
    switch (featureIndex) {
    case kFeaturePageSize:
        PlacePageSize(writer, static_cast<const PageSize&>(option));
        break;
    case kFeatureInputSlot:
        PlaceOption<InputSlotOption>(writer, option, [&](InputSlotOption& record) {
            record.requiresPageRegion = static_cast<const InputSlot&>(option).requiresPageRegion;
        });
        break;
    case kFeatureResolution:
        PlaceResolution(writer, static_cast<const Resolution&>(option));
        break;
    case kFeatureVmOption:
        PlaceOption<MemoryOption>(writer, option, [&](MemoryOption& record) {
            record.memoryValue = static_cast<const Memory&>(option).memoryValue;
        });
        break;
    default:
        PlaceOption<PlainOption>(writer, option, [](PlainOption&) {});
    }
}

template <typename Writer>
void PlaceFeature(Writer& writer, const Feature& feature)
{
    ModelFeature record{};
    const uint64_t offset = writer.Reserve(sizeof(record));
    record.keyword = PlaceText(writer, feature.Name());
    record.nameHash = writer.HashOf(feature.Name());
    record.translation = PlaceText(writer, feature.Translation());
    record.defaultOption = feature.defaultOption;
    record.optionRecordSize = feature.optionRecordSize;
    record.featureIndex = feature.featureIndex;
    record.flags = feature.flags;
    record.uiType = feature.uiType;
    record.ordinal = feature.ordinal;
    record.installable = feature.installable;
    record.options = writer.template RefToNext<ModelOption>(feature.options.first);
    for (const Option* option = feature.options.first; option; option = option->next)
        PlaceOptionOf(writer, feature.featureIndex, *option);
    record.next = writer.template RefToNext<ModelFeature>(feature.next);
    WriteRecord(writer, offset, record);
}

template <typename Writer>
void PlaceFont(Writer& writer, const Font& font)
{
    ResidentFont record{};
    const uint64_t offset = writer.Reserve(sizeof(record));
    record.name = PlaceText(writer, font.name);
    record.nameHash = writer.HashOf(font.name);
    record.value = PlaceText(writer, font.value);
    record.fontNumber = font.number;
    record.next = writer.template RefToNext<ResidentFont>(font.next);
    WriteRecord(writer, offset, record);
}

template <typename Writer>
void PlaceModel(Writer& writer, const CompileRoot& root)
{
    ModelDescription header = root.header;
    header.formatVersion = kImageFormatVersion;
    header.sourcePath = PlaceSourcePath(writer, root);
    for (size_t i = 0; i < std::size(kHeaderTexts); ++i)
        header.*kHeaderTexts[i] = PlaceText(writer, root.texts[i]);
    header.orderDependencies = PlaceArray<OrderEntry>(writer, root.orders);
    header.constraints = PlaceArray<ConstraintEntry>(writer, root.constraints);
    header.features = writer.template RefToNext<ModelFeature>(root.features.first);
    for (const Feature* feature = root.features.first; feature; feature = feature->next)
        PlaceFeature(writer, *feature);
    header.residentFonts = writer.template RefToNext<ResidentFont>(root.fonts.first);
    for (const Font* font = root.fonts.first; font; font = font->next)
        PlaceFont(writer, *font);
    header.imageSize = static_cast<uint32_t>(writer.Position());
    WriteRecord(writer, 0, header);
}

} // namespace

} // namespace compiler

ModelDescription* PackModelDescription(CompileRootPtr root)
{
    compiler::ImageCounter counter;
    compiler::PlaceModel(counter, *root);
    if (counter.Position() > UINT32_MAX)
        return nullptr;
    const size_t size = static_cast<size_t>(counter.Position());
    HeapPtr<uint8_t> block = AllocateZeroed<uint8_t>(size);
    if (!block)
        return nullptr;
    compiler::ImageWriter writer(block.get());
    compiler::PlaceModel(writer, *root);
    return reinterpret_cast<ModelDescription*>(block.release());
}

} // namespace psui
