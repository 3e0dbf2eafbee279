#include "host/window/classes.h"

namespace host {

std::span<const BuiltInClass> ControlClasses()
{
    return {};
}

} // namespace host
