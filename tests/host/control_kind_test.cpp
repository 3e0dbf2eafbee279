// What a control says about its kind: to dialogs, to the mouse and to the parent whose colours it takes.
#include "tests/host/control_test.h"

namespace {

class ControlKindTest : public ControlTest
{
protected:
    LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (colours_ == 0 && message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC)
            colours_ = message;
        return ControlTest::OnMessage(window, message, wParam, lParam);
    }

    UINT colours_ = 0; ///< the message that first asked for them
};

TEST_F(ControlKindTest, DecidesKeysHitsAndColours)
{
    constexpr int kList = DLGC_WANTARROWS | DLGC_WANTCHARS;
    constexpr int kEdit = DLGC_HASSETSEL | kList;
    const struct
    {
        LPCWSTR className;
        DWORD style;
        int keys;
        int hit;
        UINT colours;
    } kCases[] = {
        {TEXT("Button"), BS_PUSHBUTTON, DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON, HTCLIENT, WM_CTLCOLORBTN},
        {TEXT("Button"), BS_DEFPUSHBUTTON, DLGC_BUTTON | DLGC_DEFPUSHBUTTON, HTCLIENT, WM_CTLCOLORBTN},
        {TEXT("Button"), BS_AUTOCHECKBOX, DLGC_BUTTON, HTCLIENT, WM_CTLCOLORSTATIC},
        {TEXT("Button"), BS_3STATE, DLGC_BUTTON, HTCLIENT, WM_CTLCOLORSTATIC},
        {TEXT("Button"), BS_RADIOBUTTON, DLGC_BUTTON | DLGC_RADIOBUTTON, HTCLIENT, WM_CTLCOLORSTATIC},
        {TEXT("Button"), BS_AUTORADIOBUTTON, DLGC_BUTTON | DLGC_RADIOBUTTON, HTCLIENT, WM_CTLCOLORSTATIC},
        {TEXT("Button"), BS_GROUPBOX, DLGC_STATIC, HTTRANSPARENT, WM_CTLCOLORSTATIC},
        {TEXT("Button"), BS_OWNERDRAW, DLGC_BUTTON, HTCLIENT, WM_CTLCOLORBTN},
        {TEXT("Static"), SS_LEFT, DLGC_STATIC, HTTRANSPARENT, WM_CTLCOLORSTATIC},
        {TEXT("Static"), SS_NOTIFY, DLGC_STATIC, HTCLIENT, WM_CTLCOLORSTATIC},
        {TEXT("Edit"), ES_AUTOHSCROLL, kEdit, HTCLIENT, WM_CTLCOLOREDIT},
        {TEXT("Edit"), ES_MULTILINE, kEdit | DLGC_WANTALLKEYS, HTCLIENT, WM_CTLCOLOREDIT},
        {TEXT("Edit"), ES_READONLY, kEdit, HTCLIENT, WM_CTLCOLORSTATIC},
        {TEXT("Edit"), WS_DISABLED, kEdit, HTCLIENT, WM_CTLCOLORSTATIC},
        {TEXT("ListBox"), 0, kList, HTCLIENT, WM_CTLCOLORLISTBOX},
        {TEXT("ComboBox"), CBS_DROPDOWNLIST, kList, HTCLIENT, 0},
        {TEXT("ScrollBar"), 0, DLGC_WANTARROWS, HTCLIENT, 0},
        {TRACKBAR_CLASSW, 0, DLGC_WANTARROWS, HTCLIENT, 0},
        {WC_TABCONTROLW, 0, kList, HTTRANSPARENT, 0},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(Narrowed(each.className) + ' ' + std::to_string(each.style));
        const HWND control = Make(each.className, each.style, 100, 24, "text");
        EXPECT_EQ(Send(control, WM_GETDLGCODE), each.keys);
        POINT inside = {20, 5};
        ClientToScreen(control, &inside);
        EXPECT_EQ(Send(control, WM_NCHITTEST, 0, MAKELPARAM(inside.x, inside.y)), each.hit);
        colours_ = 0;
        Repaint(control, true);
        if (each.colours != 0) {
            EXPECT_EQ(colours_, each.colours);
        }
        DestroyWindow(control);
    }
}

} // namespace
