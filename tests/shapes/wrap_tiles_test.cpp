// SPDX-License-Identifier: GPL-2.0-or-later
// What the wrap does over many tiles: the sums, the stop, and what the pieces are made of.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "shapes/wrap.h"
#include "tests/helpers/shapes.h"

namespace tessarine::MyGeometricOperations {
namespace {

using tessarine::testing::PolygonOf;
using tessarine::testing::PolylineOf;

constexpr WrapBox kEarth{-180.0, 90.0, 180.0, -90.0};

std::vector<XY> Circle(double x, double y, double radius, int corners) {
  std::vector<XY> ring;
  for (int corner = 0; corner <= corners; ++corner) {
    const double angle = -2.0 * std::acos(-1.0) * (corner % corners) / corners;
    ring.push_back({x + radius * std::cos(angle), y + radius * std::sin(angle)});
  }
  return ring;
}

TEST(WrapOverTiles, SumsInAndOut) {
  struct Row {
    const char* name;
    GeometryRef shape;
    WrapBox box;
    double before, after;
  };
  const Row rows[] = {
      {"polygon over the edge", PolygonOf({testing::Box(170, 0, 190, 10)}), kEarth, 200, 200},
      {"line over the edge", PolylineOf({{{170, 0}, {190, 0}}}), kEarth, 20, 20},
      {"line of which a third lies on the edge", PolylineOf({{{190, 0}, {180, 0}, {180, 10}, {170, 10}}}), kEarth, 30,
       40},
      {"there and back in one tile", PolylineOf({{{0, 0}, {10, 0}, {0, 0}}}), kEarth, 20, 20},
      {"there and back over two tiles", PolylineOf({{{170, 0}, {190, 0}, {170, 0}}}), kEarth, 40, 40},
      {"two rounds and a half", PolylineOf({{{0, 0}, {900, 0}}}), kEarth, 900, 900},
      {"bow tie, made simple first", PolygonOf({{{0, 0}, {10, 10}, {10, 0}, {0, 10}, {0, 0}}}), kEarth, 50, 50},
      {"four tiles that all come to lie on each other",
       PolygonOf({testing::Box(0.5, 0.5, 1.5, 1.5)}),
       {0, 1, 1, 0},
       1,
       1},
      {"a box of a hundred tiles", PolygonOf({testing::Box(0, 0, 10, 10)}), {0, 1, 1, 0}, 100, 1},
      {"no tile is covered", PolygonOf({{{0, 0}, {10, 0.1}, {10, 0}, {0, 0}}}), {0, 1, 1, 0}, 0.5, 0.1 - 0.005},
      {"places that meet", std::make_shared<Multipoint>(std::vector<XY>{{1, 1}, {361, 1}, {2, 2}, {2, 2}}), kEarth, 3,
       2},
      {"a place on the edge", std::make_shared<Multipoint>(std::vector<XY>{{180, 1}, {190, 1}}), kEarth, 2, 3},
  };
  for (const Row& row : rows) {
    const WrappedShape wrapped = WrapOwnShape(row.shape, row.box, nullptr);
    ASSERT_TRUE(wrapped.shape) << row.name;
    EXPECT_NEAR(wrapped.measure_before, row.before, 1e-9) << row.name;
    EXPECT_NEAR(wrapped.measure_after, row.after, 1e-9) << row.name;
    EXPECT_LT(wrapped.rounding, 1e-9) << row.name;
    const Envelope extent = wrapped.shape->Envelope();
    EXPECT_TRUE(extent.XMin() >= row.box.west && extent.XMax() <= row.box.east && extent.YMin() >= row.box.south &&
                extent.YMax() <= row.box.north)
        << row.name;
  }
}

// Nine million tiles around it, of which it covers many; in the other box it covers none.
TEST(WrapOverTiles, SmallBoxesCostNoMoreThanWhatTheyHold) {
  const WrapBox small{0.0, 0.001, 0.001, 0.0};
  const WrappedShape covered = WrapOwnShape(PolygonOf({Circle(0.0, 0.0, 3.0, 1000)}), small, nullptr);
  ASSERT_TRUE(covered.shape);
  EXPECT_NEAR(covered.measure_after, 1e-6, 1e-15);
  int asked = 0;
  const auto thread = PolygonOf({{{0, 0}, {3, 3.0001}, {3, 3}, {0, 0}}});
  const WrappedShape thin = WrapOwnShape(thread, small, [&] { return ++asked < 40000; });
  EXPECT_FALSE(thin.stopped) << "3000 tiles along the diagonal";
  // The last of the tiles has the widest strip, which lies over all others.
  EXPECT_NEAR(thin.measure_after, 0.001 * 2.9995 * 0.0001 / 3.0, 1e-13);
}

TEST(WrapOverTiles, AStopEndsTheWorkOnOneShape) {
  std::vector<XY> zigzag;
  for (int step = 0; step < 2000; ++step) zigzag.push_back({step * 0.7, step % 2 == 0 ? 0.0 : 50.0});
  const WrapBox small{0.0, 1.0, 1.0, 0.0};
  int asked = 0;
  const WrappedShape stopped = WrapOwnShape(PolylineOf({zigzag}), small, [&] { return ++asked < 100; });
  EXPECT_TRUE(stopped.stopped);
  EXPECT_FALSE(stopped.shape);
  EXPECT_EQ(asked, 100);
  const WrappedShape whole = WrapOwnShape(PolylineOf({zigzag}), small, [&] { return ++asked > 0; });
  EXPECT_FALSE(whole.stopped);
  EXPECT_NEAR(whole.measure_after, whole.measure_before, 1e-6);
  EXPECT_GT(asked, 50000) << "once at least for each tile";
}

TEST(WrapOverTiles, LinesKeepTheirOrderAndTheirWays) {
  // Out over the edge, around and back to where it began, which isn't on the edge.
  const auto ring = PolylineOf({{{170, 0}, {190, 0}, {190, 20}, {170, 20}, {170, 0}}});
  const auto wrapped = Cast<Polyline>(WrapOwnShape(ring, kEarth, nullptr).shape);
  ASSERT_TRUE(wrapped);
  EXPECT_TRUE(wrapped->IsEqual(
      *PolylineOf({{{180, 20}, {170, 20}, {170, 0}, {180, 0}}, {{-180, 0}, {-170, 0}, {-170, 20}, {-180, 20}}})));
}

}  // namespace
}  // namespace tessarine::MyGeometricOperations
