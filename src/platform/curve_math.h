// SPDX-License-Identifier: GPL-2.0-or-later
// Quadrature and root finding for curves that have no closed length.
#pragma once

#include <cmath>

#include "platform/geometry_types.h"

namespace tessarine::detail {

inline constexpr double kTwoPi = 6.283185307179586;

inline double Distance(XY from, XY to) { return std::hypot(to.x - from.x, to.y - from.y); }

/// The integral of `function` from `low` to `high` by the Gauss-Legendre rule of eight points, which is exact for
/// polynomials up to degree 15.
template <class Function>
double GaussRule(const Function& function, double low, double high) {
  constexpr double kNodes[] = {0.1834346424956498, 0.5255324099163290, 0.7966664774136267, 0.9602898564975363};
  constexpr double kWeights[] = {0.3626837833783620, 0.3137066458778873, 0.2223810344533745, 0.1012285362903763};
  const double middle = (low + high) / 2.0;
  const double half = (high - low) / 2.0;
  double sum = 0.0;
  for (int index = 0; index < 4; ++index) {
    sum += kWeights[index] * (function(middle - half * kNodes[index]) + function(middle + half * kNodes[index]));
  }
  return sum * half;
}

/// The integral of a function that is nowhere negative, such as a speed: the Gauss rule, halved until both halves agree
/// with the whole to a relative 1e-13, or to what rounding leaves of the first estimate.
template <class Function>
double Integrate(const Function& function, double low, double high) {
  const auto rule = [&](double from, double to) { return GaussRule(function, from, to); };
  const double first = rule(low, high);
  const auto refine = [&](const auto& self, double from, double to, double whole, int depth) -> double {
    const double middle = (from + to) / 2.0;
    const double left = rule(from, middle);
    const double right = rule(middle, to);
    const double tolerance = std::fmax(1e-13 * std::fabs(left + right), 1e-16 * std::fabs(first));
    if (depth == 0 || std::fabs(left + right - whole) <= tolerance) return left + right;
    return self(self, from, middle, left, depth - 1) + self(self, middle, to, right, depth - 1);
  };
  return refine(refine, low, high, first, 24);
}

/// The parameter in [0, 1] at which the arc length from 0 reaches `target`, by bisection kept tight with Newton steps.
template <class Speed>
double ParameterAtLength(const Speed& speed, double target, double total) {
  double low = 0.0, high = 1.0;
  double low_length = 0.0;
  double guess = target / total;
  for (int step = 0; step < 100; ++step) {
    const double length = low_length + Integrate(speed, low, guess);
    const double error = length - target;
    if (std::fabs(error) <= 1e-13 * total) return guess;
    if (error < 0.0) {
      low = guess;
      low_length = length;
    } else {
      high = guess;
    }
    const double rate = speed(guess);
    double next = rate > 0.0 ? guess - error / rate : low;
    if (!(next > low && next < high)) next = (low + high) / 2.0;
    if (next == guess) break;
    guess = next;
  }
  return guess;
}

}  // namespace tessarine::detail
