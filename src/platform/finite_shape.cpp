// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/finite_shape.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

#include "platform/exact_class.h"

namespace tessarine {
namespace {

bool AreWithin(XY place, double farthest) { return std::fabs(place.x) <= farthest && std::fabs(place.y) <= farthest; }

bool AreWithin(std::span<const XY> places, double farthest) {
  return std::ranges::all_of(places, [&](XY place) { return AreWithin(place, farthest); });
}

bool AreWithin(const Path& path, double farthest) {
  return AreWithin(path.Vertices(), farthest) && std::ranges::all_of(path.Curves(), [&](const Path::CurveAt& curve) {
           return AreWithin(curve.segment.QueryPoint(esriNoExtension, 0.5, true), farthest);
         });
}

bool AreWithin(const IGeometry& shape, double farthest) {
  // Casts are dear: each is tried only where it will do.
  switch (shape.GeometryType()) {
    case esriGeometryPoint: {
      const auto& point = dynamic_cast<const Point&>(shape);
      return point.IsEmpty() || AreWithin(point.Coordinates(), farthest);
    }
    case esriGeometryMultipoint:
      return AreWithin(dynamic_cast<const Multipoint&>(shape).Vertices(), farthest);
    case esriGeometryPath:
    case esriGeometryRing:
      return AreWithin(dynamic_cast<const Path&>(shape), farthest);
    case esriGeometryPolyline:
    case esriGeometryPolygon:
      return std::ranges::all_of(PartedShapeOf(shape)->Parts(),
                                 [&](const auto& part) { return AreWithin(*part, farthest); });
    default:
      return true;
  }
}

}  // namespace

bool HasOnlyFiniteCoordinates(const IGeometry& shape) { return AreWithin(shape, std::numeric_limits<double>::max()); }

bool CanMeetOthers(const IGeometry& shape) { return AreWithin(shape, kFarthestCoordinate); }

}  // namespace tessarine
