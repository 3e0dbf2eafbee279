// Modules: shared objects that are loaded by Windows path.
//
// One recursive lock guards the list and is held while a DllMain runs, so that a DllMain can load modules
// itself and no other thread sees a module half attached. Objects of the list keep their addresses: they are
// the handles.
#include "host/kernel/module.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <dlfcn.h>
#include <elf.h>
#include <fcntl.h>
#include <link.h>
#include <memory>
#include <mutex>
#include <unistd.h>
#include <vector>

#include "host/kernel/call.h"
#include "host/kernel/error.h"
#include "host/kernel/path.h"
#include "host/kernel/resource.h"
#include "host/kernel/world.h"

namespace host {
namespace {

using DllMainFunction = BOOL(HINSTANCE module, DWORD reason, LPVOID reserved);

constexpr std::u16string_view kDefaultExtension = u".dll";
constexpr std::u16string_view kSystemFolder = u"C:\\windows\\system32\\";
constexpr char kResourcesSymbol[] = "host_module_resources";
constexpr char kResourcesEndSymbol[] = "host_module_resources_end";

struct Module
{
    void* library;       // of dlopen
    std::u16string path; // Windows path
    bool dataOnly;       // loaded for its resources; no DllMain, no functions
    bool attached = false;
    int references = 1;
    std::unique_ptr<ResourceIndex> resources;
    bool pinned = false; // the layer holds one of the references itself
};

/// A module of the system that is the layer itself: its functions are the layer's.
struct BuiltInModule
{
    std::u16string_view name;
    bool always; ///< every program has it loaded
};

constexpr BuiltInModule kBuiltInModules[] = {
    {u"advapi32.dll", true}, {u"comdlg32.dll", false}, {u"compstui.dll", false}, {u"gdi32.dll", true},
    {u"kernel32.dll", true}, {u"shell32.dll", true},   {u"spoolss.dll", false},  {u"user32.dll", true},
    {u"version.dll", true},  {u"winspool.drv", true},  {u"hhctrl.ocx", false},   {u"ole32.dll", true},
};

/// Functions that programs ask for by number.
struct NumberedFunction
{
    std::u16string_view module;
    WORD number;
    const char* name;
};

constexpr NumberedFunction kNumberedFunctions[] = {{u"hhctrl.ocx", 15, "HtmlHelpW"}};

std::recursive_mutex moduleLock;
std::vector<std::unique_ptr<Module>> modules; // in the order of loading
bool processEnding = false;                   // modules are being detached for good

// The running program has no object of its own; its handle is this variable's address.
const char programModule = 0;

HMODULE HandleOf(const void* module)
{
    return static_cast<HMODULE>(const_cast<void*>(module));
}

/// The loaded module of a handle, or null. Hold moduleLock.
Module* ModuleOf(HMODULE handle)
{
    for (const std::unique_ptr<Module>& module : modules) {
        if (HandleOf(module.get()) == handle)
            return module.get();
    }
    return nullptr;
}

std::u16string ProgramPath()
{
    char path[PATH_MAX];
    const ssize_t size = readlink("/proc/self/exe", path, sizeof path);
    return size > 0 ? WindowsPath(std::string(path, static_cast<size_t>(size))) : std::u16string();
}

std::u16string_view BaseName(std::u16string_view path)
{
    return path.substr(path.find_last_of(u"\\/") + 1);
}

/// A module's name as it is looked for: ".dll" is added where there is no extension; a dot at the end says
/// that none is wanted.
std::u16string WithExtension(std::u16string_view name)
{
    if (!name.empty() && name.back() == u'.')
        return std::u16string(name.substr(0, name.size() - 1));
    std::u16string result(name);
    if (BaseName(name).find(u'.') == std::u16string_view::npos)
        result += kDefaultExtension;
    return result;
}

/// A symbol of the library itself; dlsym would look into the libraries it uses too.
void* OwnSymbol(void* library, const char* name)
{
    const link_map* map = nullptr;
    Dl_info info;
    void* const symbol = dlsym(library, name);
    if (symbol == nullptr || dlinfo(library, RTLD_DI_LINKMAP, &map) != 0 || dladdr(symbol, &info) == 0)
        return nullptr;
    return reinterpret_cast<uintptr_t>(info.dli_fbase) == map->l_addr ? symbol : nullptr;
}

std::unique_ptr<ResourceIndex> ReadResources(void* library)
{
    const auto* const first = static_cast<const std::byte*>(OwnSymbol(library, kResourcesSymbol));
    const auto* const end = static_cast<const std::byte*>(OwnSymbol(library, kResourcesEndSymbol));
    const bool present = first != nullptr && end > first;
    return std::make_unique<ResourceIndex>(present ? std::span(first, end) : std::span<const std::byte>());
}

/// Calls a module's DllMain, if it has one.
BOOL Notify(const Module& module, DWORD reason, bool processEnds)
{
    if (module.dataOnly)
        return TRUE;
    const auto dllMain = reinterpret_cast<DllMainFunction*>(OwnSymbol(module.library, "DllMain"));
    if (dllMain == nullptr)
        return TRUE;
    // At the end of the process the reserved argument is not null.
    void* const reserved = processEnds ? &modules : nullptr;
    CallbackScope callback;
    return dllMain(reinterpret_cast<HINSTANCE>(HandleOf(&module)), reason, reserved);
}

/// Why a file could not be loaded.
DWORD LoadError(const char* file)
{
    Elf64_Ehdr header = {};
    const int fd = open(file, O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return ErrorFromErrno(errno);
    const ssize_t size = read(fd, &header, sizeof header);
    close(fd);
    const bool sound = size == sizeof header && std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0 &&
                       header.e_ident[EI_CLASS] == ELFCLASS64 && header.e_machine == EM_X86_64 &&
                       header.e_type == ET_DYN;
    // A sound one lacks another library that it uses.
    return sound ? ERROR_MOD_NOT_FOUND : ERROR_BAD_EXE_FORMAT;
}

/// Drops a module from the list and from memory. Nothing may use it any more.
void Unload(Module* module)
{
    const auto at =
        std::find_if(modules.begin(), modules.end(), [=](const auto& each) { return each.get() == module; });
    const std::unique_ptr<Module> gone = std::move(*at);
    modules.erase(at);
    dlclose(gone->library);
}

HMODULE AddReference(Module& module)
{
    ++module.references;
    CountOpen(&Ledger::modules, 1);
    return HandleOf(&module);
}

Module* FindLoaded(void* library, bool dataOnly)
{
    for (const std::unique_ptr<Module>& module : modules) {
        if (module->library == library && module->dataOnly == dataOnly)
            return module.get();
    }
    return nullptr;
}

HMODULE Attach(void* library, std::u16string path, bool dataOnly, DWORD& error)
{
    modules.push_back(std::make_unique<Module>(Module{library, std::move(path), dataOnly, false, 1, {}}));
    Module* const module = modules.back().get();
    module->resources = ReadResources(library);
    module->attached = true;
    CountOpen(&Ledger::modules, 1);
    if (Notify(*module, DLL_PROCESS_ATTACH, false))
        return HandleOf(module);
    // A module that refuses is told to clean up, and goes whoever holds it.
    Notify(*module, DLL_PROCESS_DETACH, false);
    CountOpen(&Ledger::modules, -module->references);
    Unload(module);
    error = ERROR_DLL_INIT_FAILED;
    return nullptr;
}

/// Loads a file by full Windows path. Null with `error` set when it cannot be.
HMODULE LoadFile(LPCWSTR path, bool dataOnly, DWORD& error)
{
    NativeName native;
    struct stat status;
    FullName full;
    if (FindExisting(path, native, status) != ERROR_SUCCESS || S_ISDIR(status.st_mode)) {
        error = ERROR_MOD_NOT_FOUND;
        return nullptr;
    }
    void* const library = dlopen(native.text, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        error = LoadError(native.text);
        return nullptr;
    }
    if (Module* const loaded = FindLoaded(library, dataOnly)) {
        dlclose(library);
        return AddReference(*loaded);
    }
    ExpandName(path, full);
    return Attach(library, {full.text, full.size}, dataOnly, error);
}

bool FileExists(const std::u16string& path)
{
    NativeName native;
    struct stat status;
    return FindExisting(path.c_str(), native, status) == ERROR_SUCCESS && !S_ISDIR(status.st_mode);
}

/// The full path of a module that is named without a folder, or an empty text: the program's folder first,
/// then the system's, then the current one.
std::u16string SearchFile(const std::u16string& name)
{
    const std::u16string program = ProgramPath();
    const std::u16string candidates[] = {
        program.substr(0, program.size() - BaseName(program).size()) + name,
        u"C:\\windows\\system32\\" + name,
        u"C:\\windows\\" + name,
        u".\\" + name,
    };
    for (const std::u16string& candidate : candidates) {
        if (FileExists(candidate))
            return candidate;
    }
    return {};
}

const BuiltInModule* BuiltInOf(std::u16string_view name)
{
    if (name.size() > kSystemFolder.size() &&
        EqualNoCase(name.substr(0, kSystemFolder.size()), kSystemFolder))
        name.remove_prefix(kSystemFolder.size());
    const auto found = std::find_if(std::begin(kBuiltInModules), std::end(kBuiltInModules),
                                    [=](const BuiltInModule& each) { return EqualNoCase(each.name, name); });
    return found != std::end(kBuiltInModules) ? found : nullptr;
}

/// Enters a built-in module into the list. Whether its first reference counts as open is the caller's to say.
Module* AddBuiltIn(const BuiltInModule& builtIn)
{
    Dl_info self;
    dladdr(&programModule, &self);
    void* const library = dlopen(self.dli_fname, RTLD_NOW | RTLD_NOLOAD);
    std::u16string path = std::u16string(kSystemFolder).append(builtIn.name);
    modules.push_back(
        std::make_unique<Module>(Module{library, std::move(path), false, true, 1, {}, builtIn.always}));
    return modules.back().get();
}

/// The name of a built-in module's function, or null.
const char* NameOfNumber(const Module& module, WORD number)
{
    for (const NumberedFunction& each : kNumberedFunctions) {
        if (each.number == number && EqualNoCase(BaseName(module.path), each.module))
            return each.name;
    }
    return nullptr;
}

bool IsBareName(std::u16string_view name)
{
    return BaseName(name).size() == name.size() && name.find(u':') == std::u16string_view::npos;
}

/// A loaded module by base name or by path, or null. A module of the system that every program has is entered
/// into the list when it is first asked for.
Module* FindByName(const std::u16string& name, bool dataOnly)
{
    FullName full;
    const bool bare = IsBareName(name);
    if (!bare && ExpandName(name.c_str(), full) != ERROR_SUCCESS)
        return nullptr;
    for (const std::unique_ptr<Module>& module : modules) {
        const std::u16string_view own = bare ? BaseName(module->path) : module->path;
        if (module->dataOnly == dataOnly && EqualNoCase(own, bare ? name : full.text))
            return module.get();
    }
    const BuiltInModule* const builtIn = dataOnly ? nullptr : BuiltInOf(name);
    return builtIn != nullptr && builtIn->always ? AddBuiltIn(*builtIn) : nullptr;
}

HMODULE Load(std::u16string_view requested, bool dataOnly, DWORD& error)
{
    std::u16string name = WithExtension(requested);
    const BuiltInModule* const builtIn = dataOnly ? nullptr : BuiltInOf(name);
    std::lock_guard lock(moduleLock);
    if (builtIn != nullptr || IsBareName(name)) {
        if (Module* const loaded = FindByName(name, dataOnly))
            return AddReference(*loaded);
        if (builtIn != nullptr) {
            CountOpen(&Ledger::modules, 1);
            return HandleOf(AddBuiltIn(*builtIn));
        }
        name = SearchFile(name);
    }
    error = ERROR_MOD_NOT_FOUND;
    return name.empty() ? nullptr : LoadFile(name.c_str(), dataOnly, error);
}

HMODULE LoadChecked(LPCWSTR fileName, bool dataOnly)
{
    DWORD error = ERROR_INVALID_PARAMETER;
    const HMODULE module = fileName != nullptr && *fileName != 0 ? Load(fileName, dataOnly, error) : nullptr;
    if (module == nullptr)
        SetLastError(error);
    return module;
}

} // namespace

const ResourceIndex* ResourcesOf(HMODULE handle)
{
    std::lock_guard lock(moduleLock);
    const Module* const module = ModuleOf(handle);
    return module != nullptr ? module->resources.get() : nullptr;
}

void DetachAllModules()
{
    std::lock_guard lock(moduleLock);
    // What a detaching module frees stays until all are detached: it may be itself.
    processEnding = true;
    const auto isAttached = [](const auto& module) { return module->attached; };
    for (;;) {
        const auto last = std::find_if(modules.rbegin(), modules.rend(), isAttached);
        if (last == modules.rend())
            break;
        (*last)->attached = false;
        Notify(**last, DLL_PROCESS_DETACH, true);
    }
    while (!modules.empty()) {
        CountOpen(&Ledger::modules, modules.back()->pinned - modules.back()->references);
        Unload(modules.back().get());
    }
    processEnding = false;
}

} // namespace host

using namespace host;

HMODULE WINAPI LoadLibraryW(LPCWSTR fileName)
{
    HOST_CALL(LoadLibraryW, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    return LoadChecked(fileName, false);
}

HMODULE WINAPI LoadLibraryExW(LPCWSTR fileName, HANDLE file, DWORD flags)
{
    HOST_CALL(LoadLibraryExW, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    if (file != nullptr || (flags & ~static_cast<DWORD>(LOAD_LIBRARY_AS_DATAFILE)) != 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return LoadChecked(fileName, flags != 0);
}

BOOL WINAPI FreeLibrary(HMODULE handle)
{
    HOST_CALL_VOID(FreeLibrary);
    std::lock_guard lock(moduleLock);
    Module* const module = ModuleOf(handle);
    // Without references it is detaching right now and asks from its own DllMain.
    if (module == nullptr || module->references == 0)
        return FailWith(ERROR_MOD_NOT_FOUND);
    if (module->pinned && module->references == 1)
        return TRUE;
    CountOpen(&Ledger::modules, -1);
    if (--module->references > 0 || processEnding)
        return TRUE;
    if (module->attached) {
        module->attached = false;
        Notify(*module, DLL_PROCESS_DETACH, false);
    }
    Unload(module);
    return TRUE;
}

FARPROC WINAPI GetProcAddress(HMODULE handle, LPCSTR name)
{
    HOST_CALL(GetProcAddress, nullptr, ERROR_PROC_NOT_FOUND);
    std::lock_guard lock(moduleLock);
    const Module* const module = ModuleOf(handle);
    if (module == nullptr) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    const char* const symbolName = IS_INTRESOURCE(name) ? NameOfNumber(*module, LOWORD(name)) : name;
    void* const symbol =
        module->dataOnly || symbolName == nullptr ? nullptr : OwnSymbol(module->library, symbolName);
    if (symbol == nullptr)
        SetLastError(ERROR_PROC_NOT_FOUND);
    return reinterpret_cast<FARPROC>(symbol);
}

HMODULE WINAPI GetModuleHandleW(LPCWSTR name)
{
    HOST_CALL(GetModuleHandleW, nullptr, ERROR_MOD_NOT_FOUND);
    if (name == nullptr)
        return HandleOf(&programModule);
    std::lock_guard lock(moduleLock);
    const Module* const module = FindByName(WithExtension(name), false);
    if (module != nullptr)
        return HandleOf(module);
    if (EqualNoCase(BaseName(ProgramPath()), BaseName(name)))
        return HandleOf(&programModule);
    SetLastError(ERROR_MOD_NOT_FOUND);
    return nullptr;
}

DWORD WINAPI GetModuleFileNameW(HMODULE handle, LPWSTR fileName, DWORD size)
{
    HOST_CALL(GetModuleFileNameW, 0, ERROR_NOT_ENOUGH_MEMORY);
    std::lock_guard lock(moduleLock);
    const Module* const module = ModuleOf(handle);
    if (module == nullptr && handle != nullptr && handle != HandleOf(&programModule))
        return static_cast<DWORD>(FailWith(ERROR_MOD_NOT_FOUND));
    const std::u16string path = module != nullptr ? module->path : ProgramPath();
    if (size == 0)
        return static_cast<DWORD>(FailWith(ERROR_INSUFFICIENT_BUFFER));
    const size_t count = std::min<size_t>(path.size(), size - 1);
    std::copy_n(path.begin(), count, fileName);
    fileName[count] = 0;
    SetLastError(count < path.size() ? ERROR_INSUFFICIENT_BUFFER : ERROR_SUCCESS);
    return count < path.size() ? size : static_cast<DWORD>(count);
}
