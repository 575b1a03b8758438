// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/plain_ring.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "engine/box_tree.h"
#include "engine/ring_sweep.h"
#include "engine/turn.h"
#include "platform/run_stop.h"

namespace tessarine::engine {
namespace {

// Pairs of sides above each other that are compared, for each side, before the sweep takes over. Rings of the field
// stay far below.
constexpr std::size_t kMostPairs = 64;

// A side by its box, and a side by where its box begins: small things, for they are sorted.
struct BoxedSide {
  double xmin, xmax, ymin, ymax;
  std::size_t index;
};
struct SideStart {
  double xmin;
  std::size_t index;
};

// Kept, because most rings are small, and many.
struct Room {
  std::vector<SideStart> starts;
  std::vector<BoxedSide> sides;
};
Room& RoomOfThread() {
  thread_local Room room;
  return room;
}

XY MiddleOf(std::span<const XY> vertices) {
  XY sum{0.0, 0.0};
  for (const XY vertex : vertices) sum = {sum.x + vertex.x, sum.y + vertex.y};
  const auto count = static_cast<double>(vertices.size());
  return {sum.x / count, sum.y / count};
}

// Whether the whole of a closed ring is seen from its middle: all sides run the same way round it, and once. A line of
// sight then meets the ring in one place, so that no two sides meet. Most parcels, cells and circles are such rings.
bool IsSeenFromMiddle(std::span<const XY> ring) {
  const XY middle = MiddleOf(ring.subspan(1));
  const int way = RoundedTurn(ring[0], ring[1], middle).Way();
  if (way == 0) return false;
  std::size_t rounds = 0;
  for (std::size_t at = 0; at + 1 < ring.size(); ++at) {
    const XY from = ring[at], to = ring[at + 1];
    if (RoundedTurn(from, to, middle).Way() != way) return false;
    const XY lower = way > 0 ? from : to, upper = way > 0 ? to : from;
    if (lower.y <= middle.y && middle.y < upper.y) ++rounds;
  }
  return rounds == 1;
}

// The sides by where their boxes begin in x. False when one of them has no length.
bool SortSides(std::span<const XY> ring, Room& room, StopPoll& poll) {
  room.starts.clear();
  room.sides.clear();
  for (std::size_t at = 0; at + 1 < ring.size(); ++at) {
    poll();
    if (ring[at] == ring[at + 1]) return false;
    room.starts.push_back({std::min(ring[at].x, ring[at + 1].x), at});
  }
  std::ranges::sort(room.starts, {}, &SideStart::xmin);
  for (const SideStart& start : room.starts) {
    const XY from = ring[start.index], to = ring[start.index + 1];
    room.sides.push_back(
        {start.xmin, std::max(from.x, to.x), std::min(from.y, to.y), std::max(from.y, to.y), start.index});
  }
  return true;
}

}  // namespace

bool IsPlainRing(std::span<const XY> ring) {
  if (ring.size() < 4 || ring.front() != ring.back()) return false;
  if (IsSeenFromMiddle(ring)) return true;
  Room& room = RoomOfThread();
  StopPoll poll;
  if (!SortSides(ring, room, poll)) return false;
  const std::size_t count = ring.size() - 1;
  const auto side_at = [&](std::size_t index) { return RingSide{ring[index], ring[index + 1], index}; };
  std::size_t pairs = 0;
  for (auto first = room.sides.begin(); first != room.sides.end(); ++first) {
    poll();
    for (auto second = first + 1; second != room.sides.end() && second->xmin <= first->xmax; ++second) {
      if (++pairs > kMostPairs * count) return !MeetsItself(ring);
      poll();
      if (second->ymax < first->ymin || first->ymax < second->ymin) continue;
      if (SidesMeet(side_at(first->index), side_at(second->index), count)) return false;
    }
  }
  return true;
}

bool ArePlainRings(std::span<const std::span<const XY>> rings) {
  struct Side {
    std::uint32_t ring, index;
  };
  std::vector<Side> sides;
  std::vector<Box> boxes;
  for (std::uint32_t number = 0; number < rings.size(); ++number) {
    const std::span<const XY> ring = rings[number];
    if (ring.size() < 4 || ring.front() != ring.back()) return false;
    for (std::uint32_t at = 0; at + 1 < ring.size(); ++at) {
      const XY from = ring[at], to = ring[at + 1];
      if (from == to || !std::isfinite(from.x) || !std::isfinite(from.y)) return false;
      sides.push_back({number, at});
      boxes.push_back(Box::Of(from, to));
    }
  }
  const auto side_at = [&](const Side& side) {
    const std::span<const XY> ring = rings[side.ring];
    return RingSide{ring[side.index], ring[side.index + 1], side.index};
  };
  return BoxTree(boxes).PairsWhile([&](std::uint32_t first, std::uint32_t second) {
    const Side a = sides[first], b = sides[second];
    if (a.ring == b.ring) return !SidesMeet(side_at(a), side_at(b), rings[a.ring].size() - 1);
    return !SidesTouch(side_at(a), side_at(b));
  });
}

}  // namespace tessarine::engine
