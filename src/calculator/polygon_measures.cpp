#include "calculator/polygon_measures.h"

#include "calculator/measure_coordinates.h"
#include "geodesy/MyGeometricOperations.h"

namespace tessarine {

namespace geodesy = MyGeometricOperations;
using namespace measure_coordinates;

PolygonRecord::PolygonRecord(std::shared_ptr<Polygon> shape, MeasureSettings& settings)
    : MeasureRecord(settings), shape_(std::move(shape)) {
  if (settings.Kind == SpatialKind::Geographic) geographic_ = PlanetographicShape(shape_, settings_, work_);
}

double PolygonRecord::Area() const { return shape_->Area(); }

XY PolygonRecord::Centroid() const { return shape_->Centroid(); }

double PolygonRecord::Perimeter() const { return shape_->Length(); }

std::int32_t PolygonRecord::PartCount() const { return shape_->ExteriorRingCount(); }

std::int32_t PolygonRecord::VertexCount() const { return shape_->PointCount(); }

double PolygonRecord::SphericalArea() {
  if (spherical_area_ < 0.0) MeasureArea();
  return spherical_area_;
}

double PolygonRecord::SpheroidalPerimeter() {
  const std::shared_ptr<Polygon>& polygon = GeographicPolygon();
  // A single simple ring becomes the only path of the polyline as it stands.
  if (polygon->GeometryCount() == 1 && !polygon->HasCurves() && polygon->IsSimple()) {
    return geodesy::SpheroidalPolylineLength2(polygon->Parts().front()->Vertices(), settings_.SemiMajor,
                                              settings_.SemiMinor);
  }
  return geodesy::SpheroidalPolylineLength2(geodesy::PolygonToPolyline(polygon), settings_.SemiMajor,
                                            settings_.SemiMinor);
}

XY PolygonRecord::ProjectedSphericalCentroid() {
  FindCentroid();
  return HasCentroid() ? InProjectionOfLayer(centroid_, GeographicSystemOf(*shape_), settings_) : centroid_;
}

XY PolygonRecord::SphericalCentroid() {
  FindCentroid();
  return HasCentroid() ? InLatitudesOfData(centroid_, settings_) : centroid_;
}

const std::shared_ptr<Polygon>& PolygonRecord::GeographicPolygon() {
  if (!geographic_) geographic_ = GeographicCopy(*shape_, work_);
  return geographic_;
}

void PolygonRecord::MeasureArea() {
  const std::shared_ptr<Polygon>& polygon = GeographicPolygon();
  ++work_.AreaPasses;
  spherical_area_ =
      geodesy::SphericalPolygonArea2(polygon, true, centroid_.x, centroid_.y, settings_.SemiMajor, settings_.SemiMinor);
}

// The signs tell whether the centroid is known. One to the west or south fails the test and is found a second time, to
// the same result: the plain rule costs time there, never correctness.
void PolygonRecord::FindCentroid() {
  if (centroid_.x >= 0.0 && centroid_.y >= 0.0) return;
  MeasureArea();
}

bool PolygonRecord::HasCentroid() const { return centroid_ != XY{kNullMark, kNullMark}; }

}  // namespace tessarine
