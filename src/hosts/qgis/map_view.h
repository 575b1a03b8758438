// SPDX-License-Identifier: GPL-2.0-or-later
// The focus map: the layers and tables of the project, the map canvas, and the annotation items as graphic elements.
#pragma once

#include <qgsmapcanvas.h>
#include <qgsrubberband.h>

#include <QPointer>
#include <QStringList>
#include <functional>
#include <map>
#include <memory>

#include "hosts/qgis/annotation_items.h"
#include "hosts/qgis/element_view.h"
#include "hosts/qgis/graphics_memory.h"
#include "hosts/qgis/layers.h"

namespace tessarine::qgis {

/// What becomes of the selection before.
enum class SelectionWay { Replace, Add, Toggle };

class MapView final : public ElementView, public IMap, public IStandaloneTableCollection {
 public:
  MapView(QgsMapCanvas* canvas, LayerBook& book, GraphicsMemory& memory)
      : canvas_(canvas), book_(book), memory_(memory) {}

  /// Called with each layer that the suite has added.
  std::function<void(QgsVectorLayer&)> on_added = [](QgsVectorLayer&) {};

  // IMap
  [[nodiscard]] std::string Name() const override { return "Layers"; }
  [[nodiscard]] std::int32_t LayerCount() const override;
  [[nodiscard]] std::shared_ptr<ILayer> Layer(std::int32_t index) const override;
  [[nodiscard]] std::shared_ptr<IEnumLayer> Layers(const std::shared_ptr<UID>& uid, bool recursive) const override;
  void AddLayer(const std::shared_ptr<ILayer>& layer) override;
  [[nodiscard]] std::int32_t SelectionCount() const override;
  /// The project's, or that of its first layer that has one.
  [[nodiscard]] SpatialReferenceRef SpatialReference() const override;

  // IStandaloneTableCollection
  [[nodiscard]] std::int32_t StandaloneTableCount() const override;
  [[nodiscard]] std::shared_ptr<IStandaloneTable> StandaloneTable(std::int32_t index) const override;

  // IActiveView
  [[nodiscard]] Envelope Extent() const override;
  void SetExtent(const Envelope& extent) override;
  void Refresh() override;
  void PartialRefresh(std::int32_t phase, const ObjectRef& data, const Envelope* envelope) override;

  // Elements
  [[nodiscard]] std::string NameOf(const QString& id) const override { return memory_.NameOf(id); }
  void SetNameOf(const QString& id, const std::string& name) override { memory_.SetNameOf(id, name); }
  /// Takes the marks off items that are gone, and moves the others to where their items are.
  void RefreshMarks();
  void ForgetSelection() { marks_.clear(); }
  /// The annotation items that the map shows, in drawing order, the lowest first.
  [[nodiscard]] std::vector<PlacedItem> ShownItems() const;
  /// Selects the items of these keys.
  void SelectItems(const QStringList& keys, SelectionWay way);

 protected:
  [[nodiscard]] std::vector<ElementRef> ReadElements() const override;
  [[nodiscard]] bool IsSelected(const QString& id) const override { return marks_.contains(id); }
  void SetSelected(const QString& id, bool selected) override;

 private:
  void Mark(const QString& key);

  QPointer<QgsMapCanvas> canvas_;
  LayerBook& book_;
  GraphicsMemory& memory_;
  // The selected items, each with the band that shows it.
  std::map<QString, std::unique_ptr<QgsRubberBand>> marks_;
};

}  // namespace tessarine::qgis
