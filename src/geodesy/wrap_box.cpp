// SPDX-License-Identifier: MIT
#include "geodesy/wrap_box.h"

#include <cmath>

#include "geodesy/checked_arithmetic.h"

namespace tessarine::geodesy {
namespace {

void RequireReach(double value, double side, double size) {
  constexpr double kFarthest = 1e6;
  if (std::fabs(checked::Finite(value) - side) / size > kFarthest) {
    Raise(kInvalidCall, "The shape lies more than a million boxes away from the boundary box.");
  }
}

double Wrapped(double value, double low, double high, double size) {
  RequireReach(value, low, size);
  while (value > high) value -= size;
  while (value < low) value += size;
  return value;
}

}  // namespace

void RequireSides(const WrapBox& box) {
  if (!(checked::Finite(box.Width()) > 0.0) || !(checked::Finite(box.Height()) > 0.0)) {
    Raise(kInvalidCall, "The boundary box has no width or no height.");
  }
}

void RequireReach(const Envelope& extent, const WrapBox& box) {
  for (const double x : {extent.XMin(), extent.XMax()}) RequireReach(x, box.west, box.Width());
  for (const double y : {extent.YMin(), extent.YMax()}) RequireReach(y, box.south, box.Height());
}

LonLat WrappedInto(const WrapBox& box, LonLat position) {
  RequireSides(box);
  return {Wrapped(position.x, box.west, box.east, box.Width()),
          Wrapped(position.y, box.south, box.north, box.Height())};
}

}  // namespace tessarine::geodesy
