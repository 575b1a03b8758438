// SPDX-License-Identifier: GPL-2.0-or-later
// Areas made of the faces between lines.
#pragma once

#include <memory>
#include <vector>

#include "engine/noding.h"
#include "platform/geometry.h"

namespace tessarine::engine {

/// The rings of one polygon, closed: the exterior one, clockwise, then its holes, counter-clockwise. Each ring starts
/// at its vertex of least x (then y) and passes no place twice; holes stand in the order of their first vertices.
using AreaRings = std::vector<std::vector<XY>>;
using AreaList = std::vector<AreaRings>;

// All take lines as `Noded` returns them, and keep all vertices. The result doesn't depend on the order of the
// lines, and polygons come in the order of the first vertices of their exterior rings. Lines that
// turn out not to be what they should be raise fault 5. Without lines there are no areas. Time is n log n in the
// segments, memory in proportion to them.

/// One polygon for each bounded face. Lines that bound nothing are left out.
[[nodiscard]] AreaList FacesBetween(const LineList& lines);

/// What lies within an odd number of the closed lines.
[[nodiscard]] AreaList EvenOddAreas(const LineList& rings);

/// What lies in at least one of many valid polygons, whose rings keep the inside at their right.
[[nodiscard]] AreaList CoveredAreas(const LineList& rings);

/// All rings of the areas, as the parts of one polygon.
[[nodiscard]] std::vector<std::shared_ptr<Path>> PartsOf(AreaList areas);

}  // namespace tessarine::engine
