// SPDX-License-Identifier: GPL-2.0-or-later
// Ways between a layer's coordinates and the planetographic longitudes and latitudes, in degrees, that spheroidal
// measures need.
#pragma once

#include <memory>

#include "calculator/measures.h"
#include "platform/geometry.h"
#include "shapes/geographic_shape.h"

namespace tessarine::measure_coordinates {

/// A projected line or polygon in longitudes and latitudes.
template <class Shape>
struct BroughtToDegrees {
  std::shared_ptr<Shape> shape;  ///< simplified; its rings are whole, as `BringToDegrees` makes them
  MyGeometricOperations::ShapeInDegrees way;
};
template <class Shape>
[[nodiscard]] BroughtToDegrees<Shape> GeographicCopy(const Shape& shape, SharedWork& work);

/// A shape of a geographic layer with planetographic latitudes in degrees: the shape itself where it has them already,
/// otherwise a copy.
template <class Shape>
[[nodiscard]] std::shared_ptr<Shape> PlanetographicShape(const std::shared_ptr<Shape>& shape, MeasureSettings& settings,
                                                         SharedWork& work);

/// A planetographic position of a geographic layer in the latitudes and the unit of the data.
[[nodiscard]] XY InLatitudesOfData(XY position, MeasureSettings& settings);

/// A position in longitude and latitude, brought to the projection of the layer. Fault 91 when the layer has none.
[[nodiscard]] XY InProjectionOfLayer(XY position, const MeasureSettings& settings);

/// The coordinates of a point that a routine found; a fault with the text for a null or empty one.
[[nodiscard]] XY PositionOf(const std::shared_ptr<Point>& point, const char* failure);

}  // namespace tessarine::measure_coordinates
