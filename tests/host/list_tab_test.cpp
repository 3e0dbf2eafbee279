// The tab control, as a program sees it.
#include "tests/host/list_parent.h"

namespace {

class Tabs : public ListParent
{
protected:
    void SetUp() override
    {
        ListParent::SetUp();
        tabs_ = Make(WC_TABCONTROLW, WS_CLIPSIBLINGS, 300, 200);
        for (const LPCWSTR text : {TEXT("Basic"), TEXT("&Advanced"), TEXT("Favourites")})
            Insert(Send(tabs_, TCM_GETITEMCOUNT), text);
    }

    int Insert(int index, LPCWSTR text)
    {
        TCITEMW item = {};
        item.mask = TCIF_TEXT | TCIF_PARAM;
        item.pszText = const_cast<LPWSTR>(text);
        item.lParam = 100 + index;
        return Send(tabs_, TCM_INSERTITEMW, static_cast<WPARAM>(index), &item);
    }

    RECT TabRect(int index)
    {
        RECT rect = {};
        EXPECT_TRUE(Send(tabs_, TCM_GETITEMRECT, static_cast<WPARAM>(index), &rect));
        return rect;
    }
    void ClickTab(int index)
    {
        const RECT rect = TabRect(index);
        Click(tabs_, (rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
    }
    int Selected() { return Send(tabs_, TCM_GETCURSEL); }

    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != WM_NOTIFY)
            return ListParent::OnMessage(message, wParam, lParam);
        const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
        EXPECT_EQ(header.hwndFrom, tabs_);
        EXPECT_EQ(header.idFrom, UINT_PTR{kId});
        if (header.code == TCN_SELCHANGING)
            Note("changing" + std::to_string(Selected()));
        if (header.code == TCN_SELCHANGE)
            Note("change" + std::to_string(Selected()));
        return header.code == TCN_SELCHANGING && refuses_;
    }

    HWND tabs_ = nullptr;
    bool refuses_ = false;
};

TEST_F(Tabs, ItemsKeepTextAndData)
{
    WCHAR text[4] = {};
    TCITEMW item = {};
    item.mask = TCIF_TEXT | TCIF_PARAM;
    item.pszText = text;
    item.cchTextMax = 4;
    EXPECT_TRUE(Send(tabs_, TCM_GETITEMW, 1, &item));
    EXPECT_EQ(Wide(item.pszText), TEXT("&Ad"));
    EXPECT_EQ(item.lParam, 101);
    EXPECT_FALSE(Send(tabs_, TCM_GETITEMW, 3, &item));
    item.mask = TCIF_PARAM;
    item.lParam = 7;
    EXPECT_TRUE(Send(tabs_, TCM_SETITEMW, 1, &item));
    item.lParam = 0;
    EXPECT_TRUE(Send(tabs_, TCM_GETITEMW, 1, &item));
    EXPECT_EQ(item.lParam, 7);
    EXPECT_EQ(Send(tabs_, TCM_GETROWCOUNT), 1);
    EXPECT_TRUE(Send(tabs_, TCM_DELETEALLITEMS));
    EXPECT_EQ(Send(tabs_, TCM_GETITEMCOUNT), 0);
    EXPECT_EQ(Told(), "");
}

TEST_F(Tabs, SelectionFollowsItsTab)
{
    EXPECT_EQ(Selected(), 0) << "the first tab is selected from the start";
    EXPECT_EQ(Send(tabs_, TCM_SETCURSEL, 1), 0);
    EXPECT_EQ(Send(tabs_, TCM_SETCURSEL, 9), -1);
    EXPECT_EQ(Selected(), 1);
    EXPECT_EQ(Insert(0, TEXT("New")), 0);
    EXPECT_EQ(Selected(), 2);
    EXPECT_TRUE(Send(tabs_, TCM_DELETEITEM, 0));
    EXPECT_EQ(Selected(), 1);
    EXPECT_TRUE(Send(tabs_, TCM_DELETEITEM, 1));
    EXPECT_EQ(Selected(), -1);
    EXPECT_EQ(Told(), "") << "a program that selects a tab is not told";
}

TEST_F(Tabs, PagesLieBelowTheTabs)
{
    RECT rect = {0, 0, 300, 200};
    Send(tabs_, TCM_ADJUSTRECT, FALSE, &rect);
    EXPECT_EQ(rect.left, 4);
    EXPECT_EQ(rect.right, 296);
    EXPECT_EQ(rect.bottom, 196);
    EXPECT_GE(rect.top, TabRect(0).bottom);
    EXPECT_LT(rect.top, 40);
    Send(tabs_, TCM_ADJUSTRECT, TRUE, &rect);
    EXPECT_EQ(rect.left, 0);
    EXPECT_EQ(rect.top, 0);
    EXPECT_EQ(rect.right, 300);
    EXPECT_EQ(rect.bottom, 200);
    EXPECT_EQ(TabRect(0).right, TabRect(1).left);
    EXPECT_EQ(TabRect(1).top, TabRect(2).top);
    EXPECT_GT(TabRect(1).right - TabRect(1).left, TabRect(0).right - TabRect(0).left);
}

TEST_F(Tabs, PointsHitTabs)
{
    const RECT rect = TabRect(2);
    TCHITTESTINFO test = {};
    test.pt = {rect.left + 5, rect.top + 5};
    EXPECT_EQ(Send(tabs_, TCM_HITTEST, 0, &test), 2);
    EXPECT_NE(test.flags & TCHT_ONITEM, 0u);
    test.pt.y = 100;
    EXPECT_EQ(Send(tabs_, TCM_HITTEST, 0, &test), -1);
    EXPECT_EQ(test.flags, UINT{TCHT_NOWHERE});
}

TEST_F(Tabs, UserIsAskedForAndTold)
{
    ClickTab(1);
    EXPECT_EQ(Told(), "changing0 change1");
    ClickTab(1);
    EXPECT_EQ(Told(), "");
    EXPECT_EQ(GetFocus(), tabs_) << "a click on the selected tab takes the focus";
    refuses_ = true;
    ClickTab(2);
    EXPECT_EQ(Told(), "changing1");
    EXPECT_EQ(Selected(), 1);
}

TEST_F(Tabs, ArrowsChangeTheTab)
{
    SetFocus(tabs_);
    const struct
    {
        WPARAM key;
        int selected;
        const char* told;
    } kSteps[] = {
        {VK_RIGHT, 1, "changing0 change1"},
        {VK_RIGHT, 2, "changing1 change2"},
        {VK_RIGHT, 2, ""},
        {VK_LEFT, 1, "changing2 change1"},
        {VK_DOWN, 1, ""},
    };
    for (const auto& step : kSteps) {
        Key(tabs_, step.key);
        EXPECT_EQ(Selected(), step.selected);
        EXPECT_EQ(Told(), step.told);
    }
    Send(tabs_, TCM_SETCURFOCUS, 0);
    EXPECT_EQ(Told(), "changing1 change0");
    EXPECT_EQ(Send(tabs_, WM_GETDLGCODE), DLGC_WANTARROWS | DLGC_WANTCHARS);
}

} // namespace
