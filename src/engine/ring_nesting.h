// SPDX-License-Identifier: GPL-2.0-or-later
// Which ring lies in which.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "engine/box_tree.h"
#include "platform/geometry.h"

namespace tessarine::engine {

/// A closed ring that others may lie in. The first searches go along its sides. From then on the sides stand in a tree
/// of boxes, which costs n log n once, and a place costs log n and the sides that a ray from it to the right passes.
class EnclosingRing {
 public:
  explicit EnclosingRing(std::vector<XY> vertices);

  [[nodiscard]] std::span<const XY> Vertices() const { return vertices_; }

  /// True when the other ring lies in this one. Exact for closed rings that may touch each other at places but neither
  /// cross themselves nor each other: places are located by `Turn` alone, and where all of the inner ring's vertices
  /// lie on this one, the side to which its edges leave decides. Of rings that cross, the greater part of the inner
  /// vertices decides. A ring doesn't lie in itself. Looks at three vertices of the inner ring where the two neither
  /// touch nor cross, else at all of them.
  [[nodiscard]] bool Encloses(std::span<const XY> inner);

 private:
  enum class Location : std::uint8_t { Inside, Outside, Boundary };

  [[nodiscard]] Location Locate(XY place);
  /// The hand at which a step from a place on the ring leaves: 1 left, -1 right, 0 along the ring.
  [[nodiscard]] int HandOfStep(XY place, XY step);
  /// Of a ring whose vertices all lie on this one.
  [[nodiscard]] bool HoldsStepsOf(std::span<const XY> inner);
  /// Calls `visit(number)` for the sides whose boxes meet this one, in their order, until it returns false.
  template <class Visit>
  void EachSide(const Box& box, Visit&& visit);

  std::vector<XY> vertices_;
  int searches_ = 0;
  std::optional<BoxTree> tree_;
  std::vector<std::uint32_t> met_;
};

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
/// Each ring looks for the smallest around it among those whose boxes hold its first vertex, from the smallest on: n
/// log n in the vertices, and, of rings one within the other, the square of how deep they lie.
[[nodiscard]] NestedRings NestRings(const std::vector<const Path*>& rings);

}  // namespace tessarine::engine
