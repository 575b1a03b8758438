// SPDX-License-Identifier: GPL-2.0-or-later
// The names of geoprocessing functions.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/arrays.h"
#include "platform/geoprocessing.h"

namespace tessarine::Functions {

/// The name of the function at a place of the collection, counted from 1. A fault is reported under the routine's name
/// and handed on.
[[nodiscard]] std::shared_ptr<IGPName> GetFunctionName(const VarArray& functions, std::int32_t place);

}  // namespace tessarine::Functions
