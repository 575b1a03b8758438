// SPDX-License-Identifier: GPL-2.0-or-later
// Positions on a sphere or spheroid to Earth-centred Cartesian coordinates and back, and the mean of three places, as
// `geodesy/cartesian.h` tells.
//
// Each routine reports a fault under its own name and then leaves its out arguments as they were: an axis of 0, an
// overflow, an argument that is no finite number.
#pragma once

namespace tessarine::MyGeometricOperations {

/// From the sphere. The radius may be of any number type; by default the sphere is the unit sphere.
void SphericalLatLongToCart(double lon, double lat, double& x, double& y, double& z, double radius = 1.0);

/// From the spheroid, at a height above it.
void SpheroidalLatLongToCart(double lon, double lat, double& x, double& y, double& z, double semi_major,
                             double semi_minor, double height);

/// To the sphere through the place.
void SphericalCartToLatLong(double& lon, double& lat, double x, double y, double z);

/// To the latitude of the spheroid's normal through the place. The height matches the way forth and makes no
/// difference; none is returned.
void SpheroidalCartToLatLong(double& lon, double& lat, double x, double y, double z, double semi_major,
                             double semi_minor, double height);

/// The plain mean of three places, coordinate by coordinate.
void TriangleCentroid3D(double x1, double y1, double z1, double x2, double y2, double z2, double x3, double y3,
                        double z3, double& cx, double& cy, double& cz);

}  // namespace tessarine::MyGeometricOperations
