// SPDX-License-Identifier: GPL-2.0-or-later
// Arithmetic that raises at once: no infinity and no not-a-number travels through the geodesy core.
//
// Faults: 11 for a division by zero, 6 for a result past the range of a double, 5 for an operation without a result,
// such as the root of a negative number. Results that underflow to 0 are results. Sums and products go unchecked
// where a checked operation or `Finite` meets their value before it leaves the routine.
#pragma once

#include <cmath>

#include "platform/fault.h"

namespace tessarine::MyGeometricOperations::checked {

/// Raises fault 5 for a not-a-number and fault 6 for an infinity.
[[noreturn]] inline void RaiseNotFinite(double value) {
  if (std::isnan(value)) Raise(kInvalidCall, "Invalid procedure call or argument");
  Raise(kOverflow, "Overflow");
}

/// The value itself; fault 5 or 6 when it is no finite number.
[[nodiscard]] inline double Finite(double value) {
  if (!std::isfinite(value)) [[unlikely]]
    RaiseNotFinite(value);
  return value;
}

/// a / b. A divisor of 0, of either sign, is fault 11 whatever stands above it, 0 too.
[[nodiscard]] inline double Divide(double a, double b) {
  if (b == 0.0) [[unlikely]]
    Raise(kDivisionByZero, "Division by zero");
  return Finite(a / Finite(b));
}

/// The square root; fault 5 below 0.
[[nodiscard]] inline double Root(double value) {
  if (value < 0.0) [[unlikely]]
    Raise(kInvalidCall, "Invalid procedure call or argument");
  return std::sqrt(Finite(value));
}

/// The general power call. 0 to a negative exponent is fault 11, a negative base to a broken exponent fault 5.
[[nodiscard]] inline double Power(double base, double exponent) {
  if (base == 0.0 && exponent < 0.0) Raise(kDivisionByZero, "Division by zero");
  return Finite(std::pow(Finite(base), Finite(exponent)));
}

/// The tangent, finite at all the angles that degrees convert to.
[[nodiscard]] inline double Tangent(double angle) { return Finite(std::tan(Finite(angle))); }

}  // namespace tessarine::MyGeometricOperations::checked
