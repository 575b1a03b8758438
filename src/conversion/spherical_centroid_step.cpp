// SPDX-License-Identifier: GPL-2.0-or-later
// Centres on the curved body, in degrees of longitude and latitude.
#include "conversion/point_output.h"
#include "conversion/steps.h"
#include "geodesy/MyGeometricOperations.h"

namespace tessarine {
namespace {

namespace geodesy = MyGeometricOperations;

constexpr std::string_view kTooWide =
    "Polygons with rings more than 180 degrees of longitude wide have no spherical centroid where their spherical area "
    "comes out as 0 or less.";
// The minor axis that the lengths of a polyline's segments are measured with.
constexpr double kSegmentSemiMinor = 6356752.31424518;

class SphericalCentroidStep final : public ConversionStep {
 public:
  explicit SphericalCentroidStep(const StepContext& context)
      : input_(context.InputType), reference_(context.Reference), geographic_(context.OutputReference) {
    const auto system = Cast<const GeographicCoordinateSystem>(geographic_);
    const auto& spheroid = Require(system, "IGeographicCoordinateSystem")->Datum()->Spheroid();
    semi_major_ = Require(spheroid, "ISpheroid")->SemiMajorAxis();
    semi_minor_ = spheroid->SemiMinorAxis();
  }

  void Convert(const GeometryRef& shape, ConversionSink& sink) override {
    if (!IsCentred()) {
      sink.InsertUnnumbered();
      return;
    }
    shape->SetSpatialReference(reference_);
    geodesy::BringToDegrees(*shape);
    const std::shared_ptr<Point> center = CenterOf(shape);
    if (!center && input_ == esriGeometryPolygon)
      return sink.Skip(Cast<Polygon>(shape)->HasArea() ? kTooWide : kNoArea);
    Require(center, "IPoint");
    if (center->IsEmpty()) Raise(kObjectNotSet, "The centre of the feature can't be computed.");
    const XY degrees = center->Coordinates();
    const XY position = geodesy::FromDegrees(degrees, geographic_);
    center->PutCoords(position.x, position.y);
    center->SetSpatialReference(geographic_);
    // The fields tell degrees, whatever unit the reference counts in.
    InsertPoint(center, degrees, sink);
  }

 private:
  [[nodiscard]] bool IsCentred() const {
    return input_ == esriGeometryPolygon || input_ == esriGeometryPolyline || input_ == esriGeometryMultipoint;
  }

  [[nodiscard]] std::shared_ptr<Point> CenterOf(const GeometryRef& shape) {
    switch (input_) {
      case esriGeometryPolygon:
        return PolygonCenter(Cast<Polygon>(shape));
      case esriGeometryPolyline:
        return LineCenter(Cast<Polyline>(shape));
      default:
        return geodesy::MultipointCentroidSpheroid(Cast<IPointCollection>(shape), semi_major_, semi_minor_, 0.0);
    }
  }

  // Nothing where there is no area that a centre could be of.
  [[nodiscard]] std::shared_ptr<Point> PolygonCenter(const std::shared_ptr<Polygon>& polygon) const {
    double longitude = 0.0, latitude = 0.0;
    const double area = geodesy::SphericalPolygonArea2(polygon, true, longitude, latitude, semi_major_, semi_minor_);
    return area > 0.0 ? std::make_shared<Point>(longitude, latitude) : nullptr;
  }

  // The axes stand one place too early: the length of the line goes to the major axis, and the segments are measured
  // with the minor axis as the major one. Results that are compared over the years depend on it.
  [[nodiscard]] std::shared_ptr<Point> LineCenter(const std::shared_ptr<Polyline>& line) {
    double position = 0.5;
    return geodesy::SpheroidalPolylineMidpoint2(line, position, true, semi_major_, semi_minor_, kSegmentSemiMinor);
  }

  esriGeometryType input_;
  SpatialReferenceRef reference_, geographic_;
  double semi_major_ = 0.0, semi_minor_ = 0.0;
};

}  // namespace

std::unique_ptr<ConversionStep> MakeSphericalCentroidStep(const StepContext& context) {
  return std::make_unique<SphericalCentroidStep>(context);
}

}  // namespace tessarine
