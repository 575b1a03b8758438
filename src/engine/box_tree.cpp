// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/box_tree.h"

#include <numeric>
#include <utility>

namespace tessarine::engine {
namespace {

// The bits of a number with a gap before each.
std::uint64_t Spread(std::uint32_t number) {
  std::uint64_t bits = number;
  bits = (bits | bits << 16U) & 0x0000FFFF0000FFFFU;
  bits = (bits | bits << 8U) & 0x00FF00FF00FF00FFU;
  bits = (bits | bits << 4U) & 0x0F0F0F0F0F0F0F0FU;
  bits = (bits | bits << 2U) & 0x3333333333333333U;
  return (bits | bits << 1U) & 0x5555555555555555U;
}

std::uint32_t StepOf(double value, double least, double width) {
  constexpr double kSteps = 4294967295.0;
  const double share = (value - least) / width;  // not a number where all boxes share one centre
  if (share >= 1.0) return static_cast<std::uint32_t>(kSteps);
  return share > 0.0 ? static_cast<std::uint32_t>(share * kSteps) : 0U;
}

// The numbers of the boxes in the order of their centres along the curve.
std::vector<std::uint32_t> AlongCurve(const std::vector<Box>& boxes) {
  Box all;
  for (const Box& box : boxes) all.Add(box);
  const double width = all.xmax - all.xmin, height = all.ymax - all.ymin;
  std::vector<std::pair<std::uint64_t, std::uint32_t>> keys;
  keys.reserve(boxes.size());
  for (const Box& box : boxes) {
    const double x = box.xmin + (box.xmax - box.xmin) / 2.0, y = box.ymin + (box.ymax - box.ymin) / 2.0;
    const std::uint64_t place = Spread(StepOf(x, all.xmin, width)) | Spread(StepOf(y, all.ymin, height)) << 1U;
    keys.emplace_back(place, static_cast<std::uint32_t>(keys.size()));
  }
  std::ranges::sort(keys);
  std::vector<std::uint32_t> numbers;
  numbers.reserve(keys.size());
  for (const auto& [place, number] : keys) numbers.push_back(number);
  return numbers;
}

}  // namespace

BoxTree::BoxTree(const std::vector<Box>& boxes) : levels_(1) {
  if (boxes.size() > kNodeCapacity) {
    numbers_ = AlongCurve(boxes);
  } else {
    numbers_.resize(boxes.size());
    std::iota(numbers_.begin(), numbers_.end(), 0U);
  }
  levels_.front().reserve(boxes.size());
  for (const std::uint32_t number : numbers_) levels_.front().push_back(boxes[number]);
  while (levels_.back().size() > kNodeCapacity) {
    const std::vector<Box>& below = levels_.back();
    std::vector<Box> nodes((below.size() + kNodeCapacity - 1) / kNodeCapacity);
    for (std::size_t at = 0; at < below.size(); ++at) nodes[at / kNodeCapacity].Add(below[at]);
    levels_.push_back(std::move(nodes));
  }
}

// Takes rectangles out of a tree, each once.
class BoxTree::Flood {
 public:
  explicit Flood(const BoxTree& tree) : tree_(tree) {
    for (const std::vector<Box>& level : tree.levels_) left_.emplace_back(level.size(), 0U);
    std::ranges::fill(left_.front(), 1U);
    for (std::size_t level = 1; level < left_.size(); ++level) {
      for (std::size_t at = 0; at < left_[level - 1].size(); ++at)
        left_[level][at / kNodeCapacity] += left_[level - 1][at];
    }
  }

  [[nodiscard]] bool Holds(std::size_t place) const { return left_.front()[place] != 0; }

  void Take(std::size_t place) {
    for (std::size_t level = 0; level < left_.size(); ++level, place /= kNodeCapacity) --left_[level][place];
  }

  /// Takes those that meet a rectangle and appends their places in the lowest level.
  void TakeMeeting(const Box& box, std::vector<std::size_t>& taken) {
    const std::size_t before = taken.size();
    Find(left_.size() - 1, 0, left_.back().size(), box, taken);
    for (std::size_t at = before; at < taken.size(); ++at) Take(taken[at]);
  }

 private:
  void Find(std::size_t level, std::size_t begin, std::size_t end, const Box& box, std::vector<std::size_t>& found) {
    for (std::size_t at = begin; at < end; ++at) {
      if (left_[level][at] == 0 || !tree_.levels_[level][at].Meets(box)) continue;
      if (level == 0) {
        found.push_back(at);
      } else {
        Find(level - 1, at * kNodeCapacity, tree_.EndOfNode(level, at), box, found);
      }
    }
  }

  const BoxTree& tree_;
  std::vector<std::vector<std::uint32_t>> left_;  // how many are left below each node
};

std::vector<std::uint32_t> BoxTree::ConnectedGroups() const {
  std::vector<std::size_t> place_of(numbers_.size());
  for (std::size_t place = 0; place < numbers_.size(); ++place) place_of[numbers_[place]] = place;
  std::vector<std::uint32_t> groups(numbers_.size());
  Flood flood(*this);
  std::uint32_t group = 0;
  std::vector<std::size_t> reached;
  for (const std::size_t start : place_of) {
    if (!flood.Holds(start)) continue;
    flood.Take(start);
    reached.assign(1, start);
    for (std::size_t at = 0; at < reached.size(); ++at) {
      EndIfStopped();
      groups[numbers_[reached[at]]] = group;
      const Box box = levels_.front()[reached[at]];
      flood.TakeMeeting(box, reached);
    }
    ++group;
  }
  return groups;
}

}  // namespace tessarine::engine
