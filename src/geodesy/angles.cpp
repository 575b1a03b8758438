// SPDX-License-Identifier: GPL-2.0-or-later
#include "geodesy/angles.h"

#include <cmath>

#include "geodesy/checked_arithmetic.h"
#include "geodesy/positions.h"
#include "platform/trap.h"

namespace tessarine::MyGeometricOperations {
namespace {

using checked::Divide;
using checked::Finite;

double Sgn(double value) { return value > 0.0 ? 1.0 : value < 0.0 ? -1.0 : 0.0; }

double AngleOf(double y, double x) {
  if (x > 0.0) return std::atan(Divide(y, x));
  if (x < 0.0 && y == 0.0) return kPi - std::atan(std::fabs(Divide(y, x)));
  if (x < 0.0) return (kPi - std::atan(std::fabs(Divide(y, x)))) * Sgn(y);
  if (Finite(x) == 0.0 && y == 0.0) return 0.0;
  return Sgn(Finite(y)) * kPi / 2.0;
}

// The differences run from the second point back to the first, and the half turn below sets that right.
double BearingOf(XY p1, XY p2) {
  const double dx = Finite(p1.x - p2.x);
  const double dy = Finite(p1.y - p2.y);
  if (dx == 0.0 && dy == 0.0) return kNoValue;
  const double angle = dy == 0.0 ? Sgn(dx) * 90.0 : AsDegrees(std::atan(Divide(dx, dy)));
  if (dy >= 0.0) return std::fabs(angle + 180.0);
  return std::fabs(dx <= 0.0 ? angle : angle + 360.0);
}

}  // namespace

double RadToDeg(double x) {
  return TrapHelper("RadToDeg", [&] { return Finite(x * 180.0 / kPi); });
}

double DegToRad(double x) {
  return TrapHelper("DegToRad", [&] { return Finite(x * kPi / 180.0); });
}

double AsRadians(double x) {
  return TrapHelper("AsRadians", [&] { return Finite(x / 180.0 * kPi); });
}

double AsDegrees(double x) {
  return TrapHelper("AsDegrees", [&] { return Finite(x * 180.0 / kPi); });
}

double atan2(double y, double x) {
  return TrapHelper("atan2", [&] { return AngleOf(y, x); });
}

double CalcBearing2(XY p1, XY p2) {
  return TrapHelper("CalcBearing2", [&] { return BearingOf(p1, p2); });
}

double CalcBearing2(const Point& p1, const Point& p2) {
  return TrapHelper("CalcBearing2", [&] { return BearingOf(CoordinatesOf(p1), CoordinatesOf(p2)); });
}

}  // namespace tessarine::MyGeometricOperations
