// SPDX-License-Identifier: GPL-2.0-or-later
// Which ring lies in which.
#pragma once

#include <span>
#include <vector>

#include "platform/geometry.h"

namespace tessarine::engine {

/// True when a ring lies in another. Exact for closed rings that may touch each other at places but neither cross
/// themselves nor each other: places are located by `Turn` alone, and where all of the inner ring's vertices lie on
/// the outer one, the side to which its edges leave decides. Of rings that cross, the greater part of the inner
/// vertices decides. A ring doesn't lie in itself. Costs the product of the vertex counts only where rings touch or
/// cross, their sum otherwise.
[[nodiscard]] bool LiesWithin(std::span<const XY> inner, std::span<const XY> outer);

/// The sense of a closed simple ring. Sure also for slivers, where the sign of a sum of areas isn't.
[[nodiscard]] bool RunsCounterClockwise(std::span<const XY> ring);

/// Rings by even-odd nesting, whichever way they run.
struct NestedRings {
  struct Shell {
    const Path* ring;
    std::vector<const Path*> holes;
  };
  std::vector<Shell> shells;
};
[[nodiscard]] NestedRings NestRings(const std::vector<const Path*>& rings);

}  // namespace tessarine::engine
