// An image from anywhere: it is refused, or everything in it can be read and asked.
#include <cstring>
#include <memory>

#include "psui/model/image.h"
#include "tests/model/walk.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::unique_ptr<uint8_t[]> image(new uint8_t[size]);
    std::memcpy(image.get(), data, size);
    if (psui::ResolveImage({image.get(), size}))
        psui::test::WalkEverything(*reinterpret_cast<psui::ModelDescription*>(image.get()));
    return 0;
}
