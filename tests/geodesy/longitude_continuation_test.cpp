// SPDX-License-Identifier: GPL-2.0-or-later
#include "geodesy/longitude_continuation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "platform/vertex_rings.h"

namespace tessarine::geodesy {
namespace {

using ::testing::ElementsAre;
using Line = std::vector<XY>;
using Rings = std::vector<Line>;

// The planar area of each ring in square degrees, positive clockwise.
std::vector<double> AreasOf(const Rings& rings) {
  std::vector<double> areas;
  for (const Line& ring : rings) areas.push_back(-MomentsOf(ring).area);
  return areas;
}

Line Box(double west, double south, double east, double north) {
  return {{west, south}, {west, north}, {east, north}, {east, south}, {west, south}};
}

// A ring along a parallel with a wave, from `start` eastward (turn +1) or westward (-1), its longitudes from -180 to
// 180.
Line Girdle(double start, double latitude, double wave, int turn, int steps = 36) {
  Line ring;
  for (int step = 0; step <= steps; ++step) {
    const double degrees = start + turn * (step % steps) * 360.0 / steps;
    ring.push_back({std::remainder(degrees, 360.0), latitude + wave * std::sin(degrees * 0.017453292519943295 * 3)});
  }
  return ring;
}

Line Reversed(Line ring) {
  std::ranges::reverse(ring);
  return ring;
}

TEST(LongitudeContinuation, LongitudesAreCarriedOn) {
  struct Row {
    double from, to, carried;
  };
  const Row rows[] = {{170, -170, 190}, {-170, 170, -190}, {0, 180, 180},   {180, 0, 0},
                      {0, -180, -180},  {10, 191, -169},   {350, 10, 370},  {-180, 180, -180},
                      {170, 910, 190},  {5, 5, 5},         {530, -170, 550}};
  for (const Row& row : rows) EXPECT_EQ(CarriedOn(row.from, row.to), row.carried) << row.from << " " << row.to;
}

TEST(LongitudeContinuation, LinesKeepTheirFirstLongitude) {
  EXPECT_THAT(CarriedOn(Line{{170, 1}, {-170, 2}, {-150, 3}, {175, 4}}),
              ElementsAre(XY{170, 1}, XY{190, 2}, XY{210, 3}, XY{175, 4}));
  // A pole takes the longitude of what stands before it, and then of what follows.
  EXPECT_THAT(CarriedOn(Line{{170, 80}, {0, 90}, {-170, 80}}),
              ElementsAre(XY{170, 80}, XY{170, 90}, XY{190, 90}, XY{190, 80}));
  EXPECT_THAT(CarriedOn(Line{{0, -90}, {100, -80}}), ElementsAre(XY{100, -90}, XY{100, -80}));
}

TEST(LongitudeContinuation, BoxesOverTheEdge) {
  struct Row {
    const char* name;
    Rings rings;
    std::vector<double> areas;
  };
  const Row rows[] = {
      {"over 180 by a jump", {{{170, -5}, {170, 5}, {-170, 5}, {-170, -5}, {170, -5}}}, {200}},
      {"the other winding", {Reversed({{170, -5}, {170, 5}, {-170, 5}, {-170, -5}, {170, -5}})}, {-200}},
      {"its hole beyond the edge",
       {{{170, -5}, {170, 5}, {-170, 5}, {-170, -5}, {170, -5}}, Reversed(Box(-178, -1, -174, 1))},
       {200, -8}},
      {"no jump at all", {Box(170, -5, 190, 5)}, {200}},
      {"an island elsewhere stays",
       {{{170, -5}, {170, 5}, {-170, 5}, {-170, -5}, {170, -5}}, Box(-150, 0, -140, 9)},
       {200, 90}},
      {"the edge given twice",
       {{{170, 0}, {170, 5}, {180, 5}, {-180, 5}, {-170, 5}, {-170, 0}, {-180, 0}, {180, 0}, {170, 0}}},
       {100}},
      {"the globe by its corners", {Box(-180, -90, 180, 90)}, {360.0 * 180}},
      {"a belt by its corners", {Box(-180, -30, 180, 30)}, {360.0 * 60}},
  };
  for (const Row& row : rows) {
    const Rings rings = ContinuedRings(row.rings);
    const std::vector<double> areas = AreasOf(rings);
    ASSERT_EQ(areas.size(), row.areas.size()) << row.name;
    for (std::size_t index = 0; index < areas.size(); ++index) {
      EXPECT_NEAR(areas[index], row.areas[index], 1e-9) << row.name;
    }
  }
}

TEST(LongitudeContinuation, AHoleStandsInItsShell) {
  const Rings rings =
      ContinuedRings({{{170, -5}, {170, 5}, {-170, 5}, {-170, -5}, {170, -5}}, Reversed(Box(-178, -1, -174, 1))});
  EXPECT_EQ(rings[1].front(), (XY{182, -1}));
}

TEST(LongitudeContinuation, RingsWithoutALongStepKeepTheirBits) {
  const Rings rings = {Box(-179.3, -5, -0.1, 5), Reversed(Box(-100, -1, -90, 1)), Box(0.3, 0, 180, 2)};
  EXPECT_EQ(ContinuedRings(rings), rings);
}

// What is enclosed, in square degrees, against the belt that the wave averages to. The wave has whole periods, so the
// area is the one of the straight parallel.
TEST(LongitudeContinuation, RingsRoundTheGlobe) {
  struct Row {
    const char* name;
    Rings rings;
    EnclosedPole pole;
    std::vector<double> areas;
  };
  const double cap = 360.0 * 20, rest = 360.0 * 160, belt = 360.0 * 30;
  const Row rows[] = {
      {"westward holds the north", {Girdle(180, 70, 3, -1)}, EnclosedPole::BySense, {cap}},
      {"eastward holds the south", {Girdle(-180, -70, 3, 1)}, EnclosedPole::BySense, {cap}},
      {"eastward in the north", {Girdle(33, 70, 3, 1)}, EnclosedPole::BySense, {rest}},
      {"the pole is named", {Girdle(33, 70, 3, 1)}, EnclosedPole::North, {-cap}},
      {"the other pole is named", {Girdle(33, -70, 0, -1)}, EnclosedPole::South, {-cap}},
      {"a belt", {Girdle(180, 10, 3, -1), Girdle(-120, 40, 3, 1)}, EnclosedPole::BySense, {belt}},
      {"a belt, the hole first", {Girdle(-120, 40, 3, 1), Girdle(77, 10, 3, -1)}, EnclosedPole::BySense, {belt}},
      {"both caps", {Girdle(0, 70, 3, -1), Girdle(50, -70, 3, 1)}, EnclosedPole::BySense, {cap, cap}},
      {"a belt and a cap",
       {Girdle(0, 70, 0, -1), Girdle(50, -70, 3, -1), Girdle(80, -40, 3, 1)},
       EnclosedPole::BySense,
       {cap, belt}},
      {"a wild belt", {Girdle(180, 0, 30, -1), Girdle(-120, 30, 30, 1)}, EnclosedPole::BySense, {belt}},
  };
  for (const Row& row : rows) {
    const Rings rings = ContinuedRings(row.rings, row.pole);
    const std::vector<double> areas = AreasOf(rings);
    ASSERT_EQ(areas.size(), row.areas.size()) << row.name;
    for (std::size_t index = 0; index < areas.size(); ++index) {
      EXPECT_NEAR(areas[index], row.areas[index], 1e-6) << row.name << " " << index;
      EXPECT_EQ(rings[index].front(), rings[index].back()) << row.name;
    }
  }
}

TEST(LongitudeContinuation, AHoleFollowsItsCap) {
  const Rings rings = ContinuedRings({Girdle(90, 60, 0, -1), Reversed(Box(-100, 80, -80, 85))});
  ASSERT_EQ(rings.size(), 2U);
  for (const XY vertex : rings[1]) EXPECT_TRUE(Encloses(rings[0], vertex)) << vertex.x;
}

TEST(LongitudeContinuation, APoleThatIsAVertex) {
  // A quarter of the cap with the pole at a longitude that has nothing to do with it, and the same over the edge.
  const double sector = 90.0 * 10;
  for (const double west : {0.0, 135.0}) {
    const Line ring = {
        {std::remainder(west + 90, 360), 80}, {west, 80}, {-77, 90}, {std::remainder(west + 90, 360), 80}};
    EXPECT_NEAR(std::fabs(MomentsOf(ArrangedRings({CarriedOn(ring)}).rings[0]).area), sector, 1e-9) << west;
  }
  // Three quarters, beginning at the pole.
  const Line most = {{0, 90}, {-135, 80}, {-45, 80}, {45, 80}, {135, 80}, {0, 90}};
  EXPECT_NEAR(std::fabs(MomentsOf(ArrangedRings({CarriedOn(most)}).rings[0]).area), 3 * sector, 1e-9);
}

TEST(LongitudeContinuation, EmptyAndTinyInputs) {
  EXPECT_TRUE(ContinuedRings({}).empty());
  EXPECT_EQ(ContinuedRings({{}, {{1, 2}}}), (Rings{{}, {{1, 2}}}));
  EXPECT_TRUE(CarriedOn(Line{}).empty());
  EXPECT_EQ(TurnsOf(Line{{1, 2}}), 0);
}

}  // namespace
}  // namespace tessarine::geodesy
