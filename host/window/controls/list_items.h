#pragma once
// The entries of a list box, without a window.
#include <vector>

#include "host/window/controls/control.h"

namespace host {

struct ListItem
{
    Text text;             ///< empty in lists without strings
    ULONG_PTR data = 0;    ///< the entry itself in lists without strings
    int height = 0;        ///< pixels, where entries have heights of their own
    bool selected = false; ///< where several entries may be selected
};

using ListItems = std::vector<ListItem>;

/// No entry: LB_ERR, and the index of messages about no entry at all.
constexpr int kNoItem = -1;

inline bool HasItem(const ListItems& items, int index)
{
    return index >= 0 && static_cast<size_t>(index) < items.size();
}

inline int CountOf(const ListItems& items)
{
    return static_cast<int>(items.size());
}

/// The first entry behind `after`, wrapping around, for which `matches` holds; kNoItem when there is none.
/// An `after` that is no entry starts at the top.
template <class Matches>
int FindItem(const ListItems& items, int after, Matches matches)
{
    const int count = CountOf(items);
    const int first = HasItem(items, after) ? after + 1 : 0;
    for (int step = 0; step < count; ++step) {
        const int index = (first + step) % count;
        if (matches(items[index]))
            return index;
    }
    return kNoItem;
}

/// Letter case does not count. An empty text begins no entry.
int FindPrefix(const ListItems& items, int after, const Text& text);
int FindExact(const ListItems& items, int after, const Text& text);
int FindData(const ListItems& items, int after, ULONG_PTR data);

/// Where a new entry belongs in a sorted list. `compareWith(index)` is negative, zero or positive as the
/// entry at `index` comes before, equals or comes after the new one.
template <class CompareWith>
int SortedPosition(const ListItems& items, CompareWith compareWith)
{
    int first = 0;
    int last = CountOf(items) - 1;
    while (first <= last) {
        const int middle = first + (last - first) / 2;
        const int order = compareWith(middle);
        if (order == 0)
            return middle;
        if (order < 0)
            first = middle + 1;
        else
            last = middle - 1;
    }
    return first;
}

} // namespace host
