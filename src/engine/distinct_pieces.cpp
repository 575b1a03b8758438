// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/distinct_pieces.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace tessarine::engine {
namespace {

bool Before(XY a, XY b) { return a.x != b.x ? a.x < b.x : a.y < b.y; }

// A segment whichever way it runs, and where it stands.
struct Side {
  XY low, high;
  std::size_t number;
};

bool SideBefore(const Side& a, const Side& b) {
  if (a.low != b.low) return Before(a.low, b.low);
  if (a.high != b.high) return Before(a.high, b.high);
  return a.number < b.number;
}

// The segments of all lines by number, from line to line.
class Sides {
 public:
  explicit Sides(const LineList& lines) {
    for (const std::vector<XY>& line : lines) {
      for (std::size_t at = 1; at < line.size(); ++at) {
        const bool forth = Before(line[at - 1], line[at]);
        sides_.push_back({forth ? line[at - 1] : line[at], forth ? line[at] : line[at - 1], sides_.size()});
      }
    }
    is_first_.resize(sides_.size(), 0);
    std::ranges::sort(sides_, SideBefore);
    for (std::size_t index = 0; index < sides_.size(); ++index) {
      const Side& side = sides_[index];
      if (index > 0 && sides_[index - 1].low == side.low && sides_[index - 1].high == side.high) continue;
      is_first_[side.number] = 1;
      ends_.push_back(side.low);
      ends_.push_back(side.high);
    }
    std::ranges::sort(ends_, Before);
  }

  [[nodiscard]] bool IsFirst(std::size_t number) const { return is_first_[number] != 0; }

  /// Whether not just two different segments meet there.
  [[nodiscard]] bool IsNode(XY place) const { return std::ranges::equal_range(ends_, place, Before).size() != 2; }

 private:
  std::vector<Side> sides_;
  std::vector<char> is_first_;
  std::vector<XY> ends_;
};

}  // namespace

LineList DistinctPieces(const LineList& noded) {
  const Sides sides(noded);
  LineList pieces;
  std::size_t number = 0;
  for (const std::vector<XY>& line : noded) {
    bool goes_on = false;
    for (std::size_t at = 1; at < line.size(); ++at, ++number) {
      const bool first = sides.IsFirst(number);
      if (first && goes_on) pieces.back().push_back(line[at]);
      if (first && !goes_on) pieces.push_back({line[at - 1], line[at]});
      goes_on = first && !sides.IsNode(line[at]);
    }
  }
  return pieces;
}

}  // namespace tessarine::engine
