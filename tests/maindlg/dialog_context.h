#pragma once
// A context as the main dialog has it, around a model and a record of the test's own.
#include <charconv>
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

inline std::u16string Replaced(std::u16string text, std::u16string_view from, std::u16string_view to)
{
    for (size_t at = 0; (at = text.find(from, at)) != text.npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

/// The text that a sketch stands for: "{8139}" is that string, "{8140:3}" that string with its place filled
/// with 3, "~" a new line indented by 5, "^" one by 10.
inline std::u16string Expand(const std::string& sketch)
{
    std::u16string text;
    for (const char* at = sketch.c_str(); *at; ++at) {
        if (*at == '{') {
            unsigned id = 0;
            at = std::from_chars(at + 1, at + 8, id).ptr;
            std::u16string piece = LanguageText(id);
            EXPECT_FALSE(piece.empty()) << id;
            EXPECT_EQ(piece.find(u'&'), piece.npos) << id;
            if (*at == ':') {
                const std::string number(at + 1, std::strchr(at, '}'));
                piece = Replaced(piece, u"%d", std::u16string(number.begin(), number.end()));
                piece = Replaced(piece, u"%%", u"%");
                at = std::strchr(at, '}');
            }
            text += piece;
        } else if (*at == '~' || *at == '^') {
            text += u"\r\n" + std::u16string(*at == '~' ? 5 : 10, u' ');
        } else {
            text += *at == '\n' ? std::u16string(u"\r\n") : std::u16string(1, *at);
        }
    }
    return text;
}

} // namespace test
