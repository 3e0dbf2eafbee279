// Version information: a tree of blocks, each with a key, a value and further blocks.
#include <algorithm>
#include <cstring>
#include <span>
#include <string>

#include <windows.h>

#include "host/kernel/call.h"
#include "host/kernel/error.h"
#include "host/kernel/version_file.h"
#include "host/kernel/world.h"

namespace host {
namespace {

constexpr size_t kAlignment = 4; // bytes, of a block's value and of its blocks
constexpr uint16_t kTextValue = 1;

/// In front of every block; the key follows, ended by a zero.
struct BlockHeader
{
    uint16_t size;      // bytes of the whole block
    uint16_t valueSize; // bytes, or UTF-16 units of a text
    uint16_t type;
};

using BlockBytes = std::span<const std::byte>;

struct Block
{
    std::u16string_view key;
    BlockBytes value;
    uint16_t valueSize; // as the block states it
    BlockBytes children;
};

size_t Aligned(size_t offset)
{
    return (offset + kAlignment - 1) / kAlignment * kAlignment;
}

/// Units up to the first zero; without one the key is not sound and empty.
std::u16string_view ReadKey(BlockBytes bytes)
{
    const auto* const units = reinterpret_cast<const char16_t*>(bytes.data());
    const std::u16string_view all(units, bytes.size() / sizeof(char16_t));
    const size_t end = all.find(u'\0');
    return end != std::u16string_view::npos ? all.substr(0, end) : std::u16string_view();
}

/// Reads the block at the front of `bytes`. False when it is not sound.
bool ReadBlock(BlockBytes bytes, Block& block, size_t& size)
{
    BlockHeader header;
    if (bytes.size() < sizeof header)
        return false;
    std::memcpy(&header, bytes.data(), sizeof header);
    if (header.size < sizeof header || header.size > bytes.size())
        return false;
    bytes = bytes.first(header.size);
    block.key = ReadKey(bytes.subspan(sizeof header));
    const size_t value =
        std::min(Aligned(sizeof header + (block.key.size() + 1) * sizeof(char16_t)), bytes.size());
    const size_t wanted = header.valueSize * (header.type == kTextValue ? sizeof(char16_t) : 1);
    const size_t valueBytes = std::min(wanted, bytes.size() - value);
    block.value = bytes.subspan(value, valueBytes);
    block.valueSize = header.type == kTextValue ? static_cast<uint16_t>(valueBytes / sizeof(char16_t))
                                                : static_cast<uint16_t>(valueBytes);
    block.children = bytes.subspan(std::min(Aligned(value + valueBytes), bytes.size()));
    size = header.size;
    return true;
}

bool FindChild(BlockBytes children, std::u16string_view key, Block& found)
{
    size_t size;
    while (ReadBlock(children, found, size)) {
        if (EqualNoCase(found.key, key))
            return true;
        children = children.subspan(std::min(Aligned(size), children.size()));
    }
    return false;
}

/// Walks a path like "\VarFileInfo\Translation" from the root.
bool FindBlock(BlockBytes root, std::u16string_view path, Block& block)
{
    size_t size;
    if (!ReadBlock(root, block, size))
        return false;
    while (!path.empty()) {
        const std::u16string_view key = path.substr(0, path.find(u'\\'));
        path.remove_prefix(std::min(key.size() + 1, path.size()));
        if (!key.empty() && !FindChild(block.children, key, block))
            return false;
    }
    return true;
}

/// The caller's block, which states its own size.
BlockBytes BytesOf(LPCVOID block)
{
    BlockHeader header;
    std::memcpy(&header, block, sizeof header);
    return {static_cast<const std::byte*>(block), header.size};
}

/// Copies a version resource; when the buffer is too small the copy states the buffer's size as its own.
void CopyResource(const std::vector<std::byte>& resource, void* data, DWORD size)
{
    std::memset(data, 0, size);
    std::memcpy(data, resource.data(), std::min<size_t>(resource.size(), size));
    const auto stated = static_cast<uint16_t>(std::min<size_t>({resource.size(), size, UINT16_MAX}));
    if (size >= sizeof(BlockHeader))
        std::memcpy(data, &stated, sizeof stated);
}

DWORD FailSize(DWORD error)
{
    SetLastError(error);
    return 0;
}

} // namespace
} // namespace host

using namespace host;

DWORD WINAPI GetFileVersionInfoSizeW(LPCWSTR fileName, LPDWORD handle)
{
    HOST_CALL(GetFileVersionInfoSizeW, 0, ERROR_RESOURCE_DATA_NOT_FOUND);
    HOST_READ(0, ERROR_RESOURCE_DATA_NOT_FOUND, nullptr, nullptr, nullptr);
    if (handle != nullptr)
        *handle = 0;
    if (fileName == nullptr)
        return FailSize(ERROR_INVALID_PARAMETER);
    std::vector<std::byte> resource;
    if (const DWORD error = ReadVersionResource(fileName, resource))
        return FailSize(error);
    return hostRead_.Answer(static_cast<DWORD>(resource.size()));
}

BOOL WINAPI GetFileVersionInfoW(LPCWSTR fileName, DWORD, DWORD size, LPVOID data)
{
    HOST_CALL(GetFileVersionInfoW, FALSE, ERROR_RESOURCE_DATA_NOT_FOUND);
    HOST_READ(FALSE, ERROR_RESOURCE_DATA_NOT_FOUND, &size, nullptr, nullptr);
    if (fileName == nullptr)
        return FailWith(ERROR_INVALID_PARAMETER);
    if (data == nullptr)
        return FailWith(ERROR_INVALID_DATA);
    std::vector<std::byte> resource;
    if (const DWORD error = ReadVersionResource(fileName, resource))
        return FailWith(error);
    CopyResource(resource, data, size);
    return TRUE;
}

BOOL WINAPI VerQueryValueW(LPCVOID block, LPCWSTR subBlock, LPVOID* buffer, unsigned* size)
{
    HOST_CALL(VerQueryValueW, FALSE, ERROR_RESOURCE_TYPE_NOT_FOUND);
    if (size != nullptr)
        *size = 0;
    if (block == nullptr || subBlock == nullptr || buffer == nullptr)
        return FailWith(ERROR_INVALID_PARAMETER);
    Block found;
    if (!FindBlock(BytesOf(block), subBlock, found))
        return FailWith(ERROR_RESOURCE_TYPE_NOT_FOUND);
    *buffer = const_cast<std::byte*>(found.value.data());
    if (size != nullptr)
        *size = found.valueSize;
    return TRUE;
}
