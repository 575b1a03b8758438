// SPDX-License-Identifier: GPL-2.0-or-later
// How the geodesic routines read a point object.
#pragma once

#include "platform/fault.h"
#include "platform/geometry.h"

namespace tessarine::MyGeometricOperations {

/// The coordinates of a point. An empty point has none and raises fault 5, so that nothing is measured from 0, 0.
[[nodiscard]] inline XY CoordinatesOf(const Point& point) {
  if (point.IsEmpty()) Raise(kInvalidCall, "The point is empty and has no coordinates.");
  return point.Coordinates();
}

}  // namespace tessarine::MyGeometricOperations
