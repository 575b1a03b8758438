// SPDX-License-Identifier: GPL-2.0-or-later
// Any tool of the suite as an algorithm of the toolbox, by its ToolSpec alone.
#pragma once

#include <qgsprocessingalgorithm.h>

#include <map>
#include <memory>
#include <string>

#include "hosts/qgis/processing/chosen_layer.h"
#include "hosts/qgis/processing/in_place_shapes.h"
#include "platform/tool.h"

namespace tessarine::qgis {

/// Tools that keep the records are offered for editing in place, too: there the program asks for one feature after the
/// other, and the run over all of them is made when it prepares itself.
class ToolAlgorithm final : public QgsProcessingFeatureBasedAlgorithm {
 public:
  explicit ToolAlgorithm(const ITool& tool) : tool_(tool) {}

  [[nodiscard]] QString name() const override;
  [[nodiscard]] QString displayName() const override;
  [[nodiscard]] QString shortDescription() const override;
  [[nodiscard]] QString shortHelpString() const override;
  [[nodiscard]] QStringList tags() const override;
  [[nodiscard]] QIcon icon() const override;
  [[nodiscard]] Flags flags() const override;
  /// The base's rules, and those of the tool.
  [[nodiscard]] bool checkParameterValues(const QVariantMap& parameters, QgsProcessingContext& context,
                                          QString* message) const override;
  /// A feature that is edited in place, with its new shape.
  [[nodiscard]] QgsFeatureList processFeature(const QgsFeature& feature, QgsProcessingContext& context,
                                              QgsProcessingFeedback* feedback) override;

 protected:
  [[nodiscard]] QgsProcessingAlgorithm* createInstance() const override;
  void initAlgorithm(const QVariantMap& configuration) override;
  [[nodiscard]] QString outputName() const override { return displayName(); }
  /// The tools look at shapes themselves.
  [[nodiscard]] QgsProcessingFeatureSource::Flag sourceFlags() const override {
    return QgsProcessingFeatureSource::FlagSkipGeometryValidityChecks;
  }
  [[nodiscard]] bool supportInPlaceEdit(const QgsMapLayer* layer) const override;
  [[nodiscard]] VectorProperties sinkProperties(const QString& sink, const QVariantMap& parameters,
                                                QgsProcessingContext& context,
                                                const QMap<QString, VectorProperties>& sources) const override {
    // The nearer class knows of one sink alone.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    return QgsProcessingAlgorithm::sinkProperties(sink, parameters, context, sources);
  }
  /// Takes the layers, on the thread that they belong to.
  [[nodiscard]] bool prepareAlgorithm(const QVariantMap& parameters, QgsProcessingContext& context,
                                      QgsProcessingFeedback* feedback) override;
  [[nodiscard]] QVariantMap processAlgorithm(const QVariantMap& parameters, QgsProcessingContext& context,
                                             QgsProcessingFeedback* feedback) override;

 private:
  [[nodiscard]] const ToolSpec& Spec() const { return tool_.Spec(); }
  [[nodiscard]] QString ObjectionTo(const QVariantMap& parameters, QgsProcessingContext& context) const;
  [[nodiscard]] QVariantMap RunTool(const QVariantMap& parameters, QgsProcessingContext& context,
                                    QgsProcessingFeedback& feedback);
  void MoveInPlace(const QVariantMap& parameters, QgsProcessingContext& context, QgsProcessingFeedback& feedback);

  const ITool& tool_;
  bool in_place_ = false;
  WindowTurns turns_;
  InPlaceShapes moved_;
  std::map<std::string, ChosenLayer, std::less<>> layers_;  // by the parameter's name
};

}  // namespace tessarine::qgis
