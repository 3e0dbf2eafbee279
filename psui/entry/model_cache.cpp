#include "psui/entry/model_cache.h"

#include "psui/base/module.h"
#include "psui/model/cache.h"
#include "psui/model/image.h"
#include "psui/settings/spooler.h"
#include "psui/settings/text.h"

namespace psui {

// Guarded by csDriver.
const ModelDescription* pCachedModel = nullptr;
uint32_t cCachedModelRefs = 0;

const ModelDescription* AcquireModel(HANDLE printer, bool allowCached)
{
    const SpoolerBlock<DRIVER_INFO_2W> driver = GetDriverInfo(printer);
    if (!driver || !driver->pDataFile)
        return nullptr;
    const DriverLock lock;
    if (allowCached && pCachedModel && EqualNoCase(pCachedModel->sourcePath.get(), driver->pDataFile)) {
        ++cCachedModelRefs;
        return pCachedModel;
    }
    const ModelDescription* loaded = LoadModelDescription(driver->pDataFile);
    if (loaded && cCachedModelRefs == 0) {
        FreeModelDescription(pCachedModel);
        pCachedModel = loaded;
        cCachedModelRefs = 1;
    }
    return loaded;
}

void ReleaseModel(const ModelDescription* model)
{
    if (!model)
        return;
    const DriverLock lock;
    if (model != pCachedModel)
        FreeModelDescription(model);
    else if (cCachedModelRefs > 0)
        --cCachedModelRefs;
}

void FlushModelCache()
{
    const DriverLock lock;
    FreeModelDescription(pCachedModel);
    pCachedModel = nullptr;
    cCachedModelRefs = 0;
}

} // namespace psui
