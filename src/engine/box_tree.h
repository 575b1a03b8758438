// SPDX-License-Identifier: GPL-2.0-or-later
// Rectangles that are found by place.
//
// The tree is an R-tree that is packed once and never changes: rectangles are sorted along the Z-order curve of their
// centres, eight neighbours share a node, eight nodes a node above, and so on to the top. Making it takes n log n;
// a search visits log n nodes and those of its results; all pairs that meet take n log n and the pairs themselves.
// Memory is 8/7 of the boxes and a number for each. Searches change nothing, so any thread may make them.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

#include "platform/geometry_types.h"
#include "platform/run_stop.h"

namespace tessarine::engine {

/// A rectangle without the question whether it is empty; a new one holds nothing.
struct Box {
  double xmin = std::numeric_limits<double>::infinity(), ymin = xmin, xmax = -xmin, ymax = -xmin;

  [[nodiscard]] static Box Of(XY place) { return {place.x, place.y, place.x, place.y}; }
  [[nodiscard]] static Box Of(XY from, XY to) {
    return {std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x), std::max(from.y, to.y)};
  }
  [[nodiscard]] static Box Of(const Envelope& envelope) {
    return {envelope.XMin(), envelope.YMin(), envelope.XMax(), envelope.YMax()};
  }
  /// True when the two share a point, edges included.
  [[nodiscard]] bool Meets(const Box& other) const {
    return xmin <= other.xmax && other.xmin <= xmax && ymin <= other.ymax && other.ymin <= ymax;
  }
  void Add(const Box& other) {
    xmin = std::min(xmin, other.xmin);
    ymin = std::min(ymin, other.ymin);
    xmax = std::max(xmax, other.xmax);
    ymax = std::max(ymax, other.ymax);
  }
};

/// A tree of rectangles, packed once: neighbours along a Z-shaped curve share a node, and so on upwards. All
/// coordinates are finite.
class BoxTree {
 public:
  BoxTree() : levels_(1) {}
  explicit BoxTree(const std::vector<Box>& boxes);

  /// Calls `visit(number)` for each rectangle that meets the given one, in no order to rely on.
  template <class Visit>
  void Meeting(const Box& box, Visit&& visit) const {
    if (!levels_.front().empty()) VisitMeeting(levels_.size() - 1, 0, levels_.back().size(), box, visit);
  }

  /// Calls `visit(first, second)` once for each pair of different rectangles that meet.
  template <class Visit>
  void Pairs(Visit&& visit) const {
    static_cast<void>(PairsWhile([&](std::uint32_t first, std::uint32_t second) {
      visit(first, second);
      return true;
    }));
  }

  /// The same until `visit` returns false; false then.
  template <class Visit>
  [[nodiscard]] bool PairsWhile(Visit&& visit) const {
    return levels_.front().empty() || VisitWithin(levels_.size() - 1, 0, levels_.back().size(), visit);
  }

  /// A number for each rectangle, the same for those that meet directly or through others; the groups are numbered in
  /// the order of their first members. Costs n log n, also where all meet.
  [[nodiscard]] std::vector<std::uint32_t> ConnectedGroups() const;

 private:
  static constexpr std::size_t kNodeCapacity = 8;

  [[nodiscard]] std::size_t EndOfNode(std::size_t level, std::size_t node) const {
    return std::min((node + 1) * kNodeCapacity, levels_[level - 1].size());
  }

  template <class Visit>
  void VisitMeeting(std::size_t level, std::size_t begin, std::size_t end, const Box& box, Visit& visit) const {
    for (std::size_t at = begin; at < end; ++at) {
      if (!levels_[level][at].Meets(box)) continue;
      if (level == 0) {
        visit(numbers_[at]);
      } else {
        VisitMeeting(level - 1, at * kNodeCapacity, EndOfNode(level, at), box, visit);
      }
    }
  }

  template <class Visit>
  bool VisitWithin(std::size_t level, std::size_t begin, std::size_t end, Visit& visit) const {
    EndIfStopped();
    for (std::size_t first = begin; first < end; ++first) {
      if (level > 0 && !VisitWithin(level - 1, first * kNodeCapacity, EndOfNode(level, first), visit)) return false;
      for (std::size_t second = first + 1; second < end; ++second) {
        if (!levels_[level][first].Meets(levels_[level][second])) continue;
        if (!VisitBetween(level, first, second, visit)) return false;
      }
    }
    return true;
  }

  // The pairs of one rectangle below the first node and one below the second.
  template <class Visit>
  bool VisitBetween(std::size_t level, std::size_t first, std::size_t second, Visit& visit) const {
    if (level == 0) return visit(numbers_[first], numbers_[second]);
    EndIfStopped();
    for (std::size_t a = first * kNodeCapacity; a < EndOfNode(level, first); ++a) {
      if (!levels_[level - 1][a].Meets(levels_[level][second])) continue;
      for (std::size_t b = second * kNodeCapacity; b < EndOfNode(level, second); ++b) {
        if (!levels_[level - 1][a].Meets(levels_[level - 1][b])) continue;
        if (!VisitBetween(level - 1, a, b, visit)) return false;
      }
    }
    return true;
  }

  class Flood;

  std::vector<std::uint32_t> numbers_;    // of the rectangles, in the order of the lowest level
  std::vector<std::vector<Box>> levels_;  // the rectangles, then the nodes above them
};

}  // namespace tessarine::engine
