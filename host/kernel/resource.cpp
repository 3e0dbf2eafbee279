#include "host/kernel/resource.h"

#include <algorithm>
#include <cstring>
#include <tuple>

#include "host/kernel/call.h"
#include "host/kernel/error.h"
#include "host/kernel/module.h"
#include "host/kernel/world.h"

namespace host {
namespace {

constexpr uint16_t kNumberMark = 0xFFFF; // stands before a type or name that is a number
constexpr size_t kAlignment = 4;         // bytes, of entries and their parts
constexpr size_t kTailSize = 16;         // data version, memory flags, language, version, characteristics
constexpr size_t kLanguageOffset = 6;    // bytes into the tail
constexpr unsigned kStringsPerBlock = 16;
constexpr LANGID kUserLanguage = 0x0409;

size_t Align(size_t offset)
{
    return (offset + kAlignment - 1) / kAlignment * kAlignment;
}

/// Cuts values off the front of bytes; every read checks what is left.
class Reader
{
public:
    explicit Reader(std::span<const std::byte> bytes) : bytes_(bytes) {}

    size_t offset() const { return offset_; }
    size_t left() const { return bytes_.size() - offset_; }

    template <class T>
    bool Read(T& value)
    {
        if (left() < sizeof value)
            return false;
        std::memcpy(&value, bytes_.data() + offset_, sizeof value);
        offset_ += sizeof value;
        return true;
    }

    bool Skip(size_t size)
    {
        if (left() < size)
            return false;
        offset_ += size;
        return true;
    }

private:
    std::span<const std::byte> bytes_;
    size_t offset_ = 0;
};

bool ReadName(Reader& reader, ResourceName& name)
{
    uint16_t unit;
    if (!reader.Read(unit))
        return false;
    if (unit == kNumberMark)
        return reader.Read(name.id);
    while (unit != 0) {
        name.text += UpperCase(static_cast<char16_t>(unit));
        if (!reader.Read(unit))
            return false;
    }
    return !name.text.empty();
}

/// Reads the entry at the front of `bytes` and its whole size. False when it is not sound.
bool ReadEntry(std::span<const std::byte> bytes, Resource& resource, size_t& entrySize)
{
    Reader reader(bytes);
    uint32_t dataSize;
    uint32_t headerSize;
    if (!reader.Read(dataSize) || !reader.Read(headerSize) || headerSize > bytes.size() ||
        dataSize > bytes.size() - headerSize || headerSize < reader.offset())
        return false;
    Reader header(bytes.first(headerSize));
    header.Skip(reader.offset());
    if (!ReadName(header, resource.type) || !ReadName(header, resource.name) ||
        !header.Skip(Align(header.offset()) - header.offset()) || header.left() < kTailSize)
        return false;
    header.Skip(kLanguageOffset);
    header.Read(resource.language);
    resource.data = bytes.subspan(headerSize, dataSize);
    entrySize = std::min(Align(headerSize + static_cast<size_t>(dataSize)), bytes.size());
    return true;
}

auto Key(const ResourceName& name)
{
    return std::tie(name.text, name.id);
}

bool SameName(const ResourceName& a, const ResourceName& b)
{
    return Key(a) == Key(b);
}

bool Before(const Resource& resource, const std::pair<const ResourceName*, const ResourceName*>& wanted)
{
    if (!SameName(resource.type, *wanted.first))
        return Key(resource.type) < Key(*wanted.first);
    return Key(resource.name) < Key(*wanted.second);
}

bool Sorted(const Resource& a, const Resource& b)
{
    if (!SameName(a.type, b.type))
        return Key(a.type) < Key(b.type);
    if (!SameName(a.name, b.name))
        return Key(a.name) < Key(b.name);
    return a.language < b.language;
}

/// 0 suits best.
int LanguageRank(LANGID language)
{
    return language == kUserLanguage ? 0 : language == 0 ? 1 : 2;
}

/// The units of one string of a string block, without a terminator; empty when the block does not reach
/// there.
std::span<const char16_t> StringInBlock(std::span<const std::byte> block, unsigned index)
{
    Reader reader(block);
    uint16_t size;
    for (unsigned i = 0; reader.Read(size); ++i) {
        const size_t offset = reader.offset();
        if (!reader.Skip(size * sizeof(char16_t)))
            break;
        if (i == index)
            return {reinterpret_cast<const char16_t*>(block.data() + offset), size};
    }
    return {};
}

} // namespace

ResourceIndex::ResourceIndex(std::span<const std::byte> file)
{
    while (!file.empty()) {
        Resource resource;
        size_t size;
        if (!ReadEntry(file, resource, size))
            break;
        // The first entry of every file is an empty one of type 0, which only marks the format.
        if (resource.type.id != 0 || !resource.type.text.empty())
            resources_.push_back(std::move(resource));
        file = file.subspan(size);
    }
    std::sort(resources_.begin(), resources_.end(), Sorted);
}

bool ResourceIndex::HasType(const ResourceName& type) const
{
    return std::any_of(resources_.begin(), resources_.end(),
                       [&](const Resource& resource) { return SameName(resource.type, type); });
}

const Resource* ResourceIndex::Find(const ResourceName& type, const ResourceName& name) const
{
    const std::pair wanted(&type, &name);
    const Resource* best = nullptr;
    for (auto at = std::lower_bound(resources_.begin(), resources_.end(), wanted, Before);
         at != resources_.end() && SameName(at->type, type) && SameName(at->name, name); ++at) {
        if (best == nullptr || LanguageRank(at->language) < LanguageRank(best->language))
            best = &*at;
    }
    return best;
}

ResourceName ResourceNameOf(LPCWSTR name)
{
    if (IS_INTRESOURCE(name))
        return {static_cast<uint16_t>(reinterpret_cast<uintptr_t>(name)), {}};
    ResourceName result;
    if (*name == u'#') {
        uint32_t id = 0;
        for (++name; *name >= u'0' && *name <= u'9' && id <= UINT16_MAX; ++name)
            id = id * 10 + static_cast<uint32_t>(*name - u'0');
        result.id = static_cast<uint16_t>(id);
        return result;
    }
    for (; *name != 0; ++name)
        result.text += UpperCase(*name);
    return result;
}

} // namespace host

using namespace host;

HRSRC WINAPI FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type)
{
    HOST_CALL(FindResourceW, nullptr, ERROR_RESOURCE_NAME_NOT_FOUND);
    const ResourceIndex* const index = ResourcesOf(module);
    if (index == nullptr || index->empty()) {
        SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
        return nullptr;
    }
    const ResourceName typeName = ResourceNameOf(type);
    const Resource* const resource = index->Find(typeName, ResourceNameOf(name));
    if (resource == nullptr)
        SetLastError(index->HasType(typeName) ? ERROR_RESOURCE_NAME_NOT_FOUND
                                              : ERROR_RESOURCE_TYPE_NOT_FOUND);
    return reinterpret_cast<HRSRC>(const_cast<Resource*>(resource));
}

HGLOBAL WINAPI LoadResource(HMODULE, HRSRC resource)
{
    HOST_CALL(LoadResource, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    if (resource == nullptr) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    return const_cast<std::byte*>(reinterpret_cast<const Resource*>(resource)->data.data());
}

LPVOID WINAPI LockResource(HGLOBAL resource)
{
    HOST_CALL_VOID(LockResource);
    return resource;
}

DWORD WINAPI SizeofResource(HMODULE, HRSRC resource)
{
    HOST_CALL(SizeofResource, 0, ERROR_INVALID_HANDLE);
    if (resource == nullptr)
        return static_cast<DWORD>(FailWith(ERROR_INVALID_HANDLE));
    return static_cast<DWORD>(reinterpret_cast<const Resource*>(resource)->data.size());
}

int WINAPI LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int size)
{
    HOST_CALL(LoadStringW, 0, ERROR_RESOURCE_NAME_NOT_FOUND);
    if (buffer == nullptr || size < 0)
        return FailWith(ERROR_INVALID_PARAMETER);
    const unsigned low = LOWORD(id);
    const HRSRC block = FindResourceW(module, MAKEINTRESOURCEW(low / kStringsPerBlock + 1), RT_STRING);
    std::span<const char16_t> text;
    if (block != nullptr)
        text = StringInBlock(reinterpret_cast<const Resource*>(block)->data, low % kStringsPerBlock);
    if (text.empty()) {
        if (block != nullptr)
            SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        if (size > 0)
            *buffer = 0;
        return 0;
    }
    if (size == 0) {
        const char16_t* const start = text.data();
        std::memcpy(static_cast<void*>(buffer), &start, sizeof start);
        return static_cast<int>(text.size());
    }
    const size_t count = std::min(text.size(), static_cast<size_t>(size) - 1);
    std::copy_n(text.begin(), count, buffer);
    buffer[count] = 0;
    return static_cast<int>(count);
}
