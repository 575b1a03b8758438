// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/run_data.h"

#include "support/MyGeneralOperations.h"

namespace tessarine {

RunInput OpenInput(const std::shared_ptr<IFeatureLayer>& layer, bool all_records, Rows rows) {
  const bool recycled = rows == Rows::Recycled;
  RunInput input;
  input.features = Require(layer->FeatureClass(), "FeatureClass");
  if (all_records) {
    input.cursor = input.features->Search(nullptr, recycled);
    input.count = input.features->FeatureCount(nullptr);
    return input;
  }
  const auto selection = Require(Cast<IFeatureSelection>(layer), "IFeatureSelection")->SelectionSet();
  input.cursor = Cast<IFeatureCursor>(Require(selection, "SelectionSet")->Search(nullptr, recycled));
  input.count = selection->Count();
  return input;
}

MyGeneralOperations::OutputRequest RequestFor(const OutputTarget& target, std::string_view name_prompt) {
  MyGeneralOperations::OutputRequest request;
  request.directory = target.directory;
  request.name = target.name;
  request.kind = target.kind;
  request.is_feature_dataset = target.is_feature_dataset;
  request.feature_dataset = target.feature_dataset;
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
