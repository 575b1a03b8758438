// SPDX-License-Identifier: GPL-2.0-or-later
// What lies of an area on one side of an upright or level line.
#pragma once

#include <optional>

#include "engine/noding.h"
#include "platform/geometry_types.h"

namespace tessarine::engine {

/// The side of a line of constant x, or of constant y, that is kept, with the line itself.
struct HalfPlane {
  enum class Kept { West, East, South, North };
  Kept kept;
  double line;
};

/// The rings of the part of an area inside the half plane.
///
/// `rings` are closed and bound a simple area that lies at their right. So do the rings returned; their vertices
/// are those of the source, where they lie inside, and the places where the line cuts a side, which lie exactly on the
/// line and are the same for both of its half planes. Vertices of the source on the line stay. A ring returned may
/// touch itself or another one in a place on the line, and crossings nearer to each other than rounding tells apart
/// may leave it crossed there: it takes `Simplify` to be sure. Empty where the order of the crossings
/// doesn't fit an area. Time grows with the vertices and, by n log n, with the crossings.
[[nodiscard]] std::optional<LineList> CutToHalfPlane(const LineList& rings, const HalfPlane& half);

}  // namespace tessarine::engine
