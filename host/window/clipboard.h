#pragma once

namespace host {

void CloseClipboardRoom();

} // namespace host
