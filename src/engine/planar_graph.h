// SPDX-License-Identifier: GPL-2.0-or-later
// Lines that meet at vertices only, as places and the edges between them, and the walks around the faces.
//
// The edges around each place are sorted by direction, exactly, by the signs of `Turn`; from a half-edge that arrives
// there the walk goes on along the next one clockwise, so that the face stays at its left. Each half-edge belongs to
// one walk. Costs n log n in the number of segments, and memory in proportion to them.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/noding.h"

namespace tessarine::engine {

/// Two half-edges make an edge: number 2e runs from the edge's lower place to its higher one, 2e + 1 back. Places are
/// numbered by x, then y, so that the numbers tell which way an edge runs, and nothing depends on the order of the
/// lines. The face of a half-edge lies to its left.
class PlanarGraph {
 public:
  struct Edge {
    std::uint32_t low, high;   // places
    std::int32_t passes = 0;   // of lines, either way
    std::int32_t upwards = 0;  // passes from low to high less those back
  };
  static constexpr std::uint32_t kNone = 0xFFFFFFFFU;

  /// Of lines as `Noded` returns them.
  explicit PlanarGraph(const LineList& lines);

  [[nodiscard]] const std::vector<Edge>& Edges() const { return edges_; }
  [[nodiscard]] std::size_t PlaceCount() const { return places_.size(); }
  [[nodiscard]] XY Place(std::uint32_t place) const { return places_[place]; }

  /// Drops the edges whose numbers don't meet a condition.
  template <class Condition>
  void KeepEdges(Condition&& condition) {
    std::size_t kept = 0;
    for (std::size_t number = 0; number < edges_.size(); ++number) {
      if (condition(number)) edges_[kept++] = edges_[number];
    }
    edges_.resize(kept);
  }
  /// Drops the edges that bound nothing: those that lead to a free end, and those with one face on both sides.
  void DropLooseEdges();

  /// Finds for each half-edge the next one around its face. Due after each change of the edges.
  void Link();
  [[nodiscard]] std::size_t HalfEdgeCount() const { return 2 * edges_.size(); }
  [[nodiscard]] static std::uint32_t Twin(std::uint32_t half) { return half ^ 1U; }
  [[nodiscard]] std::uint32_t Next(std::uint32_t half) const { return next_[half]; }
  [[nodiscard]] std::uint32_t FromOf(std::uint32_t half) const {
    return (half & 1U) == 0 ? edges_[half / 2].low : edges_[half / 2].high;
  }
  [[nodiscard]] std::uint32_t ToOf(std::uint32_t half) const { return FromOf(Twin(half)); }

  /// The number of the walk of each half-edge. `starts` takes the first half-edge of each walk.
  [[nodiscard]] std::vector<std::uint32_t> Walks(std::vector<std::uint32_t>& starts) const;

 private:
  void DropDangles();
  void DropBridges();
  void SortAround(std::uint32_t place, std::uint32_t* begin, std::uint32_t* end) const;

  std::vector<XY> places_;
  std::vector<Edge> edges_;  // by low, then high
  std::vector<std::uint32_t> next_;
};

}  // namespace tessarine::engine
