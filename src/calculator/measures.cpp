#include "calculator/measures.h"

#include "calculator/geometry_options.h"
#include "calculator/multipoint_measures.h"
#include "calculator/point_measures.h"
#include "calculator/polygon_measures.h"
#include "calculator/polyline_measures.h"

namespace tessarine {
namespace {

template <class Record, class Shape>
std::unique_ptr<MeasureRecord> RecordOf(const GeometryRef& geometry, MeasureSettings& settings) {
  auto shape = Cast<Shape>(geometry);
  if (!shape) Raise(kTypeMismatch, "The shape of the feature isn't of its layer's shape type.");
  return std::make_unique<Record>(std::move(shape), settings);
}

}  // namespace

MeasureSettings MeasureSettingsOf(esriGeometryType shape, const SpatialReferenceRef& reference,
                                  const GeometryOptions& options) {
  return {shape, SpatialKindOf(reference), reference, options.SemiMajor(), options.SemiMinor(), options.Geocentric()};
}

std::unique_ptr<MeasureRecord> BeginRecord(const GeometryRef& shape_copy, MeasureSettings& settings) {
  switch (settings.Shape) {
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
  if (row.shape != settings.Shape || row.kind != settings.Kind) {
    Raise(kInvalidCall, "The measure '" + std::string(row.caption) + "' is not one of this layer.");
  }
  return row.measure.call(record);
}

}  // namespace tessarine
