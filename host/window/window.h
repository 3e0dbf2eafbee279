#pragma once

namespace host {

/// No window is active any more.
void CloseWindowRoom();

} // namespace host
