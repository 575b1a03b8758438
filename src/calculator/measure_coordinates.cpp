#include "calculator/measure_coordinates.h"

#include "geodesy/MyGeometricOperations.h"

namespace tessarine::measure_coordinates {

namespace geodesy = MyGeometricOperations;

namespace {

constexpr double kNoShift = 0.0;

}  // namespace

SpatialReferenceRef GeographicSystemOf(const IGeometry& shape) {
  const auto projected = Cast<const ProjectedCoordinateSystem>(shape.SpatialReference());
  return Require(Require(projected, "IProjectedCoordinateSystem")->GeographicCoordinateSystem(),
                 "IGeographicCoordinateSystem");
}

template <class Shape>
std::shared_ptr<Shape> PlanetographicShape(const std::shared_ptr<Shape>& shape, MeasureSettings& settings,
                                           SharedWork& work) {
  if (!settings.Geocentric) return shape;
  ++work.LatitudeConversions;
  const auto converted = Cast<Shape>(
      geodesy::FeaturePlanetOCentricToPlanetOGraphic(shape, settings.SemiMajor, settings.SemiMinor, kNoShift));
  return Require(converted, "planetographic shape");
}

template std::shared_ptr<Multipoint> PlanetographicShape(const std::shared_ptr<Multipoint>&, MeasureSettings&,
                                                         SharedWork&);
template std::shared_ptr<Polyline> PlanetographicShape(const std::shared_ptr<Polyline>&, MeasureSettings&, SharedWork&);
template std::shared_ptr<Polygon> PlanetographicShape(const std::shared_ptr<Polygon>&, MeasureSettings&, SharedWork&);

XY InLatitudesOfData(XY position, MeasureSettings& settings) {
  if (!settings.Geocentric) return position;
  const auto graphic = std::make_shared<Point>(position);
  graphic->SetSpatialReference(settings.Reference);
  const auto centric = Cast<Point>(
      geodesy::FeaturePlanetOGraphicToPlanetOCentric(graphic, settings.SemiMajor, settings.SemiMinor, kNoShift));
  return Require(centric, "planetocentric point")->Coordinates();
}

XY InProjectionOfLayer(XY position, const SpatialReferenceRef& geographic, const MeasureSettings& settings) {
  Point point(position);
  point.SetSpatialReference(geographic);
  point.Project(Require(settings.Reference, "IProjectedCoordinateSystem"));
  return point.Coordinates();
}

XY PositionOf(const std::shared_ptr<Point>& point, const char* failure) {
  if (!point || point->IsEmpty()) Raise(kObjectNotSet, failure);
  return point->Coordinates();
}

}  // namespace tessarine::measure_coordinates
