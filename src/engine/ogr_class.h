// SPDX-License-Identifier: GPL-2.0-or-later
// Feature classes and tables over OGR layers.
//
// The fields are read once, when the class is made, and again when one was added. Cursors ask the source for a layer to
// read or to write; `RowsChange` tells what keeps copies of rows that they aren't right any more. One thread at a time
// may use a class and its cursors.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "engine/ogr_feature.h"
#include "engine/ogr_source.h"
#include "platform/stored_class.h"

namespace tessarine::engine {

/// What feature classes and tables share.
class OgrClass : public virtual IClass,
                 public virtual IDataset,
                 public IObjectClassInfo2,
                 public IDatasetFiles,
                 public std::enable_shared_from_this<OgrClass> {
 public:
  explicit OgrClass(std::shared_ptr<OgrSource> source);

  [[nodiscard]] std::int32_t FindField(std::string_view name) const override;
  [[nodiscard]] FieldsRef Fields() const override { return traits_->fields.fields; }
  void AddField(const FieldRef& field) override { AddFields({&field, 1}); }
  void AddFields(std::span<const FieldRef> fields) override;
  [[nodiscard]] std::shared_ptr<IEdit> BeginEdit() override;

  [[nodiscard]] std::string Name() const override;
  [[nodiscard]] std::string FullName() const override;
  [[nodiscard]] std::string BrowseName() const override { return Name(); }
  [[nodiscard]] std::string Category() const override;
  [[nodiscard]] std::shared_ptr<IWorkspace> Workspace() const override;
  [[nodiscard]] std::shared_ptr<IPropertySet> PropertySet() const override;
  void Delete() override;
  [[nodiscard]] bool CanBypassEditSession() const override;
  [[nodiscard]] DatasetFiles Files() const override;

  /// What is known of the format that it stands in.
  [[nodiscard]] const Format& FormatFacts() const { return facts_; }
  [[nodiscard]] const std::shared_ptr<OgrSource>& Source() const { return source_; }
  [[nodiscard]] std::shared_ptr<const RowTraits> Traits() const { return traits_; }
  void StoreRow(const OgrRow& row);
  void DeleteRow(std::int64_t oid);
  /// To be called before GDAL writes rows.
  void RowsChange() const;

  [[nodiscard]] std::int32_t CountRows(const QueryFilter* filter) const;
  [[nodiscard]] std::shared_ptr<IFeatureCursor> OpenReader(const QueryFilter* filter, Recycling recycling);
  /// A cursor that writes back what it reads; with `chosen`, only over the rows of these identifiers, in order.
  [[nodiscard]] std::shared_ptr<IFeatureCursor> OpenUpdater(
      const QueryFilter* filter, Recycling recycling,
      std::shared_ptr<const std::vector<std::int64_t>> chosen = nullptr);
  [[nodiscard]] std::shared_ptr<IFeatureCursor> OpenInserter();
  [[nodiscard]] std::shared_ptr<IFeature> ReadRow(std::int64_t oid);

 protected:
  [[nodiscard]] Envelope LayerExtent() const;
  /// The rows are those of another source from here on; the fields may have other names there.
  void MoveTo(std::shared_ptr<OgrSource> source);

 private:
  void ReadTraits();
  void AddAllFields(std::span<const FieldRef> fields);
  void CreateField(const Field& field);
  void DeleteLayer();

  std::shared_ptr<OgrSource> source_;
  std::shared_ptr<const RowTraits> traits_;
  std::string driver_;
  Format facts_;
};

class OgrFeatureClass : public FeaturesOver<OgrClass> {
 public:
  using FeaturesOver::FeaturesOver;

  [[nodiscard]] std::string ShapeFieldName() const override;
  [[nodiscard]] Envelope Extent() const override { return LayerExtent(); }
  [[nodiscard]] std::int32_t FeatureCount(const QueryFilter* filter) const override { return CountRows(filter); }
  [[nodiscard]] std::shared_ptr<IFeatureBuffer> CreateFeatureBuffer() override;
  [[nodiscard]] std::vector<LeftOutRecords> LeftOut() const override;
};

class OgrTable final : public TableOver<OgrClass> {
 public:
  using TableOver::TableOver;

  [[nodiscard]] std::int32_t RowCount(const QueryFilter* filter) const override { return CountRows(filter); }
};

}  // namespace tessarine::engine
