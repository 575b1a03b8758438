// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/suite_measures.h"

#include "hosts/document/component_loader.h"

namespace tessarine::qgis {

const IShapeMeasures& Measures() {
  static const std::shared_ptr<IShapeMeasures> measures =
      CreateComponentAs<IShapeMeasures>("Tessarine.clsShapeMeasures", "IShapeMeasures");
  return *measures;
}

}  // namespace tessarine::qgis
