// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/polyline_measures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <new>
#include <random>

#include "platform/exact_geodesy.h"
#include "platform/spatial_reference.h"
#include "shapes/convergence.h"
#include "shapes/vincenty.h"
#include "tests/shapes/fault_log.h"

namespace {
std::atomic<long> g_allocations = 0;
}

// Counts what this program allocates. Inlined, a pair of them looks mismatched to GCC 12.
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  ++g_allocations;
  return std::malloc(size != 0 ? size : 1);
}
[[gnu::noinline]] void* operator new(std::size_t size) {
  if (void* memory = operator new(size, std::nothrow)) return memory;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace tessarine::MyGeometricOperations {
namespace {

using tessarine::testing::FaultLog;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr double kA = 6378137.0, kB = 6356752.31424518;
constexpr double kDegree = 111319.490793;  // of the equator: a pi / 180, in metres

using Vertices = std::vector<XY>;

std::shared_ptr<const GeographicCoordinateSystem> Geographic(double a, double b) {
  auto spheroid = std::make_shared<const Spheroid>("Figure", a, b);
  return std::make_shared<const GeographicCoordinateSystem>("Longitude and latitude", "", 0, 1e-8,
                                                            std::make_shared<const Datum>("Datum", spheroid),
                                                            CoordinateUnit{"Degree", 0.0174532925199433});
}

std::shared_ptr<Polyline> Of(const std::vector<Vertices>& paths) {
  auto polyline = std::make_shared<Polyline>();
  for (const Vertices& path : paths) polyline->AddGeometry(std::make_shared<Path>(path));
  polyline->SetSpatialReference(Geographic(kA, kB));
  return polyline;
}

TEST(PolylineLength, OnTheEquator) {
  struct Row {
    const char* name;
    std::vector<Vertices> paths;
    double degrees;
  };
  const Row rows[] = {
      {"empty", {}, 0},
      {"a path of one vertex", {{{3, 4}}}, 0},
      {"one segment", {{{0, 0}, {1, 0}}}, 1},
      {"a gap between parts", {{{0, 0}, {1, 0}}, {{50, 0}, {52, 0}}}, 3},
      {"there and back", {{{0, 0}, {1, 0}, {0, 0}}}, 2},
      {"across 180", {{{179, 0}, {-179, 0}}}, 2},
      {"more segments than one batch",
       {{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}, {5, 0}, {6, 0}, {7, 0}, {8, 0}, {9, 0}}},
       9},
      {"a repeated vertex", {{{0, 0}, {0, 0}, {1, 0}, {1, 0}}}, 1},
  };
  FaultLog log;
  for (const Row& row : rows) {
    EXPECT_NEAR(SpheroidalPolylineLength(Of(row.paths)), row.degrees * kDegree, 1e-5) << row.name;
    EXPECT_NEAR(SpheroidalPolylineLength2(Of(row.paths), 2 * kA, 2 * kB), row.degrees * 2 * kDegree, 1e-5) << row.name;
  }
  EXPECT_THAT(log.Reports(), IsEmpty());

  auto bow = std::make_shared<Path>();
  bow->AddSegment(CircularArc::Through({0, 0}, {0.5, 0.5}, {1, 0}));
  auto polyline = Of({});
  polyline->AddGeometry(bow);
  EXPECT_NEAR(SpheroidalPolylineLength(polyline), kDegree, 1e-5) << "a curve counts as its chord";
}

// Bits of the same formulas in Python, where sums, products and roots are IEEE doubles and each other function is
// rounded from 300 bits.
TEST(PolylineMeasures, PinnedBits) {
  const auto bits = [](double value) { return std::bit_cast<std::uint64_t>(value); };
  const auto line = Of({{{-110.9, 32.2}, {-104.9, 39.7}, {-97.5, 35.4}, {-87.6, 41.9}}});
  EXPECT_EQ(bits(SpheroidalPolylineLength(line)), 0x41464EAF79D875A6u);
  EXPECT_EQ(bits(SpheroidalPolylineLength2(line, 3396190.0, 3376200.0)), 0x4137BD8AD97042B0u);
  double half = 0.5, quarter = 0.25, total = 0.0;
  const auto middle = SpheroidalPolylineMidpoint2(line, half, true, total, kA, kB);
  EXPECT_EQ(bits(middle->X()), 0xC059200175FAEAC1u);
  EXPECT_EQ(bits(middle->Y()), 0x4042A13F350BADA9u);
  EXPECT_EQ(bits(total), 0x41464EAF79D875A6u);
  const auto first = SpheroidalPolylineMidpoint2(line, quarter, true, total, kA, kB);
  EXPECT_EQ(bits(first->X()), 0xC05AA5FD8F50C7B8u);
  EXPECT_EQ(bits(first->Y()), 0x4042E0D78558C24Eu);
}

TEST(PolylineMidpoint, PlacesAlongTheEquator) {
  const std::vector<Vertices> straight = {{{10, 0}, {12, 0}}};
  const std::vector<Vertices> parts = {{{10, 0}, {11, 0}}, {{20, 0}, {23, 0}}};
  struct Row {
    const char* name;
    std::vector<Vertices> paths;
    double position;
    bool as_ratio;
    XY place;
    double position_after, total_degrees;
  };
  const Row rows[] = {
      {"the middle", straight, 0.5, true, {11, 0}, 0.5, 2},
      {"the start", straight, 0.0, true, {10, 0}, 0.0, 2},
      {"a ratio below 0", straight, -3.0, true, {10, 0}, 0.0, 2},
      {"a ratio of 1 walks the last segment from 0, 0", straight, 1.0, true, {2, 0}, 1.0, 2},
      {"a ratio above 1", straight, 1.7, true, {2, 0}, 1.0, 2},
      {"in the second part", parts, 0.5, true, {21, 0}, 0.5, 4},
      {"at the end of the first part", parts, 0.25, true, {20, 0}, 0.25, 4},
      {"a distance", straight, 0.5 * kDegree, false, {10.5, 0}, 0.5 * kDegree, 2},
      {"a distance before the start", straight, -kDegree, false, {9, 0}, -kDegree, 2},
      {"a distance past the end", straight, 3 * kDegree, false, {3, 0}, 3 * kDegree, 2},
      {"no length at first", {{{5, 0}, {5, 0}, {6, 0}}}, 0.0, true, {5, 0}, 0.0, 1},
      {"empty", {}, 0.5, true, {0, 0}, 0.5, 0},
      {"empty, with a distance", {}, kDegree, false, {0, 1.00673}, kDegree, 0},  // northwards: the azimuth is 0
  };
  FaultLog log;
  for (const Row& row : rows) {
    double position = row.position, total = -1.0;
    const auto polyline = Of(row.paths);
    const auto place = SpheroidalPolylineMidpoint2(polyline, position, row.as_ratio, total, kA, kB);
    ASSERT_NE(place, nullptr) << row.name;
    EXPECT_NEAR(place->X(), row.place.x, 1e-9) << row.name;
    EXPECT_NEAR(place->Y(), row.place.y, row.place.y == 0.0 ? 1e-9 : 1e-5) << row.name;
    EXPECT_EQ(position, row.position_after) << row.name;
    EXPECT_NEAR(total, row.total_degrees * kDegree, 1e-5) << row.name;
    EXPECT_EQ(place->SpatialReference(), polyline->SpatialReference()) << row.name;
  }
  EXPECT_THAT(log.Reports(), IsEmpty());
}

TEST(PolylineMidpoint, TheLengthMayComeFirst) {
  const auto line = Of({{{-110.9, 32.2}, {-104.9, 39.7}}, {{-97.5, 35.4}, {-87.6, 41.9}, {-87.6, 41.9}}, {}});
  const MeasuredPolyline measured(line, kA, kB);
  for (const double ratio : {-1.0, 0.0, 0.25, 0.5, 0.75, 1.0, 3.0}) {
    double position = ratio, total = 0.0;
    const auto place = SpheroidalPolylineMidpoint2(line, position, true, total, kA, kB);
    EXPECT_EQ(measured.Length(), total);
    EXPECT_EQ(measured.PlaceAt(ratio)->Coordinates(), place->Coordinates()) << ratio;
  }
  EXPECT_EQ(MeasuredPolyline(Of({}), kA, kB).Length(), 0.0);
}

// Lengths follow the caller's axes, the last walk the polyline's own spheroid.
TEST(PolylineMidpoint, MixesTheTwoSpheroids) {
  const auto line = Of({{{10, 0}, {12, 0}}});
  double position = 0.5, total = 0.0;
  const auto place = SpheroidalPolylineMidpoint2(line, position, true, total, kA / 2, kB / 2);
  EXPECT_NEAR(total, kDegree, 1e-5);
  EXPECT_NEAR(place->X(), 10.5, 1e-9);
  const Vertices path = {{10, 0}, {12, 0}};
  EXPECT_NEAR(SpheroidalPolylineMidpoint2(path, position, true, total, kA / 2, kB / 2).x, 11.0, 1e-9);
}

TEST(PolylineMeasures, Faults) {
  double position = 0.5, total = -1.0;
  {
    FaultLog log;
    EXPECT_EQ(SpheroidalPolylineLength(nullptr), 0.0);
    EXPECT_EQ(SpheroidalPolylineLength2(nullptr, kA, kB), 0.0);
    EXPECT_EQ(SpheroidalPolylineMidpoint2(nullptr, position, true, total, kA, kB), nullptr);
    EXPECT_THAT(log.Reports(), ElementsAre("SpheroidalPolylineLength 91", "SpheroidalPolylineLength2 91",
                                           "SpheroidalPolylineMidpoint2 91"));
    EXPECT_EQ(total, -1.0);
  }
  {
    const auto line = Of({{{10, 0}, {12, 0}}});
    line->SetSpatialReference(std::make_shared<UnknownCoordinateSystem>());
    FaultLog log;
    const auto place = SpheroidalPolylineMidpoint2(line, position, true, total, kA, kB);
    ASSERT_NE(place, nullptr);
    EXPECT_TRUE(place->IsEmpty());
    EXPECT_THAT(log.Reports(), ElementsAre("PointLineVincenty2 13"));
    EXPECT_NEAR(total, 2 * kDegree, 1e-5);
  }
  {
    // Too close to tell apart: that segment is reported once and counts 0, the others count.
    FaultLog log;
    const auto line = Of({{{10, 0}, {12, 0}}, {{0, 0}, {1e-200, 0}, {1, 0}}});
    EXPECT_NEAR(SpheroidalPolylineLength(line), 3 * kDegree, 1e-5);
    EXPECT_NEAR(SpheroidalPolylineMidpoint2(line, position, true, total, kA, kB)->X(), 11.5, 1e-9);
    EXPECT_THAT(log.Reports(), ElementsAre("DistanceVincentyNumbers 11", "DistanceVincentyNumbers2 11"));
  }
  {
    // At the end of the line the azimuth of the last segment counts; one that has none leaves that of its forerunner.
    FaultLog log;
    const auto line = Of({{{10, 0}, {11, 0}}, {{0, 0}, {1e-200, 0}}});
    position = 3 * kDegree;
    const auto place = SpheroidalPolylineMidpoint2(line, position, false, total, kA, kB);
    EXPECT_NEAR(place->X(), 2.0, 1e-9);
    EXPECT_NEAR(place->Y(), 0.0, 1e-9);
    EXPECT_THAT(log.Reports(), ElementsAre("DistanceVincentyNumbers2 11"));
  }
  {
    // Every other segment of a long line fails. The one that holds the middle is found again without a second report.
    Vertices path;
    for (int index = 0; index < 700; ++index) {
      path.push_back({index * 0.01, 0});
      path.push_back({index * 0.01 + 1e-200, 1e-200});
    }
    const auto count = [&path] {
      FaultLog log;
      double half = 0.5, length = 0.0;
      static_cast<void>(SpheroidalPolylineMidpoint2(path, half, true, length, kA, kB));
      return log.Reports().size();
    };
    FaultLog log;
    static_cast<void>(SpheroidalPolylineLength2(path, kA, kB));
    const std::size_t once = log.Reports().size();
    EXPECT_GT(once, 0u);
    EXPECT_EQ(count(), once);
  }
  // Without a major axis every segment fails, one along a whole turn too, which needs no iteration.
  FaultLog log;
  EXPECT_EQ(SpheroidalPolylineLength2(Of({{{10, 0}, {12, 0}, {372, 0}}}), 0.0, 1.0), 0.0);
  EXPECT_THAT(log.Reports(), ElementsAre("DistanceVincentyNumbers2 11", "DistanceVincentyNumbers2 11"));
}

// One segment after the other, with every row kept.
struct PlainRow {
  double length, running, azimuth;
  XY from;
};

std::vector<PlainRow> PlainRows(const Vertices& path) {
  std::vector<PlainRow> rows;
  double running = 0.0, azimuth = 0.0, azimuth2 = 0.0;
  for (std::size_t index = 1; index < path.size(); ++index) {
    const double length = DistanceVincentyPoints2(path[index - 1], path[index], azimuth, azimuth2, kA, kB);
    running += length;
    rows.push_back({length, running, azimuth, path[index - 1]});
  }
  return rows;
}

TEST(PolylineMeasures, AreThePlainOnesToTheLastBit) {
  std::mt19937_64 random(5);
  std::uniform_real_distribution<double> unit(-1.0, 1.0);
  for (const int count : {1, 2, 3, 8, 9, 10, 17, 100, 511, 513, 514, 2000, 20000}) {
    Vertices path{{180 * unit(random), 89 * unit(random)}};
    const double step = count % 3 == 0 ? 1e-4 : 0.3;
    while (path.size() < static_cast<std::size_t>(count)) {
      const XY last = path.back();
      path.push_back({last.x + step * unit(random), std::clamp(last.y + step * unit(random), -90.0, 90.0)});
      if (path.size() % 11 == 0) path.push_back(path.back());
      if (path.size() % 13 == 0) path.back().y = 0.0;
    }
    const std::vector<PlainRow> rows = PlainRows(path);
    const double total = rows.empty() ? 0.0 : rows.back().running;
    EXPECT_EQ(SpheroidalPolylineLength2(path, kA, kB), total) << count;
    for (const double ratio : {0.0, 0.001, 0.37, 0.5, 0.9999}) {
      if (rows.empty()) continue;
      double position = ratio, distance = ratio * total, found = 0.0, far_azimuth = 0.0;
      const auto row = std::ranges::find_if(rows, [&](const PlainRow& each) { return each.running > distance; });
      ASSERT_NE(row, rows.end());
      XY expected;
      PointLineVincentyPerPoint2(row->from, row->length - (row->running - distance), row->azimuth, expected,
                                 far_azimuth, kA, kB);
      EXPECT_EQ(SpheroidalPolylineMidpoint2(path, position, true, found, kA, kB), expected) << count << " " << ratio;
      EXPECT_EQ(found, total);
      EXPECT_EQ(SpheroidalPolylineMidpoint2(path, distance, false, found, kA, kB), expected) << count << " " << ratio;
    }
  }
}

// A segment between nearly antipodal places anywhere in a batch is noticed, and nothing else is.
TEST(PolylineMeasures, TellWhatDidNotConverge) {
  for (std::size_t at = 0; at < 20; ++at) {
    Vertices path;
    for (int index = 0; index < 21; ++index) path.push_back({index * 2.0, 10.0 + index % 3});
    const ConvergenceWatch plain;
    static_cast<void>(SpheroidalPolylineLength2(path, kA, kB));
    EXPECT_TRUE(plain.AllConverged());
    path.insert(path.begin() + static_cast<std::ptrdiff_t>(at) + 1, {path[at].x + 179.7, -path[at].y + 0.1});
    const ConvergenceWatch watch;
    static_cast<void>(SpheroidalPolylineLength2(path, kA, kB));
    EXPECT_FALSE(watch.AllConverged()) << at;
  }
}

// The unconverged solutions and no others are far from the exact distance.
TEST(PolylineMeasures, ConvergenceIsAnExactMark) {
  std::mt19937_64 random(40);
  std::uniform_real_distribution<double> share(-1.0, 1.0);
  int converged = 0, far_off = 0;
  for (int index = 0; index < 5000; ++index) {
    const XY from{180.0 * share(random), 60.0 * share(random)};
    const XY to{from.x + 180.0 + 1.3 * share(random), -from.y + 1.3 * share(random)};
    double azimuth1 = 0.0, azimuth2 = 0.0;
    const ConvergenceWatch watch;
    const double distance = DistanceVincentyPoints2(from, to, azimuth1, azimuth2, kA, kB);
    const double error = std::fabs(distance - SolveInverseExactly(from, to, kA, kB).distance);
    if (watch.AllConverged()) {
      ++converged;
      EXPECT_LT(error, 1e-4) << from.x << " " << from.y << " " << to.x << " " << to.y;
    } else if (error > 1000.0) {
      ++far_off;
    }
  }
  EXPECT_GT(converged, 1000);
  EXPECT_GT(far_off, 500);
}

TEST(PolylineMeasures, AllocateNothingPerSegment) {
  Vertices path;
  for (int index = 0; index < 5000; ++index) path.push_back({index * 0.01, 40 + std::sin(index * 0.01)});
  const auto line = Of({path});
  double position = 0.5, total = 0.0;
  long before = g_allocations;
  EXPECT_GT(SpheroidalPolylineLength(line), 0.0);
  EXPECT_GT(SpheroidalPolylineLength2(line, kA, kB), 0.0);
  EXPECT_NE(SpheroidalPolylineMidpoint2(path, position, true, total, kA, kB), XY{});
  EXPECT_EQ(g_allocations, before);
  before = g_allocations;
  const auto place = SpheroidalPolylineMidpoint2(line, position, true, total, kA, kB);
  EXPECT_EQ(g_allocations - before, 1) << "the point that is answered";
}

}  // namespace
}  // namespace tessarine::MyGeometricOperations
