// SPDX-License-Identifier: GPL-2.0-or-later
// The layers and tables of a map, by type.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/arrays.h"
#include "platform/map.h"

namespace tessarine::MyGeneralOperations {

/// What `ReturnLayersByType` takes; the values add up.
enum LayerTypeFlag : std::int32_t {
  kFeatureLayers = 1,
  kRasterLayers = 2,
  kTables = 4,
  kPointLayers = 8,
  kPolylineLayers = 16,
  kPolygonLayers = 32,
  kMultipointLayers = 64,
  kTinLayers = 128,
  kSpecialLayers = 256,
};

/// The valid layers of the chosen types in map order, those in groups too, then the stand-alone tables. `flags` is at
/// least 1.
[[nodiscard]] std::shared_ptr<VarArray> ReturnLayersByType(const std::shared_ptr<IMap>& map, std::int32_t flags);

/// True for a layer of one of the chosen types.
[[nodiscard]] bool IsOfType(const std::shared_ptr<ILayer>& layer, std::int32_t flags);

}  // namespace tessarine::MyGeneralOperations
