// SPDX-License-Identifier: GPL-2.0-or-later
// Rows over OGR features.
#pragma once

#include <ogrsf_frmts.h>

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "engine/attribute_writer.h"
#include "engine/ogr_fields.h"
#include "engine/wide_numbers.h"
#include "platform/data.h"

namespace tessarine::engine {

using OgrFeatureHandle = std::unique_ptr<OGRFeature, OGRFeatureUniquePtrDeleter>;

/// What all rows of one class share.
struct RowTraits {
  FieldMap fields;
  ColumnStore store = ColumnStore::Other;
  AttributeWriter writer;
  std::shared_ptr<const WideNumbers> wide_numbers;  ///< where there are any
  esriGeometryType shape_type = esriGeometryNull;
  SpatialReferenceRef reference;
  bool curves = false;  ///< the format stores circular arcs
  /// Of a layer that holds nothing but multiple shapes; `wkbUnknown` of all others.
  OGRwkbGeometryType only_multiple = wkbUnknown;
};

/// A row of a class: what was read, or what is to be inserted.
class OgrRow : public virtual IFeatureBuffer {
 public:
  OgrRow(std::shared_ptr<const RowTraits> traits, OgrFeatureHandle feature)
      : traits_(std::move(traits)), feature_(std::move(feature)) {}

  [[nodiscard]] FieldsRef Fields() const override { return traits_->fields.fields; }
  [[nodiscard]] Variant Value(std::int32_t index) const override;
  ValueChange SetValue(std::int32_t index, const Variant& value) override;
  [[nodiscard]] GeometryRef Shape() const override;
  void SetShape(const GeometryRef& shape) override;

  [[nodiscard]] OGRFeature& Feature() const { return *feature_; }
  [[nodiscard]] bool ShapeChanged() const { return shape_changed_; }
  /// The OGR indexes of the attributes of a stored row that were set, each once.
  [[nodiscard]] std::span<const int> ChangedAttributes() const { return changed_attributes_; }
  [[nodiscard]] virtual RowUse Use() const { return RowUse::New; }
  /// The OGR indexes of the numbers that were set and need an exponent.
  [[nodiscard]] std::span<const int> Exponents() const { return exponents_; }
  /// The shape is there and can't be read, for this reason: whoever asks for it gets the fault.
  void LackShape(std::string reason) { shape_fault_ = std::move(reason); }
  /// Raises the fault of a shape that can't be read.
  void RequireReadable() const;
  /// Puts the shape that was set into the OGR feature.
  void StoreShape() const;
  /// The same, and makes the attributes that were set ready to be written by GDAL.
  void StoreAll() const;
  void Refill(OgrFeatureHandle feature);
  /// Becomes the row that the other one was, which is of no use any more.
  void TakeFrom(OgrRow& other);
  /// Takes on the layout of another handle on the same layer.
  void Rebind(OGRFeatureDefn& definition);

 protected:
  [[nodiscard]] const RowTraits& Traits() const { return *traits_; }
  /// The shape where it was asked for or set before; else null.
  [[nodiscard]] const GeometryRef& KnownShape() const { return shape_; }
  [[nodiscard]] GeometryRef ReadShape() const;

 private:
  [[nodiscard]] bool HasChanged(int attribute) const;
  /// The digits of a number that OGR has read as a double; empty where it is none of those, or was set.
  [[nodiscard]] std::optional<std::int64_t> WideNumber(int attribute) const;

  std::shared_ptr<const RowTraits> traits_;
  OgrFeatureHandle feature_;
  mutable GeometryRef shape_;
  std::string shape_fault_;  // empty where the shape was read, or there is none
  bool shape_changed_ = false;
  std::vector<int> changed_attributes_;
  std::vector<int> exponents_;
};

/// A stored feature, or a stored row of a table.
class OgrFeature final : public OgrRow, public virtual IFeature {
 public:
  OgrFeature(std::shared_ptr<const RowTraits> traits, OgrFeatureHandle feature, std::weak_ptr<IClass> table)
      : OgrRow(std::move(traits), std::move(feature)), table_(std::move(table)) {}

  [[nodiscard]] std::int64_t OID() const override { return Feature().GetFID(); }
  [[nodiscard]] bool HasOID() const override { return true; }
  [[nodiscard]] RowUse Use() const override { return RowUse::Stored; }
  void Store() override;
  void Delete() override;
  [[nodiscard]] std::shared_ptr<IClass> Table() const override { return table_.lock(); }
  [[nodiscard]] GeometryRef ShapeCopy() const override;
  [[nodiscard]] Envelope Extent() const override;

 private:
  std::weak_ptr<IClass> table_;
};

}  // namespace tessarine::engine
