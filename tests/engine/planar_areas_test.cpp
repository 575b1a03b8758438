// SPDX-License-Identifier: GPL-2.0-or-later
// Areas between lines must be those that GEOS finds, on seeded random lines.
#include "engine/planar_areas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <numeric>
#include <random>

#include "engine/geos_bridge.h"
#include "helpers/shapes.h"

namespace tessarine::engine {
namespace {

using testing::Box;

class Lines {
 public:
  explicit Lines(unsigned seed) : random_(seed) {}

  std::size_t UpTo(std::size_t most) { return 1 + random_() % most; }
  double Between(double least, double most) { return std::uniform_real_distribution<double>(least, most)(random_); }

  /// A walk of long steps, which crosses itself and its like.
  std::vector<XY> Walk(std::size_t steps) {
    std::vector<XY> line{{Between(-5, 5), Between(-5, 5)}};
    for (std::size_t step = 0; step < steps; ++step) {
      line.push_back({line.back().x + Between(-3, 3), line.back().y + Between(-3, 3)});
    }
    return line;
  }
  /// Upright and level bars between whole numbers, which cross, touch, overlap and repeat each other.
  std::vector<XY> Bar() {
    const auto place = [this] { return static_cast<double>(random_() % 12); };
    const double along = place(), from = place(), to = from + static_cast<double>(UpTo(6));
    return random_() % 2 == 0 ? std::vector<XY>{{from, along}, {to, along}}
                              : std::vector<XY>{{along, from}, {along, to}};
  }
  /// A square, one in four large enough to hold others.
  std::vector<XY> Square() {
    const double x = static_cast<double>(random_() % 20), y = static_cast<double>(random_() % 20);
    const double size = random_() % 4 == 0 ? 12.0 : 1.0;
    return Box(x, y, x + size, y + size);
  }
  /// A star, clockwise.
  std::vector<XY> Star() {
    const double x = Between(-2, 2), y = Between(-2, 2);
    std::vector<XY> ring;
    for (int tip = 0; tip < 12; ++tip) {
      const double angle = -2.0 * std::numbers::pi * tip / 12.0, reach = Between(0.3, 1.0);
      ring.push_back({x + reach * std::cos(angle), y + reach * std::sin(angle)});
    }
    ring.push_back(ring.front());
    return ring;
  }

 private:
  std::mt19937_64 random_;
};

bool Before(XY a, XY b) { return a.x != b.x ? a.x < b.x : a.y < b.y; }

bool RingBefore(const std::vector<XY>& a, const std::vector<XY>& b) {
  return std::ranges::lexicographical_compare(a, b, Before);
}

// In the order that the engine promises.
AreaList AreasOf(const GEOSGeometry* polygons) {
  AreaList areas;
  ForEachMember(polygons, [&](const GEOSGeometry* polygon, int) {
    AreaRings rings;
    for (const auto& part : RingsFromGeos(polygon)) {
      std::vector<XY> ring(part->Vertices().begin(), part->Vertices().end() - 1);
      std::ranges::rotate(ring, std::ranges::min_element(ring, Before));
      ring.push_back(ring.front());
      rings.push_back(ring);
    }
    std::sort(rings.begin() + 1, rings.end(), RingBefore);
    areas.push_back(rings);
  });
  return areas;
}

GeosGeometry NodedByGeos(const LineList& lines) {
  std::vector<GeosGeometry> members;
  for (const std::vector<XY>& line : lines) members.push_back(LineToGeos(line));
  return Checked(GEOSUnaryUnion_r(Geos(), CollectionToGeos(GEOS_MULTILINESTRING, std::move(members)).get()));
}

double AreaOf(const GEOSGeometry* geometry) {
  double area = 0.0;
  GEOSArea_r(Geos(), geometry, &area);
  return area;
}

double AreaOf(const AreaList& areas) {
  double sum = 0.0;
  for (const AreaRings& rings : areas) {
    for (const std::vector<XY>& ring : rings) sum -= ChordArea(ring);
  }
  return sum;
}

GeosGeometry PolygonOf(const std::vector<XY>& ring) {
  const GeosGeometry line = LineToGeos(ring);
  const GEOSCoordSequence* vertices = GEOSGeom_getCoordSeq_r(Geos(), line.get());
  GEOSGeometry* shell = GEOSGeom_createLinearRing_r(Geos(), GEOSCoordSeq_clone_r(Geos(), vertices));
  return Checked(GEOSGeom_createPolygon_r(Geos(), shell, nullptr, 0));
}

void ExpectValid(const AreaList& areas, int round) {
  for (const AreaRings& rings : areas) {
    const GeosGeometry polygon = ToGeos(*[&] {
      auto shape = std::make_shared<Polygon>();
      shape->SetParts(PartsOf({rings}));
      shape->MarkSimple();
      return shape;
    }());
    ASSERT_EQ(GEOSisValid_r(Geos(), polygon.get()), 1) << "round " << round;
  }
}

TEST(FacesBetween, AreTheFacesThatGeosFindsWhateverTheOrder) {
  Lines make(20260314);
  std::size_t faces = 0, holes = 0;
  for (int round = 0; round < 300; ++round) {
    const int kind = round % 3;
    LineList lines(make.UpTo(kind == 0 ? 30 : kind == 1 ? 120 : 8));
    for (std::vector<XY>& line : lines) {
      line = kind == 0 ? make.Walk(make.UpTo(4)) : kind == 1 ? make.Bar() : make.Square();
    }
    const std::optional<LineList> noded = WithCrossings(lines);
    ASSERT_TRUE(noded) << "round " << round;
    const AreaList own = FacesBetween(*noded);
    const GeosGeometry pieces = NodedByGeos(lines);
    const GEOSGeometry* const input = pieces.get();
    AreaList expected = AreasOf(Checked(GEOSPolygonize_r(Geos(), &input, 1)).get());
    std::ranges::sort(expected, RingBefore, [](const AreaRings& rings) { return rings.front(); });
    AreaList sorted = own;
    std::ranges::sort(sorted, RingBefore, [](const AreaRings& rings) { return rings.front(); });
    ASSERT_EQ(sorted, expected) << "round " << round;
    faces += own.size();
    for (const AreaRings& rings : own) holes += rings.size() - 1;

    std::ranges::reverse(lines);
    for (std::vector<XY>& line : lines) std::ranges::reverse(line);
    const std::optional<LineList> turned = WithCrossings(std::move(lines));
    ASSERT_TRUE(turned) << "round " << round;
    ASSERT_EQ(AreaOf(FacesBetween(*turned)), AreaOf(own)) << "round " << round;
  }
  EXPECT_GT(faces, 3000U);
  EXPECT_GT(holes, 20U);
}

TEST(EvenOddAreas, OfCrossingRingsAreValidAndAsLargeAsTheirSymmetricDifference) {
  Lines make(7);
  for (int round = 0; round < 300; ++round) {
    LineList rings(make.UpTo(3));
    GeosGeometry expected = CollectionToGeos(GEOS_MULTIPOLYGON, {});
    for (std::vector<XY>& ring : rings) {
      ring = make.Walk(2 + make.UpTo(18));
      ring.push_back(ring.front());
      const GeosGeometry mended = Checked(GEOSMakeValid_r(Geos(), PolygonOf(ring).get()));
      expected = Checked(GEOSSymDifference_r(Geos(), expected.get(), mended.get()));
    }
    const std::optional<LineList> noded = WithCrossings(rings);
    ASSERT_TRUE(noded) << "round " << round;
    const AreaList own = EvenOddAreas(*noded);
    ExpectValid(own, round);
    ASSERT_NEAR(AreaOf(own), AreaOf(expected.get()), 1e-9) << "round " << round;
  }
}

TEST(CoveredAreas, OfOverlappingStarsAreTheirUnion) {
  Lines make(11);
  for (int round = 0; round < 100; ++round) {
    LineList rings(make.UpTo(20));
    std::vector<GeosGeometry> members;
    for (std::vector<XY>& ring : rings) {
      ring = make.Star();
      members.push_back(PolygonOf(ring));
    }
    const GeosGeometry all = CollectionToGeos(GEOS_GEOMETRYCOLLECTION, std::move(members));
    const GeosGeometry expected = Checked(GEOSUnaryUnion_r(Geos(), all.get()));
    const std::optional<LineList> noded = WithCrossings(rings);
    ASSERT_TRUE(noded) << "round " << round;
    const AreaList own = CoveredAreas(*noded);
    ExpectValid(own, round);
    const AreaList same = AreasOf(expected.get());
    ASSERT_EQ(own.size(), same.size()) << "round " << round;
    ASSERT_NEAR(AreaOf(own), AreaOf(same), 1e-12) << "round " << round;
  }
}

TEST(CoveredAreas, HolesAreNotCovered) {
  const LineList frame = {Box(0, 0, 10, 10), Box(2, 2, 8, 8, false), Box(3, 3, 4, 4), Box(9, 9, 12, 12)};
  const AreaList areas = CoveredAreas(*WithCrossings(frame));
  EXPECT_EQ(areas.size(), 2U);
  EXPECT_EQ(AreaOf(areas), 100.0 - 36.0 + 1.0 + 9.0 - 1.0);
}

TEST(WithCrossings, AddsVerticesAndKeepsTheOldOnes) {
  const LineList lines = {{{0, 0}, {4, 4}}, {{0, 4}, {4, 0}, {4, 0}}, {{1, 1}, {9, 9}}, {{3, 3}, {3, 9}}};
  const LineList expected = {{{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 4}},
                             {{0, 4}, {2, 2}, {4, 0}},
                             {{1, 1}, {2, 2}, {3, 3}, {4, 4}, {9, 9}},
                             {{3, 3}, {3, 9}}};
  EXPECT_EQ(WithCrossings(lines), expected);
  EXPECT_EQ(WithCrossings({}), LineList());
}

TEST(WithCrossings, RefusesCoordinatesThatNoProductHolds) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double x : {std::nan(""), infinity, 1e200}) {
    EXPECT_FALSE(WithCrossings({{{0, 0}, {x, 1}}})) << x;
    EXPECT_EQ(testing::FaultOf([&] { (void)Noded({{{0, 0}, {x, 1}}}); }), kInvalidCall) << x;
  }
}

}  // namespace
}  // namespace tessarine::engine
