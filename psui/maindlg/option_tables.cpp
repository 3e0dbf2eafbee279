#include "psui/maindlg/option_tables.h"

#include "lang/ids/strings.h"
#include "psui/maindlg/media.h"
#include "psui/maindlg/papers.h"
#include "psui/settings/language.h"
#include "psui/settings/record_values.h"

namespace psui {

namespace {

constexpr OptionRow kEnd = {kOptionTableEnd, 0};

constexpr OptionRow kBuiltinMedia[] = {
    {IDS_MEDIA_PLAIN_PAPER, kMediaPlain},
    {IDS_MEDIA_INKJET_PAPER, kMediaInkjet},
    {IDS_MEDIA_GLOSSY3, kMediaGlossyC},
    {IDS_MEDIA_TRANSPARENCY, kMediaTransparency},
    kEnd,
};
constexpr OptionRow kBuiltinSources[] = {{0, kSourceTray2}, {0, kSourceTray1}, {0, DMBIN_MANUAL}, kEnd};
constexpr OptionRow kBuiltinCm[] = {{0, 1}, {0, 0}, {0, 2}, kEnd};
constexpr OptionRow kBuiltinIcm[] = {{0, 64}, {0, 0}, kEnd};
constexpr OptionRow kBuiltinColor[] = {{0, DMCOLOR_COLOR}, {0, DMCOLOR_MONOCHROME}, kEnd};
constexpr OptionRow kBuiltinDocType[] = {{0, 0}, {0, 1}, {0, 2}, {0, 3}, kEnd};
constexpr OptionRow kBuiltinThickness[] = {
    {IDS_THICKNESS_REGULAR, 0}, {IDS_THICKNESS_THIN, 1},     {IDS_THICKNESS_THICK, 2},
    {IDS_THICKNESS_THICKER, 3}, {IDS_THICKNESS_ENVELOPE, 4}, kEnd,
};

struct TableSource
{
    OptionTableIndex table;
    FeatureIndex feature;
    const OptionRow* builtin; ///< null for the papers, which come from their vocabulary
};
constexpr TableSource kSources[kOptionTables] = {
    {kMediaTable, kFeatureMediaType, kBuiltinMedia},
    {kPaperTable, kFeaturePaper, nullptr},
    {kSourceTable, kFeatureTray, kBuiltinSources},
    {kCmTable, kFeatureCm, kBuiltinCm},
    {kIcmTable, kFeatureIcm, kBuiltinIcm},
    {kColorTable, kFeatureColor, kBuiltinColor},
    {kDocTypeTable, kFeatureDocType, kBuiltinDocType},
    {kThicknessTable, kFeatureThickness, kBuiltinThickness},
};
static_assert([] {
    for (int i = 0; i < kOptionTables; ++i)
        if (kSources[i].table != i)
            return false;
    return true;
}());

const OptionRow* BuiltinTable(OptionTableIndex index)
{
    return index == kPaperTable ? BuiltinPaperTable() : kSources[index].builtin;
}

/// A zero-filled array of rows in a new block of movable memory; null, with the block empty, without memory.
OptionRow* AllocateRows(GlobalBlock& block, size_t count)
{
    block.hBlock = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, count * sizeof(OptionRow));
    block.pLocked = block.hBlock ? GlobalLock(block.hBlock) : nullptr;
    if (block.hBlock && !block.pLocked)
        GlobalFree(block.hBlock);
    if (!block.pLocked)
        block = {};
    return static_cast<OptionRow*>(block.pLocked);
}

} // namespace

const ModelFeature* FeatureOfTable(const PrinterUiContext* context, OptionTableIndex index)
{
    return BuiltinFeature(context->pModel, kSources[index].feature);
}

bool IsOffered(OptionTableIndex index, uint32_t value)
{
    return index != kMediaTable || !IsMediaOfJapan(value) || IsJapaneseLanguage();
}

void BuildOptionTable(PrinterUiContext* context, OptionTableIndex index)
{
    GlobalBlock& block = context->aGlobalBlocks[index];
    FreeGlobalBlock(block);
    size_t count = 0;
    ForEachOffered(context, index, [&](std::string_view, uint32_t) { ++count; });
    OptionRow* row = AllocateRows(block, count + 1);
    context->apOptionTables[index] = row ? row : BuiltinTable(index);
    if (!row)
        return;
    ForEachOffered(context, index, [&](std::string_view, uint32_t value) { *row++ = {0, value}; });
    *row = kEnd;
}

std::span<const OptionRow> OptionTable(const PrinterUiContext* context, OptionTableIndex index)
{
    const OptionRow* first = context->apOptionTables[index];
    size_t count = 0;
    while (first && first[count].wStringId != kOptionTableEnd)
        ++count;
    return {first, count};
}

uint32_t OptionValueAt(const PrinterUiContext* context, OptionTableIndex index, size_t row,
                       uint32_t otherwise)
{
    const std::span<const OptionRow> table = OptionTable(context, index);
    return row < table.size() ? table[row].dwValue : otherwise;
}

bool IsBuiltinTable(const PrinterUiContext* context, OptionTableIndex index)
{
    return context->apOptionTables[index] == BuiltinTable(index);
}

} // namespace psui
