#pragma once
// Forms: one list for all printers of the machine.
#include <span>
#include <string>

#include <windows.h>
#include <winspool.h>

namespace host::spooler {

struct BuiltinForm
{
    const char16_t* name;
    LONG width; ///< thousandths of a millimetre, like all lengths of forms
    LONG height;
};

/// The platform's own forms in its order; all of their area is imageable.
std::span<const BuiltinForm> BuiltinForms();

} // namespace host::spooler
