// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/multipoint_centroids.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>

#include "tests/shapes/fault_log.h"

namespace tessarine::MyGeometricOperations {
namespace {

using tessarine::testing::FaultLog;
using ::testing::ElementsAre;

constexpr double kA = 6378137.0, kB = 6356752.31424518;

std::shared_ptr<Multipoint> Of(std::vector<XY> points) { return std::make_shared<Multipoint>(std::move(points)); }

TEST(MultipointCentroid, OnTheSpheroidAndOnThePlane) {
  struct Row {
    const char* name;
    std::vector<XY> points;
    XY spheroidal, planar;
    double degrees;
  };
  const Row rows[] = {
      {"one point", {{-110.9, 32.2}}, {-110.9, 32.2}, {-110.9, 32.2}, 1e-11},
      {"one point beyond 180", {{249.1, 32.2}}, {-110.9, 32.2}, {249.1, 32.2}, 1e-11},
      {"across 180", {{179, 0}, {-179, 0}}, {180, 0}, {0, 0}, 1e-11},
      {"symmetric about the equator", {{10, -40}, {10, 40}, {30, -40}, {30, 40}}, {20, 0}, {20, 0}, 1e-11},
      {"a repeated point pulls",
       {{0, 0}, {0, 0}, {90, 0}},
       {std::atan(0.5) * 180 / std::acos(-1.0), 0},
       {30, 0},
       1e-11},
      {"both poles, whose mean is the centre", {{0, 90}, {0, -90}}, {0, 180}, {0, 0}, 0.0},
  };
  for (const Row& row : rows) {
    const auto spheroidal = MultipointCentroidSpheroid(Of(row.points), kA, kB, 0.0);
    const auto planar = MultipointCentroid(Of(row.points));
    ASSERT_TRUE(spheroidal && planar) << row.name;
    EXPECT_NEAR(std::remainder(spheroidal->X() - row.spheroidal.x, 360.0), 0.0, row.degrees) << row.name;
    EXPECT_NEAR(spheroidal->Y(), row.spheroidal.y, row.degrees) << row.name;
    EXPECT_NEAR(planar->X(), row.planar.x, 1e-13) << row.name;
    EXPECT_NEAR(planar->Y(), row.planar.y, 1e-13) << row.name;
    const XY bare = MultipointCentroidSpheroid(std::span<const XY>(row.points), kA, kB, 0.0);
    EXPECT_EQ(bare, spheroidal->Coordinates()) << row.name;
    EXPECT_EQ(MultipointCentroid(std::span<const XY>(row.points)), planar->Coordinates()) << row.name;
  }
}

// Bits of the same formulas in Python, where sums, products and roots are IEEE doubles and each other function is
// rounded from 300 bits.
TEST(MultipointCentroid, PinnedBits) {
  const auto bits = [](double value) { return std::bit_cast<std::uint64_t>(value); };
  const auto points = Of({{-110.9, 32.2}, {-87.6, 41.9}, {-97.5, 35.4}});
  const auto earth = MultipointCentroidSpheroid(points, kA, kB, 0.0);
  EXPECT_EQ(bits(earth->X()), 0xC058C93134684FB1u);
  EXPECT_EQ(bits(earth->Y()), 0x404270F7B6DE2D22u);
  const auto mars = MultipointCentroidSpheroid(points, 3396190.0, 3376200.0, 0.0);
  EXPECT_EQ(bits(mars->X()), 0xC058C917BE1D2A3Eu);
  EXPECT_EQ(bits(mars->Y()), 0x40427143B376549Bu);
  const auto plane = MultipointCentroid(points);
  EXPECT_EQ(bits(plane->X()), 0xC058AAAAAAAAAAABu);
  EXPECT_EQ(bits(plane->Y()), 0x4042400000000000u);
}

TEST(MultipointCentroid, OnlyThePlanarOneBearsTheReference) {
  const auto points = Of({{1, 2}, {3, 4}});
  points->SetSpatialReference(std::make_shared<UnknownCoordinateSystem>());
  EXPECT_EQ(MultipointCentroid(points)->SpatialReference(), points->SpatialReference());
  EXPECT_EQ(MultipointCentroidSpheroid(points, kA, kB, 0.0)->SpatialReference(), nullptr);
}

TEST(MultipointCentroid, Faults) {
  FaultLog log;
  EXPECT_EQ(MultipointCentroidSpheroid(Of({}), kA, kB, 0.0), nullptr);
  EXPECT_EQ(MultipointCentroid(Of({})), nullptr);
  EXPECT_EQ(MultipointCentroid(std::span<const XY>()), XY{});
  EXPECT_EQ(MultipointCentroid(nullptr), nullptr);
  EXPECT_THAT(log.Reports(), ElementsAre("MultipointCentroidSpheroid 11", "MultipointCentroid 11",
                                         "MultipointCentroid 11", "MultipointCentroid 91"));
}

}  // namespace
}  // namespace tessarine::MyGeometricOperations
