#pragma once
// State of the one-entry model cache; psui/model/cache.h is its interface.
#include <cstdint>

#include "psui/model/model.h"

namespace psui {

/// The cached model or null, and the number of its holders. Guarded by csDriver. A model without holders
/// stays until a load of another one replaces it.
extern const ModelDescription* pCachedModel;
extern uint32_t cCachedModelRefs;

} // namespace psui
