// Both formats of dialog templates. All offsets are from the template's start, which is where its controls
// are aligned from; nothing is read beyond the end.
#include "host/shell/compstui/page_template.h"

#include <cstring>

namespace compstui {
namespace {

constexpr size_t kMaxTemplate = 65536; // of a template in memory, whose size nobody states
constexpr WORD kExtendedSignature = 0xFFFF;
constexpr WORD kOrdinal = 0xFFFF; // a resource id follows instead of a text
constexpr DWORD kDropped = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX |
                           WS_MAXIMIZEBOX | WS_DISABLED | WS_VISIBLE | DS_MODALFRAME | DS_ABSALIGN |
                           DS_SYSMODAL;
constexpr DWORD kAdded = WS_CHILD | DS_CONTROL | DS_3DLOOK;
constexpr DWORD kDroppedExtended =
    WS_EX_DLGMODALFRAME | WS_EX_WINDOWEDGE | WS_EX_CLIENTEDGE | WS_EX_APPWINDOW;

/// Offsets of a format's fields.
struct Format
{
    size_t style;
    size_t extendedStyle;
    size_t itemCount;
    size_t size; ///< width, then height
    size_t end;
    size_t fontFields; ///< bytes between the title and the font's name
    size_t itemHead;   ///< bytes of a control up to its class
};

constexpr Format kOldFormat = {0, 4, 8, 14, 18, 2, 18};
constexpr Format kExtendedFormat = {12, 8, 16, 22, 26, 6, 24};

template <typename Number>
Number NumberAt(const BYTE* bytes, size_t offset)
{
    Number value;
    std::memcpy(&value, bytes + offset, sizeof(value));
    return value;
}

bool IsExtended(const BYTE* bytes)
{
    return NumberAt<WORD>(bytes, 2) == kExtendedSignature;
}

/// Walks over a template to find where it ends.
class Walker
{
public:
    Walker(const BYTE* bytes, size_t size) : bytes_(bytes), size_(size) {}

    bool ok() const { return ok_; }
    size_t offset() const { return offset_; }

    void Skip(size_t count)
    {
        ok_ = ok_ && count <= size_ - offset_;
        offset_ += ok_ ? count : 0;
    }

    void Align() { Skip(-offset_ & 3); }

    WORD Word()
    {
        const size_t at = offset_;
        Skip(sizeof(WORD));
        return ok_ ? NumberAt<WORD>(bytes_, at) : WORD{0};
    }

    /// A text, or an ordinal; the text it was.
    std::basic_string<WCHAR> Name()
    {
        std::basic_string<WCHAR> text;
        WORD unit = Word();
        if (unit == kOrdinal) {
            Skip(sizeof(WORD));
            return text;
        }
        for (; ok_ && unit != 0; unit = Word())
            text.push_back(static_cast<WCHAR>(unit));
        return text;
    }

    void Item(const Format& format)
    {
        Align();
        Skip(format.itemHead);
        Name();
        Name();
        Skip(Word());
    }

private:
    const BYTE* bytes_;
    size_t size_;
    size_t offset_ = 0;
    bool ok_ = true;
};

struct Source
{
    const BYTE* bytes = nullptr;
    size_t size = 0;
};

Source FindTemplate(const PROPSHEETPAGEW& page)
{
    if (page.dwFlags & PSP_DLGINDIRECT)
        return {reinterpret_cast<const BYTE*>(page.pResource), page.pResource != nullptr ? kMaxTemplate : 0};
    const HRSRC resource =
        FindResourceW(page.hInstance, page.pszTemplate, reinterpret_cast<LPCWSTR>(RT_DIALOG));
    if (resource == nullptr)
        return {};
    const HGLOBAL loaded = LoadResource(page.hInstance, resource);
    const auto* const bytes = static_cast<const BYTE*>(loaded != nullptr ? LockResource(loaded) : nullptr);
    return {bytes, bytes != nullptr ? SizeofResource(page.hInstance, resource) : 0};
}

template <typename Number>
void Change(std::vector<BYTE>& bytes, size_t offset, Number dropped, Number added)
{
    const Number value = (NumberAt<Number>(bytes.data(), offset) & ~dropped) | added;
    std::memcpy(bytes.data() + offset, &value, sizeof(value));
}

} // namespace

PageTemplate ReadPageTemplate(const PROPSHEETPAGEW& page)
{
    const Source source = FindTemplate(page);
    if (source.size < kOldFormat.end)
        return {};
    const Format& format = IsExtended(source.bytes) ? kExtendedFormat : kOldFormat;
    Walker walker(source.bytes, source.size);
    walker.Skip(format.end);
    walker.Name(); // menu
    walker.Name(); // class
    PageTemplate result;
    result.title = walker.Name();
    if (walker.ok() && NumberAt<DWORD>(source.bytes, format.style) & DS_SETFONT) {
        walker.Skip(format.fontFields);
        walker.Name();
    }
    for (WORD left = walker.ok() ? NumberAt<WORD>(source.bytes, format.itemCount) : WORD{0}; left > 0; --left)
        walker.Item(format);
    if (!walker.ok())
        return {};
    result.bytes.assign(source.bytes, source.bytes + walker.offset());
    Change<DWORD>(result.bytes, format.style, kDropped, kAdded);
    Change<DWORD>(result.bytes, format.extendedStyle, kDroppedExtended, WS_EX_CONTROLPARENT);
    return result;
}

SIZE TemplateUnits(const std::vector<BYTE>& bytes)
{
    const Format& format = IsExtended(bytes.data()) ? kExtendedFormat : kOldFormat;
    return {NumberAt<SHORT>(bytes.data(), format.size),
            NumberAt<SHORT>(bytes.data(), format.size + sizeof(SHORT))};
}

} // namespace compstui
