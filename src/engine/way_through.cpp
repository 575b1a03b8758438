// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/way_through.h"

#include <array>

#include "engine/strip.h"
#include "platform/run_stop.h"

namespace tessarine::engine {
namespace {

struct FramedPlace {
  XY place;
  Framed framed;
};

// A part of the way, with the places that it passes: those of its own ranges of the strips, and a few more near its
// ends, which are another part's too.
struct Part {
  FramedPlace from, to;
  std::array<Strip::Range, 2> own;
  std::vector<const PassedPlace*> shared;
};

class WayFinder {
 public:
  WayFinder(const Led& segment, const std::vector<XY>& places) : segment_(segment), frame_(segment) {
    std::array<std::vector<PassedPlace>, 2> sides;
    for (const XY place : places) {
      const Framed framed = frame_(place);
      const auto order = static_cast<std::uint32_t>(sides[0].size() + sides[1].size());
      sides[framed.across < 0.0 ? 1 : 0].push_back({place, framed, order});
    }
    for (std::size_t side = 0; side < strips_.size(); ++side) strips_[side] = Strip(std::move(sides[side]));
  }

  void AppendTo(std::vector<XY>& line) {
    Part whole{{segment_.from, frame_(segment_.from)},
               {segment_.to, frame_(segment_.to)},
               {strips_[0].All(), strips_[1].All()},
               {}};
    KeepLed(whole);
    std::vector<Part> open;
    open.push_back(std::move(whole));
    while (!open.empty()) {
      EndIfStopped();
      Part part = std::move(open.back());
      open.pop_back();
      const PassedPlace* nearest = Nearest(part);
      if (nearest == nullptr) {
        line.push_back(part.to.place);
        continue;
      }
      TakeOut(part, *nearest);
      const FramedPlace middle{nearest->place, nearest->framed};
      Part before{part.from, middle, part.own, {}}, after{middle, part.to, part.own, {}};
      for (std::size_t side = 0; side < strips_.size(); ++side) {
        before.own[side].end = after.own[side].begin = strips_[side].RankAt(middle.framed.along, part.own[side]);
      }
      // Before any is taken out.
      before.shared = SharedPlaces(part, before);
      after.shared = SharedPlaces(part, after);
      KeepLed(before);
      KeepLed(after);
      open.push_back(std::move(after));
      open.push_back(std::move(before));
    }
  }

 private:
  [[nodiscard]] Led LedOf(const Part& part) const { return {part.from.place, part.to.place, segment_.tolerance}; }
  [[nodiscard]] Stretch StretchOf(const Part& part) const {
    return {LedOf(part), part.from.framed, part.to.framed, frame_.Margin()};
  }

  void KeepLed(const Part& part) {
    const Stretch stretch = StretchOf(part);
    for (std::size_t side = 0; side < strips_.size(); ++side) strips_[side].KeepLed(stretch, part.own[side]);
  }

  [[nodiscard]] const PassedPlace* Nearest(const Part& part) const {
    const Stretch stretch = StretchOf(part);
    NearestPlace nearest(stretch.led);
    for (const PassedPlace* place : part.shared) nearest.Offer(*place);
    for (std::size_t side = 0; side < strips_.size(); ++side) {
      strips_[side].FindNearest(stretch, part.own[side], nearest);
    }
    return nearest.Found();
  }

  void TakeOut(Part& part, const PassedPlace& place) {
    for (std::size_t side = 0; side < strips_.size(); ++side) {
      if (strips_[side].Holds(place, part.own[side])) strips_[side].TakeOut(place);
    }
    std::erase(part.shared, &place);
  }

  // The places of a part that one of its two parts is led through although they aren't among its own. What it's led
  // through lies within the tolerance of it, give or take a few times what rounding does, which is less.
  [[nodiscard]] std::vector<const PassedPlace*> SharedPlaces(const Part& part, const Part& half) const {
    const Led led = LedOf(half);
    std::vector<const PassedPlace*> shared;
    const auto take = [&](const PassedPlace& place) {
      if (led.LeadsThrough(place.place)) shared.push_back(&place);
    };
    for (const PassedPlace* place : part.shared) take(*place);
    const auto [first, last] = std::minmax(half.from.framed.along, half.to.framed.along);
    const double reach = 16.0 * segment_.tolerance;
    for (std::size_t side = 0; side < strips_.size(); ++side) {
      const Strip& strip = strips_[side];
      const Strip::Range &all = part.own[side], &own = half.own[side];
      const std::size_t begin = strip.RankAt(first - reach, all), end = strip.RankAt(last + reach, all);
      strip.Each({begin, std::min(end, own.begin)}, take);
      strip.Each({std::max(begin, own.end), end}, take);
    }
    return shared;
  }

  const Led& segment_;
  SegmentFrame frame_;
  std::array<Strip, 2> strips_;
};

}  // namespace

void AppendWay(const Led& segment, const std::vector<XY>& places, std::vector<XY>& line) {
  if (places.empty()) {
    line.push_back(segment.to);
    return;
  }
  WayFinder(segment, places).AppendTo(line);
}

}  // namespace tessarine::engine
