// SPDX-License-Identifier: GPL-2.0-or-later
// The layer that a command works on: named by a path, or by its name in a document.
#pragma once

#include <CLI/App.hpp>
#include <memory>
#include <string>
#include <vector>

#include "hosts/document/document_layer.h"
#include "hosts/document/map_document.h"

namespace tessarine {

struct SourceOptions {
  std::string source;
  std::string layer;
  std::string where;
  std::string box;  ///< four numbers with commas between, in the data's own reference
  std::string sql;

  [[nodiscard]] bool Selects() const { return !where.empty() || !box.empty(); }
};

/// What a source may be, for the help of a command.
inline constexpr const char* kSourceHelp =
    "The data: a path, PATH:LAYER, a web address, PG:CONNECTION, a layer of the document, or - for GeoJSON lines from "
    "standard input";

/// Adds --layer, --where, --bbox and --sql.
void AddSourceOptions(CLI::App& command, SourceOptions& options);

/// The numbers of "W,S,E,N". Raises `Refusal`, which names the option, for anything else.
[[nodiscard]] Envelope ParseBox(const std::string& option, const std::string& text);

/// Finds the layer in the document by its name, or adds the source's layer to it under a name that no other layer
/// bears, chosen in the table of contents;
/// `--where` and `--bbox` become its selection. Raises `Refusal`, which names what is wrong and the way out.
[[nodiscard]] std::shared_ptr<DocumentFeatureLayer> TakeLayer(MapDocument& document, const SourceOptions& options);

/// The name, or with a number after it one that no layer of the document bears: forms know layers by their names.
[[nodiscard]] std::string FreeLayerName(const MapDocument& document, const std::string& name);

/// "PATH:LAYER" and "NAME.gdb[/DATASET]/CLASS", where there is nothing of the whole name: split at the first colon
/// after what exists, or else after the geodatabase.
void SplitSource(const std::string& text, std::string& path, std::string& layer);

}  // namespace tessarine
