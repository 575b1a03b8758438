// SPDX-License-Identifier: GPL-2.0-or-later
// Exact geodesics and areas by GeographicLib.
#include "platform/exact_geodesy.h"

#include <GeographicLib/Accumulator.hpp>
#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/GeodesicExact.hpp>
#include <algorithm>
#include <cmath>
#include <optional>
#include <variant>

#include "platform/fault.h"
#include "platform/run_stop.h"

namespace tessarine {
namespace {

using GeographicLib::Geodesic;
using GeographicLib::GeodesicExact;

// Up to here the series of the library are as exact as doubles; beyond, its elliptic integrals are asked.
constexpr double kLargestSeriesFlattening = 1.0 / 50.0;
constexpr double kPole = 90.0;
constexpr double kPoleRounding = 1e-9;
constexpr double kHalfTurn = 180.0;
constexpr double kTurn = 360.0;
constexpr double kMostHalfTurns = 1e6;
constexpr double kStepRounding = 1e-9;

double FlatteningOf(double semi_major, double semi_minor) { return (semi_major - semi_minor) / semi_major; }

bool NeedsExact(double flattening) { return std::fabs(flattening) > kLargestSeriesFlattening; }

struct Leg {
  double distance, azimuth1, azimuth2, area;  // the area between the line and the equator
};

// One spheroid, solved by whichever of the two suits it.
class Solver {
 public:
  Solver(double semi_major, double semi_minor) : semi_major_(semi_major), semi_minor_(semi_minor) {
    const double f = FlatteningOf(semi_major, semi_minor);
    if (!(semi_major > 0.0 && semi_minor > 0.0) || !std::isfinite(semi_major) || !std::isfinite(f)) {
      Raise(kInvalidCall, "The semi-axes of the spheroid must be finite and above 0.");
    }
    if (NeedsExact(f)) {
      solver_.emplace<GeodesicExact>(semi_major, f);
    } else {
      solver_.emplace<Geodesic>(semi_major, f);
    }
  }

  [[nodiscard]] bool IsOf(double semi_major, double semi_minor) const {
    return semi_major_ == semi_major && semi_minor_ == semi_minor;
  }

  [[nodiscard]] Leg Solve(XY from, XY to) const {
    Leg leg{};
    double arc = 0.0, reduced = 0.0, scale12 = 0.0, scale21 = 0.0;
    std::visit(
        [&](const auto& solver) {
          using Kind = std::decay_t<decltype(solver)>;
          if constexpr (!std::is_same_v<Kind, std::monostate>) {
            arc = solver.GenInverse(from.y, from.x, to.y, to.x, Kind::DISTANCE | Kind::AZIMUTH | Kind::AREA,
                                    leg.distance, leg.azimuth1, leg.azimuth2, reduced, scale12, scale21, leg.area);
          }
        },
        solver_);
    return leg;
  }

  [[nodiscard]] ExactPosition Walk(XY from, double distance, double azimuth) const {
    ExactPosition walked{};
    std::visit(
        [&](const auto& solver) {
          using Kind = std::decay_t<decltype(solver)>;
          if constexpr (!std::is_same_v<Kind, std::monostate>) {
            double reduced = 0.0, scale12 = 0.0, scale21 = 0.0, area = 0.0, length = 0.0;
            solver.GenDirect(from.y, from.x, azimuth, false, distance,
                             Kind::LATITUDE | Kind::LONGITUDE | Kind::AZIMUTH | Kind::LONG_UNROLL, walked.end.y,
                             walked.end.x, walked.azimuth2, length, reduced, scale12, scale21, area);
          }
        },
        solver_);
    return walked;
  }

 private:
  double semi_major_, semi_minor_;
  std::variant<std::monostate, Geodesic, GeodesicExact> solver_;
};

// A run asks for one spheroid.
const Solver& SolverOf(double semi_major, double semi_minor) {
  thread_local std::optional<Solver> last;
  if (!last || !last->IsOf(semi_major, semi_minor)) {
    last.reset();
    last.emplace(semi_major, semi_minor);
  }
  return *last;
}

XY Checked(XY position) {
  if (!std::isfinite(position.x) || !std::isfinite(position.y)) {
    Raise(kInvalidCall, "A position has a coordinate that is no finite number.");
  }
  if (std::fabs(position.y) > kPole + kPoleRounding) Raise(kInvalidCall, "A latitude lies beyond a pole.");
  return {position.x, std::clamp(position.y, -kPole, kPole)};
}

// A step of half a turn goes to its own side of the pole, whatever the rounding of its ends' longitudes would make of
// it.
double AreaUnder(const Solver& solver, XY from, XY to) {
  if (const double step = to.x - from.x; std::fabs(step) >= kHalfTurn - kStepRounding) {
    from.x = 0.0;
    to.x = std::clamp(step, -kHalfTurn, kHalfTurn);
  }
  return solver.Solve(Checked(from), Checked(to)).area;
}

double AzimuthOf(double degrees) {
  const double turned = degrees < 0.0 ? degrees + kTurn : degrees;
  return turned >= kTurn ? 0.0 : turned + 0.0;
}

}  // namespace

std::string_view ExactGeodesyMethod(double semi_major, double semi_minor) {
  return NeedsExact(FlatteningOf(semi_major, semi_minor)) ? "GeographicLib GeodesicExact" : "GeographicLib Geodesic";
}

ExactGeodesic SolveInverseExactly(XY from, XY to, double semi_major, double semi_minor) {
  const Leg leg = SolverOf(semi_major, semi_minor).Solve(Checked(from), Checked(to));
  return {leg.distance, AzimuthOf(leg.azimuth1), AzimuthOf(leg.azimuth2)};
}

ExactPosition SolveDirectExactly(XY from, double distance, double azimuth, double semi_major, double semi_minor) {
  ExactPosition walked = SolverOf(semi_major, semi_minor).Walk(Checked(from), distance, azimuth);
  walked.azimuth2 = AzimuthOf(walked.azimuth2);
  return walked;
}

double ExactRingArea(std::span<const XY> ring, double semi_major, double semi_minor) {
  if (ring.empty()) return 0.0;
  static_cast<void>(Checked(ring.front()));
  const Solver& solver = SolverOf(semi_major, semi_minor);
  GeographicLib::Accumulator<> sum;
  const auto add = [&](XY from, XY to) {
    const double step = to.x - from.x;
    // What a rounding lacks or adds to half turns makes no other number of pieces.
    const double half_turns = std::min(std::fabs(step) / kHalfTurn + kStepRounding, kMostHalfTurns);
    const bool is_long = std::fabs(step) > kHalfTurn;
    const int pieces = is_long ? static_cast<int>(half_turns) * 2 + 1 : 1;
    XY start = from;
    for (int piece = 1; piece <= pieces; ++piece) {
      const double part = static_cast<double>(piece) / pieces;
      const XY end = piece == pieces ? to : XY{from.x + part * step, from.y + part * (to.y - from.y)};
      sum += AreaUnder(solver, start, end);
      start = end;
    }
  };
  StopPoll poll;
  for (std::size_t index = 1; index < ring.size(); ++index) {
    poll();
    add(ring[index - 1], ring[index]);
  }
  if (ring.front() != ring.back()) add(ring.back(), ring.front());
  return sum();
}

}  // namespace tessarine
