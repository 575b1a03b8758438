// SPDX-License-Identifier: GPL-2.0-or-later
// The layers of the project as the suite sees them.
#pragma once

#include <qgslayertreegroup.h>
#include <qgsmaplayer.h>
#include <qgsproject.h>
#include <qgssymbol.h>
#include <qgsvectorlayer.h>

#include <QPointer>
#include <map>
#include <memory>
#include <vector>

#include "hosts/qgis/layer_class.h"
#include "platform/map.h"

namespace tessarine::qgis {

class ProgramSymbol final : public ISymbol {
 public:
  explicit ProgramSymbol(std::unique_ptr<QgsSymbol> symbol) : symbol_(std::move(symbol)) {}
  [[nodiscard]] const QgsSymbol& Symbol() const { return *symbol_; }

 private:
  std::unique_ptr<QgsSymbol> symbol_;
};

class SingleRenderer final : public ISimpleRenderer {
 public:
  void SetSymbol(const std::shared_ptr<ISymbol>& symbol) override { symbol_ = Cast<ProgramSymbol>(symbol); }
  [[nodiscard]] const std::shared_ptr<ProgramSymbol>& Symbol() const { return symbol_; }

 private:
  std::shared_ptr<ProgramSymbol> symbol_;
};

/// A vector layer of the project, or a new one that is going to be added to it.
class VectorLayer final : public IGeoFeatureLayer, public IFeatureSelection, public ILayerFields, public IGeoDataset {
 public:
  VectorLayer() = default;
  explicit VectorLayer(QgsVectorLayer& layer);

  [[nodiscard]] QgsVectorLayer* Shown() const { return layer_; }
  /// Makes the program's layer of a new one; its data must be closed. Fault for data that the program can't open.
  [[nodiscard]] std::unique_ptr<QgsVectorLayer> MakeShown() const;
  /// Stands for the program's layer from now on, which lies in the project already.
  void Attach(QgsVectorLayer& layer);

  [[nodiscard]] std::string Name() const override;
  void SetName(const std::string& name) override;
  [[nodiscard]] bool Valid() const override;
  void SetVisible(bool visible) override;
  [[nodiscard]] std::shared_ptr<IFeatureClass> FeatureClass() const override;
  void SetFeatureClass(const std::shared_ptr<IFeatureClass>& feature_class) override { class_ = feature_class; }
  [[nodiscard]] std::string DataSourceType() const override;
  void SetRenderer(const std::shared_ptr<IFeatureRenderer>& renderer) override;

  [[nodiscard]] std::shared_ptr<ISelectionSet> SelectionSet() const override;
  [[nodiscard]] tessarine::FieldInfo FieldInfo(std::int32_t index) const override;
  [[nodiscard]] std::int32_t FindField(std::string_view name) const override;
  [[nodiscard]] SpatialReferenceRef SpatialReference() const override;
  [[nodiscard]] Envelope Extent() const override;

 private:
  void ApplyRenderer() const;

  QPointer<QgsVectorLayer> layer_;
  std::string name_;
  bool visible_ = true;
  std::shared_ptr<IFeatureClass> class_;
  std::shared_ptr<LayerFeatures> own_class_;
  std::shared_ptr<SingleRenderer> renderer_;
};

/// A table without shapes.
class ProjectTable final : public IStandaloneTable {
 public:
  explicit ProjectTable(QgsVectorLayer& layer);
  [[nodiscard]] std::string Name() const override;
  [[nodiscard]] std::shared_ptr<ITable> Table() const override { return table_; }

 private:
  std::shared_ptr<LayerTable> table_;
};

/// True for a vector layer that holds no shapes.
[[nodiscard]] bool IsTable(const QgsMapLayer& layer);

/// One object of ours for each layer and group of the project, so that a layer met twice is the same.
class LayerBook {
 public:
  [[nodiscard]] std::shared_ptr<ILayer> Of(QgsMapLayer& layer);
  [[nodiscard]] std::shared_ptr<ILayer> Of(QgsLayerTreeGroup& group);
  void Know(QgsMapLayer& shown, const std::shared_ptr<ILayer>& layer);
  void Clear() { entries_.clear(); }

 private:
  struct Entry {
    QPointer<QObject> shown;
    std::shared_ptr<ILayer> layer;
  };
  template <class Make>
  std::shared_ptr<ILayer> Find(QObject& shown, Make&& make);

  std::map<const QObject*, Entry> entries_;
};

}  // namespace tessarine::qgis
