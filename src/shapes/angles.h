// SPDX-License-Identifier: GPL-2.0-or-later
// Degrees and radians, an arc tangent of two arguments, and the planar bearing, as `geodesy/angles.h` tells.
//
// Arguments are any finite doubles. An infinity, a not-a-number or an overflow is a fault: it is reported under the
// routine's name and the routine returns 0.
#pragma once

#include "geodesy/angles.h"
#include "platform/geometry.h"

namespace tessarine::MyGeometricOperations {

using geodesy::kPi;
using geodesy::kTolerance;
using geodesy::kTwoPi;
/// What stands for a bearing or centroid that doesn't exist.
inline constexpr double kNoValue = -9999.0;

/// x radians in degrees, as (x 180) / pi.
[[nodiscard]] double RadToDeg(double x);
/// x degrees in radians, as (x pi) / 180. For Vincenty's formulae, Cartesian coordinates and areas.
[[nodiscard]] double DegToRad(double x);
/// x degrees in radians, as (x / 180) pi. For planetary latitudes and the planar bearing.
[[nodiscard]] double AsRadians(double x);
/// x radians in degrees, as (x 180) / pi.
[[nodiscard]] double AsDegrees(double x);

/// The angle of the vector (x, y), as `geodesy::AngleOf`.
[[nodiscard]] double atan2(double y, double x);

/// The bearing from the first point to the second on the plane, as `geodesy::PlanarBearing`; -9999 for coincident ones.
[[nodiscard]] double CalcBearing2(XY p1, XY p2);
/// The same of point objects. An empty point is a fault: 0.
[[nodiscard]] double CalcBearing2(const Point& p1, const Point& p2);

}  // namespace tessarine::MyGeometricOperations
