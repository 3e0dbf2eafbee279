#include "tools/psuictl/common_dialogs.h"

namespace psuictl {

bool ChooseDialogAnswer(const CommonDialogAnswer& answer)
{
    const HMODULE module = LoadLibraryW(TEXT("comdlg32.dll")); // kept: it remembers the answer
    const auto choose = module ? reinterpret_cast<comdlg::ChooseFn>(
                                     reinterpret_cast<void*>(GetProcAddress(module, comdlg::kChooseFunction)))
                               : nullptr;
    if (choose)
        choose(answer.kind, answer.text.c_str(), answer.number);
    else if (module)
        FreeLibrary(module);
    return choose != nullptr;
}

} // namespace psuictl
