// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/angles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

#include "tests/shapes/fault_log.h"

namespace tessarine::MyGeometricOperations {
namespace {

using tessarine::testing::FaultLog;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::uint64_t Bits(double value) { return std::bit_cast<std::uint64_t>(value); }

TEST(Angles, PiIsCutNotRounded) {
  EXPECT_EQ(Bits(DegToRad(180.0)), 0x400921FB54442D11u);
  EXPECT_EQ(Bits(AsRadians(180.0)), 0x400921FB54442D11u);
  EXPECT_EQ(Bits(DegToRad(360.0)), 0x401921FB54442D11u);
  EXPECT_LT(DegToRad(180.0), std::acos(-1.0));
}

// Bits from IEEE double arithmetic in Python, one operation at a time, in the order that angles.h gives.
TEST(Angles, TheTwoWaysToRadiansRoundDifferently) {
  EXPECT_EQ(Bits(DegToRad(9.0)), 0x3FC41B2F769CF0DAu);
  EXPECT_EQ(Bits(AsRadians(9.0)), 0x3FC41B2F769CF0DBu);
  EXPECT_EQ(Bits(RadToDeg(1.1)), 0x404F833EE9D42234u);
  EXPECT_EQ(Bits(AsDegrees(1.1)), 0x404F833EE9D42234u);
}

TEST(Angles, ArcTangentOfTwo) {
  struct Row {
    const char* name;
    double y, x;
    std::uint64_t bits;
  };
  // Along the axes: the literal, its half and 0. Elsewhere the bits of the literal arithmetic with an arc tangent
  // rounded from 300 bits.
  const Row rows[] = {
      {"zero vector", 0.0, 0.0, Bits(0.0)},
      {"east", 0.0, 5.0, Bits(0.0)},
      {"west", 0.0, -5.0, 0x400921FB54442D11u},
      {"west from below", -0.0, -5.0, 0x400921FB54442D11u},
      {"north", 1.0, 0.0, 0x3FF921FB54442D11u},
      {"south", -1.0, 0.0, 0xBFF921FB54442D11u},
      {"south of minus zero", -1.0, -0.0, 0xBFF921FB54442D11u},
      {"second quadrant", 3.0, -4.0, 0x4003FC176B7A8559u},
      {"third quadrant", -3.0, -4.0, 0xC003FC176B7A8559u},
      {"fourth quadrant", -3.0, 4.0, 0xBFE4978FA3269EE1u},
      {"quotient underflows", 1e-308, 1e308, Bits(0.0)},
  };
  const FaultLog log;
  for (const Row& row : rows) EXPECT_EQ(Bits(atan2(row.y, row.x)), row.bits) << row.name;
  EXPECT_THAT(log.Reports(), IsEmpty());
}

TEST(Angles, FaultsAreReportedUnderTheRoutinesNameAndGiveZero) {
  const FaultLog log;
  const double nan = std::nan("");
  EXPECT_EQ(atan2(1e308, 1e-308), 0.0);
  EXPECT_EQ(atan2(1e308, -1e-308), 0.0);
  EXPECT_EQ(atan2(nan, 0.0), 0.0);
  EXPECT_EQ(atan2(1.0, nan), 0.0);
  EXPECT_EQ(atan2(1.0, kInfinity), 0.0);
  EXPECT_EQ(RadToDeg(1e307), 0.0);
  EXPECT_EQ(DegToRad(1e308), 0.0);
  EXPECT_EQ(AsRadians(nan), 0.0);
  EXPECT_EQ(AsDegrees(kInfinity), 0.0);
  EXPECT_EQ(CalcBearing2(XY{1e308, 0.0}, XY{-1e308, 1.0}), 0.0);
  EXPECT_EQ(CalcBearing2(Point(1.0, 1.0), Point()), 0.0);
  EXPECT_THAT(log.Reports(),
              ElementsAre("atan2 6", "atan2 6", "atan2 5", "atan2 5", "atan2 6", "RadToDeg 6", "DegToRad 6",
                          "AsRadians 5", "AsDegrees 6", "CalcBearing2 6", "CalcBearing2 5"));
}

TEST(Angles, PlanarBearing) {
  struct Row {
    const char* name;
    XY from, to;
    double bearing;
  };
  // The slanted ones are the angles of the 3-4-5 triangle, 36.8698976 and 53.1301024 degrees.
  const Row rows[] = {
      {"north", {0, 0}, {0, 1}, 0.0},
      {"east", {0, 0}, {1, 0}, 90.0},
      {"south", {0, 0}, {0, -1}, 180.0},
      {"west", {0, 0}, {-1, 0}, 270.0},
      {"north-east", {2, 2}, {5, 6}, 36.8698976458440},
      {"south-east", {2, 2}, {6, -1}, 126.869897645844},
      {"south-west", {2, 2}, {-1, -2}, 216.869897645844},
      {"north-west", {2, 2}, {-2, 5}, 306.869897645844},
      {"coincident", {7, -3}, {7, -3}, -9999.0},
      {"both zeros", {0.0, 0.0}, {-0.0, -0.0}, -9999.0},
  };
  const FaultLog log;
  for (const Row& row : rows) {
    EXPECT_NEAR(CalcBearing2(row.from, row.to), row.bearing, 1e-12) << row.name;
    EXPECT_EQ(CalcBearing2(Point(row.from), Point(row.to)), CalcBearing2(row.from, row.to)) << row.name;
  }
  EXPECT_EQ(Bits(CalcBearing2(XY{0, 0}, XY{0, 1})), Bits(0.0)) << "the sign of zero is cleared";
  EXPECT_EQ(CalcBearing2(XY{0, 0}, XY{-1, 0}), 270.0);
  // Bits of the same operations in Python, with an arc tangent rounded from 300 bits.
  EXPECT_EQ(Bits(CalcBearing2(XY{-110.9, 32.2}, XY{-87.6, 41.9})), 0x4050D9723EAF15BCu);
  EXPECT_EQ(Bits(CalcBearing2(XY{12.5, 41.9}, XY{-0.125, 51.5})), 0x407333FCC895B7FBu);
  EXPECT_THAT(log.Reports(), IsEmpty());
}

}  // namespace
}  // namespace tessarine::MyGeometricOperations
