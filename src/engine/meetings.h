// SPDX-License-Identifier: GPL-2.0-or-later
// Where the segments of lines meet, and the division of lines at places.
//
// Segments are put into runs of a few that follow each other; a packed tree of the runs' boxes gives the pairs of runs
// that may meet, and within these each pair of segments is tested by the signs of `Turn`, which are exact. Where more
// pairs come up than a number for each run, segments that leave one place are taken out as fans (fans.h): sorted by
// their direction, only those of one direction are compared, and the rest of them meets other runs by a tree of each
// fan. Time is n log n in the segments, plus the pairs whose boxes meet; memory follows the segments and the cuts. A
// request to stop is looked for between pairs.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "engine/box_tree.h"
#include "engine/fans.h"
#include "engine/noding.h"

namespace tessarine::engine {

/// A place at which a segment is to be divided. Segments are numbered through all lines.
struct Cut {
  std::uint32_t segment;
  XY place;
};

/// A segment with its number.
struct Side {
  XY from, to;
  std::uint32_t number;

  /// Whether the place, known to lie on its line, divides it.
  [[nodiscard]] bool Surrounds(XY place) const {
    const Box box = Box::Of(from, to);
    return place != from && place != to && box.Meets(Box::Of(place));
  }
};

/// A few segments of one line that follow each other.
struct Run {
  const XY* vertices;
  std::uint32_t first, count;

  [[nodiscard]] Side SideAt(std::uint32_t at) const { return {vertices[at], vertices[at + 1], first + at}; }
};

/// All segments of lines in runs, with the box of each run. The lines must stay where they are.
struct RunList {
  std::vector<Run> runs;
  std::vector<Box> boxes;
  std::uint32_t segment_count = 0;

  explicit RunList(const LineList& lines);
  /// Only the segments without a mark in `apart`; their numbers stay.
  RunList(const LineList& lines, const std::vector<char>& apart);

 private:
  void Append(const std::vector<XY>& line, std::size_t from, std::size_t to);
};

/// Which segments rounding has moved. Only these can have new crossings; at first, all count as moved.
class Moved {
 public:
  [[nodiscard]] bool operator[](std::uint32_t segment) const { return all_ || flags_[segment] != 0; }
  [[nodiscard]] bool Any(const Run& run) const {
    if (all_) return true;
    const auto first = flags_.begin() + run.first;
    return std::any_of(first, first + run.count, [](char flag) { return flag != 0; });
  }
  [[nodiscard]] bool Any() const { return all_ || std::ranges::count(flags_, 0) != std::ssize(flags_); }
  /// Adds the next segments. From the first time on, only these count.
  void Add(std::size_t segments, bool moved) {
    all_ = false;
    flags_.insert(flags_.end(), segments, moved ? 1 : 0);
  }

 private:
  bool all_ = true;
  std::vector<char> flags_;
};

/// The places at which segments meet otherwise than at ends of both.
class Meetings {
 public:
  Meetings(const LineList& lines, const Moved& moved);

  /// True when segments seem to cross without a place at which they do.
  [[nodiscard]] bool IsUnsure() const { return unsure_; }
  /// By ascending segment.
  [[nodiscard]] std::span<Cut> Cuts() { return cuts_; }
  /// True when a cut doesn't lie on the segment itself, so that its pieces leave its place.
  [[nodiscard]] bool IsInexact(std::uint32_t segment) const { return inexact_[segment] != 0; }

 private:
  bool LookAtAll(std::size_t most_pairs);
  void LookBeside(const std::vector<Fan>& fans, const LineList& lines);
  void MeetWithin(const Run& run);
  void MeetBetween(const Run& first, const Run& second, const Box& box_of_second);
  void Look(const Side& a, const Side& b);
  void CutAt(const Side& side, XY place);
  void Cross(const Side& a, const Side& b);

  const Moved& moved_;
  RunList list_;
  std::vector<Cut> cuts_;
  std::vector<char> inexact_;
  bool unsure_ = false;
};

/// Appends a segment without its start to a line that ends there, divided at the cuts, which are put in order.
void AppendPieces(XY from, XY to, std::span<Cut> cuts, std::vector<XY>& line);

/// Divides the lines at cuts by ascending segment. `told(segment, pieces)` is called for each old segment in turn.
template <class Told>
void Divide(LineList& lines, std::span<Cut> cuts, Told&& told) {
  std::uint32_t number = 0;
  for (std::vector<XY>& line : lines) {
    if (line.empty()) continue;
    const auto end = number + static_cast<std::uint32_t>(line.size() - 1);
    if (cuts.empty() || cuts.front().segment >= end) {
      for (; number < end; ++number) told(number, std::size_t{1});
      continue;
    }
    const std::vector<XY> old = std::move(line);
    line.assign(1, old.front());
    for (std::size_t at = 0; number < end; ++at, ++number) {
      const auto behind = std::ranges::find_if(cuts, [&](const Cut& cut) { return cut.segment != number; });
      const auto own = static_cast<std::size_t>(behind - cuts.begin());
      const std::size_t before = line.size();
      AppendPieces(old[at], old[at + 1], cuts.first(own), line);
      told(number, line.size() - before);
      cuts = cuts.subspan(own);
    }
  }
}

}  // namespace tessarine::engine
