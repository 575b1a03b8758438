// SPDX-License-Identifier: GPL-2.0-or-later
// Shapes that jump over the edge, cut at 180 degrees once their steps go the short way.
#include "shapes/short_steps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "shapes/wrap.h"
#include "tests/helpers/shapes.h"

namespace tessarine::MyGeometricOperations {
namespace {

using geodesy::EnclosedPole;
using tessarine::testing::PolygonOf;
using tessarine::testing::PolylineOf;
using ::testing::ElementsAre;
using Line = std::vector<XY>;

constexpr WrapBox kEarth{-180.0, 90.0, 180.0, -90.0};

Line Reversed(Line ring) {
  std::ranges::reverse(ring);
  return ring;
}

// Corners a multiple of 30 degrees apart along a parallel, from -180 eastward; its last step is the jump to the first.
Line Parallel(double latitude, double wave = 0.0) {
  Line ring;
  for (int corner = 0; corner <= 12; ++corner) {
    const double longitude = -180.0 + 30.0 * (corner % 12);
    ring.push_back({longitude, latitude + (corner % 2 == 0 ? wave : -wave)});
  }
  return ring;
}

struct Cut {
  double area = 0.0;
  Envelope extent;
  std::size_t parts = 0;
  ShortSteps steps;
};

Cut CutAtEdge(const std::vector<Line>& rings, EnclosedPole pole = EnclosedPole::SmallerPart) {
  const auto polygon = PolygonOf(rings);
  Cut cut;
  cut.steps = TakeShortSteps(*polygon, pole);
  const WrappedShape wrapped = WrapOwnShape(polygon, kEarth, nullptr);
  EXPECT_NEAR(wrapped.measure_after, wrapped.measure_before, 1e-9);
  cut.area = wrapped.measure_after;
  cut.extent = wrapped.shape->Envelope();
  cut.parts = Cast<Polygon>(wrapped.shape)->Parts().size();
  return cut;
}

TEST(ShortSteps, PolygonsAreCutAtTheEdge) {
  const Line box{{170, -5}, {170, 5}, {-170, 5}, {-170, -5}, {170, -5}};
  const Line hole{{-178, -1}, {-174, -1}, {-174, 1}, {-178, 1}, {-178, -1}};
  const Line hole_across{{178, -1}, {-178, -1}, {-178, 1}, {178, 1}, {178, -1}};
  struct Row {
    const char* name;
    std::vector<Line> rings;
    double area;
    std::size_t parts;
  };
  const Row rows[] = {
      {"box", {box}, 200, 2},
      {"box, the other way round", {Reversed(box)}, 200, 2},
      {"box from its other side", {{{-170, -5}, {170, -5}, {170, 5}, {-170, 5}, {-170, -5}}}, 200, 2},
      {"open ring", {{{170, -5}, {170, 5}, {-170, 5}, {-170, -5}}}, 200, 2},
      {"hole beyond the edge", {box, hole}, 192, 3},
      {"hole beyond the edge, both the other way", {Reversed(box), Reversed(hole)}, 192, 3},
      {"hole across the edge", {box, hole_across}, 192, 2},
      {"island on this side", {box, testing::Box(-100, 0, -90, 10)}, 300, 3},
      {"over the edge four times",
       {{{170, 0}, {-170, 0}, {-170, 2}, {175, 2}, {175, 4}, {-170, 4}, {-170, 6}, {170, 6}, {170, 0}}},
       90,
       3},
      {"vertices on the edge", {{{170, 0}, {170, 5}, {180, 5}, {-170, 5}, {-170, 0}, {-180, 0}, {170, 0}}}, 100, 2},
      {"all in one half", {testing::Box(10, 0, 20, 10)}, 100, 1},
      {"a belt by four corners", {testing::Box(-180, -10, 180, 10)}, 7200, 1},
  };
  for (const Row& row : rows) {
    const Cut cut = CutAtEdge(row.rings);
    EXPECT_NEAR(cut.area, row.area, 1e-9) << row.name;
    EXPECT_EQ(cut.parts, row.parts) << row.name;
    EXPECT_FALSE(cut.steps.holds_north || cut.steps.holds_south) << row.name;
  }
}

// A coast with its seam along the pole: nothing of it is torn, so nothing is left to choose.
TEST(ShortSteps, ARingThatRunsAlongItsPoleStays) {
  const std::vector<Line> coast = {
      {{-180, -84}, {-90, -70}, {0, -70}, {90, -70}, {180, -84}, {180, -90}, {-180, -90}, {-180, -84}}};
  for (const EnclosedPole pole : {EnclosedPole::SmallerPart, EnclosedPole::North, EnclosedPole::South,
                                  EnclosedPole::Both, EnclosedPole::Neither}) {
    const Cut cut = CutAtEdge(coast, pole);
    EXPECT_FALSE(cut.steps.changed);
    EXPECT_NEAR(cut.area, 90.0 * (13 + 20 + 20 + 13), 1e-6);
  }
}

TEST(ShortSteps, PolesAndBelts) {
  const double cap = 360.0 * 20, far_cap = 360.0 * 160, belt = 360.0 * 50;
  struct Row {
    const char* name;
    std::vector<Line> rings;
    EnclosedPole pole;
    double area;
    bool north, south;
  };
  // Files keep no course of such a ring, so it must not matter; the wave is that of a coast.
  const Row rows[] = {
      {"north", {Parallel(70, 3)}, EnclosedPole::SmallerPart, cap, true, false},
      {"north, low at the edge", {Parallel(70, -3)}, EnclosedPole::SmallerPart, cap, true, false},
      {"north, the other way", {Reversed(Parallel(70, 3))}, EnclosedPole::SmallerPart, cap, true, false},
      {"south", {Parallel(-70, 3)}, EnclosedPole::SmallerPart, cap, false, true},
      {"south, the other way", {Reversed(Parallel(-70))}, EnclosedPole::SmallerPart, cap, false, true},
      {"all but the cap", {Parallel(70, 3)}, EnclosedPole::South, far_cap, false, true},
      {"all but the southern cap", {Parallel(-70)}, EnclosedPole::North, far_cap, true, false},
      {"cap with a hole",
       {Parallel(70), Reversed(testing::Box(-100, 80, -80, 85))},
       EnclosedPole::North,
       cap - 100,
       true,
       false},
      {"belt", {Parallel(-20, 3), Reversed(Parallel(30, -3))}, EnclosedPole::SmallerPart, belt, false, false},
      {"broad belt with its hole",
       {Parallel(-80, -3), Parallel(80, 3)},
       EnclosedPole::Neither,
       360.0 * 160,
       false,
       false},
      {"both caps", {Parallel(70, 3), Parallel(-70, 3)}, EnclosedPole::SmallerPart, 2 * cap, true, true},
      {"belt or caps by name", {Parallel(-20, 3), Parallel(30, 3)}, EnclosedPole::Both, 360.0 * 130, true, true},
  };
  for (const Row& row : rows) {
    const Cut cut = CutAtEdge(row.rings, row.pole);
    EXPECT_NEAR(cut.area, row.area, 1e-6) << row.name;
    EXPECT_EQ(cut.steps.holds_north, row.north) << row.name;
    EXPECT_EQ(cut.steps.holds_south, row.south) << row.name;
    EXPECT_EQ(cut.extent.YMax() == 90.0, row.north) << row.name;
    EXPECT_EQ(cut.extent.YMin() == -90.0, row.south) << row.name;
    EXPECT_EQ(cut.extent.XMin(), -180.0) << row.name;
    EXPECT_EQ(cut.extent.XMax(), 180.0) << row.name;
  }
}

TEST(ShortSteps, AHoleRoundTheGlobeMakesABelt) {
  // As a file's polygon comes in: the exterior ring runs clockwise on the plane, the hole the other way, whatever the
  // two mean on the globe. The belt is the larger part here.
  Line exterior = Parallel(60, 3), hole = Parallel(-60, 3);
  for (Line* ring : {&exterior, &hole}) (*ring)[3].y += 4;
  if (Ring(exterior).Area() < 0.0) exterior = Reversed(exterior);
  if (Ring(hole).Area() > 0.0) hole = Reversed(hole);
  EXPECT_NEAR(CutAtEdge({exterior, hole}).area, 360.0 * 120, 1e-6);
}

TEST(ShortSteps, LinesGoTheShortWay) {
  const auto line = PolylineOf({{{170, 0}, {-170, 0}, {-160, 5}}, {{0, 0}, {180, 0}}});
  EXPECT_TRUE(TakeShortSteps(*line, EnclosedPole::SmallerPart).changed);
  EXPECT_THAT(line->Parts()[0]->Vertices(), ElementsAre(XY{170, 0}, XY{190, 0}, XY{200, 5}));
  const auto wrapped = Cast<Polyline>(WrapOwnShape(line, kEarth, nullptr).shape);
  EXPECT_EQ(wrapped->GeometryCount(), 3);
  EXPECT_NEAR(wrapped->Length(), 20 + std::hypot(10.0, 5.0) + 180, 1e-9);
}

// Both examples of RFC 7946, section 3.1.9, before and after their cut.
TEST(ShortSteps, CutAsTheStandardOfGeoJsonDoes) {
  const auto line = PolylineOf({{{170, 45}, {-170, 45}}});
  TakeShortSteps(*line, EnclosedPole::SmallerPart);
  const auto cut = Cast<Polyline>(WrapOwnShape(line, kEarth, nullptr).shape);
  ASSERT_EQ(cut->Parts().size(), 2U);
  EXPECT_THAT(cut->Parts()[0]->Vertices(), ElementsAre(XY{170, 45}, XY{180, 45}));
  EXPECT_THAT(cut->Parts()[1]->Vertices(), ElementsAre(XY{-180, 45}, XY{-170, 45}));

  const auto polygon = PolygonOf({{{170, 40}, {170, 50}, {-170, 50}, {-170, 40}, {170, 40}}});
  TakeShortSteps(*polygon, EnclosedPole::SmallerPart);
  const auto boxes = Cast<Polygon>(WrapOwnShape(polygon, kEarth, nullptr).shape);
  ASSERT_EQ(boxes->Parts().size(), 2U);
  for (const auto& part : boxes->Parts()) {
    const Envelope extent = part->Envelope();
    EXPECT_EQ(extent.XMin(), extent.XMin() < 0.0 ? -180.0 : 170.0);
    EXPECT_EQ(extent.XMax(), extent.XMin() < 0.0 ? -170.0 : 180.0);
    EXPECT_EQ(extent.YMin(), 40.0);
    EXPECT_EQ(extent.YMax(), 50.0);
    EXPECT_NEAR(std::fabs(Cast<Ring>(part)->Area()), 100.0, 1e-9);
  }
}

TEST(ShortSteps, AParallelFromEdgeToEdgeStays) {
  const Line parallel = {{-180, 30}, {180, 30}};
  const auto line = PolylineOf({parallel, {{170, 0}, {-170, 0}}});
  EXPECT_TRUE(TakeShortSteps(*line, EnclosedPole::SmallerPart).changed);
  EXPECT_THAT(line->Parts()[0]->Vertices(), ::testing::ElementsAreArray(parallel));
  EXPECT_FALSE(TakeShortSteps(*PolylineOf({parallel}), EnclosedPole::SmallerPart).changed);
  // Of a longer line only the other steps go the short way; a rounding makes no difference.
  const auto longer = PolylineOf({{{-180, 10}, {180.0000000001, 10}, {-170, 20}, {170, 25}}});
  TakeShortSteps(*longer, EnclosedPole::SmallerPart);
  EXPECT_THAT(longer->Parts()[0]->Vertices(),
              ElementsAre(XY{-180, 10}, XY{180.0000000001, 10}, XY{190, 20}, XY{170, 25}));
}

TEST(ShortSteps, WhatHasNoSuchStepStaysToTheBit) {
  const auto polygon = PolygonOf({testing::Box(-179.1, -5, 0.3, 5)});
  const auto before = CloneOf(*polygon);
  EXPECT_FALSE(TakeShortSteps(*polygon, EnclosedPole::SmallerPart).changed);
  EXPECT_TRUE(polygon->IsEqual(*before));
  Multipoint places({{170, 0}, {-170, 0}});
  EXPECT_FALSE(TakeShortSteps(places, EnclosedPole::North).changed);
  EXPECT_EQ(places.Point(1), (XY{-170, 0}));
}

}  // namespace
}  // namespace tessarine::MyGeometricOperations
