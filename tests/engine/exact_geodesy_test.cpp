// SPDX-License-Identifier: GPL-2.0-or-later
// Exact geodesics and areas, against closed formulae and the library's own planimeter.
#include "platform/exact_geodesy.h"

#include <gtest/gtest.h>

#include <GeographicLib/PolygonArea.hpp>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>

#include "helpers/shapes.h"

namespace tessarine {
namespace {

using testing::Box;
using testing::FaultOf;
using Ring = std::vector<XY>;

struct Body {
  const char* name;
  double a, b;
};
constexpr Body kEarth{"Earth", 6378137.0, 6356752.314245179};
constexpr Body kSaturn{"Saturn", 60268000.0, 54364000.0};

// The whole surface of an oblate spheroid.
double SurfaceOf(const Body& body) {
  const double e = std::sqrt(1.0 - body.b * body.b / (body.a * body.a));
  return 2.0 * std::numbers::pi * (body.a * body.a + body.b * body.b * std::atanh(e) / e);
}

TEST(ExactGeodesy, WholeBodiesAndTheirParts) {
  struct Row {
    const char* name;
    Ring ring;
    double share;  // of the surface
  };
  const Row rows[] = {
      {"the globe by four corners", Box(-180, -90, 180, 90), 1.0},
      {"the other way round", Box(-180, -90, 180, 90, false), -1.0},
      {"from 0 to 360", Box(0, -90, 360, 90), 1.0},
      {"an octant", {{0, 0}, {0, 90}, {90, 90}, {90, 0}, {0, 0}}, 0.125},
      {"the south round the pole", {{-180, -90}, {-180, 0}, {-60, 0}, {60, 0}, {180, 0}, {180, -90}, {-180, -90}}, 0.5},
      {"five eighths", {{0, -90}, {0, 0}, {0, 90}, {120, 90}, {225, 90}, {225, 0}, {225, -90}, {0, -90}}, 0.625},
      {"nothing", {}, 0.0},
      {"one place", {{1, 2}}, 0.0},
  };
  for (const Body& body : {kEarth, kSaturn}) {
    const double surface = SurfaceOf(body);
    for (const Row& row : rows) {
      EXPECT_NEAR(ExactRingArea(row.ring, body.a, body.b) / surface, row.share, 1e-14) << body.name << ": " << row.name;
    }
  }
}

TEST(ExactGeodesy, AgreesWithThePlanimeter) {
  std::mt19937_64 random(11);
  std::uniform_real_distribution<double> share(0.0, 1.0);
  const GeographicLib::Geodesic earth(kEarth.a, (kEarth.a - kEarth.b) / kEarth.a);
  for (int index = 0; index < 200; ++index) {
    const double lon = 360.0 * share(random) - 180.0, lat = 120.0 * share(random) - 60.0, size = 25.0 * share(random);
    Ring ring;
    GeographicLib::PolygonArea peer(earth);
    for (int corner = 0; corner < 12; ++corner) {
      const double angle = corner * std::numbers::pi / 6.0, reach = size * (0.3 + 0.7 * share(random));
      ring.push_back({lon + reach * std::sin(angle), lat + reach * std::cos(angle)});
      peer.AddPoint(ring.back().y, ring.back().x);
    }
    double perimeter = 0.0, area = 0.0;
    peer.Compute(true, true, perimeter, area);  // clockwise is positive
    EXPECT_NEAR(ExactRingArea(ring, kEarth.a, kEarth.b), area, 1.0 + 1e-14 * std::fabs(area)) << index;
  }
}

// The antipode on the equator is reached over a pole: two quarters of the meridian.
TEST(ExactGeodesy, NearlyAntipodalPositions) {
  constexpr double kQuarterMeridian = 10001965.729312;
  const ExactGeodesic over = SolveInverseExactly({0, 0}, {180, 0}, kEarth.a, kEarth.b);
  EXPECT_NEAR(over.distance, 2.0 * kQuarterMeridian, 1e-5);
  EXPECT_NEAR(over.azimuth1, 0.0, 1e-12);
  EXPECT_NEAR(over.azimuth2, 180.0, 1e-12);
  // A line of one meridian across Saturn.
  const ExactGeodesic same = SolveInverseExactly({10, -30}, {10, 30}, kSaturn.a, kSaturn.b);
  EXPECT_EQ(same.azimuth1, 0.0);
  EXPECT_GT(same.distance, 0.0);
}

TEST(ExactGeodesy, RefusesWhatIsNoPosition) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(FaultOf([&] { static_cast<void>(SolveInverseExactly({0, 0}, {1, nan}, kEarth.a, kEarth.b)); }), 5);
  EXPECT_EQ(FaultOf([] { static_cast<void>(ExactRingArea(Box(0, 80, 10, 95), kEarth.a, kEarth.b)); }), 5);
  EXPECT_EQ(FaultOf([] { static_cast<void>(ExactRingArea(Box(0, 0, 1, 1), 0.0, 0.0)); }), 5);
}

}  // namespace
}  // namespace tessarine
