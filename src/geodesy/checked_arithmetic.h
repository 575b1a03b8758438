// SPDX-License-Identifier: MIT
// Arithmetic that raises at once: no infinity and no not-a-number travels through the library.
//
// Faults: 11 for a division by zero, 6 for a result past the range of a double, 5 for an operation without a result,
// such as the root of a negative number. Results that underflow to 0 are results. Sums and products go unchecked
// where a checked operation or `Finite` meets their value before it leaves the routine.
#pragma once

#include <cmath>

#include "platform/fault.h"

namespace tessarine::geodesy {
namespace checked {

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

}  // namespace checked

// Formulae that serve one problem at a time and several side by side are written once and take one of these two for
// their arithmetic. Both do the same operations in the same order, so their results have the same bits.

/// For one problem: the first operation without a result raises.
struct CheckedArithmetic {
  [[nodiscard]] static double Finite(double value) { return checked::Finite(value); }
  [[nodiscard]] static double Divide(double a, double b) { return checked::Divide(a, b); }
  [[nodiscard]] static double Quotient(double a, double b) { return checked::Divide(a, b); }
  [[nodiscard]] static double Root(double value) { return checked::Root(value); }
  [[nodiscard]] static double Power(double base, double exponent) { return checked::Power(base, exponent); }
  [[nodiscard]] static double Tangent(double angle) { return checked::Tangent(angle); }
};

/// For one of several problems: nothing raises, and what has no result spoils that one alone. A value that isn't finite
/// travels on to the result, but for those that an operation would hide, as an arc tangent does: these go through
/// `Finite` and `Quotient`, which mark them.
struct MarkedArithmetic {
  bool sound = true;

  [[nodiscard]] double Finite(double value) {
    sound = sound && std::isfinite(value);
    return value;
  }
  [[nodiscard]] static double Divide(double a, double b) { return a / b; }
  [[nodiscard]] double Quotient(double a, double b) { return Finite(a / b); }
  [[nodiscard]] static double Root(double value) { return std::sqrt(value); }
  [[nodiscard]] static double Power(double base, double exponent) { return std::pow(base, exponent); }
  [[nodiscard]] static double Tangent(double angle) { return std::tan(angle); }
};

}  // namespace tessarine::geodesy
