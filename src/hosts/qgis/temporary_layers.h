// SPDX-License-Identifier: GPL-2.0-or-later
// Results as temporary layers, which live in the program's memory and in no file.
//
// A run works on a GeoPackage in a folder of its own, so that fields and values are what a GeoPackage would have. When
// the class is published, its rows go to a layer in memory; the folder goes with the class.
#pragma once

#include <qgsvectorlayer.h>

#include <memory>

#include "outputs/temporary_layers.h"
#include "platform/data.h"

namespace tessarine::qgis {

/// A published class whose layer lies in memory.
class ITemporaryClass : public virtual Object {
 public:
  /// Hands the layer over, once; null before the class is published, or after.
  [[nodiscard]] virtual std::unique_ptr<QgsVectorLayer> TakeLayer() = 0;
};

[[nodiscard]] std::shared_ptr<IWorkspaceFactory> CreateMemoryWorkspaceFactory();

}  // namespace tessarine::qgis
