#pragma once
// The platform interface as far as this layer implements it. A function that is missing here is missing
// from the layer: add both together (docs/platform-layer.md tells how).
#include <windef.h>

#include <winerror.h>
#include <winnt.h>

#include <shellapi.h>
#include <winbase.h>
#include <wingdi.h>
#include <winnls.h>
#include <winreg.h>
#include <winuser.h>
#include <winver.h>
