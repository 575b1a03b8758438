// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/measure_coordinates.h"

#include "shapes/MyGeometricOperations.h"

namespace tessarine::measure_coordinates {

namespace shapes = MyGeometricOperations;

namespace {

constexpr double kNoShift = 0.0;

// True for a geographic reference whose unit isn't the degree.
bool HasOtherUnit(const SpatialReferenceRef& reference) {
  const auto geographic = Cast<const GeographicCoordinateSystem>(reference);
  return geographic && geographic->InDegrees();
}

}  // namespace

template <class Shape>
BroughtToDegrees<Shape> GeographicCopy(const Shape& shape, SharedWork& work) {
  ++work.projections;
  Require(Cast<const ProjectedCoordinateSystem>(shape.SpatialReference()), "IProjectedCoordinateSystem");
  std::shared_ptr<Shape> copy = CloneOf(shape);
  shapes::ShapeInDegrees way = shapes::BringToDegrees(*copy);
  copy->Simplify();
  return {copy, std::move(way)};
}

template BroughtToDegrees<Polyline> GeographicCopy(const Polyline&, SharedWork&);
template BroughtToDegrees<Polygon> GeographicCopy(const Polygon&, SharedWork&);

template <class Shape>
std::shared_ptr<Shape> PlanetographicShape(const std::shared_ptr<Shape>& shape, MeasureSettings& settings,
                                           SharedWork& work) {
  std::shared_ptr<Shape> degrees = shape;
  if (HasOtherUnit(shape->SpatialReference())) {
    degrees = CloneOf(*shape);
    shapes::BringToDegrees(*degrees);
  }
  if (!settings.geocentric) return degrees;
  ++work.latitude_conversions;
  const auto converted = Cast<Shape>(
      shapes::FeaturePlanetOCentricToPlanetOGraphic(degrees, settings.semi_major, settings.semi_minor, kNoShift));
  return Require(converted, "planetographic shape");
}

template std::shared_ptr<Multipoint> PlanetographicShape(const std::shared_ptr<Multipoint>&, MeasureSettings&,
                                                         SharedWork&);
template std::shared_ptr<Polyline> PlanetographicShape(const std::shared_ptr<Polyline>&, MeasureSettings&, SharedWork&);
template std::shared_ptr<Polygon> PlanetographicShape(const std::shared_ptr<Polygon>&, MeasureSettings&, SharedWork&);

XY InLatitudesOfData(XY position, MeasureSettings& settings) {
  if (settings.geocentric) {
    const auto graphic = std::make_shared<Point>(position);
    graphic->SetSpatialReference(settings.reference);
    const auto centric = Cast<Point>(
        shapes::FeaturePlanetOGraphicToPlanetOCentric(graphic, settings.semi_major, settings.semi_minor, kNoShift));
    position = Require(centric, "planetocentric point")->Coordinates();
  }
  return HasOtherUnit(settings.reference) ? shapes::FromDegrees(position, settings.reference) : position;
}

XY InProjectionOfLayer(XY position, const MeasureSettings& settings) {
  Require(Cast<const ProjectedCoordinateSystem>(settings.reference), "IProjectedCoordinateSystem");
  return shapes::FromDegrees(position, settings.reference);
}

XY PositionOf(const std::shared_ptr<Point>& point, const char* failure) {
  if (!point || point->IsEmpty()) Raise(kObjectNotSet, failure);
  return point->Coordinates();
}

}  // namespace tessarine::measure_coordinates
