// SPDX-License-Identifier: GPL-2.0-or-later
// The annotation items of the project: those of its main annotation layer and of all its annotation layers.
#pragma once

#include <qgsannotationitem.h>
#include <qgsannotationlayer.h>

#include <QString>
#include <vector>

namespace tessarine::qgis {

/// An item and where it lies. The key names it in the whole project: the item's own identifier, with its layer's before
/// it unless that is the main one, since a duplicated layer keeps the identifiers of its items.
struct PlacedItem {
  QString key;
  QString id;
  QgsAnnotationLayer* layer = nullptr;
  QgsAnnotationItem* item = nullptr;
};

/// The annotation layers in drawing order, the lowest first; the main one lies above all others.
[[nodiscard]] std::vector<QgsAnnotationLayer*> AnnotationLayers();
/// True for a layer that the map shows.
[[nodiscard]] bool IsShown(const QgsAnnotationLayer& layer);

[[nodiscard]] QString KeyOf(const QgsAnnotationLayer& layer, const QString& id);
/// All items, layer by layer, hidden layers too.
[[nodiscard]] std::vector<PlacedItem> AnnotationItems();
/// The item of the key; one without a layer where there is none.
[[nodiscard]] PlacedItem FindAnnotationItem(const QString& key);

}  // namespace tessarine::qgis
