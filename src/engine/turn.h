// SPDX-License-Identifier: GPL-2.0-or-later
// On which side of a line a place lies.
#pragma once

#include <cmath>

#include "engine/geos_bridge.h"

namespace tessarine::engine {

/// Twice the area of the triangle from `from` to `to` and `place`, above 0 where that lies left of the line, and how
/// far it may be off. The bound is that of J. R. Shewchuk, "Adaptive Precision Floating-Point Arithmetic and Fast
/// Robust Geometric Predicates", Discrete & Computational Geometry 18 (1997).
struct RoundedTurn {
  double twice_area, bound;

  RoundedTurn(XY from, XY to, XY place) {
    constexpr double kBound = 3.3306690738754716e-16;  // (3 + 16 e) e, e being half the spacing of doubles at 1
    const double left = (from.x - place.x) * (to.y - place.y), right = (from.y - place.y) * (to.x - place.x);
    twice_area = left - right;
    bound = kBound * (std::fabs(left) + std::fabs(right));
  }
  /// 1 left, -1 right, 0 where the rounding leaves it open.
  [[nodiscard]] int Way() const {
    if (twice_area > bound) return 1;
    return twice_area < -bound ? -1 : 0;
  }
};

/// 1 when `place` lies left of the line from `from` to `to`, -1 when right of it, 0 when on it. Sure also where plain
/// arithmetic isn't: within the bound of its rounding, GEOS's predicate of double precision twice over decides.
[[nodiscard]] inline int Turn(XY from, XY to, XY place) {
  const RoundedTurn turn(from, to, place);
  if (turn.Way() != 0) return turn.Way();
  // Level or upright on one line, or at the place itself.
  if (turn.bound == 0.0) return 0;
  return GEOSOrientationIndex_r(Geos(), from.x, from.y, to.x, to.y, place.x, place.y);
}

}  // namespace tessarine::engine
