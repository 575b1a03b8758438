#include "conversion/run_data.h"

#include "platform/host.h"
#include "support/MyGeneralOperations.h"

namespace tessarine {

RunInput OpenInput(const std::shared_ptr<IFeatureLayer>& layer, bool all_records) {
  RunInput input;
  input.features = Require(layer->FeatureClass(), "FeatureClass");
  if (all_records) {
    input.cursor = input.features->Search(nullptr, true);
    input.count = input.features->FeatureCount(nullptr);
    return input;
  }
  const auto selection = Require(Cast<IFeatureSelection>(layer), "IFeatureSelection")->SelectionSet();
  input.cursor = Cast<IFeatureCursor>(Require(selection, "SelectionSet")->Search(nullptr, true));
  input.count = selection->Count();
  return input;
}

std::shared_ptr<IFeatureClass> CreateRunOutput(OutputTarget& target, esriGeometryType shape_type,
                                               const SpatialReferenceRef& reference, const Envelope& extent,
                                               const std::shared_ptr<VarArray>& fields, std::string_view name_prompt) {
  return Require(
      MyGeneralOperations::CreateGeneralFeatureClass(shape_type, reference, target.directory, target.name, target.kind,
                                                     fields, std::string(name_prompt), target.is_feature_dataset,
                                                     target.feature_dataset, false, false, &extent, 0),
      "the output feature class was not created");
}

std::string WrittenPath(const OutputTarget& target, const IFeatureClass& output) {
  // The name of a class leaves out the dataset that it lies in.
  const bool in_dataset = target.is_feature_dataset && !output.Category().starts_with("Shapefile");
  return in_dataset ? target.directory + "\\" + target.name : output.FullName();
}

void AddResultLayer(const std::shared_ptr<IFeatureClass>& output, const std::string& name,
                    const IMxDocument& document) {
  const std::shared_ptr<IFeatureLayer> layer = Host().CreateFeatureLayer();
  layer->SetFeatureClass(output);
  layer->SetName(name);
  document.FocusMap()->AddLayer(layer);
}

}  // namespace tessarine
