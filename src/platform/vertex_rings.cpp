// SPDX-License-Identifier: MIT
#include "platform/vertex_rings.h"

#include <cstddef>

namespace tessarine {

RingMoments MomentsOf(std::span<const XY> ring) {
  RingMoments sums;
  if (ring.empty()) return sums;
  const XY origin = ring.front();
  for (std::size_t index = 0; index < ring.size(); ++index) {
    const XY from = ring[index];
    const XY to = ring[index + 1 < ring.size() ? index + 1 : 0];
    const double x1 = from.x - origin.x, y1 = from.y - origin.y;
    const double x2 = to.x - origin.x, y2 = to.y - origin.y;
    const double cross = x1 * y2 - x2 * y1;
    sums.area += cross / 2.0;
    sums.x += (x1 + x2) * cross / 6.0;
    sums.y += (y1 + y2) * cross / 6.0;
  }
  return sums;
}

Envelope ExtentOf(std::span<const XY> vertices) {
  Envelope extent;
  for (const XY vertex : vertices) extent.Union(vertex);
  return extent;
}

bool Encloses(std::span<const XY> ring, XY point) {
  bool inside = false;
  for (std::size_t index = 0; index < ring.size(); ++index) {
    if (RayMeets(ring[index], ring[index + 1 < ring.size() ? index + 1 : 0], point)) inside = !inside;
  }
  return inside;
}

}  // namespace tessarine
