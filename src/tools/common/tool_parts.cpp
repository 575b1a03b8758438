// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/common/tool_parts.h"

#include <algorithm>

#include "support/layer_listing.h"

namespace tessarine {
namespace {

struct TypeOfShape {
  esriGeometryType shape;
  std::int32_t layer_type;
};
constexpr TypeOfShape kTypesOfShapes[] = {{esriGeometryPoint, MyGeneralOperations::kPointLayers},
                                          {esriGeometryMultipoint, MyGeneralOperations::kMultipointLayers},
                                          {esriGeometryPolyline, MyGeneralOperations::kPolylineLayers},
                                          {esriGeometryPolygon, MyGeneralOperations::kPolygonLayers}};

std::shared_ptr<ISelectionSet> SelectionOf(const LayerRef& layer) {
  const auto selection = Cast<IFeatureSelection>(layer);
  return selection ? selection->SelectionSet() : nullptr;
}

}  // namespace

ToolParameter SourceParameter(std::vector<esriGeometryType> shapes) {
  return {.name = "source",
          .kind = ParameterKind::Layer,
          .text = "The features to read",
          .required = true,
          .shapes = std::move(shapes)};
}

ToolParameter OutputParameter() {
  return {
      .name = "output", .kind = ParameterKind::Output, .text = "The new class, or a folder for it", .required = true};
}

ToolParameter FieldsParameter() {
  return {
      .name = "fields", .kind = ParameterKind::Fields, .text = "The attribute fields to carry over", .of = "source"};
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

std::shared_ptr<clsExtension> MemoryOf(const std::shared_ptr<IApplication>& application) {
  std::shared_ptr<clsExtension> extension = FindExtension(Require(application, "IApplication"));
  return extension ? extension : std::make_shared<clsExtension>();
}

std::shared_ptr<IMxDocument> DocumentOf(const std::shared_ptr<IApplication>& application) {
  return Require(Cast<IMxDocument>(Require(application, "IApplication")->Document()), "IMxDocument");
}

bool ReadsAll(const LayerRef& layer, ToolRecords records) {
  if (records != ToolRecords::SelectedIfAny) return records == ToolRecords::All;
  const std::shared_ptr<ISelectionSet> selection = SelectionOf(layer);
  return !selection || selection->Count() == 0;
}

std::vector<esriGeometryType> AllShapes() { return ShapesOf(~0); }

std::vector<esriGeometryType> ShapesOf(std::int32_t layer_types) {
  std::vector<esriGeometryType> shapes;
  for (const auto& [shape, type] : kTypesOfShapes) {
    if ((layer_types & (type | MyGeneralOperations::kFeatureLayers)) != 0) shapes.push_back(shape);
  }
  return shapes;
}

bool Takes(const ToolSpec& spec, std::string_view parameter, const LayerRef& layer) {
  std::int32_t layer_types = 0;
  for (const auto& [shape, type] : kTypesOfShapes) {
    if (std::ranges::count(spec.Find(parameter)->shapes, shape) > 0) layer_types |= type;
  }
  return MyGeneralOperations::IsOfType(layer, layer_types);
}

std::optional<Objection> ObjectionToKind(const ToolSpec& spec, const LayerRef& layer) {
  return Takes(spec, "source", layer) ? std::nullopt : std::optional(WrongKind(spec, layer));
}

Objection WrongKind(const ToolSpec& spec, const LayerRef& layer) {
  return {"", "The layer '" + layer->Name() + "' is of the wrong kind: '" + std::string(spec.name) + "' takes " +
                  std::string(spec.takes) + "."};
}

OutputPlace OutputOfRun::Place() const { return MyGeneralOperations::PlaceAtPath(path, place.Kind(), place.dataset); }

OutputOfRun OutputOf(const Arguments& arguments, const std::string& base_name) {
  const auto output = arguments.Get<ToolOutput>("output");
  OutputOfRun result{MyGeneralOperations::PlaceFor(output, base_name), output.path};
  if (result.path.empty()) result.path = result.place.Path();
  return result;
}

void RememberRun(const OutputOfRun& output, std::int32_t record_count, clsExtension& extension) {
  MyGeneralOperations::RememberOutput(output.place, extension);
  extension.NewShapefileLocation = output.path;
  extension.AnalysisRecordCount = record_count;
}

}  // namespace tessarine
