#include <cstring>
#include <iterator>

#include "psui/model/compiler.h"
#include "psui/model/image_layout.h"
#include "psui/model/queries.h"

namespace psui {

namespace compiler {

namespace {

static_assert(std::size(kHeaderTexts) == kHeaderTextCount);

// Places records and texts one behind the other. Without a block it only counts, so that one walk over the
// model serves to size the image and to fill it.
class ImageWriter
{
public:
    explicit ImageWriter(uint8_t* block) : block_(block), at_(sizeof(ModelDescription)) {}

    /// Where the next part will stand. 64 bits wide, so an image that is too long shows after counting.
    uint64_t Position() const { return at_; }

    /// Makes room for a part and returns its offset. The room is zero.
    uint64_t Reserve(uint64_t bytes)
    {
        const uint64_t offset = at_;
        at_ += (bytes + kImageAlignment - 1) & ~(kImageAlignment - 1);
        return offset;
    }

    void Write(uint64_t offset, const void* bytes, size_t size)
    {
        if (block_ && size > 0)
            std::memcpy(block_ + offset, bytes, size);
    }

    template <typename Record>
    void WriteRecord(uint64_t offset, const Record& record)
    {
        Write(offset, &record, sizeof(record));
    }

    /// Places a text and returns its reference; none for a view without data.
    TextRef PlaceText(std::string_view text)
    {
        if (!text.data())
            return {0};
        const uint64_t offset = Reserve(text.size() + 1);
        Write(offset, text.data(), text.size());
        return {offset};
    }

    uint32_t HashOf(std::string_view name) const { return block_ ? NameHash(name) : 0; }

    /// Reference to the record that is placed next, if there is one.
    template <typename Record, typename Node>
    Ref<Record> RefToNext(const Node* node) const
    {
        return {node ? at_ : 0};
    }

private:
    uint8_t* block_;
    uint64_t at_;
};

Ref<WCHAR> PlaceSourcePath(ImageWriter& writer, const CompileRoot& root)
{
    const size_t bytes = (root.sourcePathLength + 1) * sizeof(WCHAR);
    const uint64_t offset = writer.Reserve(bytes);
    writer.Write(offset, root.sourcePath, bytes);
    return {offset};
}

template <typename Entry, typename Pending>
Ref<PackedArray<Entry>> PlaceArray(ImageWriter& writer, const List<Pending>& pending)
{
    const PackedArray<Entry> head{static_cast<uint16_t>(pending.count), sizeof(Entry)};
    const uint64_t offset = writer.Reserve(sizeof(head) + pending.count * kArrayBytesPerEntry);
    writer.WriteRecord(offset, head);
    uint64_t at = offset + sizeof(head);
    for (const Pending* node = pending.first; node; node = node->next, at += sizeof(Entry))
        writer.WriteRecord(at, node->entry);
    return {offset};
}

void PlaceOptionTexts(ImageWriter& writer, const Option& option, ModelOption& record)
{
    record.name = writer.PlaceText({option.name ? option.name : "", option.nameLength});
    record.nameHash = writer.HashOf(option.Name());
    record.translation = writer.PlaceText(option.Translation());
    record.invocation = writer.PlaceText(option.Text());
}

// Places one option with its texts; `fill` places and sets what its kind has beyond the base.
template <typename Record, typename Fill>
void PlaceOption(ImageWriter& writer, const Option& option, Fill fill)
{
    Record record{};
    const uint64_t offset = writer.Reserve(sizeof(record));
    PlaceOptionTexts(writer, option, record.base);
    fill(record);
    record.base.next = writer.RefToNext<ModelOption>(option.next);
    writer.WriteRecord(offset, record);
}

struct PlainOption
{
    ModelOption base;
};
static_assert(sizeof(PlainOption) == sizeof(ModelOption));

void PlacePageSize(ImageWriter& writer, const PageSize& size)
{
    PlaceOption<PageSizeOption>(writer, size, [&](PageSizeOption& record) {
        record.pageSizeLInvocation = writer.PlaceText(size.pageSizeLInvocation);
        record.pageRegionInvocation = writer.PlaceText(size.pageRegionInvocation);
        record.width = size.width;
        record.height = size.height;
        record.imageableArea = size.imageableArea;
        record.imageableAreaL = size.imageableAreaL;
    });
}

void PlaceResolution(ImageWriter& writer, const Resolution& resolution)
{
    PlaceOption<ResolutionOption>(writer, resolution, [&](ResolutionOption& record) {
        record.jclInvocation = writer.PlaceText(resolution.jclInvocation);
        record.setResolutionInvocation = writer.PlaceText(resolution.setResolutionInvocation);
        record.screenAngle = resolution.screenAngle;
        record.screenFreq = resolution.screenFreq;
    });
}

void PlaceOptionOf(ImageWriter& writer, uint16_t featureIndex, const Option& option)
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

void PlaceFeature(ImageWriter& writer, const Feature& feature)
{
    ModelFeature record{};
    const uint64_t offset = writer.Reserve(sizeof(record));
    record.keyword = writer.PlaceText(feature.Name());
    record.nameHash = writer.HashOf(feature.Name());
    record.translation = writer.PlaceText(feature.Translation());
    record.defaultOption = feature.defaultOption;
    record.optionRecordSize = feature.optionRecordSize;
    record.featureIndex = feature.featureIndex;
    record.flags = feature.flags;
    record.uiType = feature.uiType;
    record.ordinal = feature.ordinal;
    record.installable = feature.installable;
    record.options = writer.RefToNext<ModelOption>(feature.options.first);
    for (const Option* option = feature.options.first; option; option = option->next)
        PlaceOptionOf(writer, feature.featureIndex, *option);
    record.next = writer.RefToNext<ModelFeature>(feature.next);
    writer.WriteRecord(offset, record);
}

void PlaceFont(ImageWriter& writer, const Font& font)
{
    ResidentFont record{};
    const uint64_t offset = writer.Reserve(sizeof(record));
    record.name = writer.PlaceText(font.name);
    record.nameHash = writer.HashOf(font.name);
    record.value = writer.PlaceText(font.value);
    record.fontNumber = font.number;
    record.next = writer.RefToNext<ResidentFont>(font.next);
    writer.WriteRecord(offset, record);
}

void PlaceModel(ImageWriter& writer, const CompileRoot& root)
{
    ModelDescription header = root.header;
    header.formatVersion = kImageFormatVersion;
    header.sourcePath = PlaceSourcePath(writer, root);
    for (size_t i = 0; i < std::size(kHeaderTexts); ++i)
        header.*kHeaderTexts[i] = writer.PlaceText(root.texts[i]);
    header.orderDependencies = PlaceArray<OrderEntry>(writer, root.orders);
    header.constraints = PlaceArray<ConstraintEntry>(writer, root.constraints);
    header.features = writer.RefToNext<ModelFeature>(root.features.first);
    for (const Feature* feature = root.features.first; feature; feature = feature->next)
        PlaceFeature(writer, *feature);
    header.residentFonts = writer.RefToNext<ResidentFont>(root.fonts.first);
    for (const Font* font = root.fonts.first; font; font = font->next)
        PlaceFont(writer, *font);
    header.imageSize = static_cast<uint32_t>(writer.Position());
    writer.WriteRecord(0, header);
}

} // namespace

} // namespace compiler

ModelDescription* PackModelDescription(CompileRootPtr root)
{
    compiler::ImageWriter counter(nullptr);
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
