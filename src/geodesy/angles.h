// SPDX-License-Identifier: GPL-2.0-or-later
// Degrees and radians, an arc tangent of two arguments, and the planar bearing.
//
// The lowest layer of the geodesy core. Every result above it inherits two properties from here:
//
//  - pi is the decimal 3.14159265358979, cut after 15 significant digits and not rounded to the nearest double. It is
//    3.1e-15 below the true value, a relative 1e-15. So no conversion reaches a pole or the 180 degree meridian
//    exactly: the tangent of 90 degrees is a large finite number and the sine of 180 degrees is 3.2e-15. A length of
//    10,000 km comes out about 10 nanometres short for it.
//  - The order of multiplication and division is fixed. `DegToRad` multiplies first and `AsRadians` divides first;
//    they differ in the last bit for many arguments and must not replace each other.
//
// Arguments are any finite doubles, of any number of turns; nothing is reduced to a range unless a routine says so. An
// infinity, a not-a-number or an overflow is a fault: it is reported under the routine's name and the routine answers
// 0.
#pragma once

#include "platform/geometry.h"

namespace tessarine::MyGeometricOperations {

// The literals of the module, each the double that its decimal text gives.

/// pi, cut after 15 significant digits: 400921FB54442D11.
inline constexpr double kPi = 3.14159265358979;
/// Two pi, cut the same way: 401921FB54442D11. It is the seed of the iterations and closes the circle for azimuths.
inline constexpr double kTwoPi = 6.28318530717958;
/// The answer for a bearing or centroid that doesn't exist.
inline constexpr double kNoValue = -9999.0;
/// Angles in radians and coordinates in degrees closer than this count as equal.
inline constexpr double kTolerance = 1e-12;

/// x radians in degrees, as (x 180) / pi.
[[nodiscard]] double RadToDeg(double x);
/// x degrees in radians, as (x pi) / 180. For Vincenty's formulae, Cartesian coordinates and areas.
[[nodiscard]] double DegToRad(double x);
/// x degrees in radians, as (x / 180) pi. For planetary latitudes and the planar bearing.
[[nodiscard]] double AsRadians(double x);
/// x radians in degrees, as (x 180) / pi.
[[nodiscard]] double AsDegrees(double x);

/// The angle of the vector (x, y) from the positive x axis, counter-clockwise, in radians in [-pi, pi].
///
/// It is not the library's: it is built on the arc tangent of one argument, and
///  - the negative x axis is +pi for a y of either zero, never -pi;
///  - the vector of length zero has the angle 0, without a fault;
///  - y / x must not overflow: `atan2(1e308, 1e-308)` is a fault, not a right angle. Underflow is none.
///
/// Exact to the rounding of one division and one arc tangent, besides the cut pi.
[[nodiscard]] double atan2(double y, double x);

/// The bearing from the first point to the second on the plane of their raw coordinates: degrees clockwise from the
/// positive y axis in [0, 360). It knows no spheroid, so on longitudes and latitudes it is no azimuth.
///
/// Coincident points, by exact comparison, have no bearing: -9999. Along an axis the result is exactly 0, 90, 180 or
/// 270. A difference of coordinates that overflows is a fault and gives 0. Just west of north the sum with 360 may
/// round up to 360 itself.
[[nodiscard]] double CalcBearing2(XY p1, XY p2);
/// The same of point objects. An empty point is a fault: 0.
[[nodiscard]] double CalcBearing2(const Point& p1, const Point& p2);

}  // namespace tessarine::MyGeometricOperations
