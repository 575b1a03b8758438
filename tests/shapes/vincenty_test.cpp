// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/vincenty.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>

#include "shapes/angles.h"
#include "tests/shapes/fault_log.h"

#include <GeographicLib/Geodesic.hpp>

namespace tessarine::MyGeometricOperations {
namespace {

using tessarine::testing::FaultLog;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr double kA = 6378137.0, kB = 6356752.31424518;
constexpr double kMarsA = 3396190.0, kMarsB = 3376200.0;

std::uint64_t Bits(double value) { return std::bit_cast<std::uint64_t>(value); }

double Degrees(int sign, double degrees, double minutes, double seconds) {
  return sign * (degrees + minutes / 60.0 + seconds / 3600.0);
}

// The difference of two azimuths, whole turns aside.
double Turn(double first, double second) { return std::fabs(std::remainder(first - second, 360.0)); }

std::shared_ptr<const GeographicCoordinateSystem> Geographic(double a, double b) {
  auto spheroid = std::make_shared<const Spheroid>("Figure", a, b);
  return std::make_shared<const GeographicCoordinateSystem>("Longitude and latitude", "", 0, 1e-8,
                                                            std::make_shared<const Datum>("Datum", spheroid),
                                                            CoordinateUnit{"Degree", 0.0174532925199433});
}

// Bits of the same formulas in Python, where sums, products and roots are IEEE doubles and each trigonometric function
// is rounded from 300 bits.
TEST(Vincenty, PinnedBits) {
  struct Row {
    double lon1, lat1, lon2, lat2;
    std::uint64_t fixed[3], mine[3];  // distance and both azimuths, without and with the suffix 2
  };
  const Row rows[] = {
      {-110.9,
       32.2,
       -87.6,
       41.9,
       {0x4141BCBFA0E10E7A, 0x404BE640A7AC52A0, 0x405180CE1C0AC165},
       {0x4141BCBFA0E10E79, 0x404BE640A7AC529F, 0x405180CE1C0AC165}},
      {139.75,
       35.75,
       -0.125,
       51.5,
       {0x41624530B20F8E1E, 0x4075049ADE85B1F6, 0x406A72CB3F0F45A4},
       {0x41624530B20F8E1E, 0x4075049ADE85B1F6, 0x406A72CB3F0F45A4}},
      {12.5, 41.9, 12.5, 55.7, {0x41376AA7A27AE1B1, 0, 0}, {0x41376AA7A27AE1AE, 0, 0}},
  };
  for (const Row& row : rows) {
    double az1 = -1.0, az2 = -1.0;
    EXPECT_EQ(Bits(DistanceVincentyNumbers(row.lon1, row.lat1, row.lon2, row.lat2, az1, az2)), row.fixed[0]);
    EXPECT_EQ(Bits(az1), row.fixed[1]);
    EXPECT_EQ(Bits(az2), row.fixed[2]);
    EXPECT_EQ(Bits(DistanceVincentyPoints2(Point(row.lon1, row.lat1), Point(row.lon2, row.lat2), az1, az2, kA, kB)),
              row.mine[0]);
    EXPECT_EQ(Bits(az1), row.mine[1]);
    EXPECT_EQ(Bits(az2), row.mine[2]);
  }
  double az1 = 0.0, az2 = 0.0;
  EXPECT_EQ(Bits(DistanceVincentyNumbers2(-110.9, 32.2, -87.6, 41.9, az1, az2, kMarsA, kMarsB)), 0x4132E4BAF69D39AFu);

  struct Line {
    XY start;
    double distance, azimuth;
    std::uint64_t lon, lat, far_azimuth;
  };
  const Line lines[] = {
      {{-110.9, 32.2}, 2500000.0, 63.4, 0xC0552795B739B1A3, 0x4043CE0485F7AFDF, 0x4053C1957C3B6DF2},
      {{179.5, -16.5}, 100000.0, 91.0, 0x40668DF862A634F0, 0xC03083800E73C097, 0x4056AEF8011E16B9},
      {{0.0, 89.9}, 5e6, 350.0, 0xC0653F703CF889BD, 0x4046A045F08D8C18, 0x406680CA675E4394},
  };
  for (const Line& line : lines) {
    XY end;
    double far_azimuth = 0.0;
    PointLineVincentyPerPoint2(line.start, line.distance, line.azimuth, end, far_azimuth, kA, kB);
    EXPECT_EQ(Bits(end.x), line.lon);
    EXPECT_EQ(Bits(end.y), line.lat);
    EXPECT_EQ(Bits(far_azimuth), line.far_azimuth);
  }
}

// The five lines of Vincenty's paper of 1975, on the ellipsoids of Bessel and Hayford.
TEST(Vincenty, PublishedLines) {
  struct Row {
    const char* name;
    double a, inverse_f, lat1, azimuth1, distance, lat2, lon2, azimuth2;
    double metres, degrees;  // what the printed digits, and the nearness of the antipode, allow
  };
  const double bessel = 6377397.155, hayford = 6378388.0;
  const Row rows[] = {
      {"a", bessel, 299.1528128, Degrees(1, 55, 45, 0), Degrees(1, 96, 36, 8.79960), 14110526.170,
       Degrees(-1, 33, 26, 0), Degrees(1, 108, 13, 0), Degrees(1, 137, 52, 22.01454), 1e-3, 1e-8},
      {"b", hayford, 297.0, Degrees(1, 37, 19, 54.95367), Degrees(1, 95, 27, 59.63089), 4085966.703,
       Degrees(1, 26, 7, 42.83946), Degrees(1, 41, 28, 35.50729), Degrees(1, 118, 5, 58.96161), 1e-3, 1e-8},
      {"c", hayford, 297.0, Degrees(1, 35, 16, 11.24862), Degrees(1, 15, 44, 23.74850), 8084823.839,
       Degrees(1, 67, 22, 14.77638), Degrees(1, 137, 47, 28.31435), Degrees(1, 144, 55, 39.92147), 1e-3, 1e-8},
      {"d", hayford, 297.0, Degrees(1, 1, 0, 0), Degrees(1, 89, 0, 0), 19960000.0, Degrees(-1, 0, 59, 53.83076),
       Degrees(1, 179, 17, 48.02997), Degrees(1, 91, 0, 6.11733), 2e-3, 2e-6},
      {"e", hayford, 297.0, Degrees(1, 1, 0, 0), Degrees(1, 4, 59, 59.99995), 19780006.558, Degrees(1, 1, 1, 15.18952),
       Degrees(1, 179, 46, 17.84244), Degrees(1, 174, 59, 59.88481), 2e-3, 2e-6},
  };
  for (const Row& row : rows) {
    const double b = row.a * (1.0 - 1.0 / row.inverse_f);
    double az1 = 0.0, az2 = 0.0;
    EXPECT_NEAR(DistanceVincentyNumbers2(0, row.lat1, row.lon2, row.lat2, az1, az2, row.a, b), row.distance, row.metres)
        << row.name;
    EXPECT_NEAR(az1, row.azimuth1, row.degrees) << row.name;
    EXPECT_NEAR(az2, row.azimuth2, row.degrees) << row.name;
    XY end;
    PointLineVincentyPerPoint2(XY{0, row.lat1}, row.distance, row.azimuth1, end, az2, row.a, b);
    EXPECT_NEAR(end.x, row.lon2, 1e-8) << row.name;
    EXPECT_NEAR(end.y, row.lat2, 1e-8) << row.name;
    EXPECT_NEAR(az2, row.azimuth2, 1e-8) << row.name;
  }
}

TEST(Vincenty, SpecialPositions) {
  struct Row {
    const char* name;
    double lon1, lat1, lon2, lat2, distance, azimuth1, azimuth2, metres;
  };
  // One degree of the equator is a pi / 180; the quarter meridian of WGS 1984 is published as 10,001,965.729 m; the
  // last degree before the pole is c pi / 180 (1 - e'^2 (pi / 180)^2 / 2), c = a^2 / b, which makes 111,693.865 m.
  const Row rows[] = {
      {"coincident", 12.5, 41.9, 12.5, 41.9, 0, 0, 0, 0},
      {"equator eastward", 0, 0, 1, 0, 111319.49079, 90, 90, 1e-4},
      {"equator westward", 1, 0, 0, 0, 111319.49079, 270, 270, 1e-4},
      {"across the 180 meridian", 179, 0, -179, 0, 222638.98159, 90, 90, 1e-4},
      {"equator to pole", 30, 0, 30, 90, 10001965.729, 0, 0, 2e-3},
      {"pole to equator", 30, -90, 30, 0, 10001965.729, 0, 0, 2e-3},
      {"over the pole", 0, 0, 180, 89, 10113659.594, 0, 180, 2e-3},
      {"a turn apart: the iteration doesn't start", 0, 41.9, 360, 41.9, 0, 0, 180, 0},
      {"a turn apart, other latitude", 0, 41.9, 360, 55.7, 0, 0, 180, 0},
  };
  const FaultLog log;
  for (const Row& row : rows) {
    double az1 = -1.0, az2 = -1.0;
    EXPECT_NEAR(DistanceVincentyNumbers(row.lon1, row.lat1, row.lon2, row.lat2, az1, az2), row.distance, row.metres)
        << row.name;
    EXPECT_NEAR(Turn(az1, row.azimuth1), 0.0, 1e-9) << row.name << " " << az1;
    EXPECT_NEAR(Turn(az2, row.azimuth2), 0.0, 1e-9) << row.name << " " << az2;
  }
  // A turn the other way isn't caught: a line of rounding's length comes out.
  double az1 = 0.0, az2 = 0.0;
  EXPECT_LT(DistanceVincentyNumbers(360, 10, 0, 10, az1, az2), 1e-6);
  // Nearly antipodal: 40 passes, then what there is. Half the equator is the longest that makes sense.
  const double unconverged = DistanceVincentyNumbers(0, 0, 179.7, 0, az1, az2);
  EXPECT_GT(unconverged, 19.9e6);
  EXPECT_LT(unconverged, 20.04e6);
  EXPECT_THAT(log.Reports(), IsEmpty());
}

TEST(Vincenty, FaultsGiveZeroAndLeaveTheAzimuths) {
  const FaultLog log;
  double az1 = 7.0, az2 = 8.0;
  // Different as doubles, the same once in radians: the line has no length to divide by.
  const double next = std::nextafter(60.0, 61.0);
  ASSERT_EQ(DegToRad(60.0), DegToRad(next));
  EXPECT_EQ(DistanceVincentyNumbers(5, 60.0, 5, next, az1, az2), 0.0);
  EXPECT_EQ(DistanceVincentyNumbers2(5, 60.0, 5, next, az1, az2, kA, kB), 0.0);
  EXPECT_EQ(DistanceVincentyNumbers2(0, 0, 1, 1, az1, az2, 0.0, kB), 0.0);
  EXPECT_EQ(DistanceVincentyNumbers2(0, 0, 1, 1, az1, az2, kA, 0.0), 0.0);
  EXPECT_EQ(DistanceVincentyNumbers(1e308, 0, -1e308, 0, az1, az2), 0.0);
  EXPECT_EQ(DistanceVincentyPoints(Point(), Point(1, 1), az1, az2), 0.0);
  EXPECT_EQ(DistanceVincentyPoints2(Point(1, 1), Point(), az1, az2, kA, kB), 0.0);
  XY end{3.0, 4.0};
  PointLineVincentyPerPoint2(XY{0, 0}, 1000.0, 45.0, end, az2, kA, 0.0);
  EXPECT_EQ(end, (XY{3.0, 4.0}));
  EXPECT_EQ(az1, 7.0);
  EXPECT_EQ(az2, 8.0);
  EXPECT_THAT(log.Reports(),
              ElementsAre("DistanceVincentyNumbers 11", "DistanceVincentyNumbers2 11", "DistanceVincentyNumbers2 11",
                          "DistanceVincentyNumbers2 11", "DistanceVincentyNumbers 6", "DistanceVincentyPoints 5",
                          "DistanceVincentyPoints2 5", "PointLineVincentyPerPoint2 11"));
  // Less than rounding apart in longitude still has a length.
  EXPECT_NEAR(DistanceVincentyNumbers(0, 0, 1e-15, 0, az1, az2), 1.1e-10, 1e-11);
}

TEST(Vincenty, DirectKeepsTheStartAtDistanceZeroAndDoesNotReduceLongitudes) {
  Point end;
  double far_azimuth = 0.0;
  PointLineVincentyPerPoint2(Point(10, 20), 0.0, -500.0, end, far_azimuth, kA, kB);
  EXPECT_EQ(end.Coordinates(), (XY{10, 20}));
  EXPECT_EQ(far_azimuth, -500.0);
  PointLineVincentyPerPoint2(Point(179, 0), 3 * 111319.4907932, 90.0, end, far_azimuth, kA, kB);
  EXPECT_NEAR(end.X(), 182.0, 1e-9);
  PointLineVincentyPerPoint2(Point(-179, 0), 3 * 111319.4907932, -90.0, end, far_azimuth, kA, kB);
  EXPECT_NEAR(end.X(), -182.0, 1e-9);
  EXPECT_NEAR(far_azimuth, 270.0, 1e-9);
}

TEST(Vincenty, LineWithVertices) {
  const auto mars = Geographic(kMarsA, kMarsB);
  Point start(10, 20), end;
  start.SetSpatialReference(
      std::make_shared<const ProjectedCoordinateSystem>("Plane", "", 0, 0.001, mars, CoordinateUnit{"Metre", 1.0}));
  double far_azimuth = 0.0;
  std::shared_ptr<Polyline> line;
  std::int32_t count = 0;
  PointLineVincenty2(start, 400000.0, 30.0, end, far_azimuth, count, line);
  EXPECT_EQ(line, nullptr);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(end.SpatialReference(), mars);
  XY expected;
  double expected_azimuth = 0.0;
  PointLineVincentyPerPoint2(XY{10, 20}, 400000.0, 30.0, expected, expected_azimuth, kMarsA, kMarsB);
  EXPECT_EQ(end.Coordinates(), expected);

  count = 1;
  PointLineVincenty2(start, 400000.0, 30.0, end, far_azimuth, count, line);
  EXPECT_EQ(count, 2);
  ASSERT_EQ(line->PointCount(), 2);

  // Appended to the same part: five more vertices, each 100 km from the one before.
  const std::shared_ptr<Polyline> given = line;
  count = 5;
  PointLineVincenty2(start, 400000.0, 30.0, end, far_azimuth, count, line);
  EXPECT_EQ(line, given);
  ASSERT_EQ(line->PointCount(), 7);
  EXPECT_EQ(line->GeometryCount(), 1);
  EXPECT_EQ(line->Point(2), (XY{10, 20}));
  EXPECT_EQ(line->Point(6), expected);
  EXPECT_EQ(far_azimuth, expected_azimuth);
  EXPECT_EQ(line->SpatialReference(), mars);
  for (int index = 2; index < 6; ++index) {
    double az1 = 0.0, az2 = 0.0;
    EXPECT_NEAR(DistanceVincentyPoints2(line->Point(index), line->Point(index + 1), az1, az2, kMarsA, kMarsB), 1e5,
                1e-4);
  }

  // Bits as for the other lines above.
  Point pinned(-110.9, 32.2);
  pinned.SetSpatialReference(mars);
  std::shared_ptr<Polyline> quarters;
  count = 4;
  PointLineVincenty2(pinned, 2500000.0, 63.4, end, far_azimuth, count, quarters);
  ASSERT_EQ(quarters->PointCount(), 4);
  EXPECT_EQ(Bits(quarters->Point(1).x), 0xC057C2424431375Du);
  EXPECT_EQ(Bits(quarters->Point(1).y), 0x4042C614E4DEF25Fu);
  EXPECT_EQ(Bits(end.X()), 0xC04D6E706979D9B2u);
  EXPECT_EQ(Bits(end.Y()), 0x404445FB708D8FF2u);
  EXPECT_EQ(Bits(far_azimuth), 0x4057F214F99896DCu);
  count = 5;

  const FaultLog log;
  start.SetSpatialReference(std::make_shared<const UnknownCoordinateSystem>());
  PointLineVincenty2(start, 1.0, 0.0, end, far_azimuth, count, line);
  start.SetSpatialReference(nullptr);
  PointLineVincenty2(start, 1.0, 0.0, end, far_azimuth, count, line);
  EXPECT_EQ(line->PointCount(), 7);
  EXPECT_THAT(log.Reports(), ElementsAre("PointLineVincenty2 13", "PointLineVincenty2 91"));
}

// 100,000 pairs evenly over the globe, against Karney's solution, which is exact to nanometres. Within 5 degrees of the
// antipode azimuths grow unsteady, and within 1 degree the iteration may not converge.
TEST(Vincenty, AgreesWithGeographicLib) {
  const GeographicLib::Geodesic earth(kA, (kA - kB) / kA);
  std::mt19937_64 random(1975);
  std::uniform_real_distribution<double> any_lon(-180.0, 180.0), any_sine(-1.0, 1.0), any_azimuth(0.0, 360.0),
      any_distance(1.0, 19.9e6);
  const auto any_lat = [&] { return std::asin(any_sine(random)) * 180.0 / std::acos(-1.0); };
  double worst_distance = 0.0, worst_azimuth = 0.0, worst_end = 0.0, worst_far = 0.0;
  for (int index = 0; index < 100000; ++index) {
    const double lon1 = any_lon(random), lat1 = any_lat(), lon2 = any_lon(random), lat2 = any_lat();
    double s = 0.0, a1 = 0.0, a2 = 0.0, az1 = 0.0, az2 = 0.0;
    const double arc = earth.Inverse(lat1, lon1, lat2, lon2, s, a1, a2);
    const double ours = DistanceVincentyNumbers2(lon1, lat1, lon2, lat2, az1, az2, kA, kB);
    if (arc < 179.0) worst_distance = std::max(worst_distance, std::fabs(ours - s));
    if (arc < 175.0) worst_azimuth = std::max({worst_azimuth, Turn(az1, a1), Turn(az2, a2)});

    const double distance = any_distance(random), azimuth = any_azimuth(random);
    double their_lat = 0.0, their_lon = 0.0, gap = 0.0, far_azimuth = 0.0;
    earth.Direct(lat1, lon1, azimuth, distance, their_lat, their_lon, a2);
    XY end;
    PointLineVincentyPerPoint2(XY{lon1, lat1}, distance, azimuth, end, far_azimuth, kA, kB);
    earth.Inverse(end.y, end.x, their_lat, their_lon, gap);
    worst_end = std::max(worst_end, gap);
    if (std::fabs(their_lat) < 89.0) worst_far = std::max(worst_far, Turn(far_azimuth, a2));
  }
  EXPECT_LT(worst_distance, 2e-4) << "metres";
  EXPECT_LT(worst_azimuth, 1e-7) << "degrees";
  EXPECT_LT(worst_end, 2e-4) << "metres";
  EXPECT_LT(worst_far, 1e-7) << "degrees, away from the poles";
}

}  // namespace
}  // namespace tessarine::MyGeometricOperations
