// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/map_topology.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "platform/fault.h"
#include "shapes/angles.h"
#include "shapes/geographic_shape.h"
#include "shapes/spherical_area.h"

namespace tessarine::MyGeometricOperations {
namespace {

constexpr double kTurn = 360.0;

XY MeanOf(std::span<const XY> vertices) {
  XY sum;
  for (const XY vertex : vertices) sum.x += vertex.x, sum.y += vertex.y;
  const auto count = static_cast<double>(vertices.size());
  return {sum.x / count, sum.y / count};
}

bool TurnsOver(XY place, double step, const SpatialReferenceRef& reference) {
  const XY from = ToDegrees(place, reference);
  const XY across = ToDegrees({place.x + step, place.y}, reference);
  const XY up = ToDegrees({place.x, place.y + step}, reference);
  const auto east = [&](XY to) { return std::remainder(to.x - from.x, kTurn); };
  return east(across) * (up.y - from.y) - east(up) * (across.y - from.y) < 0.0;
}

}  // namespace

std::vector<RingRole> RolesOf(const Polygon& polygon) {
  std::vector<RingRole> roles;
  for (const auto& part : polygon.Parts()) {
    roles.push_back(dynamic_cast<const Ring&>(*part).IsExterior() ? RingRole::Exterior : RingRole::Hole);
  }
  return roles;
}

bool IsMirrored(const Polygon& map) {
  thread_local SpatialReferenceRef known;
  thread_local bool mirrored = false;
  if (known == map.SpatialReference()) return mirrored;
  const Envelope extent = map.Envelope();
  const XY place = map.Parts().front()->FromPoint();
  const double reach = std::max({std::fabs(place.x), std::fabs(place.y), extent.Width(), extent.Height()});
  // Far above the rounding of coordinates, far below what any projection bends.
  constexpr double kSmallShare = 1e-7;
  mirrored = TurnsOver(place, reach * kSmallShare, map.SpatialReference());
  known = map.SpatialReference();
  return mirrored;
}

bool PlaneMisleads(const Polygon& degrees, const std::vector<RingRole>& roles) {
  if (roles.empty()) return false;
  for (std::size_t index = 0; index < roles.size(); ++index) {
    const double area = dynamic_cast<const Ring&>(*degrees.Parts()[index]).Area();
    if (area == 0.0 || (area > 0.0) != (roles[index] == RingRole::Exterior)) return true;
  }
  if (!degrees.HasArea()) return true;
  const XY centre = degrees.Centroid();
  const Envelope extent = degrees.Envelope();
  return !(centre.x >= extent.XMin() && centre.x <= extent.XMax() && centre.y >= extent.YMin() &&
           centre.y <= extent.YMax());
}

AreaOnSphere SphericalAreaOfRings(const Polygon& degrees, double semi_major, double semi_minor) {
  geodesy::SphericalAreaSum sum = ReportingAreaSum(semi_major, semi_minor, geodesy::AreaWish::WithCentroid);
  for (const auto& ring : degrees.Parts()) {
    if (!ring->Vertices().empty()) AddRing(sum, ring->Vertices(), MeanOf(ring->Vertices()));
  }
  return {sum.Area(), sum.Centroid().value_or(XY{kNoValue, kNoValue})};
}

}  // namespace tessarine::MyGeometricOperations
