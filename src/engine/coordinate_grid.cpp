// SPDX-License-Identifier: GPL-2.0-or-later
// Compiled with options of its own, so that the loop takes both coordinates at a time: nothing in it branches.
#include "engine/coordinate_grid.h"

#include <algorithm>
#include <cmath>

namespace tessarine::engine {
namespace {

constexpr double kPole = 90.0;

// As `std::round`. Beside the least number that has no digits after the point there is no room for any, so that the
// sum is rounded to the nearest whole number, halves to the even one.
double ToWhole(double value) {
  constexpr double kWholeFromHere = 4503599627370496.0;
  const double size = std::fabs(value);
  const double even = (size + kWholeFromHere) - kWholeFromHere;
  const double whole = size - even == 0.5 ? even + 1.0 : even;
  return std::copysign(size < kWholeFromHere ? whole : size, value);
}

}  // namespace

CoordinateGrid::CoordinateGrid(const SpatialReferenceRef& reference)
    : step_(reference->XYResolution()), geographic_(Is<const GeographicCoordinateSystem>(reference)) {}

std::vector<XY> CoordinateGrid::Nearest(std::span<const XY> places) const {
  std::vector<XY> nearest(places.begin(), places.end());
  for (XY& place : nearest) place = {ToWhole(place.x / step_) * step_, ToWhole(place.y / step_) * step_};
  if (!geographic_) return nearest;
  // A pole is kept: a latitude beyond it is one of the other hemisphere to a tangent.
  for (std::size_t index = 0; index < places.size(); ++index) {
    double& latitude = nearest[index].y;
    if (std::fabs(latitude) > kPole && std::fabs(places[index].y) <= kPole) {
      latitude = std::clamp(latitude, -kPole, kPole);
    }
  }
  return nearest;
}

}  // namespace tessarine::engine
