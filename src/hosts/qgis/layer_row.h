// SPDX-License-Identifier: GPL-2.0-or-later
// Rows over the program's features.
#pragma once

#include <qgsfeature.h>

#include <memory>

#include "hosts/qgis/layer_class.h"
#include "platform/data.h"

namespace tessarine::qgis {

/// A row of a layer: what was read, or what is to be inserted.
class LayerRow final : public virtual IFeature {
 public:
  LayerRow(std::shared_ptr<const LayerTraits> traits, const QgsFeature& feature, std::weak_ptr<LayerClass> owner)
      : traits_(std::move(traits)), feature_(feature), owner_(std::move(owner)) {}

  [[nodiscard]] FieldsRef Fields() const override { return traits_->columns.fields; }
  [[nodiscard]] Variant Value(std::int32_t index) const override;
  ValueChange SetValue(std::int32_t index, const Variant& value) override;
  [[nodiscard]] std::int64_t OID() const override { return feature_.id(); }
  [[nodiscard]] bool HasOID() const override { return true; }
  void Store() override;
  void Delete() override;
  [[nodiscard]] std::shared_ptr<IClass> Table() const override { return owner_.lock(); }
  [[nodiscard]] GeometryRef Shape() const override;
  void SetShape(const GeometryRef& shape) override;
  [[nodiscard]] GeometryRef ShapeCopy() const override;
  [[nodiscard]] Envelope Extent() const override;

  void Refill(const QgsFeature& feature);
  /// What was set since the row was read, by the layer's field indexes.
  void AddChanges(RowChanges& changes) const;
  /// The whole row as the provider inserts it.
  [[nodiscard]] QgsFeature ForInsert() const;

 private:
  [[nodiscard]] GeometryRef ReadShape() const;
  /// The shape as the layer stores it.
  [[nodiscard]] QgsGeometry StoredShape() const;
  /// The value that an undo brings back; a null of the field's type where the field is empty.
  [[nodiscard]] QVariant NamedBefore(int attribute) const;

  std::shared_ptr<const LayerTraits> traits_;
  QgsFeature feature_;
  std::weak_ptr<LayerClass> owner_;
  mutable GeometryRef shape_;
  bool shape_changed_ = false;
  QgsAttributeMap changes_, before_;
};

}  // namespace tessarine::qgis
