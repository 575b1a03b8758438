// SPDX-License-Identifier: GPL-2.0-or-later
// Who lies in whom, where rings touch; and the files that come of it.
#include "engine/ring_nesting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

#include "engine/geos_bridge.h"
#include "engine/ogr_geometry.h"
#include "helpers/shapes.h"

namespace tessarine::engine {
namespace {

using testing::Box;
using testing::PolygonOf;
using Vertices = std::vector<XY>;

TEST(EnclosingRing, WhereRingsTouchTheirEdgesDecide) {
  const Vertices square = Box(0, 0, 4, 4);
  // A bay from above down to (2, 1).
  const Vertices bay = {{0, 0}, {0, 4}, {1, 4}, {2, 1}, {3, 4}, {4, 4}, {4, 0}, {0, 0}};
  const struct {
    const char* name;
    Vertices inner, outer;
    bool within;
  } rows[] = {
      {"free inside", Box(1, 1, 2, 2), square, true},
      {"free outside", Box(7, 1, 8, 2), square, false},
      {"around it", square, Box(1, 1, 2, 2), false},
      {"one corner on a side", {{0, 2}, {2, 3}, {2, 1}, {0, 2}}, square, true},
      {"one corner on a side, from outside", {{0, 2}, {-2, 3}, {-2, 1}, {0, 2}}, square, false},
      {"all corners on sides", {{0, 2}, {2, 4}, {4, 2}, {2, 0}, {0, 2}}, square, true},
      {"all corners on corners", {{0, 0}, {4, 4}, {4, 0}, {0, 0}}, square, true},
      {"all corners on corners of a bay", {{1, 4}, {3, 4}, {2, 1}, {1, 4}}, bay, false},
      {"all corners on corners below a bay", {{0, 0}, {2, 1}, {4, 0}, {0, 0}}, bay, true},
      {"a corner in a corner of the bay", {{2, 1}, {1.8, 3}, {2.2, 3}, {2, 1}}, bay, false},
      {"the ring itself", square, square, false},
      {"half of a square, with three of its sides", {{0, 0}, {0, 4}, {2, 4}, {2, 0}, {0, 0}}, square, true},
  };
  for (const auto& row : rows) {
    for (const bool inner_turned : {false, true}) {
      for (const bool outer_turned : {false, true}) {
        Vertices inner = row.inner, outer = row.outer;
        if (inner_turned) std::ranges::reverse(inner);
        if (outer_turned) std::ranges::reverse(outer);
        EXPECT_EQ(EnclosingRing(outer).Encloses(inner), row.within) << row.name << " " << inner_turned << outer_turned;
      }
    }
  }
}

// A hole whose vertices lie on the shell but for rounding: the greater part decides.
TEST(EnclosingRing, AHoleThatCrossesByAHairStaysAHole) {
  EXPECT_TRUE(EnclosingRing(Box(0, 0, 4, 4)).Encloses(Vertices{{-1e-9, 2}, {2, 3}, {3, 2}, {2, 1}, {-1e-9, 2}}));
}

// A wheel of 64 teeth, whose radius is 10 between them and 12 at their tips: what lies within 10 of the hub is inside,
// what begins beyond 12 outside. The ring's sides are searched one after the other at first, then by their tree.
TEST(EnclosingRing, FindsTheSameAfterManySearches) {
  Vertices wheel;
  for (int corner = 0; corner <= 128; ++corner) {
    const double turn = 2 * std::numbers::pi * (corner % 128) / 128, radius = corner % 2 == 0 ? 10 : 12;
    wheel.push_back({radius * std::cos(turn), radius * std::sin(turn)});
  }
  EnclosingRing ring(wheel);
  int inside = 0;
  for (double x = -14; x <= 14; x += 1.4) {
    for (double y = -14; y <= 14; y += 1.4) {
      const double far = std::hypot(std::fabs(x) + 0.1, std::fabs(y) + 0.1);
      const double near = std::hypot(std::fabs(x) - 0.1, std::fabs(y) - 0.1);
      if (far > 10 && near < 12) continue;
      EXPECT_EQ(ring.Encloses(Box(x - 0.1, y - 0.1, x + 0.1, y + 0.1)), far <= 10) << x << " " << y;
      inside += far <= 10 ? 1 : 0;
    }
  }
  EXPECT_GT(inside, 100);
  EXPECT_TRUE(ring.Encloses(Vertices{wheel[0], wheel[2], wheel[4], wheel[6], wheel[0]})) << "along chords inside";
  EXPECT_FALSE(ring.Encloses(Vertices{wheel[1], wheel[2], wheel[3], wheel[1]})) << "between two teeth";
  EXPECT_FALSE(ring.Encloses(wheel)) << "a ring doesn't lie in itself";
}

// Loops between places a third apart cross at places that no double holds; rings may touch within a rounding.
std::vector<Vertices> Loops(std::mt19937& random) {
  std::vector<Vertices> rings(1 + random() % 4);
  for (Vertices& ring : rings) {
    const std::size_t count = 3 + random() % 3;
    while (ring.size() < count)
      ring.push_back({static_cast<double>(random() % 6) / 3.0, static_cast<double>(random() % 6) / 3.0});
    ring.push_back(ring.front());
  }
  return rings;
}

TEST(NestRings, WhatIsWrittenOfCrossingLoopsIsValidAndAsLargeAsTold) {
  std::mt19937 random(134);
  int parted = 0;
  for (int round = 0; round < 2000; ++round) {
    const auto polygon = PolygonOf(Loops(random));
    polygon->Simplify();
    if (polygon->IsEmpty()) continue;
    const std::unique_ptr<OGRGeometry> written = OgrFromShape(*polygon, false);
    ASSERT_TRUE(written->IsValid()) << "round " << round;
    const double area = wkbFlatten(written->getGeometryType()) == wkbPolygon ? written->toPolygon()->get_Area()
                                                                             : written->toMultiPolygon()->get_Area();
    ASSERT_NEAR(area, polygon->Area(), 1e-12) << "round " << round;
    EXPECT_EQ(polygon->ConnectedComponentBag()->GeometryCount(), polygon->ExteriorRingCount()) << "round " << round;
    parted += polygon->GeometryCount() > 1 ? 1 : 0;
  }
  EXPECT_GT(parted, 500);
}

TEST(NestRings, ThreeLoopsThatTouchWithinARounding) {
  // The even-odd area by fractions.
  constexpr double kArea = 1685.0 / 1638.0;
  const double third = 1.0 / 3.0;
  const auto polygon = PolygonOf({{{4 * third, 5 * third}, {0, 4 * third}, {5 * third, third}, {4 * third, 5 * third}},
                                  {{4 * third, 4 * third}, {0, 1}, {2 * third, 2 * third}, {4 * third, 4 * third}},
                                  {{2 * third, 0}, {third, 4 * third}, {4 * third, 4 * third}, {2 * third, 0}}});
  polygon->Simplify();
  EXPECT_NEAR(polygon->Area(), kArea, 1e-14);
  const std::unique_ptr<OGRGeometry> written = OgrFromShape(*polygon, false);
  EXPECT_TRUE(written->IsValid());
  EXPECT_NEAR(written->toMultiPolygon()->get_Area(), kArea, 1e-14);
}

TEST(RunsCounterClockwise, HoldsForSlivers) {
  const double up = std::nextafter(1.0, 2.0);
  EXPECT_TRUE(RunsCounterClockwise(Box(0, 0, 1, 1, false)));
  EXPECT_FALSE(RunsCounterClockwise(Box(0, 0, 1, 1)));
  EXPECT_TRUE(RunsCounterClockwise(Vertices{{0.1, 0.1}, {3, 3}, {1, up}, {0.1, 0.1}}));
  EXPECT_FALSE(RunsCounterClockwise(Vertices{{0.1, 0.1}, {1, up}, {3, 3}, {0.1, 0.1}}));
}

}  // namespace
}  // namespace tessarine::engine
