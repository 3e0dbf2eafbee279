#include "psui/entry/document_sheet.h"

#include <algorithm>
#include <cstring>

#include "psui/entry/context.h"
#include "psui/settings/copy.h"

namespace psui {

namespace {

constexpr LONG kDone = 1;

/// One call of the common UI for a sheet that is open or opens. There is no sheet yet: every reason is
/// refused, so the common UI reports failure and no window opens.
LONG AnswerSheet(PropSheetUiInfo*)
{
    return kSheetFailure;
}

// A caller's header may be short and may lie anywhere, so its bytes are copied and never read in place.

WORD StatedSize(const BYTE* header)
{
    WORD size;
    std::memcpy(&size, header + offsetof(DocumentPropertyHeader, cbSize), sizeof(size));
    return size;
}

/// The fields of the header that its caller has whole; a mode of 0 for one that ends before it.
DocumentPropertyHeader ReadHeader(const BYTE* header)
{
    DocumentPropertyHeader read = {};
    const size_t size = std::min<size_t>(StatedSize(header), sizeof(read));
    std::memcpy(static_cast<void*>(&read), header, size);
    if (size < sizeof(read))
        read.fMode = 0;
    return read;
}

void StoreRecordSize(BYTE* header)
{
    constexpr DWORD kSize = kRecordSize;
    if (StatedSize(header) >= offsetof(DocumentPropertyHeader, cbOut) + sizeof(kSize))
        std::memcpy(header + offsetof(DocumentPropertyHeader, cbOut), &kSize, sizeof(kSize));
}

} // namespace

LONG MergeWithoutSheet(HANDLE printer, const DEVMODEW* input, DEVMODEW* output, DWORD mode)
{
    if (mode == 0 || !output)
        return kRecordSize;
    const ContextPtr context(CreatePrinterUiContext(printer, input));
    if (!context)
        return kSheetFailure;
    if (mode & (DM_UPDATE | DM_COPY))
        CopyDevModeOut(&context->dmWork, input, output);
    return kDone;
}

LONG RunDocumentPropertySheets(PropSheetUiInfo* info, LPARAM param)
{
    if (info)
        return AnswerSheet(info);
    auto* header = reinterpret_cast<BYTE*>(param);
    if (!header)
        return kSheetFailure;
    StoreRecordSize(header);
    const DocumentPropertyHeader asked = ReadHeader(header);
    return MergeWithoutSheet(asked.hPrinter, asked.pdmIn, asked.pdmOut, asked.fMode);
}

} // namespace psui
