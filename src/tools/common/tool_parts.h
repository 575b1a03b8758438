// SPDX-License-Identifier: GPL-2.0-or-later
// What the tools share: their usual parameters, the layers and records that arguments name, and the common objections.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/tool.h"
#include "session/clsExtension.h"
#include "support/output_chooser.h"

namespace tessarine {

using LayerRef = std::shared_ptr<IFeatureLayer>;

/// "source", "output", "fields" and "all-fields", as most tools have them.
[[nodiscard]] ToolParameter SourceParameter(std::vector<esriGeometryType> shapes);
[[nodiscard]] ToolParameter OutputParameter();
[[nodiscard]] ToolParameter FieldsParameter();
[[nodiscard]] ToolParameter AllFieldsParameter();

/// The names of a list of fields.
[[nodiscard]] std::vector<std::string> NamesOf(const VarArray& fields);

/// The layer of the source; fault 91 where none was set.
[[nodiscard]] LayerRef SourceOf(const Arguments& arguments);
/// The application's extension; fault 91 without one.
[[nodiscard]] std::shared_ptr<clsExtension> ExtensionOf(const std::shared_ptr<IApplication>& application);
/// The application's document; fault 91 without one.
[[nodiscard]] std::shared_ptr<IMxDocument> DocumentOf(const std::shared_ptr<IApplication>& application);

/// Whether all records of the layer are read, and not the selected ones alone.
[[nodiscard]] bool ReadsAll(const LayerRef& layer, ToolRecords records);
/// How many these are.
[[nodiscard]] std::int32_t CountRecords(const LayerRef& layer, bool all);

/// Layers of any shape.
[[nodiscard]] std::vector<esriGeometryType> AllShapes();
/// The shape types of these layer types, as `ReturnLayersByType` takes them.
[[nodiscard]] std::vector<esriGeometryType> ShapesOf(std::int32_t layer_types);
/// Whether the parameter takes the layer, by its shape type.
[[nodiscard]] bool Takes(const ToolSpec& spec, std::string_view parameter, const LayerRef& layer);
/// Empty for a layer that the tool takes as its source.
[[nodiscard]] std::optional<Objection> ObjectionToKind(const ToolSpec& spec, const LayerRef& layer);
/// That the layer is of another kind than the tool takes.
[[nodiscard]] Objection WrongKind(const ToolSpec& spec, const LayerRef& layer);

/// Where an output goes: its place, which the document remembers, and its path.
struct OutputOfRun {
  MyGeneralOperations::OutputChoice place;
  std::string path;
};
[[nodiscard]] OutputOfRun OutputOf(const Arguments& arguments, const std::string& base_name);

}  // namespace tessarine
