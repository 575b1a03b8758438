// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/processing/provider.h"

#include <qgsapplication.h>
#include <qgsprocessingregistry.h>

#include "hosts/document/component_loader.h"
#include "hosts/qgis/processing/choice_parameter.h"
#include "hosts/qgis/processing/tool_algorithm.h"
#include "hosts/windows/pictures.h"
#include "platform/tool.h"
#include "platform/trap.h"

namespace tessarine::qgis {
namespace {

const QString kId = QStringLiteral("tessarine");
constexpr std::int32_t kPicture = 119;  // the globe

}  // namespace

QString ToolProvider::id() const { return kId; }

QString ToolProvider::name() const { return QStringLiteral("Tessarine"); }

QString ToolProvider::longName() const { return QStringLiteral("Tessarine Suite"); }

QString ToolProvider::versionInfo() const { return QStringLiteral(TESSARINE_VERSION); }

QIcon ToolProvider::icon() const { return PictureOf(kPicture); }

void ToolProvider::loadAlgorithms() {
  Trap("loadAlgorithms", [this] {
    for (const ITool* tool : CreateComponentAs<IToolCatalog>("Tessarine.clsToolCatalog", "IToolCatalog")->Tools()) {
      // The program has no documents of the suite.
      if (tool->Spec().works_on != ToolSubject::Layers) continue;
      addAlgorithm(new ToolAlgorithm(*tool));  // the provider owns it
    }
  });
}

void AddToolProvider() {
  QgsProcessingRegistry* registry = QgsApplication::processingRegistry();
  AddChoiceParameters();
  if (registry->providerById(kId) == nullptr) registry->addProvider(new ToolProvider(registry));
}

void RemoveToolProvider() {
  QgsProcessingRegistry* registry = QgsApplication::processingRegistry();
  if (registry->providerById(kId) != nullptr) registry->removeProvider(kId);
}

}  // namespace tessarine::qgis
