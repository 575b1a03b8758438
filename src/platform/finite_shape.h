// SPDX-License-Identifier: GPL-2.0-or-later
// Shapes that hold something else than numbers.
#pragma once

#include "platform/geometry.h"

namespace tessarine {

/// False when a coordinate of the shape, or of a curve in it, is infinite or no number. Nothing can be measured or
/// built of such a shape. Members of a bag are not looked at.
[[nodiscard]] bool HasOnlyFiniteCoordinates(const IGeometry& shape);

}  // namespace tessarine
