#pragma once
// Handles of one kind of object. A value is never used twice, so a handle that was closed, or never given
// out, is always recognised. Not locked: the owner's lock guards it.
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <utility>

namespace host {

template <class Object>
class HandleTable
{
public:
    /// `first` keeps the values of different kinds apart; it is a multiple of 4 and never 0.
    explicit HandleTable(uintptr_t first) : next_(first) {}

    void* Add(Object object)
    {
        uintptr_t value = next_;
        next_ += 4;
        objects_.emplace(value, std::move(object));
        return reinterpret_cast<void*>(value);
    }

    /// The object, or null. The address holds until the handle is removed.
    Object* Find(const void* handle)
    {
        auto found = objects_.find(reinterpret_cast<uintptr_t>(handle));
        return found == objects_.end() ? nullptr : &found->second;
    }

    bool Remove(const void* handle) { return objects_.erase(reinterpret_cast<uintptr_t>(handle)) != 0; }

    /// Removes all and returns how many there were.
    size_t Clear()
    {
        size_t count = objects_.size();
        objects_.clear();
        return count;
    }

private:
    std::unordered_map<uintptr_t, Object> objects_;
    uintptr_t next_;
};

} // namespace host
