// SPDX-License-Identifier: GPL-2.0-or-later
// The geodesy core beside GeographicLib and PROJ: the same pairs, polylines and polygons, in one run.
//
// After the table of Google Benchmark stands a table of ratios, each the fastest repetition of ours divided by that of
// the peer; below 1 ours is the faster. Polylines and polygons have segments of some hundred metres up to some hundred
// kilometres, by the size of the shape.
#include <benchmark/benchmark.h>
#include <geodesic.h>
#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/PolygonArea.hpp>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "shapes/MyGeometricOperations.h"

namespace {

namespace geo = tessarine::MyGeometricOperations;
using tessarine::XY;
using tessarine::geodesy::SphericalAreaSum;

constexpr double kA = 6378137.0, kB = 6356752.31424518;
constexpr double kRadius = 6371000.790009154;
constexpr int kVertices = 10000;

std::vector<XY> RandomPositions() {
  std::mt19937_64 random(1);
  std::uniform_real_distribution<double> lon(-90.0, 90.0), lat(-80.0, 80.0);  // never near the antipode
  std::vector<XY> positions(kVertices);
  for (XY& position : positions) position = {lon(random), lat(random)};
  return positions;
}

// A closed clockwise ring with a wavy edge, `degrees` wide and high.
std::vector<XY> WavyRing(double degrees) {
  std::vector<XY> ring;
  for (int index = 0; index < kVertices; ++index) {
    const double angle = -2.0 * std::acos(-1.0) * index / kVertices;
    const double reach = degrees / 2.0 * (1.0 + 0.05 * std::sin(17.0 * angle));
    ring.push_back({10.0 + reach * std::cos(angle), 40.0 + reach * std::sin(angle)});
  }
  ring.push_back(ring.front());
  return ring;
}

std::vector<XY> RingOf(const benchmark::State& state) { return WavyRing(static_cast<double>(state.range(0))); }

void CountPer(benchmark::State& state, std::size_t items) {
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(items));
}

// --- One inverse problem after the other -------------------------------------------------------------------------

template <class Inverse>
void RunPairs(benchmark::State& state, Inverse&& inverse) {
  const std::vector<XY> positions = RandomPositions();
  for (auto _ : state) {
    double sum = 0.0;
    for (std::size_t index = 1; index < positions.size(); ++index) {
      sum += inverse(positions[index - 1], positions[index]);
    }
    benchmark::DoNotOptimize(sum);
  }
  CountPer(state, positions.size() - 1);
}

void PairsOurs(benchmark::State& state) {
  RunPairs(state, [](XY from, XY to) {
    double azimuth1 = 0.0, azimuth2 = 0.0;
    const double length = geo::DistanceVincentyPoints2(from, to, azimuth1, azimuth2, kA, kB);
    return length + azimuth1 + azimuth2;
  });
}

void PairsGeographicLib(benchmark::State& state) {
  const GeographicLib::Geodesic earth(kA, (kA - kB) / kA);
  RunPairs(state, [&](XY from, XY to) {
    double length = 0.0, azimuth1 = 0.0, azimuth2 = 0.0;
    earth.Inverse(from.y, from.x, to.y, to.x, length, azimuth1, azimuth2);
    return length + azimuth1 + azimuth2;
  });
}

void PairsProj(benchmark::State& state) {
  geod_geodesic earth;
  geod_init(&earth, kA, (kA - kB) / kA);
  RunPairs(state, [&](XY from, XY to) {
    double length = 0.0, azimuth1 = 0.0, azimuth2 = 0.0;
    geod_inverse(&earth, from.y, from.x, to.y, to.x, &length, &azimuth1, &azimuth2);
    return length + azimuth1 + azimuth2;
  });
}

// --- The length of a polyline, and a place on it -----------------------------------------------------------------

void LengthOurs(benchmark::State& state) {
  const std::vector<XY> path = RingOf(state);
  for (auto _ : state) benchmark::DoNotOptimize(geo::SpheroidalPolylineLength2(path, kA, kB));
  CountPer(state, path.size() - 1);
}

void LengthGeographicLib(benchmark::State& state) {
  const std::vector<XY> path = RingOf(state);
  const GeographicLib::Geodesic earth(kA, (kA - kB) / kA);
  for (auto _ : state) {
    double sum = 0.0, length = 0.0;
    for (std::size_t index = 1; index < path.size(); ++index) {
      earth.Inverse(path[index - 1].y, path[index - 1].x, path[index].y, path[index].x, length);
      sum += length;
    }
    benchmark::DoNotOptimize(sum);
  }
  CountPer(state, path.size() - 1);
}

void LengthProj(benchmark::State& state) {
  const std::vector<XY> path = RingOf(state);
  geod_geodesic earth;
  geod_init(&earth, kA, (kA - kB) / kA);
  for (auto _ : state) {
    double sum = 0.0, length = 0.0;
    for (std::size_t index = 1; index < path.size(); ++index) {
      geod_inverse(&earth, path[index - 1].y, path[index - 1].x, path[index].y, path[index].x, &length, nullptr,
                   nullptr);
      sum += length;
    }
    benchmark::DoNotOptimize(sum);
  }
  CountPer(state, path.size() - 1);
}

void MidpointOurs(benchmark::State& state) {
  const std::vector<XY> path = RingOf(state);
  for (auto _ : state) {
    double position = 0.5, total = 0.0;
    benchmark::DoNotOptimize(geo::SpheroidalPolylineMidpoint2(path, position, true, total, kA, kB));
  }
  CountPer(state, path.size() - 1);
}

// --- The area of a polygon on the sphere -------------------------------------------------------------------------

// Ours with the centroid, which the peers don't offer.
void AreaOurs(benchmark::State& state) {
  const std::vector<XY> ring = RingOf(state);
  for (auto _ : state) {
    SphericalAreaSum sum(tessarine::geodesy::kWgs1984, tessarine::geodesy::AreaWish::WithCentroid);
    sum.AddRing(ring, {10.0, 40.0});
    const XY center = sum.Centroid().value();
    benchmark::DoNotOptimize(sum.Area() + center.x + center.y);
  }
  CountPer(state, ring.size() - 1);
}

// The same with the polygon object, its parts and its planar centroid.
void AreaOfPolygonOurs(benchmark::State& state) {
  const auto polygon = std::make_shared<tessarine::Polygon>();
  polygon->AddGeometry(std::make_shared<tessarine::Ring>(RingOf(state)));
  for (auto _ : state) {
    double lon = 0.0, lat = 0.0;
    benchmark::DoNotOptimize(geo::SphericalPolygonArea(polygon, true, lon, lat));
  }
  CountPer(state, kVertices);
}

// On the spheroid, as its users take it, and on the sphere of ours, where its geodesics need no iteration.
void RunGeographicLib(benchmark::State& state, const GeographicLib::Geodesic& earth) {
  const std::vector<XY> ring = RingOf(state);
  for (auto _ : state) {
    GeographicLib::PolygonArea polygon(earth);
    for (std::size_t index = 1; index < ring.size(); ++index) polygon.AddPoint(ring[index].y, ring[index].x);
    double perimeter = 0.0, area = 0.0;
    polygon.Compute(true, true, perimeter, area);
    benchmark::DoNotOptimize(area);
  }
  CountPer(state, ring.size() - 1);
}

void AreaGeographicLib(benchmark::State& state) {
  RunGeographicLib(state, GeographicLib::Geodesic(kA, (kA - kB) / kA));
}

void AreaGeographicLibSphere(benchmark::State& state) {
  RunGeographicLib(state, GeographicLib::Geodesic(kRadius, 0.0));
}

void RunProj(benchmark::State& state, double semi_major, double flattening) {
  const std::vector<XY> ring = RingOf(state);
  geod_geodesic earth;
  geod_init(&earth, semi_major, flattening);
  for (auto _ : state) {
    geod_polygon polygon;
    geod_polygon_init(&polygon, 0);
    for (std::size_t index = 1; index < ring.size(); ++index) {
      geod_polygon_addpoint(&earth, &polygon, ring[index].y, ring[index].x);
    }
    double area = 0.0, perimeter = 0.0;
    geod_polygon_compute(&earth, &polygon, 1, 1, &area, &perimeter);
    benchmark::DoNotOptimize(area);
  }
  CountPer(state, ring.size() - 1);
}

void AreaProj(benchmark::State& state) { RunProj(state, kA, (kA - kB) / kA); }
void AreaProjSphere(benchmark::State& state) { RunProj(state, kRadius, 0.0); }

// Degrees of the ring: segments of about 350 m, 3 km and 20 km.
constexpr std::int64_t kSizes[] = {1, 8, 60};

BENCHMARK(PairsOurs);
BENCHMARK(PairsGeographicLib);
BENCHMARK(PairsProj);
#define FOR_ALL_SIZES(run) BENCHMARK(run)->Arg(kSizes[0])->Arg(kSizes[1])->Arg(kSizes[2])
FOR_ALL_SIZES(LengthOurs);
FOR_ALL_SIZES(LengthGeographicLib);
FOR_ALL_SIZES(LengthProj);
FOR_ALL_SIZES(MidpointOurs);
FOR_ALL_SIZES(AreaOurs);
FOR_ALL_SIZES(AreaOfPolygonOurs);
FOR_ALL_SIZES(AreaGeographicLib);
FOR_ALL_SIZES(AreaGeographicLibSphere);
FOR_ALL_SIZES(AreaProj);
FOR_ALL_SIZES(AreaProjSphere);

// --- Ratios ------------------------------------------------------------------------------------------------------

// Keeps the fastest repetition of each run.
class FastestRuns : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
      const double time = run.GetAdjustedCPUTime();
      const auto [found, added] = fastest_.emplace(run.run_name.function_name + "/" + run.run_name.args, time);
      if (!added) found->second = std::min(found->second, time);
    }
    ConsoleReporter::ReportRuns(runs);
  }

  void PrintRatio(const std::string& ours, const std::string& peer, const std::string& size) const {
    const auto first = fastest_.find(ours + "/" + size), second = fastest_.find(peer + "/" + size);
    if (first == fastest_.end() || second == fastest_.end()) return;
    std::printf("%-20s %-24s %4s  %6.3f\n", ours.c_str(), peer.c_str(), size.c_str(), first->second / second->second);
  }

 private:
  std::map<std::string, double> fastest_;
};

}  // namespace

int main(int argc, char** argv) {
  // Repetitions of all runs in mixed order, so that another load on the machine meets ours and the peers alike. Options
  // given by hand come later and win.
  std::vector<std::string> options = {argv[0], "--benchmark_enable_random_interleaving=true",
                                      "--benchmark_repetitions=7", "--benchmark_min_time=0.05"};
  options.insert(options.end(), argv + 1, argv + argc);
  std::vector<char*> arguments;
  for (std::string& option : options) arguments.push_back(option.data());
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 1;
  FastestRuns runs;
  benchmark::RunSpecifiedBenchmarks(&runs);

  std::printf("\n%-20s %-24s size   ratio\n", "run", "peer");
  for (const char* peer : {"PairsGeographicLib", "PairsProj"}) runs.PrintRatio("PairsOurs", peer, "");
  for (const std::int64_t size : kSizes) {
    const std::string arg = std::to_string(size);
    runs.PrintRatio("LengthOurs", "LengthGeographicLib", arg);
    runs.PrintRatio("LengthOurs", "LengthProj", arg);
    runs.PrintRatio("MidpointOurs", "LengthOurs", arg);
    runs.PrintRatio("AreaOurs", "AreaGeographicLib", arg);
    runs.PrintRatio("AreaOurs", "AreaGeographicLibSphere", arg);
    runs.PrintRatio("AreaOurs", "AreaProj", arg);
    runs.PrintRatio("AreaOurs", "AreaProjSphere", arg);
    runs.PrintRatio("AreaOfPolygonOurs", "AreaGeographicLib", arg);
  }
  return 0;
}
