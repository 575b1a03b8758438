// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/finite_shape.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tessarine {
namespace {

bool AreWithin(XY place, double farthest) { return std::fabs(place.x) <= farthest && std::fabs(place.y) <= farthest; }

bool AreWithin(const Path& path, double farthest) {
  return std::ranges::all_of(path.Vertices(), [&](XY vertex) { return AreWithin(vertex, farthest); }) &&
         std::ranges::all_of(path.Curves(), [&](const Path::CurveAt& curve) {
           return AreWithin(curve.segment.QueryPoint(esriNoExtension, 0.5, true), farthest);
         });
}

bool AreWithin(const IGeometry& shape, double farthest) {
  if (const auto* point = dynamic_cast<const Point*>(&shape))
    return point->IsEmpty() || AreWithin(point->Coordinates(), farthest);
  if (const auto* points = dynamic_cast<const Multipoint*>(&shape)) {
    return std::ranges::all_of(points->Vertices(), [&](XY place) { return AreWithin(place, farthest); });
  }
  if (const auto* path = dynamic_cast<const Path*>(&shape)) return AreWithin(*path, farthest);
  if (const auto* parted = dynamic_cast<const PartedShape*>(&shape)) {
    return std::ranges::all_of(parted->Parts(), [&](const auto& part) { return AreWithin(*part, farthest); });
  }
  return true;
}

}  // namespace

bool HasOnlyFiniteCoordinates(const IGeometry& shape) { return AreWithin(shape, std::numeric_limits<double>::max()); }

bool CanMeetOthers(const IGeometry& shape) { return AreWithin(shape, kFarthestCoordinate); }

}  // namespace tessarine
