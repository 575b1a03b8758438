// SPDX-License-Identifier: GPL-2.0-or-later
// How the values of a measure reach the table, and what a feature without geometry gets in their place.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "calculator/geometry_options.h"
#include "calculator/measure_catalogue.h"
#include "calculator/measures.h"
#include "platform/data.h"
#include "platform/fault.h"

namespace tessarine {

/// Where the fields of a run lie in the table, by name; case doesn't count.
class FieldIndexes {
 public:
  [[nodiscard]] bool Contains(std::string_view name) const;
  /// A name that is there already keeps its index.
  void Add(std::string_view name, std::int32_t index);
  /// Fault 5 for a name that isn't there.
  [[nodiscard]] std::int32_t Item(std::string_view name) const;

 private:
  std::vector<std::pair<std::string, std::int32_t>> items_;
};

/// A chosen measure with the places of its fields.
struct ChosenMeasure {
  const MeasureRow* row = nullptr;
  std::int32_t first = -1, second = -1;  ///< -1 where the measure has no such field
};

/// The chosen measures in the order of the options; ids that the layer's catalogue doesn't have are passed over.
[[nodiscard]] std::vector<ChosenMeasure> ResolveMeasures(std::span<const OptionEntry> entries, esriGeometryType shape,
                                                         SpatialKind kind, const FieldIndexes& indexes);

/// Told of each value that its field holds otherwise: the field's index, and what became of the value.
using ChangeNote = std::function<void(std::int32_t, ValueChange)>;

/// Writes the values as they are: a double, or a 32-bit integer for counts. Nothing is stored yet. Where a field has no
/// room for its value, the index of that field: then both keep what they held.
[[nodiscard]] std::optional<std::int32_t> WriteValues(const ChosenMeasure& measure, const MeasuredValues& values,
                                                      IRowBuffer& row, const ChangeNote& note = nullptr);

/// What is told of a field without room for a value, and of the field of the measure's other half: fault 6.
[[nodiscard]] Fault NoRoomIn(std::string_view field, std::string_view other = {});

/// Writes what stands for the values of a measure that failed: the null mark into the fields that have it for features
/// without a shape, null into the others.
void WriteMissing(const ChosenMeasure& measure, IRowBuffer& row, const ChangeNote& note = nullptr);

/// Writes the null mark into the fields of the entries, but for those that keep what they hold. Stores nothing. A mark
/// that a field has no room for ends the call, and that field keeps what it held.
void WriteNullValues(std::span<const OptionEntry> entries, esriGeometryType shape, SpatialKind kind, IRowBuffer& row,
                     const FieldIndexes& indexes, const ChangeNote& note = nullptr);

}  // namespace tessarine
