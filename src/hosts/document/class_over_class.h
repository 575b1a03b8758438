// SPDX-License-Identifier: GPL-2.0-or-later
// A class that stands for another one.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/data.h"

namespace tessarine {

/// Hands everything on to the class beneath; what is to be otherwise is overridden.
class ClassOverClass : public IFeatureClass {
 public:
  explicit ClassOverClass(std::shared_ptr<IFeatureClass> beneath) : beneath_(std::move(beneath)) {}

  // IClass
  [[nodiscard]] std::int32_t FindField(std::string_view name) const override { return beneath_->FindField(name); }
  [[nodiscard]] FieldsRef Fields() const override { return beneath_->Fields(); }
  void AddField(const FieldRef& field) override { beneath_->AddField(field); }
  void AddFields(std::span<const FieldRef> fields) override { beneath_->AddFields(fields); }
  [[nodiscard]] std::shared_ptr<IEdit> BeginEdit() override { return beneath_->BeginEdit(); }

  // IDataset
  [[nodiscard]] std::string Name() const override { return beneath_->Name(); }
  [[nodiscard]] std::string FullName() const override { return beneath_->FullName(); }
  [[nodiscard]] std::string BrowseName() const override { return beneath_->BrowseName(); }
  [[nodiscard]] std::string Category() const override { return beneath_->Category(); }
  [[nodiscard]] std::shared_ptr<IWorkspace> Workspace() const override { return beneath_->Workspace(); }
  [[nodiscard]] std::shared_ptr<IPropertySet> PropertySet() const override { return beneath_->PropertySet(); }
  void Delete() override { beneath_->Delete(); }

  // IGeoDataset
  [[nodiscard]] SpatialReferenceRef SpatialReference() const override { return beneath_->SpatialReference(); }
  [[nodiscard]] tessarine::Envelope Extent() const override { return beneath_->Extent(); }

  // IFeatureClass
  [[nodiscard]] esriGeometryType ShapeType() const override { return beneath_->ShapeType(); }
  [[nodiscard]] std::string ShapeFieldName() const override { return beneath_->ShapeFieldName(); }
  [[nodiscard]] std::string AliasName() const override { return beneath_->AliasName(); }
  [[nodiscard]] std::int32_t FeatureCount(const QueryFilter* filter) const override {
    return beneath_->FeatureCount(filter);
  }
  [[nodiscard]] std::shared_ptr<IFeatureCursor> Search(const QueryFilter* filter, Recycling recycling) override {
    return beneath_->Search(filter, recycling);
  }
  [[nodiscard]] std::shared_ptr<IFeatureCursor> Update(const QueryFilter* filter, Recycling recycling) override {
    return beneath_->Update(filter, recycling);
  }
  [[nodiscard]] std::shared_ptr<IFeatureCursor> Insert(bool use_buffering) override {
    return beneath_->Insert(use_buffering);
  }
  [[nodiscard]] std::shared_ptr<IFeatureBuffer> CreateFeatureBuffer() override {
    return beneath_->CreateFeatureBuffer();
  }
  [[nodiscard]] std::vector<LeftOutRecords> LeftOut() const override { return beneath_->LeftOut(); }
  [[nodiscard]] std::shared_ptr<IFeature> GetFeature(std::int64_t oid) override { return beneath_->GetFeature(oid); }

 protected:
  [[nodiscard]] const std::shared_ptr<IFeatureClass>& Beneath() const { return beneath_; }

 private:
  std::shared_ptr<IFeatureClass> beneath_;
};

}  // namespace tessarine
