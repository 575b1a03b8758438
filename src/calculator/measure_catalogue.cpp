// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/measure_catalogue.h"

#include <algorithm>
#include <functional>
#include <string>
#include <type_traits>

#include "calculator/multipoint_measures.h"
#include "calculator/point_measures.h"
#include "calculator/polygon_measures.h"
#include "calculator/polyline_measures.h"

namespace tessarine {
namespace {

// A member of a record, or a function of one, as a measure: the class of the record and the type of the value.
template <class Code>
struct SignatureOf;
template <class TheRecord, class TheValue>
struct SignatureOf<TheValue (TheRecord::*)()> {
  using Record = TheRecord;
  using Value = TheValue;
};
template <class TheRecord, class TheValue>
struct SignatureOf<TheValue (TheRecord::*)() const> : SignatureOf<TheValue (TheRecord::*)()> {};
template <class TheRecord, class TheValue>
struct SignatureOf<TheValue (*)(TheRecord&)> : SignatureOf<TheValue (TheRecord::*)()> {};

template <auto kCode>
MeasuredValues Call(MeasureRecord& record) {
  return std::invoke(kCode, static_cast<typename SignatureOf<decltype(kCode)>::Record&>(record));
}

template <class Value>
constexpr MeasuredKind KindOf() {
  if (std::is_same_v<Value, XY>) return MeasuredKind::RealPair;
  return std::is_same_v<Value, std::int32_t> ? MeasuredKind::Count : MeasuredKind::Real;
}

template <auto kCode>
constexpr MeasureCode kMeasuredBy = {Call<kCode>, KindOf<typename SignatureOf<decltype(kCode)>::Value>()};

// Measures that follow from what a record tells need no more than a function here.
std::int32_t Points(MultipointRecord& record) { return record.Shape().PointCount(); }
std::int32_t LineParts(PolylineRecord& record) { return record.Shape().GeometryCount(); }
std::int32_t LineVertices(PolylineRecord& record) { return record.Shape().PointCount(); }
// Holes are no parts.
std::int32_t PolygonParts(PolygonRecord& record) { return record.Shape().ExteriorRingCount(); }
std::int32_t PolygonVertices(PolygonRecord& record) { return record.Shape().PointCount(); }

using enum SpatialKind;
constexpr auto kPoint = esriGeometryPoint;
constexpr auto kMultipoint = esriGeometryMultipoint;
constexpr auto kPolyline = esriGeometryPolyline;
constexpr auto kPolygon = esriGeometryPolygon;

constexpr bool kSlow = true, kQuick = false;
// Whether the fields take the null value when a feature has no geometry. Six measures of polylines leave theirs alone.
constexpr bool kNull = true, kKept = false;

constexpr MeasuredUnit kCount = {MeasuredIn::Nothing, false};
constexpr MeasuredUnit kDegrees = {MeasuredIn::Degrees, false};
constexpr MeasuredUnit kPlace = {MeasuredIn::DataUnit, false};
constexpr MeasuredUnit kPlanarLength = {MeasuredIn::DataUnit, false};
constexpr MeasuredUnit kPlanarArea = {MeasuredIn::DataUnitSquare, false};
constexpr MeasuredUnit kGeodesicAngle = {MeasuredIn::Degrees, true};
constexpr MeasuredUnit kGeodesicPlace = {MeasuredIn::DataUnit, true};
constexpr MeasuredUnit kGeodesicLength = {MeasuredIn::Metres, true};
constexpr MeasuredUnit kGeodesicArea = {MeasuredIn::MetresSquare, true};

// clang-format off
constexpr auto kMeasures = std::to_array<MeasureRow>({
    {kPoint, Unknown, 1, "Coordinates", kQuick, kNull, kMeasuredBy<&PointRecord::Position>,
     kPlace, {"X_Coord", "Y_Coord"}, {"X-Coordinate", "Y-Coordinate"}},

    {kPoint, Projected, 1, "Coordinates", kQuick, kNull, kMeasuredBy<&PointRecord::Position>,
     kPlace, {"X_Coord", "Y_Coord"}, {"Projected X-Coordinate", "Projected Y-Coordinate"}},
    {kPoint, Projected, 2, "Longitude / Latitude", kQuick, kNull, kMeasuredBy<&PointRecord::LongitudeLatitude>,
     kDegrees, {"Longitude", "Latitude"}, {"Longitude", "Latitude"}},

    {kPoint, Geographic, 1, "Longitude / Latitude", kQuick, kNull, kMeasuredBy<&PointRecord::Position>,
     kPlace, {"Longitude", "Latitude"}, {"Longitude", "Latitude"}},

    {kMultipoint, Unknown, 1, "Centroid", kQuick, kNull, kMeasuredBy<&MultipointRecord::Centroid>,
     kPlace, {"Cent_X", "Cent_Y"}, {"Centroid X-Coordinate", "Centroid Y-Coordinate"}},
    {kMultipoint, Unknown, 2, "Number of Points", kQuick, kNull, kMeasuredBy<Points>,
     kCount, {"Points"}, {"Point Count"}},

    {kMultipoint, Projected, 1, "Centroid", kQuick, kNull, kMeasuredBy<&MultipointRecord::Centroid>,
     kPlace, {"Cent_X", "Cent_Y"}, {"Centroid X-Coordinate", "Centroid Y-Coordinate"}},
    {kMultipoint, Projected, 2, "Sph. Centroid", kSlow, kNull, kMeasuredBy<&MultipointRecord::ProjectedSpheroidalCentroid>,
     kGeodesicPlace, {"Sph_Cen_X", "Sph_Cen_Y"}, {"Spherical Centroid X-Coordinate", "Spherical Centroid Y-Coordinate"}},
    {kMultipoint, Projected, 3, "Number of Points", kQuick, kNull, kMeasuredBy<Points>,
     kCount, {"Points"}, {"Point Count"}},

    {kMultipoint, Geographic, 1, "Sph. Centroid", kSlow, kNull, kMeasuredBy<&MultipointRecord::SpheroidalCentroid>,
     kGeodesicPlace, {"Sph_Cen_X", "Sph_Cen_Y"}, {"Spherical Centroid X-Coordinate", "Spherical Centroid Y-Coordinate"}},
    {kMultipoint, Geographic, 2, "Number of Points", kQuick, kNull, kMeasuredBy<Points>,
     kCount, {"Points"}, {"Point Count"}},

    {kPolyline, Unknown, 1, "Length", kQuick, kNull, kMeasuredBy<&PolylineRecord::Length>,
     kPlanarLength, {"Length"}, {"Length"}},
    {kPolyline, Unknown, 2, "Starting Point", kQuick, kNull, kMeasuredBy<&PolylineRecord::StartPoint>,
     kPlace, {"Start_X", "Start_Y"}, {"Start Point X-Coordinate", "Start Point Y-Coordinate"}},
    {kPolyline, Unknown, 3, "Midpoint", kQuick, kNull, kMeasuredBy<&PolylineRecord::Midpoint>,
     kPlace, {"Mid_X", "Mid_Y"}, {"Midpoint X-Coordinate", "Midpoint Y-Coordinate"}},
    {kPolyline, Unknown, 4, "Ending Point", kQuick, kNull, kMeasuredBy<&PolylineRecord::EndPoint>,
     kPlace, {"End_X", "End_Y"}, {"End Point X-Coordinate", "End Point Y-Coordinate"}},
    {kPolyline, Unknown, 5, "Average Azimuth", kQuick, kNull, kMeasuredBy<&PolylineRecord::Azimuth>,
     kDegrees, {"Azimuth"}, {"Average Azimuth"}},
    {kPolyline, Unknown, 6, "Number of Parts", kQuick, kNull, kMeasuredBy<LineParts>,
     kCount, {"Parts"}, {"Count of Sub-Polylines"}},
    {kPolyline, Unknown, 7, "Number of Vertices", kQuick, kKept, kMeasuredBy<LineVertices>,
     kCount, {"Vertices"}, {"Number of Vertices"}},

    {kPolyline, Projected, 1, "Plan. Length", kQuick, kNull, kMeasuredBy<&PolylineRecord::Length>,
     kPlanarLength, {"Plan_Len"}, {"Planimetric Length"}},
    {kPolyline, Projected, 2, "Spheroidal Length", kSlow, kNull, kMeasuredBy<&PolylineRecord::SpheroidalLength>,
     kGeodesicLength, {"Sph_Len"}, {"Spheroidal Length"}},
    {kPolyline, Projected, 3, "Starting Point", kQuick, kNull, kMeasuredBy<&PolylineRecord::StartPoint>,
     kPlace, {"Start_X", "Start_Y"}, {"Start Point X-Coordinate", "Start Point Y-Coordinate"}},
    {kPolyline, Projected, 4, "Midpoint", kQuick, kNull, kMeasuredBy<&PolylineRecord::Midpoint>,
     kPlace, {"Mid_X", "Mid_Y"}, {"Projected Midpoint X-Coordinate", "Projected Midpoint Y-Coordinate"}},
    {kPolyline, Projected, 5, "Spheroidal Midpoint", kSlow, kNull, kMeasuredBy<&PolylineRecord::ProjectedSpheroidalMidpoint>,
     kGeodesicPlace, {"Sph_Mid_X", "Sph_Mid_Y"}, {"Spheroidal Midpoint X-Coordinate", "Spheroidal Midpoint Y-Coordinate"}},
    {kPolyline, Projected, 6, "Ending Point", kQuick, kNull, kMeasuredBy<&PolylineRecord::EndPoint>,
     kPlace, {"End_X", "End_Y"}, {"End Point X-Coordinate", "End Point Y-Coordinate"}},
    {kPolyline, Projected, 7, "Projected Azimuth", kQuick, kNull, kMeasuredBy<&PolylineRecord::Azimuth>,
     kDegrees, {"Prj_Az"}, {"Projected Azimuth"}},
    {kPolyline, Projected, 8, "Sph. Start Azimuth", kQuick, kNull, kMeasuredBy<&PolylineRecord::StartAzimuth>,
     kGeodesicAngle, {"Start_Az"}, {"Spheroidal Start Azimuth"}},
    {kPolyline, Projected, 9, "Sph. End Azimuth", kQuick, kKept, kMeasuredBy<&PolylineRecord::EndAzimuth>,
     kGeodesicAngle, {"End_Az"}, {"Spheroidal End Azimuth"}},
    {kPolyline, Projected, 10, "Number of Parts", kQuick, kKept, kMeasuredBy<LineParts>,
     kCount, {"Parts"}, {"Count of Sub-Polylines"}},
    {kPolyline, Projected, 11, "Number of Vertices", kQuick, kKept, kMeasuredBy<LineVertices>,
     kCount, {"Vertices"}, {"Number of Vertices"}},

    {kPolyline, Geographic, 1, "Spheroidal Length", kSlow, kNull, kMeasuredBy<&PolylineRecord::SpheroidalLength>,
     kGeodesicLength, {"Sph_Len"}, {"Spheroidal Length"}},
    {kPolyline, Geographic, 2, "Starting Point", kQuick, kNull, kMeasuredBy<&PolylineRecord::StartLongitudeLatitude>,
     kPlace, {"Start_X", "Start_Y"}, {"Start Point Longitude", "Start Point Latitude"}},
    {kPolyline, Geographic, 3, "Midpoint", kSlow, kNull, kMeasuredBy<&PolylineRecord::SpheroidalMidpoint>,
     kGeodesicPlace, {"Mid_X", "Mid_Y"}, {"Spheroidal Midpoint Longitude", "Spheroidal Midpoint Latitude"}},
    {kPolyline, Geographic, 4, "Ending Point", kQuick, kNull, kMeasuredBy<&PolylineRecord::EndLongitudeLatitude>,
     kPlace, {"End_X", "End_Y"}, {"End Point Longitude", "End Point Latitude"}},
    {kPolyline, Geographic, 5, "Start Azimuth", kQuick, kNull, kMeasuredBy<&PolylineRecord::StartAzimuth>,
     kGeodesicAngle, {"Start_Az"}, {"Spheroidal Start Azimuth"}},
    {kPolyline, Geographic, 6, "End Azimuth", kQuick, kNull, kMeasuredBy<&PolylineRecord::EndAzimuth>,
     kGeodesicAngle, {"End_Az"}, {"Spheroidal End Azimuth"}},
    {kPolyline, Geographic, 7, "Number of Parts", kQuick, kKept, kMeasuredBy<LineParts>,
     kCount, {"Parts"}, {"Count of Sub-Polylines"}},
    {kPolyline, Geographic, 8, "Number of Vertices", kQuick, kKept, kMeasuredBy<LineVertices>,
     kCount, {"Vertices"}, {"Number of Vertices"}},

    {kPolygon, Unknown, 1, "Area", kQuick, kNull, kMeasuredBy<&PolygonRecord::Area>,
     kPlanarArea, {"Poly_Area"}, {"Area"}},
    {kPolygon, Unknown, 2, "Centroid", kQuick, kNull, kMeasuredBy<&PolygonRecord::Centroid>,
     kPlace, {"X_Coord", "Y_Coord"}, {"Centroid X-Coordinate", "Centroid Y-Coordinate"}},
    {kPolygon, Unknown, 3, "Perimeter Length", kQuick, kNull, kMeasuredBy<&PolygonRecord::Perimeter>,
     kPlanarLength, {"Length"}, {"Perimeter Length"}},
    {kPolygon, Unknown, 4, "Number of Parts", kQuick, kNull, kMeasuredBy<PolygonParts>,
     kCount, {"Parts"}, {"Count of Sub-Polygons"}},
    {kPolygon, Unknown, 5, "Number of Vertices", kQuick, kNull, kMeasuredBy<PolygonVertices>,
     kCount, {"Vertices"}, {"Number of Vertices"}},

    {kPolygon, Projected, 1, "Plan. Area", kQuick, kNull, kMeasuredBy<&PolygonRecord::Area>,
     kPlanarArea, {"Plan_Area"}, {"Planimetric Area"}},
    {kPolygon, Projected, 2, "Spherical Area", kSlow, kNull, kMeasuredBy<&PolygonRecord::SphericalArea>,
     kGeodesicArea, {"Sph_Area"}, {"Spherical Area"}},
    {kPolygon, Projected, 3, "Plan. Centroid", kQuick, kNull, kMeasuredBy<&PolygonRecord::Centroid>,
     kPlace, {"Cent_X", "Cent_Y"}, {"Planimetric Centroid X-Coordinate", "Planimetric Centroid Y-Coordinate"}},
    {kPolygon, Projected, 4, "Sph. Centroid", kSlow, kNull, kMeasuredBy<&PolygonRecord::ProjectedSphericalCentroid>,
     kGeodesicPlace, {"Sph_Cen_X", "Sph_Cen_Y"}, {"Spherical Centroid X-Coordinate", "Spherical Centroid Y-Coordinate"}},
    {kPolygon, Projected, 5, "Plan. Perimeter", kQuick, kNull, kMeasuredBy<&PolygonRecord::Perimeter>,
     kPlanarLength, {"Pl_Perim"}, {"Projected Perimeter Length"}},
    {kPolygon, Projected, 6, "Sph. Perimeter", kSlow, kNull, kMeasuredBy<&PolygonRecord::SpheroidalPerimeter>,
     kGeodesicLength, {"Sph_Perim"}, {"Spheroidal Perimeter Length"}},
    {kPolygon, Projected, 7, "Number of Parts", kQuick, kNull, kMeasuredBy<PolygonParts>,
     kCount, {"Parts"}, {"Count of Sub-Polygons"}},
    {kPolygon, Projected, 8, "Number of Vertices", kQuick, kNull, kMeasuredBy<PolygonVertices>,
     kCount, {"Vertices"}, {"Number of Vertices"}},
    {kPolygon, Projected, 9, "Spheroidal Area", kSlow, kNull, kMeasuredBy<&PolygonRecord::SpheroidalArea>,
     kGeodesicArea, {"Spd_Area"}, {"Spheroidal Area"}},

    {kPolygon, Geographic, 1, "Sph. Area", kSlow, kNull, kMeasuredBy<&PolygonRecord::SphericalArea>,
     kGeodesicArea, {"Sph_Area"}, {"Spherical Area"}},
    {kPolygon, Geographic, 2, "Sph. Centroid", kSlow, kNull, kMeasuredBy<&PolygonRecord::SphericalCentroid>,
     kGeodesicPlace, {"Longitude", "Latitude"}, {"Spherical Centroid X-Coordinate", "Spherical Centroid Y-Coordinate"}},
    {kPolygon, Geographic, 3, "Perimeter Length", kSlow, kNull, kMeasuredBy<&PolygonRecord::SpheroidalPerimeter>,
     kGeodesicLength, {"Sph_Len"}, {"Spheroidal Perimeter Length"}},
    {kPolygon, Geographic, 4, "Number of Parts", kQuick, kNull, kMeasuredBy<PolygonParts>,
     kCount, {"Parts"}, {"Count of Sub-Polygons"}},
    {kPolygon, Geographic, 5, "Number of Vertices", kQuick, kNull, kMeasuredBy<PolygonVertices>,
     kCount, {"Vertices"}, {"Number of Vertices"}},
    {kPolygon, Geographic, 6, "Spheroidal Area", kSlow, kNull, kMeasuredBy<&PolygonRecord::SpheroidalArea>,
     kGeodesicArea, {"Spd_Area"}, {"Spheroidal Area"}},
});
// clang-format on

constexpr bool SameLayer(const MeasureRow& left, const MeasureRow& right) {
  return left.shape == right.shape && left.kind == right.kind;
}

constexpr bool NumbersRunOn(std::span<const MeasureRow> rows) {
  for (std::size_t index = 0; index < rows.size(); ++index) {
    const bool continues = index > 0 && SameLayer(rows[index - 1], rows[index]);
    if (rows[index].option_id != (continues ? rows[index - 1].option_id + 1 : 1)) return false;
  }
  return true;
}
// The measures of a shape and a kind of reference stand together, numbered from 1 without a gap.
static_assert(NumbersRunOn(kMeasures));
// The dialog has controls for 11 measures of a layer.
static_assert(std::ranges::all_of(kMeasures, [](const MeasureRow& row) { return row.option_id <= kOptionCount; }));
// The dialog has two boxes for fields beside the first 6 measures alone.
static_assert(std::ranges::all_of(kMeasures, [](const MeasureRow& row) {
  return row.FieldCount() < 2 || row.option_id <= kLastPairedOption;
}));
// A measure has a field and a label for each of its values.
static_assert(std::ranges::all_of(kMeasures, [](const MeasureRow& row) {
  return (row.measure.kind == MeasuredKind::RealPair) == (row.FieldCount() == 2) &&
         row.report_labels[1].empty() == row.default_fields[1].empty();
}));

struct ShapeNouns {
  esriGeometryType shape;
  std::string_view one;
  std::string_view many;
};

constexpr auto kNouns = std::to_array<ShapeNouns>({
    {kPoint, "Point", "Points"},
    {kMultipoint, "Multipoint", "Multipoints"},
    {kPolyline, "Polyline", "Polylines"},
    {kPolygon, "Polygon", "Polygons"},
});

}  // namespace

SpatialKind SpatialKindOf(const SpatialReferenceRef& reference) {
  if (Is<const GeographicCoordinateSystem>(reference)) return Geographic;
  return Is<const ProjectedCoordinateSystem>(reference) ? Projected : Unknown;
}

std::span<const MeasureRow> AllMeasures() { return kMeasures; }

std::span<const MeasureRow> MeasuresOf(esriGeometryType shape, SpatialKind kind) {
  const auto fits = [&](const MeasureRow& row) { return row.shape == shape && row.kind == kind; };
  const auto first = std::ranges::find_if(kMeasures, fits);
  return {first, std::find_if_not(first, kMeasures.end(), fits)};
}

const MeasureRow* FindMeasure(esriGeometryType shape, SpatialKind kind, std::int32_t option_id) {
  const auto rows = MeasuresOf(shape, kind);
  if (option_id < 1 || option_id > static_cast<std::int32_t>(rows.size())) return nullptr;
  return &rows[static_cast<std::size_t>(option_id - 1)];
}

ComboUseFlags ComboUseFlagsOf(esriGeometryType shape, SpatialKind kind) {
  ComboUseFlags flags{};
  for (const MeasureRow& row : MeasuresOf(shape, kind)) {
    for (std::int32_t position = 0; position < static_cast<std::int32_t>(row.FieldCount()); ++position) {
      flags[static_cast<std::size_t>(ComboIndex(row.option_id, position))] = true;
    }
  }
  return flags;
}

std::int32_t ComboIndex(std::int32_t option_id, std::int32_t position) {
  if (option_id < 1 || option_id > kOptionCount || position < 0 || position > 1) return -1;
  if (option_id <= kLastPairedOption) return 2 * (option_id - 1) + position;
  return position == 0 ? option_id + kLastPairedOption - 1 : -1;
}

std::string_view ShapeNoun(esriGeometryType shape, std::int64_t record_count) {
  for (const ShapeNouns& nouns : kNouns) {
    if (nouns.shape == shape) return record_count == 1 ? nouns.one : nouns.many;
  }
  return {};
}

}  // namespace tessarine
