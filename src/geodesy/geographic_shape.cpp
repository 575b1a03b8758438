// SPDX-License-Identifier: GPL-2.0-or-later
#include "geodesy/geographic_shape.h"

#include "geodesy/spikes.h"
#include "geodesy/torn_rings.h"
#include "platform/fault.h"

namespace tessarine::MyGeometricOperations {
std::shared_ptr<const GeographicCoordinateSystem> DegreesOf(const SpatialReferenceRef& reference) {
  const auto geographic = GeographicOf(reference);
  return geographic && geographic->InDegrees() ? geographic->InDegrees() : geographic;
}

ShapeInDegrees BringToDegrees(IGeometry& shape) {
  const SpatialReferenceRef own = shape.SpatialReference();
  const SpatialReferenceRef degrees = Require(DegreesOf(own), "IGeographicCoordinateSystem");
  if (own == degrees) return {};
  auto* polygon = dynamic_cast<Polygon*>(&shape);
  const bool projected = Is<const ProjectedCoordinateSystem>(own);
  const std::shared_ptr<Polygon> map = polygon != nullptr && projected ? CloneOf(*polygon) : nullptr;
  shape.Project(degrees);
  if (!map) return {};
  MendedRings mended = MendTornRings(*polygon, *map);
  // By its area on the map a ring over the edge of the map may run the wrong way.
  if (!MarkSimpleButForSpikes(*polygon)) polygon->Simplify();
  return {mended.torn_on_map, std::move(mended.seams)};
}

XY ToDegrees(XY position, const SpatialReferenceRef& layer) {
  Point point(position);
  point.SetSpatialReference(layer);
  BringToDegrees(point);
  return point.Coordinates();
}

XY FromDegrees(XY position, const SpatialReferenceRef& layer) {
  const SpatialReferenceRef degrees = Require(DegreesOf(layer), "IGeographicCoordinateSystem");
  if (degrees == layer) return position;
  Point point(position);
  point.SetSpatialReference(degrees);
  point.Project(layer);
  return point.Coordinates();
}

}  // namespace tessarine::MyGeometricOperations
