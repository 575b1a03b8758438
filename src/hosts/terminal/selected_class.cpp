// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/selected_class.h"

#include "engine/data_source.h"

namespace tessarine {
namespace {

class RowsOfClass final : public IFeatureClass, public IDatasetFiles {
 public:
  RowsOfClass(std::shared_ptr<IFeatureClass> features, std::vector<std::int64_t> oids)
      : features_(std::move(features)), rows_(SelectByOids(features_, std::move(oids))) {}

  [[nodiscard]] std::int32_t FindField(std::string_view name) const override { return features_->FindField(name); }
  [[nodiscard]] FieldsRef Fields() const override { return features_->Fields(); }
  void AddField(const FieldRef&) override { RaiseReadOnly(); }

  [[nodiscard]] std::string Name() const override { return features_->Name(); }
  [[nodiscard]] std::string FullName() const override { return features_->FullName(); }
  [[nodiscard]] std::string BrowseName() const override { return features_->BrowseName(); }
  [[nodiscard]] std::string Category() const override { return features_->Category(); }
  [[nodiscard]] std::shared_ptr<IWorkspace> Workspace() const override { return features_->Workspace(); }
  [[nodiscard]] std::shared_ptr<IPropertySet> PropertySet() const override { return features_->PropertySet(); }
  void Delete() override { RaiseReadOnly(); }

  [[nodiscard]] SpatialReferenceRef SpatialReference() const override { return features_->SpatialReference(); }
  [[nodiscard]] Envelope Extent() const override { return features_->Extent(); }
  [[nodiscard]] esriGeometryType ShapeType() const override { return features_->ShapeType(); }
  [[nodiscard]] std::string ShapeFieldName() const override { return features_->ShapeFieldName(); }
  [[nodiscard]] std::string AliasName() const override { return features_->AliasName(); }

  [[nodiscard]] std::int32_t FeatureCount(const QueryFilter* filter) const override {
    if (filter == nullptr) return rows_->Count();
    std::int32_t count = 0;
    const auto cursor = rows_->Search(filter, true);
    while (cursor->NextRow()) ++count;
    return count;
  }
  [[nodiscard]] std::shared_ptr<IFeatureCursor> Search(const QueryFilter* filter, bool recycling) override {
    return Require(Cast<IFeatureCursor>(rows_->Search(filter, recycling)), "IFeatureCursor");
  }
  [[nodiscard]] std::shared_ptr<IFeatureCursor> Update(const QueryFilter*, bool) override { RaiseReadOnly(); }
  [[nodiscard]] std::shared_ptr<IFeatureCursor> Insert(bool) override { RaiseReadOnly(); }
  [[nodiscard]] std::shared_ptr<IFeatureBuffer> CreateFeatureBuffer() override {
    return features_->CreateFeatureBuffer();
  }
  [[nodiscard]] std::shared_ptr<IFeature> GetFeature(std::int64_t oid) override { return features_->GetFeature(oid); }

  [[nodiscard]] DatasetFiles Files() const override {
    const auto files = Cast<IDatasetFiles>(features_);
    return files ? files->Files() : DatasetFiles();
  }

 private:
  [[noreturn]] static void RaiseReadOnly() { Raise(kInvalidCall, "The selected rows are only read."); }

  std::shared_ptr<IFeatureClass> features_;
  std::shared_ptr<ISelectionSet> rows_;
};

}  // namespace

std::shared_ptr<IFeatureClass> SelectedClass(std::shared_ptr<IFeatureClass> features, std::vector<std::int64_t> oids) {
  return std::make_shared<RowsOfClass>(std::move(features), std::move(oids));
}

}  // namespace tessarine
