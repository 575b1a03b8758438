// SPDX-License-Identifier: MIT
// Positions on a sphere or spheroid to Earth-centred Cartesian coordinates and back, and the mean of three places.
//
// The Z axis runs through the north pole, the X axis through longitude 0, the Y axis through longitude 90 east.
//
//   position               degrees; the longitude always stands first
//   x, y, z                in the unit of the radius or of the semi-axes
//   height                 above the spheroid along its normal
//
// All formulae work with the colatitude, 90 minus the latitude. Longitudes go in with any number of turns and come
// out in [-180, 180], the 180 degree meridian as -180 or 180 by the sign of the small remainder in Y, and as 180 for a
// Y of 0. The north pole has an X and Y of 0 and comes back with longitude 0. At the south pole the cut pi leaves a
// remainder of 3e-15 of the radius in them, so that its longitude survives. The centre of the body has the longitude 0
// and the latitude 90.
//
// Faults: 11 for a major axis of 0, 6 for an overflow, 5 or 6 for an argument that is no finite number. Each costs up
// to four trigonometric functions or arcs of them.
//
// Forth and back a latitude returns within 3e-13 degrees, on the sphere and, at height 0, on the Earth's spheroid,
// since one step of Bowring's formula is exact on the surface itself.
//
// Source of the formula for the latitude: B. R. Bowring, Transformation from spatial to geographical coordinates,
// Survey Review 23 (181), 323-327 (1976), one closed step without iteration.
#pragma once

#include "geodesy/figure.h"

namespace tessarine::geodesy {

struct Cartesian {
  double x, y, z;
};

/// From the sphere; by default the unit sphere.
[[nodiscard]] Cartesian FromSphere(LonLat position, double radius = 1.0);

/// From the spheroid, at a height above it.
[[nodiscard]] Cartesian FromSpheroid(LonLat position, const Figure& figure, double height = 0.0);

/// To the sphere through the place, which need not lie on any particular sphere.
[[nodiscard]] LonLat ToSphere(const Cartesian& place);

/// To the latitude of the spheroid's normal through the place, which may lie on, above or below the surface. Away from
/// the surface the single step loses accuracy: on the Earth 7e-12 degrees at 9 km above, 3e-8 at 640 km above, 2e-7 at
/// 1,000 km below and 5e-6 at 3,000 km below. Only on the southern half of the axis itself, with X and Y of exactly 0,
/// the angle runs past the pole and the latitude reads 270.
[[nodiscard]] LonLat ToSpheroid(const Cartesian& place, const Figure& figure);

/// The plain mean, coordinate by coordinate. It lies below the surface that the three lie on and is not brought back to
/// it.
[[nodiscard]] Cartesian MeanOf(const Cartesian& first, const Cartesian& second, const Cartesian& third);

}  // namespace tessarine::geodesy
