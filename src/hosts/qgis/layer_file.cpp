// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/layer_file.h"

#include <qgsproviderregistry.h>
#include <qgsvectordataprovider.h>

#include <QDir>
#include <QFileInfo>

#include "hosts/windows/qt_text.h"

namespace tessarine::qgis {
namespace {

bool ShowsItsFile(const QgsVectorLayer& layer, const QVariantMap& source) {
  if (layer.providerType() != QStringLiteral("ogr") || layer.isModified()) return false;
  if (!layer.subsetString().isEmpty() || layer.crs() != layer.dataProvider()->crs()) return false;
  const QgsFields fields = layer.fields();
  for (int index = 0; index < fields.count(); ++index) {
    if (fields.fieldOrigin(index) != QgsFields::OriginProvider) return false;
  }
  for (auto part = source.begin(); part != source.end(); ++part) {
    const bool names_data = part.key() == QStringLiteral("path") || part.key() == QStringLiteral("layerName");
    const QVariant& value = part.value();
    const bool is_set = value.isValid() && !value.toString().isEmpty();
    if (!names_data && (is_set || !value.toList().isEmpty())) return false;
  }
  return true;
}

}  // namespace

std::optional<LayerFile> FileShownBy(const QgsVectorLayer& layer) {
  const QVariantMap source = QgsProviderRegistry::instance()->decodeUri(layer.providerType(), layer.source());
  if (!ShowsItsFile(layer, source)) return std::nullopt;
  return LayerFile{FromQt(source.value(QStringLiteral("path")).toString()),
                   FromQt(source.value(QStringLiteral("layerName")).toString())};
}

bool HasOwnTexts(const QgsVectorLayer& layer) { return layer.dataProvider()->encoding() == QStringLiteral("UTF-8"); }

bool DataAreThere(const QgsVectorLayer& layer) {
  if (!layer.isValid() || layer.dataProvider() == nullptr || !layer.dataProvider()->isValid()) return false;
  if (layer.providerType() != QStringLiteral("ogr")) return true;
  const QString path = QgsProviderRegistry::instance()
                           ->decodeUri(layer.providerType(), layer.source())
                           .value(QStringLiteral("path"))
                           .toString();
  // Archives, servers and connection texts aren't looked for on the disk.
  const bool on_disk = QDir::isAbsolutePath(path) && !path.startsWith(QStringLiteral("/vsi"));
  return !on_disk || QFileInfo::exists(path);
}

}  // namespace tessarine::qgis
