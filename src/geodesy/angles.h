// SPDX-License-Identifier: MIT
// Degrees and radians, an arc tangent of two arguments, and the planar bearing.
//
// The lowest layer of the library. Every result above it inherits two properties from here:
//
//  - pi is the decimal 3.14159265358979, cut after 15 significant digits and not rounded to the nearest double. It is
//    3.1e-15 below the true value, a relative 1e-15. So no conversion reaches a pole or the 180 degree meridian
//    exactly: the tangent of 90 degrees is a large finite number and the sine of 180 degrees is 3.2e-15. A length of
//    10,000 km comes out about 10 nanometres short for it.
//  - The order of multiplication and division is fixed. `ToRadians` multiplies first and `ToRadiansDividedFirst`
//    divides first; they differ in the last bit for many arguments and must not replace each other.
//
// Arguments are any finite doubles, of any number of turns; nothing is reduced to a range unless a routine says so. An
// infinity, a not-a-number or an overflow is fault 5 or 6 (`checked_arithmetic.h`). Each costs a few operations.
#pragma once

#include <cmath>
#include <optional>

#include "geodesy/checked_arithmetic.h"
#include "geodesy/figure.h"

namespace tessarine::geodesy {

/// pi, cut after 15 significant digits: 400921FB54442D11.
inline constexpr double kPi = 3.14159265358979;
/// Two pi, cut the same way: 401921FB54442D11. It is the seed of the iterations and closes the circle for azimuths.
inline constexpr double kTwoPi = 6.28318530717958;
/// Angles in radians and coordinates in degrees closer than this count as equal.
inline constexpr double kTolerance = 1e-12;

/// x degrees in radians, as (x pi) / 180. For Vincenty's formulae, Cartesian coordinates and areas.
[[nodiscard]] inline double ToRadians(double degrees) { return checked::Finite(degrees * kPi / 180.0); }
/// x degrees in radians, as (x / 180) pi. For planetary latitudes and the planar bearing.
[[nodiscard]] inline double ToRadiansDividedFirst(double degrees) { return checked::Finite(degrees / 180.0 * kPi); }
/// x radians in degrees, as (x 180) / pi.
[[nodiscard]] inline double ToDegrees(double radians) { return checked::Finite(radians * 180.0 / kPi); }

/// The angle of the vector (x, y) from the positive x axis, counter-clockwise, in radians in [-pi, pi].
///
/// It is not the library's: it is built on the arc tangent of one argument, and
///  - the negative x axis is +pi for a y of either zero, never -pi;
///  - the vector of length zero has the angle 0, without a fault;
///  - y / x must not overflow: that of (1e-308, 1e308) is a fault, not a right angle. Underflow is none.
///
/// Exact to the rounding of one division and one arc tangent, besides the cut pi.
[[nodiscard]] double AngleOf(double y, double x);

/// The bearing from the first point to the second on the plane of their raw coordinates: degrees clockwise from the
/// positive y axis in [0, 360). It knows no spheroid, so on longitudes and latitudes it is no azimuth.
///
/// Coincident points, by exact comparison, have none. Along an axis the result is exactly 0, 90, 180 or 270. A
/// difference of coordinates that overflows is a fault. Just west of north the sum with 360 may round up to 360 itself.
[[nodiscard]] std::optional<double> PlanarBearing(XY from, XY to);

namespace detail {

/// `ToRadians` without the check: for what is checked further on.
[[nodiscard]] inline double Radians(double degrees) { return degrees * kPi / 180.0; }

[[nodiscard]] inline double SignOf(double value) { return value > 0.0 ? 1.0 : value < 0.0 ? -1.0 : 0.0; }

template <class Arithmetic>
[[nodiscard]] double AngleOf(double y, double x, Arithmetic& arithmetic) {
  if (x > 0.0) return std::atan(arithmetic.Quotient(y, x));
  if (x < 0.0) {
    const double angle = kPi - std::atan(std::fabs(arithmetic.Quotient(y, x)));
    return y == 0.0 ? angle : angle * SignOf(y);
  }
  if (arithmetic.Finite(x) == 0.0 && y == 0.0) return 0.0;
  return SignOf(arithmetic.Finite(y)) * kPi / 2.0;
}

}  // namespace detail
}  // namespace tessarine::geodesy
