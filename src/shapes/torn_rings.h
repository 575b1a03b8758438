// SPDX-License-Identifier: GPL-2.0-or-later
// Rings of polygons that came out of a projection vertex by vertex, made whole again.
//
// Every longitude comes back between -180 and 180, so what is whole on the map may be torn: a ring over the 180 degree
// meridian, or one round a pole. And a ring may be torn on the map already, where its vertices jump from one edge of
// the world to the other. In both cases its longitudes are carried on the short way, as `longitude_continuation.h`
// tells, and so it measures as it does in a layer of longitudes and latitudes. Some things only the projection knows:
//
//  - A ring that the short way leaves without width is a frame of the world, or a belt of it. It stays as wide as the
//    map has it.
//  - A side that runs straight through a pole gets the pole for a vertex: between two places half a turn apart, a
//    plane of longitude and latitude knows nothing of it.
//  - A ring round the globe holds the pole that it runs by way of; if there is none, the one that it holds on the map;
//    and if it is torn on the map, the one on the smaller part of the globe.
#pragma once

#include <vector>

#include "geodesy/longitude_continuation.h"
#include "platform/geometry.h"

namespace tessarine::MyGeometricOperations {

/// What became of the rings of a polygon.
struct MendedRings {
  bool changed = false;        ///< some were carried on, or led over a pole
  bool torn_on_map = false;    ///< some jump over the edge of their map
  bool pole_by_sense = false;  ///< a ring round the globe holds the pole that it holds on the map, by its sense there
  std::vector<geodesy::Seam> seams;  ///< what was added to rings, there and back
};

/// Makes the rings of a polygon whole, in place. `polygon` is in degrees, and `map` the same polygon before it was
/// projected, with its reference. A ring of curves has other vertices there, so that nothing tells whether it jumps.
///
/// Cost: linear, but for rings round the globe; those and their holes cost what `ArrangedRings` does.
MendedRings MendTornRings(Polygon& polygon, const Polygon& map);

}  // namespace tessarine::MyGeometricOperations
