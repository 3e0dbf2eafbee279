// The tab control, as a program sees it.
#include "tests/host/control_test.h"

namespace {

class TabTest : public ControlTest
{
protected:
    void SetUp() override
    {
        ControlTest::SetUp();
        tabs_ = Make(WC_TABCONTROLW, WS_CLIPSIBLINGS, 300, 200);
        WCHAR texts[][12] = {TEXT("Basic"), TEXT("&Advanced"), TEXT("Favourites")};
        for (WPARAM index = 0; index < std::size(texts); ++index) {
            TCITEMW item = {};
            item.mask = TCIF_TEXT | TCIF_PARAM;
            item.pszText = texts[index];
            item.lParam = 100 + static_cast<LPARAM>(index);
            EXPECT_EQ(Send(tabs_, TCM_INSERTITEMW, index, &item), static_cast<int>(index));
        }
    }

    RECT TabRect(int index)
    {
        RECT rect = {};
        EXPECT_TRUE(Send(tabs_, TCM_GETITEMRECT, static_cast<WPARAM>(index), &rect));
        return rect;
    }
    int Selected() { return Send(tabs_, TCM_GETCURSEL); }

    LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != WM_NOTIFY)
            return ControlTest::OnMessage(window, message, wParam, lParam);
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

TEST_F(TabTest, ItemsKeepTextDataAndSelection)
{
    WCHAR text[4] = {};
    TCITEMW item = {};
    item.mask = TCIF_TEXT | TCIF_PARAM;
    item.pszText = text;
    item.cchTextMax = 4;
    EXPECT_TRUE(Send(tabs_, TCM_GETITEMW, 1, &item));
    EXPECT_EQ(Narrowed(item.pszText), "&Ad");
    EXPECT_EQ(item.lParam, 101);
    EXPECT_FALSE(Send(tabs_, TCM_GETITEMW, 3, &item));
    EXPECT_EQ(Selected(), 0) << "the first tab is selected from the start";
    EXPECT_EQ(Send(tabs_, TCM_SETCURSEL, 1), 0);
    EXPECT_EQ(Send(tabs_, TCM_SETCURSEL, 9), -1);
    EXPECT_EQ(Selected(), 1);
    EXPECT_EQ(Told(), "") << "a program that selects a tab is not told";
}

TEST_F(TabTest, PagesLieBelowTheTabs)
{
    const RECT whole = {0, 0, 300, 200};
    RECT rect = whole;
    Send(tabs_, TCM_ADJUSTRECT, FALSE, &rect);
    EXPECT_EQ(rect.left, 4);
    EXPECT_EQ(rect.right, 296);
    EXPECT_EQ(rect.bottom, 196);
    EXPECT_GE(rect.top, TabRect(0).bottom);
    EXPECT_LT(rect.top, 40);
    Send(tabs_, TCM_ADJUSTRECT, TRUE, &rect);
    EXPECT_TRUE(EqualRect(&rect, &whole));
    EXPECT_EQ(TabRect(0).right, TabRect(1).left);
    EXPECT_EQ(TabRect(1).top, TabRect(2).top);
    EXPECT_GT(TabRect(1).right - TabRect(1).left, TabRect(0).right - TabRect(0).left);
}

TEST_F(TabTest, UserIsAskedForAndTold)
{
    const auto click = [&](int index) {
        const RECT rect = TabRect(index);
        Click(tabs_, (rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
        return Told();
    };
    EXPECT_EQ(click(1), "changing0 change1");
    EXPECT_EQ(click(1), "");
    EXPECT_EQ(GetFocus(), tabs_) << "a click on the selected tab takes the focus";
    refuses_ = true;
    EXPECT_EQ(click(2), "changing1");
    EXPECT_EQ(Selected(), 1);
}

TEST_F(TabTest, ArrowsChangeTheTab)
{
    SetFocus(tabs_);
    ExpectTold({
        {[&] { Key(tabs_, VK_RIGHT); }, "changing0 change1"},
        {[&] { Key(tabs_, VK_RIGHT); }, "changing1 change2"},
        {[&] { Key(tabs_, VK_RIGHT); }, ""},
        {[&] { Key(tabs_, VK_LEFT); }, "changing2 change1"},
        {[&] { Key(tabs_, VK_DOWN); }, ""},
        {[&] { Send(tabs_, TCM_SETCURFOCUS, 0); }, "changing1 change0"},
    });
}

} // namespace
