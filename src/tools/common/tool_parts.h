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
/// The application's extension, where dialogs leave what was chosen; fault 91 without one.
[[nodiscard]] std::shared_ptr<clsExtension> ExtensionOf(const std::shared_ptr<IApplication>& application);
/// What the application remembers of earlier runs: its extension, or, where it has none, one as it is before the first
/// run, which ends with this one.
[[nodiscard]] std::shared_ptr<clsExtension> MemoryOf(const std::shared_ptr<IApplication>& application);
/// The application's document; fault 91 without one.
[[nodiscard]] std::shared_ptr<IMxDocument> DocumentOf(const std::shared_ptr<IApplication>& application);

/// Whether all records of the layer are read, and not the selected ones alone.
[[nodiscard]] bool ReadsAll(const LayerRef& layer, ToolRecords records);

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
  OutputPlace place;
  std::string path;

  /// Where the run writes to.
  [[nodiscard]] OutputPlace Place() const;
};
[[nodiscard]] OutputOfRun OutputOf(const Arguments& arguments, const std::string& base_name);

/// Leaves the output of a run and the number of its records in the extension, where the next dialog starts.
void RememberRun(const OutputOfRun& output, std::int32_t record_count, clsExtension& extension);

}  // namespace tessarine
