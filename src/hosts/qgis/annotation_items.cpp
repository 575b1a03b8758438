// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/annotation_items.h"

#include <qgslayertree.h>
#include <qgsproject.h>

#include <algorithm>

namespace tessarine::qgis {
namespace {

// Neither identifiers of items nor of layers hold it.
const QChar kBetween = '|';

}  // namespace

std::vector<QgsAnnotationLayer*> AnnotationLayers() {
  QgsProject& project = *QgsProject::instance();
  std::vector<QgsAnnotationLayer*> layers;
  for (QgsMapLayer* layer : project.layerTreeRoot()->layerOrder()) {
    if (auto* drawn = qobject_cast<QgsAnnotationLayer*>(layer)) layers.push_back(drawn);
  }
  std::ranges::reverse(layers);
  layers.push_back(project.mainAnnotationLayer());
  return layers;
}

bool IsShown(const QgsAnnotationLayer& layer) {
  const QgsProject& project = *QgsProject::instance();
  if (&layer == QgsProject::instance()->mainAnnotationLayer()) return true;
  const QgsLayerTreeLayer* node = project.layerTreeRoot()->findLayer(layer.id());
  return node != nullptr && node->isVisible();
}

QString KeyOf(const QgsAnnotationLayer& layer, const QString& id) {
  const bool main = &layer == QgsProject::instance()->mainAnnotationLayer();
  return main ? id : layer.id() + kBetween + id;
}

std::vector<PlacedItem> AnnotationItems() {
  std::vector<PlacedItem> placed;
  for (QgsAnnotationLayer* layer : AnnotationLayers()) {
    const QMap<QString, QgsAnnotationItem*> items = layer->items();
    for (auto item = items.begin(); item != items.end(); ++item) {
      placed.push_back({KeyOf(*layer, item.key()), item.key(), layer, item.value()});
    }
  }
  return placed;
}

PlacedItem FindAnnotationItem(const QString& key) {
  QgsProject& project = *QgsProject::instance();
  const int between = key.indexOf(kBetween);
  auto* layer = between < 0 ? project.mainAnnotationLayer()
                            : qobject_cast<QgsAnnotationLayer*>(project.mapLayer(key.left(between)));
  if (layer == nullptr) return {};
  const QString id = key.mid(between + 1);
  QgsAnnotationItem* item = layer->item(id);
  return item != nullptr ? PlacedItem{key, id, layer, item} : PlacedItem{};
}

}  // namespace tessarine::qgis
