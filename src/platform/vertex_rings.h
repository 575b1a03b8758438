// SPDX-License-Identifier: MIT
// Rings as bare vertices on the plane. The last vertex is joined to the first, whether it repeats it or not.
#pragma once

#include <span>

#include "platform/geometry_types.h"

namespace tessarine {

/// Counter-clockwise area and its first moments, all about the ring's first vertex.
struct RingMoments {
  double area = 0.0, x = 0.0, y = 0.0;
};

/// The area alone, the very same number. 0 for an empty ring. Linear.
[[nodiscard]] double AreaOf(std::span<const XY> ring);

/// All 0 for an empty ring. Linear.
[[nodiscard]] RingMoments MomentsOf(std::span<const XY> ring);

/// Empty for an empty ring. Linear.
[[nodiscard]] Envelope ExtentOf(std::span<const XY> vertices);

/// Whether the ray to the right of the point meets the piece: once for each end below the point and above it.
[[nodiscard]] inline bool RayMeets(XY from, XY to, XY point) {
  return (from.y > point.y) != (to.y > point.y) &&
         point.x < (to.x - from.x) * (point.y - from.y) / (to.y - from.y) + from.x;
}

/// True inside, by the even-odd rule; a point on the ring itself may be either. Linear.
[[nodiscard]] bool Encloses(std::span<const XY> ring, XY point);

}  // namespace tessarine
