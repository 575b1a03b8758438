// SPDX-License-Identifier: GPL-2.0-or-later
#include "geodesy/geodesics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include "geodesy/angles.h"
#include "geodesy/cartesian.h"
#include "geodesy/latitudes.h"
#include "geodesy/segment_lengths.h"

namespace tessarine::geodesy {
namespace {

std::uint64_t Bits(double value) { return std::bit_cast<std::uint64_t>(value); }

template <class Call>
int FaultOf(Call&& call) {
  try {
    static_cast<void>(call());
  } catch (const Fault& fault) {
    return fault.Number();
  }
  return 0;
}

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(CheckedArithmetic, RaisesAtOnce) {
  EXPECT_EQ(FaultOf([] { return checked::Divide(0.0, -0.0); }), kDivisionByZero);
  EXPECT_EQ(FaultOf([] { return checked::Divide(1e308, 1e-10); }), kOverflow);
  EXPECT_EQ(FaultOf([] { return checked::Divide(1.0, kInfinity); }), kOverflow);
  EXPECT_EQ(FaultOf([] { return checked::Divide(1e-308, 1e308); }), 0);
  EXPECT_EQ(FaultOf([] { return checked::Root(-1e-300); }), kInvalidCall);
  EXPECT_EQ(FaultOf([] { return checked::Power(-8.0, 1.0 / 3.0); }), kInvalidCall);
  EXPECT_EQ(FaultOf([] { return checked::Power(1e200, 3.0); }), kOverflow);
  EXPECT_EQ(FaultOf([] { return checked::Power(0.0, -1.0); }), kDivisionByZero);
  EXPECT_EQ(checked::Power(-2.0, 3.0), -8.0);
}

// The published flattening of WGS 1984 isn't that of its axes: 0.0033528106647474805 and 0.0033528106647473664.
TEST(Figure, Wgs1984KeepsItsPublishedFlattening) {
  EXPECT_EQ(kWgs1984.flattening, 0.0033528106647474805);
  EXPECT_EQ(Figure::FromAxes(kWgs1984.semi_major, kWgs1984.semi_minor).flattening, 0.0033528106647473664);
}

// Bits of the same formulas in Python, where sums, products and roots are IEEE doubles and each trigonometric function
// is rounded from 300 bits.
TEST(Geodesics, PinnedBits) {
  const GeodesicLine line = Inverse({-110.9, 32.2}, {-87.6, 41.9});
  EXPECT_EQ(Bits(line.distance), 0x4141BCBFA0E10E7Au);
  EXPECT_EQ(Bits(line.azimuth1), 0x404BE640A7AC52A0u);
  EXPECT_EQ(Bits(line.azimuth2), 0x405180CE1C0AC165u);
  const Figure axes = Figure::FromAxes(6378137.0, 6356752.31424518);
  const GeodesicEnd end = Direct({-110.9, 32.2}, 63.4, 2500000.0, axes);
  EXPECT_EQ(Bits(end.position.x), 0xC0552795B739B1A3u);
  EXPECT_EQ(Bits(end.position.y), 0x4043CE0485F7AFDFu);
  EXPECT_EQ(Bits(end.azimuth2), 0x4053C1957C3B6DF2u);
}

TEST(Geodesics, TellWhetherTheyConverged) {
  EXPECT_TRUE(Inverse({0, 0}, {1, 1}).converged);
  EXPECT_TRUE(Inverse({7, 7}, {7, 7}, Figure::FromAxes(0.0, 0.0)).converged) << "coincident, on any figure";
  EXPECT_FALSE(Inverse({0, 0}, {179.7, 0}).converged);
  EXPECT_EQ(LengthOf(std::vector<LonLat>{{0, 0}, {1, 0}, {180.7, 0}, {181, 0}}).unconverged, 1u);
  EXPECT_EQ(LengthOf(std::vector<LonLat>{{0, 0}, {1, 0}, {2, 0}}).unconverged, 0u);
}

TEST(Geodesics, FaultsAreRaised) {
  const double next = std::nextafter(60.0, 61.0);
  ASSERT_EQ(ToRadians(60.0), ToRadians(next));
  struct Row {
    const char* name;
    LonLat from, to;
    Figure figure;
    int fault;
  };
  const Row rows[] = {
      {"the same once in radians", {5, 60.0}, {5, next}, kWgs1984, kDivisionByZero},
      {"no major axis", {0, 0}, {1, 1}, Figure::FromAxes(0.0, 1.0), kDivisionByZero},
      {"no minor axis", {0, 0}, {1, 1}, Figure::FromAxes(1.0, 0.0), kDivisionByZero},
      {"an infinite axis", {0, 0}, {1, 1}, Figure::FromAxes(1.0, -kInfinity), kOverflow},
      {"a difference past all numbers", {1e308, 0}, {-1e308, 0}, kWgs1984, kOverflow},
      {"a longitude past all radians", {1e308, 0}, {0, 0}, kWgs1984, kOverflow},
      {"no number", {0, std::nan("")}, {1, 1}, kWgs1984, kInvalidCall},
      {"too near to the equator for an azimuth", {0, 1e-310}, {1, 0}, kWgs1984, kOverflow},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(FaultOf([&] { return Inverse(row.from, row.to, row.figure); }), row.fault) << row.name;
  }
  EXPECT_EQ(FaultOf([] { return Direct({0, 0}, 45.0, 1000.0, Figure::FromAxes(1.0, 0.0)); }), kDivisionByZero);
  EXPECT_EQ(FaultOf([] { return AngleOf(1e308, 1e-308); }), kOverflow);
  EXPECT_EQ(FaultOf([] { return FromSpheroid({0, 0}, Figure::FromAxes(0.0, 1.0)); }), kDivisionByZero);
  EXPECT_EQ(FaultOf([] { return ToPlanetographic(45.0, Figure::FromAxes(1.0, 0.0)); }), kDivisionByZero);
  EXPECT_EQ(FaultOf([] { return ToPlanetocentric(45.0, Figure::FromAxes(0.0, 1.0)); }), kDivisionByZero);
  EXPECT_EQ(PlanarBearing({7, -3}, {7, -3}), std::nullopt);
}

// A place of all that the iteration meets: poles, the equator, antipodes, one place twice, whole turns, hardly any
// distance.
class Places {
 public:
  explicit Places(unsigned seed) : random_(seed) {}

  LonLat Any() { return {Longitude(), Latitude()}; }
  LonLat After(LonLat before) {
    switch (random_() % 12) {
      case 0:
        return before;
      case 1:
        return {before.x + 180.0, -before.y};
      case 2:
        return {before.x + 180.0 + 1.5 * Unit(), -before.y + 1.5 * Unit()};
      case 3:
        return {before.x + 360.0, before.y};
      case 4:
        return {before.x - 360.0, Latitude()};
      case 5:
        return {std::nextafter(before.x, 1e4), before.y};
      case 6:
        return {before.x + 1e-4 * Unit(), before.y + 1e-4 * Unit()};
      case 7:
        return {before.x, Latitude()};
      default:
        return Any();
    }
  }

 private:
  double Unit() { return unit_(random_); }
  double Longitude() { return random_() % 4 == 0 ? 180.0 : 180.0 * Unit(); }
  double Latitude() {
    switch (random_() % 8) {
      case 0:
        return 90.0;
      case 1:
        return -90.0;
      case 2:
        return 0.0;
      case 3:
        return 1e-14 * Unit();
      case 4:
        return 1e-305 * Unit();
      default:
        return 89.0 * Unit();
    }
  }

  std::mt19937_64 random_;
  std::uniform_real_distribution<double> unit_{-1.0, 1.0};
};

// Side by side or alone, the bits are the same, and what can't be measured is left out of no batch unnoticed.
TEST(SegmentLengths, AreThoseOfTheInverseProblem) {
  const Figure figures[] = {kWgs1984, Figure::FromAxes(3396190.0, 3376200.0), Figure::FromAxes(60268000.0, 54364000.0),
                            Figure::FromAxes(1.0, 1.0), Figure::FromAxes(0.0, 1.0)};
  Places places(14);
  int measured = 0, unsound = 0, unconverged = 0;
  for (int round = 0; round < 4000; ++round) {
    const Figure& figure = figures[round % std::size(figures)];
    std::vector<LonLat> path{places.Any()};
    while (path.size() < static_cast<std::size_t>(1 + round % 20)) path.push_back(places.After(path.back()));
    SegmentLengths segments(figure, path);
    std::size_t next = 0;
    for (SegmentLengths::Batch batch; segments.Next(batch); next += batch.lengths.size()) {
      ASSERT_EQ(batch.first, next);
      unsigned given_up = 0;
      for (std::size_t index = 0; index < batch.lengths.size(); ++index) {
        const LonLat from = path[next + index], to = path[next + index + 1];
        if (batch.IsUnsound(index)) {
          ++unsound;
          continue;
        }
        const GeodesicLine line = Inverse(from, to, figure);
        ASSERT_EQ(Bits(batch.lengths[index]), Bits(line.distance))
            << from.x << " " << from.y << " " << to.x << " " << to.y;
        given_up += line.converged ? 0 : 1;
        ++measured;
      }
      EXPECT_EQ(batch.unconverged, given_up);
      unconverged += static_cast<int>(given_up);
    }
    EXPECT_EQ(next + 1, path.size());
  }
  EXPECT_GT(measured, 15000);
  EXPECT_GT(unsound, 1000);
  EXPECT_GT(unconverged, 500);
}

TEST(SegmentLengths, AWholeTurnIsNoWayAndOnePlaceNoFault) {
  // A degree of the equator is a pi / 180 long.
  constexpr double kDegree = 111319.490793;
  struct Row {
    const char* name;
    std::vector<LonLat> path;
    double degrees;
  };
  const Row rows[] = {
      {"nothing", {}, 0},
      {"one vertex", {{3, 4}}, 0},
      {"a turn eastward and on", {{0, 0}, {360, 0}, {361, 0}}, 1},
      {"a turn westward and on", {{0, 0}, {-360, 0}, {-361, 0}}, 1},
      {"from edge to edge", {{179, 0}, {180, 0}, {-180, 0}, {-179, 0}}, 2},
      {"hardly any distance", {{0, 60.0}, {0, std::nextafter(60.0, 61.0)}}, 0},
  };
  for (const Row& row : rows) EXPECT_NEAR(LengthOf(row.path).length, row.degrees * kDegree, 1e-5) << row.name;
  // The meridian from the equator to 10 degrees, whichever turn its far end is given in.
  constexpr double kTenDegrees = 1105854.833;
  for (const double turn : {360.0, 0.0, -360.0}) {
    EXPECT_NEAR(LengthOf(std::vector<LonLat>{{0, 0}, {turn, 10}}).length, kTenDegrees, 1e-2) << turn;
  }
  EXPECT_EQ(FaultOf([] {
              return LengthOf(std::vector<LonLat>{{0, 0}, {1, 1}}, Figure::FromAxes(0.0, 1.0)).length;
            }),
            kDivisionByZero);
}

}  // namespace
}  // namespace tessarine::geodesy
