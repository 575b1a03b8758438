// SPDX-License-Identifier: GPL-2.0-or-later
// The catalogue of measures: what can be calculated for a layer, by its shape type and the kind of its reference.
//
// One table serves everyone: the dialog reads captions and default fields, the run report labels and the slow mark, the
// record loop the measure itself, and the writer of null values the fields that take them. A new measure is a row of
// the table in measure_catalogue.cpp and one small function there, or in the file of its shape.
//
// A measure is addressed by three numbers, shape type, kind of reference and option id. The same option id means
// another measure in each of the twelve combinations.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "platform/geometry_types.h"
#include "platform/spatial_reference.h"

namespace tessarine {

class MeasureRecord;
struct MeasuredValues;

/// The kind of a layer's coordinates.
enum class SpatialKind : std::int32_t { Unknown = 0, Projected = 1, Geographic = 2 };

/// Unknown also for a reference that is nothing.
[[nodiscard]] SpatialKind SpatialKindOf(const SpatialReferenceRef& reference);

/// The dialog has controls for so many measures of a layer.
inline constexpr std::int32_t kOptionCount = 11;
/// Options up to this one own two combo boxes, those above it one.
inline constexpr std::int32_t kLastPairedOption = 6;
inline constexpr std::size_t kComboCount = 17;

/// One flag for each combo box, in the order `cbx11`, `cbx12`, `cbx21` to `cbx62`, `cbx71`, `cbx81` to `cbx111`: True
/// where the layer's catalogue has a field for it.
using ComboUseFlags = std::array<bool, kComboCount>;

/// What a measure hands to the row: one double, one 32-bit integer, or two doubles.
enum class MeasuredKind { Real, Count, RealPair };

/// The code of a measure. It reads and fills the record's shared quantities.
struct MeasureCode {
  MeasuredValues (*call)(MeasureRecord& record) = nullptr;
  MeasuredKind kind = MeasuredKind::Real;
};

/// What the numbers of a measure count.
enum class MeasuredIn {
  Nothing,  ///< it is a count
  Degrees,
  DataUnit,  ///< that of the coordinates
  DataUnitSquare,
  Metres,  ///< the unit of a spheroid's axes
  MetresSquare,
};

struct MeasuredUnit {
  MeasuredIn unit = MeasuredIn::Nothing;
  bool on_spheroid = false;  ///< the value depends on the spheroid
};

struct MeasureRow {
  esriGeometryType shape;
  SpatialKind kind;
  std::int32_t option_id;  ///< 1 to 11
  std::string_view caption;
  bool slow;        ///< counts for the choice of the progress display
  bool takes_null;  ///< False: the fields keep what they hold when the feature has no geometry
  MeasureCode measure;
  MeasuredUnit unit;
  std::array<std::string_view, 2> default_fields;  ///< the second is empty for a measure of one field
  std::array<std::string_view, 2> report_labels;

  [[nodiscard]] constexpr std::size_t FieldCount() const { return default_fields[1].empty() ? 1 : 2; }
  /// How many of its fields, from the first, take the null value.
  [[nodiscard]] constexpr std::size_t NullFieldCount() const { return takes_null ? FieldCount() : 0; }
};

/// The null value of the calculator: a number, never a database null.
inline constexpr std::int16_t kNullMark = -9999;

/// The rows of a layer in the order of their option ids, which are 1, 2, 3 and so on; none for other shape types.
[[nodiscard]] std::span<const MeasureRow> MeasuresOf(esriGeometryType shape, SpatialKind kind);
/// All rows, by shape type, kind and option id.
[[nodiscard]] std::span<const MeasureRow> AllMeasures();
/// Null when the layer's catalogue has no such option.
[[nodiscard]] const MeasureRow* FindMeasure(esriGeometryType shape, SpatialKind kind, std::int32_t option_id);

[[nodiscard]] ComboUseFlags ComboUseFlagsOf(esriGeometryType shape, SpatialKind kind);

/// The place of an option's first or second combo box (`position` 0 or 1) in the flags; -1 where there is none.
[[nodiscard]] std::int32_t ComboIndex(std::int32_t option_id, std::int32_t position);

/// "Point" for one record, "Points" for any other count, and so on; empty for other shape types.
[[nodiscard]] std::string_view ShapeNoun(esriGeometryType shape, std::int64_t record_count);

}  // namespace tessarine
