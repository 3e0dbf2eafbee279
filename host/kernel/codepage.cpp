// Conversion between UTF-16 and the code pages 1252, 932 and UTF-8.
//
// An 8-bit code page is a pair of tables that is made once: single bytes and lead/trail pairs to units, and
// back. A character has one unit in them; characters beyond the basic plane exist in UTF-8 alone.
#include "host/kernel/codepage.h"

#include <atomic>
#include <climits>
#include <cstring>
#include <iconv.h>
#include <memory>
#include <string_view>

#include "host/host.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"

namespace host {
namespace {

constexpr UINT kLatinPage = 1252;
constexpr UINT kJapanesePage = 932;
constexpr size_t kCodes = 0x10000;
constexpr char16_t kReplacement = 0xFFFD;
constexpr char16_t kKatakanaDot = 0x30FB; // what the Japanese page gives for a pair that means nothing
// Four bytes of the Japanese page mean nothing elsewhere; the platform keeps them as private characters.
constexpr unsigned kBlankPrivateByte = 0xA0;
constexpr char16_t kBlankPrivateUnit = 0xF8F0;
constexpr unsigned kFirstPrivateByte = 0xFD;
constexpr char16_t kFirstPrivateUnit = 0xF8F1;
constexpr char kDefaultChar[] = "?";

// The bytes 0x80 to 0x9F of page 1252; unused ones stand for themselves.
constexpr char16_t kLatinHighBytes[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

std::atomic<UINT> systemPage{kLatinPage};

/// Codes are a byte, or a lead byte times 256 plus a trail byte.
struct CodePage
{
    char16_t units[kCodes]; // 0 for codes that mean nothing (and for code 0)
    uint16_t codes[kCodes]; // 0 for units without a code (and for unit 0)
    bool isLead[UCHAR_MAX + 1];
    char16_t invalid; // stands for codes that mean nothing

    void Map(unsigned code, char16_t unit)
    {
        if (unit == 0)
            return;
        units[code] = unit;
        if (codes[unit] == 0)
            codes[unit] = static_cast<uint16_t>(code);
    }
};

std::unique_ptr<CodePage> MakeLatinPage()
{
    auto page = std::make_unique<CodePage>();
    page->invalid = u'?';
    for (unsigned code = 1; code <= UCHAR_MAX; ++code) {
        const bool special = code >= 0x80 && code < 0xA0;
        page->Map(code, special ? kLatinHighBytes[code - 0x80] : static_cast<char16_t>(code));
    }
    return page;
}

/// The unit of one byte or pair by the machine's converter, or 0.
char16_t ConvertCode(iconv_t converter, unsigned code)
{
    char bytes[] = {static_cast<char>(code >> 8), static_cast<char>(code)};
    char* source = code > UCHAR_MAX ? bytes : bytes + 1;
    size_t sourceSize = code > UCHAR_MAX ? 2 : 1;
    char16_t unit = 0;
    char* target = reinterpret_cast<char*>(&unit);
    size_t targetSize = sizeof unit;
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    const bool done = iconv(converter, &source, &sourceSize, &target, &targetSize) == 0;
    return done && sourceSize == 0 && targetSize == 0 ? unit : u'\0';
}

bool IsJapaneseLead(unsigned byte)
{
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

void MapPairs(CodePage& page, iconv_t converter, unsigned lead)
{
    for (unsigned trail = 0x40; trail <= 0xFC; ++trail) {
        page.Map(lead << 8 | trail, ConvertCode(converter, lead << 8 | trail));
    }
}

std::unique_ptr<CodePage> MakeJapanesePage()
{
    auto page = std::make_unique<CodePage>();
    page->invalid = kKatakanaDot;
    const iconv_t converter = iconv_open("UTF-16LE", "CP932");
    for (unsigned code = 1; code <= UCHAR_MAX; ++code) {
        page->isLead[code] = IsJapaneseLead(code);
        if (code <= 0x80)
            page->Map(code, static_cast<char16_t>(code));
        else if (code == kBlankPrivateByte)
            page->Map(code, kBlankPrivateUnit);
        else if (code >= kFirstPrivateByte)
            page->Map(code, static_cast<char16_t>(kFirstPrivateUnit + code - kFirstPrivateByte));
        else if (converter != reinterpret_cast<iconv_t>(-1) && !page->isLead[code])
            page->Map(code, ConvertCode(converter, code));
    }
    if (converter == reinterpret_cast<iconv_t>(-1))
        return page;
    // These rows repeat characters of other rows, which are the ones to write.
    constexpr unsigned kRepeatedLeads[] = {0xED, 0xEE};
    for (unsigned lead = 0; lead <= UCHAR_MAX; ++lead) {
        if (page->isLead[lead] && lead != kRepeatedLeads[0] && lead != kRepeatedLeads[1])
            MapPairs(*page, converter, lead);
    }
    for (unsigned lead : kRepeatedLeads)
        MapPairs(*page, converter, lead);
    iconv_close(converter);
    return page;
}

/// The tables of a code page, or null.
const CodePage* PageOf(UINT number)
{
    if (number == kLatinPage) {
        static const std::unique_ptr<CodePage> latin = MakeLatinPage();
        return latin.get();
    }
    if (number == kJapanesePage) {
        static const std::unique_ptr<CodePage> japanese = MakeJapanesePage();
        return japanese.get();
    }
    return nullptr;
}

UINT ActualPage(UINT codePage)
{
    return codePage == CP_ACP || codePage == CP_OEMCP ? systemPage.load() : codePage;
}

/// Counts what is put into it and stores it as long as there is room; without a buffer it only counts.
template <class Unit>
class Sink
{
public:
    Sink(Unit* buffer, int size) : buffer_(buffer), size_(static_cast<size_t>(size)) {}

    void Put(Unit unit)
    {
        if (used_ < size_)
            buffer_[used_] = unit;
        ++used_;
    }

    /// The units put, or 0 with the last error set when they do not fit.
    int Result() const
    {
        if (used_ > INT_MAX)
            return FailWith(ERROR_INVALID_PARAMETER);
        if (size_ != 0 && used_ > size_)
            return FailWith(ERROR_INSUFFICIENT_BUFFER);
        return static_cast<int>(used_);
    }

private:
    Unit* buffer_;
    size_t size_;
    size_t used_ = 0;
};

using WideSink = Sink<WCHAR>;
using ByteSink = Sink<CHAR>;

/// Returns false when a code means nothing and `strict` forbids that.
bool DecodePage(const CodePage& page, std::string_view source, bool strict, WideSink& sink)
{
    for (size_t i = 0; i < source.size(); ++i) {
        unsigned code = static_cast<unsigned char>(source[i]);
        if (page.isLead[code] && i + 1 < source.size() && source[i + 1] != 0)
            code = code << 8 | static_cast<unsigned char>(source[++i]);
        const char16_t unit = page.units[code];
        if (unit == 0 && code != 0 && strict)
            return false;
        sink.Put(unit != 0 || code == 0 ? unit : page.invalid);
    }
    return true;
}

/// The size of the well-formed sequence at the front of `text`, or 0 with the length of the bad part in
/// `bad`.
size_t SequenceSize(std::string_view text, size_t& bad)
{
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned lead = byte(0);
    bad = 1;
    if (lead < 0x80)
        return 1;
    if (lead < 0xC2 || lead > 0xF4)
        return 0;
    const size_t size = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    for (size_t i = 1; i < size; ++i) {
        unsigned low = 0x80;
        unsigned high = 0xBF;
        if (i == 1 && lead == 0xE0)
            low = 0xA0; // overlong
        else if (i == 1 && lead == 0xED)
            high = 0x9F; // surrogates
        else if (i == 1 && lead == 0xF0)
            low = 0x90; // overlong
        else if (i == 1 && lead == 0xF4)
            high = 0x8F; // beyond U+10FFFF
        if (i >= text.size() || byte(i) < low || byte(i) > high)
            return 0;
        ++bad;
    }
    return size;
}

void PutSequence(std::string_view sequence, WideSink& sink)
{
    constexpr unsigned kLeadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    char32_t code = static_cast<unsigned char>(sequence[0]) & kLeadBits[sequence.size()];
    for (char byte : sequence.substr(1))
        code = code << 6 | (static_cast<unsigned char>(byte) & 0x3F);
    if (code >= 0x10000) {
        sink.Put(static_cast<char16_t>(0xD7C0 + (code >> 10)));
        code = 0xDC00 + (code & 0x3FF);
    }
    sink.Put(static_cast<char16_t>(code));
}

bool DecodeUtf8(std::string_view source, bool strict, WideSink& sink)
{
    while (!source.empty()) {
        size_t bad;
        size_t size = SequenceSize(source, bad);
        if (size != 0) {
            PutSequence(source.substr(0, size), sink);
        } else if (strict) {
            return false;
        } else {
            sink.Put(kReplacement);
            size = bad;
        }
        source.remove_prefix(size);
    }
    return true;
}

/// Returns whether the default character had to stand in.
bool EncodePage(const CodePage& page, std::u16string_view source, std::string_view standIn, ByteSink& sink)
{
    bool used = false;
    for (char16_t unit : source) {
        const unsigned code = page.codes[unit];
        if (code > UCHAR_MAX)
            sink.Put(static_cast<char>(code >> 8));
        if (code != 0 || unit == 0) {
            sink.Put(static_cast<char>(code));
            continue;
        }
        used = true;
        for (char byte : standIn)
            sink.Put(byte);
    }
    return used;
}

void PutUtf8(char32_t code, ByteSink& sink)
{
    constexpr char32_t kLimits[] = {0x80, 0x800, 0x10000};
    constexpr unsigned kLeads[] = {0, 0xC0, 0xE0, 0xF0};
    unsigned more = 0; // bytes after the lead byte
    while (more < 3 && code >= kLimits[more])
        ++more;
    sink.Put(static_cast<char>(kLeads[more] | (code >> (6 * more))));
    while (more-- > 0)
        sink.Put(static_cast<char>(0x80 | ((code >> (6 * more)) & 0x3F)));
}

bool EncodeUtf8(std::u16string_view source, bool strict, ByteSink& sink)
{
    for (size_t i = 0; i < source.size(); ++i) {
        char32_t code = source[i];
        const bool low = i + 1 < source.size() && (source[i + 1] & 0xFC00) == 0xDC00;
        if ((code & 0xFC00) == 0xD800 && low)
            code = 0x10000 + ((code - 0xD800) << 10) + (source[++i] - 0xDC00);
        else if ((code & 0xF800) == 0xD800 && strict)
            return false;
        else if ((code & 0xF800) == 0xD800)
            code = kReplacement;
        PutUtf8(code, sink);
    }
    return true;
}

/// The rules that both directions share. Returns 0 or the error code.
DWORD CheckArguments(const void* source, int sourceSize, const void* target, int targetSize)
{
    if (source == nullptr || sourceSize == 0 || sourceSize < -1 || targetSize < 0 || source == target ||
        (targetSize != 0 && target == nullptr))
        return ERROR_INVALID_PARAMETER;
    return ERROR_SUCCESS;
}

} // namespace

void SetCodePage(unsigned codePage)
{
    systemPage = codePage == kJapanesePage ? kJapanesePage : kLatinPage;
}

void ResetCodePage()
{
    systemPage = kLatinPage;
}

} // namespace host

using namespace host;

UINT WINAPI GetACP(void)
{
    HOST_CALL_VOID(GetACP);
    return systemPage;
}

int WINAPI MultiByteToWideChar(UINT codePage, DWORD flags, LPCCH source, int sourceSize, LPWSTR destination,
                               int destinationSize)
{
    HOST_CALL(MultiByteToWideChar, 0, ERROR_NOT_ENOUGH_MEMORY);
    const UINT number = ActualPage(codePage);
    const CodePage* const page = PageOf(number);
    if (CheckArguments(source, sourceSize, destination, destinationSize) != ERROR_SUCCESS ||
        (page == nullptr && number != CP_UTF8))
        return FailWith(ERROR_INVALID_PARAMETER);
    const DWORD known = number == CP_UTF8 ? MB_ERR_INVALID_CHARS : MB_ERR_INVALID_CHARS | MB_PRECOMPOSED;
    if ((flags & ~known) != 0)
        return FailWith(ERROR_INVALID_FLAGS);
    const size_t size = sourceSize < 0 ? std::strlen(source) + 1 : static_cast<size_t>(sourceSize);
    const bool strict = (flags & MB_ERR_INVALID_CHARS) != 0;
    WideSink sink(destination, destinationSize);
    const bool sound = page != nullptr ? DecodePage(*page, {source, size}, strict, sink)
                                       : DecodeUtf8({source, size}, strict, sink);
    return sound ? sink.Result() : FailWith(ERROR_NO_UNICODE_TRANSLATION);
}

int WINAPI WideCharToMultiByte(UINT codePage, DWORD flags, LPCWCH source, int sourceSize, LPSTR destination,
                               int destinationSize, LPCCH defaultChar, LPBOOL usedDefaultChar)
{
    HOST_CALL(WideCharToMultiByte, 0, ERROR_NOT_ENOUGH_MEMORY);
    const UINT number = ActualPage(codePage);
    const CodePage* const page = PageOf(number);
    const bool utf8 = number == CP_UTF8;
    if (CheckArguments(source, sourceSize, destination, destinationSize) != ERROR_SUCCESS ||
        (page == nullptr && !utf8) || (utf8 && (defaultChar != nullptr || usedDefaultChar != nullptr)))
        return FailWith(ERROR_INVALID_PARAMETER);
    const DWORD known = utf8 ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS;
    if ((flags & ~known) != 0)
        return FailWith(ERROR_INVALID_FLAGS);
    const std::u16string_view text =
        sourceSize < 0 ? std::u16string_view(source, static_cast<size_t>(lstrlenW(source)) + 1)
                       : std::u16string_view(source, static_cast<size_t>(sourceSize));
    ByteSink sink(destination, destinationSize);
    if (utf8)
        return EncodeUtf8(text, (flags & WC_ERR_INVALID_CHARS) != 0, sink)
                   ? sink.Result()
                   : FailWith(ERROR_NO_UNICODE_TRANSLATION);
    const bool used = EncodePage(*page, text, defaultChar != nullptr ? defaultChar : kDefaultChar, sink);
    if (usedDefaultChar != nullptr)
        *usedDefaultChar = used;
    return sink.Result();
}
