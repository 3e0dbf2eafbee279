#include "psui/maindlg/mnemonics.h"

#include <cstring>
#include <iterator>
#include <string_view>

#include "psui/settings/text.h"

namespace psui {

namespace {

/// What follows the "&" of a mnemonic that is switched off. With it the "&" is the first of a pair that
/// stands for a plain "&".
constexpr WCHAR kMark[] = TEXT("&&~");
constexpr int kMarkUnits = static_cast<int>(std::size(kMark)) - 1;

bool IsMarked(const WCHAR* behindMnemonic)
{
    return std::basic_string_view<WCHAR>(behindMnemonic).substr(0, kMarkUnits) == kMark;
}

/// The place behind the first "&", or null.
WCHAR* BehindMnemonic(WCHAR* text)
{
    for (; *text; ++text)
        if (*text == '&')
            return text + 1;
    return nullptr;
}

void MoveTail(WCHAR* to, const WCHAR* from)
{
    std::memmove(to, from, (lstrlenW(from) + 1) * sizeof(WCHAR));
}

bool HasMnemonics(HWND window)
{
    WCHAR name[16];
    return window && GetClassNameW(window, name, std::size(name)) > 0 &&
           (EqualNoCase(name, TEXT("button")) || EqualNoCase(name, TEXT("static")));
}

void ChangeText(HWND dialog, int control, bool (*change)(WCHAR (&)[kMnemonicTextUnits]))
{
    WCHAR text[kMnemonicTextUnits];
    const HWND window = GetDlgItem(dialog, control);
    if (!HasMnemonics(window))
        return;
    GetWindowTextW(window, text, std::size(text));
    if (change(text))
        SetWindowTextW(window, text);
}

} // namespace

bool InsertMnemonicMark(WCHAR (&buffer)[kMnemonicTextUnits])
{
    WCHAR* place = BehindMnemonic(buffer);
    if (!place || IsMarked(place) || lstrlenW(buffer) + kMarkUnits >= kMnemonicTextUnits)
        return false;
    MoveTail(place + kMarkUnits, place);
    std::memcpy(place, kMark, kMarkUnits * sizeof(WCHAR));
    return true;
}

bool RemoveMnemonicMark(WCHAR (&buffer)[kMnemonicTextUnits])
{
    for (WCHAR* place = BehindMnemonic(buffer); place; place = BehindMnemonic(place))
        if (IsMarked(place)) {
            MoveTail(place, place + kMarkUnits);
            return true;
        }
    return false;
}

void DisableMnemonic(HWND dialog, int control)
{
    ChangeText(dialog, control, InsertMnemonicMark);
}

void RestoreMnemonic(HWND dialog, int control)
{
    ChangeText(dialog, control, RemoveMnemonicMark);
}

} // namespace psui
