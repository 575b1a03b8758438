// SPDX-License-Identifier: GPL-2.0-or-later
// New shapes for features of a layer that is being edited, each in its own record.
#pragma once

#include <qgsfeature.h>
#include <qgsprocessingfeedback.h>
#include <qgsvectorlayer.h>

#include <QString>
#include <map>

#include "hosts/qgis/processing/window_turns.h"
#include "platform/run_journal.h"
#include "platform/tool.h"

namespace tessarine::qgis {

/// Each record of the source comes out as one record with its attributes, of the same shape type in the same reference.
[[nodiscard]] bool KeepsRecords(const ToolSpec& spec);

class InPlaceShapes {
 public:
  /// Takes what a run made of the features of these identifiers. A shape that the layer can't take, and that of a
  /// record whose work failed, is left out; the log names the features that therefore stay as they are. Returns how
  /// many they are.
  [[nodiscard]] std::size_t Take(QgsVectorLayer& made, const QgsVectorLayer& edited, const QgsFeatureIds& chosen,
                                 const RunJournal& journal, QgsProcessingFeedback& log, WindowTurns& turns);

  /// How many features have new shapes.
  [[nodiscard]] std::size_t Count() const { return shapes_.size(); }
  /// The feature with its new shape; as it is where there is none.
  [[nodiscard]] QgsFeature Moved(QgsFeature feature) const;

  /// Those of these features that the program may write: the ones with a new shape, and the ones whose own shape the
  /// layer's type holds. The program would divide any other into several features.
  [[nodiscard]] QgsFeatureIds Writable(const QgsVectorLayer& edited, const QgsFeatureIds& chosen,
                                       WindowTurns& turns) const;

  /// The column of the run's source that holds the identifiers of the features.
  static const QString kIdentifier;

 private:
  std::map<QgsFeatureId, QgsGeometry> shapes_;
};

}  // namespace tessarine::qgis
