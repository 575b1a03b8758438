// SPDX-License-Identifier: GPL-2.0-or-later
// Shapes on their way from a layer's coordinates to what the geodesic routines take: longitude and latitude in decimal
// degrees.
//
// A projection is undone vertex by vertex. Rings that come out of it torn, at the 180 degree meridian or round a pole,
// are made whole as `torn_rings.h` tells. Polygons come out simple, but for spikes as `spikes.h` tells:
// on the plane of degrees, or where they cross themselves there, on their map as `map_topology.h` tells.
//
// Longitudes are relative to the prime meridian of the reference, whichever that is.
#pragma once

#include <memory>
#include <vector>

#include "geodesy/longitude_continuation.h"
#include "platform/geometry.h"
#include "shapes/map_topology.h"

namespace tessarine::MyGeometricOperations {

/// The geographic reference of a geographic or projected one, in decimal degrees; null for any other.
[[nodiscard]] std::shared_ptr<const GeographicCoordinateSystem> DegreesOf(const SpatialReferenceRef& reference);

/// What became of a shape on its way.
struct ShapeInDegrees {
  /// Rings jump over the edge of their map by more than 180 degrees of longitude at once: they were taken the short
  /// way.
  bool jumps_over_edge = false;
  std::vector<geodesy::Seam> seams;  ///< what rings round a pole, or round the globe, were added to close on the plane
  /// Of the rings of a polygon that is simple on its map alone; empty otherwise. Such a polygon counts as simple, and
  /// its exterior rings run clockwise on the globe, whatever the plane of degrees shows.
  std::vector<RingRole> roles;
};

/// Brings the shape to longitude and latitude in decimal degrees, in place, and gives it that reference. A shape that
/// is there already keeps its bits; a polygon comes out of a projection simple, with its spikes. Curves become lines
/// where coordinates change. Fault 91 for a reference that is neither geographic nor projected, and the engine's fault
/// for a vertex that the projection can't take back.
///
ShapeInDegrees BringToDegrees(IGeometry& shape);

/// A position of a layer in degrees, and one in degrees brought to the coordinates of a layer, whose reference is
/// geographic or projected.
[[nodiscard]] XY ToDegrees(XY position, const SpatialReferenceRef& layer);
[[nodiscard]] XY FromDegrees(XY position, const SpatialReferenceRef& layer);

}  // namespace tessarine::MyGeometricOperations
