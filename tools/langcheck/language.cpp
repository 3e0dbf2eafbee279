#include "tools/langcheck/language.h"

#include <algorithm>

#include "tools/langcheck/dialog_template.h"
#include "tools/langcheck/reader.h"

namespace langcheck {
namespace {

constexpr uint16_t kOrdinalMark = 0xFFFF;
constexpr unsigned kStringsPerBlock = 16;
constexpr unsigned kDialogType = 5;
constexpr unsigned kStringType = 6;

/// A resource's type or name: a number, or 0 for a text.
unsigned ReadOrdinal(Reader& reader)
{
    const auto first = reader.Read<uint16_t>();
    if (first == kOrdinalMark)
        return reader.Read<uint16_t>();
    if (first)
        reader.ReadText();
    return 0;
}

bool ReadStrings(Reader reader, unsigned block, Language& language)
{
    for (unsigned i = 0; i < kStringsPerBlock; ++i) {
        const WideString text = reader.ReadText(reader.Read<uint16_t>());
        if (!text.empty())
            language.strings[(block - 1) * kStringsPerBlock + i] = text;
    }
    return reader.Good();
}

bool ReadDialogResource(Reader reader, unsigned id, Language& language)
{
    Dialog dialog{};
    dialog.id = id;
    if (!ReadDialog(reader, dialog))
        return false;
    language.dialogs.push_back(std::move(dialog));
    return true;
}

bool ReadResource(Reader& file, Language& language, std::string& complaint)
{
    const size_t start = file.At();
    const auto dataSize = file.Read<uint32_t>();
    const auto headerSize = file.Read<uint32_t>();
    const unsigned type = ReadOrdinal(file);
    const unsigned name = ReadOrdinal(file);
    if (!file.Good() || headerSize < file.At() - start || !file.Skip(headerSize - (file.At() - start))) {
        complaint = "cut short in a resource's header";
        return false;
    }
    const Reader data(file.Here(), dataSize);
    if (!file.Skip(dataSize)) {
        complaint = "cut short in resource " + std::to_string(name);
        return false;
    }
    file.Align();

    const bool sound = type == kStringType   ? ReadStrings(data, name, language)
                       : type == kDialogType ? ReadDialogResource(data, name, language)
                                             : true;
    if (!sound)
        complaint =
            (type == kDialogType ? "malformed dialog " : "malformed string block ") + std::to_string(name);
    return sound;
}

} // namespace

const Dialog* Language::Find(unsigned id) const
{
    const auto found =
        std::find_if(dialogs.begin(), dialogs.end(), [&](const Dialog& dialog) { return dialog.id == id; });
    return found == dialogs.end() ? nullptr : &*found;
}

bool ReadLanguage(const Bytes& file, Language& language, std::string& complaint)
{
    Reader reader(file.data(), file.size());
    while (!reader.AtEnd()) {
        if (!ReadResource(reader, language, complaint))
            return false;
    }
    return true;
}

std::string Narrow(WideView text)
{
    const int units = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), units, narrow.data(), size, nullptr, nullptr);
    return narrow;
}

} // namespace langcheck
