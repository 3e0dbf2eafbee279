#pragma once
// A window to put controls on, which writes down what they tell it. For tests that run on both systems.
#include <string>
#include <vector>

#include <windows.h>

namespace control_test {

/// What a control sent: WM_COMMAND with its notification code, WM_DRAWITEM with action and state,
/// WM_CTLCOLOR..., WM_HSCROLL or WM_VSCROLL with code and position, WM_NOTIFY with its code.
struct Told
{
    UINT message;
    int code = 0;
    int detail = 0;

    bool operator==(const Told&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Told& told)
{
    return out << std::hex << "0x" << told.message << std::dec << ' ' << told.code << ' ' << told.detail;
}

/// A shown and active window. Everything told is kept until Take() is called; WM_CTLCOLOR messages are kept
/// only on request, since every painting sends them.
class Parent
{
public:
    explicit Parent(bool keepsColours = false) : keepsColours_(keepsColours)
    {
        WNDCLASSW windowClass = {};
        windowClass.lpfnWndProc = Procedure;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.lpszClassName = TEXT("ControlTestParent");
        RegisterClassW(&windowClass); // fails when it is there already
        window_ = CreateWindowExW(0, TEXT("ControlTestParent"), TEXT("parent"), WS_POPUP | WS_VISIBLE, 10, 10,
                                  400, 300, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
        SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetActiveWindow(window_);
        SetFocus(window_);
    }
    ~Parent() { DestroyWindow(window_); }
    Parent(const Parent&) = delete;
    Parent& operator=(const Parent&) = delete;

    operator HWND() const { return window_; }

    /// A visible child.
    HWND Add(LPCWSTR className, LPCWSTR text, DWORD style, RECT place = {10, 10, 110, 34}, int id = 100)
    {
        return CreateWindowExW(0, className, text, style | WS_CHILD | WS_VISIBLE, place.left, place.top,
                               place.right - place.left, place.bottom - place.top, window_,
                               reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr),
                               nullptr);
    }

    /// What was told since the last time.
    std::vector<Told> Take()
    {
        std::vector<Told> told;
        told.swap(told_);
        return told;
    }

    LRESULT notifyAnswer = 0; // to WM_NOTIFY

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        auto* const self = reinterpret_cast<Parent*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (self == nullptr)
            return DefWindowProcW(window, message, wParam, lParam);
        return self->Keep(message, wParam, lParam);
    }

    LRESULT Keep(UINT message, WPARAM wParam, LPARAM lParam)
    {
        switch (message) {
        case WM_COMMAND:
            told_.push_back({message, HIWORD(wParam)});
            return 0;
        case WM_HSCROLL:
        case WM_VSCROLL:
            told_.push_back({message, LOWORD(wParam), static_cast<SHORT>(HIWORD(wParam))});
            return 0;
        case WM_NOTIFY:
            told_.push_back({message, static_cast<int>(reinterpret_cast<const NMHDR*>(lParam)->code)});
            return notifyAnswer;
        case WM_DRAWITEM: {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
            told_.push_back({message, static_cast<int>(item.itemAction), static_cast<int>(item.itemState)});
            return TRUE;
        }
        }
        if (keepsColours_ && message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC)
            told_.push_back({message});
        return DefWindowProcW(window_, message, wParam, lParam);
    }

    HWND window_ = nullptr;
    bool keepsColours_;
    std::vector<Told> told_;
};

using Tolds = std::vector<Told>;

inline Told Command(int code)
{
    return {WM_COMMAND, code};
}

inline LPARAM At(int x, int y)
{
    return MAKELPARAM(x, y);
}

inline std::basic_string<WCHAR> TextOf(HWND window)
{
    WCHAR text[256] = {};
    GetWindowTextW(window, text, 256);
    return text;
}

inline void Press(HWND control, int x = 5, int y = 5)
{
    SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, At(x, y));
}

inline void Release(HWND control, int x = 5, int y = 5)
{
    SendMessageW(control, WM_LBUTTONUP, 0, At(x, y));
}

} // namespace control_test
