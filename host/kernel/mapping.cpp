// File mapping. Only files are mapped; sections backed by the paging file and named ones are not played.
#include "host/kernel/mapping.h"

#include <algorithm>
#include <cerrno>
#include <mutex>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

#include "host/kernel/call.h"
#include "host/kernel/error.h"
#include "host/kernel/file.h"
#include "host/kernel/world.h"

namespace host {
namespace {

constexpr uint64_t kAllocationGranularity = 0x10000; // bytes

/// Views are mapped and unmapped in whole pages, as the system does it anyway. The thread sanitizer forgets
/// whole pages only: it would hold the rest of one against the module that is loaded there next.
size_t WholePages(size_t bytes)
{
    static const auto page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    return (bytes + page - 1) / page * page;
}

/// Keeps a file from being cut short while it is mapped.
class MappedFile
{
public:
    explicit MappedFile(std::shared_ptr<File> file) : file_(std::move(file)) { CountMapping(*file_, 1); }
    ~MappedFile()
    {
        if (file_ != nullptr)
            CountMapping(*file_, -1);
    }
    MappedFile(MappedFile&&) = default;
    MappedFile& operator=(MappedFile&& other)
    {
        std::swap(file_, other.file_);
        return *this;
    }
    const std::shared_ptr<File>& file() const { return file_; }

private:
    std::shared_ptr<File> file_;
};

struct Mapping final : Object
{
    static constexpr HandleKind kHandleKind = HandleKind::Mapping;

    Mapping(std::shared_ptr<File> mappedFile, bool canWrite, uint64_t bytes)
        : Object(kHandleKind), mapped(std::move(mappedFile)), writable(canWrite), size(bytes)
    {
        CountOpen(&Ledger::mappings, 1);
    }
    void HandleClosed() override { CountOpen(&Ledger::mappings, -1); }

    const MappedFile mapped;
    const bool writable;
    const uint64_t size; // bytes
};

struct View
{
    void* address;
    size_t size; // bytes, whole pages
    MappedFile mapped;
};

std::mutex viewLock;
std::vector<View> views;

void Unmap(const View& view)
{
    munmap(view.address, view.size);
    CountOpen(&Ledger::mappings, -1);
}

/// The size of a new mapping; 0 with `error` set when there can be none.
uint64_t MappingSize(const File& file, uint64_t wanted, bool writable, DWORD& error)
{
    struct stat status;
    if (fstat(file.fd, &status) != 0) {
        error = ErrorFromErrno(errno);
        return 0;
    }
    const auto present = static_cast<uint64_t>(status.st_size);
    if (wanted == 0 && present == 0)
        error = ERROR_FILE_INVALID;
    else if (wanted > present && !writable)
        error = ERROR_NOT_ENOUGH_MEMORY;
    else if (wanted > present && ftruncate(file.fd, static_cast<off_t>(wanted)) != 0)
        error = ErrorFromErrno(errno);
    else
        return wanted != 0 ? wanted : present;
    return 0;
}

/// Checks a view against its mapping and completes `bytes`. Returns 0 or the error code.
DWORD CheckView(const Mapping& mapping, DWORD access, uint64_t offset, SIZE_T& bytes)
{
    if ((access & ~static_cast<DWORD>(FILE_MAP_READ | FILE_MAP_WRITE)) != 0 || access == 0)
        return ERROR_INVALID_PARAMETER;
    if (offset % kAllocationGranularity != 0)
        return ERROR_MAPPED_ALIGNMENT;
    if (((access & FILE_MAP_WRITE) != 0 && !mapping.writable) || offset >= mapping.size ||
        bytes > mapping.size - offset)
        return ERROR_ACCESS_DENIED;
    if (bytes == 0)
        bytes = mapping.size - offset;
    return ERROR_SUCCESS;
}

} // namespace

void CloseAllViews()
{
    std::vector<View> open;
    {
        std::lock_guard lock(viewLock);
        open.swap(views);
    }
    for (const View& view : open)
        Unmap(view);
}

} // namespace host

using namespace host;

HANDLE WINAPI CreateFileMappingW(HANDLE handle, LPSECURITY_ATTRIBUTES, DWORD protection, DWORD sizeHigh,
                                 DWORD sizeLow, LPCWSTR name)
{
    HOST_CALL(CreateFileMappingW, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    const std::shared_ptr<File> file = ObjectOf<File>(handle);
    if (file == nullptr)
        return nullptr;
    DWORD error = ERROR_SUCCESS;
    const bool writable = protection == PAGE_READWRITE;
    const DWORD needed = writable ? GENERIC_READ | GENERIC_WRITE : GENERIC_READ;
    if (name != nullptr)
        error = ERROR_NOT_SUPPORTED;
    else if (!writable && protection != PAGE_READONLY)
        error = ERROR_INVALID_PARAMETER;
    else if ((file->access & needed) != needed)
        error = ERROR_ACCESS_DENIED;
    uint64_t size = static_cast<uint64_t>(sizeHigh) << 32 | sizeLow;
    if (error == ERROR_SUCCESS)
        size = MappingSize(*file, size, writable, error);
    SetLastError(error);
    return error == ERROR_SUCCESS ? NewHandle(std::make_shared<Mapping>(file, writable, size)) : nullptr;
}

LPVOID WINAPI MapViewOfFile(HANDLE handle, DWORD access, DWORD offsetHigh, DWORD offsetLow, SIZE_T bytes)
{
    HOST_CALL(MapViewOfFile, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    const std::shared_ptr<Mapping> mapping = ObjectOf<Mapping>(handle);
    if (mapping == nullptr)
        return nullptr;
    const uint64_t offset = static_cast<uint64_t>(offsetHigh) << 32 | offsetLow;
    if (const DWORD error = CheckView(*mapping, access, offset, bytes)) {
        SetLastError(error);
        return nullptr;
    }
    const bool writes = (access & FILE_MAP_WRITE) != 0;
    const size_t size = WholePages(bytes);
    void* const address = mmap(nullptr, size, writes ? PROT_READ | PROT_WRITE : PROT_READ, MAP_SHARED,
                               mapping->mapped.file()->fd, static_cast<off_t>(offset));
    if (address == MAP_FAILED) {
        SetLastError(ErrorFromErrno(errno));
        return nullptr;
    }
    CountOpen(&Ledger::mappings, 1);
    std::lock_guard lock(viewLock);
    views.push_back({address, size, MappedFile(mapping->mapped.file())});
    return address;
}

BOOL WINAPI UnmapViewOfFile(LPCVOID address)
{
    HOST_CALL_VOID(UnmapViewOfFile);
    std::lock_guard lock(viewLock);
    const auto view = std::find_if(views.begin(), views.end(),
                                   [address](const View& each) { return each.address == address; });
    if (view == views.end())
        return FailWith(ERROR_INVALID_ADDRESS);
    Unmap(*view);
    views.erase(view);
    return TRUE;
}
