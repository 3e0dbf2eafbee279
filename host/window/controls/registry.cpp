#include "host/window/classes.h"

#include <commctrl.h>

#include "host/window/controls/button.h"
#include "host/window/controls/combo_box.h"
#include "host/window/controls/edit.h"
#include "host/window/controls/list_box.h"
#include "host/window/controls/scroll_bar.h"
#include "host/window/controls/static.h"
#include "host/window/controls/tab.h"
#include "host/window/controls/track_bar.h"
#include "host/window/controls/up_down.h"

namespace host {
namespace {

constexpr int kState = sizeof(void*); // every control keeps the address of its state
constexpr UINT kRepaints = CS_DBLCLKS | CS_PARENTDC | CS_HREDRAW | CS_VREDRAW;

const BuiltInClass kClasses[] = {
    {TEXT("Button"), ButtonProc, kRepaints, kState, IDC_ARROW, 0, 0x80},
    {TEXT("Edit"), EditProc, CS_DBLCLKS | CS_PARENTDC, kState, IDC_IBEAM, 0, 0x81},
    {TEXT("Static"), StaticProc, kRepaints, kState, IDC_ARROW, 0, 0x82},
    {TEXT("ScrollBar"), ScrollBarProc, kRepaints, kState, IDC_ARROW, 0, 0x84},
    {TEXT("ListBox"), ListBoxProcedure, CS_DBLCLKS, kState, IDC_ARROW, 0, 0x83},
    {TEXT("ComboLBox"), ListBoxProcedure, CS_DBLCLKS | CS_SAVEBITS, kState, IDC_ARROW, 0},
    {TEXT("ComboBox"), ComboBoxProcedure, kRepaints, kState, IDC_ARROW, 0, 0x85},
    {WC_TABCONTROLW, TabProcedure, CS_DBLCLKS, kState, IDC_ARROW, 0},
    {TRACKBAR_CLASSW, TrackBarProcedure, CS_DBLCLKS, kState, IDC_ARROW, 0},
    {UPDOWN_CLASSW, UpDownProc, CS_HREDRAW | CS_VREDRAW, kState, IDC_ARROW, 0},
};

} // namespace

std::span<const BuiltInClass> ControlClasses()
{
    return kClasses;
}

} // namespace host
