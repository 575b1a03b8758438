// SPDX-License-Identifier: GPL-2.0-or-later
// Shapes on their way from a layer's coordinates to what the geodesic routines take: longitude and latitude in decimal
// degrees.
//
// A projection is undone vertex by vertex, and every longitude comes back between -180 and 180. What is whole on the
// map may then be torn: a ring over the 180 degree meridian, or one round a pole. So the longitudes of a torn ring are
// carried on, as `longitude_continuation.h` tells, with two things that only the projection knows:
//
//  - A step of more than 180 degrees runs the way that its middle lies on the map. So the frame of a world map stays
//    360 degrees wide, and a step over the edge becomes a short one.
//  - A ring round the globe holds the pole that it holds on the map, whichever way it runs.
//
// Longitudes are relative to the prime meridian of the reference, whichever that is.
#pragma once

#include <memory>

#include "platform/geometry.h"

namespace tessarine::MyGeometricOperations {

/// The geographic reference of a geographic or projected one, in decimal degrees; nothing for any other.
[[nodiscard]] std::shared_ptr<const GeographicCoordinateSystem> DegreesOf(const SpatialReferenceRef& reference);

/// Brings the shape to longitude and latitude in decimal degrees, in place, and gives it that reference. A shape that
/// is there already keeps its bits; a polygon comes out of a projection simple. Curves become lines where coordinates
/// change. Fault 91 for a reference that is neither geographic nor projected, and the engine's fault for a vertex that
/// the projection can't take back.
void BringToDegrees(IGeometry& shape);

/// A position of a layer in degrees, and one in degrees brought to the coordinates of a layer, whose reference is
/// geographic or projected.
[[nodiscard]] XY ToDegrees(XY position, const SpatialReferenceRef& layer);
[[nodiscard]] XY FromDegrees(XY position, const SpatialReferenceRef& layer);

}  // namespace tessarine::MyGeometricOperations
