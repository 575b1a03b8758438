// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/meetings.h"

#include <cmath>

#include "engine/turn.h"
#include "platform/run_stop.h"

namespace tessarine::engine {
namespace {

constexpr std::size_t kRunLength = 8;

}  // namespace

RunList::RunList(const LineList& lines) {
  for (const std::vector<XY>& line : lines) {
    for (std::size_t at = 0; at + 1 < line.size(); at += kRunLength) {
      const auto count = static_cast<std::uint32_t>(std::min(kRunLength, line.size() - 1 - at));
      runs.push_back({line.data() + at, segment_count, count});
      Box box = Box::Of(line[at]);
      for (std::size_t step = 1; step <= count; ++step) box.Add(Box::Of(line[at + step]));
      boxes.push_back(box);
      segment_count += count;
    }
  }
}

Meetings::Meetings(const LineList& lines, const Moved& moved) : moved_(moved), list_(lines) {
  inexact_.resize(list_.segment_count, 0);
  StopPoll poll;
  for (const Run& run : list_.runs) {
    poll();
    if (moved_.Any(run)) MeetWithin(run);
  }
  BoxTree(list_.boxes).Pairs([&](std::uint32_t first, std::uint32_t second) {
    poll();
    if (moved_.Any(list_.runs[first]) || moved_.Any(list_.runs[second])) MeetBetween(first, second);
  });
  std::ranges::stable_sort(cuts_, {}, &Cut::segment);
}

void Meetings::MeetWithin(const Run& run) {
  for (std::uint32_t first = 0; first < run.count; ++first) {
    for (std::uint32_t second = first + 1; second < run.count; ++second) Look(run.SideAt(first), run.SideAt(second));
  }
}

void Meetings::MeetBetween(std::uint32_t first, std::uint32_t second) {
  for (std::uint32_t at = 0; at < list_.runs[first].count; ++at) {
    const Side side = list_.runs[first].SideAt(at);
    if (!Box::Of(side.from, side.to).Meets(list_.boxes[second])) continue;
    for (std::uint32_t other = 0; other < list_.runs[second].count; ++other)
      Look(side, list_.runs[second].SideAt(other));
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
