// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/noding.h"

#include <algorithm>
#include <cmath>

#include "engine/meetings.h"
#include "engine/snap_rounding.h"
#include "platform/fault.h"
#include "platform/finite_shape.h"

namespace tessarine::engine {
namespace {

// Grids that are tried, each so many times as wide as the last.
constexpr int kMostGrids = 6;
constexpr double kWidening = 16.0;

bool AllSound(const LineList& lines) {
  return std::ranges::all_of(lines, [](const std::vector<XY>& line) {
    return std::ranges::all_of(line, [](XY vertex) {
      return std::fabs(vertex.x) <= kFarthestCoordinate && std::fabs(vertex.y) <= kFarthestCoordinate;
    });
  });
}

void DropRepeated(LineList& lines) {
  for (std::vector<XY>& line : lines) {
    const auto repeated = std::ranges::unique(line);
    line.erase(repeated.begin(), repeated.end());
  }
}

}  // namespace

std::optional<LineList> WithCrossings(LineList lines) {
  if (!AllSound(lines)) return std::nullopt;
  DropRepeated(lines);
  const Moved all;
  Meetings meetings(lines, all);
  if (meetings.IsUnsure()) return std::nullopt;
  if (meetings.Cuts().empty()) return lines;
  Moved moved;
  Divide(lines, meetings.Cuts(),
         [&](std::uint32_t segment, std::size_t pieces) { moved.Add(pieces, meetings.IsInexact(segment)); });
  if (!moved.Any()) return lines;
  Meetings check(lines, moved);
  if (check.IsUnsure() || !check.Cuts().empty()) return std::nullopt;
  return lines;
}

LineList Noded(const LineList& lines) {
  if (!AllSound(lines)) {
    Raise(kInvalidCall, "A shape with a coordinate that is no finite number, or beyond 1e100, can't be worked on.");
  }
  if (std::optional<LineList> noded = WithCrossings(lines)) return std::move(*noded);
  double grid = FinestGrid(lines);
  for (int attempt = 0; attempt < kMostGrids; ++attempt, grid *= kWidening) {
    if (std::optional<LineList> snapped = SnapRounded(lines, grid)) return std::move(*snapped);
  }
  Raise(kInvalidCall, "Lines run so near to each other that the places where they meet can't be told apart.");
}

}  // namespace tessarine::engine
