#include "psui/maindlg/paper_names.h"

#include <iterator>
#include <string_view>

#include "lang/ids/strings.h"
#include "psui/base/label.h"
#include "psui/base/module.h"
#include "psui/settings/text.h"

namespace psui {

bool UserPaperWithName(const PrinterUiContext* context, const WCHAR* end, WCHAR (&text)[kEntryUnits])
{
    text[0] = 0;
    const auto& name = context->dmWork.dmPrivate.wszCustomName;
    const int length = BoundedLength(name, std::size(name));
    if (length == 0)
        return false;
    WCHAR kind[kEntryUnits];
    LoadModuleString(context->hPageRes, IDS_CUSTOM_SIZE, kind, std::size(kind));
    TextCursor cursor = {text, kEntryUnits};
    Append(cursor, {name, static_cast<size_t>(length)});
    Append(cursor, TEXT(" ("));
    Append(cursor, kind);
    Append(cursor, TEXT(")"));
    Append(cursor, end);
    return true;
}

} // namespace psui
