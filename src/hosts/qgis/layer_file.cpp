// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/layer_file.h"

#include <qgsproject.h>
#include <qgsproviderregistry.h>
#include <qgsvectordataprovider.h>

#include <QDir>
#include <QFileInfo>
#include <utility>

#include "hosts/windows/qt_text.h"

namespace tessarine::qgis {
namespace {

const QString kPath = QStringLiteral("path");
const QString kLayer = QStringLiteral("layerName");
const QString kSubset = QStringLiteral("subset");

QVariantMap SourceOf(const QgsVectorLayer& layer) {
  return QgsProviderRegistry::instance()->decodeUri(layer.providerType(), layer.source());
}

bool HasOwnFieldsOnly(const QgsVectorLayer& layer) {
  const QgsFields fields = layer.fields();
  for (int index = 0; index < fields.count(); ++index) {
    if (fields.fieldOrigin(index) != QgsFields::OriginProvider) return false;
  }
  return true;
}

bool HasOtherParts(const QVariantMap& source) {
  for (auto part = source.begin(); part != source.end(); ++part) {
    if (part.key() == kPath || part.key() == kLayer || part.key() == kSubset) continue;
    const QVariant& value = part.value();
    if (!value.toList().isEmpty() || (value.isValid() && !value.toString().isEmpty())) return true;
  }
  return false;
}

// In what rows and reference of the file are others than the layer shows; empty where in nothing.
std::string WhyOtherRows(const QgsVectorLayer& layer, const QVariantMap& source) {
  if (layer.providerType() != QStringLiteral("ogr")) return "its data lie in no file";
  if (layer.isModified()) return "it has edits that aren't saved";
  if (layer.crs() != layer.dataProvider()->crs()) return "its file tells another reference";
  if (!HasOwnFieldsOnly(layer)) return "it has fields that aren't in its file";
  if (HasOtherParts(source)) return "its file is opened in a way of its own";
  return "";
}

}  // namespace

FileBehind FileOf(const QgsVectorLayer& layer) {
  const QVariantMap source = SourceOf(layer);
  std::string why_other = WhyOtherRows(layer, source);
  if (layer.providerType() != QStringLiteral("ogr")) return {"", "", std::move(why_other)};
  if (why_other.empty() && !HasOwnTexts(layer)) why_other = "the encoding of its texts is chosen by hand";
  return {FromQt(source.value(kPath).toString()), FromQt(source.value(kLayer).toString()), std::move(why_other)};
}

std::optional<LayerFile> FileShownBy(const QgsVectorLayer& layer) {
  const QVariantMap source = SourceOf(layer);
  if (!layer.subsetString().isEmpty() || !WhyOtherRows(layer, source).empty()) return std::nullopt;
  return LayerFile{FromQt(source.value(kPath).toString()), FromQt(source.value(kLayer).toString())};
}

bool HasOwnTexts(const QgsVectorLayer& layer) { return layer.dataProvider()->encoding() == QStringLiteral("UTF-8"); }

std::vector<QgsVectorLayer*> OthersOfFile(const QgsVectorLayer& layer) {
  const QVariant path = SourceOf(layer).value(kPath);
  std::vector<QgsVectorLayer*> others;
  if (path.toString().isEmpty()) return others;
  for (auto* other : QgsProject::instance()->layers<QgsVectorLayer*>()) {
    if (other == &layer || !other->isValid() || other->providerType() != layer.providerType()) continue;
    if (SourceOf(*other).value(kPath) == path) others.push_back(other);
  }
  return others;
}

bool DataAreThere(const QgsVectorLayer& layer) {
  if (!layer.isValid() || layer.dataProvider() == nullptr || !layer.dataProvider()->isValid()) return false;
  if (layer.providerType() != QStringLiteral("ogr")) return true;
  const QString path = SourceOf(layer).value(kPath).toString();
  // Archives, servers and connection texts aren't looked for on the disk.
  const bool on_disk = QDir::isAbsolutePath(path) && !path.startsWith(QStringLiteral("/vsi"));
  return !on_disk || QFileInfo::exists(path);
}

}  // namespace tessarine::qgis
