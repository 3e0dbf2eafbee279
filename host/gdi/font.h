#pragma once
// Typefaces and their glyphs at one size. Faces have the names that programs of the platform ask for; which
// font files stand for them is fixed here, so that texts measure the same on every machine.
#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <windows.h>

namespace host {

struct Glyph
{
    int advance = 0; // pixels along the line
    int left = 0;    // of the picture from the pen
    int top = 0;     // of the picture above the baseline
    int width = 0;
    int height = 0;
    std::vector<uint8_t> coverage; // 0..255, rows from the top
};

struct FontMetrics
{
    int ascent = 0; // pixels, as all of them
    int descent = 0;
    int emHeight = 0;
    int externalLeading = 0;
    int averageWidth = 0;
    int maximalWidth = 0;
    bool fixedPitch = false;
    BYTE family = 0; // FF_...

    int Height() const { return ascent + descent; }
};

/// A font file at one size and style, with a second file for Japanese characters that the first one lacks.
class SizedFont
{
public:
    virtual ~SizedFont() = default;

    const FontMetrics& Metrics() const { return metrics_; }
    const Glyph& GlyphOf(char32_t character);

    /// Direction of the line: cosine and sine of the angle, counter-clockwise.
    double Cosine() const { return cosine_; }
    double Sine() const { return sine_; }
    bool Rotated() const { return sine_ != 0 || cosine_ != 1; }

protected:
    SizedFont() = default;
    virtual Glyph MakeGlyph(char32_t character) = 0;

    FontMetrics metrics_;
    double cosine_ = 1;
    double sine_ = 0;

private:
    static constexpr size_t kDirectGlyphs = 256;
    std::array<std::unique_ptr<Glyph>, kDirectGlyphs> directGlyphs_;
    std::unordered_map<char32_t, Glyph> glyphs_;
};

/// The sized font for a description. Never null: without font files its glyphs are blank. Hold the room's
/// lock.
std::shared_ptr<SizedFont> SizedFontFor(const LOGFONTW& description);

/// The name of the face that a description really gets.
std::u16string_view FaceNameFor(const LOGFONTW& description);

/// The names that programs are told when they list the faces, in order.
std::vector<std::u16string_view> ListedFaces();

/// The listed name that is the same as `name` without regard to case; empty when there is none.
std::u16string_view ListedFace(std::u16string_view name);

/// Takes one character, which may be a surrogate pair, off the front of `text`.
char32_t TakeCharacter(std::u16string_view& text);

} // namespace host
