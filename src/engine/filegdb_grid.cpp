// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/filegdb_grid.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "engine/filegdb_edit.h"
#include "engine/filegdb_table.h"
#include "platform/fault.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

// Up to here each step is told apart by a double; a new class gets no grid of more.
constexpr double kExactSteps = 9007199254740992.0;
// Up to here steps can be stored.
constexpr double kMostSteps = 9.2e18;

constexpr double kDegreeOrigin = -400.0;
constexpr double kDegreeScale = 1e9;
constexpr double kDegreeTolerance = 0.000000008983153;
// That of GDAL for lengths: 0.1 mm where the unit is a metre.
constexpr double kLengthOrigin = -2147483647.0;
constexpr double kLengthScale = 1e4;
// Nothing is known of unit and extent: as wide as for lengths, and a tenth of a second where they are degrees.
constexpr double kUnknownScale = 1e6;
// One shape that lies beyond all reason must not make the steps of all others so wide; its own record is refused then.
constexpr double kLeastScale = 1e-3;
// A turn of longitudes, at least.
constexpr double kLeastRoom = 400.0;

NewGrid MakeGrid(double x_origin, double y_origin, double scale) {
  return {{x_origin, y_origin, scale}, std::max(10.0 / scale, scale == kDegreeScale ? kDegreeTolerance : 0.0)};
}

bool FitsSteps(const GdbGrid& grid, const Envelope& box, double most) {
  const auto fits = [&](double value, double origin) {
    const double steps = (value - origin) * grid.xy_scale;
    return steps >= 0.0 && steps <= most;
  };
  return fits(box.XMin(), grid.x_origin) && fits(box.XMax(), grid.x_origin) && fits(box.YMin(), grid.y_origin) &&
         fits(box.YMax(), grid.y_origin);
}

bool Fits(const GdbGrid& grid, const Envelope& box) { return FitsSteps(grid, box, kExactSteps); }

}  // namespace

std::optional<NewGrid> GridFor(const Envelope& extent, GridUnit unit, double size) {
  // Steps are multiples of ten, none wider than those of a metre or degree.
  const double finer = std::pow(10.0, std::max(std::ceil(std::log10(size)), 0.0));
  if (extent.IsEmpty()) {
    if (unit == GridUnit::Unknown) return MakeGrid(kLengthOrigin, kLengthOrigin, kUnknownScale);
    if (finer == 1.0) return std::nullopt;
    const double origin = unit == GridUnit::Degrees ? kDegreeOrigin : std::floor(kLengthOrigin / finer);
    return MakeGrid(origin, origin, finer * (unit == GridUnit::Degrees ? kDegreeScale : kLengthScale));
  }
  const double room = std::max({extent.Width(), extent.Height(), kLeastRoom});
  const Envelope wide(extent.XMin() - room, extent.YMin() - room, extent.XMax() + room, extent.YMax() + room);
  if (!std::isfinite(room) || !std::isfinite(wide.XMin()) || !std::isfinite(wide.YMin())) return std::nullopt;
  const NewGrid degrees = MakeGrid(kDegreeOrigin, kDegreeOrigin, kDegreeScale);
  if (unit != GridUnit::Length && finer == 1.0 && Fits(degrees.grid, extent)) {
    if (unit == GridUnit::Degrees) return std::nullopt;
    return degrees;
  }
  if (finer != 1.0) {
    const NewGrid usual = *GridFor({}, unit, size);
    if (Fits(usual.grid, wide)) return usual;
  } else if (unit == GridUnit::Length && Fits({kLengthOrigin, kLengthOrigin, kLengthScale}, wide)) {
    return std::nullopt;
  }
  double scale = finer * (unit == GridUnit::Length ? kLengthScale : kDegreeScale);
  const double x_origin = std::floor(wide.XMin()), y_origin = std::floor(wide.YMin());
  while (scale > 0.0 && !Fits({x_origin, y_origin, scale}, wide)) scale /= 10.0;
  if (scale < kLeastScale) return GridFor({}, unit, size);
  return MakeGrid(x_origin, y_origin, scale);
}

std::optional<NewGrid> GridFor(const Envelope& extent, const SpatialReferenceRef& reference) {
  constexpr double kDegree = std::numbers::pi / 180.0, kSameUnit = 1e-9;
  if (const auto geographic = Cast<const GeographicCoordinateSystem>(reference)) {
    const double degrees = geographic->CoordinateUnit().ConversionFactor / kDegree;
    return GridFor(extent, GridUnit::Degrees, std::fabs(degrees - 1.0) < kSameUnit ? 1.0 : degrees);
  }
  const auto projected = Cast<const ProjectedCoordinateSystem>(reference);
  return projected ? GridFor(extent, GridUnit::Length, projected->CoordinateUnit().ConversionFactor)
                   : GridFor(extent, GridUnit::Unknown);
}

std::optional<GdbGrid> GridOfClass(const std::string& native_path, const std::string& name) {
  if (!IsFileGdb(native_path)) return std::nullopt;
  const std::string base = FindGdbTable(PlaceOfData(native_path), name);
  if (base.empty()) return std::nullopt;
  return GdbTable(base).Description().grid;
}

void RequireOnGrid(const GdbGrid& grid, const OGRFeature& feature, const std::string& class_name) {
  const OGRGeometry* shape = feature.GetGeometryRef();
  if (shape == nullptr || shape->IsEmpty()) return;
  OGREnvelope box;
  shape->getEnvelope(&box);
  if (FitsSteps(grid, {box.MinX, box.MinY, box.MaxX, box.MaxY}, kMostSteps)) return;
  Raise(kCoordinateRange, "Coordinate out of range: the shape reaches from x " + NumberText(box.MinX) + ", y " +
                              NumberText(box.MinY) + " to x " + NumberText(box.MaxX) + ", y " + NumberText(box.MaxY) +
                              ", but '" + class_name + "' keeps none below x " + NumberText(grid.x_origin) + ", y " +
                              NumberText(grid.y_origin) + " and none that isn't a number.");
}

}  // namespace tessarine::engine
