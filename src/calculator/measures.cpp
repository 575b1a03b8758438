// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/measures.h"

#include <algorithm>

#include "calculator/geometry_options.h"
#include "calculator/multipoint_measures.h"
#include "calculator/point_measures.h"
#include "calculator/polygon_measures.h"
#include "calculator/polyline_measures.h"
#include "geodesy/geodesics.h"
#include "platform/finite_shape.h"
#include "shapes/odd_shapes.h"

namespace tessarine {
namespace {

template <class Record, class Shape>
std::unique_ptr<MeasureRecord> RecordOf(const GeometryRef& geometry, MeasureSettings& settings) {
  auto shape = Cast<Shape>(geometry);
  if (!shape) Raise(kTypeMismatch, "The shape of the feature isn't of its layer's shape type.");
  if (!HasOnlyFiniteCoordinates(*shape)) {
    Raise(kInvalidCall, "The shape has a coordinate that is no finite number, so nothing of it can be measured.");
  }
  return std::make_unique<Record>(std::move(shape), settings);
}

struct WarningRow {
  MeasureWarning warning;
  std::string_view text;
};

constexpr WarningRow kWarnings[] = {
    {MeasureWarning::NotConverged,
     "A segment or a line between its ends joins nearly antipodal positions, where the iteration for geodesics didn't "
     "settle: lengths, midpoints and azimuths may be far off."},
    {MeasureWarning::BeyondPole,
     "A latitude lies beyond a pole: lengths, areas, centroids and azimuths are those of some other place."},
    {MeasureWarning::FarFromArea,
     "A shape lies more than 30 degrees east or west of the area that the layer's reference is made for: so far from "
     "there some projections give another place, and all that is measured on the globe is that of this place."},
    {MeasureWarning::WideRing,
     "A ring is more than 180 degrees of longitude wide: its spherical area and centroid may be wrong, because they "
     "take the short way round between any two places. Its spheroidal area isn't."},
    {MeasureWarning::TornRing,
     "A ring steps over more than 180 degrees of longitude at once: its spheroidal area and perimeter, and in a "
     "projection all that is measured on the globe, take such a step the short way, but for a ring that this would "
     "leave without width."},
    {MeasureWarning::OneLobe, "A ring crosses itself: its spheroidal perimeter is that of one of its lobes alone."},
    {MeasureWarning::SignedLobes,
     "A ring crosses itself: its lobes count by the way they run, so that their spherical areas may cancel each other "
     "out."},
    {MeasureWarning::TurnedRing,
     "The spherical area of a polygon isn't above 0: on the sphere the sides of a ring run otherwise than on the map, "
     "past each other or past a pole."},
    {MeasureWarning::PlanarLobes,
     "A ring crosses itself: its lobes count by the way they run, so that their planimetric areas may cancel each "
     "other out and their centroid may lie outside."},
    {MeasureWarning::NoCentroid,
     "A polygon has no spherical centroid, because its spherical area isn't above 0: -9999 stands in its place."},
    {MeasureWarning::RoughSeries,
     "On a body of this shape the series for geodesics is off: lengths by up to 2e-6 of themselves at a flattening of "
     "1/15, 2e-5 at 1/10, 1e-3 at 1/5 and percents beyond, and midpoints and azimuths as far. Where the polar axis is "
     "the longer one, a line to the other side of the body may not be the shortest."},
    {MeasureWarning::FlattenedSphere,
     "The spherical area is that on a sphere of the same volume, which on a body as flattened as this one is off by "
     "several percent: the spheroidal area isn't."},
};

}  // namespace

std::string_view WarningText(MeasureWarning warning) {
  return std::ranges::find(kWarnings, warning, &WarningRow::warning)->text;
}

void MeasureRecord::Warn(MeasureWarning warning) {
  if (std::ranges::find(warnings_, warning) == warnings_.end()) warnings_.push_back(warning);
}

void MeasureRecord::WarnBeyondPole(const IGeometry& degrees) {
  if (MyGeometricOperations::LiesBeyondPole(degrees)) Warn(MeasureWarning::BeyondPole);
}

void MeasureRecord::WarnFarFromArea(const IGeometry& degrees) {
  if (settings_.area && MyGeometricOperations::LiesFarFrom(*settings_.area, degrees)) Warn(MeasureWarning::FarFromArea);
}

void MeasureRecord::WarnOfSeries() {
  if (geodesy::IsSeriesRough(geodesy::Figure::FromAxes(settings_.semi_major, settings_.semi_minor)))
    Warn(MeasureWarning::RoughSeries);
}

MeasureSettings MeasureSettingsOf(esriGeometryType shape, const SpatialReferenceRef& reference,
                                  const GeometryOptions& options) {
  MeasureSettings settings{
      shape, SpatialKindOf(reference), reference, options.SemiMajor(), options.SemiMinor(), options.Geocentric()};
  if (settings.kind == SpatialKind::Projected) settings.area = AreaOfUseOf(*reference);
  return settings;
}

std::unique_ptr<MeasureRecord> BeginRecord(const GeometryRef& shape_copy, MeasureSettings& settings) {
  switch (settings.shape) {
    case esriGeometryPoint:
      return RecordOf<PointRecord, Point>(shape_copy, settings);
    case esriGeometryMultipoint:
      return RecordOf<MultipointRecord, Multipoint>(shape_copy, settings);
    case esriGeometryPolyline:
      return RecordOf<PolylineRecord, Polyline>(shape_copy, settings);
    case esriGeometryPolygon:
      return RecordOf<PolygonRecord, Polygon>(shape_copy, settings);
    default:
      Raise(kTypeMismatch, "There are no measures for shapes of this type.");
  }
}

MeasuredValues Measure(const MeasureRow& row, MeasureRecord& record) {
  const MeasureSettings& settings = record.Settings();
  if (row.shape != settings.shape || row.kind != settings.kind) {
    Raise(kInvalidCall, "The measure '" + std::string(row.caption) + "' is not one of this layer.");
  }
  return row.measure.call(record);
}

}  // namespace tessarine
