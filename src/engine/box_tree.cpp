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

}  // namespace tessarine::engine
