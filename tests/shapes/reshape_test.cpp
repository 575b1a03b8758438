// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/reshape.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tests/helpers/test_host.h"
#include "tests/shapes/fault_log.h"

namespace tessarine::MyGeometricOperations {
namespace {

using tessarine::testing::FaultLog;
using tessarine::testing::TestHost;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;

using Vertices = std::vector<XY>;

Vertices Box(double west, double south, double east, double north) {
  return {{west, south}, {west, north}, {east, north}, {east, south}, {west, south}};
}

Vertices Reversed(Vertices ring) { return {ring.rbegin(), ring.rend()}; }

template <class Shape, class Part>
std::shared_ptr<Shape> ShapeOf(const std::vector<Vertices>& parts) {
  auto shape = std::make_shared<Shape>();
  for (const Vertices& part : parts) shape->AddGeometry(std::make_shared<Part>(part));
  shape->SetSpatialReference(std::make_shared<UnknownCoordinateSystem>());
  return shape;
}
const auto PolygonOf = ShapeOf<Polygon, Ring>;
const auto PolylineOf = ShapeOf<Polyline, Path>;

template <class Shape, class Part>
std::shared_ptr<Shape> CurveOf(const std::vector<Segment>& segments) {
  auto part = std::make_shared<Part>();
  for (const Segment& segment : segments) part->AddSegment(segment);
  auto shape = std::make_shared<Shape>();
  shape->AddGeometry(part);
  shape->SetSpatialReference(std::make_shared<UnknownCoordinateSystem>());
  return shape;
}

bool Closed(const PartedShape& shape) {
  return std::ranges::all_of(shape.Parts(), [](const auto& part) { return part->IsClosed(); });
}

TEST(PolygonToPolyline, MakesOnePathOfEachRing) {
  struct Row {
    const char* name;
    std::vector<Vertices> rings;
    std::vector<double> lengths;  // of the paths in order
  };
  const Row rows[] = {
      {"empty", {}, {}},
      {"two exterior rings, one hole in the second",
       {Box(0, 0, 1, 1), Box(5, 5, 9, 9), Reversed(Box(6, 6, 8, 8))},
       {4, 16, 8}},
      {"holes follow their exterior ring",
       {Box(0, 0, 10, 10), Box(20, 0, 21, 1), Reversed(Box(1, 1, 3, 3)), Reversed(Box(5, 5, 8, 8))},
       {40, 8, 12, 4}},
  };
  for (const Row& row : rows) {
    const auto polygon = PolygonOf(row.rings);
    const auto copy = CloneOf(*polygon);
    const auto polyline = PolygonToPolyline(polygon);
    ASSERT_NE(polyline, nullptr) << row.name;
    std::vector<double> lengths;
    for (const auto& path : polyline->Parts()) lengths.push_back(path->Length());
    EXPECT_EQ(lengths, row.lengths) << row.name;
    EXPECT_TRUE(Closed(*polyline)) << row.name;
    EXPECT_EQ(polyline->SpatialReference(), polygon->SpatialReference()) << row.name;
    EXPECT_TRUE(polygon->IsEqual(*copy)) << row.name;
  }
}

TEST(PolygonToPolyline, KeepsCurves) {
  const auto disc = CurveOf<Polygon, Ring>({CircularArc::Circle({0, 0}, 2, true)});
  const auto circle = PolygonToPolyline(disc);
  ASSERT_NE(circle, nullptr);
  EXPECT_TRUE(circle->HasCurves());
  EXPECT_NEAR(circle->Length(), 4 * std::acos(-1.0), 1e-12);
}

TEST(PolygonToPolyline, ReportsAMissingPolygon) {
  FaultLog log;
  EXPECT_EQ(PolygonToPolyline(nullptr), nullptr);
  EXPECT_THAT(log.Reports(), ElementsAre("PolygonToPolyline 91"));
}

TEST(CurveTo, StraightShapesOfTheSameKindComeBackThemselves) {
  const auto box = PolygonOf({Box(0, 0, 2, 1)});
  const auto line = PolylineOf({{{0, 0}, {2, 0}, {2, 1}}});
  const auto reference = box->SpatialReference();
  EXPECT_EQ(CurveToPolygon(box, 200), box);
  EXPECT_EQ(CurveToPolyline(line, 200), line);
  EXPECT_EQ(box->SpatialReference(), reference);
}

TEST(CurveTo, TheOtherKindIsMadeAnew) {
  const auto line = PolylineOf({{{0, 0}, {0, 1}, {1, 1}}});
  const auto polygon = CurveToPolygon(line, 200);
  ASSERT_NE(polygon, nullptr);
  EXPECT_EQ(polygon->PointCount(), 4);
  EXPECT_TRUE(Closed(*polygon));
  EXPECT_EQ(polygon->Area(), 0.5);
  EXPECT_EQ(polygon->SpatialReference(), line->SpatialReference());
  EXPECT_EQ(line->PointCount(), 3);

  const auto rings = PolygonOf({Box(0, 0, 4, 4), Reversed(Box(1, 1, 2, 2))});
  const auto polyline = CurveToPolyline(rings, 200);
  ASSERT_NE(polyline, nullptr);
  EXPECT_EQ(polyline->GeometryCount(), 2);
  EXPECT_EQ(polyline->Length(), 20.0);
  EXPECT_EQ(polyline->SpatialReference(), rings->SpatialReference());
}

TEST(CurveTo, PiecesByTheShareOfTheLength) {
  const double pi = std::acos(-1.0);
  const Segment half_circle = CircularArc::Through({0, 0}, {1, 1}, {2, 0});
  const BezierCurve wave{{0, 0}, {1, 1}, {2, -1}, {3, 0}};
  struct Row {
    const char* name;
    std::vector<Segment> segments;
    std::int32_t piece_count;
    int segments_after;
  };
  const Row rows[] = {
      {"all of it for a lone curve", {half_circle}, 200, 200},
      {"never fewer than 8", {half_circle, Line{{2, 0}, {3000, 0}}}, 200, 8 + 1},
      {"never fewer than 8, of none", {half_circle}, 0, 8},
      {"half of the length", {half_circle, Line{{2, 0}, {2 + pi, 0}}}, 101, 50 + 1},
      {"truncated", {half_circle, Line{{2, 0}, {2 + pi * 1.01, 0}}}, 100, 49 + 1},
      {"49 pieces, whose ratios end short of 1", {half_circle}, 49, 49},
      {"a Bezier curve", {wave}, 60, 60},
      {"an elliptic arc", {EllipticArc::Ellipse({0, 0}, 3, 1, 0.5, true)}, 60, 60},
  };
  for (const Row& row : rows) {
    const auto line = CurveOf<Polyline, Path>(row.segments);
    const auto straight = CurveToPolyline(line, row.piece_count);
    ASSERT_NE(straight, nullptr) << row.name;
    EXPECT_FALSE(straight->HasCurves()) << row.name;
    EXPECT_EQ(straight->SegmentCount(), row.segments_after) << row.name;
    EXPECT_NEAR(straight->Length(), line->Length(), 0.03 * line->Length()) << row.name;
    EXPECT_NEAR(straight->ToPoint().x, line->ToPoint().x, 1e-13) << row.name;
    EXPECT_NE(straight, line) << row.name;
    EXPECT_TRUE(line->HasCurves()) << row.name;
  }
}

// The area of a regular polygon of n corners on a circle is n / 2 r^2 sin(2 pi / n).
TEST(CurveTo, CirclesStayClosed) {
  const double pi = std::acos(-1.0);
  for (const int pieces : {8, 49, 98, 103, 200}) {
    const auto disc = CurveOf<Polygon, Ring>({CircularArc::Circle({100, 50}, 3, true)});
    const auto polygon = CurveToPolygon(disc, pieces);
    ASSERT_NE(polygon, nullptr);
    EXPECT_EQ(polygon->SegmentCount(), pieces);
    EXPECT_TRUE(Closed(*polygon));
    EXPECT_NEAR(polygon->Area(), pieces / 2.0 * 9 * std::sin(2 * pi / pieces), 1e-11) << pieces;
    EXPECT_EQ(CurveToPolyline(disc, pieces)->SegmentCount(), pieces);
  }
}

TEST(CurveTo, FaultsShowAMessage) {
  TestHost host;
  FaultLog log;
  EXPECT_EQ(CurveToPolygon(std::make_shared<Point>(1, 2), 200), nullptr);
  EXPECT_EQ(CurveToPolyline(nullptr, 200), nullptr);
  ASSERT_EQ(host.messages.shown.size(), 2u);
  EXPECT_THAT(host.messages.shown[0].text,
              MatchesRegex("Failed in CurveToPolygon: \r\nError = Type mismatch\r\nLine Number = [1-9][0-9]*"));
  EXPECT_THAT(host.messages.shown[1].text,
              MatchesRegex("Failed in CurveToPolyline: \r\nError = Object.*\r\nLine Number = [1-9][0-9]*"));
  EXPECT_EQ(host.messages.shown[0].buttons, MessageButtons::Ok);
  EXPECT_THAT(log.Reports(), IsEmpty());
}

}  // namespace
}  // namespace tessarine::MyGeometricOperations
