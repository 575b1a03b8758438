// SPDX-License-Identifier: GPL-2.0-or-later
// The centre of a multipoint: about the centre of a spheroid, or on the plane.
//
// Which of the two fits is the caller's choice: neither looks at the spatial reference. For longitudes and latitudes
// take the first, which knows that 179 and -179 are neighbours; for planar coordinates the second.
//
//   points                    x, y: longitude and latitude in degrees for the first; any unit for the second
//   SemiMajor, SemiMinor      semi-axes of the spheroid, above 0
//   Height                    the same height of all points above the spheroid; 0 for points on it
//
// Every point counts the same, and a repeated one as often as it stands there.
//
// Errors: no points at all divide by zero, which is reported under the routine's name; the result is a null point, and
// (0, 0) from the forms for bare coordinates.
#pragma once

#include <memory>
#include <span>

#include "platform/geometry.h"

namespace tessarine::MyGeometricOperations {

/// The mean of the points in Earth-centred Cartesian space, brought back to longitude and latitude along the normal of
/// the spheroid; the depth is dropped. Longitude in [-180, 180].
///
/// The mean lies below the surface, and the way back is one step of Bowring's formula, which is exact on the surface
/// only: on the Earth the latitude is off by 1e-10 degrees for two points 10 degrees apart, 1e-9 for 20, 1e-7 for 60
/// and 7e-6 for 120. At a pole the longitude is arbitrary.
///
/// Antipodal points have no centre. From the spheroid's centre itself, the mean of both poles, the step leads to
/// longitude 0 and latitude 180, and on a true sphere to latitude 90; other pairs leave a remainder of the cut pi
/// there, which leads anywhere.
///
/// The new point bears no spatial reference: the caller must set it.
[[nodiscard]] std::shared_ptr<Point> MultipointCentroidSpheroid(const std::shared_ptr<IPointCollection>& multipoint,
                                                                double semi_major, double semi_minor, double height);
[[nodiscard]] XY MultipointCentroidSpheroid(std::span<const XY> points, double semi_major, double semi_minor,
                                            double height);

/// The plain means of x and y. The new point bears the reference of the multipoint.
[[nodiscard]] std::shared_ptr<Point> MultipointCentroid(const std::shared_ptr<IPointCollection>& multipoint);
[[nodiscard]] XY MultipointCentroid(std::span<const XY> points);

}  // namespace tessarine::MyGeometricOperations
