// SPDX-License-Identifier: GPL-2.0-or-later
// The suite's measures of one shape.
#pragma once

#include "platform/shape_measures.h"

namespace tessarine::qgis {

/// For any thread, as long as the program runs.
[[nodiscard]] const IShapeMeasures& Measures();

}  // namespace tessarine::qgis
