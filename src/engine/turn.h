// SPDX-License-Identifier: GPL-2.0-or-later
// On which side of a line a place lies.
#pragma once

#include <cmath>

#include "engine/geos_bridge.h"

namespace tessarine::engine {

/// 1 when `place` lies left of the line from `from` to `to`, -1 when right of it, 0 when on it. Sure also where plain
/// arithmetic isn't: within the bound of its rounding, GEOS's predicate of double precision twice over decides.
/// The bound is that of J. R. Shewchuk, "Adaptive Precision Floating-Point Arithmetic and Fast Robust Geometric
/// Predicates", Discrete & Computational Geometry 18 (1997).
[[nodiscard]] inline int Turn(XY from, XY to, XY place) {
  constexpr double kBound = 3.3306690738754716e-16;  // (3 + 16 e) e, e being half the spacing of doubles at 1
  const double left = (from.x - place.x) * (to.y - place.y), right = (from.y - place.y) * (to.x - place.x);
  const double twice_area = left - right, bound = kBound * (std::fabs(left) + std::fabs(right));
  if (twice_area > bound) return 1;
  if (twice_area < -bound) return -1;
  // Level or upright on one line, or at the place itself.
  if (bound == 0.0) return 0;
  return GEOSOrientationIndex_r(Geos(), from.x, from.y, to.x, to.y, place.x, place.y);
}

}  // namespace tessarine::engine
