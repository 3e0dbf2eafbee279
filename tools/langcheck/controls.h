#pragma once
// What kind of thing a control of a template is.
#include "tools/langcheck/language.h"

namespace langcheck {

enum class Kind
{
    pushButton, ///< also the default one
    checkBox,
    radioButton,
    groupBox,
    picture, ///< owner-drawn button
    text,    ///< static text, or a static that is nothing else
    frame,   ///< static rectangle, frame or line
    edit,
    comboBox,
    listBox,
    tabs,
    slider,
    other,
};

Kind KindOf(const Control& control);

inline bool IsVisible(const Control& control)
{
    return control.style & WS_VISIBLE;
}

/// Whether other controls may stand on it.
bool IsGround(const Control& control);

/// Whether text takes "&" as the mark of a letter.
bool HasMnemonic(const Control& control);

/// The letter after the first single "&", upper case, or 0.
WCHAR MnemonicOf(const Control& control);

/// The text as it is shown: without the marks of letters.
WideString ShownText(const Control& control);

} // namespace langcheck
