// SPDX-License-Identifier: GPL-2.0-or-later
// The fields of a layer and the values in them.
#pragma once

#include <qgsfield.h>
#include <qgsvectorlayer.h>

#include <QVariant>
#include <vector>

#include "outputs/formats.h"
#include "platform/field.h"
#include "platform/value_change.h"
#include "platform/variant.h"

namespace tessarine::qgis {

/// The fields as the suite sees them: the identifier, the shape where there is one, then the attributes.
struct Columns {
  static constexpr int kNoAttribute = -1;

  FieldsRef fields;
  std::int32_t shape_index = -1;
  std::vector<int> attributes;  ///< the layer's index of each field, `kNoAttribute` for identifier and shape

  /// The layer's index; fault 5 outside the list.
  [[nodiscard]] int AttributeOf(std::int32_t index) const;
};

/// What is known of the format that the layer is kept in.
[[nodiscard]] Format FactsOfLayer(const QgsVectorLayer& layer);

/// Whether values of the field are kept with the row: those of the data and those added in an edit session, not joined
/// and calculated ones.
[[nodiscard]] bool IsStored(const QgsFields& fields, int index);

/// A field whose values are several in a row.
[[nodiscard]] bool IsList(const QgsField& field);

/// The shape field has no reference yet.
[[nodiscard]] Columns ColumnsOf(const QgsVectorLayer& layer);

[[nodiscard]] Variant ValueOf(const QVariant& value, const QgsField& field);

struct StoredValue {
  QVariant value;
  ValueChange change = ValueChange::None;
};
/// The value as the field stores it, and what became of it. `dbase` fields keep numbers as text of a fixed width. Fault
/// 5 for fields that can't be written.
[[nodiscard]] StoredValue FitToField(const Variant& value, const QgsField& field, bool dbase);

/// A field that the layer's provider can add; its nearest type. Fault 13 when it has none.
[[nodiscard]] QgsField NewFieldFor(const Field& field, const QgsVectorDataProvider& provider);

}  // namespace tessarine::qgis
