// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/ogr_feature.h"

#include <algorithm>
#include <cstdint>

#include "engine/engine_fault.h"
#include "engine/ogr_class.h"
#include "engine/ogr_geometry.h"
#include "platform/exact_class.h"
#include "platform/fault.h"

namespace tessarine::engine {

Variant OgrRow::Value(std::int32_t index) const {
  if (index == 0) {
    const GIntBig oid = feature_->GetFID();
    if (oid >= INT32_MIN && oid <= INT32_MAX) return static_cast<std::int32_t>(oid);
    return static_cast<std::int64_t>(oid);
  }
  if (index == traits_->fields.shape_index) return Shape();
  const int attribute = traits_->fields.OgrIndex(index);
  if (attribute < 0 || attribute >= feature_->GetFieldCount()) {
    Raise(kInvalidCall, "A row has no field " + std::to_string(index) + ".");
  }
  if (const auto whole = WideNumber(attribute)) return *whole;
  return ValueOf(*feature_, attribute, traits_->store);
}

bool OgrRow::HasChanged(int attribute) const {
  return std::ranges::find(changed_attributes_, attribute) != changed_attributes_.end();
}

std::optional<std::int64_t> OgrRow::WideNumber(int attribute) const {
  const WideNumbers* wide = traits_->wide_numbers.get();
  const bool stored = wide != nullptr && wide->IsWide(attribute) && Use() == RowUse::Stored;
  if (!stored || HasChanged(attribute) || feature_->IsFieldSetAndNotNull(attribute) == 0) return std::nullopt;
  return wide->Read(feature_->GetFID(), attribute);
}

ValueChange OgrRow::SetValue(std::int32_t index, const Variant& value) {
  if (index == traits_->fields.shape_index) {
    SetShape(ShapeOf(value));
    return ValueChange::None;
  }
  const int attribute = traits_->fields.OgrIndex(index);
  if (attribute < 0 || index >= traits_->fields.fields->FieldCount()) {
    Raise(kInvalidCall, "The field " + std::to_string(index) + " of a row can't be written.");
  }
  const ValueChange change = traits_->writer.Write(*feature_, attribute, value, Use());
  std::erase(exponents_, attribute);
  if (traits_->writer.NeedsExponent(*feature_, attribute)) exponents_.push_back(attribute);
  if (Use() == RowUse::Stored && !HasChanged(attribute)) changed_attributes_.push_back(attribute);
  return change;
}

GeometryRef OgrRow::Shape() const {
  if (!shape_) shape_ = ReadShape();
  return shape_;
}

void OgrRow::RequireReadable() const {
  if (!shape_fault_.empty() && !shape_changed_) RaiseEngineFault(shape_fault_);
}

GeometryRef OgrRow::ReadShape() const {
  RequireReadable();
  return ShapeFromOgr(feature_->GetGeometryRef(), traits_->shape_type, traits_->reference);
}

void OgrRow::SetShape(const GeometryRef& shape) {
  shape_ = shape;
  shape_changed_ = true;
}

void OgrRow::StoreShape() const {
  if (!shape_changed_) return;
  const auto* point = shape_ ? ExactlyAs<Point>(*shape_) : nullptr;
  if (point != nullptr && !point->IsEmpty()) {
    OGRGeometry* standing = feature_->GetGeometryRef();
    if (standing != nullptr && standing->getGeometryType() == wkbPoint) {
      standing->toPoint()->setX(point->X());
      standing->toPoint()->setY(point->Y());
      return;
    }
  }
  std::unique_ptr<OGRGeometry> own = shape_ ? OgrFromShape(*shape_, traits_->curves) : nullptr;
  if (own && traits_->only_multiple != wkbUnknown && own->hasCurveGeometry() == 0) {
    own.reset(OGRGeometryFactory::forceTo(own.release(), traits_->only_multiple));
  }
  feature_->SetGeometryDirectly(own.release());
}

void OgrRow::StoreAll() const {
  StoreShape();
  traits_->writer.GuardFromCutting(*feature_, changed_attributes_);
}

void OgrRow::Refill(OgrFeatureHandle feature) {
  feature_ = std::move(feature);
  shape_ = nullptr;
  shape_fault_.clear();
  shape_changed_ = false;
  changed_attributes_.clear();
  exponents_.clear();
}

void OgrRow::TakeFrom(OgrRow& other) {
  Refill(std::move(other.feature_));
  shape_fault_ = std::move(other.shape_fault_);
}

void OgrRow::Rebind(OGRFeatureDefn& definition) {
  if (feature_->GetDefnRef() == &definition) return;
  OgrFeatureHandle rebound(OGRFeature::CreateFeature(&definition));
  for (int index = 0; index < feature_->GetFieldCount(); ++index) {
    if (feature_->IsFieldSet(index) != 0) rebound->SetField(index, feature_->GetRawFieldRef(index));
  }
  rebound->SetGeometryDirectly(feature_->StealGeometry());
  feature_ = std::move(rebound);
}

void OgrFeature::Store() {
  const auto owner = Cast<OgrClass>(Table());
  Require(owner, "Table")->StoreRow(*this);
}

void OgrFeature::Delete() {
  const auto owner = Cast<OgrClass>(Table());
  Require(owner, "Table")->DeleteRow(OID());
}

GeometryRef OgrFeature::ShapeCopy() const {
  if (const GeometryRef& known = KnownShape()) return CloneOf(*known);
  // What is made here belongs to nobody else.
  return ReadShape();
}

Envelope OgrFeature::Extent() const {
  const GeometryRef shape = Shape();
  return shape ? shape->Envelope() : Envelope();
}

}  // namespace tessarine::engine
