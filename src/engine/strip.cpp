// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/strip.h"

#include <limits>
#include <tuple>

namespace tessarine::engine {
namespace {

double Distance(Framed a, Framed b) { return std::hypot(a.along - b.along, a.across - b.across); }

// From the line through both ends, positive on one side.
double SideOf(const Stretch& stretch, double length, Framed place) {
  const double along = stretch.to.along - stretch.from.along, across = stretch.to.across - stretch.from.across;
  return ((place.across - stretch.from.across) * along - (place.along - stretch.from.along) * across) / length;
}

double OffsetFrom(const Stretch& stretch, Framed place) {
  const double along = stretch.to.along - stretch.from.along, across = stretch.to.across - stretch.from.across;
  const double square = along * along + across * across;
  const double x = place.along - stretch.from.along, y = place.across - stretch.from.across;
  const double part = square > 0.0 ? std::clamp((x * along + y * across) / square, 0.0, 1.0) : 0.0;
  return std::hypot(x - part * along, y - part * across);
}

}  // namespace

SegmentFrame::SegmentFrame(const Led& segment) : origin_(segment.from) {
  constexpr double kEpsilon = std::numeric_limits<double>::epsilon(), kLeastTolerance = 1e-100;
  const double dx = segment.to.x - segment.from.x, dy = segment.to.y - segment.from.y, length = std::hypot(dx, dy);
  const Box box = Box::Of(segment.from, segment.to);
  const double largest = std::max({std::fabs(box.xmin), std::fabs(box.ymin), std::fabs(box.xmax), std::fabs(box.ymax)});
  const double margin = kEpsilon * (4.0 * largest + 64.0 * (length + segment.tolerance));
  const bool is_sure = segment.tolerance > kLeastTolerance && length > kLeastTolerance && std::isfinite(margin);
  direction_ = is_sure ? XY{dx / length, dy / length} : XY{0.0, 0.0};
  margin_ = is_sure ? margin : std::numeric_limits<double>::infinity();
}

Framed SegmentFrame::operator()(XY place) const {
  const double x = place.x - origin_.x, y = place.y - origin_.y;
  return {x * direction_.x + y * direction_.y, y * direction_.x - x * direction_.y};
}

void NearestPlace::Offer(const PassedPlace& place) {
  const Length offset = OffsetOf(led_.from, led_.to, place.place);
  if (place_ != nullptr) {
    if (*offset_ < offset) return;
    if (!(offset < *offset_) && place_->order < place.order) return;
  }
  place_ = &place;
  offset_ = offset;
  root_ = offset.Root();
}

void Strip::Node::Add(const Node& other) {
  if (count == 0) {
    *this = other;
    return;
  }
  least = {std::min(least.along, other.least.along), std::min(least.across, other.least.across)};
  most = {std::max(most.along, other.most.along), std::max(most.across, other.most.across)};
  count += other.count;
}

std::array<Framed, 4> Strip::Node::Corners() const {
  return {least, most, {least.along, most.across}, {most.along, least.across}};
}

double Strip::Node::LeastOffset(const Stretch& stretch) const {
  const double length = Distance(stretch.from, stretch.to);
  if (!(length > 0.0)) return 0.0;
  double nearest = std::numeric_limits<double>::infinity();
  int above = 0, below = 0;
  for (const Framed corner : Corners()) {
    const double side = SideOf(stretch, length, corner);
    nearest = std::min(nearest, std::fabs(side));
    ++(side > 0.0 ? above : below);
  }
  const double beside = above == 0 || below == 0 ? nearest : 0.0;
  const auto [first, last] = std::minmax(stretch.from.along, stretch.to.along);
  return std::max({beside, first - most.along, least.along - last}) - stretch.margin;
}

// The distances from a segment and from a place are greatest in a corner.
bool Strip::Node::IsSurelyLed(const Stretch& stretch) const {
  const double whole = Distance(stretch.from, stretch.to) - stretch.margin;
  const double reach = stretch.led.tolerance - stretch.margin;
  return std::ranges::all_of(Corners(), [&](Framed corner) {
    return Distance(stretch.from, corner) < whole && Distance(corner, stretch.to) < whole &&
           OffsetFrom(stretch, corner) < reach;
  });
}

Strip::Strip(std::vector<PassedPlace> places) : places_(std::move(places)), is_there_(places_.size(), 1), levels_(1) {
  std::ranges::sort(places_, {}, [](const PassedPlace& place) { return std::pair(place.framed.along, place.order); });
  const auto nodes_above = [](std::size_t count) { return (count + kNodeCapacity - 1) / kNodeCapacity; };
  levels_.front().resize(nodes_above(places_.size()));
  for (std::size_t rank = 0; rank < places_.size(); ++rank) {
    levels_.front()[rank / kNodeCapacity].Add({places_[rank].framed, places_[rank].framed, 1});
  }
  while (levels_.back().size() > kNodeCapacity) {
    const std::vector<Node>& below = levels_.back();
    std::vector<Node> nodes(nodes_above(below.size()));
    for (std::size_t at = 0; at < below.size(); ++at) nodes[at / kNodeCapacity].Add(below[at]);
    levels_.push_back(std::move(nodes));
  }
}

std::size_t Strip::RankAt(double along, Range range) const {
  const auto at = [&](std::size_t rank) { return places_.begin() + static_cast<std::ptrdiff_t>(rank); };
  const auto found =
      std::lower_bound(at(range.begin), at(range.end), along,
                       [](const PassedPlace& place, double bound) { return place.framed.along < bound; });
  return static_cast<std::size_t>(found - places_.begin());
}

bool Strip::Holds(const PassedPlace& place, Range range) const {
  const std::less<> before;
  return !before(&place, places_.data() + range.begin) && before(&place, places_.data() + range.end);
}

void Strip::TakeOut(std::size_t rank) {
  is_there_[rank] = 0;
  for (std::vector<Node>& level : levels_) --level[rank /= kNodeCapacity].count;
}

void Strip::KeepLed(const Stretch& stretch, Range range) {
  std::size_t span = kNodeCapacity;
  for (std::size_t level = 1; level < levels_.size(); ++level) span *= kNodeCapacity;
  KeepLedBelow(levels_.size() - 1, 0, levels_.back().size(), span, stretch, range);
}

// `span` is how many places a node of the level stands for.
void Strip::KeepLedBelow(std::size_t level, std::size_t begin, std::size_t end, std::size_t span,
                         const Stretch& stretch, Range range) {
  begin = std::max(begin, range.begin / span);
  end = std::min(end, (range.end + span - 1) / span);
  for (std::size_t at = begin; at < end; ++at) {
    const Node& node = levels_[level][at];
    if (node.count == 0 || node.IsSurelyLed(stretch)) continue;
    if (level > 0) {
      const std::size_t first = at * kNodeCapacity;
      KeepLedBelow(level - 1, first, first + kNodeCapacity, span / kNodeCapacity, stretch, range);
      continue;
    }
    const std::size_t last = std::min(range.end, (at + 1) * kNodeCapacity);
    for (std::size_t rank = std::max(range.begin, at * kNodeCapacity); rank < last; ++rank) {
      if (is_there_[rank] != 0 && !stretch.led.LeadsThrough(places_[rank].place)) TakeOut(rank);
    }
  }
}

// The node with the least bound comes first.
void Strip::FindNearest(const Stretch& stretch, Range range, NearestPlace& nearest) const {
  struct Open {
    double bound;
    std::size_t level, node, span;
    bool operator<(const Open& other) const { return bound > other.bound; }
  };
  std::priority_queue<Open> open;
  const auto add = [&](std::size_t level, std::size_t begin, std::size_t end, std::size_t span) {
    begin = std::max(begin, range.begin / span);
    end = std::min({end, (range.end + span - 1) / span, levels_[level].size()});
    for (std::size_t at = begin; at < end; ++at) {
      const Node& node = levels_[level][at];
      if (node.count == 0) continue;
      const double bound = node.LeastOffset(stretch);
      if (!nearest.IsSurelyNearerThan(bound)) open.push({bound, level, at, span});
    }
  };
  std::size_t span = kNodeCapacity;
  for (std::size_t level = 1; level < levels_.size(); ++level) span *= kNodeCapacity;
  add(levels_.size() - 1, 0, levels_.back().size(), span);
  while (!open.empty() && !nearest.IsSurelyNearerThan(open.top().bound)) {
    const Open next = open.top();
    open.pop();
    const std::size_t first = next.node * kNodeCapacity;
    if (next.level > 0) {
      add(next.level - 1, first, first + kNodeCapacity, next.span / kNodeCapacity);
      continue;
    }
    Each({std::max(range.begin, first), std::min(range.end, first + kNodeCapacity)},
         [&](const PassedPlace& place) { nearest.Offer(place); });
  }
}

}  // namespace tessarine::engine
