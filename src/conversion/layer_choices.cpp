// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/layer_choices.h"

#include "platform/fault.h"

namespace tessarine {
namespace {

std::string WithCount(std::string_view label, std::int32_t count) {
  return std::string(label) + " (n = " + std::to_string(count) + ")";
}

}  // namespace

std::int32_t ListLayers(const VarArray& layers, const std::string& preferred, ListBox& list) {
  std::int32_t position = 0;
  std::int32_t chosen = 0;
  for (const Variant& element : layers) {
    const auto layer = element.AsObject<ILayer>();
    if (layer && layer->Valid()) {
      list.AddItem(layer->Name());
      if (layer->Name() == preferred) chosen = position;
    }
    ++position;
  }
  return chosen;
}

std::shared_ptr<IFeatureLayer> LayerAt(const std::shared_ptr<VarArray>& layers, std::int32_t line) {
  if (!layers || line < 0 || line >= layers->Count()) return nullptr;
  return layers->Element(line).AsObject<IFeatureLayer>();
}

std::vector<FieldRef> ListFields(const IFeatureLayer& layer, StoredMeasures measures, ListBox& list) {
  std::vector<FieldRef> fields;
  list.Clear();
  for (const TransferableField& field : TransferableFields(layer, measures)) {
    fields.push_back(field.field);
    list.AddItem(field.alias);
  }
  return fields;
}

std::shared_ptr<VarArray> SelectedFieldsOf(const ListBox& list, const std::vector<FieldRef>& fields) {
  auto chosen = std::make_shared<VarArray>();
  for (std::int32_t line = 0; line < list.ListCount(); ++line) {
    if (list.Selected(line)) chosen->Add(fields[static_cast<std::size_t>(line)]);
  }
  return chosen;
}

void SelectAllLines(ListBox& list, bool selected) {
  for (std::int32_t line = 0; line < list.ListCount(); ++line) list.SetSelected(line, selected);
  list.SetTopIndex(0);
  list.Refresh();
}

const char* SelectFieldsCaption(bool all_selected) {
  return all_selected ? "Unselect All Fields" : "Select All Fields";
}

void LeaveChoices(clsExtension& extension, const std::shared_ptr<IFeatureLayer>& layer, ToolRecords records,
                  const MyGeneralOperations::OutputRow& output) {
  const std::shared_ptr<IFeatureClass> features = Require(layer, "layer")->FeatureClass();
  if (!features) {
    Raise(kObjectNotSet, "The data of the layer '" + layer->Name() + "' are gone: choose another layer.");
  }
  extension.NewShapefileLocation = output.Path();
  extension.SelectedLayer = layer;
  MyGeneralOperations::RememberOutput(output.Place(), extension);
  extension.DoAllRecords = records == ToolRecords::All;
  extension.AnalysisRecordCount =
      extension.DoAllRecords ? features->FeatureCount(nullptr) : SelectionOf(layer)->Count();
}

void ForgetLayerAndFields(clsExtension& extension) {
  extension.SelectedFields = nullptr;
  extension.SelectedLayer = nullptr;
}

std::shared_ptr<ISelectionSet> SelectionOf(const std::shared_ptr<IFeatureLayer>& layer) {
  const auto selection = Cast<IFeatureSelection>(layer);
  return selection ? selection->SelectionSet() : nullptr;
}

void ShowRecordChoice(const std::shared_ptr<IFeatureLayer>& layer, std::string_view all_label,
                      std::string_view selected_label, OptionButton& all, OptionButton& selected) {
  const std::int32_t total = layer->FeatureClass()->FeatureCount(nullptr);
  const std::shared_ptr<ISelectionSet> selection = SelectionOf(layer);
  const std::int32_t count = selection ? selection->Count() : 0;
  all.SetEnabled(true);
  all.SetCaption(WithCount(all_label, total));
  selected.SetEnabled(count > 0);
  selected.SetCaption(selection ? WithCount(selected_label, count) : "Unable to get selection...");
  all.SetValue(count == 0);
  selected.SetValue(count > 0);
}

}  // namespace tessarine
