// SPDX-License-Identifier: GPL-2.0-or-later
// How a run asks for the values of a feature.
//
// Once, before the record loop:
//
//   MeasureSettings settings = MeasureSettingsOf(shape_type, reference, options);
//
// once for each feature with a shape:
//
//   const auto record = BeginRecord(feature->ShapeCopy(), settings);
//
// once for each chosen option:
//
//   const MeasuredValues values = Measure(*row, *record);
//   buffer.SetValue(first_index, values.first);
//   if (row->FieldCount() == 2) buffer.SetValue(second_index, values.second);
//
// and after the last of them, what the report has to tell of the values:
//
//   for (const MeasureWarning warning : record->Warnings()) journal.NoteWarning(WarningText(warning), oid);
//
// A record owns what its measures share: the copy in geographic coordinates, the spheroidal midpoint with its length,
// the two azimuths of one line, the spherical area with its centroid. Each is computed when the first measure asks.
//
// Planar measures are in the units of the data, spheroidal ones in the unit of the axes, metres; azimuths and angles
// are degrees. Nothing is converted, rounded or scaled, but for geographic data in another angular unit than degrees:
// they are measured in degrees, and positions go back to their unit. The value of a measure doesn't depend on which
// others were asked for before. What can't be measured raises a fault, but for the routines of
// the geodesy core, which report their own and return 0.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "calculator/measure_catalogue.h"
#include "platform/area_of_use.h"
#include "platform/geometry.h"
#include "platform/variant.h"

namespace tessarine {

class GeometryOptions;

/// What a measure hands to the row: a double or a 32-bit integer for the first field, and a double for the second
/// where the measure has one; otherwise the second stays empty.
struct MeasuredValues {
  MeasuredValues() = default;
  MeasuredValues(double value) : first(value) {}                          // NOLINT(google-explicit-constructor)
  MeasuredValues(std::int32_t count) : first(count) {}                    // NOLINT
  MeasuredValues(XY position) : first(position.x), second(position.y) {}  // NOLINT

  Variant first;
  Variant second;
};

/// What all records of a run have in common. The record loop owns it: axes of 0 are replaced, once, by those of the
/// data's own spheroid when planetocentric shapes are converted.
struct MeasureSettings {
  esriGeometryType shape = esriGeometryNull;
  SpatialKind kind = SpatialKind::Unknown;
  SpatialReferenceRef reference;  ///< of the layer's data
  double semi_major = 0.0, semi_minor = 0.0;
  bool geocentric = false;
  std::optional<AreaOfUse> area = std::nullopt;  ///< of a projection
};

[[nodiscard]] MeasureSettings MeasureSettingsOf(esriGeometryType shape, const SpatialReferenceRef& reference,
                                                const GeometryOptions& options);

/// What the value of a measure can't mean for a record, though there is one.
enum class MeasureWarning {
  NotConverged,     ///< a geodesic between nearly antipodal positions: its length and azimuths may be far off
  BeyondPole,       ///< a geodesic measure of a shape with latitudes beyond 90 degrees
  FarFromArea,      ///< a geodesic measure of a shape far from where its projection is made for
  WideRing,         ///< the spherical area and centroid of a ring more than 180 degrees wide
  TornRing,         ///< a ring with steps of more than 180 degrees of longitude, which are taken the short way
  OneLobe,          ///< the perimeter of a ring that crosses itself: one of its lobes
  SignedLobes,      ///< the spherical area and centroid of such a ring: the lobes count by their sense
  TurnedRing,       ///< a spherical area that is 0 or less, of a polygon that has one on the map
  PlanarLobes,      ///< its area and centroid on the plane, likewise
  NoCentroid,       ///< -9999, because the spherical area isn't above 0
  RoughSeries,      ///< a length, midpoint or azimuth on a strongly flattened spheroid, where the series is off
  FlattenedSphere,  ///< the area on a sphere in place of a strongly flattened spheroid
};
/// The sentence that the report and its JSON have for it.
[[nodiscard]] std::string_view WarningText(MeasureWarning warning);

/// How often a record did the work that its measures share.
struct SharedWork {
  std::int32_t projections = 0;           ///< copies of the shape in geographic coordinates
  std::int32_t latitude_conversions = 0;  ///< conversions of the whole shape to planetographic latitudes
  std::int32_t midpoint_passes = 0;       ///< walks over all segments for length and midpoint
  std::int32_t azimuth_solutions = 0;     ///< solutions of the inverse problem
  std::int32_t area_passes = 0;           ///< walks over all triangles for area and centroid
};

/// One feature in the run: its shape, and what was already computed of it.
class MeasureRecord {
 public:
  virtual ~MeasureRecord() = default;
  MeasureRecord(const MeasureRecord&) = delete;
  MeasureRecord& operator=(const MeasureRecord&) = delete;

  [[nodiscard]] const SharedWork& Work() const { return work_; }
  [[nodiscard]] const MeasureSettings& Settings() const { return settings_; }
  /// Of the measures asked for so far, each kind once.
  [[nodiscard]] const std::vector<MeasureWarning>& Warnings() const { return warnings_; }

 protected:
  explicit MeasureRecord(MeasureSettings& settings) : settings_(settings) {}
  void Warn(MeasureWarning warning);
  /// For a shape in degrees.
  void WarnBeyondPole(const IGeometry& degrees);
  /// For a shape brought to degrees from a projection.
  void WarnFarFromArea(const IGeometry& degrees);
  /// Where geodesics are taken from a series that the spheroid is too flat for.
  void WarnOfSeries();

  MeasureSettings& settings_;  // outlives the record
  SharedWork work_;

 private:
  std::vector<MeasureWarning> warnings_;
};

/// The record of a shape that isn't empty. The shape must be a private copy: some measures change it. Fault 13 when it
/// isn't of the layer's shape type, and fault 5 when a coordinate is no finite number: nothing of such a shape can be
/// measured. `settings` must outlive the record.
[[nodiscard]] std::unique_ptr<MeasureRecord> BeginRecord(const GeometryRef& shape_copy, MeasureSettings& settings);

/// The values of one measure. Fault 5 when the row belongs to another shape type or kind than the record.
[[nodiscard]] MeasuredValues Measure(const MeasureRow& row, MeasureRecord& record);

}  // namespace tessarine
