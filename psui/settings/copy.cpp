#include "psui/settings/copy.h"

#include <algorithm>
#include <cstring>

namespace psui {

namespace {

struct SizeVersion
{
    uint16_t publicSize;
    uint16_t specVersion;
};
constexpr SizeVersion kAcceptedSizes[] = {{188, 0x0320}, {212, 0x0400}, {kPublicSize, kSpecVersion}};

/// The version of a record of that shape; 0 when it has none.
uint16_t VersionFor(const RecordShape& shape)
{
    for (const SizeVersion& accepted : kAcceptedSizes)
        if (accepted.publicSize == shape.publicSize)
            return accepted.specVersion;
    return shape.specVersion;
}

} // namespace

RecordShape ShapeOf(const void* record)
{
    RecordShape shape;
    std::memcpy(&shape, static_cast<const BYTE*>(record) + offsetof(DEVMODEW, dmSpecVersion), sizeof(shape));
    return shape;
}

void SetShape(void* record, const RecordShape& shape)
{
    std::memcpy(static_cast<BYTE*>(record) + offsetof(DEVMODEW, dmSpecVersion), &shape, sizeof(shape));
}

bool IsOwnRecord(const DEVMODEW* record)
{
    const RecordShape shape = ShapeOf(record);
    if (shape.specVersion != kSpecVersion || shape.driverVersion != kDriverVersion ||
        shape.publicSize != kPublicSize || shape.privateSize != kPrivateSize)
        return false;
    const BYTE* privatePart = reinterpret_cast<const BYTE*>(record) + kPublicSize;
    return std::memcmp(privatePart + offsetof(PrivateDevMode, dwSignature), kPrivateSignature,
                       sizeof(kPrivateSignature)) == 0;
}

int CopyDevModeAs(const DEVMODEW* source, const RecordShape& shape, void* destination)
{
    if (!source || !destination)
        return -1;
    const RecordShape from = ShapeOf(source);
    RecordShape to = shape;
    to.specVersion = VersionFor(shape);
    if (VersionFor(from) == 0 || to.specVersion == 0 || to.publicSize < kHeaderSize)
        return -1;

    const size_t publicBytes = std::min(from.publicSize, to.publicSize);
    const size_t privateBytes = std::min(from.privateSize, to.privateSize);
    BYTE* target = static_cast<BYTE*>(destination);
    const BYTE* origin = reinterpret_cast<const BYTE*>(source);
    // The private part first: in place it never overlaps the public bytes that are still needed.
    std::memmove(target + to.publicSize, origin + from.publicSize, privateBytes);
    std::memmove(target, origin, publicBytes);
    SetShape(target, to);
    return static_cast<int>(publicBytes + privateBytes);
}

int CopyDevMode(const DEVMODEW* source, DEVMODEW* destination)
{
    return destination ? CopyDevModeAs(source, ShapeOf(destination), destination) : -1;
}

bool CopyDevModeOut(const DriverDevMode* ours, const DEVMODEW* input, DEVMODEW* output)
{
    if (!output)
        return false;
    RecordShape shape = ShapeOf(ours);
    if (!input) {
        std::memmove(output, ours, shape.TotalSize());
        return true;
    }
    const RecordShape asked = ShapeOf(input);
    if (asked.publicSize < shape.publicSize) {
        shape.publicSize = asked.publicSize;
        shape.specVersion = asked.specVersion;
    }
    if (asked.privateSize < shape.privateSize) {
        shape.privateSize = asked.privateSize;
        shape.driverVersion = asked.driverVersion;
    }
    return CopyDevModeAs(&ours->dmPublic, shape, output) > 0;
}

} // namespace psui
