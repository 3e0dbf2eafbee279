#include "host/window/controls/list_items.h"

namespace host {

int FindPrefix(const ListItems& items, int after, const Text& text)
{
    const int size = static_cast<int>(text.size());
    if (size == 0)
        return kNoItem;
    return FindItem(items, after, [&](const ListItem& item) {
        return item.text.size() >= text.size() &&
               CompareStringOrdinal(item.text.data(), size, text.data(), size, TRUE) == CSTR_EQUAL;
    });
}

int FindExact(const ListItems& items, int after, const Text& text)
{
    return FindItem(items, after, [&](const ListItem& item) {
        return CompareStringOrdinal(item.text.data(), static_cast<int>(item.text.size()), text.data(),
                                    static_cast<int>(text.size()), TRUE) == CSTR_EQUAL;
    });
}

int FindData(const ListItems& items, int after, ULONG_PTR data)
{
    return FindItem(items, after, [=](const ListItem& item) { return item.data == data; });
}

} // namespace host
