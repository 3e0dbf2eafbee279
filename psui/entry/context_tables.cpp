#include "psui/base/heap.h"
#include "psui/entry/context.h"
#include "psui/model/queries.h"
#include "psui/settings/spooler.h"

namespace psui {

namespace {

struct ValueTable
{
    FeatureIndex feature;
    uint32_t PrinterUiContext::*count;
    uint32_t* PrinterUiContext::*values;
};
constexpr ValueTable kValueTables[] = {
    {kFeatureThickness, &PrinterUiContext::cThicknessValues, &PrinterUiContext::pThicknessValues},
    {kFeatureMediaType, &PrinterUiContext::cMediaTypeValues, &PrinterUiContext::pMediaTypeValues},
    {kFeatureMultiplePage, &PrinterUiContext::cMultiplePageValues, &PrinterUiContext::pMultiplePageValues},
    {kFeatureTonerSaveMode, &PrinterUiContext::cTonerSaveValues, &PrinterUiContext::pTonerSaveValues},
    {kFeaturePageProtect, &PrinterUiContext::cPageProtectValues, &PrinterUiContext::pPageProtectValues},
    {kFeatureHrc, &PrinterUiContext::cHrcValues, &PrinterUiContext::pHrcValues},
};

/// A table of `count` entries in the context's heap; none for no entries. False without memory.
template <typename Entry>
bool AllocateTable(PrinterUiContext* context, uint32_t count, Entry*& table)
{
    table = count > 0 ? AllocateFrom<Entry>(context->hHeap, count) : nullptr;
    return table || count == 0;
}

bool LoadPapers(PrinterUiContext* context)
{
    DWORD formCount = 0;
    const SpoolerBlock<FORM_INFO_1W> forms = EnumPrinterForms(context->hPrinter, formCount);
    if (!forms || formCount == 0)
        return false;
    const auto list = [&](PaperName* names, WORD* ids) {
        return ListPapers(context->pModel, forms.get(), formCount, names, ids, nullptr, &context->dmWork);
    };
    context->cPapers = list(nullptr, nullptr);
    if (!AllocateTable(context, context->cPapers, context->pPaperNames) ||
        !AllocateTable(context, context->cPapers, context->pPaperIds))
        return false;
    list(context->pPaperNames, context->pPaperIds);
    return true;
}

bool LoadBins(PrinterUiContext* context)
{
    context->cBins = ListBins(nullptr, context->pModel);
    if (!AllocateTable(context, context->cBins, context->pBinNames))
        return false;
    ListBins(context->pBinNames, context->pModel);
    return true;
}

bool LoadResolutions(PrinterUiContext* context)
{
    context->cResolutions = ListResolutions(nullptr, context->pModel);
    if (!AllocateTable(context, context->cResolutions, context->pResolutions))
        return false;
    ListResolutions(context->pResolutions, context->pModel);
    return true;
}

bool LoadValues(PrinterUiContext* context)
{
    for (const ValueTable& row : kValueTables) {
        const ModelOption* option = FirstOption(BuiltinFeature(context->pModel, row.feature));
        context->*row.count = ListLength(option);
        if (!AllocateTable(context, context->*row.count, context->*row.values))
            return false;
        for (uint32_t* value = context->*row.values; option; option = option->next.get())
            *value++ = static_cast<uint32_t>(DecimalOf(option->invocation.get()));
    }
    return true;
}

/// The blocks of a failed load stay in the heap until the sheet closes.
void ForgetTables(PrinterUiContext* context)
{
    context->cPapers = context->cBins = context->cResolutions = 0;
    context->pPaperNames = nullptr;
    context->pPaperIds = nullptr;
    context->pBinNames = nullptr;
    context->pResolutions = nullptr;
    for (const ValueTable& row : kValueTables) {
        context->*row.count = 0;
        context->*row.values = nullptr;
    }
}

} // namespace

bool LoadContextTables(PrinterUiContext* context)
{
    if (LoadPapers(context) && LoadBins(context) && LoadResolutions(context) && LoadValues(context))
        return true;
    ForgetTables(context);
    return false;
}

} // namespace psui
