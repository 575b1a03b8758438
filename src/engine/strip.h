// SPDX-License-Identifier: GPL-2.0-or-later
// Places beside a segment, found by their offset from pieces of it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <queue>
#include <vector>

#include "engine/led_segment.h"

namespace tessarine::engine {

/// Coordinates in the frame of a segment.
struct Framed {
  double along, across;
};

/// Turns a segment into the axis of its places.
class SegmentFrame {
 public:
  explicit SegmentFrame(const Led& segment);

  [[nodiscard]] Framed operator()(XY place) const;
  /// More than what rounding does to an offset, computed here or by `OffsetOf`; infinite where numbers are so small
  /// that nothing can be said.
  [[nodiscard]] double Margin() const { return margin_; }

 private:
  XY origin_, direction_;
  double margin_;
};

struct PassedPlace {
  XY place;
  Framed framed;
  std::uint32_t order;  ///< among all places that the segment passes
};

/// A way from one place to another that is looked at, in the frame of the whole segment.
struct Stretch {
  Led led;
  Framed from, to;
  double margin;
};

/// The nearest place so far; of equally near ones the first in their order.
class NearestPlace {
 public:
  explicit NearestPlace(const Led& led) : led_(led) {}
  void Offer(const PassedPlace& place);
  [[nodiscard]] const PassedPlace* Found() const { return place_; }
  [[nodiscard]] bool IsSurelyNearerThan(double least) const { return place_ != nullptr && root_ < least; }

 private:
  const Led& led_;
  const PassedPlace* place_ = nullptr;
  std::optional<Length> offset_;
  double root_ = 0.0;
};

/// The places on one side of a segment, in the order along it, in a tree of their bounds. Places can be taken out.
class Strip {
 public:
  /// Ranks in the order along the segment.
  struct Range {
    std::size_t begin, end;
  };

  Strip() : levels_(1) {}
  explicit Strip(std::vector<PassedPlace> places);

  [[nodiscard]] Range All() const { return {0, places_.size()}; }
  /// The first rank in the range from which on places lie at this distance along the segment or beyond.
  [[nodiscard]] std::size_t RankAt(double along, Range range) const;
  [[nodiscard]] bool Holds(const PassedPlace& place, Range range) const;
  void TakeOut(const PassedPlace& place) { TakeOut(static_cast<std::size_t>(&place - places_.data())); }

  /// Takes the places out that the stretch isn't led through. Costs the number of these, and of those that are near its
  /// ends or the tolerance, by log n.
  void KeepLed(const Stretch& stretch, Range range);
  void FindNearest(const Stretch& stretch, Range range, NearestPlace& nearest) const;

  template <class Visit>
  void Each(Range range, Visit&& visit) const {
    for (std::size_t rank = range.begin; rank < range.end; ++rank) {
      if (is_there_[rank] != 0) visit(places_[rank]);
    }
  }

 private:
  static constexpr std::size_t kNodeCapacity = 8;

  struct Node {
    Framed least, most;
    std::size_t count = 0;

    void Add(const Node& other);
    [[nodiscard]] std::array<Framed, 4> Corners() const;
    /// Not above the offset of any place.
    [[nodiscard]] double LeastOffset(const Stretch& stretch) const;
    [[nodiscard]] bool IsSurelyLed(const Stretch& stretch) const;
  };

  void TakeOut(std::size_t rank);
  void KeepLedBelow(std::size_t level, std::size_t begin, std::size_t end, std::size_t span, const Stretch& stretch,
                    Range range);

  std::vector<PassedPlace> places_;
  std::vector<char> is_there_;
  std::vector<std::vector<Node>> levels_;  // the lowest over places, each other one over the one before
};

}  // namespace tessarine::engine
