// SPDX-License-Identifier: GPL-2.0-or-later
// Shapes that hold something else than numbers, or numbers that no place has.
#pragma once

#include "platform/geometry.h"

namespace tessarine {

/// Products of three coordinates up to here are finite.
inline constexpr double kFarthestCoordinate = 1e100;

/// False when a coordinate of the shape, or of a curve in it, is infinite or no number: nothing can be measured of such
/// a shape. Members of a bag are not looked at.
[[nodiscard]] bool HasOnlyFiniteCoordinates(const IGeometry& shape);

/// False when a coordinate is beyond 1e100, too: places where such a shape meets another one can't be computed.
[[nodiscard]] bool CanMeetOthers(const IGeometry& shape);

}  // namespace tessarine
