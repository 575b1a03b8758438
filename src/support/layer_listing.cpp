// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/layer_listing.h"

#include "platform/fault.h"
#include "platform/trap.h"
#include "support/dataset_names.h"

namespace tessarine::MyGeneralOperations {
namespace {

constexpr std::int32_t kFlagCount = 9;

// The flags as binary digits, read from the right.
class ChosenTypes {
 public:
  explicit ChosenTypes(std::int32_t flags) : digits_(ConvertLongBinary(flags, kFlagCount)) {}
  [[nodiscard]] bool Has(LayerTypeFlag flag) const {
    std::size_t place = 1;
    for (std::int32_t value = flag; value > 1; value /= 2) ++place;
    return place <= digits_.size() && digits_[digits_.size() - place] == '1';
  }

 private:
  std::string digits_;
};

bool HasChosenShape(const IFeatureLayer& layer, const ChosenTypes& chosen) {
  const auto features = layer.FeatureClass();
  switch (Require(features, "FeatureClass")->ShapeType()) {
    case esriGeometryPoint:
      return chosen.Has(kPointLayers);
    case esriGeometryMultipoint:
      return chosen.Has(kMultipointLayers);
    case esriGeometryPolyline:
      return chosen.Has(kPolylineLayers);
    case esriGeometryPolygon:
      return chosen.Has(kPolygonLayers);
    default:
      return false;
  }
}

bool IsChosen(const std::shared_ptr<ILayer>& layer, const ChosenTypes& chosen) {
  if (Is<ISpecialFeatureLayer>(layer)) return chosen.Has(kSpecialLayers);
  if (const auto features = Cast<IFeatureLayer>(layer)) {
    return chosen.Has(kFeatureLayers) || HasChosenShape(*features, chosen);
  }
  if (Is<IRasterLayer>(layer)) return chosen.Has(kRasterLayers);
  return Is<ITinLayer>(layer) && chosen.Has(kTinLayers);
}

}  // namespace

std::shared_ptr<VarArray> ReturnLayersByType(const std::shared_ptr<IMap>& map, std::int32_t flags) {
  return Trap("ReturnLayersByType", [&] {
    auto result = std::make_shared<VarArray>();
    const ChosenTypes chosen(flags);
    const std::shared_ptr<IEnumLayer> layers = Require(map, "map")->Layers(nullptr, true);
    layers->Reset();
    while (const std::shared_ptr<ILayer> layer = layers->Next()) {
      if (layer->Valid() && IsChosen(layer, chosen)) result->Add(layer);
    }
    const auto tables = Cast<IStandaloneTableCollection>(map);
    if (tables && chosen.Has(kTables)) {
      for (std::int32_t index = 0; index < tables->StandaloneTableCount(); ++index) {
        result->Add(tables->StandaloneTable(index));
      }
    }
    return result;
  });
}

bool IsOfType(const std::shared_ptr<ILayer>& layer, std::int32_t flags) { return IsChosen(layer, ChosenTypes(flags)); }

}  // namespace tessarine::MyGeneralOperations
