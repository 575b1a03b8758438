// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/ring_nesting.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>

#include "engine/turn.h"

namespace tessarine::engine {
namespace {

bool IsWithinBox(XY from, XY to, XY place) { return Box::Of(from, to).Meets(Box::Of(place)); }

// On which hand of the way `before`, `at`, `after` a step from `at` leaves: 1 left, -1 right, 0 along the way.
int HandOf(XY before, XY at, XY after, XY step) {
  const int from_before = Turn(before, at, step), from_after = Turn(at, after, step);
  const auto is_along = [&](int turn, XY end) {
    const double along = (end.x - at.x) * (step.x - at.x) + (end.y - at.y) * (step.y - at.y);
    return turn == 0 && along > 0.0;
  };
  if (is_along(from_before, before) || is_along(from_after, after)) return 0;
  const bool left =
      Turn(before, at, after) >= 0 ? from_before > 0 && from_after > 0 : from_before > 0 || from_after > 0;
  return left ? 1 : -1;
}

bool Covers(const Box& outer, const Box& inner) {
  return outer.xmin <= inner.xmin && outer.ymin <= inner.ymin && outer.xmax >= inner.xmax && outer.ymax >= inner.ymax;
}

struct Nested {
  const Path* ring;
  EnclosingRing outline;
  Box box;
  double area;
  std::size_t parent = 0;
  int depth = 0;
};

std::vector<Nested> Prepare(const std::vector<const Path*>& rings) {
  std::vector<Nested> nested;
  nested.reserve(rings.size());
  for (const Path* ring : rings) {
    std::vector<XY> vertices = DensifiedVertices(*ring);
    if (!vertices.empty() && vertices.front() != vertices.back()) vertices.push_back(vertices.front());
    const double area = std::fabs(ChordArea(vertices));
    nested.push_back({ring, EnclosingRing(std::move(vertices)), Box::Of(ring->Envelope()), area});
  }
  return nested;
}

// From the largest to the smallest: the parent of a ring, the smallest ring around it, comes before the ring.
void FindParents(std::vector<Nested>& nested) {
  std::vector<std::size_t> order(nested.size());
  for (std::size_t index = 0; index < order.size(); ++index) order[index] = index;
  std::ranges::stable_sort(order, [&](std::size_t a, std::size_t b) { return nested[a].area > nested[b].area; });
  std::vector<Box> boxes;
  for (const std::size_t index : order) boxes.push_back(nested[index].box);
  const BoxTree tree(boxes);
  std::vector<std::uint32_t> before;
  for (std::size_t rank = 0; rank < order.size(); ++rank) {
    Nested& inner = nested[order[rank]];
    const std::span<const XY> vertices = inner.outline.Vertices();
    if (vertices.empty()) continue;
    before.clear();
    tree.Meeting(Box::Of(vertices.front()), [&](std::uint32_t other) {
      if (other < rank) before.push_back(other);
    });
    std::ranges::sort(before, std::greater());
    for (const std::uint32_t candidate : before) {
      Nested& outer = nested[order[candidate]];
      if (!Covers(outer.box, inner.box) || !outer.outline.Encloses(vertices)) continue;
      inner.parent = order[candidate];
      inner.depth = outer.depth + 1;
      break;
    }
  }
}

}  // namespace

// By the turn at the vertex of least x, then y.
bool RunsCounterClockwise(std::span<const XY> ring) {
  const std::span<const XY> vertices = ring.first(ring.size() - 1);
  const auto before = [](XY a, XY b) { return a.x != b.x ? a.x < b.x : a.y < b.y; };
  const auto corner = static_cast<std::size_t>(std::ranges::min_element(vertices, before) - vertices.begin());
  const std::size_t count = vertices.size();
  std::size_t previous = (corner + count - 1) % count, next = (corner + 1) % count;
  while (previous != corner && vertices[previous] == vertices[corner]) previous = (previous + count - 1) % count;
  while (next != corner && vertices[next] == vertices[corner]) next = (next + 1) % count;
  return Turn(vertices[previous], vertices[corner], vertices[next]) > 0;
}

EnclosingRing::EnclosingRing(std::vector<XY> vertices) : vertices_(std::move(vertices)) {}

// By the crossings of a ray to the right with the ring's sides.
EnclosingRing::Location EnclosingRing::Locate(XY place) {
  bool inside = false, boundary = false;
  const Box ray{place.x, place.y, std::numeric_limits<double>::infinity(), place.y};
  EachSide(ray, [&](std::size_t at) {
    const XY from = vertices_[at], to = vertices_[at + 1];
    const int turn = Turn(from, to, place);
    if (turn == 0 && IsWithinBox(from, to, place)) boundary = true;
    if ((from.y > place.y) != (to.y > place.y) && (turn > 0) == (to.y > from.y)) inside = !inside;
    return !boundary;
  });
  if (boundary) return Location::Boundary;
  return inside ? Location::Inside : Location::Outside;
}

int EnclosingRing::HandOfStep(XY place, XY step) {
  std::optional<int> hand;
  EachSide(Box::Of(place), [&](std::size_t at) {
    const XY from = vertices_[at], to = vertices_[at + 1];
    if (from == to || to == place || Turn(from, to, place) != 0) return true;
    if (from != place) {
      hand = Turn(from, to, step);
      return false;
    }
    std::size_t before = at;
    do {
      before = (before == 0 ? vertices_.size() : before) - 1;
    } while (vertices_[before] == place && before != at);
    hand = HandOf(vertices_[before], place, to, step);
    return false;
  });
  return hand.value_or(0);
}

bool EnclosingRing::HoldsStepsOf(std::span<const XY> inner) {
  for (std::size_t at = 0; at + 1 < inner.size(); ++at) {
    if (inner[at] == inner[at + 1]) continue;
    const int hand = HandOfStep(inner[at], inner[at + 1]);
    if (hand != 0) return (hand > 0) == RunsCounterClockwise(vertices_);
  }
  return false;
}

template <class Visit>
void EnclosingRing::EachSide(const Box& box, Visit&& visit) {
  constexpr std::size_t kFewSides = 64;
  constexpr int kFewSearches = 8;
  const std::size_t sides = vertices_.size() - 1;
  if (sides <= kFewSides || searches_ < kFewSearches) {
    ++searches_;
    for (std::size_t at = 0; at < sides; ++at) {
      if (Box::Of(vertices_[at], vertices_[at + 1]).Meets(box) && !visit(at)) return;
    }
    return;
  }
  if (!tree_) {
    std::vector<Box> boxes(sides);
    for (std::size_t at = 0; at < sides; ++at) boxes[at] = Box::Of(vertices_[at], vertices_[at + 1]);
    tree_.emplace(boxes);
  }
  met_.clear();
  tree_->Meeting(box, [&](std::uint32_t at) { met_.push_back(at); });
  std::ranges::sort(met_);
  static_cast<void>(std::ranges::all_of(met_, [&](std::uint32_t at) { return visit(at); }));
}

bool EnclosingRing::Encloses(std::span<const XY> inner) {
  if (inner.size() < 2 || vertices_.size() < 4) return false;
  std::size_t inside = 0, outside = 0;
  for (const XY vertex : inner.first(inner.size() - 1)) {
    const Location location = Locate(vertex);
    if (location == Location::Boundary) continue;
    ++(location == Location::Inside ? inside : outside);
    // Rings that have nothing in common agree from the first vertices on.
    if (inside + outside == 3 && (inside == 0 || outside == 0)) break;
  }
  if (inside + outside == 0) return HoldsStepsOf(inner);
  return inside > outside;
}

NestedRings NestRings(const std::vector<const Path*>& rings) {
  NestedRings result;
  if (rings.size() == 1) {
    result.shells.push_back({rings.front(), {}});
    return result;
  }
  std::vector<Nested> nested = Prepare(rings);
  FindParents(nested);
  std::vector<std::size_t> shell_of(nested.size());
  for (std::size_t index = 0; index < nested.size(); ++index) {
    if (nested[index].depth % 2 != 0) continue;
    shell_of[index] = result.shells.size();
    result.shells.push_back({nested[index].ring, {}});
  }
  for (const Nested& hole : nested) {
    if (hole.depth % 2 != 0) result.shells[shell_of[hole.parent]].holes.push_back(hole.ring);
  }
  return result;
}

}  // namespace tessarine::engine
