#include "host/gdi/system_icon.h"

#include <algorithm>
#include <iterator>

#include "host/gdi/blit.h"
#include "host/gdi/surface.h"

namespace host {
namespace {

constexpr int kSide = 32; // pixels
constexpr COLORREF kSeeThrough = RGB(255, 0, 255);

ULONG_PTR NumberOf(LPCWSTR name)
{
    return reinterpret_cast<ULONG_PTR>(name);
}

enum class Shape
{
    Disc,
    Triangle,
    Window
};

struct SystemIconRow
{
    LPCWSTR name;
    Shape shape;
    COLORREF color;
    COLORREF signColor;
    const WCHAR* sign;
};

const SystemIconRow kSystemIcons[] = {
    {IDI_APPLICATION, Shape::Window, RGB(255, 255, 255), RGB(0, 0, 128), TEXT("")},
    {IDI_HAND, Shape::Disc, RGB(208, 32, 32), RGB(255, 255, 255), TEXT("\u00D7")},
    {IDI_QUESTION, Shape::Disc, RGB(0, 96, 192), RGB(255, 255, 255), TEXT("?")},
    {IDI_EXCLAMATION, Shape::Triangle, RGB(255, 208, 0), RGB(0, 0, 0), TEXT("!")},
    {IDI_ASTERISK, Shape::Disc, RGB(0, 96, 192), RGB(255, 255, 255), TEXT("i")},
};

const LPCWSTR kSystemCursors[] = {IDC_ARROW,    IDC_IBEAM,    IDC_WAIT,   IDC_CROSS,  IDC_UPARROW,
                                  IDC_SIZENWSE, IDC_SIZENESW, IDC_SIZEWE, IDC_SIZENS, IDC_SIZEALL,
                                  IDC_NO,       IDC_HAND,     IDC_HELP};

const SystemIconRow* RowOf(ULONG_PTR number)
{
    const auto found = std::find_if(std::begin(kSystemIcons), std::end(kSystemIcons),
                                    [=](const SystemIconRow& row) { return NumberOf(row.name) == number; });
    return found != std::end(kSystemIcons) ? found : nullptr;
}

void DrawShape(HDC dc, const SystemIconRow& row)
{
    const HBRUSH brush = CreateSolidBrush(row.color);
    const HGDIOBJ previous = SelectObject(dc, brush);
    constexpr POINT kTriangle[] = {{15, 1}, {30, 29}, {1, 29}};
    if (row.shape == Shape::Triangle)
        Polygon(dc, kTriangle, static_cast<int>(std::size(kTriangle)));
    else if (row.shape == Shape::Disc)
        Ellipse(dc, 1, 1, kSide - 1, kSide - 1);
    else
        Rectangle(dc, 2, 4, kSide - 2, kSide - 4);
    SelectObject(dc, previous);
    DeleteObject(brush);
}

void DrawSign(HDC dc, const SystemIconRow& row)
{
    constexpr int kSignHeight = -22;
    const HFONT font =
        CreateFontW(kSignHeight, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                    CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, TEXT("Arial"));
    const HGDIOBJ previous = SelectObject(dc, font);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, row.signColor);
    RECT area = {0, row.shape == Shape::Triangle ? 5 : 0, kSide, kSide};
    DrawTextW(dc, row.sign, -1, &area, DT_SINGLELINE | DT_CENTER | DT_VCENTER | DT_NOPREFIX);
    SelectObject(dc, previous);
    DeleteObject(font);
}

/// Takes the drawn pixels into an icon; the ground colour stays see-through.
void TakePixels(Icon& icon, const Surface& surface)
{
    const uint32_t ground = ExchangeRedBlue(kSeeThrough);
    for (int y = 0; y < kSide; ++y) {
        const RowAccess color(icon.color, y, 0, kSide, RowUse::Write);
        const RowAccess mask(icon.mask, y, 0, kSide, RowUse::Write);
        for (int x = 0; x < kSide; ++x) {
            const bool drawn = surface.Row(y)[x] != ground;
            color.Pixels()[x] = drawn ? surface.Row(y)[x] : kBlackPixel;
            mask.Pixels()[x] = drawn ? kBlackPixel : kWhitePixel;
        }
    }
}

} // namespace

bool IsSystemIcon(ULONG_PTR number)
{
    return RowOf(number) != nullptr;
}

bool IsSystemCursor(ULONG_PTR number)
{
    return std::any_of(std::begin(kSystemCursors), std::end(kSystemCursors),
                       [=](LPCWSTR name) { return NumberOf(name) == number; });
}

std::shared_ptr<Icon> MakeSystemIcon(ULONG_PTR number, bool cursor)
{
    std::shared_ptr<Icon> icon = MakeIcon(kSide, kSide);
    if (!icon)
        return nullptr;
    icon->cursor = cursor;
    const SystemIconRow* const row = cursor ? nullptr : RowOf(number);
    const std::shared_ptr<Surface> surface = row != nullptr ? MakeSurface(kSide, kSide) : nullptr;
    if (!surface)
        return icon;
    const RECT whole = {0, 0, kSide, kSide};
    const HDC dc = OpenSurfaceDC(surface, {}, &whole, 1);
    const HBRUSH ground = CreateSolidBrush(kSeeThrough);
    FillRect(dc, &whole, ground);
    DeleteObject(ground);
    DrawShape(dc, *row);
    DrawSign(dc, *row);
    CloseSurfaceDC(dc);
    TakePixels(*icon, *surface);
    return icon;
}

} // namespace host
