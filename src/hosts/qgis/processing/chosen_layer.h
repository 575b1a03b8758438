// SPDX-License-Identifier: GPL-2.0-or-later
// The layer that a parameter of the toolbox names, with whatever the user chose of it, as a layer that a run reads.
//
// A layer that shows a file as it lies on the disk is read from that file by the engine. Of any other (a layer in
// memory or in a database, one that is being edited, filtered or joined, selected features) the run reads a working
// copy: a GeoPackage with the same identifiers and fields.
#pragma once

#include <qgscoordinatereferencesystem.h>
#include <qgsfields.h>
#include <qgsprocessingcontext.h>
#include <qgsprocessingfeedback.h>
#include <qgsprocessingparameters.h>
#include <qgsvectorlayer.h>
#include <qgsvectorlayerfeatureiterator.h>

#include <QTemporaryDir>
#include <memory>
#include <optional>

#include "hosts/document/document_layer.h"
#include "hosts/qgis/processing/window_turns.h"
#include "platform/command_line.h"
#include "platform/data.h"

namespace tessarine::qgis {

/// What a working copy holds: the fields of the layer, or just the identifiers of its features, for new shapes that go
/// back to them.
enum class CopiedFields : std::uint8_t { All, Identifiers };

class ChosenLayer {
 public:
  /// Takes what it needs of the program's layer; for the thread that the layer belongs to. A fault names a layer that
  /// isn't there or can't be read.
  ChosenLayer(const QgsProcessingParameterDefinition& definition, const QVariantMap& parameters,
              QgsProcessingContext& context, CopiedFields copied = CopiedFields::All);

  /// The layer for a run, on any thread; once. `turns`, where there are, are given meanwhile. Raises `RunStopped` while
  /// a working copy is made.
  [[nodiscard]] std::shared_ptr<DocumentFeatureLayer> Open(QgsProcessingFeedback& feedback, WindowTurns* turns);
  /// What the run must not write to.
  [[nodiscard]] const DatasetFiles& Files() const { return files_; }
  /// How the terminal names what is read.
  [[nodiscard]] const LayerWords& Words() const { return words_; }

 private:
  [[nodiscard]] std::shared_ptr<DocumentFeatureLayer> OpenCopy(QgsProcessingFeedback& feedback, WindowTurns* turns);

  QString name_;
  bool in_file_ = false;  // columns hold what their places allow
  DatasetFiles files_;
  LayerWords words_;
  std::optional<LayerSource> file_;
  // Of a layer that has to be copied.
  std::unique_ptr<QgsVectorLayerFeatureSource> rows_;
  std::optional<QgsFeatureIds> selected_;
  long long most_ = -1;
  CopiedFields copied_;
  QgsFields fields_;
  QgsWkbTypes::Type wkb_type_ = QgsWkbTypes::Unknown;
  QgsCoordinateReferenceSystem reference_;
  QgsCoordinateTransformContext transforms_;
  int key_ = -1;
  std::unique_ptr<QTemporaryDir> folder_;
};

/// The program's layer that a value of the parameter names; null where nothing does.
[[nodiscard]] QgsVectorLayer* LayerOf(const QgsProcessingParameterDefinition& definition, const QVariantMap& parameters,
                                      QgsProcessingContext& context);

}  // namespace tessarine::qgis
