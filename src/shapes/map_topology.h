// SPDX-License-Identifier: GPL-2.0-or-later
// Which rings of a projected polygon are exterior ones, and whether they cross, as its map has it.
//
// A straight side of a map is a curve on the plane of longitude and latitude, and the other way round. A vertex in the
// middle of a long narrow strip may lie across the strip there, and three places on one parallel near a pole lie on a
// line. The plane of degrees can tell neither what crosses nor what is inside; the map can, and the measures of the
// globe need nothing else: the area of a ring by geodesics, or by triangles on the sphere, minds no crossing on a
// plane.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/geometry.h"

namespace tessarine::MyGeometricOperations {

enum class RingRole : std::uint8_t { Exterior, Hole };

/// What each ring of a simple polygon is.
[[nodiscard]] std::vector<RingRole> RolesOf(const Polygon& polygon);

/// True where a map shows the globe as in a mirror, as one whose coordinates count westward: its rings run the other
/// way in degrees. `map` bears a projected reference and isn't empty. The last reference of a thread is remembered.
[[nodiscard]] bool IsMirrored(const Polygon& map);

/// True when the plane of degrees shows a ring as something else than its role, or its centre of gravity outside of it
/// all: then nothing is to be taken from that plane.
[[nodiscard]] bool PlaneMisleads(const Polygon& degrees, const std::vector<RingRole>& roles);

struct AreaOnSphere {
  double area;  ///< above 0 where exterior rings run clockwise, in the square of the axes' unit
  XY centroid;  ///< of the surface, in degrees; -9999 both for an area that isn't above 0
};

/// The spherical area of rings that run as they must on the globe, without any look at the plane of degrees: each ring
/// is the sum of triangles with the mean of its own vertices. On the sphere of the spheroid's volume. Faults as
/// `SphericalPolygonArea2`; linear.
[[nodiscard]] AreaOnSphere SphericalAreaOfRings(const Polygon& degrees, double semi_major, double semi_minor);

}  // namespace tessarine::MyGeometricOperations
