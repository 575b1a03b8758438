// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/meetings.h"

#include <cmath>
#include <limits>

#include "engine/turn.h"
#include "platform/run_stop.h"

namespace tessarine::engine {
namespace {

constexpr std::size_t kRunLength = 8;
// Pairs of runs that are compared, for each run, before it is worth while to look for fans.
constexpr std::size_t kMostPairs = 256;

// The spokes of a fan as runs of one segment each.
struct SpokeList {
  std::vector<Run> runs;
  std::vector<Box> boxes;
  BoxTree tree;
  Box all;
};

std::vector<SpokeList> SpokesOf(const std::vector<Fan>& fans, const std::vector<const XY*>& starts) {
  std::vector<SpokeList> lists(fans.size());
  for (std::size_t fan = 0; fan < fans.size(); ++fan) {
    SpokeList& list = lists[fan];
    for (const Fan::Spoke& spoke : fans[fan].spokes) {
      const XY* start = starts[spoke.segment];
      list.runs.push_back({start, spoke.segment, 1});
      list.boxes.push_back(Box::Of(start[0], start[1]));
      list.all.Add(list.boxes.back());
    }
    list.tree = BoxTree(list.boxes);
  }
  return lists;
}

// The first vertex of each segment.
std::vector<const XY*> StartsOf(const LineList& lines) {
  std::vector<const XY*> starts;
  for (const std::vector<XY>& line : lines) {
    for (std::size_t at = 0; at + 1 < line.size(); ++at) starts.push_back(line.data() + at);
  }
  return starts;
}

}  // namespace

// The runs between two vertices of a line; the numbers go on from the last run's.
void RunList::Append(const std::vector<XY>& line, std::size_t from, std::size_t to) {
  for (std::size_t at = from; at < to; at += kRunLength) {
    const auto count = static_cast<std::uint32_t>(std::min(kRunLength, to - at));
    runs.push_back({line.data() + at, segment_count, count});
    Box box = Box::Of(line[at]);
    for (std::size_t step = 1; step <= count; ++step) box.Add(Box::Of(line[at + step]));
    boxes.push_back(box);
    segment_count += count;
  }
}

RunList::RunList(const LineList& lines) {
  for (const std::vector<XY>& line : lines) {
    if (!line.empty()) Append(line, 0, line.size() - 1);
  }
}

RunList::RunList(const LineList& lines, const std::vector<char>& apart) {
  for (const std::vector<XY>& line : lines) {
    for (std::size_t at = 0; at + 1 < line.size();) {
      std::size_t end = at;
      while (end + 1 < line.size() && apart[segment_count + (end - at)] == 0) ++end;
      Append(line, at, end);
      for (at = end; at + 1 < line.size() && apart[segment_count] != 0; ++at) ++segment_count;
    }
  }
}

Meetings::Meetings(const LineList& lines, const Moved& moved) : moved_(moved), list_(lines) {
  inexact_.resize(list_.segment_count, 0);
  if (!LookAtAll(kMostPairs * list_.runs.size())) {
    cuts_.clear();
    std::ranges::fill(inexact_, 0);
    unsure_ = false;
    LookBeside(FindFans(lines), lines);
  }
  std::ranges::stable_sort(cuts_, {}, &Cut::segment);
}

// False when that are more pairs than told.
bool Meetings::LookAtAll(std::size_t most_pairs) {
  StopPoll poll;
  for (const Run& run : list_.runs) {
    poll();
    if (moved_.Any(run)) MeetWithin(run);
  }
  return BoxTree(list_.boxes).PairsWhile([&](std::uint32_t first, std::uint32_t second) {
    if (most_pairs-- == 0) return false;
    poll();
    if (moved_.Any(list_.runs[first]) || moved_.Any(list_.runs[second])) {
      MeetBetween(list_.runs[first], list_.runs[second], list_.boxes[second]);
    }
    return true;
  });
}

// Spokes of one fan aren't compared with each other but where they leave the hub the same way.
void Meetings::LookBeside(const std::vector<Fan>& fans, const LineList& lines) {
  const std::vector<const XY*> starts = StartsOf(lines);
  const auto side_of = [&](std::uint32_t segment) { return Side{starts[segment][0], starts[segment][1], segment}; };
  std::vector<char> apart(starts.size(), 0);
  StopPoll poll;
  for (const Fan& fan : fans) {
    for (const Fan::Spoke& spoke : fan.spokes) apart[spoke.segment] = 1;
    for (const auto& [first, second] : fan.Overlapping()) {
      poll();
      Look(side_of(first), side_of(second));
    }
  }
  list_ = RunList(lines, apart);
  static_cast<void>(LookAtAll(std::numeric_limits<std::size_t>::max()));
  const std::vector<SpokeList> lists = SpokesOf(fans, starts);
  const BoxTree others(list_.boxes);
  std::vector<Box> boxes;
  for (const SpokeList& list : lists) {
    boxes.push_back(list.all);
    others.Meeting(list.all, [&](std::uint32_t other) {
      list.tree.Meeting(list_.boxes[other], [&](std::uint32_t spoke) {
        poll();
        MeetBetween(list_.runs[other], list.runs[spoke], list.boxes[spoke]);
      });
    });
  }
  BoxTree(boxes).Pairs([&](std::uint32_t first, std::uint32_t second) {
    for (std::size_t spoke = 0; spoke < lists[first].runs.size(); ++spoke) {
      lists[second].tree.Meeting(lists[first].boxes[spoke], [&](std::uint32_t other) {
        poll();
        Look(lists[first].runs[spoke].SideAt(0), lists[second].runs[other].SideAt(0));
      });
    }
  });
}

void Meetings::MeetWithin(const Run& run) {
  for (std::uint32_t first = 0; first < run.count; ++first) {
    for (std::uint32_t second = first + 1; second < run.count; ++second) Look(run.SideAt(first), run.SideAt(second));
  }
}

void Meetings::MeetBetween(const Run& first, const Run& second, const Box& box_of_second) {
  for (std::uint32_t at = 0; at < first.count; ++at) {
    const Side side = first.SideAt(at);
    if (!Box::Of(side.from, side.to).Meets(box_of_second)) continue;
    for (std::uint32_t other = 0; other < second.count; ++other) Look(side, second.SideAt(other));
  }
}

void Meetings::Look(const Side& a, const Side& b) {
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

void Meetings::CutAt(const Side& side, XY place) {
  if (side.Surrounds(place)) cuts_.push_back({side.number, place});
}

void Meetings::Cross(const Side& a, const Side& b) {
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

}  // namespace tessarine::engine
