#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>

#include "psui/base/file.h"
#include "psui/base/memory.h"
#include "psui/base/paths.h"
#include "psui/model/compiler.h"
#include "psui/model/image.h"
#include "psui/model/values.h"

namespace psui {

namespace {

// The text's version, read without compiling: whatever stands between the first two double quotes behind the
// first "FileVersion", be it a statement or not. 0 when there is none, or when a zero byte comes before.
uint32_t VersionOf(std::string_view text)
{
    const size_t keyword = text.find("FileVersion");
    const size_t open = keyword == text.npos ? text.npos : text.find('"', keyword);
    const size_t close = open == text.npos ? text.npos : text.find('"', open + 1);
    if (close == text.npos || std::memchr(text.data(), 0, close))
        return 0;
    uint32_t version = 0;
    return compiler::ReadReal(text.substr(open + 1, close - open - 1), version) ? version : 0;
}

// Reads the image of a text of that version, its references still offsets; null when it is not fresh.
HeapPtr<uint8_t> ReadFreshImage(const WCHAR* imagePath, uint32_t version)
{
    if (version == 0)
        return nullptr;
    const FileHandle file = OpenForReading(imagePath);
    uint64_t size = 0;
    ModelDescription header;
    if (!file || !FileSize(file, size) || size < kSmallestUsableImage || size > UINT32_MAX ||
        !ReadExactly(file, &header, sizeof(header)))
        return nullptr;
    if (header.imageSize != size || header.fileVersion != version ||
        header.formatVersion != kImageFormatVersion)
        return nullptr;
    HeapPtr<uint8_t> block(static_cast<uint8_t*>(HeapAlloc(GetProcessHeap(), 0, static_cast<size_t>(size))));
    if (!block)
        return nullptr;
    std::memcpy(block.get(), &header, sizeof(header));
    if (!ReadExactly(file, block.get() + sizeof(header), static_cast<size_t>(size) - sizeof(header)))
        return nullptr;
    return block;
}

ModelDescription* LoadImage(const WCHAR* path, const WCHAR* imagePath, uint32_t version)
{
    HeapPtr<uint8_t> block = ReadFreshImage(imagePath, version);
    if (!block)
        return nullptr;
    auto* model = reinterpret_cast<ModelDescription*>(block.get());
    if (!ResolveImage({block.get(), model->imageSize}))
        return nullptr;
    if (lstrcmpiW(FileNamePart(model->sourcePath.get()), FileNamePart(path)) != 0)
        return nullptr;
    block.release();
    return model;
}

// Writes the image so that a file which was not written to its end is never taken for one: its size word is
// zero until everything else is in place. Failures are ignored; the next load compiles again.
void WriteImage(const WCHAR* imagePath, ModelDescription& image)
{
    const FileHandle file(
        CreateFileW(imagePath, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file)
        return;
    constexpr uint32_t kUnfinished = 0;
    const uint32_t size = std::exchange(image.imageSize, kUnfinished);
    const bool written = WriteExactly(file, &image, size);
    image.imageSize = size;
    if (written && SetFilePointer(file.get(), 0, nullptr, FILE_BEGIN) == 0)
        WriteExactly(file, &image, sizeof(size));
}

DescriptionText ReadDescription(const WCHAR* path)
{
    const FileHandle file = OpenForReading(path);
    uint64_t size = 0;
    if (!file || !FileSize(file, size) || size >= UINT32_MAX)
        return {};
    HeapPtr<char> bytes(static_cast<char*>(HeapAlloc(GetProcessHeap(), 0, static_cast<size_t>(size))));
    if (!bytes || !ReadExactly(file, bytes.get(), static_cast<size_t>(size)))
        return {};
    return {std::move(bytes), static_cast<size_t>(size)};
}

ModelDescription* Compile(DescriptionText text, const WCHAR* path)
{
    CompileRootPtr root = CompileModelDescription(std::move(text), path);
    if (!root)
        return nullptr;
    FinishModelDescription(*root);
    return PackModelDescription(std::move(root));
}

} // namespace

bool ImagePathOf(const WCHAR* path, WCHAR (&imagePath)[kImagePathUnits])
{
    constexpr std::basic_string_view<WCHAR> kExtension = TEXT(".BDD");
    const std::basic_string_view<WCHAR> whole(path);
    const std::basic_string_view<WCHAR> stem = whole.substr(0, whole.rfind(TEXT('.')));
    if (stem.size() + kExtension.size() + 1 > kImagePathUnits)
        return false;
    WCHAR* end = std::copy(stem.begin(), stem.end(), imagePath);
    end = std::copy(kExtension.begin(), kExtension.end(), end);
    *end = 0;
    return true;
}

ModelDescription* LoadModelDescription(const WCHAR* path, ModelSource* source)
{
    ModelSource ignored;
    ModelSource& origin = source ? *source : ignored;
    origin = ModelSource::None;
    DescriptionText text = ReadDescription(path);
    if (!text.bytes)
        return nullptr;
    WCHAR imagePath[kImagePathUnits];
    const bool hasImage = ImagePathOf(path, imagePath);
    ModelDescription* model =
        hasImage ? LoadImage(path, imagePath, VersionOf({text.bytes.get(), text.size})) : nullptr;
    if (model) {
        origin = ModelSource::Image;
        return model;
    }
    model = Compile(std::move(text), path);
    if (!model)
        return nullptr;
    if (hasImage)
        WriteImage(imagePath, *model);
    if (!ResolveImage({reinterpret_cast<uint8_t*>(model), model->imageSize})) {
        FreeModelDescription(model);
        return nullptr;
    }
    origin = ModelSource::Compiled;
    return model;
}

} // namespace psui
