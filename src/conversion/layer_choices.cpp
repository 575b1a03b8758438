// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/layer_choices.h"

#include "platform/text_formats.h"

namespace tessarine {
namespace {

// Fields that no output can carry over.
bool IsTransferable(const Field& field) {
  switch (field.Type) {
    case esriFieldTypeOID:
    case esriFieldTypeGeometry:
    case esriFieldTypeBlob:
    case esriFieldTypeRaster:
    case esriFieldTypeGUID:
    case esriFieldTypeGlobalID:
    case esriFieldTypeXML:
      return false;
    default:
      return true;
  }
}

bool IsStoredMeasure(const Field& field) {
  return EqualsIgnoringCase(field.Name, "Shape_Area") || EqualsIgnoringCase(field.Name, "Shape_Length");
}

std::string AliasOf(const IFeatureLayer& layer, const Field& field) {
  const auto* layer_fields = dynamic_cast<const ILayerFields*>(&layer);
  if (layer_fields == nullptr) return field.AliasName;
  const std::int32_t index = layer_fields->FindField(field.Name);
  return index < 0 ? field.AliasName : layer_fields->FieldInfo(index).Alias;
}

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

std::vector<FieldRef> ListFields(const IFeatureLayer& layer, bool leave_out_measures, ListBox& list) {
  std::vector<FieldRef> fields;
  list.Clear();
  for (const FieldRef& field : *layer.FeatureClass()->Fields()) {
    if (!IsTransferable(*field) || (leave_out_measures && IsStoredMeasure(*field))) continue;
    fields.push_back(field);
    list.AddItem(AliasOf(layer, *field));
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

void ForgetChoices(clsExtension& extension) {
  extension.ShouldContinue = false;
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
