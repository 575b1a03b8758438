// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/snap_rounding.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/meetings.h"
#include "engine/turn.h"

namespace tessarine::engine {
namespace {

constexpr int kDigits = 52;   // binary, after the point of a double
constexpr int kSpacings = 3;  // the finest grid is 2^3 spacings wide
constexpr int kLeastExponent = -900;

XY OnGrid(XY place, double grid) {
  return {std::floor(place.x / grid + 0.5) * grid, std::floor(place.y / grid + 0.5) * grid};
}

// Whether a segment meets the square around a place of the grid, to which the square's left and lower sides belong. One
// that ends before the square has a box that doesn't meet it.
bool MeetsSquare(XY from, XY to, XY center, double half) {
  if (from.x > to.x) std::swap(from, to);
  if (to.x < center.x - half || from.x >= center.x + half) return false;
  if (std::max(from.y, to.y) < center.y - half || std::min(from.y, to.y) >= center.y + half) return false;
  if (from.x == to.x || from.y == to.y) return true;
  const bool rises = from.y < to.y;
  const int upper_left = Turn(from, to, {center.x - half, center.y + half});
  if (upper_left == 0) return !rises;
  const int upper_right = Turn(from, to, {center.x + half, center.y + half});
  if (upper_right == 0) return rises;
  if (upper_left != upper_right) return true;
  const int lower_left = Turn(from, to, {center.x - half, center.y - half});
  if (lower_left != upper_left) return true;
  const int lower_right = Turn(from, to, {center.x + half, center.y - half});
  if (lower_right == 0) return !rises;
  return lower_right != lower_left;
}

void DropRepeated(std::vector<XY>& line) {
  const auto repeated = std::ranges::unique(line);
  line.erase(repeated.begin(), repeated.end());
}

void PutOnGrid(LineList& lines, double grid) {
  for (std::vector<XY>& line : lines) {
    for (XY& vertex : line) vertex = OnGrid(vertex, grid);
    DropRepeated(line);
  }
}

// Those of all vertices and cuts.
std::vector<XY> HotPlaces(const LineList& lines, std::span<const Cut> cuts, double grid) {
  std::vector<XY> places;
  for (const std::vector<XY>& line : lines) {
    for (const XY vertex : line) places.push_back(OnGrid(vertex, grid));
  }
  for (const Cut& cut : cuts) places.push_back(cut.place);
  std::ranges::sort(places, {}, [](XY place) { return std::pair(place.x, place.y); });
  DropRepeated(places);
  return places;
}

// Cuts of the segments at all hot places whose squares they meet. The places of their own ends do no harm.
void AddPassed(const LineList& lines, const std::vector<XY>& places, double half, std::vector<Cut>& cuts) {
  const RunList list(lines);
  const BoxTree tree(list.boxes);
  for (const XY place : places) {
    tree.Meeting({place.x - half, place.y - half, place.x + half, place.y + half}, [&](std::uint32_t number) {
      const Run& run = list.runs[number];
      for (std::uint32_t at = 0; at < run.count; ++at) {
        const Side side = run.SideAt(at);
        if (MeetsSquare(side.from, side.to, place, half)) cuts.push_back({side.number, place});
      }
    });
  }
}

}  // namespace

double FinestGrid(const LineList& lines) {
  double largest = 0.0;
  for (const std::vector<XY>& line : lines) {
    for (const XY vertex : line) largest = std::max({largest, std::fabs(vertex.x), std::fabs(vertex.y)});
  }
  const int exponent = largest > 0.0 ? std::max(std::ilogb(largest), kLeastExponent) : 0;
  return std::ldexp(1.0, exponent - kDigits + kSpacings);
}

std::optional<LineList> SnapRounded(LineList lines, double grid) {
  const Moved all;
  Meetings meetings(lines, all);
  if (meetings.IsUnsure()) return std::nullopt;
  std::vector<Cut> cuts(meetings.Cuts().begin(), meetings.Cuts().end());
  for (Cut& cut : cuts) cut.place = OnGrid(cut.place, grid);
  AddPassed(lines, HotPlaces(lines, cuts, grid), grid / 2.0, cuts);
  std::ranges::stable_sort(cuts, {}, &Cut::segment);
  Divide(lines, cuts, [](std::uint32_t, std::size_t) {});
  PutOnGrid(lines, grid);
  Meetings check(lines, all);
  if (check.IsUnsure() || !check.Cuts().empty()) return std::nullopt;
  return lines;
}

}  // namespace tessarine::engine
