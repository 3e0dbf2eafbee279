#pragma once
// A parent window that writes down what its control tells it, for the tests of lists and common controls.
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

using Wide = std::basic_string<WCHAR>;

class ListParent : public testing::Test
{
protected:
    struct CodeName
    {
        int code;
        const char* name;
    };
    static constexpr int kId = 77;

    // One window for all tests of a suite: making it visible takes a second implementation seconds.
    static void SetUpTestSuite()
    {
        InitCommonControls();
        WNDCLASSW description = {};
        description.lpfnWndProc = Procedure;
        description.hInstance = GetModuleHandleW(nullptr);
        description.lpszClassName = TEXT("ListParent");
        RegisterClassW(&description);
        parent_ = CreateWindowExW(0, TEXT("ListParent"), TEXT("test"), WS_POPUP | WS_VISIBLE, 50, 50, 600,
                                  500, nullptr, nullptr, description.hInstance, nullptr);
        ASSERT_NE(parent_, nullptr);
    }

    static void TearDownTestSuite()
    {
        DestroyWindow(parent_);
        UnregisterClassW(TEXT("ListParent"), GetModuleHandleW(nullptr));
    }

    void SetUp() override
    {
        SetWindowLongPtrW(parent_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetActiveWindow(parent_);
        SetFocus(parent_);
        Pump();
    }

    void TearDown() override
    {
        while (const HWND control = GetWindow(parent_, GW_CHILD))
            DestroyWindow(control);
        SetWindowLongPtrW(parent_, GWLP_USERDATA, 0);
    }

    HWND Make(LPCWSTR className, DWORD style, int width, int height)
    {
        const HWND control = CreateWindowExW(0, className, nullptr, WS_CHILD | WS_VISIBLE | style, 10, 10,
                                             width, height, parent_, reinterpret_cast<HMENU>(INT_PTR{kId}),
                                             GetModuleHandleW(nullptr), nullptr);
        EXPECT_NE(control, nullptr);
        return control;
    }

    /// `parameter` is a number, a text or the address of a record.
    template <class Parameter = LPARAM>
    static int Send(HWND control, UINT message, WPARAM wParam = 0, Parameter parameter = 0)
    {
        LPARAM lParam = 0;
        if constexpr (std::is_pointer_v<Parameter>)
            lParam = reinterpret_cast<LPARAM>(parameter);
        else
            lParam = static_cast<LPARAM>(parameter);
        return static_cast<int>(SendMessageW(control, message, wParam, lParam));
    }

    static void Pump()
    {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }

    static void Key(HWND control, WPARAM key)
    {
        Send(control, WM_KEYDOWN, key, 1);
        Send(control, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    }
    static void AltKey(HWND control, WPARAM key)
    {
        Send(control, WM_SYSKEYDOWN, key, 0x20000001);
        Send(control, WM_SYSKEYUP, key, static_cast<LPARAM>(0xE0000001));
    }
    static void Press(HWND control, int x, int y, WPARAM keys = 0)
    {
        Send(control, WM_LBUTTONDOWN, MK_LBUTTON | keys, MAKELPARAM(x, y));
    }
    static void Release(HWND control, int x, int y, WPARAM keys = 0)
    {
        Send(control, WM_LBUTTONUP, keys, MAKELPARAM(x, y));
    }
    static void Click(HWND control, int x, int y, WPARAM keys = 0)
    {
        Press(control, x, y, keys);
        Release(control, x, y, keys);
    }

    static RECT WindowRect(HWND window)
    {
        RECT rect = {};
        GetWindowRect(window, &rect);
        return rect;
    }
    static int HeightOf(HWND window)
    {
        const RECT rect = WindowRect(window);
        return rect.bottom - rect.top;
    }

    /// What the parent has been told since it was last asked, one word a message.
    std::string Told() { return std::exchange(log_, {}); }
    void Note(const std::string& word) { log_ += (log_.empty() ? "" : " ") + word; }

    /// What the parent makes of a message; the base class notes WM_COMMAND by its code.
    virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == WM_COMMAND && lParam != 0) {
            EXPECT_EQ(LOWORD(wParam), kId);
            Note(NameOf(HIWORD(wParam)));
        }
        return DefWindowProcW(parent_, message, wParam, lParam);
    }

    std::string NameOf(int code) const
    {
        for (const CodeName& each : codes_) {
            if (each.code == code)
                return each.name;
        }
        return std::to_string(code);
    }

    static inline HWND parent_ = nullptr;
    std::vector<CodeName> codes_;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        auto* const test = reinterpret_cast<ListParent*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        return test != nullptr ? test->OnMessage(message, wParam, lParam)
                               : DefWindowProcW(window, message, wParam, lParam);
    }

    std::string log_;
};

/// Notes the messages of owner drawing, and answers them: an entry is 20 pixels high and its index more, the
/// field of a combo box 23; numbers compare as such.
class OwnerDrawParent : public ListParent
{
protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        switch (message) {
        case WM_MEASUREITEM:
            return OnMeasure(*reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));
        case WM_DRAWITEM:
            return OnDraw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        case WM_COMPAREITEM:
            return OnCompare(*reinterpret_cast<const COMPAREITEMSTRUCT*>(lParam));
        case WM_DELETEITEM: {
            const auto& item = *reinterpret_cast<const DELETEITEMSTRUCT*>(lParam);
            Note("delete" + std::to_string(item.itemID) + "=" + std::to_string(item.itemData));
            return TRUE;
        }
        }
        return ListParent::OnMessage(message, wParam, lParam);
    }

    RECT drawnRect_ = {};

private:
    LRESULT OnMeasure(MEASUREITEMSTRUCT& item)
    {
        const int index = static_cast<int>(item.itemID);
        EXPECT_EQ(item.CtlID, UINT{kId});
        Note("measure" + std::to_string(index));
        item.itemHeight = index == -1 ? 23u : 20u + item.itemID;
        return TRUE;
    }

    /// draw, select or focus; the item; then S(elected), D(isabled), F(ocus) and E(dit field) as they apply.
    LRESULT OnDraw(const DRAWITEMSTRUCT& item)
    {
        EXPECT_EQ(item.CtlID, UINT{kId});
        EXPECT_NE(item.hDC, nullptr);
        drawnRect_ = item.rcItem;
        std::string word = item.itemAction == ODA_DRAWENTIRE ? "draw"
                           : item.itemAction == ODA_SELECT   ? "select"
                           : item.itemAction == ODA_FOCUS    ? "focus"
                                                             : "odd";
        word += std::to_string(static_cast<int>(item.itemID));
        word += (item.itemState & ODS_SELECTED) != 0 ? "S" : "";
        word += (item.itemState & ODS_DISABLED) != 0 ? "D" : "";
        word += (item.itemState & ODS_FOCUS) != 0 ? "F" : "";
        word += (item.itemState & ODS_COMBOBOXEDIT) != 0 ? "E" : "";
        Note(word);
        return TRUE;
    }

    LRESULT OnCompare(const COMPAREITEMSTRUCT& items)
    {
        EXPECT_EQ(static_cast<int>(items.itemID2), -1);
        return items.itemData1 < items.itemData2 ? -1 : items.itemData1 > items.itemData2;
    }
};
