// SPDX-License-Identifier: GPL-2.0-or-later
// Our shapes to and from GEOS. Curves go over as chords fine enough for topology.
#pragma once

#include <geos_c.h>

#include <memory>
#include <vector>

#include "engine/ring_nesting.h"
#include "platform/geometry.h"

namespace tessarine::engine {

/// The GEOS context of this thread. GEOS's own messages become faults.
[[nodiscard]] GEOSContextHandle_t Geos();

struct GeosRelease {
  void operator()(GEOSGeometry* geometry) const { GEOSGeom_destroy_r(Geos(), geometry); }
};
using GeosGeometry = std::unique_ptr<GEOSGeometry, GeosRelease>;

/// Takes what a GEOS call returned; null raises a fault with GEOS's last message.
[[nodiscard]] GeosGeometry Checked(GEOSGeometry* geometry);
/// The result of a GEOS predicate; 2 raises a fault.
[[nodiscard]] bool CheckedFlag(char answer);

/// The part with every curve replaced by chords.
[[nodiscard]] std::vector<XY> DensifiedVertices(const Path& path);

[[nodiscard]] GeosGeometry LineToGeos(const std::vector<XY>& vertices);
[[nodiscard]] GeosGeometry NestedToGeos(const NestedRings& rings);
[[nodiscard]] GeosGeometry RectangleToGeos(const Envelope& box);
[[nodiscard]] GeosGeometry CollectionToGeos(int type, std::vector<GeosGeometry> members);
/// Any shape: multipolygons, multilinestrings, multipoints or points. Polygons are simplified on the way if need be.
[[nodiscard]] GeosGeometry ToGeos(const IGeometry& geometry);

/// All polygons of the result as rings: exterior ones clockwise, each followed by its holes, counter-clockwise.
[[nodiscard]] std::vector<std::shared_ptr<Path>> RingsFromGeos(const GEOSGeometry* geometry);
/// All lines of the result.
[[nodiscard]] std::vector<std::shared_ptr<Path>> PathsFromGeos(const GEOSGeometry* geometry);
[[nodiscard]] std::vector<XY> VerticesFromGeos(const GEOSGeometry* line_or_point);

/// Calls `visit` for every simple member, however deep the collections are.
template <class Visit>
void ForEachMember(const GEOSGeometry* geometry, Visit&& visit) {
  const int type = GEOSGeomTypeId_r(Geos(), geometry);
  if (type < GEOS_MULTIPOINT) {
    visit(geometry, type);
    return;
  }
  const int count = GEOSGetNumGeometries_r(Geos(), geometry);
  for (int index = 0; index < count; ++index) ForEachMember(GEOSGetGeometryN_r(Geos(), geometry, index), visit);
}

/// Counter-clockwise area of the chords, about the first vertex.
[[nodiscard]] double ChordArea(std::span<const XY> vertices);

}  // namespace tessarine::engine
