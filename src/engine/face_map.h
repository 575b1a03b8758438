// SPDX-License-Identifier: GPL-2.0-or-later
// The faces of a planar graph, their rings, and which lies in which.
//
// A walk is one boundary of a face; a face with islands has several. Whatever hangs together has one walk around it,
// and which face that lies in is found from one of its places: a ray to the right crosses the edges of the rings around
// it an odd number of times. Costs n log n in the number of edges, plus the edges that these rays meet.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/planar_graph.h"

namespace tessarine::engine {

/// The walks around the faces of a linked graph without loose edges, each walk taken apart into rings.
class FaceMap {
 public:
  /// A closed walk that passes no place twice. The places go by number, the least first.
  struct Ring {
    std::vector<std::uint32_t> places;
    std::uint32_t walk;
    bool encloses;  // the face at its left; otherwise the face lies around it, and the ring runs clockwise
  };
  static constexpr std::uint32_t kNone = PlanarGraph::kNone;

  explicit FaceMap(const PlanarGraph& graph);

  /// False when the edges can't be those of a planar graph. Nothing else is to be asked then.
  [[nodiscard]] bool IsSure() const { return sure_; }
  [[nodiscard]] const std::vector<Ring>& Rings() const { return rings_; }
  [[nodiscard]] std::uint32_t WalkOf(std::uint32_t half) const { return walk_of_[half]; }
  /// The ring that encloses the face of a walk: one of the walk itself, or of the walk in whose face it runs. `kNone`
  /// for the unbounded face.
  [[nodiscard]] std::uint32_t ShellOf(std::uint32_t walk) const { return shell_of_[walk]; }

  /// A number for the face of each walk: 0 for the unbounded face, and `step(half)` more at the left of a half-edge
  /// than at its right.
  template <class Step>
  [[nodiscard]] std::vector<std::int32_t> Levels(Step&& step) const {
    std::vector<std::int32_t> levels(walk_starts_.size());
    std::vector<char> known(walk_starts_.size(), 0);
    std::vector<std::uint32_t> waiting;
    for (const Component& component : components_) {
      const std::uint32_t around = shell_of_[component.outer_walk];
      levels[component.outer_walk] = around == kNone ? 0 : levels[rings_[around].walk];
      known[component.outer_walk] = 1;
      waiting.push_back(component.outer_walk);
      while (!waiting.empty()) {
        const std::uint32_t walk = waiting.back();
        waiting.pop_back();
        std::uint32_t half = walk_starts_[walk];
        do {
          const std::uint32_t twin = PlanarGraph::Twin(half), across = walk_of_[twin];
          if (known[across] == 0) {
            known[across] = 1;
            levels[across] = levels[walk] + step(twin);
            waiting.push_back(across);
          }
          half = graph_.Next(half);
        } while (half != walk_starts_[walk]);
      }
    }
    return levels;
  }

 private:
  struct Component {
    std::uint32_t outer_walk, top;  // the highest of its places
  };

  void FindRings();
  void TakeRing(std::vector<std::uint32_t>& trail, std::size_t begin, std::vector<std::uint32_t>& depth);
  void FindComponents();
  void FindSurroundings();

  const PlanarGraph& graph_;
  bool sure_ = true;
  std::vector<std::uint32_t> walk_of_, ring_of_;  // by half-edge
  std::vector<std::uint32_t> walk_starts_, shell_of_;
  std::vector<Ring> rings_;
  std::vector<Component> components_;  // in an order in which each comes after the one whose face it lies in
};

}  // namespace tessarine::engine
