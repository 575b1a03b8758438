// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/finite_shape.h"

#include <algorithm>
#include <cmath>

namespace tessarine {
namespace {

bool IsFinite(XY place) { return std::isfinite(place.x) && std::isfinite(place.y); }

bool IsFinite(const Path& path) {
  return std::ranges::all_of(path.Vertices(), [](XY vertex) { return IsFinite(vertex); }) &&
         std::ranges::all_of(path.Curves(), [](const Path::CurveAt& curve) {
           return IsFinite(curve.segment.QueryPoint(esriNoExtension, 0.5, true));
         });
}

}  // namespace

bool HasOnlyFiniteCoordinates(const IGeometry& shape) {
  if (const auto* point = dynamic_cast<const Point*>(&shape)) return point->IsEmpty() || IsFinite(point->Coordinates());
  if (const auto* points = dynamic_cast<const Multipoint*>(&shape)) {
    return std::ranges::all_of(points->Vertices(), [](XY place) { return IsFinite(place); });
  }
  if (const auto* path = dynamic_cast<const Path*>(&shape)) return IsFinite(*path);
  if (const auto* parted = dynamic_cast<const PartedShape*>(&shape)) {
    return std::ranges::all_of(parted->Parts(), [](const auto& part) { return IsFinite(*part); });
  }
  return true;
}

}  // namespace tessarine
