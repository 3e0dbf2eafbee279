#pragma once
// The resources of a module: its embedded .res file, indexed once.
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include <windows.h>

namespace host {

/// A resource's type or name: a number, or a text when `text` is not empty.
struct ResourceName
{
    uint16_t id = 0;
    std::u16string text; // upper case
};

struct Resource
{
    ResourceName type;
    ResourceName name;
    LANGID language;
    std::span<const std::byte> data;
};

// Exported so that it can be tested with files that no resource compiler writes.
class HOSTAPI ResourceIndex
{
public:
    /// Reads a .res file, which must stay in memory. What lies behind the first unsound entry is ignored.
    explicit ResourceIndex(std::span<const std::byte> file);

    bool empty() const { return resources_.empty(); }
    bool HasType(const ResourceName& type) const;

    /// The resource in the language that suits the user best (US English, neutral, any), or null.
    const Resource* Find(const ResourceName& type, const ResourceName& name) const;

private:
    std::vector<Resource> resources_; // sorted by type, name, language
};

/// A caller's name: a number packed into the pointer, "#number", or a text.
ResourceName ResourceNameOf(LPCWSTR name);

} // namespace host
