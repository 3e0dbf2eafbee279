// Nothing in a module file is trusted: every offset and size is checked against the bytes that are there.
#include "host/kernel/version_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <elf.h>
#include <fcntl.h>
#include <optional>
#include <span>
#include <string_view>
#include <unistd.h>

#include "host/kernel/error.h"
#include "host/kernel/path.h"
#include "host/kernel/resource.h"

namespace host {
namespace {

using Bytes = std::vector<std::byte>;

constexpr uint64_t kLargestPart = 64 << 20; // bytes of one table or of all resources
constexpr char kResourcesSymbol[] = "host_module_resources";
constexpr char kResourcesEndSymbol[] = "host_module_resources_end";

// A portable executable, as far as the way to its resources goes.
constexpr uint16_t kDosMagic = 0x5A4D;
constexpr uint64_t kDosHeaderPointer = 0x3C;
constexpr uint32_t kPeSignature = 0x00004550;
constexpr uint16_t kPe32Magic = 0x10B;
constexpr uint16_t kPe64Magic = 0x20B;
constexpr uint64_t kPe32Directories = 96; // bytes into the optional header
constexpr uint64_t kPe64Directories = 112;
constexpr uint64_t kResourceDirectory = 2; // index of the directory entry
constexpr uint32_t kSubdirectory = 0x80000000;
constexpr uint16_t kVersionType = 16;
constexpr uint16_t kVersionName = 1;

struct PeHeader
{
    uint32_t signature;
    uint16_t machine;
    uint16_t sections;
    uint32_t time;
    uint32_t symbolTable;
    uint32_t symbols;
    uint16_t optionalHeaderSize;
    uint16_t characteristics;
};

struct PeDirectory
{
    uint32_t address;
    uint32_t size;
};

struct PeSection
{
    char name[8];
    uint32_t virtualSize;
    uint32_t virtualAddress;
    uint32_t rawSize;
    uint32_t rawOffset;
    uint32_t unused[4];
};

struct PeResourceDirectory
{
    uint32_t characteristics;
    uint32_t time;
    uint16_t major;
    uint16_t minor;
    uint16_t namedEntries;
    uint16_t numberedEntries;
};

struct PeResourceEntry
{
    uint32_t name;
    uint32_t offset;
};

struct PeResourceData
{
    uint32_t address;
    uint32_t size;
    uint32_t codePage;
    uint32_t reserved;
};

/// A file that is read piece by piece.
class ModuleFile
{
public:
    explicit ModuleFile(const char* name) : fd_(open(name, O_RDONLY | O_CLOEXEC))
    {
        struct stat status;
        if (fd_ >= 0 && fstat(fd_, &status) == 0 && S_ISREG(status.st_mode))
            size_ = static_cast<uint64_t>(status.st_size);
    }
    ~ModuleFile()
    {
        if (fd_ >= 0)
            close(fd_);
    }
    ModuleFile(const ModuleFile&) = delete;
    ModuleFile& operator=(const ModuleFile&) = delete;

    bool opened() const { return fd_ >= 0; }

    bool Read(uint64_t offset, void* target, uint64_t size) const
    {
        return size <= size_ && offset <= size_ - size &&
               pread(fd_, target, size, static_cast<off_t>(offset)) == static_cast<ssize_t>(size);
    }

    template <class T>
    bool Read(uint64_t offset, T& value) const
    {
        return Read(offset, &value, sizeof value);
    }

    /// A part of the file; empty when the file does not hold all of it.
    Bytes ReadPart(uint64_t offset, uint64_t size) const
    {
        Bytes bytes;
        if (size > kLargestPart || size > size_ || offset > size_ - size)
            return bytes;
        bytes.resize(size);
        if (!Read(offset, bytes.data(), size))
            bytes.clear();
        return bytes;
    }

private:
    int fd_;
    uint64_t size_ = 0;
};

/// The value at an offset, if it lies within the bytes.
template <class T>
std::optional<T> At(std::span<const std::byte> bytes, uint64_t offset)
{
    T value;
    if (sizeof value > bytes.size() || offset > bytes.size() - sizeof value)
        return std::nullopt;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

std::string_view TextAt(std::span<const std::byte> bytes, uint64_t offset)
{
    if (offset >= bytes.size())
        return {};
    const auto* const text = reinterpret_cast<const char*>(bytes.data()) + offset;
    return {text, strnlen(text, bytes.size() - offset)};
}

// --- Shared objects ---

/// The address of an exported symbol; 0 without one.
uint64_t SymbolAddress(const Bytes& symbols, const Bytes& names, std::string_view wanted)
{
    for (uint64_t offset = 0; const auto symbol = At<Elf64_Sym>(symbols, offset); offset += sizeof *symbol) {
        if (symbol->st_shndx != SHN_UNDEF && TextAt(names, symbol->st_name) == wanted)
            return symbol->st_value;
    }
    return 0;
}

/// The bytes of the file that are loaded at an address.
Bytes LoadedPart(const ModuleFile& file, const Bytes& segments, uint64_t address, uint64_t size)
{
    for (uint64_t offset = 0; const auto segment = At<Elf64_Phdr>(segments, offset);
         offset += sizeof *segment) {
        if (segment->p_type == PT_LOAD && address >= segment->p_vaddr &&
            address - segment->p_vaddr <= segment->p_filesz &&
            size <= segment->p_filesz - (address - segment->p_vaddr))
            return file.ReadPart(segment->p_offset + (address - segment->p_vaddr), size);
    }
    return {};
}

/// The compiled resources that a shared object carries.
Bytes ElfResources(const ModuleFile& file, const Elf64_Ehdr& header)
{
    const Bytes sections = file.ReadPart(header.e_shoff, uint64_t{header.e_shnum} * sizeof(Elf64_Shdr));
    const Bytes segments = file.ReadPart(header.e_phoff, uint64_t{header.e_phnum} * sizeof(Elf64_Phdr));
    for (uint64_t offset = 0; const auto section = At<Elf64_Shdr>(sections, offset);
         offset += sizeof *section) {
        const auto strings = At<Elf64_Shdr>(sections, uint64_t{section->sh_link} * sizeof(Elf64_Shdr));
        if (section->sh_type != SHT_DYNSYM || !strings)
            continue;
        const Bytes symbols = file.ReadPart(section->sh_offset, section->sh_size);
        const Bytes names = file.ReadPart(strings->sh_offset, strings->sh_size);
        const uint64_t first = SymbolAddress(symbols, names, kResourcesSymbol);
        const uint64_t end = SymbolAddress(symbols, names, kResourcesEndSymbol);
        return first != 0 && end > first ? LoadedPart(file, segments, first, end - first) : Bytes();
    }
    return {};
}

DWORD ReadElf(const ModuleFile& file, const Elf64_Ehdr& header, Bytes& resource)
{
    const Bytes resources = ElfResources(file, header);
    const ResourceIndex index(resources);
    if (index.empty())
        return ERROR_RESOURCE_DATA_NOT_FOUND;
    const Resource* const found = index.Find({kVersionType, {}}, {kVersionName, {}});
    if (found == nullptr)
        return ERROR_RESOURCE_TYPE_NOT_FOUND;
    resource.assign(found->data.begin(), found->data.end());
    return ERROR_SUCCESS;
}

// --- Portable executables ---

/// Where the bytes of an address lie in the file, and how many there are from there on in their section.
struct PePlace
{
    uint64_t offset;
    uint64_t size;
};

std::optional<PePlace> PlaceOf(const Bytes& sections, uint32_t address)
{
    for (uint64_t offset = 0; const auto section = At<PeSection>(sections, offset);
         offset += sizeof *section) {
        if (address >= section->virtualAddress && address - section->virtualAddress < section->rawSize) {
            const uint32_t skipped = address - section->virtualAddress;
            return PePlace{uint64_t{section->rawOffset} + skipped, section->rawSize - skipped};
        }
    }
    return std::nullopt;
}

/// What an entry of a resource directory leads to: the one with the wanted number, else nothing; without a
/// wanted number the first one.
std::optional<uint32_t> EntryOffset(const Bytes& resources, uint32_t directory,
                                    std::optional<uint32_t> wanted)
{
    const auto header = At<PeResourceDirectory>(resources, directory);
    const uint32_t count = header ? uint32_t{header->namedEntries} + header->numberedEntries : 0;
    for (uint32_t i = 0; i < count; ++i) {
        const auto entry = At<PeResourceEntry>(resources, uint64_t{directory} + sizeof(PeResourceDirectory) +
                                                              i * sizeof(PeResourceEntry));
        if (entry && (!wanted || entry->name == *wanted))
            return entry->offset;
    }
    return std::nullopt;
}

/// The data entry of the version resource: type, name, any language.
std::optional<PeResourceData> VersionEntry(const Bytes& resources)
{
    const std::optional<uint32_t> path[] = {kVersionType, kVersionName, std::nullopt};
    uint32_t at = kSubdirectory;
    for (const std::optional<uint32_t>& step : path) {
        const auto next =
            (at & kSubdirectory) != 0 ? EntryOffset(resources, at & ~kSubdirectory, step) : std::nullopt;
        if (!next)
            return std::nullopt;
        at = *next;
    }
    return (at & kSubdirectory) == 0 ? At<PeResourceData>(resources, at) : std::nullopt;
}

/// Reads the section table and the address of the resources. False when the file is no portable executable.
bool ReadPeHeaders(const ModuleFile& file, Bytes& sections, PeDirectory& resources)
{
    uint32_t start;
    PeHeader header;
    uint16_t magic;
    if (!file.Read(kDosHeaderPointer, start) || !file.Read(start, header) || header.signature != kPeSignature)
        return false;
    const uint64_t optional = uint64_t{start} + sizeof header;
    if (!file.Read(optional, magic) || (magic != kPe32Magic && magic != kPe64Magic))
        return false;
    const uint64_t directories = magic == kPe32Magic ? kPe32Directories : kPe64Directories;
    uint32_t count; // stands before the directories
    resources = {};
    if (!file.Read(optional + directories - sizeof count, count))
        return false;
    if (count > kResourceDirectory &&
        !file.Read(optional + directories + kResourceDirectory * sizeof resources, resources))
        return false;
    sections =
        file.ReadPart(optional + header.optionalHeaderSize, uint64_t{header.sections} * sizeof(PeSection));
    return true;
}

DWORD ReadPe(const ModuleFile& file, Bytes& resource)
{
    Bytes sections;
    PeDirectory directory;
    if (!ReadPeHeaders(file, sections, directory))
        return ERROR_RESOURCE_DATA_NOT_FOUND;
    const auto place = directory.address != 0 ? PlaceOf(sections, directory.address) : std::nullopt;
    if (!place)
        return ERROR_RESOURCE_DATA_NOT_FOUND;
    const Bytes resources = file.ReadPart(place->offset, std::min<uint64_t>(place->size, directory.size));
    const auto entry = VersionEntry(resources);
    const auto data = entry ? PlaceOf(sections, entry->address) : std::nullopt;
    if (!data || entry->size == 0 || entry->size > data->size)
        return ERROR_RESOURCE_TYPE_NOT_FOUND;
    resource = file.ReadPart(data->offset, entry->size);
    return resource.empty() ? ERROR_RESOURCE_TYPE_NOT_FOUND : ERROR_SUCCESS;
}

/// The machine's name of a module file; a bare name is looked for in the system's folders too.
DWORD FindModuleFile(std::u16string name, NativeName& native)
{
    struct stat status;
    DWORD error = FindExisting(name.c_str(), native, status);
    const bool bare = name.find_first_of(u"\\/:") == std::u16string::npos;
    for (const char16_t* folder : {u"C:\\windows\\system32\\", u"C:\\windows\\"}) {
        if (error == ERROR_SUCCESS || !bare)
            break;
        error = FindExisting((folder + name).c_str(), native, status);
    }
    if (error == ERROR_SUCCESS && S_ISDIR(status.st_mode))
        return ERROR_ACCESS_DENIED;
    return error;
}

} // namespace

DWORD ReadVersionResource(LPCWSTR fileName, std::vector<std::byte>& resource)
{
    NativeName native;
    if (const DWORD error = FindModuleFile(fileName, native))
        return error;
    const ModuleFile file(native.text);
    if (!file.opened())
        return ErrorFromErrno(errno);
    Elf64_Ehdr header;
    if (file.Read(0, header) && std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0 &&
        header.e_ident[EI_CLASS] == ELFCLASS64 && header.e_shentsize == sizeof(Elf64_Shdr) &&
        header.e_phentsize == sizeof(Elf64_Phdr))
        return ReadElf(file, header, resource);
    uint16_t magic;
    if (file.Read(0, magic) && magic == kDosMagic)
        return ReadPe(file, resource);
    return ERROR_RESOURCE_DATA_NOT_FOUND;
}

} // namespace host
