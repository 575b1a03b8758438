// SPDX-License-Identifier: GPL-2.0-or-later
// Segments that are led through places which they pass within a tolerance.
#pragma once

#include <algorithm>
#include <cmath>

#include "engine/box_tree.h"
#include "platform/geometry_types.h"

namespace tessarine::engine {

/// The length of a vector, as a number to compare: the squares tell the order of most, the roots that of the rest.
class Length {
 public:
  explicit Length(XY vector) : vector_(vector), square_(vector.x * vector.x + vector.y * vector.y) {}

  friend bool operator<(const Length& a, const Length& b) {
    constexpr double kSure = 1.0 + 1e-14, kLeastSquare = 1e-290;
    if (b.square_ > kLeastSquare && a.square_ * kSure < b.square_) return true;
    if (a.square_ > kLeastSquare && b.square_ * kSure < a.square_) return false;
    return a.Root() < b.Root();
  }

  [[nodiscard]] double Root() const { return std::hypot(vector_.x, vector_.y); }

 private:
  XY vector_;
  double square_;
};

[[nodiscard]] inline Length LengthBetween(XY first, XY second) {
  return Length({first.x - second.x, first.y - second.y});
}

/// From a segment to a place.
[[nodiscard]] inline Length OffsetOf(XY from, XY to, XY place) {
  const double dx = to.x - from.x, dy = to.y - from.y;
  const double square = dx * dx + dy * dy;
  if (square == 0.0) return LengthBetween(from, place);
  const double along = std::clamp(((place.x - from.x) * dx + (place.y - from.y) * dy) / square, 0.0, 1.0);
  return Length({from.x + along * dx - place.x, from.y + along * dy - place.y});
}

struct Led {
  XY from, to;
  double tolerance;

  /// True where both ways that come of it are shorter than the segment. So segments only ever become shorter, and the
  /// leading comes to an end also in triangles hardly larger than the tolerance, where every side passes the corner
  /// across.
  [[nodiscard]] bool LeadsThrough(XY place, const Length& offset) const {
    if (place == from || place == to || Length({tolerance, 0.0}) < offset) return false;
    const Length whole = LengthBetween(from, to);
    return LengthBetween(from, place) < whole && LengthBetween(place, to) < whole;
  }
  [[nodiscard]] bool LeadsThrough(XY place) const {
    return Surroundings().Meets(Box::Of(place)) && LeadsThrough(place, OffsetOf(from, to, place));
  }

 private:
  // What is led through lies within. Wide enough for the rounding of offsets: the tolerance is above it.
  [[nodiscard]] Box Surroundings() const {
    const double reach = 8.0 * tolerance;
    const Box box = Box::Of(from, to);
    return {box.xmin - reach, box.ymin - reach, box.xmax + reach, box.ymax + reach};
  }
};

}  // namespace tessarine::engine
