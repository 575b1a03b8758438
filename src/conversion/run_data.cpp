// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/run_data.h"

#include "support/MyGeneralOperations.h"

namespace tessarine {

RunInput OpenInput(const std::shared_ptr<IFeatureLayer>& layer, bool all_records, Recycling recycling) {
  RunInput input;
  input.features = Require(layer->FeatureClass(), "FeatureClass");
  if (all_records) {
    input.cursor = input.features->Search(nullptr, recycling);
    input.count = input.features->FeatureCount(nullptr);
    return input;
  }
  const auto selection = Require(Cast<IFeatureSelection>(layer), "IFeatureSelection")->SelectionSet();
  input.cursor = Cast<IFeatureCursor>(Require(selection, "SelectionSet")->Search(nullptr, recycling));
  input.count = selection->Count();
  return input;
}

std::int32_t CountInput(const std::shared_ptr<IFeatureLayer>& layer, bool all_records) {
  return all_records ? Require(layer->FeatureClass(), "FeatureClass")->FeatureCount(nullptr)
                     : Require(Cast<IFeatureSelection>(layer), "IFeatureSelection")->SelectionSet()->Count();
}

MyGeneralOperations::OutputRequest RequestFor(const OutputPlace& place, std::string_view name_prompt) {
  MyGeneralOperations::OutputRequest request;
  request.place = place;
  request.dialog_title = name_prompt;
  return request;
}

std::string EndWithoutOutput(const RunContext& context) {
  if (!context.journal.cancelled) {
    Raise(kObjectNotSet, "Object variable not set: the output feature class was not created");
  }
  return "";
}

void AddResultLayer(RunContext& context, const std::shared_ptr<IFeatureClass>& output, const std::string& name,
                    const IMxDocument& document) {
  const std::shared_ptr<IFeatureLayer> layer = context.services.CreateFeatureLayer();
  layer->SetFeatureClass(output);
  layer->SetName(name);
  document.FocusMap()->AddLayer(layer);
}

}  // namespace tessarine
