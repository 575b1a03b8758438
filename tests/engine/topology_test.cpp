// SPDX-License-Identifier: GPL-2.0-or-later
// Simplify, Clip, set operations and relations, against areas and vertices worked out by hand.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "helpers/shapes.h"

namespace tessarine {
namespace {

using std::numbers::pi;
using testing::Box;
using testing::FaultOf;
using testing::PolygonOf;
using testing::PolylineOf;
using testing::RingOf;
using Vertices = std::vector<XY>;

std::vector<XY> Star() {
  std::vector<XY> star;
  for (int tip = 0; tip <= 5; ++tip) {
    const double angle = pi / 2.0 + tip * 4.0 * pi / 5.0;
    star.push_back({std::cos(angle), std::sin(angle)});
  }
  star.back() = star.front();
  return star;
}

// The five tips of a pentagram in the unit circle: ten triangles about the centre, without the pentagon inside.
double StarTips() {
  const double inner = std::cos(0.4 * pi) / std::cos(0.2 * pi);
  return 5.0 * inner * std::sin(0.2 * pi) - 2.5 * inner * inner * std::sin(0.4 * pi);
}

TEST(Simplify, PolygonsByTheEvenOddRule) {
  struct Row {
    const char* name;
    std::vector<std::vector<XY>> rings;
    double area;
    std::int32_t exteriors, parts;
  };
  const Row rows[] = {
      {"bow tie", {{{0, 0}, {2, 2}, {2, 0}, {0, 2}, {0, 0}}}, 2.0, 2, 2},
      {"overlapping rings", {Box(0, 0, 2, 2), Box(1, 1, 3, 3)}, 6.0, 2, 2},
      {"ring in ring in ring, all clockwise", {Box(0, 0, 10, 10), Box(1, 1, 9, 9), Box(3, 3, 7, 7)}, 52.0, 2, 3},
      {"the same, smallest first", {Box(3, 3, 7, 7), Box(1, 1, 9, 9, false), Box(0, 0, 10, 10, false)}, 52.0, 2, 3},
      {"counter-clockwise", {Box(0, 0, 2, 2, false)}, 4.0, 1, 1},
      {"open", {{{0, 0}, {0, 2}, {2, 2}, {2, 0}}}, 4.0, 1, 1},
      {"neighbours with a common edge", {Box(0, 0, 1, 1), Box(1, 0, 2, 1)}, 2.0, 1, 1},
      {"a ring twice", {Box(0, 0, 1, 1), Box(0, 0, 1, 1)}, 0.0, 0, 0},
      {"spike", {{{0, 0}, {0, 2}, {1, 2}, {1, 5}, {1, 2}, {2, 2}, {2, 0}, {0, 0}}}, 4.0, 1, 1},
      {"boundary that touches itself",
       {{{0, 0}, {0, 4}, {4, 4}, {4, 0}, {2, 0}, {3, 1}, {1, 1}, {2, 0}, {0, 0}}},
       15.0,
       1,
       2},
      {"pentagram", {Star()}, StarTips(), 5, 5},
      {"two vertices", {{{0, 0}, {5, 5}}}, 0.0, 0, 0},
      {"a part without area", {Box(0, 0, 1, 1), {{3, 3}, {5, 5}, {3, 3}, {3, 3}}, {}}, 1.0, 1, 1},
      {"nothing", {}, 0.0, 0, 0},
  };
  for (const Row& row : rows) {
    const auto polygon = PolygonOf(row.rings);
    polygon->Simplify();
    EXPECT_NEAR(polygon->Area(), row.area, 1e-12) << row.name;
    EXPECT_EQ(polygon->ExteriorRingCount(), row.exteriors) << row.name;
    EXPECT_EQ(polygon->GeometryCount(), row.parts) << row.name;
    EXPECT_TRUE(polygon->IsKnownSimple()) << row.name;
    for (const auto& part : polygon->Parts()) EXPECT_TRUE(part->IsClosed()) << row.name;
    // Parts of its own make the copy forget that it is simple.
    const auto again = CloneOf(*polygon);
    again->SetParts({again->Parts().begin(), again->Parts().end()});
    again->Simplify();
    EXPECT_TRUE(again->IsEqual(*polygon)) << row.name << ": a second time changes nothing";
  }
}

TEST(Simplify, AValidShapeStaysBitForBit) {
  const double third = 1.0 / 3.0;
  const auto polygon =
      PolygonOf({{{0.1 + 0.2, third}, {third, 9.7}, {4.0, 9.7}, {9.1, 9.3}, {9.3, 0.7}, {0.1 + 0.2, third}},
                 Box(third * 5, 2.2, 3.3, 4.4, false)});
  const auto before = CloneOf(*polygon);
  const auto ring = polygon->Ring(0);
  EXPECT_FALSE(polygon->IsKnownSimple());
  EXPECT_TRUE(polygon->IsSimple());
  polygon->Simplify();
  EXPECT_TRUE(polygon->IsEqual(*before));
  EXPECT_EQ(polygon->Ring(0), ring) << "the very ring";
}

// A vertex of one ring may lie on an edge of the other, also in the middle of its first edge.
TEST(Simplify, RingsThatTouchAtAPointStayBitForBit) {
  const auto bay = PolygonOf({{{0, 0}, {0, 9}, {3, 9}, {3, 2}, {5, 5}, {7, 2}, {7, 9}, {10, 9}, {10, 0}, {0, 0}},
                              {{6, 5}, {4, 5}, {4, 8}, {6, 8}, {6, 5}}});
  const auto hole = PolygonOf(
      {{{0, 0}, {0, 9}, {9, 9}, {9, 0}, {5, 0}, {4.5, 3}, {4, 0}, {0, 0}}, {{4, 3}, {5, 3}, {5, 6}, {4, 6}, {4, 3}}});
  for (const auto& polygon : {bay, hole}) {
    const auto before = CloneOf(*polygon);
    polygon->Simplify();
    EXPECT_TRUE(polygon->IsEqual(*before))
        << polygon->GeometryCount() << " parts, " << polygon->PointCount() << " vertices, area " << polygon->Area();
  }
}

TEST(Simplify, ARingOnlyTurnsRoundItsFirstVertex) {
  const auto polygon = PolygonOf({{{1, 0}, {2, 0}, {2, 1}, {1, 1}, {1, 0}}});
  EXPECT_FALSE(polygon->IsSimple());
  polygon->Simplify();
  EXPECT_TRUE(polygon->IsEqual(*PolygonOf({{{1, 0}, {1, 1}, {2, 1}, {2, 0}, {1, 0}}})));
}

TEST(Simplify, IsRememberedUntilAChange) {
  const auto polygon = PolygonOf({Box(0, 0, 4, 4)});
  polygon->Simplify();
  EXPECT_TRUE(CloneOf(*polygon)->IsKnownSimple());
  polygon->Move(1, 1);
  EXPECT_TRUE(polygon->IsKnownSimple()) << "a move keeps the shape";
  polygon->Ring(0)->UpdatePoint(2, {-9, 2});
  EXPECT_FALSE(polygon->IsKnownSimple()) << "a part was changed behind the shape's back";
  polygon->Simplify();
  polygon->AddGeometry(RingOf(Box(90, 90, 91, 91)));
  EXPECT_FALSE(polygon->IsKnownSimple());
}

TEST(Simplify, CurvesOfAValidShapeStayCurves) {
  auto ring = std::make_shared<Ring>();
  ring->AddSegment(CircularArc::Circle({100.0, 50.0}, 3.0, false));
  Polygon polygon;
  polygon.AddGeometry(ring);
  polygon.Simplify();
  ASSERT_EQ(polygon.GeometryCount(), 1);
  EXPECT_TRUE(polygon.HasCurves());
  EXPECT_NEAR(polygon.Area(), 9.0 * pi, 1e-9);
}

TEST(Simplify, PolylinesLoseWhatHasNoLengthAndKeepTheirCrossings) {
  const auto line = PolylineOf({{{0, 0}, {0, 0}, {2, 2}, {2, 2}, {2, 0}, {0, 2}}, {{5, 5}}, {{7, 7}, {7, 7}}, {}});
  line->Simplify();
  EXPECT_TRUE(line->IsEqual(*PolylineOf({{{0, 0}, {2, 2}, {2, 0}, {0, 2}}})));
}

TEST(Simplify, MultipointsLoseDuplicatesAndKeepTheirOrder) {
  Multipoint points({{3, 3}, {1, 1}, {3, 3}, {2, 2}, {1, 1}});
  EXPECT_FALSE(points.IsSimple());
  points.Simplify();
  EXPECT_EQ(Vertices(points.Vertices().begin(), points.Vertices().end()), (Vertices{{3, 3}, {1, 1}, {2, 2}}));
  points.AddPoint(XY{3, 3});
  EXPECT_FALSE(points.IsKnownSimple());
}

TEST(Clip, KeepsWhatLiesInTheRectangle) {
  const Envelope box(0, 0, 10, 10);
  const auto line = PolylineOf({{{-5, 5}, {5, 5}, {5, 15}, {8, 15}, {8, -3}}, {{1, 1}, {2, 2}}, {{20, 20}, {30, 30}}});
  line->Clip(box);
  EXPECT_TRUE(line->IsEqual(*PolylineOf({{{0, 5}, {5, 5}, {5, 10}}, {{8, 10}, {8, 0}}, {{1, 1}, {2, 2}}})));

  Multipoint points({{0, 10}, {-0.001, 5}, {5, 5}});
  points.Clip(box);
  EXPECT_EQ(points.PointCount(), 2) << "edges belong to the rectangle";

  const auto polygon = PolygonOf({Box(-5, -5, 5, 5), Box(-1, -1, 1, 1, false)});
  polygon->Clip(box);
  EXPECT_NEAR(polygon->Area(), 24.0, 1e-12);
  EXPECT_EQ(polygon->Envelope(), Envelope(0, 0, 5, 5));
  polygon->Clip(Envelope(50, 50, 60, 60));
  EXPECT_TRUE(polygon->IsEmpty());

  const auto inside = PolygonOf({Box(1, 1, 2, 2)});
  const auto before = CloneOf(*inside);
  inside->Clip(box);
  EXPECT_TRUE(inside->IsEqual(*before));
}

// The overlay, which a polygon takes whose rings run the wrong way though it is called simple, rounds its cuts.
TEST(Clip, CutsLieExactlyOnTheRectangle) {
  const auto expect_on_box = [](const Polygon& polygon, const Envelope& box) {
    ASSERT_FALSE(polygon.IsEmpty());
    for (std::int32_t index = 0; index < polygon.PointCount(); ++index) {
      const XY at = polygon.Point(index);
      const bool on_side = at.x == box.XMin() || at.x == box.XMax() || at.y == box.YMin() || at.y == box.YMax();
      EXPECT_TRUE(on_side) << at.x << " " << at.y;
    }
  };
  const Envelope box(-179.9, -89.7, 0.3, 0.1);
  for (const double lean : {0.1, 0.3, 0.7, 1.1, 1.9}) {
    SCOPED_TRACE(lean);
    const auto polygon =
        PolygonOf({{{-200, -95 + lean}, {-60 - lean, -99}, {30.1, 17 * lean}, {-190, 3}, {-200, -95 + lean}}});
    polygon->MarkSimple();
    polygon->Clip(box);
    expect_on_box(*polygon, box);
  }
  // A ring that crosses itself, which the overlay can cut on a coarser grid alone.
  const Envelope odd(-194.04793147145602, -44.340309099077615, -169.72542878080267, -17.779702971998294);
  const auto crossing = PolygonOf({{{-141.35430826598258, 42.065975950427941},
                                    {-135.98606538924281, 10.978832266423041},
                                    {-217.88398125503028, 28.155911084644629},
                                    {-146.09107120963134, -80.696688742116095},
                                    {-141.35430826598258, 42.065975950427941}}});
  crossing->MarkSimple();
  crossing->Clip(odd);
  expect_on_box(*crossing, odd);
}

TEST(Clip, DensifiesTheCutEdgesAlone) {
  const auto polygon = PolygonOf({{{-10, 0}, {-10, 8}, {20, 8}, {20, 0}, {-10, 0}}});
  polygon->ClipDense(Envelope(0, -100, 10, 100), 2.0);
  EXPECT_NEAR(polygon->Area(), 80.0, 1e-12);
  std::int32_t on_sides = 0;
  for (std::int32_t index = 0; index < polygon->SegmentCount(); ++index) {
    const Segment edge = polygon->Segment(index);
    const bool on_side = edge.FromPoint().x == edge.ToPoint().x;
    EXPECT_NEAR(edge.Length(), on_side ? 2.0 : 10.0, 1e-12);
    on_sides += on_side ? 1 : 0;
  }
  EXPECT_EQ(on_sides, 8);
}

TEST(SetOperations, UnionBufferAndCut) {
  const auto square = PolygonOf({Box(0, 0, 2, 2)});
  const auto united = Cast<Polygon>(square->Union(*PolygonOf({Box(1, 1, 3, 3)})));
  EXPECT_NEAR(united->Area(), 7.0, 1e-12);
  EXPECT_EQ(square->Area(), 4.0) << "the shape itself stays";
  EXPECT_EQ(FaultOf([&] { (void)square->Union(*PolylineOf({{{0, 0}, {1, 1}}})); }), kTypeMismatch);

  // The buffer of a point holds more than a polygon of 64 corners in the circle, and no more than the circle.
  const auto disc = Cast<Polygon>(Multipoint(Vertices{{5, 5}}).Buffer(2.0));
  EXPECT_LE(disc->Area(), 4.0 * pi);
  EXPECT_GE(disc->Area(), 4.0 * 32.0 * std::sin(pi / 32.0));

  GeometryRef left, right;
  const auto upwards = PolylineOf({{{0.5, -1}, {0.5, 3}}});
  square->Cut(*upwards, left, right);
  EXPECT_EQ(left->Envelope(), Envelope(0, 0, 0.5, 2));
  EXPECT_EQ(right->Envelope(), Envelope(0.5, 0, 2, 2));
  PolylineOf({{{0, 1}, {2, 1}}})->Cut(*upwards, left, right);
  EXPECT_NEAR(Cast<Polyline>(left)->Length(), 0.5, 1e-12);
  EXPECT_NEAR(Cast<Polyline>(right)->Length(), 1.5, 1e-12);
}

TEST(SetOperations, ConstructUnionTakesTheMembersOfItsKind) {
  const auto reference = SpatialReferenceEnvironment::CreateFromText("EPSG:32612");
  GeometryBag bag;
  for (const auto& box : {Box(0, 0, 2, 2), Box(2, 0, 4, 2, false), Box(3, 1, 5, 3)}) {
    const auto member = PolygonOf({box});
    member->SetSpatialReference(reference);
    bag.AddGeometry(member);
  }
  bag.AddGeometry(PolylineOf({{{0, 0}, {2, 2}}, {{0, 2}, {2, 0}}}));
  bag.AddGeometry(std::make_shared<Point>(9, 9));
  bag.AddGeometry(std::make_shared<Polygon>());
  Polygon area;
  area.ConstructUnion(bag);
  EXPECT_NEAR(area.Area(), 4.0 + 4.0 + 4.0 - 1.0, 1e-12);
  EXPECT_EQ(area.ExteriorRingCount(), 1);
  EXPECT_EQ(area.SpatialReference(), reference);
  Polyline line;
  line.ConstructUnion(bag);
  EXPECT_NEAR(line.Length(), 2.0 * std::sqrt(8.0), 1e-12);
  Multipoint points;
  points.ConstructUnion(bag);
  EXPECT_EQ(points.PointCount(), 1);
  GeometryBag none;
  area.ConstructUnion(none);
  EXPECT_TRUE(area.IsEmpty());
}

TEST(SetOperations, ANetworkMeetsOnlyAtEnds) {
  const auto cross = PolylineOf({{{0, 0}, {2, 2}}, {{0, 2}, {2, 0}}});
  cross->SimplifyNetwork();
  EXPECT_EQ(cross->GeometryCount(), 4);
  EXPECT_NEAR(cross->Length(), 2.0 * std::sqrt(8.0), 1e-12);
  for (const auto& part : cross->Parts()) {
    EXPECT_TRUE(part->FromPoint() == (XY{1, 1}) || part->ToPoint() == (XY{1, 1}));
  }
}

TEST(Relations, DisjointContainsAndLabelPoints) {
  // A C around (2, 2): its centre of gravity lies in the gap.
  const auto letter = PolygonOf({{{0, 0}, {0, 4}, {5, 4}, {5, 3}, {1, 3}, {1, 1}, {5, 1}, {5, 0}, {0, 0}}});
  EXPECT_TRUE(Point(letter->Centroid()).Disjoint(*letter));
  EXPECT_TRUE(letter->Contains(Point(letter->LabelPoint())));
  EXPECT_TRUE(letter->Contains(Point(letter->Ring(0)->LabelPoint())));
  EXPECT_TRUE(letter->Disjoint(*PolylineOf({{{3, 1.5}, {3, 2.5}}})));
  EXPECT_FALSE(letter->Disjoint(*PolylineOf({{{3, 1}, {3, 2.5}}}))) << "one common point is enough";
  EXPECT_FALSE(letter->Contains(Point(0, 2))) << "the boundary is not inside";
  EXPECT_TRUE(letter->Disjoint(Polygon()));
  const auto square = PolygonOf({Box(0, 0, 2, 2)});
  EXPECT_EQ(square->LabelPoint(), (XY{1, 1})) << "the centre where it lies inside";
  EXPECT_EQ(FaultOf([] { (void)Polygon().LabelPoint(); }), kInvalidCall);
}

}  // namespace
}  // namespace tessarine
