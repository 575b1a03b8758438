// SPDX-License-Identifier: GPL-2.0-or-later
// Unions of many shapes; areas and lengths by hand.
#include <gtest/gtest.h>

#include <cmath>

#include "helpers/shapes.h"

namespace tessarine {
namespace {

using namespace testing;

TEST(ConstructUnion, OfAChessboardFillsTheSquare) {
  GeometryBag bag;
  for (int column = 0; column < 20; ++column) {
    for (int row = 0; row < 20; ++row) bag.AddGeometry(PolygonOf({Box(column, row, column + 1, row + 1)}));
  }
  Polygon result;
  result.ConstructUnion(bag);
  EXPECT_EQ(result.GeometryCount(), 1);
  EXPECT_DOUBLE_EQ(result.Area(), 400.0);
  EXPECT_DOUBLE_EQ(result.Envelope().XMax(), 20.0);
}

TEST(ConstructUnion, KeepsHolesAndRepairsItsMembers) {
  GeometryBag bag;
  bag.AddGeometry(PolygonOf({Box(0, 0, 10, 10), Box(2, 2, 8, 8, false)}));
  bag.AddGeometry(PolygonOf({{{2, 2}, {2, 4}, {4, 2}, {4, 4}, {2, 2}}}));  // a bow tie of two triangles of 1
  bag.AddGeometry(std::make_shared<Polygon>());
  bag.AddGeometry(PolylineOf({{{0, 0}, {50, 50}}}));  // of another kind
  Polygon result;
  result.ConstructUnion(bag);
  EXPECT_NEAR(result.Area(), 100.0 - 36.0 + 2.0, 1e-12);
}

TEST(ConstructUnion, OfNearlyEqualEdgesSurvives) {
  // Neighbours whose common border differs by rounding, turned by every degree.
  GeometryBag bag;
  for (int turn = 0; turn < 360; ++turn) {
    const double from = turn * std::acos(-1.0) / 180.0, to = (turn + 1.0000001) * std::acos(-1.0) / 180.0;
    bag.AddGeometry(PolygonOf({{{0, 0}, {std::cos(to), std::sin(to)}, {std::cos(from), std::sin(from)}, {0, 0}}}));
  }
  Polygon result;
  result.ConstructUnion(bag);
  EXPECT_NEAR(result.Area(), 180.0 * std::sin(std::acos(-1.0) / 180.0), 1e-6);  // half of 360 sines
}

TEST(ConstructUnion, OfLinesDropsWhatLiesTwiceAndKeepsTheirDirection) {
  GeometryBag bag;
  bag.AddGeometry(PolylineOf({{{0, 0}, {10, 0}}}));
  bag.AddGeometry(PolylineOf({{{5, 0}, {20, 0}}}));
  bag.AddGeometry(PolylineOf({{{3, -5}, {3, 5}}}));
  Polyline result;
  result.ConstructUnion(bag);
  EXPECT_DOUBLE_EQ(result.Length(), 30.0);
  EXPECT_EQ(result.GeometryCount(), 4);  // the cross has four arms
  for (const auto& path : result.Parts()) {
    EXPECT_TRUE(path->ToPoint().x > path->FromPoint().x || path->ToPoint().y > path->FromPoint().y);
  }
}

// Three hundred squares along a diagonal, each over thirty others on both sides: a staircase, whose area is that of the
// first square and of what each adds to the one before.
TEST(ConstructUnion, OfACrowdIsThatOfItsPairs) {
  constexpr int kCount = 300, kSide = 30;
  GeometryBag bag;
  for (int number = 0; number < kCount; ++number) {
    const double at = (number * 7) % kCount;  // in no order of place
    bag.AddGeometry(PolygonOf({Box(at, at, at + kSide, at + kSide)}));
  }
  bag.AddGeometry(PolygonOf({Box(500, 0, 510, 10), Box(502, 2, 508, 8, false)}));
  Polygon result;
  result.ConstructUnion(bag);
  EXPECT_DOUBLE_EQ(result.Area(), kSide * kSide + (kCount - 1) * (2.0 * kSide - 1.0) + 100.0 - 36.0);
  EXPECT_EQ(result.GeometryCount(), 3);
}

// Chains of squares that touch each other, in no order of place, and the chains beside each other.
TEST(ConstructUnion, OfChainsKeepsTheOrderOfTheirFirstMembers) {
  GeometryBag bag;
  for (int number = 0; number < 300; ++number) {
    const double x = (number * 7) % 100, y = 10.0 * (number % 3);
    bag.AddGeometry(PolygonOf({Box(x, y, x + 1, y + 1)}));
  }
  Polygon result;
  result.ConstructUnion(bag);
  ASSERT_EQ(result.GeometryCount(), 3);
  for (int chain = 0; chain < 3; ++chain) {
    const Envelope box = result.Geometry(chain)->Envelope();
    EXPECT_EQ(box.YMin(), 10.0 * chain);
    EXPECT_EQ(box.XMax() - box.XMin(), 100.0);
  }
}

TEST(ConstructUnion, OfOneLineIsWhatItIsInCompany) {
  const struct {
    const char* name;
    std::vector<XY> line;
    double length;
    std::int32_t paths;
  } rows[] = {
      {"there and back and there again", {{0, 0}, {10, 0}, {0, 0}, {10, 0}}, 10.0, 1},
      {"plain", {{0, 0}, {3, 4}, {6, 0}}, 10.0, 1},
      {"across itself", {{0, 0}, {4, 0}, {4, 3}, {0, 3}, {0, 2}, {8, 2}}, 4.0 + 3.0 + 4.0 + 1.0 + 8.0, 3},
  };
  for (const auto& row : rows) {
    GeometryBag alone, in_company;
    alone.AddGeometry(PolylineOf({row.line}));
    in_company.AddGeometry(PolylineOf({row.line}));
    in_company.AddGeometry(PolylineOf({{{100, 0}, {101, 0}}}));
    Polyline one, two;
    one.ConstructUnion(alone);
    two.ConstructUnion(in_company);
    EXPECT_DOUBLE_EQ(one.Length(), row.length) << row.name;
    EXPECT_EQ(one.GeometryCount(), row.paths) << row.name;
    EXPECT_DOUBLE_EQ(two.Length(), row.length + 1.0) << row.name;
    EXPECT_EQ(two.GeometryCount(), row.paths + 1) << row.name;
    for (std::int32_t path = 0; path < row.paths; ++path) {
      EXPECT_TRUE(one.Geometry(path)->IsEqual(*two.Geometry(path))) << row.name;
    }
  }
}

TEST(ConstructUnion, OfNothingIsEmpty) {
  GeometryBag bag;
  Polygon polygon;
  polygon.AddGeometry(RingOf(Box(0, 0, 1, 1)));
  polygon.ConstructUnion(bag);
  EXPECT_TRUE(polygon.IsEmpty());
}

}  // namespace
}  // namespace tessarine
