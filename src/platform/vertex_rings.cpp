// SPDX-License-Identifier: MIT
#include "platform/vertex_rings.h"

#include <algorithm>

#include <cstddef>

namespace tessarine {

namespace {

// Sums over the sides, each as its ends stand from the first vertex, with their cross product.
template <class Take>
void ForEachSide(std::span<const XY> ring, Take&& take) {
  if (ring.empty()) return;
  const XY origin = ring.front();
  XY from{0.0, 0.0};
  for (std::size_t index = 0; index < ring.size(); ++index) {
    const XY next = ring[index + 1 < ring.size() ? index + 1 : 0];
    const XY to{next.x - origin.x, next.y - origin.y};
    take(from, to, from.x * to.y - to.x * from.y);
    from = to;
  }
}

}  // namespace

double AreaOf(std::span<const XY> ring) {
  double area = 0.0;
  ForEachSide(ring, [&](XY, XY, double cross) { area += cross / 2.0; });
  return area;
}

RingMoments MomentsOf(std::span<const XY> ring) {
  RingMoments sums;
  ForEachSide(ring, [&](XY from, XY to, double cross) {
    sums.area += cross / 2.0;
    sums.x += (from.x + to.x) * cross / 6.0;
    sums.y += (from.y + to.y) * cross / 6.0;
  });
  return sums;
}

Envelope ExtentOf(std::span<const XY> vertices) {
  if (vertices.empty()) return {};
  XY low = vertices.front(), high = low;
  for (const XY vertex : vertices.subspan(1)) {
    low = {std::min(low.x, vertex.x), std::min(low.y, vertex.y)};
    high = {std::max(high.x, vertex.x), std::max(high.y, vertex.y)};
  }
  return {low.x, low.y, high.x, high.y};
}

bool Encloses(std::span<const XY> ring, XY point) {
  bool inside = false;
  for (std::size_t index = 0; index < ring.size(); ++index) {
    if (RayMeets(ring[index], ring[index + 1 < ring.size() ? index + 1 : 0], point)) inside = !inside;
  }
  return inside;
}

}  // namespace tessarine
