// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/angles.h"

#include "platform/trap.h"
#include "shapes/positions.h"

namespace tessarine::MyGeometricOperations {

double RadToDeg(double x) {
  return TrapHelper("RadToDeg", [&] { return geodesy::ToDegrees(x); });
}

double DegToRad(double x) {
  return TrapHelper("DegToRad", [&] { return geodesy::ToRadians(x); });
}

double AsRadians(double x) {
  return TrapHelper("AsRadians", [&] { return geodesy::ToRadiansDividedFirst(x); });
}

double AsDegrees(double x) {
  return TrapHelper("AsDegrees", [&] { return geodesy::ToDegrees(x); });
}

double atan2(double y, double x) {
  return TrapHelper("atan2", [&] { return geodesy::AngleOf(y, x); });
}

double CalcBearing2(XY p1, XY p2) {
  return TrapHelper("CalcBearing2", [&] { return geodesy::PlanarBearing(p1, p2).value_or(kNoValue); });
}

double CalcBearing2(const Point& p1, const Point& p2) {
  return TrapHelper("CalcBearing2", [&] { return CalcBearing2(CoordinatesOf(p1), CoordinatesOf(p2)); });
}

}  // namespace tessarine::MyGeometricOperations
