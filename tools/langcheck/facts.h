#pragma once
// What the templates cannot say: which controls share a place, which dialogs are seen together, and what the
// code writes into controls.
#include <string>
#include <vector>

#include "tools/langcheck/language.h"

namespace langcheck {

/// Controls first..last of a dialog are one page of several: at most one page shows at a time. Pages of one
/// number are one page.
struct PageRange
{
    unsigned dialog;
    unsigned first, last;
    int page; ///< above 0
};

/// A dialog that is shown inside another one, on its tab control.
struct TabHost
{
    unsigned host;
    unsigned tab;
};

/// Texts that the code writes into a control or its list: strings first..last, each after `label` (0: none)
/// and the separator. `indent` is what the list's painter keeps free, in pixels.
struct Filling
{
    unsigned dialog;
    unsigned control;
    unsigned first, last;
    unsigned label = 0;
    const WCHAR* separator = TEXT("");
    int indent = 0;
};

/// A control that the code makes as large as a bitmap of the library: the largest it shows.
struct Picture
{
    unsigned dialog;
    unsigned control;
    unsigned bitmap;
    int inset = 0; ///< pixels between the control's edge and the picture
};

struct Facts
{
    std::vector<PageRange> pages;
    std::vector<TabHost> tabs;
    std::vector<Filling> fillings;
    std::vector<Picture> pictures;
};

/// The facts of the product.
const Facts& ProductFacts();

/// The page of a control, 0 for one that every page shows.
int PageOf(const Facts& facts, unsigned dialog, unsigned control);

} // namespace langcheck
