// SPDX-License-Identifier: GPL-2.0-or-later
// Where lines run nanometres apart, our areas and unions must be those that GEOS finds, as far as it finds them: what
// lies between such lines is left out of the comparison.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <vector>

#include "engine/geos_bridge.h"
#include "engine/near_lines.h"
#include "engine/planar_areas.h"
#include "helpers/shapes.h"

namespace tessarine::engine {
namespace {

using ::testing::DoubleNear;
using testing::kWidth;
using testing::NearLines;
using ::testing::Pointwise;

constexpr unsigned kSets = 20;
constexpr double kLeastFace = 0.01;  // square metres
constexpr double kSame = 1e-3;       // square metres: 1e-6 m along the lines of a set

double AreaOf(const AreaRings& rings) {
  double area = 0.0;
  for (const std::vector<XY>& ring : rings) area -= ChordArea(ring);
  return area;
}

double AreaOf(const AreaList& areas) {
  double sum = 0.0;
  for (const AreaRings& rings : areas) sum += AreaOf(rings);
  return sum;
}

double AreaOf(const GEOSGeometry* geometry) {
  double area = 0.0;
  EXPECT_EQ(GEOSArea_r(Geos(), geometry, &area), 1);
  return area;
}

std::vector<double> Large(std::vector<double> areas) {
  std::erase_if(areas, [](double area) { return area < kLeastFace; });
  std::ranges::sort(areas);
  return areas;
}

GeosGeometry NodedByGeos(const LineList& lines) {
  std::vector<GeosGeometry> members;
  for (const std::vector<XY>& line : lines) members.push_back(LineToGeos(line));
  return Checked(GEOSUnaryUnion_r(Geos(), CollectionToGeos(GEOS_MULTILINESTRING, std::move(members)).get()));
}

std::vector<double> FacesByGeos(const LineList& lines) {
  const GeosGeometry noded = NodedByGeos(lines);
  const GEOSGeometry* input = noded.get();
  const GeosGeometry faces = Checked(GEOSPolygonize_r(Geos(), &input, 1));
  std::vector<double> areas;
  for (int face = 0; face < GEOSGetNumGeometries_r(Geos(), faces.get()); ++face) {
    areas.push_back(AreaOf(GEOSGetGeometryN_r(Geos(), faces.get(), face)));
  }
  return areas;
}

// Strips of ten metres, each with a side among lines of a set. Clockwise.
std::vector<std::vector<XY>> Strips(unsigned seed) {
  std::vector<std::vector<XY>> strips;
  std::mt19937_64 random(seed);
  for (const std::vector<XY>& line : NearLines(seed, 8)) {
    const XY from = line[0], to = line[1];
    const double length = std::hypot(to.x - from.x, to.y - from.y), side = random() % 2 == 0 ? 10.0 : -10.0;
    const XY off{-(to.y - from.y) / length * side, (to.x - from.x) / length * side};
    std::vector<XY> strip{from, {from.x + off.x, from.y + off.y}, {to.x + off.x, to.y + off.y}, to, from};
    if (ChordArea(strip) > 0.0) std::ranges::reverse(strip);
    strips.push_back(std::move(strip));
  }
  return strips;
}

std::vector<std::shared_ptr<Polygon>> PolygonsOf(const std::vector<std::vector<XY>>& rings) {
  std::vector<std::shared_ptr<Polygon>> polygons;
  for (const std::vector<XY>& ring : rings) polygons.push_back(testing::PolygonOf({ring}));
  return polygons;
}

// GEOS leaves out a face of some sets, so that the square isn't filled: then it has fewer.
TEST(GeosAgreement, FacesBetweenLinesNanometresApart) {
  int agreed = 0;
  for (unsigned seed = 1; seed <= kSets; ++seed) {
    const LineList lines = NearLines(seed, 16);
    std::vector<double> ours;
    for (const AreaRings& face : FacesBetween(Noded(lines))) ours.push_back(AreaOf(face));
    const std::vector<double> of_geos = FacesByGeos(lines);
    EXPECT_NEAR(std::accumulate(ours.begin(), ours.end(), 0.0), kWidth * kWidth, kSame) << seed;
    if (std::fabs(std::accumulate(of_geos.begin(), of_geos.end(), 0.0) - kWidth * kWidth) > kSame) continue;
    EXPECT_THAT(Large(ours), Pointwise(DoubleNear(kSame), Large(of_geos))) << seed;
    ++agreed;
  }
  EXPECT_GE(agreed, 5);
}

TEST(GeosAgreement, UnionsOfAreasWithSidesNanometresApart) {
  for (unsigned seed = 1; seed <= kSets; ++seed) {
    GeometryBag bag;
    std::vector<GeosGeometry> members;
    for (const auto& polygon : PolygonsOf(Strips(seed))) {
      bag.AddGeometry(polygon);
      members.push_back(ToGeos(*polygon));
    }
    Polygon united;
    united.ConstructUnion(bag);
    const GeosGeometry all = CollectionToGeos(GEOS_GEOMETRYCOLLECTION, std::move(members));
    EXPECT_NEAR(united.Area(), AreaOf(Checked(GEOSUnaryUnion_r(Geos(), all.get())).get()), kSame) << seed;
    EXPECT_EQ(GEOSisValid_r(Geos(), ToGeos(united).get()), 1) << seed;
  }
}

// GEOS finds no answer for some sets.
TEST(GeosAgreement, RingsThatOverlapByTheEvenOddRule) {
  int agreed = 0;
  for (unsigned seed = 1; seed <= kSets; ++seed) {
    const std::vector<std::vector<XY>> strips = Strips(seed);
    GeosGeometry odd;
    try {
      for (const auto& polygon : PolygonsOf(strips)) {
        GeosGeometry next = ToGeos(*polygon);
        odd = odd ? Checked(GEOSSymDifference_r(Geos(), odd.get(), next.get())) : std::move(next);
      }
    } catch (const Fault&) {
      continue;
    }
    EXPECT_NEAR(AreaOf(EvenOddAreas(Noded(strips))), AreaOf(odd.get()), kSame) << seed;
    ++agreed;
  }
  EXPECT_GE(agreed, 5);
}

// GEOS makes one line of some of those that run nanometres apart, so that its union is shorter.
TEST(GeosAgreement, UnionsOfLinesNanometresApart) {
  int agreed = 0;
  for (unsigned seed = 1; seed <= kSets; ++seed) {
    const LineList lines = NearLines(seed, 4);
    GeometryBag bag;
    double whole = 0.0;
    for (const std::vector<XY>& line : lines) {
      const auto member = testing::PolylineOf({line});
      bag.AddGeometry(member);
      whole += member->Length();
    }
    Polyline united;
    united.ConstructUnion(bag);
    // On the grid, lines that run closer together than it is wide are one.
    EXPECT_LE(united.Length(), whole + kSame) << seed;
    if (WithCrossings(lines)) {
      EXPECT_NEAR(united.Length(), whole, kSame) << seed;
    }
    double of_geos = 0.0;
    ASSERT_EQ(GEOSLength_r(Geos(), NodedByGeos(lines).get(), &of_geos), 1);
    EXPECT_LE(of_geos, united.Length() + kSame) << seed;
    if (std::fabs(of_geos - united.Length()) < kSame) ++agreed;
  }
  EXPECT_GE(agreed, 10);
}

// Bars on whole numbers cross, touch, overlap and repeat each other, and bear all of that exactly.
TEST(GeosAgreement, UnionsOfBars) {
  std::mt19937_64 random(7);
  for (int round = 0; round < 50; ++round) {
    GeometryBag bag;
    LineList bars;
    for (int number = 0; number < 30; ++number) {
      const double along = static_cast<double>(random() % 12), from = static_cast<double>(random() % 12);
      const double to = from + 1.0 + static_cast<double>(random() % 6);
      bars.push_back(random() % 2 == 0 ? std::vector<XY>{{from, along}, {to, along}}
                                       : std::vector<XY>{{along, to}, {along, from}});
      bag.AddGeometry(testing::PolylineOf({bars.back()}));
    }
    Polyline united;
    united.ConstructUnion(bag);
    const GeosGeometry of_geos = Checked(GEOSLineMergeDirected_r(Geos(), NodedByGeos(bars).get()));
    double length = 0.0;
    ASSERT_EQ(GEOSLength_r(Geos(), of_geos.get(), &length), 1);
    EXPECT_EQ(united.Length(), length) << round;
    EXPECT_EQ(GEOSEquals_r(Geos(), ToGeos(united).get(), of_geos.get()), 1) << round;
    EXPECT_EQ(united.GeometryCount(), GEOSGetNumGeometries_r(Geos(), of_geos.get())) << round;
  }
}

}  // namespace
}  // namespace tessarine::engine
