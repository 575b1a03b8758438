// SPDX-License-Identifier: GPL-2.0-or-later
// The tiles that a shape meets, and what of it lies in each.
#pragma once

#include <cstdint>
#include <vector>

#include "shapes/wrap.h"

namespace tessarine::MyGeometricOperations {

/// Copies of an interval next to each other. Number 0 is the interval itself.
struct TileAxis {
  double low, size;

  [[nodiscard]] double LowOf(std::int64_t number) const { return low + OffsetOf(number); }
  [[nodiscard]] double HighOf(std::int64_t number) const { return LowOf(number + 1); }
  [[nodiscard]] double OffsetOf(std::int64_t number) const { return static_cast<double>(number) * size; }
};

/// Tiles from the first to the last one; none when the last stands before the first.
struct TileRange {
  std::int64_t first, last;
  [[nodiscard]] std::int64_t Count() const { return last - first + 1; }
};

struct Tile {
  std::int64_t column, row;
};

struct TilePiece {
  Tile tile;
  GeometryRef shape;  ///< where the source lies
};

struct TilePieces {
  /// Column by column from the south-western tile for lines and places, in no special order for polygons.
  std::vector<TilePiece> pieces;
  /// A polygon covers all of at least one tile; there are no pieces then.
  bool covers_a_tile = false;
  bool stopped = false;
};

/// Cuts the shape, which must be simple unless it is a multipoint, into what lies in each tile; it takes the shape
/// away. The pieces of polygons may need to be made simple. The walk begins at the box, or at the tile below its
/// western or southern edge that the extent of the shape begins in, and ends before a tile whose western or southern
/// edge is the end of the extent.
[[nodiscard]] TilePieces CutIntoTiles(GeometryRef shape, const TileAxis& columns, const TileAxis& rows,
                                      const KeepGoing& keep_going);

}  // namespace tessarine::MyGeometricOperations
