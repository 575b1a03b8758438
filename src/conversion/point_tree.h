// SPDX-License-Identifier: GPL-2.0-or-later
// Points that are found by place.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "platform/geometry_types.h"

namespace tessarine {

struct NumberedPoint {
  XY place;
  std::int64_t oid;
};

/// A k-d tree without pointers: the middle point of each span divides it, by x and y in turn. 24 bytes for each point;
/// made in n log n. Coordinates are finite.
class PointTree {
 public:
  PointTree() = default;
  explicit PointTree(std::vector<NumberedPoint> points) : points_(std::move(points)) { Divide(points_, kByX); }

  /// Calls `visit(point)` for each point in the box or on its edge, in no order to rely on.
  template <class Visit>
  void Within(const Envelope& box, Visit&& visit) const {
    Search(points_, kByX, box, visit);
  }

 private:
  enum Axis : bool { kByX, kByY };

  [[nodiscard]] static Axis Other(Axis axis) { return axis == kByX ? kByY : kByX; }
  [[nodiscard]] static double Along(Axis axis, XY place) { return axis == kByX ? place.x : place.y; }

  static void Divide(std::span<NumberedPoint> points, Axis axis) {
    if (points.size() < 2) return;
    const std::size_t middle = points.size() / 2;
    std::nth_element(
        points.begin(), points.begin() + static_cast<std::ptrdiff_t>(middle), points.end(),
        [&](const NumberedPoint& a, const NumberedPoint& b) { return Along(axis, a.place) < Along(axis, b.place); });
    Divide(points.first(middle), Other(axis));
    Divide(points.subspan(middle + 1), Other(axis));
  }

  template <class Visit>
  static void Search(std::span<const NumberedPoint> points, Axis axis, const Envelope& box, Visit& visit) {
    if (points.empty()) return;
    const std::size_t middle = points.size() / 2;
    const XY place = points[middle].place;
    const double least = axis == kByX ? box.XMin() : box.YMin(), most = axis == kByX ? box.XMax() : box.YMax();
    if (least <= Along(axis, place)) Search(points.first(middle), Other(axis), box, visit);
    if (box.XMin() <= place.x && place.x <= box.XMax() && box.YMin() <= place.y && place.y <= box.YMax()) {
      visit(points[middle]);
    }
    if (Along(axis, place) <= most) Search(points.subspan(middle + 1), Other(axis), box, visit);
  }

  std::vector<NumberedPoint> points_;
};

}  // namespace tessarine
