// The two formats of dialog templates: DLGTEMPLATE with its items, and the extended one that begins with the
// words 1 and 0xFFFF. Both consist of little-endian numbers and texts that end with a zero; items begin at
// multiples of four bytes.
#include "host/window/dialog_template.h"

#include <cstring>

namespace host {
namespace {

constexpr WORD kExtendedMark = 0xFFFF;
constexpr WORD kNumberMark = 0xFFFF; // a number follows in place of a text
constexpr WORD kFontOfMessages = 0x7FFF;

class Reader
{
public:
    explicit Reader(std::span<const std::byte> bytes) : bytes_(bytes) {}

    bool Failed() const { return failed_; }

    template <class T>
    T Read()
    {
        T value = {};
        if (!Has(sizeof value))
            return value;
        std::memcpy(&value, bytes_.data() + at_, sizeof value);
        at_ += sizeof value;
        return value;
    }

    std::u16string ReadText()
    {
        std::u16string text;
        for (auto unit = Read<char16_t>(); unit != 0 && !failed_; unit = Read<char16_t>())
            text += unit;
        return text;
    }

    TemplateName ReadName()
    {
        const auto first = Peek();
        if (first != kNumberMark)
            return {ReadText(), 0};
        Read<WORD>();
        return {{}, Read<WORD>()};
    }

    std::span<const std::byte> ReadBytes(size_t count)
    {
        if (!Has(count))
            return {};
        at_ += count;
        return bytes_.subspan(at_ - count, count);
    }

    void Align() { at_ = (at_ + 3) & ~size_t{3}; }

private:
    bool Has(size_t count)
    {
        if (failed_ || at_ > bytes_.size() || bytes_.size() - at_ < count)
            failed_ = true;
        return !failed_;
    }

    WORD Peek()
    {
        const size_t start = at_;
        const auto value = Read<WORD>();
        at_ = start;
        return value;
    }

    std::span<const std::byte> bytes_;
    size_t at_ = 0;
    bool failed_ = false;
};

template <class Placed>
void ReadPlace(Reader& reader, Placed& placed)
{
    placed.x = reader.Read<short>();
    placed.y = reader.Read<short>();
    placed.cx = reader.Read<short>();
    placed.cy = reader.Read<short>();
}

void ReadFont(Reader& reader, bool extended, DialogTemplate& result)
{
    if ((result.style & DS_SETFONT) == 0)
        return;
    result.points = reader.Read<WORD>();
    if (result.points == kFontOfMessages) {
        result.points = 0;
        return;
    }
    if (extended) {
        result.weight = reader.Read<WORD>();
        result.italic = reader.Read<BYTE>() != 0;
        result.charset = reader.Read<BYTE>();
    }
    result.face = reader.ReadText();
}

DialogItem ReadItem(Reader& reader, bool extended)
{
    DialogItem item;
    reader.Align();
    if (extended) {
        reader.Read<DWORD>(); // help id
        item.exStyle = reader.Read<DWORD>();
        item.style = reader.Read<DWORD>();
    } else {
        item.style = reader.Read<DWORD>();
        item.exStyle = reader.Read<DWORD>();
    }
    ReadPlace(reader, item);
    item.id = extended ? reader.Read<DWORD>() : reader.Read<WORD>();
    item.className = reader.ReadName();
    item.title = reader.ReadName();
    const auto size = reader.Read<WORD>();
    item.data = reader.ReadBytes(size);
    return item;
}

} // namespace

bool ReadDialogTemplate(std::span<const std::byte> bytes, DialogTemplate& result)
{
    Reader reader(bytes);
    Reader ahead(bytes);
    ahead.Read<WORD>();
    const bool extended = ahead.Read<WORD>() == kExtendedMark;
    if (extended) {
        reader.Read<DWORD>(); // version and mark
        reader.Read<DWORD>(); // help id
        result.exStyle = reader.Read<DWORD>();
        result.style = reader.Read<DWORD>();
    } else {
        result.style = reader.Read<DWORD>();
        result.exStyle = reader.Read<DWORD>();
    }
    const auto count = reader.Read<WORD>();
    ReadPlace(reader, result);
    result.menu = reader.ReadName();
    result.className = reader.ReadName();
    result.title = reader.ReadText();
    ReadFont(reader, extended, result);
    for (WORD i = 0; i < count && !reader.Failed(); ++i)
        result.items.push_back(ReadItem(reader, extended));
    return !reader.Failed();
}

} // namespace host
