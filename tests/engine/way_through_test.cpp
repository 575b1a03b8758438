// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/way_through.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace tessarine::engine {
namespace {

using testing::ElementsAre;

// The rule by itself: through the nearest place, and so on with what is left on both ways.
void AppendPlainWay(const Led& segment, const std::vector<XY>& places, std::vector<XY>& line) {
  std::vector<XY> passed;
  const XY* nearest = nullptr;
  for (const XY& place : places) {
    if (!segment.LeadsThrough(place)) continue;
    passed.push_back(place);
    const auto offset = [&](XY at) { return OffsetOf(segment.from, segment.to, at); };
    if (nearest == nullptr || offset(place) < offset(*nearest)) nearest = &place;
  }
  if (nearest == nullptr) {
    line.push_back(segment.to);
    return;
  }
  std::erase(passed, *nearest);
  AppendPlainWay({segment.from, *nearest, segment.tolerance}, passed, line);
  AppendPlainWay({*nearest, segment.to, segment.tolerance}, passed, line);
}

std::vector<XY> WayOf(const Led& segment, const std::vector<XY>& places) {
  std::vector<XY> line;
  AppendWay(segment, places, line);
  return line;
}

TEST(WayThrough, RunsThroughPlacesWithinTheToleranceInTheirOrder) {
  const std::vector<XY> places{{7, 0.3}, {3, 0.4}, {5, -0.6}, {5, 9}, {-0.2, 0.1}, {10, 0}};
  EXPECT_THAT(WayOf({{0, 0}, {10, 0}, 0.5}, places), ElementsAre(XY{3, 0.4}, XY{7, 0.3}, XY{10, 0}));
}

TEST(WayThrough, LeadsOfEquallyNearPlacesThroughTheFirst) {
  // Once led through one, the segment passes the other no more.
  const std::vector<XY> places{{2, 0.5}, {2, -0.5}}, other_order{places[1], places[0]};
  EXPECT_THAT(WayOf({{0, 0}, {4, 0}, 0.5}, places), ElementsAre(XY{2, 0.5}, XY{4, 0}));
  EXPECT_THAT(WayOf({{0, 0}, {4, 0}, 0.5}, other_order), ElementsAre(XY{2, -0.5}, XY{4, 0}));
}

TEST(WayThrough, WithoutPlacesGoesStraight) {
  EXPECT_THAT(WayOf({{0, 0}, {4, 1}, 0.5}, {}), ElementsAre(XY{4, 1}));
  EXPECT_THAT(WayOf({{2, 2}, {2, 2}, 0.5}, {{2, 2}, {2.1, 2}}), ElementsAre(XY{2, 2}));
}

struct CrowdRow {
  const char* name;
  double x, y;    // where the segment begins
  double dx, dy;  // and how it runs
  double tolerance;
  int count;
  double spread;  // across, in tolerances
  double step;    // that coordinates are rounded to, 0 for none
};

const CrowdRow kCrowds[] = {
    {"sparse", 0, 0, 1000, 0, 0.5, 300, 1.2, 0},
    {"dense", 0, 0, 40, 30, 1.0, 400, 1.5, 0},
    {"far from the origin", 5e5, 5e6, -300, 200, 0.01, 400, 1.1, 0},
    {"on a grid, many equally near", 0, 0, 200, 0, 2.0, 300, 1.0, 1.0},
    {"on a grid, aslant", 10, 20, 64, 64, 1.5, 300, 1.3, 0.5},
    {"short beside the tolerance", 0, 0, 3, 1, 2.0, 60, 1.0, 0},
    {"hardly above what coordinates can tell", 1e6, 1e6, 1e-4, 1e-4, 1e-8, 200, 1.5, 0},
    {"tiny numbers", 0, 0, 1e-160, 0, 1e-162, 100, 1.0, 0},
    {"huge numbers", 1e99, -1e99, 1e98, 1e97, 1e96, 200, 1.3, 0},
};

TEST(WayThrough, IsThatOfTheRuleByItself) {
  for (const CrowdRow& row : kCrowds) {
    SCOPED_TRACE(row.name);
    std::mt19937 random(17);
    std::uniform_real_distribution<double> part(-0.02, 1.02), side(-row.spread, row.spread);
    std::size_t led = 0;
    for (int round = 0; round < 20; ++round) {
      const double length = std::hypot(row.dx, row.dy);
      std::vector<XY> places;
      for (int number = 0; number < row.count; ++number) {
        const double along = part(random), across = side(random) * row.tolerance / length;
        XY place{row.x + along * row.dx - across * row.dy, row.y + along * row.dy + across * row.dx};
        if (row.step > 0)
          place = {std::round(place.x / row.step) * row.step, std::round(place.y / row.step) * row.step};
        if (std::ranges::find(places, place) == places.end()) places.push_back(place);
      }
      const Led segment{{row.x, row.y}, {row.x + row.dx, row.y + row.dy}, row.tolerance};
      std::vector<XY> expected;
      AppendPlainWay(segment, places, expected);
      ASSERT_EQ(WayOf(segment, places), expected) << "round " << round;
      led += expected.size();
    }
    EXPECT_GT(led, 60U);
  }
}

TEST(WayThrough, FollowsALineThatLeavesItSlowly) {
  std::vector<XY> places;
  for (int step = 1; step < 3000; ++step) places.push_back({5e5 + step, 5e6 + step * 1e-6});
  const Led segment{{5e5, 5e6}, {5e5 + 3000, 5e6}, 0.05};
  std::vector<XY> expected = places;
  expected.push_back(segment.to);
  EXPECT_EQ(WayOf(segment, places), expected);
}

}  // namespace
}  // namespace tessarine::engine
