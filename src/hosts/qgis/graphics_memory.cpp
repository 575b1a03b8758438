// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/graphics_memory.h"

#include <qgsproject.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "hosts/qgis/annotation_items.h"
#include "hosts/windows/qt_text.h"

namespace tessarine::qgis {
namespace {

const QString kScope = QStringLiteral("Tessarine");
const QString kEntry = QStringLiteral("/graphics");

}  // namespace

void GraphicsMemory::Load() {
  order_.clear();
  names_.clear();
  const QString text = QgsProject::instance()->readEntry(kScope, kEntry);
  const QJsonObject root = QJsonDocument::fromJson(text.toUtf8()).object();
  const QJsonArray order = root.value(QStringLiteral("order")).toArray();
  for (const QJsonValue id : order) order_ << id.toString();
  const QJsonObject names = root.value(QStringLiteral("names")).toObject();
  for (auto name = names.begin(); name != names.end(); ++name) names_.insert(name.key(), name.value().toString());
  Notice();
}

void GraphicsMemory::Save() const {
  if (order_.isEmpty()) {
    QgsProject::instance()->removeEntry(kScope, kEntry);
    return;
  }
  QJsonObject names;
  for (auto name = names_.begin(); name != names_.end(); ++name) names.insert(name.key(), name.value());
  const QJsonObject root{{QStringLiteral("order"), QJsonArray::fromStringList(order_)},
                         {QStringLiteral("names"), names}};
  QgsProject::instance()->writeEntry(kScope, kEntry,
                                     QString::fromUtf8(QJsonDocument(root).toJson(QJsonDocument::Compact)));
}

void GraphicsMemory::Notice() {
  QStringList present;
  for (const PlacedItem& placed : AnnotationItems()) present << placed.key;
  for (int index = order_.size() - 1; index >= 0; --index) {
    if (present.contains(order_.at(index))) continue;
    names_.remove(order_.at(index));
    order_.removeAt(index);
  }
  for (const QString& id : present) {
    if (!order_.contains(id)) order_ << id;
  }
}

std::string GraphicsMemory::NameOf(const QString& id) const { return FromQt(names_.value(id)); }

void GraphicsMemory::SetNameOf(const QString& id, const std::string& name) {
  if (NameOf(id) == name) return;
  if (name.empty()) {
    names_.remove(id);
  } else {
    names_.insert(id, ToQt(name));
  }
  QgsProject::instance()->setDirty(true);
}

}  // namespace tessarine::qgis
