// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/cartesian.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>

#include "tests/shapes/fault_log.h"

#include <GeographicLib/Geocentric.hpp>

namespace tessarine::MyGeometricOperations {
namespace {

using tessarine::testing::FaultLog;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr double kA = 6378137.0, kB = 6356752.31424518;

std::uint64_t Bits(double value) { return std::bit_cast<std::uint64_t>(value); }

struct Place {
  double x = 0.0, y = 0.0, z = 0.0;
};

Place OnSpheroid(double lon, double lat, double height = 0.0, double a = kA, double b = kB) {
  Place place;
  SpheroidalLatLongToCart(lon, lat, place.x, place.y, place.z, a, b, height);
  return place;
}

// Bits of the same formulas in Python, where sums, products and roots are IEEE doubles and each trigonometric function
// and power is rounded from 300 bits.
TEST(Cartesian, PinnedBits) {
  Place place;
  SphericalLatLongToCart(-110.9, 32.2, place.x, place.y, place.z, 6371000.0);
  EXPECT_EQ(Bits(place.x), 0xC13D588909811832u);
  EXPECT_EQ(Bits(place.y), 0xC1533658A7D84856u);
  EXPECT_EQ(Bits(place.z), 0x4149E6C5609ED073u);
  place = OnSpheroid(-110.9, 32.2, 1000.0);
  EXPECT_EQ(Bits(place.x), 0xC13D6949F0395463u);
  EXPECT_EQ(Bits(place.y), 0xC15341508942F992u);
  EXPECT_EQ(Bits(place.z), 0x4149C913C374843Cu);
  double lon = 0.0, lat = 0.0;
  SphericalCartToLatLong(lon, lat, -0.3, -0.7, 0.6);
  EXPECT_EQ(Bits(lon), 0xC05C4CB5B4FC5A88u);
  EXPECT_EQ(Bits(lat), 0x40431DBF6D063221u);
  SpheroidalCartToLatLong(lon, lat, -1925000.0, -5050000.0, 3380000.0, kA, kB, 0.0);
  EXPECT_EQ(Bits(lon), 0xC05BB770ACD96F7Au);
  EXPECT_EQ(Bits(lat), 0x4040190592B7B415u);
  TriangleCentroid3D(0.1, 0.2, 0.3, 0.7, -0.4, 1.3, -0.6, 0.9, 0.05, place.x, place.y, place.z);
  EXPECT_EQ(Bits(place.x), 0x3FB1111111111110u);
  EXPECT_EQ(Bits(place.y), 0x3FCDDDDDDDDDDDDDu);
  EXPECT_EQ(Bits(place.z), 0x3FE199999999999Au);
}

TEST(Cartesian, AxesAndUnitSphere) {
  struct Row {
    const char* name;
    double lon, lat;
    Place expected;
  };
  const Row rows[] = {
      {"X axis", 0, 0, {1, 0, 0}},
      {"Y axis", 90, 0, {0, 1, 0}},
      {"180 degrees", 180, 0, {-1, 0, 0}},
      {"north pole", 25, 90, {0, 0, 1}},
      {"south pole", 25, -90, {0, 0, -1}},
      {"more than a turn", 450, 0, {0, 1, 0}},
      {"60 north", 0, 60, {0.5, 0, std::sqrt(0.75)}},
  };
  for (const Row& row : rows) {
    Place place;
    SphericalLatLongToCart(row.lon, row.lat, place.x, place.y, place.z);
    EXPECT_NEAR(place.x, row.expected.x, 2e-14) << row.name;
    EXPECT_NEAR(place.y, row.expected.y, 2e-14) << row.name;
    EXPECT_NEAR(place.z, row.expected.z, 2e-14) << row.name;
  }
  Place place;
  SphericalLatLongToCart(0, 90, place.x, place.y, place.z, std::int16_t{2});
  EXPECT_EQ(place.z, 2.0);
}

TEST(Cartesian, SpecialPlaces) {
  const FaultLog log;
  double lon = 1.0, lat = 1.0;
  SphericalCartToLatLong(lon, lat, 0.0, 0.0, 0.0);
  EXPECT_EQ(lon, 0.0);
  EXPECT_EQ(lat, 90.0);
  SphericalCartToLatLong(lon, lat, -1.0, -0.0, 0.0);
  EXPECT_EQ(lon, 180.0) << "never -180 for a zero in Y";
  SphericalCartToLatLong(lon, lat, 0.0, 0.0, -1.0);
  EXPECT_EQ(lat, -90.0);
  // The north pole loses its longitude; the cut pi saves it for the south pole.
  for (const double pole : {90.0, -90.0}) {
    const Place place = OnSpheroid(25.0, pole);
    SpheroidalCartToLatLong(lon, lat, place.x, place.y, place.z, kA, kB, 0.0);
    EXPECT_NEAR(lat, pole, 1e-12);
    EXPECT_NEAR(lon, pole > 0.0 ? 0.0 : 25.0, 1e-12);
  }
  // Exactly on the axis, Bowring's denominator is a negative remainder, and the angle runs past the southern pole.
  SpheroidalCartToLatLong(lon, lat, 0.0, 0.0, kB, kA, kB, 0.0);
  EXPECT_NEAR(lat, 90.0, 1e-12);
  SpheroidalCartToLatLong(lon, lat, 0.0, 0.0, -kB, kA, kB, 0.0);
  EXPECT_NEAR(lat, 270.0, 1e-12);
  // Equatorial and polar radius are the answers along the axes.
  EXPECT_NEAR(OnSpheroid(0, 0).x, kA, 1e-8);
  EXPECT_NEAR(OnSpheroid(0, 90).z, kB, 1e-8);
  EXPECT_NEAR(OnSpheroid(0, 90, 250.0).z, kB + 250.0, 1e-8);
  double cx = 0, cy = 0, cz = 0;
  TriangleCentroid3D(1, 10, 100, 2, 20, 200, 6, 60, 600, cx, cy, cz);
  EXPECT_THAT((std::vector<double>{cx, cy, cz}), ElementsAre(3.0, 30.0, 300.0));
  EXPECT_THAT(log.Reports(), IsEmpty());
}

TEST(Cartesian, ReturnsToTheSamePositionAndWrapsTheLongitude) {
  std::mt19937_64 random(20260314);
  std::uniform_real_distribution<double> any_lon(-540.0, 540.0), any_lat(-89.9, 89.9);
  for (int index = 0; index < 10000; ++index) {
    const double lon = any_lon(random), lat = any_lat(random);
    const double reduced = std::remainder(lon, 360.0);
    const Place place = OnSpheroid(lon, lat);
    double back_lon = 0.0, back_lat = 0.0, other_lat = 0.0;
    SpheroidalCartToLatLong(back_lon, back_lat, place.x, place.y, place.z, kA, kB, 0.0);
    ASSERT_NEAR(back_lat, lat, 1e-12) << "degrees, from " << lon << " " << lat;
    ASSERT_NEAR(std::remainder(back_lon - reduced, 360.0), 0.0, 1e-12);
    ASSERT_LE(std::fabs(back_lon), 180.0);
    SpheroidalCartToLatLong(back_lon, other_lat, place.x, place.y, place.z, kA, kB, 1e6);
    ASSERT_EQ(other_lat, back_lat) << "the height changes no place";
  }
}

TEST(Cartesian, AgreesWithGeographicLib) {
  const GeographicLib::Geocentric earth(kA, (kA - kB) / kA);
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> any_lon(-180.0, 180.0), any_sine(-1.0, 1.0), any_height(-5000.0, 9000.0);
  double worst_metres = 0.0, worst_degrees = 0.0;
  for (int index = 0; index < 100000; ++index) {
    const double lon = any_lon(random), lat = std::asin(any_sine(random)) * 180.0 / std::acos(-1.0);
    const double height = any_height(random);
    Place theirs;
    earth.Forward(lat, lon, height, theirs.x, theirs.y, theirs.z);
    const Place ours = OnSpheroid(lon, lat, height);
    worst_metres = std::max(
        {worst_metres, std::fabs(ours.x - theirs.x), std::fabs(ours.y - theirs.y), std::fabs(ours.z - theirs.z)});
    double our_lon = 0.0, our_lat = 0.0;
    SpheroidalCartToLatLong(our_lon, our_lat, theirs.x, theirs.y, theirs.z, kA, kB, 0.0);
    worst_degrees = std::max(worst_degrees, std::fabs(our_lat - lat));
  }
  EXPECT_LT(worst_metres, 1e-7);
  EXPECT_LT(worst_degrees, 1e-11) << "at heights from -5 to 9 km";
}

TEST(Cartesian, FaultsLeaveTheOutputsAlone) {
  const FaultLog log;
  double x = 1.0, y = 2.0, z = 3.0;
  SpheroidalLatLongToCart(10, 20, x, y, z, 0.0, kB, 0.0);
  SpheroidalCartToLatLong(x, y, 1.0, 1.0, 1.0, 0.0, kB, 0.0);
  SpheroidalCartToLatLong(x, y, 1.0, 1.0, 1.0, kA, 0.0, 0.0);
  SpheroidalCartToLatLong(x, y, 0.0, 0.0, 1e200, 1e200, 1e200, 0.0);
  SphericalLatLongToCart(10, 20, x, y, z, 1e308 * 10.0);
  SphericalCartToLatLong(x, y, 1e200, 1.0, 1.0);
  TriangleCentroid3D(1e308, 0, 0, 1e308, 0, 0, 0, 0, 0, x, y, z);
  EXPECT_THAT((std::vector<double>{x, y, z}), ElementsAre(1.0, 2.0, 3.0));
  EXPECT_THAT(log.Reports(),
              ElementsAre("SpheroidalLatLongToCart 11", "SpheroidalCartToLatLong 11", "SpheroidalCartToLatLong 11",
                          "SpheroidalCartToLatLong 6", "SphericalLatLongToCart 6", "SphericalCartToLatLong 6",
                          "TriangleCentroid3D 6"));
}

}  // namespace
}  // namespace tessarine::MyGeometricOperations
