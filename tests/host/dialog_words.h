#pragma once
// Dialog templates built in memory, in either format.
#include <vector>

#include <windows.h>

class DialogWords
{
public:
    DialogWords(DWORD style, short width, short height, bool extended = false) : extended_(extended)
    {
        if (extended)
            Add({1, 0xFFFF, 0, 0, 0, 0});
        Add({LOWORD(style | DS_SETFONT), HIWORD(style | DS_SETFONT)});
        if (!extended)
            Add({0, 0});
        countAt_ = words_.size();
        Add({0, 10, 10, static_cast<WORD>(width), static_cast<WORD>(height), 0, 0});
        Add(TEXT("Dialog"));
        Add({8});
        if (extended)
            Add({FW_NORMAL, DEFAULT_CHARSET << 8});
        Add(TEXT("MS Shell Dlg"));
    }

    /// A visible control of 40 by 12 units.
    DialogWords& Add(LPCWSTR className, LPCWSTR text, DWORD style, int id, short y = 0)
    {
        style |= WS_CHILD | WS_VISIBLE;
        if (words_.size() % 2 != 0)
            Add({0});
        ++words_[countAt_];
        if (extended_)
            Add({0, 0, 0, 0});
        Add({LOWORD(style), HIWORD(style)});
        if (!extended_)
            Add({0, 0});
        Add({5, static_cast<WORD>(y), 40, 12, static_cast<WORD>(id)});
        if (extended_)
            Add({0});
        Add(className);
        Add(text);
        Add({0});
        return *this;
    }

    const std::vector<WORD>& Words() const { return words_; }
    LPCDLGTEMPLATEW Get() const { return reinterpret_cast<LPCDLGTEMPLATEW>(words_.data()); }

private:
    void Add(std::initializer_list<WORD> words)
    {
        for (const WORD word : words) // GCC 12 takes an insertion into an empty vector for an overflow
            words_.push_back(word);
    }
    void Add(LPCWSTR text)
    {
        do {
            words_.push_back(static_cast<WORD>(*text));
        } while (*text++ != 0);
    }

    bool extended_;
    size_t countAt_ = 0;
    std::vector<WORD> words_;
};
