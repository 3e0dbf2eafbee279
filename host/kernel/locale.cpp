#include "host/kernel/call.h"
#include "host/kernel/error.h"

namespace {

constexpr LANGID kEnglishUs = 0x0409;

} // namespace

LANGID WINAPI GetUserDefaultUILanguage(void)
{
    HOST_CALL_VOID(GetUserDefaultUILanguage);
    return kEnglishUs;
}

LCID WINAPI GetUserDefaultLCID(void)
{
    HOST_CALL_VOID(GetUserDefaultLCID);
    return kEnglishUs;
}
