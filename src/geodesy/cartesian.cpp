// SPDX-License-Identifier: MIT
#include "geodesy/cartesian.h"

#include <cmath>

#include "geodesy/angles.h"

namespace tessarine::geodesy {
namespace {

using checked::Divide;
using checked::Finite;
using checked::Power;
using checked::Root;

Cartesian Checked(const Cartesian& place) { return {Finite(place.x), Finite(place.y), Finite(place.z)}; }

double SquaredEccentricity(double a, double b) { return Divide(a * a - b * b, a * a); }

}  // namespace

Cartesian FromSphere(LonLat position, double radius) {
  const double theta = ToRadians(90.0 - position.y);
  const double phi = ToRadians(position.x);
  const double sin_theta = std::sin(theta);
  return Checked({radius * sin_theta * std::cos(phi), radius * sin_theta * std::sin(phi), radius * std::cos(theta)});
}

Cartesian FromSpheroid(LonLat position, const Figure& figure, double height) {
  const double theta = ToRadians(90.0 - position.y);
  const double phi = ToRadians(position.x);
  const double sin_theta = std::sin(theta);
  const double cos_theta = std::cos(theta);
  const double e2 = SquaredEccentricity(figure.semi_major, figure.semi_minor);
  const double n = Divide(figure.semi_major, Root(1.0 - cos_theta * cos_theta * e2));
  return Checked({(n + height) * sin_theta * std::cos(phi), (n + height) * sin_theta * std::sin(phi),
                  ((1.0 - e2) * n + height) * cos_theta});
}

LonLat ToSphere(const Cartesian& place) {
  const double r = Root(place.x * place.x + place.y * place.y);
  const double longitude = ToDegrees(AngleOf(place.y, place.x));
  return {longitude, 90.0 - ToDegrees(AngleOf(r, place.z))};
}

LonLat ToSpheroid(const Cartesian& place, const Figure& figure) {
  const double a = figure.semi_major, b = figure.semi_minor;
  const double p = Root(place.x * place.x + place.y * place.y);
  const double t = AngleOf(Finite(place.z * a), Finite(p * b));
  const double e2 = SquaredEccentricity(a, b);
  const double ep2 = Divide(e2, 1.0 - e2);
  const double numerator = Finite(place.z + ep2 * b * Power(std::sin(t), 3.0));
  const double denominator = Finite(p - e2 * a * Power(std::cos(t), 3.0));
  // The angle from the pole, so the distance from the axis stands in the place of y.
  const double colatitude = AngleOf(denominator, numerator);
  return {ToDegrees(AngleOf(place.y, place.x)), 90.0 - ToDegrees(colatitude)};
}

Cartesian MeanOf(const Cartesian& first, const Cartesian& second, const Cartesian& third) {
  return Checked({(first.x + second.x + third.x) / 3.0, (first.y + second.y + third.y) / 3.0,
                  (first.z + second.z + third.z) / 3.0});
}

}  // namespace tessarine::geodesy
