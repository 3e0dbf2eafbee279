#pragma once
// Loading a model: from the binary image beside the description text when that is fresh and sound, else by
// compiling the text and writing a new image.
#include <cstddef>
#include <cstdint>
#include <span>

#include <windows.h>

#include "psui/model/diagnostics.h"
#include "psui/model/model.h"

namespace psui {

/// How a load got its model.
enum class ModelSource
{
    None,    ///< there is no model
    Image,   ///< the image beside the text was reused
    Compiled ///< the text was compiled (and an image written, when that was possible)
};

/// The model described by the text file `path`, or null (no text, a text that does not compile, no memory).
/// The image file has the text's name with everything after its last "." replaced by "BDD".
/// `source` (may be null) is told where the model came from. The caller holds csDriver and frees the result
/// with FreeModelDescription.
ModelDescription* LoadModelDescription(const WCHAR* path, ModelSource* source = nullptr);

/// Frees a loaded model. Null is ignored.
void FreeModelDescription(const ModelDescription* model);

/// Compiles the text in memory and returns the packed image with its references still offsets, or null.
/// `path` is recorded as the source path; `sink` (may be null) is told of everything that was skipped.
/// The block is `imageSize` bytes and is freed with FreeModelDescription.
ModelDescription* CompileToImage(std::span<const char> text, const WCHAR* path,
                                 DiagnosticSink* sink = nullptr);

/// Turns the references of an image of `size` bytes into addresses, in place. Returns false, with the block
/// in an unusable state, when the image is not sound: a wrong size word or format version, a record, list or
/// text that reaches outside the block, a list that runs backwards, a record of the wrong kind for its
/// feature.
bool ResolveImage(std::span<uint8_t> image);

/// Writes the name of the image file of the text file `path` to `imagePath` (264 units). Returns false when
/// it does not fit.
constexpr size_t kImagePathUnits = 264;
bool ImagePathOf(const WCHAR* path, WCHAR (&imagePath)[kImagePathUnits]);

} // namespace psui
