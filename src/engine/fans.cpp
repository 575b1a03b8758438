// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/fans.h"

#include <algorithm>

#include "engine/turn.h"

namespace tessarine::engine {
namespace {

constexpr std::size_t kLeastSpokes = 64;

struct End {
  XY place, other;
  std::uint32_t segment;
};

bool Before(XY a, XY b) { return a.x != b.x ? a.x < b.x : a.y < b.y; }

std::vector<End> SortedEnds(const LineList& lines) {
  std::vector<End> ends;
  std::uint32_t segment = 0;
  for (const std::vector<XY>& line : lines) {
    for (std::size_t at = 0; at + 1 < line.size(); ++at, ++segment) {
      ends.push_back({line[at], line[at + 1], segment});
      ends.push_back({line[at + 1], line[at], segment});
    }
  }
  std::ranges::stable_sort(ends, Before, &End::place);
  return ends;
}

}  // namespace

std::vector<std::pair<std::uint32_t, std::uint32_t>> Fan::Overlapping() const {
  std::vector<Spoke> sorted = spokes;
  const auto is_lower = [this](const Spoke& spoke) { return Before(spoke.tip, hub); };
  std::ranges::sort(sorted, [&](const Spoke& a, const Spoke& b) {
    return is_lower(a) != is_lower(b) ? is_lower(b) : Turn(hub, a.tip, b.tip) > 0;
  });
  const auto same_way = [&](const Spoke& a, const Spoke& b) {
    return is_lower(a) == is_lower(b) && Turn(hub, a.tip, b.tip) == 0;
  };
  std::vector<std::pair<std::uint32_t, std::uint32_t>> pairs;
  for (auto first = sorted.begin(); first != sorted.end(); ++first) {
    for (auto second = first + 1; second != sorted.end() && same_way(*first, *second); ++second) {
      pairs.emplace_back(first->segment, second->segment);
    }
  }
  return pairs;
}

std::vector<Fan> FindFans(const LineList& lines) {
  const std::vector<End> ends = SortedEnds(lines);
  std::vector<char> taken(ends.size() / 2, 0);
  std::vector<Fan> fans;
  for (auto begin = ends.begin(); begin != ends.end();) {
    const auto end = std::find_if(begin, ends.end(), [&](const End& other) { return other.place != begin->place; });
    if (static_cast<std::size_t>(end - begin) >= kLeastSpokes) {
      Fan fan{begin->place, {}};
      for (; begin != end; ++begin) {
        if (taken[begin->segment] == 0) fan.spokes.push_back({begin->segment, begin->other});
        taken[begin->segment] = 1;
      }
      fans.push_back(std::move(fan));
    }
    begin = end;
  }
  return fans;
}

}  // namespace tessarine::engine
