// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/clsShapeMeasures.h"

#include <cmath>

#include "calculator/measures.h"
#include "calculator/polygon_measures.h"
#include "calculator/polyline_measures.h"
#include "calculator/unattended_run.h"
#include "geodesy/longitude_continuation.h"
#include "geodesy/segment_lengths.h"
#include "platform/exact_geodesy.h"
#include "shapes/MyGeometricOperations.h"

namespace tessarine {
namespace {

using geodesy::Figure;

constexpr double kPole = 90.0;
constexpr double kOnePlace = 1e-8;  // metres

// Looking it up costs more than most measures, and the shapes of a layer share their reference.
std::optional<AreaOfUse> KeptAreaOfUse(const SpatialReferenceRef& reference) {
  thread_local SpatialReferenceRef last;
  thread_local std::optional<AreaOfUse> area;
  if (last != reference) {
    area = AreaOfUseOf(*reference);
    last = reference;
  }
  return area;
}

/// One shape on its way through the calculator's measures.
class OneShape {
 public:
  OneShape(const IGeometry& shape, double semi_major, double semi_minor) {
    settings_.shape = shape.GeometryType();
    settings_.reference = shape.SpatialReference();
    settings_.kind = SpatialKindOf(settings_.reference);
    settings_.semi_major = semi_major;
    settings_.semi_minor = semi_minor;
    if (settings_.kind == SpatialKind::Unknown) {
      Raise(kInvalidCall, "The shape has no reference that is geographic or projected.");
    }
    if (settings_.kind == SpatialKind::Projected) settings_.area = KeptAreaOfUse(settings_.reference);
    record_ = BeginRecord(Cast<IGeometry>(shape.Clone()), settings_);
  }

  /// Fault 13 for a shape of another type.
  template <class Record>
  [[nodiscard]] Record& As() {
    auto* record = dynamic_cast<Record*>(record_.get());
    if (record == nullptr) Raise(kTypeMismatch, "A shape of this type has no such measure.");
    return *record;
  }
  [[nodiscard]] bool IsPolygon() const { return settings_.shape == esriGeometryPolygon; }
  [[nodiscard]] bool IsProjected() const { return settings_.kind == SpatialKind::Projected; }

  [[nodiscard]] MeasureNotes Notes() const {
    MeasureNotes notes;
    for (const MeasureWarning warning : record_->Warnings()) notes.push_back(WarningText(warning));
    return notes;
  }

 private:
  MeasureSettings settings_;
  std::unique_ptr<MeasureRecord> record_;
};

void CheckLatitude(XY position) {
  if (!(std::fabs(position.y) <= kPole)) Raise(kInvalidCall, "A latitude lies beyond a pole.");
}

// The series has no solution for all pairs; the exact method has.
std::optional<geodesy::GeodesicLine> BySeries(XY from, XY to, const Figure& figure) {
  try {
    const geodesy::GeodesicLine line = geodesy::InverseOfSegment(from, to, figure);
    return line.converged ? std::optional(line) : std::nullopt;
  } catch (const Fault&) {
    return std::nullopt;
  }
}

}  // namespace

MeasuredValue clsShapeMeasures::Length(const IGeometry& shape, double semi_major, double semi_minor) const {
  return Unattended([&]() -> MeasuredValue {
    OneShape one(shape, semi_major, semi_minor);
    const double length =
        one.IsPolygon() ? one.As<PolygonRecord>().SpheroidalPerimeter() : one.As<PolylineRecord>().SpheroidalLength();
    return {length, one.Notes()};
  });
}

MeasuredValue clsShapeMeasures::Area(const IGeometry& shape, double semi_major, double semi_minor) const {
  return Unattended([&]() -> MeasuredValue {
    OneShape one(shape, semi_major, semi_minor);
    const double area = one.As<PolygonRecord>().SpheroidalArea();
    return {area, one.Notes()};
  });
}

MeasuredPosition clsShapeMeasures::Midpoint(const IGeometry& shape, double semi_major, double semi_minor) const {
  return Unattended([&]() -> MeasuredPosition {
    OneShape one(shape, semi_major, semi_minor);
    auto& line = one.As<PolylineRecord>();
    const XY middle = one.IsProjected() ? line.ProjectedSpheroidalMidpoint() : line.SpheroidalMidpoint();
    return {middle, one.Notes()};
  });
}

MeasuredLeg clsShapeMeasures::Leg(XY from, XY to, double semi_major, double semi_minor) const {
  CheckLatitude(from);
  CheckLatitude(to);
  const Figure figure = Figure::FromAxes(semi_major, semi_minor);
  MeasuredLeg leg;
  if (const auto line = BySeries(from, to, figure)) {
    leg = {line->distance, line->azimuth1, line->azimuth2, {}};
    if (geodesy::IsSeriesRough(figure)) leg.notes.push_back(WarningText(MeasureWarning::RoughSeries));
  } else {
    const ExactGeodesic exact = SolveInverseExactly(from, to, semi_major, semi_minor);
    leg = {exact.distance, exact.azimuth1, exact.azimuth2, {}};
  }
  // At a pole all longitudes are one place, which the series meets to a rounding.
  if (leg.distance < kOnePlace || geodesy::AreOnePlace(from, geodesy::EndOfSegment(from, to))) {
    leg.start_azimuth = leg.end_azimuth = std::nullopt;
  }
  return leg;
}

XY clsShapeMeasures::InDegrees(XY position, const SpatialReferenceRef& reference) const {
  return Unattended([&] { return MyGeometricOperations::ToDegrees(position, reference); });
}

XY clsShapeMeasures::FromDegrees(XY position, const SpatialReferenceRef& reference) const {
  return Unattended([&] { return MyGeometricOperations::FromDegrees(position, reference); });
}

}  // namespace tessarine
