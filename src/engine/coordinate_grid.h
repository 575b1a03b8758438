// SPDX-License-Identifier: GPL-2.0-or-later
// The points of a reference's grid: multiples of its resolution.
#pragma once

#include <span>
#include <vector>

#include "platform/geometry_types.h"
#include "platform/spatial_reference.h"

namespace tessarine::engine {

class CoordinateGrid {
 public:
  explicit CoordinateGrid(const SpatialReferenceRef& reference);

  /// The nearest point of the grid to each place; halves are rounded away from 0. Coordinates that aren't finite stay
  /// as they are.
  [[nodiscard]] std::vector<XY> Nearest(std::span<const XY> places) const;

 private:
  double step_;
  bool geographic_;
};

}  // namespace tessarine::engine
