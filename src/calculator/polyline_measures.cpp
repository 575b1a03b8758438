// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/polyline_measures.h"

#include <algorithm>
#include <cmath>

#include "calculator/measure_coordinates.h"
#include "shapes/MyGeometricOperations.h"

namespace tessarine {

namespace shapes = MyGeometricOperations;
using namespace measure_coordinates;

namespace {

constexpr double kMiddle = 0.5;
constexpr double kPole = 90.0, kPoleRounding = 1e-9;
constexpr const char* kNoMidpoint = "The midpoint of the polyline can't be computed.";

}  // namespace

PolylineRecord::PolylineRecord(std::shared_ptr<Polyline> shape, MeasureSettings& settings)
    : MeasureRecord(settings), shape_(std::move(shape)) {
  if (settings.kind == SpatialKind::Geographic) geographic_ = PlanetographicShape(shape_, settings_, work_);
}

double PolylineRecord::Length() const { return shape_->Length(); }

XY PolylineRecord::StartPoint() const { return shape_->FromPoint(); }

XY PolylineRecord::Midpoint() const { return shape_->QueryPoint(esriNoExtension, kMiddle, true); }

XY PolylineRecord::EndPoint() const { return shape_->ToPoint(); }

double PolylineRecord::Azimuth() const { return shapes::CalcBearing2(shape_->FromPoint(), shape_->ToPoint()); }

double PolylineRecord::SpheroidalLength() {
  MeasureLength();
  return measured_->Length();
}

double PolylineRecord::StartAzimuth() {
  SolveAzimuths();
  return start_azimuth_;
}

double PolylineRecord::EndAzimuth() {
  SolveAzimuths();
  return end_azimuth_;
}

XY PolylineRecord::ProjectedSpheroidalMidpoint() {
  FindMidpoint();
  return InProjectionOfLayer(PositionOf(midpoint_, kNoMidpoint), settings_);
}

XY PolylineRecord::SpheroidalMidpoint() {
  FindMidpoint();
  return InLatitudesOfData(PositionOf(midpoint_, kNoMidpoint), settings_);
}

XY PolylineRecord::StartLongitudeLatitude() { return LongitudeLatitudeOf(shape_->FromPoint()); }

XY PolylineRecord::EndLongitudeLatitude() { return LongitudeLatitudeOf(shape_->ToPoint()); }

XY PolylineRecord::LongitudeLatitudeOf(XY vertex) {
  if (!settings_.geocentric) return vertex;
  return InLatitudesOfData(shapes::ToDegrees(vertex, settings_.reference), settings_);
}

const std::shared_ptr<Polyline>& PolylineRecord::GeographicLine() {
  if (!geographic_) {
    geographic_ = GeographicCopy(*shape_, work_).shape;
    WarnFarFromArea(*geographic_);
  }
  WarnBeyondPole(*geographic_);
  return geographic_;
}

void PolylineRecord::MeasureLength() {
  if (measured_) return;
  ++work_.midpoint_passes;
  WarnOfSeries();
  const shapes::ConvergenceWatch watch;
  measured_.emplace(GeographicLine(), settings_.semi_major, settings_.semi_minor);
  if (!watch.AllConverged()) Warn(MeasureWarning::NotConverged);
}

void PolylineRecord::FindMidpoint() {
  if (midpoint_) return;
  MeasureLength();
  midpoint_ = measured_->PlaceAt(kMiddle);
  // At a pole the sum of an arc tangent may be a rounding beyond it.
  if (midpoint_ && !midpoint_->IsEmpty() && std::fabs(midpoint_->Y()) <= kPole + kPoleRounding) {
    midpoint_->PutCoords(midpoint_->X(), std::clamp(midpoint_->Y(), -kPole, kPole));
  }
  if (measured_->Length() == 0.0 && !shape_->IsEmpty()) midpoint_ = std::make_shared<Point>(OnlyPlace());
}

// Of a line without length. Its projected copy may be empty once it was simplified.
XY PolylineRecord::OnlyPlace() {
  const Polyline& line = *GeographicLine();
  return line.IsEmpty() ? shapes::ToDegrees(shape_->FromPoint(), settings_.reference) : line.FromPoint();
}

// A line without azimuths keeps its marks, so the next measure that asks comes here again, to the same result.
void PolylineRecord::SolveAzimuths() {
  if (start_azimuth_ >= 0.0 && end_azimuth_ >= 0.0) return;
  const Polyline& line = *GeographicLine();
  // A line of coincident points is empty once its projected copy was simplified.
  start_azimuth_ = end_azimuth_ = kNullMark;
  if (line.IsEmpty()) return;
  const XY from = line.FromPoint();
  const XY to{geodesy::WithinOneTurn(from.x, line.ToPoint().x), line.ToPoint().y};
  if (from == to) return;
  ++work_.azimuth_solutions;
  WarnOfSeries();
  const shapes::ConvergenceWatch watch;
  shapes::DistanceVincentyPoints2(from, to, start_azimuth_, end_azimuth_, settings_.semi_major, settings_.semi_minor);
  if (!watch.AllConverged()) Warn(MeasureWarning::NotConverged);
}

}  // namespace tessarine
