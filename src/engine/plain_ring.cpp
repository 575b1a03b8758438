// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/plain_ring.h"

#include <algorithm>
#include <vector>

#include "engine/turn.h"
#include "platform/run_stop.h"

namespace tessarine::engine {
namespace {

struct Side {
  XY from, to;
  double xmin, xmax;
  std::size_t index;
};

bool MayMeet(const Side& first, const Side& second) {
  if (std::max(first.from.y, first.to.y) < std::min(second.from.y, second.to.y)) return false;
  if (std::max(second.from.y, second.to.y) < std::min(first.from.y, first.to.y)) return false;
  if (Turn(first.from, first.to, second.from) * Turn(first.from, first.to, second.to) > 0) return false;
  return Turn(second.from, second.to, first.from) * Turn(second.from, second.to, first.to) <= 0;
}

// Neighbours share a vertex; more only when the second runs back on the first.
bool FoldsBack(XY before, XY shared, XY after) {
  const double along = (before.x - shared.x) * (after.x - shared.x) + (before.y - shared.y) * (after.y - shared.y);
  return along > 0.0 && Turn(before, shared, after) == 0;
}

bool Meet(const Side& first, const Side& second, std::size_t count) {
  if ((first.index + 1) % count == second.index) return FoldsBack(first.from, first.to, second.to);
  if ((second.index + 1) % count == first.index) return FoldsBack(second.from, second.to, first.to);
  return MayMeet(first, second);
}

}  // namespace

bool IsPlainRing(std::span<const XY> ring) {
  if (ring.size() < 4 || ring.front() != ring.back()) return false;
  thread_local std::vector<Side> sides;
  sides.clear();
  const std::size_t count = ring.size() - 1;
  StopPoll poll;
  for (std::size_t at = 0; at < count; ++at) {
    poll();
    const XY from = ring[at], to = ring[at + 1];
    if (from == to) return false;
    sides.push_back({from, to, std::min(from.x, to.x), std::max(from.x, to.x), at});
  }
  std::ranges::sort(sides, {}, &Side::xmin);
  for (auto first = sides.begin(); first != sides.end(); ++first) {
    poll();
    for (auto second = first + 1; second != sides.end() && second->xmin <= first->xmax; ++second) {
      poll();
      if (Meet(*first, *second, count)) return false;
    }
  }
  return true;
}

}  // namespace tessarine::engine
