// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/common/tool_parts.h"

#include "support/layer_listing.h"

namespace tessarine {
namespace {

std::shared_ptr<ISelectionSet> SelectionOf(const LayerRef& layer) {
  const auto selection = Cast<IFeatureSelection>(layer);
  return selection ? selection->SelectionSet() : nullptr;
}

}  // namespace

ToolParameter SourceParameter() {
  return {.name = "source", .kind = ParameterKind::Layer, .text = "The features to read", .required = true};
}

ToolParameter OutputParameter() {
  return {
      .name = "output", .kind = ParameterKind::Output, .text = "The new class, or a folder for it", .required = true};
}

ToolParameter FieldsParameter() {
  return {.name = "fields",
          .kind = ParameterKind::Fields,
          .text = "The attribute fields to carry over, with commas between",
          .of = "source"};
}

ToolParameter AllFieldsParameter() {
  return {.name = "all-fields", .kind = ParameterKind::Flag, .text = "Carry all attribute fields over"};
}

std::vector<std::string> NamesOf(const VarArray& fields) {
  std::vector<std::string> names;
  for (const Variant& field : fields) names.push_back(Require(field.AsObject<Field>(), "IField")->Name);
  return names;
}

LayerRef SourceOf(const Arguments& arguments) { return Require(arguments.Get<LayerRef>("source"), "source"); }

std::shared_ptr<clsExtension> ExtensionOf(const std::shared_ptr<IApplication>& application) {
  return Require(FindExtension(Require(application, "IApplication")), "clsExtension");
}

std::shared_ptr<IMxDocument> DocumentOf(const std::shared_ptr<IApplication>& application) {
  return Require(Cast<IMxDocument>(Require(application, "IApplication")->Document()), "IMxDocument");
}

bool ReadsAll(const LayerRef& layer, ToolRecords records) {
  if (records != ToolRecords::SelectedIfAny) return records == ToolRecords::All;
  const std::shared_ptr<ISelectionSet> selection = SelectionOf(layer);
  return !selection || selection->Count() == 0;
}

std::int32_t CountRecords(const LayerRef& layer, bool all) {
  return all ? Require(layer->FeatureClass(), "FeatureClass")->FeatureCount(nullptr)
             : Require(SelectionOf(layer), "SelectionSet")->Count();
}

std::optional<Objection> ObjectionToKind(const ToolSpec& spec, const LayerRef& layer, std::int32_t layer_types) {
  if (MyGeneralOperations::IsOfType(layer, layer_types)) return std::nullopt;
  return Objection{"", "The layer '" + layer->Name() + "' is of the wrong kind: '" + std::string(spec.name) +
                           "' takes " + std::string(spec.takes) + "."};
}

OutputOfRun OutputOf(const Arguments& arguments, const std::string& base_name) {
  const auto output = arguments.Get<ToolOutput>("output");
  OutputOfRun result{MyGeneralOperations::ChoiceOf(output, base_name), output.path};
  if (result.path.empty()) result.path = result.place.FullPath();
  return result;
}

std::string WithoutBraces(std::string text) {
  std::erase_if(text, [](char c) { return c == '{' || c == '}'; });
  return text;
}

}  // namespace tessarine
