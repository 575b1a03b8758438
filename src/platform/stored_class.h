// SPDX-License-Identifier: GPL-2.0-or-later
// What classes over stored data have in common, whoever reads and writes their rows.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/data.h"

namespace tessarine {

/// Whole numbers of so few digits count as 16 bits wide. A width of 0 is none.
[[nodiscard]] inline bool IsShortWhole(int width) {
  constexpr int kLongestShort = 4;
  return width > 0 && width <= kLongestShort;
}

/// The width of a column as its field tells it: of texts a length, of numbers digits and decimals.
inline void SetStoredWidth(Field& field, int width, int decimals) {
  if (field.Type == esriFieldTypeString || field.Type == esriFieldTypeGUID) {
    field.Length = width;
  } else if (field.Type != esriFieldTypeDate && field.Type != esriFieldTypeBlob) {
    field.Precision = width;
    field.Scale = decimals;
  }
}

/// The field of the row identifiers, which nobody can write.
[[nodiscard]] inline FieldRef StoredOidField(const std::string& name) {
  auto field = std::make_shared<Field>();
  field->Name = field->AliasName = name;
  field->Type = esriFieldTypeOID;
  field->Editable = false;
  field->IsNullable = false;
  return field;
}

/// The field of the shapes, without heights and measures.
[[nodiscard]] inline FieldRef StoredShapeField(const std::string& name, esriGeometryType type,
                                               const SpatialReferenceRef& reference) {
  auto field = std::make_shared<Field>();
  field->Name = field->AliasName = name;
  field->Type = esriFieldTypeGeometry;
  field->GeometryDef = std::make_shared<GeometryDef>();
  field->GeometryDef->GeometryType = type;
  field->GeometryDef->SpatialReference = reference;
  return field;
}

/// A feature class over rows that know how to be read and written: a class and dataset with `Traits`, `OpenReader`,
/// `OpenUpdater`, `OpenInserter` and `ReadRow`.
template <class Rows>
class FeaturesOver : public Rows, public IFeatureClass {
 public:
  using Rows::Rows;

  [[nodiscard]] esriGeometryType ShapeType() const override { return this->Traits()->shape_type; }
  [[nodiscard]] std::string AliasName() const override { return this->Name(); }
  [[nodiscard]] SpatialReferenceRef SpatialReference() const override { return this->Traits()->reference; }
  [[nodiscard]] std::shared_ptr<IFeatureCursor> Search(const QueryFilter* filter, Recycling recycling) override {
    return this->OpenReader(filter, recycling);
  }
  [[nodiscard]] std::shared_ptr<IFeatureCursor> Update(const QueryFilter* filter, Recycling recycling) override {
    return this->OpenUpdater(filter, recycling);
  }
  [[nodiscard]] std::shared_ptr<IFeatureCursor> Insert(bool) override { return this->OpenInserter(); }
  [[nodiscard]] std::shared_ptr<IFeature> GetFeature(std::int64_t oid) override { return this->ReadRow(oid); }
};

/// The same as a table.
template <class Rows>
class TableOver : public Rows, public ITable {
 public:
  using Rows::Rows;

  [[nodiscard]] std::shared_ptr<ICursor> SearchRows(const QueryFilter* filter, Recycling recycling) override {
    return this->OpenReader(filter, recycling);
  }
  [[nodiscard]] std::shared_ptr<IRow> GetRow(std::int64_t oid) override { return this->ReadRow(oid); }
  [[nodiscard]] std::shared_ptr<ICursor> InsertRows(bool) override { return this->OpenInserter(); }
  [[nodiscard]] std::shared_ptr<ICursor> UpdateRows(const QueryFilter* filter, Recycling recycling) override {
    return this->OpenUpdater(filter, recycling);
  }
};

}  // namespace tessarine
