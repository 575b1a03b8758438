// SPDX-License-Identifier: GPL-2.0-or-later
// The data of a vector layer of the project, of any provider, as a feature class or a table.
//
// Rows are read and written through the layer and its provider, so that the program's own caches, connections and
// filters hold. The layer's filter restricts what there is. A layer that is being edited is read and changed with its
// edits, which the user saves or not. Within an edit of ours, a layer that shows just a file is that file.
#pragma once

#include <qgsfeature.h>
#include <qgsvectorlayer.h>

#include <QPointer>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "hosts/qgis/columns.h"
#include "outputs/list_fields.h"
#include "platform/stored_class.h"

namespace tessarine::qgis {

/// What all rows of one layer share. It is made anew when the layer's fields change.
struct LayerTraits {
  Columns columns;
  QgsFields fields;
  esriGeometryType shape_type = esriGeometryNull;
  SpatialReferenceRef reference;
  bool dbase = false;  ///< numbers are kept as text of a fixed width
};

/// How many rows go together at most.
struct RowBatches {
  std::size_t read = 1000;
  std::size_t write = 5000;  ///< databases commit once for each; fewer go together where they take long
};

/// Changes of rows, by the layer's field indexes.
struct RowChanges {
  QgsChangedAttributesMap attributes, before;
  QgsGeometryMap shapes;
};

/// Reads the data of a layer again; what the user selected stays selected, which the program would clear.
void ReloadKeepingSelection(QgsVectorLayer& layer);

class LayerClass : public virtual IClass,
                   public virtual IDataset,
                   public IObjectClassInfo2,
                   public IDatasetFiles,
                   public IListFields,
                   public std::enable_shared_from_this<LayerClass> {
 public:
  explicit LayerClass(QgsVectorLayer& layer, RowBatches batches = {})
      : layer_(&layer), name_(layer.name()), batches_(batches) {}

  /// Fault 91 when the layer was taken out of the project.
  [[nodiscard]] QgsVectorLayer& Layer() const;
  [[nodiscard]] std::shared_ptr<const LayerTraits> Traits() const;
  /// Writes attributes and shapes: to the edit buffer of a layer that is being edited, or else to the provider, which a
  /// fault quotes.
  void Change(const RowChanges& changes);
  void DeleteRow(QgsFeatureId oid);
  /// The rows are those of this class from here on, those of the layer again with null.
  void WorkOn(std::shared_ptr<IFeatureClass> stored) { stored_ = std::move(stored); }
  /// Whether anything went to the edit buffer since the last call of `ForgetBuffered`.
  [[nodiscard]] bool HasBuffered() const { return has_buffered_; }
  void ForgetBuffered() { has_buffered_ = false; }
  /// Lets the program read the data again: the map, open tables, and whoever listens to the layer. Only where shapes
  /// changed, too, the extent is asked for, which takes a walk over all rows in some databases.
  void ShowChanges(bool shapes_changed);

  // IClass
  [[nodiscard]] std::int32_t FindField(std::string_view name) const override { return Fields()->FindField(name); }
  [[nodiscard]] FieldsRef Fields() const override { return stored_ ? stored_->Fields() : Traits()->columns.fields; }
  void AddField(const FieldRef& field) override { AddFields({&field, 1}); }
  void AddFields(std::span<const FieldRef> fields) override;
  [[nodiscard]] std::shared_ptr<IEdit> BeginEdit() override;

  // IDataset
  [[nodiscard]] std::string Name() const override;
  /// The path of file data; for others the provider and the layer's name.
  [[nodiscard]] std::string FullName() const override;
  [[nodiscard]] std::string BrowseName() const override { return Name(); }
  [[nodiscard]] std::string Category() const override;
  [[nodiscard]] std::shared_ptr<IWorkspace> Workspace() const override;
  [[nodiscard]] std::shared_ptr<IPropertySet> PropertySet() const override;
  void Delete() override;

  /// False for a layer that is read-only or whose provider changes no attributes. One that is being edited takes
  /// changes, too: they join the user's.
  [[nodiscard]] bool CanBypassEditSession() const override;

  /// Those of joined layers, too; of a virtual layer those of the layers that it queries.
  [[nodiscard]] DatasetFiles Files() const override;
  [[nodiscard]] bool HoldsLists(std::int32_t field) const override;

  [[nodiscard]] std::int32_t CountRows(const QueryFilter* filter);
  [[nodiscard]] std::shared_ptr<IFeatureCursor> OpenReader(const QueryFilter* filter, Recycling recycling);
  enum class ChosenFor : std::uint8_t { Reading, Writing };
  /// The rows of these identifiers, in order; those for writing can be written back.
  [[nodiscard]] std::shared_ptr<IFeatureCursor> OpenChosen(std::vector<QgsFeatureId> oids, const QueryFilter* filter,
                                                           Recycling recycling, ChosenFor purpose);
  [[nodiscard]] std::shared_ptr<IFeatureCursor> OpenUpdater(const QueryFilter* filter, Recycling recycling);
  [[nodiscard]] std::shared_ptr<IFeatureCursor> OpenInserter();
  [[nodiscard]] std::shared_ptr<IFeature> ReadRow(std::int64_t oid);

 private:
  void ChangeBuffer(QgsVectorLayer& layer, const RowChanges& changes);

  QPointer<QgsVectorLayer> layer_;
  QString name_;
  RowBatches batches_;
  mutable std::shared_ptr<const LayerTraits> traits_;
  std::shared_ptr<IFeatureClass> stored_;  // only within an edit
  bool has_buffered_ = false;
};

class LayerFeatures final : public FeaturesOver<LayerClass> {
 public:
  using FeaturesOver::FeaturesOver;

  [[nodiscard]] std::string ShapeFieldName() const override;
  [[nodiscard]] Envelope Extent() const override;
  [[nodiscard]] std::int32_t FeatureCount(const QueryFilter* filter) const override;
  [[nodiscard]] std::shared_ptr<IFeatureBuffer> CreateFeatureBuffer() override;
};

class LayerTable final : public TableOver<LayerClass> {
 public:
  using TableOver::TableOver;

  [[nodiscard]] std::int32_t RowCount(const QueryFilter* filter) const override;
};

/// The rows that are selected in the layer when this is made.
class LayerSelection final : public ISelectionSet2 {
 public:
  explicit LayerSelection(std::shared_ptr<LayerClass> rows);

  [[nodiscard]] std::int32_t Count() const override { return static_cast<std::int32_t>(oids_.size()); }
  [[nodiscard]] std::shared_ptr<ICursor> Search(const QueryFilter* filter, Recycling recycling) override {
    return rows_->OpenChosen(oids_, filter, recycling, LayerClass::ChosenFor::Reading);
  }
  [[nodiscard]] std::shared_ptr<ICursor> Update(const QueryFilter* filter, Recycling recycling) override {
    return rows_->OpenChosen(oids_, filter, recycling, LayerClass::ChosenFor::Writing);
  }

 private:
  std::shared_ptr<LayerClass> rows_;
  std::vector<QgsFeatureId> oids_;
};

}  // namespace tessarine::qgis
