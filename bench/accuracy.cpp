// SPDX-License-Identifier: GPL-2.0-or-later
// Prints docs/accuracy.md's figures: the geodesic routines beside GeographicLib's exact solution, on several bodies.
//
//   accuracy                      all of them
//   accuracy EPSG:3031 ...        the bundled countries in these references alone
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "bench/accuracy_of_projections.h"
#include "bench/accuracy_of_shapes.h"
#include "platform/exact_geodesy.h"
#include "shapes/convergence.h"
#include "shapes/vincenty.h"

namespace {

namespace shapes = tessarine::MyGeometricOperations;

constexpr double kDegree = std::numbers::pi / 180.0;
constexpr int kPairs = 300'000;
constexpr int kPairsPerBin = 20'000;
// Errors are told for a body of the Earth's size, so that the bodies compare.
constexpr double kEarthRadius = 6378137.0;

struct Body {
  const char* name;
  double a, b;
};
constexpr Body kBodies[] = {
    {"WGS 1984", 6378137.0, 6356752.31424518}, {"Sphere", 6371000.0, 6371000.0},
    {"Mars 2000", 3396190.0, 3376200.0},       {"Jupiter 2000", 71492000.0, 66854000.0},
    {"Saturn 2000", 60268000.0, 54364000.0},   {"Flattened 1/5", 6378137.0, 5102509.6},
};

struct Pair {
  double lon1, lat1, lon2, lat2;
};

class Pairs {
 public:
  /// Both ends anywhere on the sphere, with equal chance for equal areas.
  Pair Anywhere() {
    const auto [lon1, lat1] = Position();
    const auto [lon2, lat2] = Position();
    return {lon1, lat1, lon2, lat2};
  }
  /// The second end at this angle from the antipode of the first, in any direction.
  Pair NearAntipode(double degrees) {
    const auto [lon1, lat1] = Position();
    const double angle = degrees * kDegree, turn = 2.0 * std::numbers::pi * share_(random_);
    const double lat0 = -lat1 * kDegree;
    const double sine = std::sin(lat0) * std::cos(angle) + std::cos(lat0) * std::sin(angle) * std::cos(turn);
    const double lat2 = std::asin(std::clamp(sine, -1.0, 1.0));
    const double lon = std::atan2(std::sin(turn) * std::sin(angle) * std::cos(lat0),
                                  std::cos(angle) - std::sin(lat0) * std::sin(lat2));
    return {lon1, lat1, std::remainder(lon1 + 180.0 + lon / kDegree, 360.0), lat2 / kDegree};
  }

 private:
  std::pair<double, double> Position() {
    const double lon = 360.0 * share_(random_) - 180.0;
    return {lon, std::asin(2.0 * share_(random_) - 1.0) / kDegree};
  }
  std::mt19937_64 random_{20'260'314};
  std::uniform_real_distribution<double> share_{0.0, 1.0};
};

struct Errors {
  double distance = 0.0;  // metres on a body of the Earth's size
  double azimuth = 0.0;   // degrees
};

struct Solved {
  Errors errors;
  bool converged;
};

Solved Solve(const Body& body, const Pair& pair) {
  double azimuth1 = 0.0, azimuth2 = 0.0;
  const shapes::ConvergenceWatch watch;
  const double distance =
      shapes::DistanceVincentyNumbers2(pair.lon1, pair.lat1, pair.lon2, pair.lat2, azimuth1, azimuth2, body.a, body.b);
  const tessarine::ExactGeodesic exact =
      tessarine::SolveInverseExactly({pair.lon1, pair.lat1}, {pair.lon2, pair.lat2}, body.a, body.b);
  return {{std::fabs(distance - exact.distance) * kEarthRadius / body.a,
           std::max(std::fabs(std::remainder(azimuth1 - exact.azimuth1, 360.0)),
                    std::fabs(std::remainder(azimuth2 - exact.azimuth2, 360.0)))},
          watch.AllConverged()};
}

// The angle between the second end and the antipode of the first, in degrees.
double FromAntipode(const Pair& pair) {
  const double cosine =
      std::sin(pair.lat1 * kDegree) * std::sin(pair.lat2 * kDegree) +
      std::cos(pair.lat1 * kDegree) * std::cos(pair.lat2 * kDegree) * std::cos((pair.lon2 - pair.lon1) * kDegree);
  return 180.0 - std::acos(std::clamp(cosine, -1.0, 1.0)) / kDegree;
}

// The zone where the iteration doesn't settle scales with the flattening, so it is told in units of 180 degrees times
// f.
double ZoneUnit(const Body& body) { return 180.0 * (body.a - body.b) / body.a; }

void PrintAnywhere() {
  std::printf(
      "| body | flattening | worst distance where settled | worst azimuth where settled | pairs not settled | "
      "farthest of them from the antipode | worst distance of them |\n|---|---|---|---|---|---|---|\n");
  for (const Body& body : kBodies) {
    Pairs pairs;
    Errors settled;
    double lost = 0.0, farthest = 0.0;
    int failed = 0;
    const auto take = [&](const Pair& pair, bool counts) {
      const Solved solved = Solve(body, pair);
      const double apart = FromAntipode(pair);
      if (!solved.converged) {
        failed += counts ? 1 : 0;
        farthest = std::max(farthest, apart);
        lost = std::max(lost, solved.errors.distance);
        return;
      }
      settled.distance = std::max(settled.distance, solved.errors.distance);
      // Azimuths turn fast on short lines and near the antipode: there they say little of the series.
      if (apart > 5.0 && apart < 175.0) settled.azimuth = std::max(settled.azimuth, solved.errors.azimuth);
    };
    for (int index = 0; index < kPairs; ++index) take(pairs.Anywhere(), true);
    // Where it happens, as many again.
    const double reach = 2.5 * ZoneUnit(body);
    for (int index = 0; index < kPairs && reach > 0.0; ++index) {
      take(pairs.NearAntipode(reach * (index + 0.5) / kPairs), false);
    }
    std::printf("| %s | %.6f | %.3g mm | %.1e degrees | %.4f %% | %.2f degrees | %.3g km |\n", body.name,
                (body.a - body.b) / body.a, settled.distance * 1000.0, settled.azimuth, 100.0 * failed / kPairs,
                farthest, lost / 1000.0);
  }
}

void PrintNearAntipode() {
  constexpr std::array kEdges = {0.0, 0.25, 0.5, 0.75, 0.9, 1.0, 1.1, 1.25, 1.5, 2.0};
  std::printf("\n| distance from the antipode |");
  for (const Body& body : kBodies) {
    if (body.a != body.b) std::printf(" %s |", body.name);
  }
  std::printf("\n|---|---|---|---|---|---|\n| unit: 180 degrees f |");
  for (const Body& body : kBodies) {
    if (body.a != body.b) std::printf(" %.3f degrees |", ZoneUnit(body));
  }
  std::printf("\n");
  for (std::size_t bin = 0; bin + 1 < kEdges.size(); ++bin) {
    std::printf("| %.2f to %.2f |", kEdges[bin], kEdges[bin + 1]);
    for (const Body& body : kBodies) {
      if (body.a == body.b) continue;
      Pairs pairs;
      int failed = 0;
      for (int index = 0; index < kPairsPerBin; ++index) {
        const double share = (index + 0.5) / kPairsPerBin;
        const double degrees = (kEdges[bin] + (kEdges[bin + 1] - kEdges[bin]) * share) * ZoneUnit(body);
        if (!Solve(body, pairs.NearAntipode(degrees)).converged) ++failed;
      }
      std::printf(" %.2f %% |", 100.0 * failed / kPairsPerBin);
    }
    std::printf("\n");
  }
}

// The end of a line of a given length and azimuth, by the distance and azimuth of the exact line back to its start.
void PrintDirect() {
  std::printf("\n| body | lines up to | worst position | worst azimuth at the end |\n|---|---|---|---|\n");
  for (const Body& body : kBodies) {
    for (const double reach : {0.1, 1.0}) {
      Pairs pairs;
      double position = 0.0, azimuth = 0.0;
      for (int index = 0; index < kPairs / 3; ++index) {
        const Pair pair = pairs.Anywhere();
        const double distance = reach * std::numbers::pi * body.b * (index + 0.5) / (kPairs / 3.0) * 0.9;
        tessarine::XY end{};
        double far_azimuth = 0.0;
        shapes::PointLineVincentyPerPoint2(tessarine::XY{pair.lon1, pair.lat1}, distance, pair.lon2 + 180.0, end,
                                           far_azimuth, body.a, body.b);
        const tessarine::ExactGeodesic exact =
            tessarine::SolveInverseExactly({pair.lon1, pair.lat1}, end, body.a, body.b);
        const double turn = std::remainder(exact.azimuth1 - (pair.lon2 + 180.0), 360.0) * kDegree;
        const double sideways = body.a * std::sin(distance / body.a) * turn;
        position = std::max(position, std::hypot(exact.distance - distance, sideways) * kEarthRadius / body.a);
        if (std::fabs(end.y) < 89.0) {
          azimuth = std::max(azimuth, std::fabs(std::remainder(exact.azimuth2 - far_azimuth, 360.0)));
        }
      }
      std::printf("| %s | %.0f %% of half round | %.3g mm | %.1e degrees |\n", body.name, reach * 90.0,
                  position * 1000.0, azimuth);
    }
  }
}

}  // namespace

int main(int count, char** arguments) {
  const std::vector<std::string> references(arguments + 1, arguments + count);
  if (!references.empty()) {
    tessarine::bench::PrintProjections(references);
    return 0;
  }
  PrintAnywhere();
  PrintNearAntipode();
  PrintDirect();
  tessarine::bench::PrintAreas();
  tessarine::bench::PrintCentroids();
  tessarine::bench::PrintMidpoints();
  tessarine::bench::PrintMultipointCentroids();
  tessarine::bench::PrintSmallAngles();
  tessarine::bench::PrintProjections();
}
