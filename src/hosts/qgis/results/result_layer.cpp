// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/results/result_layer.h"

#include <qgslayermetadata.h>

#include "hosts/qgis/results/result_style.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"

namespace tessarine::qgis {
namespace {

// Which alias was the suite's, so that it may give another one later.
QString PropertyOf(const QString& field) { return QStringLiteral("tessarine/alias/") + field; }

void AddHistory(QgsVectorLayer& layer, const ResultOrigin& origin) {
  QgsLayerMetadata metadata = layer.metadata();
  for (const engine::StampLine& line : origin.stamp) {
    metadata.addHistoryItem(ToQt(line.key) + QLatin1Char('=') + ToQt(line.value));
  }
  layer.setMetadata(metadata);
}

}  // namespace

void DressResult(QgsVectorLayer& layer, const ResultOrigin& origin) {
  StyleResult(layer, origin.kind, origin.carried);
  NameFields(layer, origin.aliases);
  TellOrigin(layer, origin);
}

void NoteCalculation(QgsVectorLayer& layer, const ResultOrigin& origin) {
  NameFields(layer, origin.aliases);
  AddHistory(layer, origin);
}

void NameFields(QgsVectorLayer& layer, const std::vector<FieldAlias>& aliases) {
  for (const FieldAlias& named : aliases) {
    const int index = layer.fields().lookupField(ToQt(named.field));
    if (index < 0) continue;
    const QString property = PropertyOf(layer.fields().at(index).name());
    const QString present = layer.attributeAlias(index);
    if (!present.isEmpty() && present != layer.customProperty(property).toString()) continue;
    const QString alias = ToQt(named.alias);
    layer.setFieldAlias(index, alias);
    layer.setCustomProperty(property, alias);
  }
}

void TellOrigin(QgsVectorLayer& layer, const ResultOrigin& origin) {
  QgsLayerMetadata metadata = layer.metadata();
  if (metadata.title().isEmpty()) metadata.setTitle(layer.name());
  if (metadata.abstract().isEmpty())
    metadata.setAbstract(Translated(origin.title) + QStringLiteral(": ") + Translated(origin.makes));
  if (metadata.type().isEmpty()) metadata.setType(QStringLiteral("dataset"));
  if (!metadata.crs().isValid()) metadata.setCrs(layer.crs());
  layer.setMetadata(metadata);
  AddHistory(layer, origin);
}

}  // namespace tessarine::qgis
