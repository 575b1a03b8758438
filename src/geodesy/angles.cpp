// SPDX-License-Identifier: MIT
#include "geodesy/angles.h"

namespace tessarine::geodesy {

double AngleOf(double y, double x) {
  CheckedArithmetic arithmetic;
  return detail::AngleOf(y, x, arithmetic);
}

// The differences run from the second point back to the first, and the half turn below sets that right.
std::optional<double> PlanarBearing(XY from, XY to) {
  const double dx = checked::Finite(from.x - to.x);
  const double dy = checked::Finite(from.y - to.y);
  if (dx == 0.0 && dy == 0.0) return std::nullopt;
  const double angle = dy == 0.0 ? detail::SignOf(dx) * 90.0 : ToDegrees(std::atan(checked::Divide(dx, dy)));
  if (dy >= 0.0) return std::fabs(angle + 180.0);
  return std::fabs(dx <= 0.0 ? angle : angle + 360.0);
}

}  // namespace tessarine::geodesy
