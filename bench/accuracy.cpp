// Prints docs/accuracy.md's figures: the geodesic routines beside GeographicLib's exact solution, on several bodies.
#include <GeographicLib/Geodesic.hpp>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <random>

#include "geodesy/vincenty.h"

namespace {

using GeographicLib::Geodesic;
namespace geodesy = tessarine::MyGeometricOperations;

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
    {"Flattened 1/5", 6378137.0, 5102509.6},
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

Errors ErrorsOf(const Body& body, const Geodesic& exact, const Pair& pair) {
  double azimuth1 = 0.0, azimuth2 = 0.0, exact1 = 0.0, exact2 = 0.0, exact_distance = 0.0;
  const double distance =
      geodesy::DistanceVincentyNumbers2(pair.lon1, pair.lat1, pair.lon2, pair.lat2, azimuth1, azimuth2, body.a, body.b);
  exact.Inverse(pair.lat1, pair.lon1, pair.lat2, pair.lon2, exact_distance, exact1, exact2);
  return {std::fabs(distance - exact_distance) * kEarthRadius / body.a,
          std::max(std::fabs(std::remainder(azimuth1 - exact1, 360.0)),
                   std::fabs(std::remainder(azimuth2 - exact2, 360.0)))};
}

// The angle between the second end and the antipode of the first, in degrees.
double FromAntipode(const Pair& pair) {
  const double cosine =
      std::sin(pair.lat1 * kDegree) * std::sin(pair.lat2 * kDegree) +
      std::cos(pair.lat1 * kDegree) * std::cos(pair.lat2 * kDegree) * std::cos((pair.lon2 - pair.lon1) * kDegree);
  return 180.0 - std::acos(std::clamp(cosine, -1.0, 1.0)) / kDegree;
}

// Where the iteration fails, the azimuths are off by degrees and the distance by kilometres; elsewhere only the cut
// series errs. The zone of failure scales with the flattening, so everything is told in units of 180 degrees times f.
double ZoneUnit(const Body& body) { return 180.0 * (body.a - body.b) / body.a; }

// The largest errors well outside the zone: those of the series itself.
Errors SeriesErrors(const Body& body, const Geodesic& exact) {
  Pairs pairs;
  Errors worst;
  const double nearest = 1.0 + 2.0 * ZoneUnit(body);
  for (int index = 0; index < kPairs; ++index) {
    const Pair pair = pairs.Anywhere();
    const double apart = FromAntipode(pair);
    if (apart < nearest) continue;
    const Errors errors = ErrorsOf(body, exact, pair);
    worst.distance = std::max(worst.distance, errors.distance);
    // Short lines turn fast: their azimuths say little of the series.
    if (apart < 175.0) worst.azimuth = std::max(worst.azimuth, errors.azimuth);
  }
  return worst;
}

bool Fails(const Errors& errors, const Errors& series) { return errors.distance > 2.0 * series.distance; }

void PrintAnywhere() {
  std::printf(
      "| body | flattening | worst distance outside the zone | worst azimuth outside | pairs inside | "
      "farthest of them from the antipode |\n|---|---|---|---|---|---|\n");
  for (const Body& body : kBodies) {
    const Geodesic exact(body.a, (body.a - body.b) / body.a);
    const Errors series = SeriesErrors(body, exact);
    Pairs pairs;
    int failed = 0;
    double farthest = 0.0;
    for (int index = 0; index < kPairs; ++index) {
      const Pair pair = pairs.Anywhere();
      if (!Fails(ErrorsOf(body, exact, pair), series)) continue;
      ++failed;
      farthest = std::max(farthest, FromAntipode(pair));
    }
    std::printf("| %s | %.6f | %.3g mm | %.1e degrees | %.4f %% | %.2f degrees |\n", body.name,
                (body.a - body.b) / body.a, series.distance * 1000.0, series.azimuth, 100.0 * failed / kPairs,
                farthest);
  }
}

void PrintNearAntipode() {
  constexpr std::array kEdges = {0.0, 0.25, 0.5, 0.75, 0.9, 1.0, 1.1, 1.25, 1.5, 2.0};
  std::printf("\n| distance from the antipode |");
  for (const Body& body : kBodies) {
    if (body.a != body.b) std::printf(" %s |", body.name);
  }
  std::printf("\n|---|---|---|---|---|\n| unit: 180 degrees f |");
  for (const Body& body : kBodies) {
    if (body.a != body.b) std::printf(" %.3f degrees |", ZoneUnit(body));
  }
  std::printf("\n");
  for (std::size_t bin = 0; bin + 1 < kEdges.size(); ++bin) {
    std::printf("| %.2f to %.2f |", kEdges[bin], kEdges[bin + 1]);
    for (const Body& body : kBodies) {
      if (body.a == body.b) continue;
      const Geodesic exact(body.a, (body.a - body.b) / body.a);
      const Errors series = SeriesErrors(body, exact);
      Pairs pairs;
      int failed = 0;
      for (int index = 0; index < kPairsPerBin; ++index) {
        const double share = (index + 0.5) / kPairsPerBin;
        const double degrees = (kEdges[bin] + (kEdges[bin + 1] - kEdges[bin]) * share) * ZoneUnit(body);
        if (Fails(ErrorsOf(body, exact, pairs.NearAntipode(degrees)), series)) ++failed;
      }
      std::printf(" %.2f %% |", 100.0 * failed / kPairsPerBin);
    }
    std::printf("\n");
  }
}

}  // namespace

int main() {
  PrintAnywhere();
  PrintNearAntipode();
}
