#include <algorithm>
#include <iterator>

#include "psui/model/handlers.h"
#include "psui/model/names.h"

namespace psui::compiler {

namespace {

constexpr VocabularyWord kTruth[] = {{"True", 1}, {"False", 0}};
constexpr VocabularyWord kProtocols[] = {{"PJL", 1}, {"BCP", 2}, {"TBCP", 4}, {"SIC", 8}};
constexpr VocabularyWord kLanguageEncodings[] = {
    {"ISOLatin1", 1}, {"JIS83-RKSJ", 2}, {"MaxStandard", 3}, {"WindowsANSI", 4}, {"None", 0}};
constexpr VocabularyWord kLanguageVersions[] = {
    {"English", 1}, {"Danish", 1},  {"Dutch", 1},     {"Finnish", 1}, {"French", 1},
    {"German", 1},  {"Italian", 1}, {"Norwegian", 1}, {"Spanish", 1}, {"Portuguese", 1},
    {"Swedish", 1}, {"Chinese", 0}, {"Japanese", 2},  {"Russian", 0}};
constexpr VocabularyWord kRasterizers[] = {{"None", 0}, {"Accept68k", 1}, {"Type42", 2}, {"TrueImage", 3}};
constexpr VocabularyWord kOrientations[] = {{"Any", 0}, {"Plus90", 1}, {"Minus90", 2}};
constexpr VocabularyWord kCustomPageParams[] = {{"Width", kCustomWidth},
                                                {"Height", kCustomHeight},
                                                {"WidthOffset", kCustomWidthOffset},
                                                {"HeightOffset", kCustomHeightOffset},
                                                {"Orientation", kCustomOrientation}};
constexpr VocabularyWord kCustomPageTypes[] = {{"int", 0}, {"real", 1}, {"points", 2}};

constexpr uint32_t kExtensionCmyk = 2;
constexpr VocabularyWord kExtensions[] = {
    {"DPS", 1}, {"CMYK", kExtensionCmyk}, {"Composite", 4}, {"FileSystem", 8}};

constexpr uint32_t kMaxCustomPageOrder = 5;

// A resident font's number is 1 + its position.
struct ResidentFontName
{
    std::string_view name;
};

constexpr ResidentFontName kResidentFonts[] = {
    {"PC-Brussels"},
    {"PC-Brussels-Bold"},
    {"PC-Brussels-Italic"},
    {"PC-Brussels-BoldItalic"},
    {"PC-Tennessee"},
    {"PC-Tennessee-Bold"},
    {"PC-Tennessee-Italic"},
    {"PC-Tennessee-BoldItalic"},
    {"Utah"},
    {"Utah-Bold"},
    {"Utah-Italic"},
    {"Utah-BoldItalic"},
    {"Brougham"},
    {"Brougham-Bold"},
    {"Brougham-Italic"},
    {"Brougham-BoldItalic"},
    {"Atlanta"},
    {"Atlanta-Bold"},
    {"Atlanta-Italic"},
    {"Atlanta-BoldItalic"},
    {"Calgary"},
    {"Copenhagen"},
    {"Copenhagen-Bold"},
    {"Copenhagen-Italic"},
    {"Copenhagen-BoldItalic"},
    {"Portugal"},
    {"Portugal-Bold"},
    {"Portugal-Italic"},
    {"Portugal-BoldItalic"},
    {"Alaska"},
    {"Alaska-Extrabold"},
    {"Antique-Oakland"},
    {"Antique-Oakland-Bold"},
    {"Antique-Oakland-italic"},
    {"Cleveland-Condensed"},
    {"Connecticut"},
    {"Guatemala"},
    {"Guatemala-Bold"},
    {"Guatemala-Italic"},
    {"Guatemala-BoldItalic"},
    {"Letter-Gothic"},
    {"Letter-Gothic-Bold"},
    {"Letter-Gothic-Italic"},
    {"Maryland"},
    {"Oklahoma"},
    {"Oklahoma-Bold"},
    {"Oklahoma-Italic"},
    {"Oklahoma-BoldItalic"},
    {"Utah-Condensed"},
    {"Utah-Condensed-Bold"},
    {"Utah-Condensed-Italic"},
    {"Utah-Condensed-BoldItalic"},
    {"Arial"},
    {"Arial-Bold"},
    {"Arial-Italic"},
    {"Arial-BoldItalic"},
    {"Times-New-Roman"},
    {"Times-New-Roman-Bold"},
    {"Times-New-Roman-Italic"},
    {"Times-New-Roman-BoldItalic"},
    {"Symbol"},
    {"Wingdings"},
    {"OCR-A"},
    {"OCR-B"},
    {"Bermuda-Script"},
    {"Germany"},
    {"San-Diego"},
    {"US-Roman"},
    {"Letter-Goth16.6"},
    {"Letter-Goth16.6-Italic"},
    {"Letter-Goth16.6-Bold"},
    {"Letter-Goth16.6-BoldItalic"},
};
static_assert(std::size(kResidentFonts) == 72);

constexpr NameTable kResidentFontNames(kResidentFonts, &ResidentFontName::name);

Outcome StoreWord(Compilation& c, Vocabulary vocabulary, uint16_t ModelDescription::*field)
{
    uint32_t value;
    if (LookUp(vocabulary, c.statement.value, value))
        c.root.header.*field = static_cast<uint16_t>(value);
    else
        Note(c, DiagnosticKind::UnknownWord, c.statement.value);
    return Outcome::Done;
}

// Returns the bits of the words that the statement lists.
uint16_t ReadBits(Compilation& c, Vocabulary vocabulary)
{
    uint32_t bits = 0;
    WordReader words(c.statement.value);
    for (std::string_view word = words.Next(); !word.empty(); word = words.Next()) {
        uint32_t bit = 0;
        if (!LookUp(vocabulary, word, bit))
            Note(c, DiagnosticKind::UnknownWord, word);
        bits |= bit;
    }
    return static_cast<uint16_t>(bits);
}

// Reads a custom page parameter's "order type minimum maximum". `known` is false for a type nobody knows.
Outcome ReadCustomPageParam(Compilation& c, CustomPageParam& param, bool& known)
{
    WordReader words(c.statement.value);
    const std::string_view order = words.Next();
    const std::string_view type = words.Next();
    const std::string_view minimum = words.Next();
    const std::string_view maximum = words.Next();
    if (maximum.empty())
        return Reject(c, DiagnosticKind::TooFewValues, c.statement.value);
    uint32_t lowest = 0;
    uint32_t highest = 0;
    uint32_t place = 0;
    uint32_t typeNumber = 0;
    if (!ReadInteger(order, place) || place < 1 || place > kMaxCustomPageOrder)
        return Reject(c, DiagnosticKind::BadNumber, order);
    known = LookUp(kCustomPageTypes, type, typeNumber);
    if (!known) {
        Note(c, DiagnosticKind::UnknownWord, type);
        return Outcome::Done;
    }
    if (!ReadReal(minimum, lowest))
        return Reject(c, DiagnosticKind::BadNumber, minimum);
    if (!ReadReal(maximum, highest))
        return Reject(c, DiagnosticKind::BadNumber, maximum);
    param = {place, static_cast<uint16_t>(typeNumber), 0, lowest, highest};
    return Outcome::Done;
}

} // namespace

Outcome Ignore(Compilation&)
{
    return Outcome::Done;
}

Outcome StoreInteger(Compilation& c, uint32_t ModelDescription::*field)
{
    uint32_t value;
    if (!ReadInteger(c.statement.value, value))
        return Reject(c, DiagnosticKind::BadNumber, c.statement.value);
    c.root.header.*field = value;
    return Outcome::Done;
}

Outcome StoreReal(Compilation& c, uint32_t ModelDescription::*field)
{
    uint32_t value;
    if (!ReadReal(c.statement.value, value))
        return Reject(c, DiagnosticKind::BadNumber, c.statement.value);
    c.root.header.*field = value;
    return Outcome::Done;
}

Outcome StoreTruth(Compilation& c, uint32_t ModelDescription::*field)
{
    uint32_t value = 0;
    if (!LookUp(kTruth, c.statement.value, value))
        Note(c, DiagnosticKind::UnknownWord, c.statement.value);
    c.root.header.*field = value;
    return Outcome::Done;
}

Outcome StoreText(Compilation& c, HeaderText text)
{
    KeepFirst(c.root.texts[text], c.statement.value);
    return Outcome::Done;
}

Outcome StoreDecodedText(Compilation& c, HeaderText text)
{
    std::string_view decoded;
    const Outcome outcome = DecodeHex(c, c.statement.value, decoded);
    if (outcome == Outcome::Done)
        KeepFirst(c.root.texts[text], decoded);
    return outcome;
}

Outcome RecordProtocols(Compilation& c)
{
    c.root.header.protocols |= ReadBits(c, kProtocols);
    return Outcome::Done;
}

Outcome RecordExtensions(Compilation& c)
{
    const uint16_t extensions = ReadBits(c, kExtensions);
    c.root.header.extensions |= extensions;
    if (extensions & kExtensionCmyk)
        c.root.header.colorDevice = 1;
    return Outcome::Done;
}

Outcome RecordLanguageEncoding(Compilation& c)
{
    return StoreWord(c, kLanguageEncodings, &ModelDescription::languageEncoding);
}

Outcome RecordLanguageVersion(Compilation& c)
{
    if (c.root.header.languageEncoding != 0)
        return Outcome::Done;
    return StoreWord(c, kLanguageVersions, &ModelDescription::languageEncoding);
}

Outcome RecordRasterizer(Compilation& c)
{
    return StoreWord(c, kRasterizers, &ModelDescription::ttRasterizer);
}

Outcome RecordLandscapeOrientation(Compilation& c)
{
    return StoreWord(c, kOrientations, &ModelDescription::landscapeOrientation);
}

Outcome RecordHwMargins(Compilation& c)
{
    uint32_t margins[std::size(ModelDescription{}.hwMargins)];
    WordReader words(c.statement.value);
    for (uint32_t& margin : margins) {
        const std::string_view word = words.Next();
        if (word.empty())
            return Reject(c, DiagnosticKind::TooFewValues, c.statement.value);
        if (!ReadReal(word, margin))
            return Reject(c, DiagnosticKind::BadNumber, word);
    }
    std::copy(std::begin(margins), std::end(margins), c.root.header.hwMargins);
    c.root.header.hwMarginsPresent = 1;
    return Outcome::Done;
}

Outcome RecordCustomPageSize(Compilation& c)
{
    uint32_t possible = 0;
    if (!LookUp(kTruth, c.statement.option, possible))
        Note(c, DiagnosticKind::UnknownWord, c.statement.option);
    if (possible) {
        c.root.header.customPageSize = 1;
        KeepFirst(c.root.texts[kTextCustomPageSizeCode], c.statement.value);
    }
    return Outcome::Done;
}

Outcome RecordCustomPageParam(Compilation& c)
{
    uint32_t index;
    if (!LookUp(kCustomPageParams, c.statement.option, index)) {
        Note(c, DiagnosticKind::UnknownWord, c.statement.option);
        return Outcome::Done;
    }
    CustomPageParam param{};
    bool known = false;
    const Outcome outcome = ReadCustomPageParam(c, param, known);
    if (outcome == Outcome::Done && known)
        c.root.header.customPageParams[index] = param;
    return outcome;
}

Outcome RecordFont(Compilation& c)
{
    const std::string_view name = c.statement.option;
    const ResidentFontName* row = kResidentFontNames.Find(name);
    if (!row) {
        Note(c, DiagnosticKind::UnknownWord, name);
        return Outcome::Done;
    }
    for (const Font* listed = c.root.fonts.first; listed; listed = listed->next)
        if (listed->name == name)
            return Outcome::Done;
    Font* font = c.root.pool->New<Font>();
    if (!font)
        return Outcome::OutOfMemory;
    font->name = name;
    font->value = c.statement.value;
    font->number = static_cast<uint16_t>(row - std::begin(kResidentFonts) + 1);
    c.root.fonts.Append(font);
    return Outcome::Done;
}

} // namespace psui::compiler
