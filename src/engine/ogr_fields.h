// Fields of the platform over those of an OGR layer.
#pragma once

#include <ogrsf_frmts.h>

#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "platform/field.h"
#include "platform/variant.h"

namespace tessarine::engine {

/// The fields of a layer: the identifier first, the shape second where there is one, then the attributes.
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
                                 bool is_shapefile);

/// The OGR definition of a new field.
[[nodiscard]] std::unique_ptr<OGRFieldDefn> OgrFieldOf(const Field& field, bool dbase);

/// The attribute's value; Null where it has none.
[[nodiscard]] Variant ValueOf(const OGRFeature& feature, int index);

/// The number as a column of this width keeps it: right rounded, with as many of the decimals as there is room for.
/// Nothing when it doesn't fit.
[[nodiscard]] std::string_view NumberInColumn(double value, std::size_t width, int decimals, std::span<char> room);

/// Writes attributes of one layer. Knows which fields a dBASE table keeps as text of a fixed width.
class AttributeWriter {
 public:
  AttributeWriter() = default;
  AttributeWriter(const OGRFeatureDefn& definition, bool dbase);

  /// Fault 13 for a value that is no such field's, fault 6 for one that doesn't fit; both name the field.
  void Write(OGRFeature& feature, int index, const Variant& value) const;

 private:
  struct Column {
    OGRFieldType type = OFTString;
    int width = 0, decimals = 0;
    double safe_limit = 0.0;  // numbers below it fit with all decimals; 0 without a limit
  };
  [[nodiscard]] double Fitted(double value, const Column& column, const char* name) const;
  void WriteNumber(OGRFeature& feature, int index, const Variant& value) const;

  std::vector<Column> columns_;
};

}  // namespace tessarine::engine
