#pragma once
// Dialog templates of pages. A page's template may describe any window; a sheet needs a child of its own.
#include <string>
#include <vector>

#include <windows.h>

#include <prsht.h>

namespace compstui {

struct PageTemplate
{
    std::vector<BYTE> bytes; ///< the template as a child window without a frame; empty when there is none
    std::basic_string<WCHAR> title;
};

/// Reads and changes the template that a page record names. A template that ends before its last control does
/// counts as none.
PageTemplate ReadPageTemplate(const PROPSHEETPAGEW& page);

/// The size of a template made by ReadPageTemplate, in dialog units.
SIZE TemplateUnits(const std::vector<BYTE>& bytes);

} // namespace compstui
