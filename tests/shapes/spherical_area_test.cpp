// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/spherical_area.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>

#include "platform/spatial_reference.h"
#include "shapes/angles.h"
#include "shapes/cartesian.h"
#include "tests/shapes/fault_log.h"

#include <GeographicLib/PolygonArea.hpp>

namespace tessarine::MyGeometricOperations {
namespace {

using geodesy::AreaWish;
using geodesy::SphericalAreaSum;
using tessarine::testing::FaultLog;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr double kA = 6378137.0, kB = 6356752.31424518;
constexpr double kMarsA = 3396190.0, kMarsB = 3376200.0;
constexpr double kRadius = 6371000.790009154;  // the published mean radius by volume is 6371000.79 m
const double kTruePi = std::acos(-1.0);

using Vertices = std::vector<XY>;

std::shared_ptr<Polygon> PolygonOf(const std::vector<Vertices>& rings) {
  auto polygon = std::make_shared<Polygon>();
  for (const Vertices& ring : rings) polygon->AddGeometry(std::make_shared<Ring>(ring));
  return polygon;
}

// Clockwise from its south-west corner.
Vertices Box(double west, double south, double east, double north) {
  return {{west, south}, {west, north}, {east, north}, {east, south}, {west, south}};
}

Vertices Reversed(Vertices ring) { return {ring.rbegin(), ring.rend()}; }

double Area(const Polygon& polygon) {
  double lon = 0.0, lat = 0.0;
  return SphericalPolygonArea(CloneOf(polygon), false, lon, lat);
}

TEST(SphericalTriangle, AreasByHand) {
  struct Row {
    const char* name;
    XY p1, p2, p3;
    double area;  // on the unit sphere
  };
  // A lune from pole to pole over an angle has twice that angle; its upper half the angle itself. Three right angles
  // make an excess of pi / 2. Half of a small square has about half the product of its sides.
  const Row rows[] = {
      {"octant, counter-clockwise", {0, 0}, {90, 0}, {0, 90}, -kTruePi / 2},
      {"octant, clockwise", {0, 0}, {0, 90}, {90, 0}, kTruePi / 2},
      {"octant, begun at the pole", {0, 90}, {90, 0}, {0, 0}, kTruePi / 2},
      {"southern octant", {0, 0}, {90, 0}, {0, -90}, kTruePi / 2},
      {"30 degrees of the northern half", {-10, 0}, {0, 90}, {20, 0}, kTruePi / 6},
      {"across the 180 degree meridian", {170, 0}, {0, 90}, {-160, 0}, kTruePi / 6},
      {"the same with longitudes that run on", {170, 0}, {0, 90}, {200, 0}, kTruePi / 6},
      {"a tenth of a second wide", {0, 0}, {0, 3e-5}, {3e-5, 0}, 0.5 * std::pow(3e-5 * kTruePi / 180, 2)},
  };
  for (const Row& row : rows) {
    double sign = 0.0;
    const double area = SphericalTriangleArea2(row.p1, row.p2, row.p3, sign, 1.0, 1.0);
    EXPECT_NEAR(area, row.area, std::fabs(row.area) * 1e-9) << row.name;
    EXPECT_EQ(sign, row.area > 0 ? 1.0 : -1.0) << row.name;
  }
  double sign = 0.0;
  const double on_earth = SphericalTriangleArea(Point(0, 0), Point(0, 90), Point(90, 0), sign);
  EXPECT_NEAR(on_earth, kRadius * kRadius * kTruePi / 2, 10.0);
  EXPECT_EQ(on_earth, SphericalTriangleArea2(Point(0, 0), Point(0, 90), Point(90, 0), sign, kA, kB));
}

TEST(SphericalTriangle, WithoutAreaTheSignStays) {
  struct Row {
    const char* name;
    XY p1, p2, p3;
  };
  const Row rows[] = {
      {"one meridian", {7, -3}, {7, 4}, {7, 9}},
      {"one meridian within the tolerance", {7, -3}, {7 + 9e-13, 4}, {7 - 9e-13, 9}},
      {"first and second", {1, 2}, {1, 2}, {5, 6}},
      {"first and third", {1, 2}, {5, 6}, {1, 2 + 5e-13}},
      {"second and third", {1, 2}, {5, 6}, {5, 6}},
  };
  FaultLog log;
  for (const Row& row : rows) {
    double sign = 42.0;
    EXPECT_EQ(SphericalTriangleArea2(row.p1, row.p2, row.p3, sign, kA, kB), 0.0) << row.name;
    EXPECT_EQ(sign, 42.0) << row.name;
  }
  EXPECT_THAT(log.Reports(), IsEmpty());

  // The equator is no meridian: its corners go through the formula, which gives them a sign.
  double sign = 42.0;
  EXPECT_EQ(SphericalTriangleArea2(XY{0, 0}, XY{10, 0}, XY{30, 0}, sign, kA, kB), 0.0);
  EXPECT_EQ(sign, -1.0);
}

// Bits of the same formulas in Python, where sums, products and roots are IEEE doubles and each other function is
// rounded from 300 bits.
TEST(SphericalArea, PinnedBits) {
  const auto bits = [](double value) { return std::bit_cast<std::uint64_t>(value); };
  double sign = 0.0, lon = 0.0, lat = 0.0;
  EXPECT_EQ(bits(SphericalTriangleArea2(XY{0, 0}, XY{90, 0}, XY{0, 90}, sign, 1.0, 1.0)), 0xBFF921FB54442D07u);
  EXPECT_EQ(bits(SphericalTriangleArea(XY{12.5, 41.9}, XY{-0.125, 51.5}, XY{13.4, 52.5}, sign)), 0x425FFEE731562B52u);
  EXPECT_EQ(bits(SphericalTriangleArea2(XY{-110.9, 32.2}, XY{-110.85, 32.25}, XY{-110.8, 32.1}, sign, kMarsA, kMarsB)),
            0x416C3F49E332E5BFu);

  const auto with_hole = PolygonOf({Box(10, 45, 13, 47), Reversed(Box(11, 45.5, 12, 46.5))});
  EXPECT_EQ(bits(SphericalPolygonArea(with_hole, true, lon, lat)), 0x4223FE5E47BB7937u);
  EXPECT_EQ(bits(lon), 0x4026FFFFFFFFFFFDu);
  EXPECT_EQ(bits(lat), 0x404700977BE2B382u);
  EXPECT_EQ(bits(SphericalPolygonArea2(with_hole, true, lon, lat, kMarsA, kMarsB)), 0x4206A2F7819BE4DAu);
  EXPECT_EQ(bits(lon), 0x4027000000000001u);
  EXPECT_EQ(bits(lat), 0x404700977BE2B384u);
}

TEST(SphericalPolygon, RingsAddUp) {
  const Vertices outer = Box(0, 0, 10, 10), inner = Box(4, 4, 6, 6), apart = Box(40, 20, 42, 21);
  const double whole = Area(*PolygonOf({outer})), hole = Area(*PolygonOf({inner})), other = Area(*PolygonOf({apart}));
  // The equator and the meridians are great circles: up to the northern side, which bulges, this is a sphere's box.
  EXPECT_GT(whole, kRadius * kRadius * (10 * kTruePi / 180) * std::sin(10 * kTruePi / 180));
  EXPECT_NEAR(Area(*PolygonOf({outer, Reversed(inner)})), whole - hole, 1e-3);
  EXPECT_NEAR(Area(*PolygonOf({outer, apart})), whole + other, 1e-3);
  EXPECT_NEAR(Area(*PolygonOf({outer, Reversed(inner), apart})), whole - hole + other, 1e-3);
  EXPECT_NEAR(Area(*PolygonOf({Reversed(outer)})), -whole, 1e-3);
}

TEST(SphericalPolygon, Centroid) {
  struct Row {
    const char* name;
    std::vector<Vertices> rings;
    double lon, lat;
  };
  const Row rows[] = {
      {"about the equator", {Box(5, -8, 15, 8)}, 10, 0},
      {"past the 180 degree meridian", {Box(170, -8, 194, 8)}, -178, 0},
      {"apex in the hole", {Box(5, -8, 15, 8), Reversed(Box(8, -2, 12, 2))}, 10, 0},
      {"two parts", {Box(-20, -5, -10, 5), Box(10, -5, 20, 5)}, 0, 0},
      {"counter-clockwise", {Reversed(Box(5, -8, 15, 8))}, -9999, -9999},
      {"empty", {}, -9999, -9999},
  };
  for (const Row& row : rows) {
    double lon = 1.0, lat = 2.0;
    SphericalPolygonArea2(PolygonOf(row.rings), true, lon, lat, kA, kB);
    EXPECT_NEAR(lon, row.lon, 1e-10) << row.name;
    EXPECT_NEAR(lat, row.lat, 1e-10) << row.name;
    lon = 1.0, lat = 2.0;
    SphericalPolygonArea(PolygonOf(row.rings), false, lon, lat);
    EXPECT_EQ(lon, 1.0) << row.name;
    EXPECT_EQ(lat, 2.0) << row.name;
  }
  EXPECT_EQ(Area(Polygon()), 0.0);
}

TEST(SphericalPolygon, OnlyTheSecondFormSnaps) {
  auto polygon = PolygonOf({Box(0.0004, 0, 1, 1)});
  polygon->SetSpatialReference(std::make_shared<GeographicCoordinateSystem>("Coarse", "", 0, 0.01, nullptr,
                                                                            CoordinateUnit{"Degree", 0.01745329}));
  double lon = 0.0, lat = 0.0;
  SphericalPolygonArea(polygon, false, lon, lat);
  EXPECT_EQ(polygon->Point(0).x, 0.0004);
  SphericalPolygonArea2(polygon, false, lon, lat, kA, kB);
  EXPECT_EQ(polygon->Point(0).x, 0.0);
}

TEST(SphericalPolygon, Faults) {
  double lon = 1.0, lat = 2.0, sign = 3.0;
  {
    FaultLog log;
    EXPECT_EQ(SphericalPolygonArea(nullptr, true, lon, lat), 0.0);
    EXPECT_EQ(SphericalTriangleArea(Point(), Point(0, 1), Point(1, 0), sign), 0.0);
    EXPECT_THAT(log.Reports(), ElementsAre("SphericalPolygonArea 91", "SphericalTriangleArea 5"));
    EXPECT_EQ(sign, 3.0);
  }
  {
    // A negative volume has no real cube root. Each triangle fails by itself and the polygon goes on.
    FaultLog log;
    EXPECT_EQ(SphericalPolygonArea2(PolygonOf({Box(0, 0, 1, 1)}), false, lon, lat, 1.0, -1.0), 0.0);
    EXPECT_THAT(log.Reports(), ElementsAre("SphericalTriangleArea2 5", "SphericalTriangleArea2 5",
                                           "SphericalTriangleArea2 5", "SphericalTriangleArea2 5"));
  }
  {
    // A longitude past all reckoning is reported wherever it is used, and the polygon goes on.
    FaultLog log;
    const Vertices ring = {{0, 0}, {0, 1}, {1e308, 1}, {1, 0}, {2, 0.5}};
    const XY apex{0.5, 0.25};
    SphericalAreaSum sum = ReportingAreaSum(kA, kB, AreaWish::WithCentroid);
    sum.AddRing(ring, apex);
    double area = 0.0;
    for (std::size_t next = 1; next < ring.size(); ++next) {
      area += SphericalTriangleArea2(ring[next - 1], ring[next], apex, sign, kA, kB);
    }
    EXPECT_EQ(sum.Area(), area);
    EXPECT_FALSE(log.Reports().empty());
    EXPECT_THAT(log.Reports(), ::testing::Each(std::string("SphericalTriangleArea2 6")));
  }
  FaultLog log;
  EXPECT_EQ(SphericalPolygonArea(PolygonOf({{{0, 0}, {1, 1}, {2, 2}, {0, 0}}}), true, lon, lat), 0.0);
  EXPECT_THAT(log.Reports(), ::testing::IsEmpty());
  EXPECT_EQ(lon, -9999.0) << "no area, no centroid";
}

TEST(SphericalAreaSum, ALongRingIsAddedWithAllItsSides) {
  Vertices ring;
  for (int index = 0; index <= 140000; ++index) {
    const double angle = -2.0 * kTruePi * index / 140000;
    ring.push_back({10.0 + 5.0 * std::cos(angle), 40.0 + 5.0 * std::sin(angle)});
  }
  SphericalAreaSum in_pieces = ReportingAreaSum(kA, kB, AreaWish::WithCentroid);
  SphericalAreaSum at_once = in_pieces;
  AddRing(in_pieces, ring, {10, 40});
  at_once.AddRing(ring, {10, 40});
  EXPECT_GT(at_once.Area(), 0.0);
  EXPECT_EQ(in_pieces.Area(), at_once.Area());
  EXPECT_EQ(in_pieces.Centroid(), at_once.Centroid());
}

// The sum over a ring against one triangle after the other, for rings that are coarse, thin, polar or repeat vertices.
TEST(SphericalAreaSum, IsTheSumOfTriangles) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> unit(-1.0, 1.0);
  for (int round = 0; round < 600; ++round) {
    const double size = std::pow(10.0, 3.0 * unit(random) - 2.0);
    const bool coarse = round % 3 == 0;
    const XY apex{180.0 * unit(random), round % 5 == 0 ? 0.0 : 89.0 * unit(random)};
    Vertices ring;
    for (int count = 1 + round % 30; count > 0; --count) {
      XY vertex{apex.x + size * unit(random), std::clamp(apex.y + size * unit(random), -90.0, 90.0)};
      if (coarse) vertex = {std::round(vertex.x), std::round(vertex.y)};
      if (round % 10 == 5) vertex.y = 1e-14 * unit(random);  // hardly off the equator, where the apex lies
      ring.push_back(vertex);
    }
    double area = 0.0, sign = 0.0, sum[3] = {};
    for (std::size_t index = 1; index < ring.size(); ++index) {
      const XY from = ring[index - 1], to = ring[index];
      const double triangle = SphericalTriangleArea2(from, to, apex, sign, kA, kB);
      area += triangle;
      double x[4], y[4], z[4];
      int corner = 0;
      for (const XY at : {from, to, apex}) {
        SphericalLatLongToCart(at.x, at.y, x[corner], y[corner], z[corner]);
        ++corner;
      }
      TriangleCentroid3D(x[0], y[0], z[0], x[1], y[1], z[1], x[2], y[2], z[2], x[3], y[3], z[3]);
      const double length = std::sqrt(x[3] * x[3] + y[3] * y[3] + z[3] * z[3]);
      sum[0] += x[3] / length * triangle, sum[1] += y[3] / length * triangle, sum[2] += z[3] / length * triangle;
    }
    double lon = kNoValue, lat = kNoValue;
    if (area > 0.0) SphericalCartToLatLong(lon, lat, sum[0] / area, sum[1] / area, sum[2] / area);
    SphericalAreaSum all = ReportingAreaSum(kA, kB, AreaWish::WithCentroid);
    all.AddRing(ring, apex);
    ASSERT_EQ(all.Area(), area) << round;
    ASSERT_EQ(all.Centroid().value_or(XY{kNoValue, kNoValue}), (XY{lon, lat})) << round;
  }
}

TEST(SphericalPolygon, AgreesWithGeodesicPolygonsOnTheSphere) {
  std::mt19937_64 random(34);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  const GeographicLib::Geodesic sphere(kRadius, 0.0);
  for (int round = 0; round < 300; ++round) {
    const double size = std::pow(10.0, 5.0 * unit(random) - 4.0);  // 10 m to 10 degrees
    const XY center{360.0 * unit(random) - 180.0, 120.0 * unit(random) - 60.0};
    Vertices ring;
    const int corners = 3 + round % 40;
    for (int corner = 0; corner < corners; ++corner) {
      const double angle = -2.0 * kTruePi * corner / corners, reach = size * (0.4 + 0.6 * unit(random));
      ring.push_back({center.x + reach * std::cos(angle), center.y + reach * std::sin(angle)});
    }
    GeographicLib::PolygonArea peer(sphere);
    for (const XY vertex : ring) peer.AddPoint(vertex.y, vertex.x);
    double perimeter = 0.0, expected = 0.0;
    peer.Compute(true, true, perimeter, expected);  // clockwise counts positive
    ring.push_back(ring.front());
    const double area = Area(*PolygonOf({ring}));
    // Their sum keeps about 0.1 square metres, ours 2e-16 of the sphere's radius times the length of the sides.
    EXPECT_NEAR(area, expected, 1e-11 * expected + 0.1 + 1e-9 * perimeter) << corners << " corners of " << size;
  }
}

}  // namespace
}  // namespace tessarine::MyGeometricOperations
