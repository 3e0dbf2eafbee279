#pragma once
// What the settings fuzzers share: a world, records that own exactly the bytes they state, and a way to stop.
#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "fuzz/require.h"
#include "host/host.h"
#include "psui/base/module.h"
#include "psui/model/image.h"
#include "psui/settings/copy.h"
#include "psui/settings/record.h"

namespace fuzz {

inline void Require(bool holds, const std::string& what)
{
    Require(holds, what.c_str());
}

inline void OpenWorld()
{
    std::string error;
    Require(host::Open({.root = ":memory:"}, &error), error);
    InitializeCriticalSection(&psui::csDriver);
}

inline const psui::ModelDescription* CompileModel(std::string_view text)
{
    psui::ModelDescription* model = psui::CompileToImage(text, TEXT("C:\\model.ppd"));
    Require(model && psui::ResolveImage({reinterpret_cast<uint8_t*>(model), model->imageSize}), "model text");
    return model;
}

/// The fuzzer's bytes, taken from the front; zeros once they are used up.
class Input
{
public:
    Input(const uint8_t* data, size_t size) : data_(data), left_(size) {}

    template <typename Number>
    Number Take()
    {
        Number value = {};
        TakeInto(&value, sizeof(value));
        return value;
    }

    void TakeInto(void* bytes, size_t count)
    {
        const size_t taken = std::min(count, left_);
        std::memcpy(bytes, data_, taken);
        data_ += taken;
        left_ -= taken;
    }

    /// At most `count` bytes; they lie in the fuzzer's block.
    std::string_view TakeBytes(size_t count)
    {
        const std::string_view bytes(reinterpret_cast<const char*>(data_), std::min(count, left_));
        data_ += bytes.size();
        left_ -= bytes.size();
        return bytes;
    }

    std::string_view TakeRest() { return TakeBytes(left_); }

private:
    const uint8_t* data_;
    size_t left_;
};

/// A block of exactly `size` bytes, so that the sanitizer sees the first byte too far.
struct Block
{
    explicit Block(size_t length) : bytes(new BYTE[length]()), size(length) {}

    DEVMODEW* Record() { return reinterpret_cast<DEVMODEW*>(bytes.get()); }

    std::unique_ptr<BYTE[]> bytes;
    size_t size;
};

/// A record of the shape that its own header states.
inline Block TakeRecord(Input& input)
{
    BYTE header[psui::kHeaderSize] = {};
    input.TakeInto(header, sizeof(header));
    Block record(std::max(psui::ShapeOf(header).TotalSize(), sizeof(header)));
    std::memcpy(record.bytes.get(), header, sizeof(header));
    input.TakeInto(record.bytes.get() + sizeof(header), record.size - sizeof(header));
    return record;
}

} // namespace fuzz
