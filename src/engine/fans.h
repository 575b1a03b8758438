// SPDX-License-Identifier: GPL-2.0-or-later
// Many segments with one end in common.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "engine/noding.h"

namespace tessarine::engine {

/// A place with segments that all have an end there. Segments are numbered through all lines.
struct Fan {
  struct Spoke {
    std::uint32_t segment;
    XY tip;
  };
  XY hub;
  std::vector<Spoke> spokes;

  /// The pairs of spokes that share more than the hub: those that leave it the same way. Costs n log n beside them.
  [[nodiscard]] std::vector<std::pair<std::uint32_t, std::uint32_t>> Overlapping() const;
};

/// The places with so many segments that comparing them all would cost more than sorting them. A segment belongs to one
/// fan at most.
[[nodiscard]] std::vector<Fan> FindFans(const LineList& lines);

}  // namespace tessarine::engine
