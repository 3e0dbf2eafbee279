#pragma once
#include "psui/settings/record_values.h"
