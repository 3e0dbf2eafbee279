#pragma once
// The one-entry cache of loaded models. Declared here because everything above the model folder needs it;
// defined in entry/model_cache.cpp, beside the module state it belongs to.
#include <windows.h>

#include "psui/model/model.h"

namespace psui {

/// The model of the printer's driver, or null when the driver information or the model cannot be had.
/// With `allowCached` a cached model of the same data file is shared; without it the description is loaded
/// anew. The model is read-only; give it back with ReleaseModel. Any thread.
const ModelDescription* AcquireModel(HANDLE printer, bool allowCached);

/// Gives back a model got from AcquireModel. Null is ignored.
void ReleaseModel(const ModelDescription* model);

/// Frees the cached model whatever its holders; only for the detach of the library.
void FlushModelCache();

/// Owner of an acquired model.
class ModelHolder
{
public:
    explicit ModelHolder(const ModelDescription* model) : model_(model) {}
    ~ModelHolder() { ReleaseModel(model_); }
    ModelHolder(const ModelHolder&) = delete;
    ModelHolder& operator=(const ModelHolder&) = delete;

    const ModelDescription* get() const { return model_; }
    const ModelDescription& operator*() const { return *model_; }
    explicit operator bool() const { return model_ != nullptr; }

private:
    const ModelDescription* model_;
};

} // namespace psui
