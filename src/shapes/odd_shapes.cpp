// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/odd_shapes.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tessarine::MyGeometricOperations {
namespace {

constexpr double kPole = 90.0 + 1e-9;
constexpr double kHalfTurn = 180.0;

}  // namespace

bool LiesBeyondPole(const IGeometry& degrees) {
  if (degrees.IsEmpty()) return false;
  const Envelope extent = degrees.Envelope();
  return extent.YMin() < -kPole || extent.YMax() > kPole;
}

bool LiesFarFrom(const AreaOfUse& area, const IGeometry& degrees) {
  constexpr double kFar = 30.0, kTurn = 360.0, kRadians = std::numbers::pi / 180.0;
  if (degrees.IsEmpty()) return false;
  const double half_width = (area.east - area.west + (area.east < area.west ? kTurn : 0.0)) / 2.0;
  const double middle = area.west + half_width;
  const Envelope extent = degrees.Envelope();
  for (const double latitude : {extent.YMin(), extent.YMax()}) {
    for (const double longitude : {extent.XMin(), extent.XMax()}) {
      const double beside = std::fabs(std::remainder(longitude - middle, kTurn)) - half_width;
      if (beside * std::cos(latitude * kRadians) > kFar) return true;
    }
  }
  return false;
}

bool HasWideRing(const Polygon& polygon) {
  return std::ranges::any_of(polygon.Parts(), [](const auto& part) { return part->Envelope().Width() > kHalfTurn; });
}

bool HasLobes(const Polygon& polygon) {
  if (polygon.IsKnownSimple() || (polygon.GeometryCount() == 1 && polygon.IsSimple())) return false;
  const std::shared_ptr<GeometryBag> components = polygon.ConnectedComponentBag();
  for (std::int32_t index = 0; index < components->GeometryCount(); ++index) {
    const auto component = Cast<Polygon>(components->Geometry(index));
    if (component->IsSimple()) continue;
    component->Simplify();
    if (component->ExteriorRingCount() > 1) return true;
  }
  return false;
}

}  // namespace tessarine::MyGeometricOperations
