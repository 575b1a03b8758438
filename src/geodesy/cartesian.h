// SPDX-License-Identifier: GPL-2.0-or-later
// Positions on a sphere or spheroid to Earth-centred Cartesian coordinates and back, and the mean of three places.
//
// The Z axis runs through the north pole, the X axis through longitude 0, the Y axis through longitude 90 east.
//
//   Lon, Lat               degrees; the longitude always stands first
//   X, Y, Z                in the unit of the radius or of the semi-axes
//   SemiMajor a, SemiMinor b   semi-axes of the spheroid, a > 0; equal axes make a sphere
//   Height h               above the spheroid along its normal
//
// All formulae work with the colatitude, 90 minus the latitude. Longitudes go in with any number of turns and come
// out in [-180, 180], the 180 degree meridian as -180 or 180 by the sign of the small remainder in Y, and as 180 for a
// Y of 0. The north pole has an X and Y of 0 and comes back with longitude 0. At the south pole the cut pi leaves a
// remainder of 3e-15 of the radius in them, so that its longitude survives. The centre of the body has the longitude 0
// and the latitude 90.
//
// Each routine reports a fault under its own name and then leaves its out arguments as they were: an axis of 0, an
// overflow, an argument that is no finite number.
//
// Forth and back a latitude returns within 3e-13 degrees, on the sphere and, at height 0, on the Earth's spheroid,
// since one step of Bowring's formula is exact on the surface itself.
//
// Source of the formula for the latitude: B. R. Bowring, Transformation from spatial to geographical coordinates,
// Survey Review 23 (181), 323-327 (1976), one closed step without iteration.
#pragma once

namespace tessarine::MyGeometricOperations {

/// From the sphere. The radius may be of any number type; by default the sphere is the unit sphere.
void SphericalLatLongToCart(double lon, double lat, double& x, double& y, double& z, double radius = 1.0);

/// From the spheroid, at a height above it.
void SpheroidalLatLongToCart(double lon, double lat, double& x, double& y, double& z, double semi_major,
                             double semi_minor, double height);

/// To the sphere through the place; the distance from the centre is not answered. The place need not lie on any
/// particular sphere.
void SphericalCartToLatLong(double& lon, double& lat, double x, double y, double z);

/// To the latitude of the spheroid's normal through the place, which may lie on, above or below the surface. The
/// height is read by nothing: it stands there to match the way forth, and none is answered. Away from the surface the
/// single step loses accuracy: on the Earth 7e-12 degrees at 9 km above, 3e-8 at 640 km above, 2e-7 at 1,000 km below
/// and 5e-6 at 3,000 km below. Only on the southern half of the axis itself, with X and Y of exactly 0, the angle runs
/// past the pole and the latitude reads 270.
void SpheroidalCartToLatLong(double& lon, double& lat, double x, double y, double z, double semi_major,
                             double semi_minor, double height);

/// The plain mean of three places, coordinate by coordinate. It lies below the surface that the three lie on and is
/// not brought back to it.
void TriangleCentroid3D(double x1, double y1, double z1, double x2, double y2, double z2, double x3, double y3,
                        double z3, double& cx, double& cy, double& cz);

}  // namespace tessarine::MyGeometricOperations
