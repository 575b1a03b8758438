// SPDX-License-Identifier: GPL-2.0-or-later
// Bringing lines together that nearly meet.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "engine/noding.h"

namespace tessarine::engine {

/// Places no two of which lie within a distance of each other. The first to come stays; later ones go to the nearest
/// that stands. Kept in square cells as wide as the distance.
class PlaceCluster {
 public:
  explicit PlaceCluster(double distance) : distance_(distance) {}

  /// The place that this one becomes.
  [[nodiscard]] XY Settle(XY place);

 private:
  struct Cell {
    std::int64_t column, row;
    bool operator==(const Cell&) const = default;
  };
  struct CellHash {
    std::size_t operator()(const Cell& cell) const;
  };
  [[nodiscard]] Cell CellOf(XY place) const;

  double distance_;
  std::unordered_map<Cell, std::vector<XY>, CellHash> cells_;
};

/// The lines, with a vertex wherever they meet, places within the tolerance of each other made one, and lines led
/// through the vertices that they pass within it. Lines that shrink to a place are gone.
///
/// Each of these steps may call for the others, so they are repeated until nothing changes, or 20 times: that many only
/// happen where the tolerance is as large as the shapes. The result meets at vertices only in any case; after 20
/// rounds it may still hold places within the tolerance of each other. Costs the noding of each round, commonly two;
/// beside it n log n, and the pairs of segments and vertices within the tolerance.
[[nodiscard]] LineList NodeLines(LineList lines, double tolerance);

}  // namespace tessarine::engine
