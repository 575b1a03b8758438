// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/processing/in_place_shapes.h"

#include <qgsvectordataprovider.h>

#include <QStringList>
#include <set>

#include "hosts/qgis/values.h"
#include "hosts/windows/local_numbers.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"
#include "platform/fault.h"

namespace tessarine::qgis {
namespace {

constexpr int kListed = 10;

const QString kFailed = QStringLiteral("because the work on them met a fault");
const QString kEmptied = QStringLiteral("because nothing would be left of their shapes");
const QString kNotHeld =
    QStringLiteral("because the layer takes no shapes of several parts, which theirs would become");
const QString kMissing = QStringLiteral("because the run made no shapes of them");

// Why features stay as they are, and which.
using Kept = std::map<QString, std::vector<QgsFeatureId>>;

std::size_t Tell(const Kept& kept, QgsProcessingFeedback& log) {
  std::size_t count = 0;
  for (const auto& [why, ids] : kept) {
    count += ids.size();
    QStringList listed;
    for (const QgsFeatureId id : ids) {
      if (listed.size() < kListed) listed << QString::number(id);
    }
    const QString more = ids.size() > kListed ? QStringLiteral(", ...") : QString();
    log.reportError(Translated("%1 of the features keep the shapes that they have, %2 (identifiers %3%4).")
                        .arg(CountText(static_cast<std::int64_t>(ids.size())))
                        .arg(Translated(why), listed.join(QStringLiteral(", ")), more));
  }
  return count;
}

}  // namespace

const QString InPlaceShapes::kIdentifier = QStringLiteral("feature");

bool KeepsRecords(const ToolSpec& spec) {
  return spec.result == ToolResult::Moved &&
         (spec.reference == ToolReference::Source || spec.reference == ToolReference::SourceAlone);
}

std::size_t InPlaceShapes::Take(QgsVectorLayer& made, const QgsVectorLayer& edited, const QgsFeatureIds& chosen,
                                const RunJournal& journal, QgsProcessingFeedback& log, WindowTurns& turns) {
  const int identifier = made.fields().lookupField(kIdentifier);
  if (identifier < 0) Raise(kEngine, "What was made doesn't tell which features it is of.");
  const std::set<std::int64_t> failed(journal.unmeasured_oids.begin(), journal.unmeasured_oids.end());
  const std::set<std::int64_t> without_shape(journal.skipped_oids.begin(), journal.skipped_oids.end());
  const QgsWkbTypes::Type type = edited.wkbType();
  Kept kept;
  QgsFeatureIds missing = chosen;
  QgsFeatureIterator rows = made.getFeatures();
  for (QgsFeature row; rows.nextFeature(row);) {
    turns.Give();
    const QgsFeatureId id = row.attribute(identifier).toLongLong();
    missing.remove(id);
    const QgsGeometry shape = row.geometry();
    if (failed.contains(id)) {
      kept[kFailed].push_back(id);
    } else if (shape.isEmpty()) {
      if (!without_shape.contains(id)) kept[kEmptied].push_back(id);
    } else if (const auto fitting = shape.coerceToType(type); fitting.size() == 1) {
      shapes_.insert_or_assign(id, fitting.front());
    } else {
      kept[kNotHeld].push_back(id);
    }
  }
  for (const QgsFeatureId id : missing) kept[kMissing].push_back(id);
  return Tell(kept, log);
}

QgsFeatureIds InPlaceShapes::Writable(const QgsVectorLayer& edited, const QgsFeatureIds& chosen,
                                      WindowTurns& turns) const {
  QgsFeatureIds writable = chosen;
  QgsFeatureRequest request(chosen);
  request.setNoAttributes();
  QgsFeatureIterator rows = edited.getFeatures(request);
  for (QgsFeature row; rows.nextFeature(row);) {
    turns.Give();
    if (shapes_.contains(row.id()) || !row.hasGeometry()) continue;
    if (row.geometry().coerceToType(edited.wkbType()).size() != 1) writable.remove(row.id());
  }
  return writable;
}

QgsFeature InPlaceShapes::Moved(QgsFeature feature) const {
  if (const auto shape = shapes_.find(feature.id()); shape != shapes_.end()) feature.setGeometry(shape->second);
  return feature;
}

}  // namespace tessarine::qgis
