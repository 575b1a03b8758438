// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/plain_ring.h"

#include <algorithm>
#include <vector>

#include "engine/ring_sweep.h"
#include "platform/run_stop.h"

namespace tessarine::engine {
namespace {

// Pairs of sides above each other that are compared, for each side, before the sweep takes over. Rings of the field
// stay far below.
constexpr std::size_t kMostPairs = 64;

struct SpannedSide {
  RingSide side;
  double xmin, xmax;
};

// Kept, because most rings are small, and many.
std::vector<SpannedSide>& SidesOfThread() {
  thread_local std::vector<SpannedSide> sides;
  return sides;
}

}  // namespace

bool IsPlainRing(std::span<const XY> ring) {
  if (ring.size() < 4 || ring.front() != ring.back()) return false;
  std::vector<SpannedSide>& sides = SidesOfThread();
  sides.clear();
  const std::size_t count = ring.size() - 1;
  StopPoll poll;
  for (std::size_t at = 0; at < count; ++at) {
    poll();
    const XY from = ring[at], to = ring[at + 1];
    if (from == to) return false;
    sides.push_back({{from, to, at}, std::min(from.x, to.x), std::max(from.x, to.x)});
  }
  std::ranges::sort(sides, {}, &SpannedSide::xmin);
  std::size_t pairs = 0;
  for (auto first = sides.begin(); first != sides.end(); ++first) {
    poll();
    for (auto second = first + 1; second != sides.end() && second->xmin <= first->xmax; ++second) {
      if (++pairs > kMostPairs * count) return !MeetsItself(ring);
      poll();
      if (SidesMeet(first->side, second->side, count)) return false;
    }
  }
  return true;
}

}  // namespace tessarine::engine
