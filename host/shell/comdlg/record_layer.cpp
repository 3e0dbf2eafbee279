#include "host/shell/comdlg/record.h"

#include "host/shell/shell.h"

void comdlg::RecordDialog(const WCHAR* function, const WCHAR* answer)
{
    host::RecordEvent("dialog", function, answer);
}
