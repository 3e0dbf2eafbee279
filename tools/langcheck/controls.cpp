#include "tools/langcheck/controls.h"

#include <commctrl.h>

namespace langcheck {
namespace {

Kind KindOfButton(DWORD type)
{
    switch (type) {
    case BS_PUSHBUTTON:
    case BS_DEFPUSHBUTTON:
        return Kind::pushButton;
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
    case BS_3STATE:
    case BS_AUTO3STATE:
        return Kind::checkBox;
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
        return Kind::radioButton;
    case BS_GROUPBOX:
        return Kind::groupBox;
    default:
        return Kind::picture;
    }
}

Kind KindOfStatic(DWORD type)
{
    switch (type) {
    case SS_LEFT:
    case SS_CENTER:
    case SS_RIGHT:
    case SS_SIMPLE:
    case SS_LEFTNOWORDWRAP:
        return Kind::text;
    default:
        return Kind::frame;
    }
}

bool IsClass(const Control& control, const WCHAR* name)
{
    return lstrcmpiW(control.className.c_str(), name) == 0;
}

} // namespace

Kind KindOf(const Control& control)
{
    if (IsClass(control, TEXT("Button")))
        return KindOfButton(control.style & BS_TYPEMASK);
    if (IsClass(control, TEXT("Static")))
        return KindOfStatic(control.style & SS_TYPEMASK);

    constexpr struct
    {
        const WCHAR* name;
        Kind kind;
    } classes[] = {{TEXT("Edit"), Kind::edit},       {TEXT("ComboBox"), Kind::comboBox},
                   {TEXT("ListBox"), Kind::listBox}, {WC_TABCONTROL, Kind::tabs},
                   {TRACKBAR_CLASS, Kind::slider},   {TEXT("ScrollBar"), Kind::slider}};
    for (const auto& row : classes) {
        if (IsClass(control, row.name))
            return row.kind;
    }
    return Kind::other;
}

bool IsGround(const Control& control)
{
    const Kind kind = KindOf(control);
    return kind == Kind::groupBox || kind == Kind::frame || kind == Kind::tabs;
}

bool HasMnemonic(const Control& control)
{
    switch (KindOf(control)) {
    case Kind::pushButton:
    case Kind::checkBox:
    case Kind::radioButton:
    case Kind::groupBox:
    case Kind::picture:
        return true;
    case Kind::text:
        return !(control.style & SS_NOPREFIX);
    default:
        return false;
    }
}

WCHAR MnemonicOf(const Control& control)
{
    if (!HasMnemonic(control))
        return 0;
    const WideString& text = control.text;
    for (size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] == '&' && text[++i] != '&')
            return text[i] >= 'a' && text[i] <= 'z' ? static_cast<WCHAR>(text[i] - 'a' + 'A') : text[i];
    }
    return 0;
}

WideString ShownText(const Control& control)
{
    if (!HasMnemonic(control))
        return control.text;
    WideString shown;
    for (size_t i = 0; i < control.text.size(); ++i) {
        if (control.text[i] == '&' && ++i == control.text.size())
            break;
        shown += control.text[i];
    }
    return shown;
}

} // namespace langcheck
