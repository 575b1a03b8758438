// SPDX-License-Identifier: GPL-2.0-or-later
// A layer of a file as GDAL alone reads it.
#pragma once

#include <ogrsf_frmts.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/text_formats.h"

namespace tessarine::testing {

struct StoredValue {
  std::string name;
  bool is_null = false;
  std::string text;      ///< as GDAL writes it; "NULL" for null
  std::string shortest;  ///< the same, but of a number the fewest digits that tell it
};

struct StoredRow {
  std::vector<StoredValue> fields;
  std::unique_ptr<OGRGeometry> shape;

  /// The texts, a blank after each.
  [[nodiscard]] std::string Values() const {
    std::string values;
    for (const StoredValue& field : fields) values += field.text + " ";
    return values;
  }
  [[nodiscard]] std::string Wkt(const char* without_shape) const {
    return shape ? shape->exportToWkt() : without_shape;
  }
  [[nodiscard]] double Area() const { return shape ? OGR_G_Area(OGRGeometry::ToHandle(shape.get())) : 0.0; }
  [[nodiscard]] OGREnvelope Extent() const {
    OGREnvelope box;
    shape->getEnvelope(&box);
    return box;
  }
};

struct StoredLayer {
  std::string fields;     ///< the names, a blank after each
  std::string reference;  ///< its name; empty for none
  std::vector<StoredRow> rows;
};

/// A layer by its name, or else the first one; empty where there is no such file or layer.
inline StoredLayer ReadStored(const std::string& file, const char* layer_name = nullptr) {
  GDALAllRegister();
  StoredLayer result;
  const GDALDatasetUniquePtr dataset(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
  if (!dataset) return result;
  OGRLayer* layer = layer_name != nullptr ? dataset->GetLayerByName(layer_name) : dataset->GetLayer(0);
  if (layer == nullptr) return result;
  const OGRFeatureDefn& definition = *layer->GetLayerDefn();
  for (int field = 0; field < definition.GetFieldCount(); ++field) {
    result.fields += std::string(definition.GetFieldDefn(field)->GetNameRef()) + " ";
  }
  if (layer->GetSpatialRef() != nullptr) result.reference = layer->GetSpatialRef()->GetName();
  for (const auto& feature : *layer) {
    StoredRow row;
    for (int field = 0; field < feature->GetFieldCount(); ++field) {
      const OGRFieldDefn& column = *definition.GetFieldDefn(field);
      StoredValue value{column.GetNameRef(), !feature->IsFieldSetAndNotNull(field), "NULL", "NULL"};
      if (!value.is_null) {
        value.text = feature->GetFieldAsString(field);
        value.shortest = column.GetType() == OFTReal ? NumberText(feature->GetFieldAsDouble(field)) : value.text;
      }
      row.fields.push_back(std::move(value));
    }
    row.shape.reset(feature->StealGeometry());
    result.rows.push_back(std::move(row));
  }
  return result;
}

}  // namespace tessarine::testing
