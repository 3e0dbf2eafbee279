#pragma once
// A context as the main dialog has it, around a model and a record of the test's own.
#include <memory>

#include "psui/entry/context.h"
#include "psui/settings/record.h"
#include "tests/settings/support.h"

namespace test {

class DialogContext
{
public:
    explicit DialogContext(std::string_view model = kFullModel) : model_(model)
    {
        context_->pModel = model_;
        context_->bPermission = 1;
        context_->hLangRes = context_->hPageRes = psui::hLangModule;
        psui::BuildDefaultDevMode(&context_->dmWork, TEXT("P1"), model_, true);
    }
    ~DialogContext() { psui::FreeGlobalBlocks(context_.get()); }
    DialogContext(const DialogContext&) = delete;
    DialogContext& operator=(const DialogContext&) = delete;

    operator psui::PrinterUiContext*() const { return context_.get(); }
    psui::PrinterUiContext* operator->() const { return context_.get(); }
    psui::DriverDevMode& record() const { return context_->dmWork; }

private:
    Model model_;
    std::unique_ptr<psui::PrinterUiContext> context_ = std::make_unique<psui::PrinterUiContext>();
};

inline std::u16string LanguageText(UINT id)
{
    WCHAR text[512];
    return {text, static_cast<size_t>(psui::LoadLanguageString(id, text, 512))};
}

} // namespace test
