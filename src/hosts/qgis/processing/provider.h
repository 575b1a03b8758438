// SPDX-License-Identifier: GPL-2.0-or-later
// The suite in the toolbox: one algorithm for each tool.
#pragma once

#include <qgsprocessingprovider.h>

namespace tessarine::qgis {

class ToolProvider final : public QgsProcessingProvider {
 public:
  using QgsProcessingProvider::QgsProcessingProvider;

  [[nodiscard]] QString id() const override;
  [[nodiscard]] QString name() const override;
  [[nodiscard]] QString longName() const override;
  [[nodiscard]] QString versionInfo() const override;
  [[nodiscard]] QIcon icon() const override;

 protected:
  void loadAlgorithms() override;
};

/// Adds the provider to the program's registry, which owns it. Nothing where it is there already.
void AddToolProvider();
void RemoveToolProvider();

}  // namespace tessarine::qgis
