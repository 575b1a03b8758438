// SPDX-License-Identifier: MIT
#include "geodesy/latitudes.h"

#include <algorithm>
#include <cmath>

#include "geodesy/angles.h"

namespace tessarine::geodesy {
namespace {

using checked::Divide;
using checked::Finite;
using checked::Tangent;

double SquaredAxisRatio(const Figure& figure) {
  const double ratio = Divide(figure.semi_major, figure.semi_minor);
  return Finite(ratio * ratio);
}

// The arc tangent of a pole comes back a rounding off, and degrees of the cut pi may lie beyond 90. Latitudes on the
// globe stay on it, and the poles are where they are in either system.
double OnGlobe(double from, double converted) {
  constexpr double kPole = 90.0;
  if (std::fabs(from) > kPole) return converted;
  return std::fabs(from) == kPole ? from : std::clamp(converted, -kPole, kPole);
}

}  // namespace

double ToPlanetographic(double latitude, const Figure& figure) {
  const double k = SquaredAxisRatio(figure);
  return OnGlobe(latitude, ToDegrees(std::atan(Finite(k * Tangent(ToRadiansDividedFirst(latitude))))));
}

double ToPlanetocentric(double latitude, const Figure& figure) {
  const double k = SquaredAxisRatio(figure);
  return OnGlobe(latitude, ToDegrees(std::atan(Divide(Tangent(ToRadiansDividedFirst(latitude)), k))));
}

}  // namespace tessarine::geodesy
