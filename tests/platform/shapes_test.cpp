// SPDX-License-Identifier: GPL-2.0-or-later
// Paths, rings and whole shapes: measures, parts, identity.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "helpers/shapes.h"
#include "platform/geometry.h"

namespace tessarine {
namespace {

using std::numbers::pi;
using testing::Box;
using testing::FaultOf;
using testing::PolygonOf;
using testing::PolylineOf;
using testing::RingOf;

std::shared_ptr<Ring> HalfDisc() {
  auto ring = std::make_shared<Ring>();
  ring->AddSegment(CircularArc::Through({-1.0, 0.0}, {0.0, 1.0}, {1.0, 0.0}));
  ring->AddSegment(Line{{1.0, 0.0}, {-1.0, 0.0}});
  return ring;
}

// A square whose upper right corner is a quarter circle.
std::shared_ptr<Ring> RoundedCorner(double side, double radius) {
  const double inner = side - radius, middle = inner + radius * std::sqrt(0.5);
  auto ring = std::make_shared<Ring>();
  ring->AddSegment(Line{{0.0, 0.0}, {0.0, side}});
  ring->AddSegment(Line{{0.0, side}, {inner, side}});
  ring->AddSegment(CircularArc::Through({inner, side}, {middle, middle}, {side, inner}));
  ring->AddSegment(Line{{side, inner}, {side, 0.0}});
  ring->Close();
  return ring;
}

TEST(Envelopes, GrowAndMeet) {
  Envelope box;
  EXPECT_TRUE(box.IsEmpty());
  box.Expand(1.0, 1.0, false);
  box.Union(Envelope());
  EXPECT_TRUE(box.IsEmpty());
  box.Union(XY{-5.0, 7.0});
  EXPECT_EQ(box, Envelope(-5.0, 7.0, -5.0, 7.0));
  box.Union(Envelope(0.0, 0.0, 5.0, 9.0));
  EXPECT_EQ(box, Envelope(-5.0, 0.0, 5.0, 9.0));
  box.Expand(1.2, 2.0, true);
  EXPECT_EQ(box, Envelope(-6.0, -4.5, 6.0, 13.5));
  box.Expand(1.0, -0.5, false);
  EXPECT_EQ(box, Envelope(-7.0, -4.0, 7.0, 13.0));
  EXPECT_TRUE(box.Intersects(Envelope(7.0, 13.0, 8.0, 14.0)));
  EXPECT_FALSE(box.Intersects(Envelope(7.1, 0.0, 8.0, 1.0)));
  EXPECT_FALSE(box.Intersects(Envelope()));
}

TEST(Rings, AreaAndCentre) {
  struct Row {
    const char* name;
    std::shared_ptr<Ring> ring;
    double area;
    XY centre;
  };
  auto circle = std::make_shared<Ring>();
  circle->AddSegment(CircularArc::Circle({10.0, 20.0}, 2.0, false));
  const Row rows[] = {
      {"clockwise square", RingOf(Box(0.0, 0.0, 2.0, 2.0)), 4.0, {1.0, 1.0}},
      {"counter-clockwise square", RingOf(Box(0.0, 0.0, 2.0, 2.0, false)), -4.0, {1.0, 1.0}},
      {"open ring", RingOf({{0.0, 0.0}, {0.0, 3.0}, {3.0, 0.0}}), 4.5, {1.0, 1.0}},
      {"unit square far out", RingOf(Box(5e6, 9e6, 5e6 + 1.0, 9e6 + 1.0)), 1.0, {5e6 + 0.5, 9e6 + 0.5}},
      // 2 x 1 and 1 x 1: moments 2 * 1 + 1 * 0.5 and 2 * 0.5 + 1 * 1.5, over 3.
      {"L",
       RingOf({{0.0, 0.0}, {0.0, 2.0}, {1.0, 2.0}, {1.0, 1.0}, {2.0, 1.0}, {2.0, 0.0}, {0.0, 0.0}}),
       3.0,
       {2.5 / 3.0, 2.5 / 3.0}},
      {"half disc", HalfDisc(), pi / 2.0, {0.0, 4.0 / (3.0 * pi)}},
      {"10 km with one corner rounded by 2 m", RoundedCorner(1e4, 2.0), 1e8 - 4.0 + pi, {5e3, 5e3}},
      {"counter-clockwise circle", circle, -4.0 * pi, {10.0, 20.0}},
  };
  for (const Row& row : rows) {
    EXPECT_NEAR(row.ring->Area(), row.area, 1e-11 + 1e-15 * std::fabs(row.area)) << row.name;
    EXPECT_EQ(row.ring->IsExterior(), row.area > 0.0) << row.name;
    // The corner cut off draws the centre by its share of the area, 1e-8.
    const double tolerance = row.area > 1e6 ? 1e-4 : 1e-9;
    EXPECT_NEAR(row.ring->Centroid().x, row.centre.x, tolerance) << row.name;
    EXPECT_NEAR(row.ring->Centroid().y, row.centre.y, tolerance) << row.name;
  }
  EXPECT_EQ(FaultOf([] { (void)RingOf({{0.0, 0.0}, {1.0, 1.0}, {0.0, 0.0}})->Centroid(); }), kDivisionByZero);
  EXPECT_EQ(Ring().Area(), 0.0);
}

TEST(Rings, CloseOnceAndEnclose) {
  const auto ring = RingOf({{0.0, 0.0}, {0.0, 3.0}, {3.0, 0.0}});
  ring->Close();
  ring->Close();
  EXPECT_EQ(ring->PointCount(), 4);
  EXPECT_TRUE(ring->Encloses({0.5, 0.5}));
  EXPECT_FALSE(ring->Encloses({2.0, 2.0}));
  EXPECT_TRUE(HalfDisc()->Encloses({0.0, 0.9})) << "between chord and arc";
  EXPECT_FALSE(HalfDisc()->Encloses({0.9, 0.9}));
}

TEST(Paths, CurvesFollowTheirVertices) {
  Path path;
  path.AddSegment(Line{{-5.0, 0.0}, {-1.0, 0.0}});
  path.AddSegment(CircularArc::Through({-1.0, 0.0}, {0.0, 1.0}, {1.0, 0.0}));
  EXPECT_NEAR(path.Length(), 4.0 + pi, 1e-12);
  EXPECT_EQ(path.SegmentCount(), 2);
  EXPECT_TRUE(path.HasCurves());

  path.Move(10.0, 20.0);
  EXPECT_NEAR(path.Envelope().YMax(), 21.0, 1e-12);
  path.UpdatePoint(2, {13.0, 20.0});  // the chord is twice as long now
  EXPECT_NEAR(path.Length(), 4.0 + 2.0 * pi, 1e-12);
  path.ReverseOrientation();
  EXPECT_NEAR(path.Segment(0).Length(), 2.0 * pi, 1e-12);
  EXPECT_NEAR(path.QueryPoint(esriNoExtension, pi, false).y, 22.0, 1e-12);
}

TEST(Paths, AWalkThatMovesEveryVertexMovesTheCurveAsAWhole) {
  const auto ring = HalfDisc();
  const auto walk = ring->EnumVertices();
  Point at;
  std::int32_t part = 0, vertex = 0;
  for (walk->QueryNext(at, part, vertex); vertex >= 0; walk->QueryNext(at, part, vertex)) walk->SetX(at.X() + 360.0);
  EXPECT_NEAR(ring->Area(), pi / 2.0, 1e-10);
  EXPECT_NEAR(ring->Centroid().x, 360.0, 1e-9);
}

TEST(Paths, ASegmentThatStartsElsewhereMovesTheEnd) {
  Path path;
  path.AddSegment(Line{{0.0, 0.0}, {1.0, 0.0}});
  path.AddSegment(Line{{1.0, 5.0}, {2.0, 5.0}});
  EXPECT_EQ(path.PointCount(), 3);
  EXPECT_EQ(path.Point(1), (XY{1.0, 5.0}));
  EXPECT_EQ(FaultOf([&] { (void)path.Segment(2); }), kInvalidCall);
  EXPECT_EQ(FaultOf([&] { (void)path.Point(-1); }), kInvalidCall);
  EXPECT_EQ(FaultOf([] { (void)Path().FromPoint(); }), kInvalidCall);
  EXPECT_EQ(FaultOf([] { Path().SetToPoint({}); }), kInvalidCall);
}

TEST(Shapes, PlacesAlongSeveralPartsSkipTheGaps) {
  const auto line = PolylineOf({{{0.0, 0.0}, {2.0, 0.0}}, {}, {{10.0, 0.0}, {14.0, 0.0}}});
  EXPECT_EQ(line->Length(), 6.0);
  EXPECT_EQ(line->QueryPoint(esriNoExtension, 2.0, false), (XY{2.0, 0.0}));
  EXPECT_EQ(line->QueryPoint(esriNoExtension, 0.5, true), (XY{11.0, 0.0}));
  EXPECT_EQ(line->QueryPoint(esriNoExtension, 99.0, false), (XY{14.0, 0.0}));
  EXPECT_EQ(line->QueryPoint(esriExtendTangents, 7.0, false), (XY{15.0, 0.0}));
  EXPECT_EQ(line->QueryPoint(esriExtendTangents, -1.0, false), (XY{-1.0, 0.0}));
  EXPECT_EQ(line->ToPoint(), (XY{14.0, 0.0}));
  EXPECT_EQ(FaultOf([] { (void)Polyline().QueryPoint(esriNoExtension, 0.0, false); }), kInvalidCall);
  EXPECT_EQ(FaultOf([] { (void)Polyline().FromPoint(); }), kInvalidCall);
}

TEST(Shapes, VerticesCountOverAllParts) {
  const auto line = PolylineOf({{{0.0, 0.0}, {1.0, 0.0}}, {}, {{2.0, 0.0}, {3.0, 0.0}, {4.0, 0.0}}});
  EXPECT_EQ(line->PointCount(), 5);
  EXPECT_EQ(line->SegmentCount(), 3);
  for (const std::int32_t index : {4, 0, 2, 3, 1, 4}) EXPECT_EQ(line->Point(index).x, index);
  EXPECT_EQ(line->Segment(1).FromPoint().x, 2.0);
  EXPECT_EQ(FaultOf([&] { (void)line->Point(5); }), kInvalidCall);
  EXPECT_EQ(FaultOf([&] { (void)line->Segment(3); }), kInvalidCall);

  std::string walked;
  Point at;
  std::int32_t part = 0, vertex = 0;
  const auto walk = line->EnumVertices();
  EXPECT_EQ(FaultOf([&] { walk->SetX(0.0); }), kInvalidCall) << "nothing was read";
  for (walk->QueryNext(at, part, vertex); part >= 0; walk->QueryNext(at, part, vertex)) {
    walked += std::to_string(part) + "." + std::to_string(vertex) + " ";
    walk->SetY(5.0);
  }
  EXPECT_EQ(walked, "0.0 0.1 2.0 2.1 2.2 ");
  EXPECT_EQ(vertex, -1);
  EXPECT_EQ(at.X(), 4.0) << "the point stays";
  EXPECT_EQ(line->Envelope(), Envelope(0.0, 5.0, 4.0, 5.0));
}

TEST(Shapes, AWalkByIndexSeesPartsThatGrowUnderIt) {
  const auto line = PolylineOf({{{0.0, 0.0}, {1.0, 0.0}}, {{10.0, 0.0}, {11.0, 0.0}, {12.0, 0.0}}});
  EXPECT_EQ(line->Point(2).x, 10.0);
  Cast<Path>(line->Geometry(0))->AddPoint(XY{2.0, 0.0});
  EXPECT_EQ(line->Point(3).x, 10.0);

  EXPECT_EQ(line->Point(4).x, 11.0);
  line->SetParts({std::make_shared<Path>(std::vector<XY>{{0.0, 0.0}, {1.0, 0.0}, {2.0, 0.0}, {3.0, 0.0}, {4.0, 0.0}}),
                  std::make_shared<Path>(std::vector<XY>{{5.0, 0.0}, {6.0, 0.0}, {7.0, 0.0}})});
  EXPECT_EQ(line->Point(5).x, 5.0);
}

TEST(Shapes, HolesBelongToTheSmallestRingAroundThem) {
  const auto polygon = PolygonOf({Box(2.0, 2.0, 8.0, 8.0, false),     // hole of the large ring, stored first
                                  Box(0.0, 0.0, 10.0, 10.0),          // large ring
                                  Box(3.0, 3.0, 7.0, 7.0),            // island in the hole
                                  Box(4.0, 4.0, 5.0, 5.0, false),     // hole of the island
                                  Box(20.0, 0.0, 21.0, 1.0, false),   // hole of nothing
                                  Box(0.0, 9.0, 1.0, 10.0, false)});  // hole that touches its ring along an edge
  EXPECT_EQ(polygon->ExteriorRingCount(), 2);
  EXPECT_EQ(polygon->InteriorRingCount(*polygon->Ring(1)), 2);
  EXPECT_EQ(polygon->InteriorRingCount(*polygon->Ring(2)), 1);
  EXPECT_EQ(polygon->InteriorRingBag(*polygon->Ring(2))->Geometry(0), polygon->Ring(3)) << "the very ring";
  EXPECT_EQ(polygon->InteriorRingCount(*CloneOf(*polygon->Ring(2))), 1) << "an equal ring will do";
  EXPECT_EQ(FaultOf([&] { (void)polygon->InteriorRingCount(*polygon->Ring(0)); }), kInvalidCall);
  EXPECT_EQ(polygon->QueryExteriorRingsEx().at(1), polygon->Ring(2));
  EXPECT_EQ(polygon->ExteriorRingBag()->GeometryCount(), 2);

  const auto bag = polygon->ConnectedComponentBag();
  ASSERT_EQ(bag->GeometryCount(), 3);
  const double areas[] = {100.0 - 36.0 - 1.0, 16.0 - 1.0, -1.0};
  for (std::int32_t index = 0; index < 3; ++index) {
    const auto component = Cast<Polygon>(bag->Geometry(index));
    EXPECT_EQ(component->Area(), areas[index]) << index;
    component->Move(100.0, 0.0);
  }
  EXPECT_EQ(polygon->Envelope().XMax(), 21.0) << "components are copies";
}

TEST(Shapes, AreaAndCentreOfAPolygonLeaveItsHolesOut) {
  const auto polygon = PolygonOf({Box(0.0, 0.0, 4.0, 4.0), Box(1.0, 1.0, 2.0, 2.0, false)});
  EXPECT_EQ(polygon->Area(), 15.0);
  EXPECT_NEAR(polygon->Centroid().x, (16.0 * 2.0 - 1.0 * 1.5) / 15.0, 1e-14);
  EXPECT_EQ(FaultOf([] { (void)Polygon().Centroid(); }), kInvalidCall);
}

// Lengths and means by hand.
TEST(Polygon, WithoutAreaHasTheCentreOfItsLinesOrPoints) {
  const struct {
    const char* name;
    std::vector<std::vector<XY>> rings;
    XY center;
  } rows[] = {
      {"on one line", {{{3, 3}, {4, 3}, {7, 3}, {3, 3}}}, {5, 3}},
      {"on a slope that no double holds", {{{0.1, 0.1}, {0.2, 0.2}, {0.7, 0.7}, {0.1, 0.1}}}, {0.4, 0.4}},
      {"on a slope far from the origin",
       {{{5e5, 4e6}, {5e5 + 0.1, 4e6 + 0.3}, {5e5 + 0.3, 4e6 + 0.9}, {5e5, 4e6}}},
       {5e5 + 0.15, 4e6 + 0.45}},
      {"a figure of eight", {{{0, 0}, {2, 2}, {2, 0}, {0, 2}, {0, 0}}}, {1, 1}},
      {"two lines, one twice as long",
       {{{0, 0}, {1, 0}, {0, 0}, {0, 0}}, {{0, 6}, {2, 6}, {0, 6}, {0, 6}}},
       {5.0 / 6.0, 4}},
      {"one place", {{{2, 7}, {2, 7}, {2, 7}, {2, 7}}}, {2, 7}},
      {"two places", {{{2, 7}, {2, 7}, {2, 7}}, {{4, 8}, {4, 8}}}, {(2 + 2 + 4) / 3.0, (7 + 7 + 8) / 3.0}},
  };
  for (const auto& row : rows) {
    const auto polygon = PolygonOf(row.rings);
    EXPECT_FALSE(polygon->HasArea()) << row.name;
    const XY center = polygon->Centroid();
    EXPECT_NEAR(center.x, row.center.x, 1e-9) << row.name;
    EXPECT_NEAR(center.y, row.center.y, 1e-9) << row.name;
  }
  EXPECT_TRUE(PolygonOf({{{0, 0}, {1e6, 1e-6}, {2e6, 0}, {0, 0}}})->HasArea());
  EXPECT_TRUE(PolygonOf({{{5e5, 4e6}, {5e5 + 1e-6, 4e6 + 100}, {5e5, 4e6 + 200}, {5e5, 4e6}}})->HasArea());
}

TEST(Shapes, PartsAreSharedAndClonesAreNot) {
  const auto ring = RingOf(Box(0.0, 0.0, 1.0, 1.0));
  Polygon polygon;
  polygon.SetSpatialReference(std::make_shared<UnknownCoordinateSystem>());
  polygon.AddGeometry(ring);
  EXPECT_EQ(polygon.Geometry(0), ring);
  const auto copy = CloneOf(polygon);
  EXPECT_TRUE(copy->IsEqual(polygon));
  EXPECT_EQ(copy->SpatialReference(), polygon.SpatialReference());
  ring->Move(5.0, 0.0);
  EXPECT_EQ(polygon.Envelope().XMin(), 5.0);
  EXPECT_EQ(copy->Envelope().XMin(), 0.0);
  EXPECT_FALSE(copy->IsEqual(polygon));

  EXPECT_EQ(FaultOf([&] { polygon.AddGeometry(std::make_shared<Path>()); }), kTypeMismatch);
  Polyline line;
  line.AddGeometry(ring);
  EXPECT_EQ(line.Geometry(0)->GeometryType(), esriGeometryPath);
  EXPECT_NE(line.Geometry(0), ring);
  EXPECT_FALSE(line.Geometry(0)->IsEqual(*ring)) << "a path is no ring";
  EXPECT_EQ(FaultOf([&] { line.AddGeometry(std::make_shared<Point>()); }), kTypeMismatch);
  EXPECT_FALSE(line.IsEqual(polygon));
}

TEST(Shapes, PointsMultipointsAndBags) {
  Point point;
  EXPECT_TRUE(point.IsEmpty());
  point.SetX(3.0);
  EXPECT_FALSE(point.IsEmpty());
  EXPECT_EQ(point.Envelope(), Envelope(3.0, 0.0, 3.0, 0.0));

  Multipoint points({{1.0, 1.0}, {2.0, 2.0}});
  points.SetSpatialReference(std::make_shared<UnknownCoordinateSystem>());
  const auto member = Cast<Point>(points.Geometry(1));
  EXPECT_EQ(member->SpatialReference(), points.SpatialReference());
  member->SetX(9.0);
  EXPECT_EQ(points.Point(1).x, 2.0) << "members are new points";
  EXPECT_EQ(FaultOf([&] { points.AddGeometry(std::make_shared<Polygon>()); }), kTypeMismatch);

  GeometryBag bag;
  bag.AddGeometry(member);
  const auto copy = CloneOf(bag);
  EXPECT_TRUE(copy->IsEqual(bag));
  EXPECT_NE(copy->Geometry(0), member);
  EXPECT_EQ(bag.Next(), member);
  EXPECT_EQ(bag.Next(), nullptr);
  bag.Reset();
  EXPECT_EQ(bag.Next(), member);
  EXPECT_EQ(FaultOf([&] { bag.AddGeometry(nullptr); }), kObjectNotSet);
}

}  // namespace
}  // namespace tessarine
