#pragma once
// Copying records of different sizes and versions into each other. Records here are any caller's: they may
// be unaligned, their first kHeaderSize bytes are readable, and of the rest only the dmSize + dmDriverExtra
// bytes that they state.
#include <cstddef>
#include <cstdint>

#include <windows.h>

#include "psui/settings/devmode.h"

namespace psui {

/// What must be readable of any record: everything up to and including dmDriverExtra.
constexpr size_t kHeaderSize = offsetof(DEVMODEW, dmFields);

/// The four fields that identify a record, in record order.
struct RecordShape
{
    uint16_t specVersion;
    uint16_t driverVersion;
    uint16_t publicSize;
    uint16_t privateSize;

    size_t TotalSize() const { return size_t{publicSize} + privateSize; }
};
static_assert(sizeof(RecordShape) == kHeaderSize - offsetof(DEVMODEW, dmSpecVersion));

RecordShape ShapeOf(const void* record);
void SetShape(void* record, const RecordShape& shape);

/// Whether the record carries this driver's private extension.
bool IsOwnRecord(const DEVMODEW* record);

/// Copies the smaller of the two public and of the two private parts of `source` into `destination`, which
/// keeps its shape but for the version that goes with its size. The records may overlap when they start at
/// the same address. Returns the bytes copied; or -1, with nothing changed, for a null record, a source
/// whose size is neither an accepted one nor versioned, or a destination of that kind or without room for
/// the header.
int CopyDevMode(const DEVMODEW* source, DEVMODEW* destination);

/// The same into a block that does not state its shape yet: `shape` does, and has been chosen by the caller.
int CopyDevModeAs(const DEVMODEW* source, const RecordShape& shape, void* destination);

/// Hands `ours` back in the shape the caller expects: whole without `input`, else with the public and the
/// private part each cut to the input's when that is smaller. `output` has room for the smaller shape and
/// may be the input itself. Returns whether something was copied; otherwise the output is unchanged.
bool CopyDevModeOut(const DriverDevMode* ours, const DEVMODEW* input, DEVMODEW* output);

} // namespace psui
