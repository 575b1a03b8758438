// SPDX-License-Identifier: GPL-2.0-or-later
// What the single triangle and the sum over a ring share: the fixed axes, the last step of a side, and two decisions
// about a triangle.
#pragma once

#include "geodesy/angles.h"
#include "geodesy/small_angles.h"
#include "platform/geometry_types.h"

namespace tessarine::MyGeometricOperations::detail {

inline constexpr double kWgs1984SemiMajor = 6378137.0;
inline constexpr double kWgs1984SemiMinor = 6356752.31424518;

/// Half a side: `atan2` of the roots of the haversine and of what it lacks to 1, neither below 0.
[[nodiscard]] inline double HalfSide(double sine, double cosine) {
  if (cosine == 0.0) return sine == 0.0 ? 0.0 : kPi / 2.0;
  return ArcTangent(sine / cosine);
}

/// True for corners on one meridian, and for two that coincide, both within 1e-12 degrees.
[[nodiscard]] bool HasNoArea(XY p1, XY p2, XY p3);

/// +1 when the corners run clockwise as seen from above, else -1: by the azimuths from the first corner to the second
/// and to the third.
[[nodiscard]] double SignOfTurn(XY p1, XY p2, XY p3);

}  // namespace tessarine::MyGeometricOperations::detail
