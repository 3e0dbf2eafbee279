#include "host/gdi/text.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numeric>

#include "host/gdi/paint.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"

namespace host {
namespace {

/// Blends the glyph where `part` lets it; `corner` is its top-left corner. All on the surface.
void DrawGlyphPart(const Image& image, const Glyph& glyph, POINT corner, const RECT& part, uint32_t color)
{
    const RECT area =
        Intersection(part, {corner.x, corner.y, corner.x + glyph.width, corner.y + glyph.height});
    for (LONG y = area.top; y < area.bottom; ++y) {
        const RowAccess row(image, y, area.left, area.right - area.left, RowUse::Change);
        const uint8_t* const coverage =
            glyph.coverage.data() + ptrdiff_t{y - corner.y} * glyph.width + (area.left - corner.x);
        for (int i = 0; i < area.right - area.left; ++i) {
            if (coverage[i] == 255)
                row.Pixels()[i] = color;
            else if (coverage[i] != 0)
                row.Pixels()[i] = Blend(row.Pixels()[i], color, coverage[i]);
        }
    }
}

/// Moves along a line of text and across it, downwards.
POINT Along(const SizedFont& font, POINT start, int along, int down)
{
    return {start.x + static_cast<LONG>(std::lround(along * font.Cosine() + down * font.Sine())),
            start.y + static_cast<LONG>(std::lround(down * font.Cosine() - along * font.Sine()))};
}

/// A rule below or through the line.
void DrawRule(DeviceContext& dc, const SizedFont& font, POINT baseline, int width, int down, const RECT& clip)
{
    const int thickness = std::max(1, font.Metrics().emHeight / 14);
    Painter painter(dc, SolidInk(dc.PixelOf(dc.state.textColor)), kCopyPattern);
    if (!font.Rotated()) {
        const LONG top = baseline.y + down;
        painter.Rect(Intersection(clip, {baseline.x, top, baseline.x + width, top + thickness}));
        return;
    }
    for (int i = 0; i < width; ++i) {
        const POINT point = Along(font, baseline, i, down);
        painter.Rect(Intersection(clip, {point.x, point.y, point.x + thickness, point.y + thickness}));
    }
}

void DrawRules(DeviceContext& dc, const SizedFont& font, POINT baseline, int width, const RECT& clip)
{
    const LOGFONTW& description = dc.state.font->description;
    if (description.lfUnderline != 0)
        DrawRule(dc, font, baseline, width, std::max(1, font.Metrics().descent / 2), clip);
    if (description.lfStrikeOut != 0)
        DrawRule(dc, font, baseline, width, -font.Metrics().ascent / 3, clip);
}

/// Where the pen starts for a text at `point` by the device context's alignment.
POINT BaselineFor(const DeviceContext& dc, const SizedFont& font, POINT point, int width)
{
    const UINT align = dc.state.textAlign;
    int along = 0;
    if ((align & TA_CENTER) == TA_CENTER)
        along = -width / 2;
    else if ((align & TA_RIGHT) != 0)
        along = -width;
    int down = font.Metrics().ascent;
    if ((align & TA_BASELINE) == TA_BASELINE)
        down = 0;
    else if ((align & TA_BOTTOM) != 0)
        down = -font.Metrics().descent;
    return Along(font, point, along, down);
}

/// The current position moves to where the next text would start.
void UpdatePosition(DcState& state, const SizedFont& font, int width)
{
    if ((state.textAlign & TA_CENTER) == TA_CENTER)
        return;
    const bool right = (state.textAlign & TA_RIGHT) != 0;
    state.position = Along(font, state.position, right ? -width : width, 0);
}

void FillBehind(DeviceContext& dc, const SizedFont& font, POINT baseline, int width, const RECT& clip)
{
    if (dc.state.backMode != OPAQUE || font.Rotated())
        return;
    const LONG top = baseline.y - font.Metrics().ascent;
    const RECT cell = {baseline.x, top, baseline.x + width, top + font.Metrics().Height()};
    Painter(dc, SolidInk(dc.PixelOf(dc.state.backColor)), kCopyPattern).Rect(Intersection(cell, clip));
}

void DrawLine(DeviceContext& dc, POINT point, std::u16string_view text, const int* givenAdvances,
              const RECT& clip)
{
    const std::shared_ptr<SizedFont> font = FontOf(dc);
    std::vector<int> advances;
    int width = MeasureText(*font, text, &advances);
    if (givenAdvances != nullptr) {
        advances.assign(givenAdvances, givenAdvances + text.size());
        width = std::accumulate(advances.begin(), advances.end(), 0);
    }
    const bool updates = (dc.state.textAlign & TA_UPDATECP) != 0;
    const POINT start = dc.ToSurface(updates ? dc.state.position : point);
    const POINT baseline = BaselineFor(dc, *font, start, width);
    FillBehind(dc, *font, baseline, width, clip);
    DrawGlyphs(dc, baseline, text, advances, clip);
    if (updates)
        UpdatePosition(dc.state, *font, width);
}

TEXTMETRICW TextMetricsOf(const LOGFONTW& description)
{
    const FontMetrics& font = SizedFontFor(description)->Metrics();
    TEXTMETRICW metrics = {};
    metrics.tmHeight = font.Height();
    metrics.tmAscent = font.ascent;
    metrics.tmDescent = font.descent;
    metrics.tmInternalLeading = font.Height() - font.emHeight;
    metrics.tmExternalLeading = font.externalLeading;
    metrics.tmAveCharWidth = font.averageWidth;
    metrics.tmMaxCharWidth = font.maximalWidth;
    metrics.tmWeight = description.lfWeight == FW_DONTCARE ? FW_NORMAL : description.lfWeight;
    metrics.tmDigitizedAspectX = metrics.tmDigitizedAspectY = 96;
    metrics.tmFirstChar = u' ';
    metrics.tmLastChar = 0xFFFC;
    metrics.tmDefaultChar = 0x1F;
    metrics.tmBreakChar = u' ';
    metrics.tmItalic = description.lfItalic;
    metrics.tmUnderlined = description.lfUnderline;
    metrics.tmStruckOut = description.lfStrikeOut;
    // The bit for fixed pitch means the opposite of its name.
    const BYTE pitch = font.fixedPitch ? 0 : TMPF_FIXED_PITCH;
    metrics.tmPitchAndFamily = static_cast<BYTE>(font.family | TMPF_VECTOR | TMPF_TRUETYPE | pitch);
    metrics.tmCharSet = description.lfCharSet == DEFAULT_CHARSET ? ANSI_CHARSET : description.lfCharSet;
    return metrics;
}

LOGFONTW PlainFont(std::u16string_view face)
{
    LOGFONTW font = {};
    font.lfHeight = -32;
    font.lfWeight = FW_NORMAL;
    font.lfPitchAndFamily = VARIABLE_PITCH;
    std::copy(face.begin(), face.end(), font.lfFaceName);
    return font;
}

/// Tells a program about one face; what it returns.
int TellFace(std::u16string_view face, FONTENUMPROCW callback, LPARAM parameter)
{
    constexpr WCHAR kStyle[] = TEXT("Regular");
    ENUMLOGFONTEXW font = {};
    NEWTEXTMETRICEXW metrics = {};
    font.elfLogFont = PlainFont(face);
    std::copy(face.begin(), face.end(), font.elfFullName);
    std::copy(std::begin(kStyle), std::end(kStyle), font.elfStyle);
    {
        const GdiLock lock;
        const TEXTMETRICW plain = TextMetricsOf(font.elfLogFont);
        static_assert(offsetof(NEWTEXTMETRICW, tmCharSet) == offsetof(TEXTMETRICW, tmCharSet));
        std::memcpy(&metrics.ntmTm, &plain, sizeof plain);
    }
    font.elfLogFont.lfHeight = metrics.ntmTm.tmHeight;
    font.elfLogFont.lfWidth = metrics.ntmTm.tmAveCharWidth;
    metrics.ntmTm.ntmFlags = NTM_REGULAR;
    const CallbackScope callbackScope;
    return callback(&font.elfLogFont, reinterpret_cast<const TEXTMETRICW*>(&metrics), TRUETYPE_FONTTYPE,
                    parameter);
}

/// Without a name, one row for every face; else the named face alone. The last result, 1 when nothing was
/// told.
int TellFaces(HDC handle, std::u16string_view name, FONTENUMPROCW callback, LPARAM parameter)
{
    if (callback == nullptr || !LockedDc(handle))
        return 0;
    std::vector<std::u16string_view> faces = ListedFaces();
    if (!name.empty())
        std::erase_if(faces, [=](std::u16string_view face) { return face != ListedFace(name); });
    int result = 1;
    for (size_t i = 0; i < faces.size() && result != 0; ++i)
        result = TellFace(faces[i], callback, parameter);
    return result;
}

} // namespace

std::shared_ptr<SizedFont> FontOf(DeviceContext& dc)
{
    return SizedFontFor(dc.state.font->description);
}

int MeasureText(SizedFont& font, std::u16string_view text, std::vector<int>* advances)
{
    int width = 0;
    if (advances != nullptr)
        advances->reserve(advances->size() + text.size());
    while (!text.empty()) {
        const size_t before = text.size();
        const int advance = font.GlyphOf(TakeCharacter(text)).advance;
        width += advance;
        if (advances == nullptr)
            continue;
        advances->push_back(advance);
        advances->resize(advances->size() + before - text.size() - 1);
    }
    return width;
}

void DrawGlyphs(DeviceContext& dc, POINT baseline, std::u16string_view text, const std::vector<int>& advances,
                const RECT& clip)
{
    const std::shared_ptr<SizedFont> font = FontOf(dc);
    const uint32_t color = dc.PixelOf(dc.state.textColor);
    const std::vector<RECT>& reach = dc.Reach().Rects();
    const size_t whole = text.size();
    int along = 0;
    while (!text.empty()) {
        const size_t first = whole - text.size();
        const Glyph& glyph = font->GlyphOf(TakeCharacter(text));
        const POINT pen = Along(*font, baseline, along, 0);
        for (const RECT& part : reach)
            DrawGlyphPart(dc.Target(), glyph, {pen.x + glyph.left, pen.y - glyph.top},
                          Intersection(part, clip), color);
        for (size_t i = first; i < whole - text.size(); ++i)
            along += advances[i];
    }
    DrawRules(dc, *font, baseline, along, clip);
}

} // namespace host

using namespace host;

HFONT WINAPI CreateFontIndirectW(const LOGFONTW* description)
{
    HOST_CALL(CreateFontIndirectW, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    if (description == nullptr)
        return nullptr;
    LOGFONTW font = *description;
    font.lfFaceName[LF_FACESIZE - 1] = 0;
    return static_cast<HFONT>(NewGdiHandle(std::make_shared<Font>(font)));
}

HFONT WINAPI CreateFontW(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                         DWORD underline, DWORD strikeOut, DWORD charSet, DWORD outPrecision,
                         DWORD clipPrecision, DWORD quality, DWORD pitchAndFamily, LPCWSTR face)
{
    HOST_CALL(CreateFontW, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    const auto byte = [](DWORD value) { return static_cast<BYTE>(value); };
    LOGFONTW font = {height,
                     width,
                     escapement,
                     orientation,
                     weight,
                     byte(italic),
                     byte(underline),
                     byte(strikeOut),
                     byte(charSet),
                     byte(outPrecision),
                     byte(clipPrecision),
                     byte(quality),
                     byte(pitchAndFamily),
                     {}};
    for (int i = 0; face != nullptr && i < LF_FACESIZE - 1 && face[i] != 0; ++i)
        font.lfFaceName[i] = face[i];
    return CreateFontIndirectW(&font);
}

int WINAPI EnumFontFamiliesW(HDC handle, LPCWSTR family, FONTENUMPROCW callback, LPARAM parameter)
{
    HOST_CALL_VOID(EnumFontFamiliesW);
    return TellFaces(handle, family != nullptr ? family : u"", callback, parameter);
}

int WINAPI EnumFontFamiliesExW(HDC handle, LPLOGFONTW font, FONTENUMPROCW callback, LPARAM parameter, DWORD)
{
    HOST_CALL_VOID(EnumFontFamiliesExW);
    return font != nullptr ? TellFaces(handle, font->lfFaceName, callback, parameter) : 0;
}

BOOL WINAPI GetTextMetricsW(HDC handle, LPTEXTMETRICW metrics)
{
    HOST_CALL_VOID(GetTextMetricsW);
    const LockedDc dc(handle);
    if (!dc || metrics == nullptr)
        return FALSE;
    *metrics = TextMetricsOf(dc->state.font->description);
    return TRUE;
}

int WINAPI GetTextFaceW(HDC handle, int size, LPWSTR name)
{
    HOST_CALL_VOID(GetTextFaceW);
    const LockedDc dc(handle);
    if (!dc)
        return 0;
    const std::u16string_view face = FaceNameFor(dc->state.font->description);
    if (name == nullptr)
        return static_cast<int>(face.size()) + 1;
    if (size <= 0)
        return FailWith(ERROR_INVALID_PARAMETER);
    const size_t count = std::min(face.size(), static_cast<size_t>(size) - 1);
    std::copy_n(face.begin(), count, name);
    name[count] = 0;
    return static_cast<int>(count) + 1;
}

BOOL WINAPI GetTextExtentExPointW(HDC handle, LPCWSTR text, int length, int maxExtent, int* fit, int* extents,
                                  LPSIZE size)
{
    HOST_CALL_VOID(GetTextExtentExPointW);
    const LockedDc dc(handle);
    if (!dc || length < 0 || (text == nullptr && length != 0) || size == nullptr)
        return FALSE;
    const std::shared_ptr<SizedFont> font = FontOf(*dc);
    std::vector<int> advances;
    *size = {MeasureText(*font, {text, static_cast<size_t>(length)}, &advances), font->Metrics().Height()};
    int width = 0;
    int fitting = 0;
    for (const int advance : advances) {
        width += advance;
        if (fit != nullptr && width > maxExtent)
            break;
        if (extents != nullptr)
            extents[fitting] = width;
        ++fitting;
    }
    if (fit != nullptr)
        *fit = fitting;
    return TRUE;
}

BOOL WINAPI GetTextExtentPoint32W(HDC handle, LPCWSTR text, int length, LPSIZE size)
{
    HOST_CALL_VOID(GetTextExtentPoint32W);
    return GetTextExtentExPointW(handle, text, length, 0, nullptr, nullptr, size);
}

BOOL WINAPI GetCharWidth32W(HDC handle, UINT first, UINT last, int* widths)
{
    HOST_CALL_VOID(GetCharWidth32W);
    const LockedDc dc(handle);
    if (!dc || widths == nullptr || last < first || last > 0xFFFF)
        return FALSE;
    const std::shared_ptr<SizedFont> font = FontOf(*dc);
    for (UINT character = first; character <= last; ++character)
        widths[character - first] = font->GlyphOf(character).advance;
    return TRUE;
}

BOOL WINAPI ExtTextOutW(HDC handle, int x, int y, UINT options, const RECT* rect, LPCWSTR text, UINT length,
                        const int* advances)
{
    HOST_CALL_VOID(ExtTextOutW);
    const LockedDc dc(handle);
    if (!dc || (text == nullptr && length != 0))
        return FALSE;
    const RECT area = rect != nullptr ? dc->ToSurface(*rect) : kEverywhere;
    if (rect != nullptr && (options & ETO_OPAQUE) != 0)
        Painter(*dc, SolidInk(dc->PixelOf(dc->state.backColor)), kCopyPattern).Rect(area);
    if (length != 0)
        DrawLine(*dc, {x, y}, {text, length}, advances, (options & ETO_CLIPPED) != 0 ? area : kEverywhere);
    return TRUE;
}

BOOL WINAPI TextOutW(HDC handle, int x, int y, LPCWSTR text, int length)
{
    HOST_CALL_VOID(TextOutW);
    return length >= 0 && ExtTextOutW(handle, x, y, 0, nullptr, text, static_cast<UINT>(length), nullptr);
}
