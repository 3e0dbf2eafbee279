#include <string_view>

#include "psui/settings/printer_data.h"
#include "psui/settings/spooler.h"
#include "psui/settings/text.h"

namespace psui {

namespace {

constexpr const WCHAR* kFormsValue = TEXT("Forms?");
constexpr DWORD kFormsMissing = 0; ///< also a request to register them again
constexpr DWORD kFormsRegistered = 2;

DWORD FormsState(HANDLE printer)
{
    DWORD state = kFormsMissing;
    ReadPrinterNumber(printer, kFormsValue, state);
    return state;
}

using FormName = WCHAR[CCHFORMNAME];

void NameOfForm(const ModelOption& option, FormName& name)
{
    const char* translation = option.translation.get();
    WideFromNarrow(name, translation && *translation ? translation : option.name.get(), CCHFORMNAME);
}

/// A form has no size beyond the signed range; a page size of 0 stands for one that is not fixed.
bool IsFormLength(uint32_t points256)
{
    return points256 != 0 && points256 <= INT32_MAX;
}

void AddPrinterForm(HANDLE printer, const PageSizeOption& page)
{
    if (!IsFormLength(page.width) || !IsFormLength(page.height))
        return;
    FormName name;
    NameOfForm(page.base, name);
    FORM_INFO_1W form = {};
    form.Flags = FORM_PRINTER;
    form.pName = name;
    form.Size.cx = form.ImageableArea.right = Points256ToMicrons(static_cast<int32_t>(page.width));
    form.Size.cy = form.ImageableArea.bottom = Points256ToMicrons(static_cast<int32_t>(page.height));
    AddFormW(printer, 1, reinterpret_cast<BYTE*>(&form));
}

bool IsUserForm(const FORM_INFO_1W& form)
{
    return form.Flags == FORM_USER && form.pName;
}

/// Deletes the user forms of that name; returns whether one went.
bool DeleteUserForms(HANDLE printer, const SpoolerBlock<FORM_INFO_1W>& forms, DWORD count, FormName& name)
{
    const std::basic_string_view<WCHAR> wanted(name);
    bool deleted = false;
    for (const FORM_INFO_1W* form = forms.get(); form != forms.get() + count; ++form)
        if (IsUserForm(*form) && form->pName == wanted)
            deleted |= DeleteFormW(printer, form->pName) != FALSE;
    return deleted;
}

} // namespace

void RegisterModelForms(HANDLE printer, const ModelDescription* model)
{
    const ModelFeature* pages = BuiltinFeature(model, kFeaturePageSize);
    if (!pages || FormsState(printer) != kFormsMissing)
        return;
    for (const ModelOption* page = FirstOption(pages); page; page = page->next.get())
        AddPrinterForm(printer, *reinterpret_cast<const PageSizeOption*>(page));
    WritePrinterNumber(printer, kFormsValue, kFormsRegistered);
}

void RefreshModelForms(HANDLE printer, const ModelDescription* model)
{
    const ModelFeature* pages = BuiltinFeature(model, kFeaturePageSize);
    if (!pages || FormsState(printer) == kFormsMissing)
        return;
    DWORD count = 0;
    const SpoolerBlock<FORM_INFO_1W> forms = EnumPrinterForms(printer, count);
    if (!forms)
        return;
    bool deleted = false;
    for (const ModelOption* page = FirstOption(pages); page; page = page->next.get()) {
        FormName name;
        NameOfForm(*page, name);
        deleted |= DeleteUserForms(printer, forms, count, name);
    }
    if (!deleted)
        return;
    WritePrinterNumber(printer, kFormsValue, kFormsMissing);
    RegisterModelForms(printer, model);
}

} // namespace psui
