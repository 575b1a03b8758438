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

TEST(ConstructUnion, OfNothingIsEmpty) {
  GeometryBag bag;
  Polygon polygon;
  polygon.AddGeometry(RingOf(Box(0, 0, 1, 1)));
  polygon.ConstructUnion(bag);
  EXPECT_TRUE(polygon.IsEmpty());
}

}  // namespace
}  // namespace tessarine
