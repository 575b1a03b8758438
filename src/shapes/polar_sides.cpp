// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/polar_sides.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "geodesy/longitude_continuation.h"
#include "platform/fault.h"

namespace tessarine::MyGeometricOperations {
namespace {

constexpr double kPole = 90.0;
constexpr double kTurn = 360.0;
constexpr double kHalfTurn = 180.0;
constexpr double kRounding = 1e-9;
// What the longitudes near a pole are off from a half turn for a side that passes it within rounding.
constexpr double kNearlyHalf = 1e-5;

bool AreHalfATurnApart(XY from, XY to) {
  const double step = std::fabs(std::remainder(to.x - from.x, kTurn));
  return kHalfTurn - step <= kNearlyHalf && !geodesy::IsAtPole(from) && !geodesy::IsAtPole(to);
}

// Whether a place lies on the straight side, between its ends.
bool LiesOn(XY place, XY from, XY to) {
  const double x = to.x - from.x, y = to.y - from.y, length = std::hypot(x, y);
  const double along = ((place.x - from.x) * x + (place.y - from.y) * y) / length;
  const double beside = ((place.x - from.x) * y - (place.y - from.y) * x) / length;
  return along > 0.0 && along < length && std::fabs(beside) <= kRounding * length;
}

struct PoleOnSide {
  double latitude;
  XY on_map;
};

std::optional<PoleOnSide> PoleOn(XY map_from, XY map_to, XY from, const PolesOnMap& poles) {
  for (const double latitude : {kPole, -kPole}) {
    const std::optional<XY> place = poles.Of(from.x, latitude);
    if (place && LiesOn(*place, map_from, map_to)) return PoleOnSide{latitude, *place};
  }
  return std::nullopt;
}

}  // namespace

bool HasHalfTurn(std::span<const XY> degrees) {
  for (std::size_t index = 1; index < degrees.size(); ++index) {
    if (AreHalfATurnApart(degrees[index - 1], degrees[index])) return true;
  }
  return false;
}

std::optional<XY> PolesOnMap::Of(double longitude, double latitude) const {
  Point pole(longitude, latitude);
  pole.SetSpatialReference(degrees_);
  try {
    pole.Project(projection_);
  } catch (const Fault&) {
    return std::nullopt;
  }
  return std::isfinite(pole.X()) && std::isfinite(pole.Y()) ? std::optional(pole.Coordinates()) : std::nullopt;
}

bool PutPolesIntoSides(std::shared_ptr<const Path>& map, std::vector<XY>& degrees, const PolesOnMap& poles) {
  if (!HasHalfTurn(degrees)) return false;
  const std::span<const XY> on_map = map->Vertices();
  std::vector<XY> led{degrees.front()}, led_on_map{on_map.front()};
  for (std::size_t index = 1; index < degrees.size(); ++index) {
    const XY from = degrees[index - 1], to = degrees[index];
    if (AreHalfATurnApart(from, to)) {
      if (const auto pole = PoleOn(on_map[index - 1], on_map[index], from, poles)) {
        led.insert(led.end(), {{from.x, pole->latitude}, {to.x, pole->latitude}});
        led_on_map.insert(led_on_map.end(), 2, pole->on_map);
      }
    }
    led.push_back(to);
    led_on_map.push_back(on_map[index]);
  }
  if (led.size() == degrees.size()) return false;
  degrees = std::move(led);
  map = std::make_shared<Ring>(std::move(led_on_map));
  return true;
}

}  // namespace tessarine::MyGeometricOperations
