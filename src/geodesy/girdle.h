// SPDX-License-Identifier: MIT
// A ring round the globe, and where it begins so that its seam to a pole cuts nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/geometry_types.h"

namespace tessarine::geodesy::detail {

using Vertices = std::vector<XY>;

enum class Side : std::uint8_t { North, South };

[[nodiscard]] inline Side Opposite(Side side) { return side == Side::North ? Side::South : Side::North; }

/// The latitude counted toward a side.
[[nodiscard]] inline double Reach(XY vertex, Side side) { return side == Side::North ? vertex.y : -vertex.y; }

/// Its last vertex is dropped: the first one stands a turn farther in its place.
struct Girdle {
  Vertices vertices;
  double turn;  ///< the longitude from one round to the next, 360 or -360 for plain rings
  std::size_t place;
  double mean_latitude;
};

/// The rings that don't run round the globe: no seam may cut them.
using Others = std::vector<Vertices>;

/// Begins at another of its vertices; those that go to the end move on by a turn.
void BeginAt(Girdle& girdle, std::size_t first);

/// Begins where the meridian to a pole cuts nothing: at the vertex next to the pole; where that lies below one of the
/// others, at another vertex; and else on the middle of the widest free stretch of longitudes, with a vertex put in.
/// With others all around it stays at the first of these. Cost: linear, but for the looks at up to 256 vertices.
void BeginAtSeam(Girdle& girdle, Side side, const Others& others);

}  // namespace tessarine::geodesy::detail
