// SPDX-License-Identifier: GPL-2.0-or-later
// Fields of the platform over those of an OGR layer.
#pragma once

#include <ogrsf_frmts.h>

#include <memory>

#include "outputs/formats.h"
#include "platform/field.h"
#include "platform/variant.h"

namespace tessarine::engine {

/// The formats whose columns have ways of their own.
enum class ColumnStore : std::uint8_t { Dbase, FileGeodatabase, PersonalGeodatabase, Other };
[[nodiscard]] ColumnStore ColumnStoreOf(FileStore store);

/// The fields of a layer: the identifier first, the shape second where there is one, then the attributes. Names that
/// are made up for the identifier and the shape are none of an attribute's.
struct FieldMap {
  FieldsRef fields;
  std::int32_t shape_index = -1;
  std::int32_t first_attribute = 1;

  /// The OGR index of an attribute, -1 for the identifier and the shape.
  [[nodiscard]] int OgrIndex(std::int32_t index) const {
    return index < first_attribute ? -1 : static_cast<int>(index - first_attribute);
  }
};

[[nodiscard]] FieldMap MapFields(OGRLayer& layer, esriGeometryType shape_type, const SpatialReferenceRef& reference,
                                 ColumnStore store);

/// The OGR definition of a new field: the nearest that the format has. Times of day without a day become texts where
/// it keeps only days.
[[nodiscard]] std::unique_ptr<OGRFieldDefn> OgrFieldOf(const Field& field, ColumnStore store);

/// True for columns that hold several values in a row.
[[nodiscard]] inline bool IsList(OGRFieldType type) {
  return type == OFTIntegerList || type == OFTInteger64List || type == OFTRealList || type == OFTStringList;
}

/// True for a date or time that is there and that no calendar or clock knows.
[[nodiscard]] bool IsImpossibleDate(const OGRFeature& feature, int index);
/// The attribute's value; Null where it has none, `ImpossibleDate()` for such a date.
[[nodiscard]] Variant ValueOf(const OGRFeature& feature, int index, ColumnStore store);

}  // namespace tessarine::engine
