#pragma once
#include <windows.h>

namespace comdlg {

/// Notes that a common dialog was asked for: its function's name, and the answer in words or nothing when it
/// was cancelled.
void RecordDialog(const WCHAR* function, const WCHAR* answer);

} // namespace comdlg
