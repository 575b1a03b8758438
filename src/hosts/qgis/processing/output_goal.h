// SPDX-License-Identifier: GPL-2.0-or-later
// Where a run from the toolbox puts its new class.
//
// Files of formats that the suite knows it writes itself. For everything else that the program takes (layers in
// memory, databases, other files, layers to be appended to) it writes a GeoPackage of its own, whose rows then go into
// the program's sink.
#pragma once

#include <qgsfeaturesink.h>
#include <qgsprocessingcontext.h>
#include <qgsprocessingfeedback.h>
#include <qgsprocessingparameters.h>
#include <qgsvectorlayer.h>

#include <QTemporaryDir>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "outputs/output_place.h"
#include "platform/data.h"
#include "platform/run_journal.h"
#include "platform/tool.h"

namespace tessarine::qgis {

class OutputGoal {
 public:
  /// A fault where no folder can be made for the work.
  OutputGoal(const QgsProcessingParameterDefinition& definition, const QVariantMap& parameters,
             QgsProcessingContext& context);

  /// Where the tool writes.
  [[nodiscard]] const OutputPlace& Place() const { return place_; }
  [[nodiscard]] ToolOutput Argument() const;
  /// The output is a file that somebody named, not a working copy.
  [[nodiscard]] bool IsNamedFile() const { return folder_ == nullptr; }

  /// The name of what the rows of a working copy go to, for people.
  void SetShownName(QString name) { shown_name_ = std::move(name); }
  /// That name, or else the one that the program has for its own output; without passwords. What a layer in memory is
  /// called is known once the output was handed over.
  [[nodiscard]] QString ShownName() const;
  /// The native path of the file that holds the output: one that somebody named, or that the program made; empty for
  /// anything else, and as long as the output wasn't handed over.
  [[nodiscard]] std::string MadeFile(const std::string& output_path) const;
  /// The text with those names where it tells those of a working copy.
  [[nodiscard]] std::string AsNamed(std::string text) const;
  [[nodiscard]] QString AsNamed(const QString& text) const;
  /// The same for a report, which is RTF.
  [[nodiscard]] std::string ReportAsNamed(std::string report) const;

  /// Hands over what the run has written at this path: what the program calls the layer by. Fault where the sink
  /// doesn't take all of it; `RunStopped` where the user stops it.
  [[nodiscard]] QString HandOver(const std::string& output_path, QgsProcessingFeedback& feedback);
  /// What the run has written at this path, to be read; a fault where it can't be.
  [[nodiscard]] std::unique_ptr<QgsVectorLayer> Open(const std::string& output_path) const;

 private:
  [[nodiscard]] QString SourceText(const std::string& output_path) const;
  [[nodiscard]] QString ShowFile(const std::string& output_path);
  [[nodiscard]] std::unique_ptr<QgsFeatureSink> OpenSink(const QgsVectorLayer& made, const QgsFields& fields,
                                                         QString& identifier);
  [[nodiscard]] QString FillSink(const std::string& output_path, QgsProcessingFeedback& feedback);
  [[nodiscard]] bool IsAppendedTo() const;
  [[nodiscard]] QString NamedFile() const;
  [[nodiscard]] QString ShownClass() const;
  template <class Write>
  [[nodiscard]] std::string Renamed(std::string text, Write&& write) const;

  const QgsProcessingParameterDefinition& definition_;
  const QVariantMap& parameters_;
  QgsProcessingContext& context_;
  std::unique_ptr<QTemporaryDir> folder_;
  OutputPlace place_;
  QString shown_name_;
  QString made_;  // what the program calls the output by, once it was handed over
};

}  // namespace tessarine::qgis
