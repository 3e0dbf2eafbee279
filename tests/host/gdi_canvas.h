#pragma once
// A small picture to draw on, whose pixels tests compare with pictures made of letters.
#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

using Picture = std::vector<std::string>;

/// 32 bits a pixel, top row first.
inline BITMAPINFO TopDownInfo(int width, int height, WORD bitCount = 32)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = bitCount;
    return info;
}

/// A memory device context with a bitmap of its own, white at first.
class Canvas
{
public:
    Canvas(int width, int height) : width_(width), height_(height)
    {
        const BITMAPINFO info = TopDownInfo(width, height);
        dc_ = CreateCompatibleDC(nullptr);
        bitmap_ =
            CreateDIBSection(dc_, &info, DIB_RGB_COLORS, reinterpret_cast<void**>(&pixels_), nullptr, 0);
        previous_ = SelectObject(dc_, bitmap_);
        Clear(RGB(255, 255, 255));
    }
    ~Canvas()
    {
        SelectObject(dc_, previous_);
        EXPECT_TRUE(DeleteObject(bitmap_));
        EXPECT_TRUE(DeleteDC(dc_));
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC Dc() const { return dc_; }
    uint32_t& At(int x, int y) { return pixels_[y * width_ + x]; }
    COLORREF Color(int x, int y)
    {
        const uint32_t pixel = At(x, y);
        return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
    }

    void Clear(COLORREF color)
    {
        const uint32_t pixel = GetRValue(color) << 16 | GetGValue(color) << 8 | GetBValue(color);
        for (int i = 0; i < width_ * height_; ++i)
            pixels_[i] = pixel;
    }

    /// White '.', black '#', red 'r', green 'g', blue 'b', anything else '?'.
    Picture Letters()
    {
        Picture rows(static_cast<size_t>(height_));
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x)
                rows[static_cast<size_t>(y)].push_back(LetterOf(Color(x, y)));
        }
        return rows;
    }

    /// The smallest rectangle around everything that is not white.
    RECT Drawn()
    {
        RECT box = {width_, height_, 0, 0};
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) {
                if (Color(x, y) == RGB(255, 255, 255))
                    continue;
                box.left = x < box.left ? x : box.left;
                box.top = y < box.top ? y : box.top;
                box.right = x >= box.right ? x + 1 : box.right;
                box.bottom = y + 1;
            }
        }
        return box;
    }

private:
    static char LetterOf(COLORREF color)
    {
        constexpr struct
        {
            COLORREF color;
            char letter;
        } kLetters[] = {{RGB(255, 255, 255), '.'},
                        {RGB(0, 0, 0), '#'},
                        {RGB(255, 0, 0), 'r'},
                        {RGB(0, 255, 0), 'g'},
                        {RGB(0, 0, 255), 'b'}};
        for (const auto& row : kLetters) {
            if (row.color == color)
                return row.letter;
        }
        return '?';
    }

    int width_;
    int height_;
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ previous_;
    uint32_t* pixels_ = nullptr;
};

/// A drawing object that is selected as long as this lives, and deleted then.
class Selected
{
public:
    Selected(HDC dc, HGDIOBJ object) : dc_(dc), object_(object), previous_(SelectObject(dc, object))
    {
        EXPECT_NE(object_, nullptr);
        EXPECT_NE(previous_, nullptr);
    }
    ~Selected()
    {
        SelectObject(dc_, previous_);
        EXPECT_TRUE(DeleteObject(object_));
    }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    HDC dc_;
    HGDIOBJ object_;
    HGDIOBJ previous_;
};
