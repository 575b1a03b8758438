#include "engine/noding.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <span>

#include "engine/box_tree.h"
#include "engine/turn.h"

namespace tessarine::engine {
namespace {

constexpr double kLargest = 1e100;  // products of three such coordinates are finite
constexpr std::size_t kRunLength = 8;

bool AllSound(const LineList& lines) {
  return std::ranges::all_of(lines, [](const std::vector<XY>& line) {
    return std::ranges::all_of(
        line, [](XY vertex) { return std::fabs(vertex.x) <= kLargest && std::fabs(vertex.y) <= kLargest; });
  });
}

void DropRepeated(LineList& lines) {
  for (std::vector<XY>& line : lines) {
    const auto repeated = std::ranges::unique(line);
    line.erase(repeated.begin(), repeated.end());
  }
}

struct Side {
  XY from, to;
  std::uint32_t number;  // among all segments of all lines

  [[nodiscard]] bool Surrounds(XY place) const {
    const Box box = Box::Of(from, to);
    return place != from && place != to && box.Meets(Box::Of(place));
  }
};

// A few segments of one line that follow each other.
struct Run {
  const XY* vertices;
  std::uint32_t first, count;

  [[nodiscard]] Side SideAt(std::uint32_t at) const { return {vertices[at], vertices[at + 1], first + at}; }
};

// A place at which a segment is to be divided.
struct Cut {
  std::uint32_t segment;
  XY place;
};

// Which segments rounding has moved. Only these can have new crossings; at first, all count as moved.
class Moved {
 public:
  [[nodiscard]] bool operator[](std::uint32_t segment) const { return all_ || flags_[segment] != 0; }
  [[nodiscard]] bool Any(const Run& run) const {
    if (all_) return true;
    const auto first = flags_.begin() + run.first;
    return std::any_of(first, first + run.count, [](char flag) { return flag != 0; });
  }
  [[nodiscard]] bool Any() const { return all_ || std::ranges::count(flags_, 0) != std::ssize(flags_); }
  /// Tells of all segments up to a number, from the last told on.
  void TellUpTo(std::size_t end, bool moved) {
    all_ = false;
    flags_.resize(end, moved ? 1 : 0);
  }

 private:
  bool all_ = true;
  std::vector<char> flags_;
};

// The search for the places where segments meet.
class Meetings {
 public:
  Meetings(const LineList& lines, const Moved& moved) : moved_(moved) {
    std::uint32_t number = 0;
    for (const std::vector<XY>& line : lines) {
      for (std::size_t at = 0; at + 1 < line.size(); at += kRunLength) {
        const auto count = static_cast<std::uint32_t>(std::min(kRunLength, line.size() - 1 - at));
        runs_.push_back({line.data() + at, number, count});
        Box box = Box::Of(line[at]);
        for (std::size_t step = 1; step <= count; ++step) box.Add(Box::Of(line[at + step]));
        boxes_.push_back(box);
        number += count;
      }
    }
    inexact_.resize(number, 0);
    for (const Run& run : runs_) {
      if (moved_.Any(run)) MeetWithin(run);
    }
    BoxTree(boxes_).Pairs([this](std::uint32_t first, std::uint32_t second) {
      if (moved_.Any(runs_[first]) || moved_.Any(runs_[second])) MeetBetween(first, second);
    });
    std::ranges::stable_sort(cuts_, {}, &Cut::segment);
  }

  /// True when segments seem to cross without a place at which they do.
  [[nodiscard]] bool IsUnsure() const { return unsure_; }
  /// By ascending segment.
  [[nodiscard]] std::span<Cut> Cuts() { return cuts_; }
  /// True when a cut doesn't lie on the segment itself, so that its pieces leave its place.
  [[nodiscard]] bool IsInexact(std::uint32_t segment) const { return inexact_[segment] != 0; }

 private:
  void MeetWithin(const Run& run) {
    for (std::uint32_t first = 0; first < run.count; ++first) {
      for (std::uint32_t second = first + 1; second < run.count; ++second) Look(run.SideAt(first), run.SideAt(second));
    }
  }

  void MeetBetween(std::uint32_t first, std::uint32_t second) {
    for (std::uint32_t at = 0; at < runs_[first].count; ++at) {
      const Side side = runs_[first].SideAt(at);
      if (!Box::Of(side.from, side.to).Meets(boxes_[second])) continue;
      for (std::uint32_t other = 0; other < runs_[second].count; ++other) Look(side, runs_[second].SideAt(other));
    }
  }

  void Look(const Side& a, const Side& b) {
    if (!Box::Of(a.from, a.to).Meets(Box::Of(b.from, b.to))) return;
    if (!moved_[a.number] && !moved_[b.number]) return;
    const int from_b = Turn(a.from, a.to, b.from), to_b = Turn(a.from, a.to, b.to);
    if (from_b * to_b > 0) return;
    const int from_a = Turn(b.from, b.to, a.from), to_a = Turn(b.from, b.to, a.to);
    if (from_a * to_a > 0) return;
    if (from_a * to_a * from_b * to_b != 0) {
      Cross(a, b);
      return;
    }
    // An end on the other segment, or both on one line.
    if (from_b == 0) CutAt(a, b.from);
    if (to_b == 0) CutAt(a, b.to);
    if (from_a == 0) CutAt(b, a.from);
    if (to_a == 0) CutAt(b, a.to);
  }

  void CutAt(const Side& side, XY place) {
    if (side.Surrounds(place)) cuts_.push_back({side.number, place});
  }

  void Cross(const Side& a, const Side& b) {
    XY place;
    if (GEOSSegmentIntersection_r(Geos(), a.from.x, a.from.y, a.to.x, a.to.y, b.from.x, b.from.y, b.to.x, b.to.y,
                                  &place.x, &place.y) != 1) {
      unsure_ = true;
      return;
    }
    for (const Side& side : {a, b}) {
      if (place == side.from || place == side.to) continue;
      cuts_.push_back({side.number, place});
      if (Turn(side.from, side.to, place) != 0) inexact_[side.number] = 1;
    }
  }

  const Moved& moved_;
  std::vector<Run> runs_;
  std::vector<Box> boxes_;
  std::vector<Cut> cuts_;
  std::vector<char> inexact_;
  bool unsure_ = false;
};

// Appends a segment without its start, divided at the cuts.
void AppendPieces(XY from, XY to, std::span<Cut> cuts, std::vector<XY>& line) {
  const double dx = to.x - from.x, dy = to.y - from.y;
  const bool along_x = std::fabs(dx) >= std::fabs(dy);
  const auto before = [&](const Cut& a, const Cut& b) {
    const double x = std::copysign(1.0, dx) * (b.place.x - a.place.x);
    const double y = std::copysign(1.0, dy) * (b.place.y - a.place.y);
    const double first = along_x ? x : y, second = along_x ? y : x;
    return first != 0.0 ? first > 0.0 : second > 0.0;
  };
  if (cuts.size() > 1) std::ranges::sort(cuts, before);
  for (const Cut& cut : cuts) {
    if (cut.place != line.back()) line.push_back(cut.place);
  }
  line.push_back(to);
}

Moved Divide(LineList& lines, Meetings& meetings) {
  Moved moved;
  std::span<Cut> rest = meetings.Cuts();
  std::uint32_t number = 0;
  std::size_t told = 0;
  for (std::vector<XY>& line : lines) {
    const auto segments = static_cast<std::uint32_t>(line.empty() ? 0 : line.size() - 1);
    if (rest.empty() || rest.front().segment >= number + segments) {
      number += segments;
      moved.TellUpTo(told += segments, false);
      continue;
    }
    const std::vector<XY> old = std::move(line);
    line.assign(1, old.front());
    for (std::size_t at = 0; at < segments; ++at, ++number) {
      const auto end = std::ranges::find_if(rest, [&](const Cut& cut) { return cut.segment != number; });
      const auto own = static_cast<std::size_t>(end - rest.begin());
      AppendPieces(old[at], old[at + 1], rest.first(own), line);
      rest = rest.subspan(own);
      moved.TellUpTo(told + line.size() - 1, meetings.IsInexact(number));
    }
    told += line.size() - 1;
  }
  return moved;
}

}  // namespace

std::optional<LineList> WithCrossings(LineList lines) {
  if (!AllSound(lines)) return std::nullopt;
  DropRepeated(lines);
  const Moved all;
  Meetings meetings(lines, all);
  if (meetings.IsUnsure()) return std::nullopt;
  if (meetings.Cuts().empty()) return lines;
  const Moved moved = Divide(lines, meetings);
  if (!moved.Any()) return lines;
  Meetings check(lines, moved);
  if (check.IsUnsure() || !check.Cuts().empty()) return std::nullopt;
  return lines;
}

}  // namespace tessarine::engine
