#include "tools/langcheck/gdi_meter.h"

namespace langcheck {
namespace {

constexpr int kPointsPerInch = 72;

/// A memory device context with the font selected.
class Ruler
{
public:
    Ruler(const WideString& face, int points, int dpi) : dc_(CreateCompatibleDC(nullptr))
    {
        LOGFONTW description{};
        description.lfHeight = -(points * dpi + kPointsPerInch / 2) / kPointsPerInch;
        description.lfCharSet = DEFAULT_CHARSET;
        lstrcpynW(description.lfFaceName, face.c_str(), LF_FACESIZE);
        font_ = CreateFontIndirectW(&description);
        previous_ = SelectObject(dc_, font_);
    }
    Ruler(const Ruler&) = delete;
    Ruler& operator=(const Ruler&) = delete;

    ~Ruler()
    {
        SelectObject(dc_, previous_);
        DeleteObject(font_);
        DeleteDC(dc_);
    }

    bool Good() const { return dc_ && font_ && previous_; }

    /// The average width of the letters and the height, as the dialog manager takes them.
    Extent Base() const
    {
        constexpr WCHAR letters[] = TEXT("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
        constexpr int alphabet = 26;
        SIZE size{};
        TEXTMETRICW metrics{};
        GetTextExtentPoint32W(dc_, letters, 2 * alphabet, &size);
        GetTextMetricsW(dc_, &metrics);
        return {(static_cast<int>(size.cx) / alphabet + 1) / 2, static_cast<int>(metrics.tmHeight)};
    }

    Extent Size(WideView text, int wrapWidth) const
    {
        RECT box = {0, 0, wrapWidth, 0};
        const UINT format =
            DT_CALCRECT | DT_NOPREFIX | DT_EXPANDTABS | (wrapWidth ? DT_WORDBREAK : DT_SINGLELINE);
        DrawTextW(dc_, text.data(), static_cast<int>(text.size()), &box, format);
        return {static_cast<int>(box.right), static_cast<int>(box.bottom)};
    }

private:
    HDC dc_;
    HFONT font_ = nullptr;
    HGDIOBJ previous_ = nullptr;
};

} // namespace

std::unique_ptr<Meter> MakeGdiMeter(const WideString& face, int points, int dpi)
{
    const auto ruler = std::make_shared<Ruler>(face, points, dpi);
    if (!ruler->Good())
        return nullptr;
    return std::make_unique<Meter>(
        Meter{dpi, ruler->Base(), [ruler](WideView text, int width) { return ruler->Size(text, width); }});
}

} // namespace langcheck
