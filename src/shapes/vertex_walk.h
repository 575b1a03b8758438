// SPDX-License-Identifier: GPL-2.0-or-later
// The copy of a shape with every vertex moved, for the routines that change coordinates and nothing else.
#pragma once

#include "platform/fault.h"
#include "platform/geometry.h"

namespace tessarine::MyGeometricOperations {

/// A copy of a point, polyline, polygon or multipoint, with `move(XY) -> XY` applied to each vertex in order. The copy
/// bears the reference of its source, which stays as it is. Null for a shape of any other type.
template <class MoveVertex>
[[nodiscard]] GeometryRef CopyWithVertices(const IGeometry& geometry, MoveVertex&& move) {
  switch (geometry.GeometryType()) {
    case esriGeometryPoint: {
      const auto& source = dynamic_cast<const Point&>(geometry);
      const auto copy = std::make_shared<Point>();
      copy->SetSpatialReference(source.SpatialReference());
      if (source.IsEmpty()) return copy;
      const XY moved = move(source.Coordinates());
      copy->PutCoords(moved.x, moved.y);
      return copy;
    }
    case esriGeometryPolyline:
    case esriGeometryPolygon:
    case esriGeometryMultipoint: {
      GeometryRef copy = CloneOf(geometry);
      const auto vertices = Require(Cast<IPointCollection>(copy), "IPointCollection")->EnumVertices();
      Point scratch;
      std::int32_t part = 0, vertex = 0;
      vertices->Reset();
      while (true) {
        vertices->QueryNext(scratch, part, vertex);
        if (vertex < 0) return copy;
        const XY moved = move(scratch.Coordinates());
        vertices->SetY(moved.y);
        vertices->SetX(moved.x);
      }
    }
    default:
      return nullptr;
  }
}

}  // namespace tessarine::MyGeometricOperations
