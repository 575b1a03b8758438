// SPDX-License-Identifier: GPL-2.0-or-later
// A feature class in memory that can be read, with failures where a test wants them.
#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "platform/data.h"

namespace tessarine::testing {

inline FieldRef NewField(const std::string& name, esriFieldType type, std::int32_t length = 0) {
  auto field = std::make_shared<Field>();
  field->Name = field->AliasName = name;
  field->Type = type;
  field->Length = length;
  return field;
}

class MemoryFeature final : public IFeature {
 public:
  MemoryFeature(std::int64_t oid, GeometryRef shape, std::vector<Variant> values)
      : oid_(oid), shape_(std::move(shape)), values_(std::move(values)) {}

  [[nodiscard]] FieldsRef Fields() const override { return nullptr; }
  [[nodiscard]] Variant Value(std::int32_t index) const override { return values_.at(static_cast<std::size_t>(index)); }
  ValueChange SetValue(std::int32_t, const Variant&) override { Raise(kInvalidCall, "read-only"); }
  [[nodiscard]] std::int64_t OID() const override { return oid_; }
  [[nodiscard]] bool HasOID() const override { return true; }
  void Store() override {}
  void Delete() override {}
  [[nodiscard]] std::shared_ptr<IClass> Table() const override { return nullptr; }
  [[nodiscard]] GeometryRef Shape() const override {
    if (broken) Raise(kOverflow, "The shape is broken.");
    return shape_;
  }
  void SetShape(const GeometryRef&) override { Raise(kInvalidCall, "read-only"); }
  [[nodiscard]] GeometryRef ShapeCopy() const override {
    const GeometryRef shape = Shape();
    return shape ? Cast<IGeometry>(shape->Clone()) : nullptr;
  }
  [[nodiscard]] Envelope Extent() const override { return shape_ ? shape_->Envelope() : Envelope(); }

  bool broken = false;  ///< asking for the shape raises a fault

 private:
  std::int64_t oid_;
  GeometryRef shape_;
  std::vector<Variant> values_;
};

class MemoryCursor final : public IFeatureCursor {
 public:
  MemoryCursor(std::vector<std::shared_ptr<MemoryFeature>> rows, std::size_t fails_at)
      : rows_(std::move(rows)), fails_at_(fails_at) {}
  [[nodiscard]] std::shared_ptr<IFeature> NextFeature() override {
    if (++read_ == fails_at_) Raise(kEngine, "The disk is {gone}.");
    return read_ <= rows_.size() ? rows_[read_ - 1] : nullptr;
  }
  [[nodiscard]] std::shared_ptr<IRow> NextRow() override { return NextFeature(); }
  void UpdateRow(const std::shared_ptr<IRow>&) override {}
  void UpdateFeature(const std::shared_ptr<IFeature>&) override {}
  std::int64_t InsertRow(const IRowBuffer&) override { return -1; }
  std::int64_t InsertFeature(const IFeatureBuffer&) override { return -1; }
  void Flush() override {}

 private:
  std::vector<std::shared_ptr<MemoryFeature>> rows_;
  std::size_t fails_at_, read_ = 0;
};

class MemoryClass final : public IFeatureClass {
 public:
  explicit MemoryClass(esriGeometryType type, std::vector<FieldRef> fields = {}) : type_(type) {
    for (FieldRef& field : fields) fields_->AddField(std::move(field));
  }
  /// Rows get the identifiers 1, 2, 3 and so on.
  void Add(GeometryRef shape, std::vector<Variant> values = {}) {
    const auto oid = static_cast<std::int64_t>(rows.size()) + 1;
    rows.push_back(std::make_shared<MemoryFeature>(oid, std::move(shape), std::move(values)));
  }

  std::vector<std::shared_ptr<MemoryFeature>> rows;
  std::size_t fails_at = 0;  ///< the row, from 1, whose reading raises a fault
  SpatialReferenceRef reference = std::make_shared<UnknownCoordinateSystem>();

  [[nodiscard]] std::int32_t FindField(std::string_view name) const override { return fields_->FindField(name); }
  [[nodiscard]] FieldsRef Fields() const override { return fields_; }
  void AddField(const FieldRef& field) override { fields_->AddField(field); }
  [[nodiscard]] std::string Name() const override { return "memory"; }
  [[nodiscard]] std::string FullName() const override { return "memory"; }
  [[nodiscard]] std::string BrowseName() const override { return "memory"; }
  [[nodiscard]] std::string Category() const override { return "Memory"; }
  [[nodiscard]] std::shared_ptr<IWorkspace> Workspace() const override { return nullptr; }
  [[nodiscard]] std::shared_ptr<IPropertySet> PropertySet() const override { return nullptr; }
  void Delete() override {}
  [[nodiscard]] SpatialReferenceRef SpatialReference() const override { return reference; }
  [[nodiscard]] Envelope Extent() const override { return {}; }
  [[nodiscard]] esriGeometryType ShapeType() const override { return type_; }
  [[nodiscard]] std::string ShapeFieldName() const override { return "Shape"; }
  [[nodiscard]] std::string AliasName() const override { return "memory"; }
  [[nodiscard]] std::int32_t FeatureCount(const QueryFilter*) const override {
    return static_cast<std::int32_t>(rows.size());
  }
  [[nodiscard]] std::shared_ptr<IFeatureCursor> Search(const QueryFilter*, Recycling) override {
    return std::make_shared<MemoryCursor>(rows, fails_at);
  }
  [[nodiscard]] std::shared_ptr<IFeatureCursor> Update(const QueryFilter*, Recycling) override { return nullptr; }
  [[nodiscard]] std::shared_ptr<IFeatureCursor> Insert(bool) override { return nullptr; }
  [[nodiscard]] std::shared_ptr<IFeatureBuffer> CreateFeatureBuffer() override { return nullptr; }
  [[nodiscard]] std::shared_ptr<IFeature> GetFeature(std::int64_t oid) override {
    return rows.at(static_cast<std::size_t>(oid - 1));
  }

 private:
  esriGeometryType type_;
  std::shared_ptr<tessarine::Fields> fields_ = std::make_shared<tessarine::Fields>();
};

}  // namespace tessarine::testing
