// SPDX-License-Identifier: GPL-2.0-or-later
// Whether a ring meets itself, told by a line that passes over it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>

#include "engine/turn.h"
#include "platform/geometry_types.h"

namespace tessarine::engine {

/// A side of a ring between two vertices that differ.
struct RingSide {
  XY from, to;
  std::size_t index;  ///< in the ring
};

/// Whether two sides share a place, for sides that share an x: ends count.
[[nodiscard]] inline bool SidesTouch(const RingSide& first, const RingSide& second) {
  if (std::max(first.from.y, first.to.y) < std::min(second.from.y, second.to.y)) return false;
  if (std::max(second.from.y, second.to.y) < std::min(first.from.y, first.to.y)) return false;
  if (Turn(first.from, first.to, second.from) * Turn(first.from, first.to, second.to) > 0) return false;
  return Turn(second.from, second.to, first.from) * Turn(second.from, second.to, first.to) <= 0;
}

namespace detail {
// Neighbours share a vertex; more only when the second runs back on the first.
inline bool FoldsBack(XY before, XY shared, XY after) {
  const double along = (before.x - shared.x) * (after.x - shared.x) + (before.y - shared.y) * (after.y - shared.y);
  return along > 0.0 && Turn(before, shared, after) == 0;
}
}  // namespace detail

/// Whether two sides of a ring of `count` sides share more than the vertex between neighbours.
[[nodiscard]] inline bool SidesMeet(const RingSide& first, const RingSide& second, std::size_t count) {
  const auto next = [count](std::size_t index) { return index + 1 == count ? 0 : index + 1; };
  if (next(first.index) == second.index) return detail::FoldsBack(first.from, first.to, second.to);
  if (next(second.index) == first.index) return detail::FoldsBack(second.from, second.to, first.to);
  return SidesTouch(first, second);
}

/// Whether any two sides of a closed ring do. The ring has at least three sides, none without length. Sure by `Turn`
/// alone, and costs n log n, whatever the shape; but small rings are told faster by comparing their sides. This is the
/// sweep of M. I. Shamos and D. Hoey, "Geometric intersection problems", 17th Annual Symposium on Foundations of
/// Computer Science (1976), which ends at the first meeting.
[[nodiscard]] bool MeetsItself(std::span<const XY> ring);

}  // namespace tessarine::engine
