// SPDX-License-Identifier: GPL-2.0-or-later
// Centres on the curved body, in degrees of longitude and latitude.
#include <algorithm>
#include <cmath>
#include <span>

#include "conversion/point_output.h"
#include "conversion/steps.h"
#include "shapes/MyGeometricOperations.h"
#include "shapes/odd_shapes.h"

namespace tessarine {
namespace {

namespace shapes = MyGeometricOperations;

constexpr std::string_view kNotAboveZero =
    "Polygons whose spherical area comes out as 0 or less have no spherical centroid: their rings are more than 180 "
    "degrees of longitude wide, or run otherwise on the sphere than on the map.";
constexpr std::string_view kNoLength = "Lines without length have no middle.";
constexpr std::string_view kBeyondPole = "A latitude lies beyond a pole: the point is that of some other place.";
constexpr std::string_view kLobes =
    "A ring crosses itself: its lobes count by the way they run, so that the point may lie outside of them.";
// The minor axis that the lengths of a polyline's segments are measured with.
constexpr double kSegmentSemiMinor = geodesy::kWgs1984.semi_minor;

constexpr double kTurn = 360.0;

// Whether the line goes anywhere: a whole turn of longitude doesn't.
bool HasLength(const Polyline& line) {
  return std::ranges::any_of(line.Parts(), [](const auto& part) {
    const std::span<const XY> vertices = part->Vertices();
    return std::ranges::any_of(vertices, [&](XY vertex) {
      return vertex.y != vertices.front().y || std::remainder(vertex.x - vertices.front().x, kTurn) != 0.0;
    });
  });
}

class SphericalCentroidStep final : public ConversionStep {
 public:
  explicit SphericalCentroidStep(const StepContext& context)
      : input_(context.input_type), reference_(context.reference), geographic_(context.output_reference) {
    const auto system = Cast<const GeographicCoordinateSystem>(geographic_);
    const auto& spheroid = Require(system, "IGeographicCoordinateSystem")->Datum()->Spheroid();
    semi_major_ = Require(spheroid, "ISpheroid")->SemiMajorAxis();
    semi_minor_ = spheroid->SemiMinorAxis();
  }

  [[nodiscard]] bool IsPure() const override { return true; }
  void Convert(const GeometryRef& shape, ConversionSink& sink) override {
    if (!IsCentred()) {
      sink.InsertUnnumbered();
      return;
    }
    shape->SetSpatialReference(reference_);
    const std::vector<shapes::RingRole> roles = shapes::BringToDegrees(*shape).roles;
    if (shapes::LiesBeyondPole(*shape)) sink.Warn(kBeyondPole);
    const auto polygon = Cast<Polygon>(shape);
    if (polygon && shapes::HasLobes(*polygon)) sink.Warn(kLobes);
    const std::shared_ptr<Point> center = CenterOf(shape, roles);
    if (!center && polygon) return sink.Skip(polygon->HasArea() ? kNotAboveZero : kNoArea);
    if (!center && input_ == esriGeometryPolyline) return sink.Skip(kNoLength);
    Require(center, "IPoint");
    if (center->IsEmpty()) Raise(kObjectNotSet, "The centre of the feature can't be computed.");
    const XY degrees = center->Coordinates();
    const XY position = shapes::FromDegrees(degrees, geographic_);
    center->PutCoords(position.x, position.y);
    center->SetSpatialReference(geographic_);
    // The fields tell degrees, whatever unit the reference counts in.
    InsertPoint(center, degrees, sink);
  }

 private:
  [[nodiscard]] bool IsCentred() const {
    return input_ == esriGeometryPolygon || input_ == esriGeometryPolyline || input_ == esriGeometryMultipoint;
  }

  [[nodiscard]] std::shared_ptr<Point> CenterOf(const GeometryRef& shape,
                                                const std::vector<shapes::RingRole>& roles) const {
    switch (input_) {
      case esriGeometryPolygon:
        return PolygonCenter(Cast<Polygon>(shape), roles);
      case esriGeometryPolyline:
        return LineCenter(Cast<Polyline>(shape));
      default:
        return shapes::MultipointCentroidSpheroid(Cast<IPointCollection>(shape), semi_major_, semi_minor_, 0.0);
    }
  }

  // Null where there is no area that a centre could be of.
  [[nodiscard]] std::shared_ptr<Point> PolygonCenter(const std::shared_ptr<Polygon>& polygon,
                                                     const std::vector<shapes::RingRole>& roles) const {
    if (shapes::PlaneMisleads(*polygon, roles)) {
      const shapes::AreaOnSphere found = shapes::SphericalAreaOfRings(*polygon, semi_major_, semi_minor_);
      return found.area > 0.0 ? std::make_shared<Point>(found.centroid) : nullptr;
    }
    double longitude = 0.0, latitude = 0.0;
    const double area = shapes::SphericalPolygonArea2(polygon, true, longitude, latitude, semi_major_, semi_minor_);
    return area > 0.0 ? std::make_shared<Point>(longitude, latitude) : nullptr;
  }

  // The tool is defined so: its segments are measured with the minor axis in the place of the major one, and a fixed
  // one in the place of the minor. With the axes in their own places, the middle of a line would be another.
  [[nodiscard]] std::shared_ptr<Point> LineCenter(const std::shared_ptr<Polyline>& line) const {
    if (!HasLength(*line)) return nullptr;
    double position = 0.5, length = 0.0;
    return shapes::SpheroidalPolylineMidpoint2(line, position, true, length, semi_minor_, kSegmentSemiMinor);
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
