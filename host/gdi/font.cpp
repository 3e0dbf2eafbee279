#include "host/gdi/font.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <numbers>
#include <string>
#include <tuple>

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_MODULE_H
#include FT_SYNTHESIS_H
#include FT_TRUETYPE_TABLES_H

#include "host/kernel/world.h"

namespace host {
namespace {

enum class Family
{
    Sans,
    Serif,
    Mono,
    Gothic // Japanese
};

struct FaceName
{
    std::u16string_view name;
    Family family;
    std::u16string_view real; // what the face is called when asked; empty for the name itself
    bool listed;
};

constexpr FaceName kFaceNames[] = {
    {u"Arial", Family::Sans, u"", true},
    {u"Courier New", Family::Mono, u"", true},
    {u"Microsoft Sans Serif", Family::Sans, u"", true},
    {u"MS Gothic", Family::Gothic, u"", true},
    {u"MS PGothic", Family::Gothic, u"", true},
    {u"MS UI Gothic", Family::Gothic, u"", true},
    {u"Segoe UI", Family::Sans, u"", true},
    {u"Tahoma", Family::Sans, u"", true},
    {u"Times New Roman", Family::Serif, u"", true},
    {u"Courier", Family::Mono, u"", false},
    {u"MS Sans Serif", Family::Sans, u"", false},
    {u"MS Shell Dlg", Family::Sans, u"Microsoft Sans Serif", false},
    {u"MS Shell Dlg 2", Family::Sans, u"Tahoma", false},
    {u"System", Family::Sans, u"", false},
    {u"ＭＳ ゴシック", Family::Gothic, u"MS Gothic", false},
    {u"ＭＳ Ｐゴシック", Family::Gothic, u"MS PGothic", false},
};
constexpr const FaceName& kFallbackName = kFaceNames[0];

struct FontFile
{
    Family family;
    bool bold;
    bool italic;
    const char* name;
};

constexpr FontFile kFontFiles[] = {
    {Family::Sans, false, false, "LiberationSans-Regular.ttf"},
    {Family::Sans, true, false, "LiberationSans-Bold.ttf"},
    {Family::Sans, false, true, "LiberationSans-Italic.ttf"},
    {Family::Sans, true, true, "LiberationSans-BoldItalic.ttf"},
    {Family::Serif, false, false, "LiberationSerif-Regular.ttf"},
    {Family::Serif, true, false, "LiberationSerif-Bold.ttf"},
    {Family::Serif, false, true, "LiberationSerif-Italic.ttf"},
    {Family::Serif, true, true, "LiberationSerif-BoldItalic.ttf"},
    {Family::Mono, false, false, "LiberationMono-Regular.ttf"},
    {Family::Mono, true, false, "LiberationMono-Bold.ttf"},
    {Family::Mono, false, true, "LiberationMono-Italic.ttf"},
    {Family::Mono, true, true, "LiberationMono-BoldItalic.ttf"},
    {Family::Gothic, false, false, "ipaexg.ttf"},
};

constexpr const char* kFontFolders[] = {"/usr/share/fonts", "/usr/local/share/fonts"};

constexpr LONG kDefaultCellHeight = 16; // for a height of zero
constexpr int kMaxEmHeight = 2000;      // pixels; a hostile description asks for more
constexpr LONG kBoldFrom = 600;         // weights
constexpr size_t kMaxSizedFonts = 64;

FT_Library Library()
{
    static const FT_Library library = [] {
        FT_Library made = nullptr;
        if (FT_Init_FreeType(&made) != 0)
            return FT_Library{};
        // Full hinting in both directions, as programs that count in whole pixels expect it.
        FT_UInt version = 35;
        FT_Property_Set(made, "truetype", "interpreter-version", &version);
        return made;
    }();
    return library;
}

/// Paths of the font files that are installed, by file name.
const std::map<std::string, std::string>& InstalledFiles()
{
    static const auto files = [] {
        std::map<std::string, std::string> found;
        for (const char* const folder : kFontFolders) {
            std::error_code failed;
            const auto options = std::filesystem::directory_options::skip_permission_denied;
            for (auto each = std::filesystem::recursive_directory_iterator(folder, options, failed);
                 each != std::filesystem::recursive_directory_iterator(); each.increment(failed))
                found.emplace(each->path().filename().string(), each->path().string());
        }
        return found;
    }();
    return files;
}

struct LoadedFace
{
    FT_Face face = nullptr; // null when the file is missing
    bool needsBold = false; // what the file lacks of the style asked for
    bool needsItalic = false;
};

FT_Face OpenFace(const FontFile& file)
{
    static std::map<const FontFile*, FT_Face> faces;
    const auto [found, added] = faces.try_emplace(&file, nullptr);
    const auto installed = InstalledFiles().find(file.name);
    if (added && Library() != nullptr && installed != InstalledFiles().end())
        FT_New_Face(Library(), installed->second.c_str(), 0, &found->second);
    return found->second;
}

LoadedFace FaceFor(Family family, bool bold, bool italic)
{
    const FontFile* best = nullptr;
    for (const FontFile& file : kFontFiles) {
        if (file.family != family)
            continue;
        if (best == nullptr || (file.bold == bold && file.italic == italic))
            best = &file;
    }
    return {OpenFace(*best), bold && !best->bold, italic && !best->italic};
}

const FaceName& FindName(std::u16string_view name)
{
    for (const FaceName& row : kFaceNames) {
        if (EqualNoCase(row.name, name))
            return row;
    }
    return kFallbackName;
}

std::u16string_view NameIn(const LOGFONTW& description)
{
    const auto end = std::find(std::begin(description.lfFaceName), std::end(description.lfFaceName), 0);
    return {description.lfFaceName, static_cast<size_t>(end - description.lfFaceName)};
}

/// What a program asks for with no name, or an unknown one.
Family FamilyFor(const LOGFONTW& description)
{
    const std::u16string_view name = NameIn(description);
    const FaceName& row = FindName(name);
    if (EqualNoCase(row.name, name))
        return row.family;
    if ((description.lfPitchAndFamily & 3) == FIXED_PITCH)
        return Family::Mono;
    return (description.lfPitchAndFamily & 0xF0) == FF_ROMAN ? Family::Serif : Family::Sans;
}

/// The vertical design measures that the platform builds its text metrics from, in font units.
struct DesignMeasures
{
    int ascent;
    int descent;
    int lineGap; // of the horizontal header, with its ascent and descent
    int headerHeight;
    int averageWidth;
    int unitsPerEm;
};

DesignMeasures MeasuresOf(FT_Face face)
{
    const auto* const os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
    const auto* const header = static_cast<const TT_HoriHeader*>(FT_Get_Sfnt_Table(face, FT_SFNT_HHEA));
    DesignMeasures measures = {face->ascender,    -face->descender, 0, 0, face->max_advance_width / 2,
                               face->units_per_EM};
    if (os2 != nullptr) {
        measures.ascent = os2->usWinAscent;
        measures.descent = os2->usWinDescent;
        measures.averageWidth = os2->xAvgCharWidth;
    }
    if (header != nullptr) {
        measures.lineGap = header->Line_Gap;
        measures.headerHeight = header->Ascender - header->Descender;
    }
    return measures;
}

int Scaled(int design, int emHeight, int unitsPerEm)
{
    return static_cast<int>(std::lround(static_cast<double>(design) * emHeight / unitsPerEm));
}

int ScaledUp(int design, int emHeight, int unitsPerEm)
{
    return static_cast<int>(std::ceil(static_cast<double>(design) * emHeight / unitsPerEm));
}

/// Ascent is rounded and descent rounded up, which gives 8 points at 96 dots an inch 13 pixels.
int CellHeight(const DesignMeasures& design, int emHeight)
{
    return Scaled(design.ascent, emHeight, design.unitsPerEm) +
           ScaledUp(design.descent, emHeight, design.unitsPerEm);
}

/// The em height in pixels for a description's height: negative is the em itself, positive the largest cell.
int EmHeightFor(LONG height, const DesignMeasures& design)
{
    if (height < 0)
        return static_cast<int>(std::min<int64_t>(-int64_t{height}, kMaxEmHeight));
    const LONG cell = std::min<LONG>(height == 0 ? kDefaultCellHeight : height, kMaxEmHeight);
    int emHeight = std::max(1, cell * design.unitsPerEm / std::max(1, design.ascent + design.descent) + 1);
    while (emHeight > 1 && CellHeight(design, emHeight) > cell)
        --emHeight;
    return emHeight;
}

class FreeTypeFont : public SizedFont
{
public:
    FreeTypeFont(const LOGFONTW& description)
    {
        const bool bold = description.lfWeight >= kBoldFrom;
        const bool italic = description.lfItalic != 0;
        const Family family = FamilyFor(description);
        main_ = FaceFor(family, bold, italic);
        japanese_ = FaceFor(Family::Gothic, bold, italic);
        smooth_ = description.lfQuality != NONANTIALIASED_QUALITY;
        SetMetrics(description, family);
        SetDirection(description.lfEscapement);
    }

private:
    void SetMetrics(const LOGFONTW& description, Family family)
    {
        if (main_.face == nullptr) {
            metrics_ = {10, 3, 11, 0, 6, 12, false, FF_DONTCARE};
            return;
        }
        const DesignMeasures design = MeasuresOf(main_.face);
        const int em = EmHeightFor(description.lfHeight, design);
        widthEm_ = em;
        metrics_.emHeight = em;
        metrics_.ascent = Scaled(design.ascent, em, design.unitsPerEm);
        metrics_.descent = ScaledUp(design.descent, em, design.unitsPerEm);
        const int designGap = design.lineGap - (design.ascent + design.descent - design.headerHeight);
        metrics_.externalLeading = Scaled(std::max(0, designGap), em, design.unitsPerEm);
        metrics_.averageWidth = std::max(1, Scaled(design.averageWidth, em, design.unitsPerEm));
        const LONG wanted = std::abs(std::clamp<LONG>(description.lfWidth, -kMaxEmHeight, kMaxEmHeight));
        if (wanted != 0) {
            widthEm_ = std::clamp(static_cast<int>(em * wanted / metrics_.averageWidth), 1, kMaxEmHeight);
            metrics_.averageWidth = wanted;
        }
        const FT_BBox& box = main_.face->bbox;
        metrics_.maximalWidth = Scaled(static_cast<int>(box.xMax - box.xMin), widthEm_, design.unitsPerEm);
        metrics_.fixedPitch = FT_IS_FIXED_WIDTH(main_.face);
        metrics_.family = family == Family::Serif                              ? FF_ROMAN
                          : family == Family::Mono || family == Family::Gothic ? FF_MODERN
                                                                               : FF_SWISS;
    }

    void SetDirection(LONG tenthsOfDegree)
    {
        if (tenthsOfDegree % 3600 == 0)
            return;
        const double angle = tenthsOfDegree % 3600 * std::numbers::pi / 1800;
        cosine_ = std::cos(angle);
        sine_ = std::sin(angle);
    }

    Glyph MakeGlyph(char32_t character) override
    {
        const bool control = character < u' ' || (character >= 0x7F && character < 0xA0);
        if (main_.face == nullptr || control)
            return {};
        const LoadedFace* from = &main_;
        FT_UInt index = FT_Get_Char_Index(main_.face, character);
        if (index == 0 && japanese_.face != nullptr) {
            const FT_UInt other = FT_Get_Char_Index(japanese_.face, character);
            if (other != 0) {
                from = &japanese_;
                index = other;
            }
        }
        return Render(*from, index);
    }

    Glyph Render(const LoadedFace& from, FT_UInt index)
    {
        FT_Face const face = from.face;
        FT_Set_Pixel_Sizes(face, static_cast<FT_UInt>(widthEm_), static_cast<FT_UInt>(metrics_.emHeight));
        FT_Set_Transform(face, nullptr, nullptr);
        Glyph glyph;
        if (FT_Load_Glyph(face, index, FT_LOAD_NO_BITMAP | FT_LOAD_TARGET_NORMAL) != 0)
            return glyph;
        glyph.advance = static_cast<int>((face->glyph->advance.x + 32) >> 6);
        if (Rotated()) {
            // Hinting is for upright glyphs; their advances hold for turned ones too.
            const auto fixed = [](double value) { return static_cast<FT_Fixed>(value * 0x10000); };
            FT_Matrix matrix = {fixed(cosine_), fixed(-sine_), fixed(sine_), fixed(cosine_)};
            FT_Set_Transform(face, &matrix, nullptr);
            if (FT_Load_Glyph(face, index, FT_LOAD_NO_BITMAP | FT_LOAD_NO_HINTING) != 0)
                return glyph;
        }
        if (from.needsBold)
            FT_GlyphSlot_Embolden(face->glyph);
        if (from.needsItalic)
            FT_GlyphSlot_Oblique(face->glyph);
        if (FT_Render_Glyph(face->glyph, FT_RENDER_MODE_NORMAL) == 0)
            CopyCoverage(*face->glyph, glyph);
        return glyph;
    }

    void CopyCoverage(const FT_GlyphSlotRec_& slot, Glyph& glyph) const
    {
        constexpr uint8_t kHalf = 128;
        const FT_Bitmap& bitmap = slot.bitmap;
        glyph.left = slot.bitmap_left;
        glyph.top = slot.bitmap_top;
        glyph.width = static_cast<int>(bitmap.width);
        glyph.height = static_cast<int>(bitmap.rows);
        for (unsigned y = 0; y < bitmap.rows; ++y) {
            const uint8_t* const row = bitmap.buffer + ptrdiff_t{static_cast<int>(y)} * bitmap.pitch;
            glyph.coverage.insert(glyph.coverage.end(), row, row + bitmap.width);
        }
        if (smooth_)
            return;
        for (uint8_t& value : glyph.coverage)
            value = value < kHalf ? 0 : 255;
    }

    LoadedFace main_;
    LoadedFace japanese_;
    int widthEm_ = 0; // pixels; differs from the em height in stretched fonts
    bool smooth_ = true;
};

} // namespace

const Glyph& SizedFont::GlyphOf(char32_t character)
{
    if (character < kDirectGlyphs) {
        std::unique_ptr<Glyph>& glyph = directGlyphs_[character];
        if (!glyph)
            glyph = std::make_unique<Glyph>(MakeGlyph(character));
        return *glyph;
    }
    const auto found = glyphs_.find(character);
    return found != glyphs_.end() ? found->second
                                  : glyphs_.emplace(character, MakeGlyph(character)).first->second;
}

std::shared_ptr<SizedFont> SizedFontFor(const LOGFONTW& description)
{
    using Key = std::tuple<Family, LONG, LONG, LONG, bool, bool, bool>;
    static std::map<Key, std::shared_ptr<SizedFont>> fonts;
    const Key key = {FamilyFor(description),
                     description.lfHeight,
                     description.lfWidth,
                     description.lfEscapement % 3600,
                     description.lfWeight >= kBoldFrom,
                     description.lfItalic != 0,
                     description.lfQuality == NONANTIALIASED_QUALITY};
    const auto found = fonts.find(key);
    if (found != fonts.end())
        return found->second;
    if (fonts.size() >= kMaxSizedFonts)
        fonts.clear();
    return fonts.emplace(key, std::make_shared<FreeTypeFont>(description)).first->second;
}

std::u16string_view FaceNameFor(const LOGFONTW& description)
{
    const FaceName& row = FindName(NameIn(description));
    return row.real.empty() ? row.name : row.real;
}

std::vector<std::u16string_view> ListedFaces()
{
    std::vector<std::u16string_view> names;
    for (const FaceName& row : kFaceNames) {
        if (row.listed)
            names.push_back(row.name);
    }
    return names;
}

std::u16string_view ListedFace(std::u16string_view name)
{
    const FaceName& row = FindName(name);
    return row.listed && EqualNoCase(row.name, name) ? row.name : std::u16string_view();
}

char32_t TakeCharacter(std::u16string_view& text)
{
    const char32_t first = text.front();
    text.remove_prefix(1);
    const bool leads = first >= 0xD800 && first < 0xDC00;
    if (!leads || text.empty() || text.front() < 0xDC00 || text.front() > 0xDFFF)
        return first;
    const char32_t second = text.front();
    text.remove_prefix(1);
    return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
}

} // namespace host
