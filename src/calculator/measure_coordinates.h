// Ways between a layer's coordinates and the planetographic longitudes and latitudes that spheroidal measures need.
#pragma once

#include <memory>

#include "calculator/measures.h"
#include "platform/geometry.h"

namespace tessarine::measure_coordinates {

/// The geographic reference beneath the projection of a shape; fault 91 when the shape isn't projected.
[[nodiscard]] SpatialReferenceRef GeographicSystemOf(const IGeometry& shape);

/// A simplified copy of a projected line or polygon in longitudes and latitudes.
template <class Shape>
[[nodiscard]] std::shared_ptr<Shape> GeographicCopy(const Shape& shape, SharedWork& work) {
  ++work.Projections;
  const std::shared_ptr<Shape> copy = CloneOf(shape);
  copy->Project(GeographicSystemOf(shape));
  copy->Simplify();
  return copy;
}

/// The shape itself, or a copy with planetographic latitudes when the data's own are planetocentric.
template <class Shape>
[[nodiscard]] std::shared_ptr<Shape> PlanetographicShape(const std::shared_ptr<Shape>& shape, MeasureSettings& settings,
                                                         SharedWork& work);

/// A planetographic position in the latitudes of the data.
[[nodiscard]] XY InLatitudesOfData(XY position, MeasureSettings& settings);

/// A position in longitude and latitude, brought to the projection of the layer.
[[nodiscard]] XY InProjectionOfLayer(XY position, const SpatialReferenceRef& geographic,
                                     const MeasureSettings& settings);

/// The coordinates of a point that a routine found; a fault with the text for a null or empty one.
[[nodiscard]] XY PositionOf(const std::shared_ptr<Point>& point, const char* failure);

}  // namespace tessarine::measure_coordinates
