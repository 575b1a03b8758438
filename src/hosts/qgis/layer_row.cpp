// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/layer_row.h"

#include <qgsvectordataprovider.h>

#include "engine/ogr_geometry.h"
#include "hosts/qgis/values.h"
#include "hosts/windows/qt_text.h"
#include "platform/fault.h"

namespace tessarine::qgis {

Variant LayerRow::Value(std::int32_t index) const {
  if (index == traits_->columns.shape_index) return Shape();
  const int attribute = traits_->columns.AttributeOf(index);
  if (attribute == Columns::kNoAttribute) {
    if (OID() == static_cast<std::int32_t>(OID())) return static_cast<std::int32_t>(OID());
    return static_cast<std::int64_t>(OID());
  }
  return ValueOf(feature_.attribute(attribute), traits_->fields.at(attribute));
}

ValueChange LayerRow::SetValue(std::int32_t index, const Variant& value) {
  if (index == traits_->columns.shape_index) {
    SetShape(engine::ShapeOf(value));
    return ValueChange::None;
  }
  const int attribute = traits_->columns.AttributeOf(index);
  if (attribute == Columns::kNoAttribute) Raise(kInvalidCall, "The identifier of a row can't be changed.");
  if (!IsStored(traits_->fields, attribute)) {
    Raise(kInvalidCall, "The field '" + FromQt(traits_->fields.at(attribute).name()) +
                            "' is calculated or joined: it can't be written.");
  }
  const StoredValue stored = FitToField(value, traits_->fields.at(attribute), traits_->dbase);
  if (!changes_.contains(attribute)) before_.insert(attribute, NamedBefore(attribute));
  feature_.setAttribute(attribute, stored.value);
  changes_.insert(attribute, stored.value);
  return stored.change;
}

// Where none is named, as of a field that the edit has made, an undo asks the layer, record by record.
QVariant LayerRow::NamedBefore(int attribute) const {
  const QVariant value = feature_.attribute(attribute);
  return value.isValid() ? value : QVariant(traits_->fields.at(attribute).type());
}

void LayerRow::Store() {
  const std::shared_ptr<LayerClass> owner = Require(owner_.lock(), "Table");
  RowChanges changes;
  AddChanges(changes);
  owner->Change(changes);
  owner->ShowChanges(shape_changed_);
}

void LayerRow::AddChanges(RowChanges& changes) const {
  if (!changes_.isEmpty()) {
    changes.attributes.insert(feature_.id(), changes_);
    changes.before.insert(feature_.id(), before_);
  }
  if (shape_changed_) changes.shapes.insert(feature_.id(), StoredShape());
}

void LayerRow::Delete() { Require(owner_.lock(), "Table")->DeleteRow(feature_.id()); }

GeometryRef LayerRow::ReadShape() const {
  if (traits_->shape_type == esriGeometryNull) return nullptr;
  return ShapeOf(feature_.geometry(), traits_->shape_type, traits_->reference);
}

GeometryRef LayerRow::Shape() const {
  if (!shape_) shape_ = ReadShape();
  return shape_;
}

void LayerRow::SetShape(const GeometryRef& shape) {
  shape_ = shape;
  shape_changed_ = true;
}

GeometryRef LayerRow::ShapeCopy() const {
  // While nobody holds the shape itself, one that is read for the caller is a copy.
  return shape_ ? CloneOf(*shape_) : ReadShape();
}

Envelope LayerRow::Extent() const {
  const GeometryRef shape = Shape();
  return shape ? shape->Envelope() : Envelope();
}

void LayerRow::Refill(const QgsFeature& feature) {
  feature_ = feature;
  shape_ = nullptr;
  shape_changed_ = false;
  changes_.clear();
  before_.clear();
}

QgsGeometry LayerRow::StoredShape() const {
  if (!shape_) return {};
  QgsVectorDataProvider& provider = *Require(owner_.lock(), "Table")->Layer().dataProvider();
  const QgsGeometry geometry = GeometryOf(*shape_, QgsWkbTypes::isCurvedType(provider.wkbType()));
  // Single or multiple, as the layer stores it; a shape of several parts stays whole.
  const QVector<QgsGeometry> fitting = geometry.coerceToType(provider.wkbType());
  return fitting.size() == 1 ? fitting.front() : geometry;
}

QgsFeature LayerRow::ForInsert() const {
  QgsFeature feature = feature_;
  if (shape_changed_) feature.setGeometry(StoredShape());
  return feature;
}

}  // namespace tessarine::qgis
