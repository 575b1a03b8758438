// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/map_view.h"

#include <qgslayertree.h>
#include <qgsproviderregistry.h>

#include <algorithm>

#include "hosts/document/layer_list.h"
#include "hosts/qgis/annotation_elements.h"
#include "hosts/qgis/layer_class.h"
#include "hosts/qgis/values.h"
#include "hosts/windows/qt_text.h"
#include "platform/fault.h"

namespace tessarine::qgis {
namespace {

constexpr QRgb kMarkColor = 0xFF00B7C3;
constexpr int kMarkWidth = 2, kMarkSize = 12;

void Collect(const QgsLayerTreeGroup& group, bool recursive, LayerBook& book,
             std::vector<std::shared_ptr<ILayer>>& layers) {
  for (QgsLayerTreeNode* node : group.children()) {
    if (QgsLayerTree::isGroup(node)) {
      auto* inner = QgsLayerTree::toGroup(node);
      layers.push_back(book.Of(*inner));
      if (recursive) Collect(*inner, recursive, book, layers);
    } else if (QgsMapLayer* layer = QgsLayerTree::toLayer(node)->layer(); layer != nullptr && !IsTable(*layer)) {
      layers.push_back(book.Of(*layer));
    }
  }
}

std::vector<std::shared_ptr<ILayer>> TopLayers(LayerBook& book, bool recursive) {
  std::vector<std::shared_ptr<ILayer>> layers;
  Collect(*QgsProject::instance()->layerTreeRoot(), recursive, book, layers);
  return layers;
}

std::vector<QgsVectorLayer*> Tables() {
  std::vector<QgsVectorLayer*> tables;
  for (QgsLayerTreeLayer* node : QgsProject::instance()->layerTreeRoot()->findLayers()) {
    auto* layer = qobject_cast<QgsVectorLayer*>(node->layer());
    if (layer != nullptr && IsTable(*layer)) tables.push_back(layer);
  }
  return tables;
}

std::size_t CheckedIndex(std::int32_t index, std::size_t count, const char* what) {
  if (index < 0 || static_cast<std::size_t>(index) >= count) {
    Raise(kInvalidCall, std::string("The map has no ") + what + " " + std::to_string(index) + ".");
  }
  return static_cast<std::size_t>(index);
}

// Layers that showed what a run has overwritten read it again.
void ReloadLayersOf(const QgsVectorLayer& added) {
  QgsProviderRegistry* providers = QgsProviderRegistry::instance();
  const QVariantMap place = providers->decodeUri(added.providerType(), added.source());
  // What lies in no file is nobody else's.
  if (place.value(QStringLiteral("path")).toString().isEmpty()) return;
  for (auto* layer : QgsProject::instance()->layers<QgsVectorLayer*>()) {
    if (layer->providerType() != added.providerType() || !layer->isValid()) continue;
    const QVariantMap other = providers->decodeUri(layer->providerType(), layer->source());
    if (other.value(QStringLiteral("path")) != place.value(QStringLiteral("path"))) continue;
    // Other layers of a container hold the rows that they held.
    const bool other_rows = other.value(QStringLiteral("layerName")) != place.value(QStringLiteral("layerName"));
    if (other_rows) {
      ReloadKeepingSelection(*layer);
    } else {
      layer->reload();
    }
    layer->updateFields();
    layer->updateExtents();
    layer->triggerRepaint();
  }
}

}  // namespace

std::int32_t MapView::LayerCount() const { return static_cast<std::int32_t>(TopLayers(book_, false).size()); }

std::shared_ptr<ILayer> MapView::Layer(std::int32_t index) const {
  const auto layers = TopLayers(book_, false);
  return layers[CheckedIndex(index, layers.size(), "layer")];
}

std::shared_ptr<IEnumLayer> MapView::Layers(const std::shared_ptr<UID>&, bool recursive) const {
  return std::make_shared<LayerList>(TopLayers(book_, recursive));
}

void MapView::AddLayer(const std::shared_ptr<ILayer>& layer) {
  const auto added = Require(Cast<VectorLayer>(layer), "layer");
  std::unique_ptr<QgsVectorLayer> made = added->MakeShown();
  ReloadLayersOf(*made);
  QgsProject& project = *QgsProject::instance();
  auto* shown = qobject_cast<QgsVectorLayer*>(project.addMapLayer(made.release(), false));  // the project owns it
  if (shown == nullptr) Raise(kEngine, "The layer '" + added->Name() + "' can't be added to the project.");
  project.layerTreeRoot()->insertLayer(0, shown);
  book_.Know(*shown, layer);
  on_added(*shown);
  added->Attach(*shown);
}

std::int32_t MapView::SelectionCount() const {
  std::int32_t count = 0;
  for (const auto* layer : QgsProject::instance()->layers<QgsVectorLayer*>()) {
    if (layer->isValid() && layer->isSpatial()) count += layer->selectedFeatureCount();
  }
  return count;
}

SpatialReferenceRef MapView::SpatialReference() const {
  const SpatialReferenceRef own = ReferenceOf(QgsProject::instance()->crs());
  if (!Is<const UnknownCoordinateSystem>(own)) return own;
  for (const auto& layer : TopLayers(book_, true)) {
    const auto placed = Cast<IGeoDataset>(layer);
    if (!placed || !layer->Valid()) continue;
    const SpatialReferenceRef reference = placed->SpatialReference();
    if (!Is<const UnknownCoordinateSystem>(reference)) return reference;
  }
  return own;
}

std::int32_t MapView::StandaloneTableCount() const { return static_cast<std::int32_t>(Tables().size()); }

std::shared_ptr<IStandaloneTable> MapView::StandaloneTable(std::int32_t index) const {
  const std::vector<QgsVectorLayer*> tables = Tables();
  return std::make_shared<ProjectTable>(*tables[CheckedIndex(index, tables.size(), "table")]);
}

Envelope MapView::Extent() const { return canvas_ ? EnvelopeOf(canvas_->extent()) : Envelope(); }

void MapView::SetExtent(const Envelope& extent) {
  if (!canvas_ || extent.IsEmpty()) return;
  if (extent.Width() > 0.0 || extent.Height() > 0.0) {
    canvas_->setExtent(RectangleOf(extent));
  } else {
    canvas_->setCenter(QgsPointXY(extent.XMin(), extent.YMin()));
  }
}

void MapView::Refresh() {
  if (canvas_) canvas_->refresh();
}

void MapView::PartialRefresh(std::int32_t phase, const ObjectRef&, const Envelope*) {
  if (!canvas_) return;
  if ((phase & (esriViewGraphics | esriViewGraphicSelection)) != 0) RefreshMarks();
  canvas_->refresh();
}

std::vector<ElementRef> MapView::ReadElements() const {
  memory_.Notice();
  const SpatialReferenceRef map = SpatialReference();
  const auto self = std::const_pointer_cast<ElementView>(shared_from_this());
  std::vector<ElementRef> elements;
  for (const PlacedItem& placed : ShownItems()) {
    const SpatialReferenceRef own = ReferenceOf(placed.layer->crs());
    if (ElementRef element = ElementOf(placed.key, *placed.item, own, map, self))
      elements.push_back(std::move(element));
  }
  return elements;
}

std::vector<PlacedItem> MapView::ShownItems() const {
  std::vector<PlacedItem> items = AnnotationItems();
  std::erase_if(items, [](const PlacedItem& placed) { return !IsShown(*placed.layer); });
  const auto height = [this](const PlacedItem& placed) {
    return std::pair(placed.item->zIndex(), memory_.RankOf(placed.key));
  };
  // The layers stay in their order; within each the items go from the lowest to the highest.
  for (auto first = items.begin(); first != items.end();) {
    const auto behind =
        std::find_if(first, items.end(), [&](const auto& other) { return other.layer != first->layer; });
    std::stable_sort(first, behind, [&](const auto& low, const auto& high) { return height(low) < height(high); });
    first = behind;
  }
  return items;
}

void MapView::SetSelected(const QString& id, bool selected) {
  if (!selected) {
    marks_.erase(id);
  } else if (!marks_.contains(id)) {
    Mark(id);
  }
}

void MapView::SelectItems(const QStringList& keys, SelectionWay way) {
  if (way == SelectionWay::Replace) marks_.clear();
  for (const QString& key : keys) SetSelected(key, way != SelectionWay::Toggle || !IsSelected(key));
}

void MapView::Mark(const QString& key) {
  const PlacedItem placed = FindAnnotationItem(key);
  if (placed.item == nullptr || !canvas_) return;
  const QgsGeometry geometry = GeometryOfItem(*placed.item);
  auto band = std::make_unique<QgsRubberBand>(canvas_.data(), geometry.type());
  band->setStrokeColor(QColor::fromRgb(kMarkColor));
  QColor fill = QColor::fromRgb(kMarkColor);
  fill.setAlpha(40);
  band->setFillColor(fill);
  band->setWidth(kMarkWidth);
  band->setIcon(QgsRubberBand::ICON_BOX);
  band->setIconSize(kMarkSize);
  band->setToGeometry(geometry, placed.layer->crs());
  marks_[key] = std::move(band);
}

void MapView::RefreshMarks() {
  for (auto mark = marks_.begin(); mark != marks_.end();) {
    const PlacedItem placed = FindAnnotationItem(mark->first);
    if (placed.item == nullptr || !IsShown(*placed.layer)) {
      mark = marks_.erase(mark);
      continue;
    }
    mark->second->setToGeometry(GeometryOfItem(*placed.item), placed.layer->crs());
    ++mark;
  }
}

}  // namespace tessarine::qgis
