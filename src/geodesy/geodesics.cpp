// SPDX-License-Identifier: MIT
#include "geodesy/geodesics.h"

#include <cmath>

#include "geodesy/vincenty_series.h"

namespace tessarine::geodesy {
namespace {

using checked::Divide;
using checked::Finite;
using checked::Root;
using checked::Tangent;
using detail::Arc;
using detail::kPasses;

double FlatteningOf(const Figure& figure) {
  if (figure.semi_major == 0.0) Raise(kDivisionByZero, "Division by zero");
  return Finite(figure.flattening);
}

double ToAzimuth(double radians) {
  const double degrees = ToDegrees(radians);
  return degrees < 0.0 ? degrees + 360.0 : degrees;
}

}  // namespace

GeodesicLine Inverse(LonLat from, LonLat to, const Figure& figure) {
  if (from == to) return {};
  const double f = FlatteningOf(figure);
  CheckedArithmetic arithmetic;
  const double L = ToRadians(Finite(to.x - from.x));
  detail::InverseProblem problem(L, detail::Reduced(from.y, f, arithmetic), detail::Reduced(to.y, f, arithmetic));
  for (int passes = kPasses; !problem.Settled() && passes >= 1; --passes) {
    Pass(problem, f, arithmetic);
    static_cast<void>(Finite(problem.lambda));
  }

  const auto [sin_U1, cos_U1] = problem.U1;
  const auto [sin_U2, cos_U2] = problem.U2;
  const double sin_lambda = problem.sin_lambda, cos_lambda = problem.cos_lambda;
  return {Finite(DistanceOf(problem, figure, arithmetic)),
          ToAzimuth(AngleOf(cos_U2 * sin_lambda, cos_U1 * sin_U2 - sin_U1 * cos_U2 * cos_lambda)),
          ToAzimuth(AngleOf(cos_U1 * sin_lambda, cos_U1 * sin_U2 * cos_lambda - sin_U1 * cos_U2)), problem.Settled()};
}

GeodesicEnd Direct(LonLat start, double azimuth1, double distance, const Figure& figure) {
  if (distance == 0.0) return {start, azimuth1};
  const double f = FlatteningOf(figure), less_f = 1.0 - f;
  const double tan_U1 = less_f * Tangent(ToRadians(start.y));
  const double U1 = std::atan(tan_U1);
  const double cos_U1 = std::cos(U1), sin_U1 = std::sin(U1);
  const double alpha1 = ToRadians(azimuth1);
  const double cos_alpha1 = std::cos(alpha1), sin_alpha1 = std::sin(alpha1);
  const double sigma1 = AngleOf(tan_U1, cos_alpha1);
  const double sin_alpha = cos_U1 * sin_alpha1;
  const double cos_sq_alpha = 1.0 - sin_alpha * sin_alpha;
  const detail::Coefficients series = detail::CoefficientsOf(figure, cos_sq_alpha, CheckedArithmetic());
  const double first_sigma = Divide(distance, figure.semi_minor * series.A);

  const auto arc_at = [&](double sigma) {
    return Arc{sigma, std::sin(sigma), std::cos(sigma), std::cos(2.0 * sigma1 + sigma)};
  };
  double sigma = first_sigma, sigma_before = kTwoPi;
  for (int passes = kPasses; std::fabs(sigma - sigma_before) > kTolerance && passes >= 1; --passes) {
    const double delta_sigma = DeltaSigma(series.B, arc_at(sigma));
    sigma_before = sigma;
    sigma = Finite(first_sigma + delta_sigma);
  }

  const Arc arc = arc_at(sigma);
  const double tmp = sin_U1 * arc.sin_sigma - cos_U1 * arc.cos_sigma * cos_alpha1;
  const double lat2 = AngleOf(sin_U1 * arc.cos_sigma + cos_U1 * arc.sin_sigma * cos_alpha1,
                              less_f * Root(sin_alpha * sin_alpha + tmp * tmp));
  const double lambda =
      AngleOf(arc.sin_sigma * sin_alpha1, cos_U1 * arc.cos_sigma - sin_U1 * arc.sin_sigma * cos_alpha1);
  const double L = lambda - LongitudeLead(f, sin_alpha, cos_sq_alpha, arc);
  return {{Finite(start.x + ToDegrees(L)), ToDegrees(lat2)}, ToAzimuth(AngleOf(sin_alpha, -tmp))};
}

}  // namespace tessarine::geodesy
