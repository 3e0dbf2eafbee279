#pragma once
// A window to put controls on, which writes down what they tell it. For tests that run on both systems.
#include <climits>
#include <functional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

using Wide = std::basic_string<WCHAR>;

/// What is told becomes one word a message: a notification by its name in `codes_`, WM_HSCROLL and WM_VSCROLL
/// by their code, with the position where they carry one, owner drawing by its action, its entry (of lists)
/// and S(elected), D(isabled), F(ocus) and E(dit field) as they apply.
class ControlTest : public testing::Test
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
        description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
        description.lpszClassName = kClass;
        RegisterClassW(&description);
        parent_ = CreateWindowExW(0, kClass, TEXT("test"), WS_POPUP | WS_VISIBLE, 50, 50, 600, 500, nullptr,
                                  nullptr, description.hInstance, nullptr);
        ASSERT_NE(parent_, nullptr);
    }
    static void TearDownTestSuite()
    {
        DestroyWindow(parent_);
        UnregisterClassW(kClass, GetModuleHandleW(nullptr));
    }

    void SetUp() override
    {
        Hear(parent_);
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

    /// Has what `window`, of kClass, is told written down.
    void Hear(HWND window) { SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this)); }

    static HWND Make(LPCWSTR className, DWORD style, int width, int height, const char* text = "",
                     int id = kId)
    {
        const HWND control = CreateWindowExW(
            0, className, Widened(text).c_str(), WS_CHILD | WS_VISIBLE | style, 10, 10, width, height,
            parent_, reinterpret_cast<HMENU>(INT_PTR{id}), GetModuleHandleW(nullptr), nullptr);
        EXPECT_NE(control, nullptr);
        return control;
    }

    /// `parameter` is a number, a text, in ASCII or not, or the address of a record.
    template <class Parameter = LPARAM>
    static int Send(HWND control, UINT message, WPARAM wParam = 0, Parameter parameter = 0)
    {
        if constexpr (std::is_convertible_v<Parameter, const char*>)
            return Send(control, message, wParam, Widened(parameter).c_str());
        else if constexpr (std::is_pointer_v<Parameter>)
            return Send(control, message, wParam, reinterpret_cast<LPARAM>(parameter));
        else
            return static_cast<int>(SendMessageW(control, message, wParam, static_cast<LPARAM>(parameter)));
    }

    static void Pump()
    {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    /// Paints what has changed, or all of it.
    static void Repaint(HWND control, bool all = false)
    {
        if (all)
            InvalidateRect(control, nullptr, TRUE);
        UpdateWindow(control);
    }

    static void Key(HWND control, WPARAM key)
    {
        Send(control, WM_KEYDOWN, key, 1);
        Send(control, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    }
    static void Type(HWND control, const char* text)
    {
        for (; *text != '\0'; ++text)
            Send(control, WM_CHAR, static_cast<WPARAM>(*text), 1);
    }
    static void Press(HWND control, int x = 5, int y = 5)
    {
        Send(control, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    }
    static void PressAgain(HWND control, int x = 5, int y = 5)
    {
        Send(control, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(x, y));
    }
    static void Drag(HWND control, int x, int y)
    {
        Send(control, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x, y));
    }
    static void Release(HWND control, int x = 5, int y = 5)
    {
        Send(control, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    }
    static void Click(HWND control, int x = 5, int y = 5)
    {
        Press(control, x, y);
        Release(control, x, y);
    }

    static Wide Widened(const char* text) { return {text, text + std::char_traits<char>::length(text)}; }
    static std::string Narrowed(const WCHAR* text)
    {
        std::string narrow;
        for (; *text != 0; ++text)
            narrow += static_cast<char>(*text);
        return narrow;
    }
    static std::string TextOf(HWND window)
    {
        WCHAR text[256] = {};
        GetWindowTextW(window, text, 256);
        return Narrowed(text);
    }
    static void SetText(HWND window, const char* text) { SetWindowTextW(window, Widened(text).c_str()); }

    /// On the parent.
    static RECT RectOf(HWND window)
    {
        RECT rect = {};
        GetWindowRect(window, &rect);
        MapWindowPoints(nullptr, parent_, reinterpret_cast<POINT*>(&rect), 2);
        return rect;
    }
    static int HeightOf(HWND window)
    {
        const RECT rect = RectOf(window);
        return rect.bottom - rect.top;
    }
    static void Resize(HWND window, int width, int height)
    {
        SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
    }

    /// What the parent has been told since it was last asked.
    std::string Told() { return std::exchange(log_, {}); }
    struct Step
    {
        std::function<void()> act;
        const char* told;
    };
    /// Takes the steps one after the other and expects what they say to be told.
    void ExpectTold(const std::vector<Step>& steps)
    {
        for (const Step& step : steps) {
            step.act();
            EXPECT_EQ(Told(), step.told) << "step " << &step - steps.data();
        }
    }

    void Note(const std::string& word) { log_ += (log_.empty() ? "" : " ") + word; }

    std::string NameOf(int code) const
    {
        for (const CodeName& each : codes_) {
            if (each.code == code)
                return each.name;
        }
        return std::to_string(code);
    }

    virtual LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        switch (message) {
        case WM_COMMAND:
            EXPECT_EQ(LOWORD(wParam), kId);
            Note(NameOf(HIWORD(wParam)));
            if (onCommand_)
                onCommand_(HIWORD(wParam), reinterpret_cast<HWND>(lParam));
            break;
        case WM_HSCROLL:
        case WM_VSCROLL:
            EXPECT_EQ(message == WM_VSCROLL, vertical_);
            NoteScrolling(LOWORD(wParam), static_cast<SHORT>(HIWORD(wParam)));
            return 0;
        case WM_DRAWITEM:
            NoteDrawing(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
            return TRUE;
        case WM_MEASUREITEM: {
            auto& item = *reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
            Note("measure" + std::to_string(static_cast<int>(item.itemID)));
            item.itemHeight = item.itemID == UINT_MAX ? kFieldHeight : kFirstHeight + item.itemID;
            return TRUE;
        }
        case WM_DELETEITEM: {
            const auto& item = *reinterpret_cast<const DELETEITEMSTRUCT*>(lParam);
            Note("delete" + std::to_string(item.itemID) + "=" + std::to_string(item.itemData));
            return TRUE;
        }
        }
        return DefWindowProcW(window, message, wParam, lParam);
    }

    // Answers to WM_MEASUREITEM: for a combo box's field, and for the first entry; each next is a pixel
    // higher.
    static constexpr UINT kFieldHeight = 23;
    static constexpr UINT kFirstHeight = 20;
    static constexpr LPCWSTR kClass = TEXT("ControlTest");
    static inline HWND parent_ = nullptr;
    std::vector<CodeName> codes_;
    std::function<void(int code, HWND control)> onCommand_;
    bool vertical_ = false; ///< which way scroll bars are expected to tell
    RECT drawnRect_ = {};

private:
    void NoteScrolling(int code, int position)
    {
        constexpr const char* kNames[] = {"lineup", "linedown", "pageup", "pagedown", "position",
                                          "track",  "top",      "bottom", "end"};
        const bool carriesPosition = code == SB_THUMBPOSITION || code == SB_THUMBTRACK;
        Note(kNames[code] + (carriesPosition ? std::to_string(position) : ""));
    }

    void NoteDrawing(const DRAWITEMSTRUCT& item)
    {
        EXPECT_EQ(item.CtlID, UINT{kId});
        EXPECT_NE(item.hDC, nullptr);
        drawnRect_ = item.rcItem;
        std::string word = item.itemAction == ODA_DRAWENTIRE ? "draw"
                           : item.itemAction == ODA_SELECT   ? "select"
                                                             : "focus";
        if (item.CtlType == ODT_LISTBOX || item.CtlType == ODT_COMBOBOX)
            word += std::to_string(static_cast<int>(item.itemID));
        constexpr std::pair<UINT, char> kStates[] = {
            {ODS_SELECTED, 'S'}, {ODS_DISABLED, 'D'}, {ODS_FOCUS, 'F'}, {ODS_COMBOBOXEDIT, 'E'}};
        for (const auto& [state, letter] : kStates) {
            if ((item.itemState & state) != 0)
                word += letter;
        }
        Note(word);
    }

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        auto* const test = reinterpret_cast<ControlTest*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        return test != nullptr ? test->OnMessage(window, message, wParam, lParam)
                               : DefWindowProcW(window, message, wParam, lParam);
    }

    std::string log_;
};
