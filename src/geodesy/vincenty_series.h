// SPDX-License-Identifier: MIT
// Vincenty's equations as both problems, and the lengths of many segments, need them. The names are his symbols.
#pragma once

#include <cmath>

#include "geodesy/angles.h"

namespace tessarine::geodesy::detail {

inline constexpr int kPasses = 40;

/// The coefficients of the distance along the line, equations 3 and 4.
struct Coefficients {
  double A, B;
};

template <class Arithmetic>
[[nodiscard]] Coefficients CoefficientsOf(const Figure& figure, double cos_sq_alpha, const Arithmetic&) {
  const double a_sq = figure.semi_major * figure.semi_major, b_sq = figure.semi_minor * figure.semi_minor;
  const double u_sq = Arithmetic::Divide((a_sq - b_sq) * cos_sq_alpha, b_sq);
  return {1.0 + u_sq / 16384.0 * (4096.0 + u_sq * (-768.0 + u_sq * (320.0 - 175.0 * u_sq))),
          u_sq / 1024.0 * (256.0 + u_sq * (-128.0 + u_sq * (74.0 - 47.0 * u_sq)))};
}

/// Where the line stands after an arc: the arc sigma, and the arc from the equator crossing to the line's middle.
struct Arc {
  double sigma = 0.0, sin_sigma = 0.0, cos_sigma = 0.0, cos_2_sigma_m = 0.0;
};

/// Equation 6.
[[nodiscard]] inline double DeltaSigma(double B, const Arc& arc) {
  const double m = arc.cos_2_sigma_m, m_sq = m * m;
  return B * arc.sin_sigma *
         (m + B / 4.0 *
                  (arc.cos_sigma * (2.0 * m_sq - 1.0) -
                   B / 6.0 * m * (4.0 * (arc.sin_sigma * arc.sin_sigma) - 3.0) * (4.0 * m_sq - 3.0)));
}

/// How far the longitude on the auxiliary sphere is ahead of the one on the spheroid, equations 10 and 11.
[[nodiscard]] inline double LongitudeLead(double f, double sin_alpha, double cos_sq_alpha, const Arc& arc) {
  const double C = f / 16.0 * cos_sq_alpha * (4.0 + f * (4.0 - 3.0 * cos_sq_alpha));
  const double m = arc.cos_2_sigma_m;
  return (1.0 - C) * f * sin_alpha * (arc.sigma + C * arc.sin_sigma * (m + C * arc.cos_sigma * (2.0 * (m * m) - 1.0)));
}

/// The reduced latitude of a position.
struct ReducedLatitude {
  double sine, cosine;
};

template <class Arithmetic>
[[nodiscard]] ReducedLatitude Reduced(double latitude, double f, const Arithmetic&) {
  const double U = std::atan((1.0 - f) * Arithmetic::Tangent(Radians(latitude)));
  return {std::sin(U), std::cos(U)};
}

/// An inverse problem under iteration. Before the first pass all results are 0; after the last they keep its values.
struct InverseProblem {
  double L;
  ReducedLatitude U1, U2;
  double lambda, lambda_before = kTwoPi;
  double sin_lambda = 0.0, cos_lambda = 0.0, cos_sq_alpha = 0.0;
  Arc arc = {};

  InverseProblem() = default;
  InverseProblem(double longitudes, ReducedLatitude from, ReducedLatitude to)
      : L(longitudes), U1(from), U2(to), lambda(longitudes) {}

  [[nodiscard]] bool Settled() const { return !(std::fabs(lambda - lambda_before) > kTolerance); }
};

/// One pass of the iteration.
template <class Arithmetic>
inline void Pass(InverseProblem& problem, double f, Arithmetic& arithmetic) {
  const auto [sin_U1, cos_U1] = problem.U1;
  const auto [sin_U2, cos_U2] = problem.U2;
  const double sin_lambda = std::sin(problem.lambda), cos_lambda = std::cos(problem.lambda);
  const double east = cos_U2 * sin_lambda;
  const double north = cos_U1 * sin_U2 - sin_U1 * cos_U2 * cos_lambda;
  Arc& arc = problem.arc;
  arc.sin_sigma = arithmetic.Root(east * east + north * north);
  arc.cos_sigma = sin_U1 * sin_U2 + cos_U1 * cos_U2 * cos_lambda;
  arc.sigma = AngleOf(arc.sin_sigma, arc.cos_sigma, arithmetic);
  const double sin_alpha = arithmetic.Divide(cos_U1 * cos_U2 * sin_lambda, arc.sin_sigma);
  const double cos_sq_alpha = 1.0 - sin_alpha * sin_alpha;
  // A line along the equator has no middle to reckon from.
  arc.cos_2_sigma_m =
      cos_sq_alpha == 0.0 ? 0.0 : arc.cos_sigma - arithmetic.Divide(2.0 * sin_U1 * sin_U2, cos_sq_alpha);
  problem.lambda_before = problem.lambda;
  problem.lambda = problem.L + LongitudeLead(f, sin_alpha, cos_sq_alpha, arc);
  problem.sin_lambda = sin_lambda;
  problem.cos_lambda = cos_lambda;
  problem.cos_sq_alpha = cos_sq_alpha;
}

/// Equation 19.
template <class Arithmetic>
[[nodiscard]] double DistanceOf(const InverseProblem& problem, const Figure& figure, const Arithmetic& arithmetic) {
  const Coefficients series = CoefficientsOf(figure, problem.cos_sq_alpha, arithmetic);
  return figure.semi_minor * series.A * (problem.arc.sigma - DeltaSigma(series.B, problem.arc));
}

}  // namespace tessarine::geodesy::detail
