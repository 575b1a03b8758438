// SPDX-License-Identifier: GPL-2.0-or-later
#include "geodesy/spherical_area_sum.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "geodesy/spherical_triangle.h"

namespace tessarine::geodesy {
namespace {

template <void (*kTake)(detail::Lanes<1>&)>
double Alone(double x) {
  detail::Lanes<1> lane{x};
  kTake(lane);
  return lane[0];
}

// Against the C library's functions of more digits. Half a unit in the last place is what rounding alone costs.
TEST(SmallAngles, RoundLikeTheCLibrary) {
  struct Row {
    const char* name;
    double (*ours)(double);
    long double (*exact)(long double);
  };
  const Row rows[] = {{"sine", Alone<detail::TakeSines<1>>, std::sin},
                      {"tangent", Alone<detail::TakeTangents<1>>, std::tan},
                      {"arc tangent", Alone<detail::TakeArcTangents<1>>, std::atan}};
  std::mt19937_64 random(5);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  for (const Row& row : rows) {
    long double worst = 0.0L;
    for (int round = 0; round < 60000; ++round) {
      const double size = round % 2 ? 2.0 * detail::kSmall * unit(random) : std::pow(2.0, -300.0 * unit(random));
      const double x = round % 3 ? size : -size;
      const long double exact = row.exact(x);
      const long double unit_in_last_place = std::ldexp(1.0L, std::ilogb(exact) - 52);
      worst = std::max(worst, std::fabs(row.ours(x) - exact) / unit_in_last_place);
    }
    EXPECT_LT(worst, 0.57L) << row.name;
    EXPECT_EQ(row.ours(0.0), 0.0) << row.name;
    EXPECT_TRUE(std::isnan(row.ours(std::nan("")))) << row.name;
  }
}

using Ring = std::vector<LonLat>;

// A ring around an apex: coarse, thin, polar, hardly off the equator, or with a vertex twice.
Ring AnyRing(std::mt19937_64& random, int round, LonLat apex) {
  std::uniform_real_distribution<double> unit(-1.0, 1.0);
  const double size = std::pow(10.0, 3.0 * unit(random) - 2.0);
  Ring ring;
  for (int count = 1 + round % 30; count > 0; --count) {
    LonLat vertex{apex.x + size * unit(random), std::clamp(apex.y + size * unit(random), -90.0, 90.0)};
    if (round % 3 == 0) vertex = {std::round(vertex.x), std::round(vertex.y)};
    if (round % 10 == 5) vertex.y = 1e-14 * unit(random);
    if (round % 10 == 6) vertex.y = 1e-300 * unit(random);
    ring.push_back(vertex);
    if (count % 7 == 0) ring.push_back(vertex);
  }
  return ring;
}

// Side by side or alone, whole or in pieces, the bits are the same.
TEST(SphericalAreaSum, IsTheSumOfTriangles) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> unit(-1.0, 1.0);
  const Figure mars = Figure::FromAxes(3396190.0, 3376200.0);
  for (int round = 0; round < 600; ++round) {
    const LonLat apex{180.0 * unit(random), round % 5 == 0 ? 0.0 : round % 5 == 1 ? 90.0 : 89.0 * unit(random)};
    const Ring ring = AnyRing(random, round, apex);
    double area = 0.0;
    for (std::size_t index = 1; index < ring.size(); ++index) {
      area += TriangleArea(ring[index - 1], ring[index], apex, mars).area;
    }
    SphericalAreaSum whole(mars, AreaWish::WithCentroid), pieces(mars, AreaWish::WithCentroid);
    whole.AddRing(ring, apex);
    for (std::size_t first = 0; first + 1 < ring.size(); first += 3) {
      pieces.AddRing(std::span(ring).subspan(first, std::min<std::size_t>(4, ring.size() - first)), apex);
    }
    ASSERT_EQ(whole.Area(), area) << round;
    ASSERT_EQ(pieces.Area(), area) << round;
    ASSERT_EQ(pieces.Centroid(), whole.Centroid()) << round;
    ASSERT_EQ(whole.Centroid().has_value(), area > 0.0) << round;
  }
}

// What a triangle that fails counts is the caller's choice.
TEST(SphericalAreaSum, LeavesUnsoundTrianglesToItsCaller) {
  const Ring ring = {{0, 0}, {0, 1}, {1e308, 1}, {1, 0}, {2, 0.5}};
  const LonLat apex{0.5, 0.25};
  SphericalAreaSum raising(kWgs1984, AreaWish::AreaAlone);
  EXPECT_THROW(raising.AddRing(ring, apex), Fault);

  static int asked = 0;
  asked = 0;
  SphericalAreaSum counting(kWgs1984, AreaWish::WithCentroid, [](LonLat, LonLat to, LonLat, const Figure& figure) {
    ++asked;
    EXPECT_EQ(figure, kWgs1984);
    return to.x > 1e300 ? 1e6 : 0.0;
  });
  counting.AddRing(ring, apex);
  EXPECT_EQ(asked, 2) << "one triangle to the place past all reckoning, and one from it";
  const double sound = TriangleArea(ring[0], ring[1], apex).area + 1e6 + TriangleArea(ring[3], ring[4], apex).area;
  EXPECT_EQ(counting.Area(), sound);

  // The azimuth to the apex has components too small for their quotient.
  asked = 0;
  SphericalAreaSum turning(kWgs1984, AreaWish::AreaAlone, [](LonLat, LonLat, LonLat, const Figure&) {
    ++asked;
    return 7.0;
  });
  turning.AddRing(Ring{{1, 1e-310}, {2, 5}}, {0, 0});
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(turning.Area(), 7.0);
}

TEST(SphericalAreaSum, WithoutAreaThereIsNoCentre) {
  struct Row {
    const char* name;
    Ring ring;
    bool has_centre;
  };
  const Row rows[] = {{"empty", {}, false},
                      {"one vertex", {{5, 5}}, false},
                      {"counter-clockwise", {{0, 0}, {9, 0}, {9, 9}, {0, 0}}, false},
                      {"clockwise", {{0, 0}, {9, 9}, {9, 0}, {0, 0}}, true}};
  for (const Row& row : rows) {
    SphericalAreaSum sum(kWgs1984, AreaWish::WithCentroid);
    sum.AddRing(row.ring, {6, 3});
    EXPECT_EQ(sum.Centroid().has_value(), row.has_centre) << row.name;
  }
}

TEST(TriangleArea, TellsItsSignOnlyWithAnArea) {
  EXPECT_EQ(TriangleArea({7, -3}, {7, 4}, {7, 9}).sign, 0.0);
  EXPECT_EQ(TriangleArea({1, 2}, {1, 2}, {5, 6}).sign, 0.0);
  EXPECT_EQ(TriangleArea({0, 0}, {0, 90}, {90, 0}).sign, 1.0);
  EXPECT_EQ(TriangleArea({0, 0}, {90, 0}, {0, 90}).sign, -1.0);
  EXPECT_THROW(static_cast<void>(TriangleArea({0, 0}, {0, 1}, {1, 0}, Figure::FromAxes(1.0, -1.0))), Fault);
}

}  // namespace
}  // namespace tessarine::geodesy
