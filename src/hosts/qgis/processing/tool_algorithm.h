// SPDX-License-Identifier: GPL-2.0-or-later
// Any tool of the suite as an algorithm of the toolbox, by its ToolSpec alone.
#pragma once

#include <qgsprocessingalgorithm.h>

#include <map>
#include <memory>
#include <string>

#include "hosts/qgis/processing/chosen_layer.h"
#include "platform/tool.h"

namespace tessarine::qgis {

class ToolAlgorithm final : public QgsProcessingAlgorithm {
 public:
  explicit ToolAlgorithm(const ITool& tool) : tool_(tool) {}

  [[nodiscard]] QString name() const override;
  [[nodiscard]] QString displayName() const override;
  [[nodiscard]] QString shortDescription() const override;
  [[nodiscard]] QString shortHelpString() const override;
  [[nodiscard]] QStringList tags() const override;
  [[nodiscard]] QIcon icon() const override;
  /// The base's rules, and those of the tool.
  [[nodiscard]] bool checkParameterValues(const QVariantMap& parameters, QgsProcessingContext& context,
                                          QString* message) const override;

 protected:
  [[nodiscard]] QgsProcessingAlgorithm* createInstance() const override;
  void initAlgorithm(const QVariantMap& configuration) override;
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

  const ITool& tool_;
  std::map<std::string, ChosenLayer, std::less<>> layers_;  // by the parameter's name
};

}  // namespace tessarine::qgis
