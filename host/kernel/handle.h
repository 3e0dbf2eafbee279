#pragma once
// Handles that CloseHandle or FindClose give back. A handle is a place in a table, so a wrong or stale one is
// recognised and fails with ERROR_INVALID_HANDLE.
#include <memory>

#include <windows.h>

namespace host {

enum class HandleKind
{
    File,
    Mapping,
    Find
};

struct Object
{
    explicit Object(HandleKind objectKind) : kind(objectKind) {}
    virtual ~Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    /// The handle is gone; the object itself may live on while a call or a view still uses it.
    virtual void HandleClosed() = 0;

    const HandleKind kind;
};

HANDLE NewHandle(std::shared_ptr<Object> object);

/// The object behind a handle; without one of that kind null, and ERROR_INVALID_HANDLE is set.
std::shared_ptr<Object> ObjectOf(HANDLE handle, HandleKind kind);

template <class T>
std::shared_ptr<T> ObjectOf(HANDLE handle)
{
    return std::static_pointer_cast<T>(ObjectOf(handle, T::kHandleKind));
}

/// Closes a handle: of kind Find when `find` is true, of the other kinds when it is false.
BOOL CloseObject(HANDLE handle, bool find);

/// Closes every handle that is still open.
void CloseAllHandles();

} // namespace host
