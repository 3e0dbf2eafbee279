#include "host/shell/comdlg/record.h"

// There is nowhere to record it.
void comdlg::RecordDialog(const WCHAR*, const WCHAR*) {}
