// SPDX-License-Identifier: MIT
#include "geodesy/spherical_triangle.h"

#include <cmath>

#include "geodesy/triangle_lanes.h"

namespace tessarine::geodesy {

SignedArea TriangleArea(LonLat p1, LonLat p2, LonLat p3, const Figure& figure) {
  if (detail::HasNoArea(p1, p2, p3)) return {};
  const double squared_radius = detail::SquaredRadius<CheckedArithmetic>(figure);
  const double phi1 = ToRadians(p1.y), phi2 = ToRadians(p2.y), phi3 = ToRadians(p3.y);
  const double cos1 = std::cos(phi1), cos2 = std::cos(phi2), cos3 = std::cos(phi3);
  const detail::Lanes<3> sides = detail::Sides<CheckedArithmetic, 3>(
      {ToRadians(p1.x - p2.x) / 2.0, ToRadians(p2.x - p3.x) / 2.0, ToRadians(p3.x - p1.x) / 2.0},
      {(phi1 - phi2) / 2.0, (phi2 - phi3) / 2.0, (phi3 - phi1) / 2.0}, {cos1 * cos2, cos2 * cos3, cos3 * cos1});
  const double turn = detail::SignOfTurn(p1, p2, p3);
  const auto side = [&](std::size_t index) { return std::span<const double, 1>(&sides[index], 1); };
  const double excess = detail::Excesses<CheckedArithmetic, 1>(side(0), side(1), side(2)).front();
  return {checked::Finite(squared_radius * excess * turn), turn};
}

namespace detail {

bool HasNoArea(LonLat p1, LonLat p2, LonLat p3) {
  const auto equal = [](double first, double second) { return std::fabs(first - second) < kTolerance; };
  const auto coincide = [&](LonLat first, LonLat second) {
    return equal(first.x, second.x) && equal(first.y, second.y);
  };
  return (equal(p1.x, p2.x) && equal(p1.x, p3.x)) || coincide(p1, p2) || coincide(p1, p3) || coincide(p2, p3);
}

double SignOfTurn(LonLat p1, LonLat p2, LonLat p3) {
  const double phi1 = ToRadians(p1.y);
  const auto azimuth_to = [&](LonLat target) {
    const double phi = ToRadians(target.y);
    const double d_lambda = ToRadians(target.x - p1.x);
    const double azimuth =
        geodesy::AngleOf(std::cos(phi) * std::sin(d_lambda),
                         std::cos(phi1) * std::sin(phi) - std::sin(phi1) * std::cos(phi) * std::cos(d_lambda));
    return azimuth < 0.0 ? azimuth + kTwoPi : azimuth;
  };
  const double a12 = azimuth_to(p2);
  const double d = azimuth_to(p3) - a12;
  if (d <= 0.0) return std::fabs(d) <= kPi ? -1.0 : 1.0;
  return d <= kPi ? 1.0 : -1.0;
}

}  // namespace detail
}  // namespace tessarine::geodesy
