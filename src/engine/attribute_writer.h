// SPDX-License-Identifier: GPL-2.0-or-later
// Writing attributes into OGR features.
#pragma once

#include <ogrsf_frmts.h>

#include <span>
#include <vector>

#include "engine/ogr_fields.h"
#include "platform/value_fit.h"

namespace tessarine::engine {

/// What a row is written for. The columns of a dBASE table grow with new rows, up to what the format allows; columns
/// that stand in a table are as they are.
enum class RowUse : std::uint8_t { New, Stored };

/// Knows what each column of a layer can hold.
class AttributeWriter {
 public:
  AttributeWriter() = default;
  /// With `in_utc`, times of a zone are brought to UTC, which is all that the format keeps.
  AttributeWriter(const OGRFeatureDefn& definition, ColumnStore store, bool in_utc);

  /// Puts the value into the feature as the column can hold it, and returns what became of it. Fault 5, naming the
  /// field, for binary fields and lists.
  [[nodiscard]] ValueChange Write(OGRFeature& feature, int index, const Variant& value, RowUse use) const;

  /// To be called before GDAL writes these attributes of a stored row. It cuts numbers at the width of a dBASE column,
  /// and one just below its text would lose its last digit.
  void GuardFromCutting(OGRFeature& feature, std::span<const int> attributes) const;

  /// True for a number that the column of a dBASE table has room for with an exponent only, as GDAL can't write it.
  [[nodiscard]] bool NeedsExponent(const OGRFeature& feature, int index) const;

 private:
  struct Column {
    OGRFieldType type = OFTString;
    ColumnLimits grown, stored;
  };
  std::vector<Column> columns_;
  bool in_utc_ = false;
};

}  // namespace tessarine::engine
