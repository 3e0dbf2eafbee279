#include "host/host.h"
#include "host/window/room.h"

namespace host {

bool HasDisplay()
{
    return false;
}

void PumpDisplay(int) {}

void CloseDisplay() {}

bool OpenDisplay()
{
    return false;
}

} // namespace host
