// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/layer_source.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <sstream>

#include "engine/data_source.h"
#include "engine/remote_source.h"
#include "hosts/terminal/pipes.h"
#include "hosts/terminal/refusal.h"
#include "outputs/formats.h"
#include "platform/free_name.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

std::vector<std::shared_ptr<ILayer>> AllLayers(const MapDocument& document) {
  std::vector<std::shared_ptr<ILayer>> all;
  const std::shared_ptr<IEnumLayer> layers = document.Map().Layers(nullptr, true);
  while (const std::shared_ptr<ILayer> layer = layers->Next()) all.push_back(layer);
  return all;
}

// Groups may bear the names of layers.
std::shared_ptr<DocumentFeatureLayer> FindInDocument(const MapDocument& document, const std::string& name) {
  std::shared_ptr<DocumentFeatureLayer> found;
  for (const auto& layer : AllLayers(document)) {
    const auto features = Cast<DocumentFeatureLayer>(layer);
    if (!features || features->Name() != name) continue;
    if (found) {
      throw Refusal("The document has several layers named '" + name +
                    "': rename one of them, or give the path of the data.");
    }
    found = features;
  }
  return found;
}

// The geodatabase that a class is named in, as outputs are, by its path or by that of a feature dataset; or nothing.
// A class bears its name in the whole geodatabase alone.
std::string GeodatabaseAbove(const std::string& text) {
  std::filesystem::path above = text;
  for (int level = 0; level < 2; ++level) {
    above = above.parent_path();
    std::error_code error;
    const Format* format = FormatOfPath(above.string());
    if (format == nullptr || !format->feature_datasets) continue;
    const bool is_there =
        format->folder ? std::filesystem::is_directory(above, error) : std::filesystem::is_regular_file(above, error);
    if (is_there) return above.string();
  }
  return "";
}

GeometryRef BoxShape(const Envelope& box) {
  const std::vector<XY> corners = {{box.XMin(), box.YMin()},
                                   {box.XMin(), box.YMax()},
                                   {box.XMax(), box.YMax()},
                                   {box.XMax(), box.YMin()},
                                   {box.XMin(), box.YMin()}};
  auto shape = std::make_shared<Polygon>();
  shape->AddGeometry(std::make_shared<Ring>(corners));
  return shape;
}

std::shared_ptr<DocumentFeatureLayer> AddSource(MapDocument& document, const SourceOptions& options) {
  std::string path, layer;
  SplitSource(options.source, path, layer);
  if (!options.layer.empty()) layer = options.layer;
  // A document that is kept elsewhere must find the data again.
  std::error_code error;
  if (!options.sql.empty()) {
    const std::string name = options.source == kPipe ? "stdin" : std::filesystem::path(path).stem().string();
    path = QuerySource(std::filesystem::exists(path, error) ? std::filesystem::absolute(path).string() : path,
                       options.sql, name);
    layer.clear();
  } else if (std::filesystem::exists(path, error))
    path = std::filesystem::absolute(path).lexically_normal().string();
  // Opening it here gives the reason when it fails; in a document a broken layer is only left out.
  const std::shared_ptr<IFeatureClass> features = DataSource::Open(path)->OpenFeatureClass(layer);
  auto result = std::make_shared<DocumentFeatureLayer>();
  // Of a layer that mixes kinds of shapes, it is the name of one kind.
  result->SetName(FreeLayerName(document, layer.empty() ? features->Name() : layer));
  result->SetFeatureClass(features);
  document.Map().AddLayer(result);
  return result;
}

// Addresses and connections have colons of their own: a layer stands after the last one where nothing of either can.
void SplitRemote(std::string& path, std::string& layer) {
  const std::size_t colon = path.rfind(':');
  const std::string behind = colon == std::string::npos ? "" : path.substr(colon + 1);
  const std::string ahead = path.substr(0, colon);
  const bool names_layer = path.starts_with("PG:")
                               ? colon > 2 && behind.find_first_of("=/@") == std::string::npos
                               : FormatOfPath(ahead) != nullptr || EndsWithIgnoringCase(ahead, ".zip");
  if (behind.empty() || behind.find('/') != std::string::npos || !names_layer) return;
  constexpr std::string_view kUsualSchema = "public.";
  layer = behind.starts_with(kUsualSchema) ? behind.substr(kUsualSchema.size()) : behind;
  path = PathOfSource(ahead);
}

void Select(DocumentFeatureLayer& layer, const SourceOptions& options) {
  QueryFilter filter;
  filter.WhereClause = options.where;
  if (!options.box.empty()) filter.Geometry = BoxShape(ParseBox("--bbox", options.box));
  const std::shared_ptr<IFeatureClass> features = layer.FeatureClass();
  std::vector<std::int64_t> oids;
  const auto cursor = features->Search(&filter, Recycling::Yes);
  while (const auto feature = cursor->NextFeature()) oids.push_back(feature->OID());
  if (oids.empty()) {
    throw Refusal("No record of '" + layer.Name() + "' " +
                  (options.where.empty() ? "" : "meets the condition \"" + options.where + "\"") +
                  (options.where.empty() || options.box.empty() ? "" : " and ") +
                  (options.box.empty() ? "" : "lies in the box " + options.box) + ".");
  }
  layer.SetSelection(SelectByOids(features, std::move(oids)));
}

}  // namespace

Envelope ParseBox(const std::string& option, const std::string& text) {
  std::vector<double> sides;
  std::istringstream parts(text);
  for (std::string part; std::getline(parts, part, ',');) {
    if (!IsNumericText(part) || !std::isfinite(ToNumber(part))) break;
    sides.push_back(ToNumber(part));
  }
  const bool complete = sides.size() == 4 && std::ranges::count(text, ',') == 3;
  if (!complete || sides[0] >= sides[2] || sides[1] >= sides[3]) {
    throw Refusal(option + " takes west, south, east and north, from the least to the greatest, as in " + option +
                  " -10,35,30,70; '" + text + "' isn't that.");
  }
  return {sides[0], sides[1], sides[2], sides[3]};
}

void AddSourceOptions(CLI::App& command, SourceOptions& options) {
  command.add_option("-l,--layer", options.layer, "The layer, where the data holds several");
  command.add_option("-w,--where", options.where, "Take only the records that meet this SQL condition");
  command
      .add_option("--bbox", options.box,
                  "Take only the records that share a place with this box, in the data's own reference")
      ->type_name("W,S,E,N");
  command.add_option("--sql", options.sql, "Take the result of this query, in the SQL of the data's format")
      ->type_name("SELECT...");
}

std::string FreeLayerName(const MapDocument& document, const std::string& name) {
  const std::vector<std::shared_ptr<ILayer>> layers = AllLayers(document);
  const auto taken = [&](const std::string& candidate) {
    return std::ranges::any_of(layers, [&](const auto& layer) { return layer->Name() == candidate; });
  };
  return FirstFreeTitle(name, taken);
}

void SplitSource(const std::string& text, std::string& path, std::string& layer) {
  layer.clear();
  if (text == kPipe) {
    path = SpoolStandardInput();
    return;
  }
  path = PathOfSource(text);
  if (IsRemoteSource(path)) return SplitRemote(path, layer);
  std::error_code error;
  if (std::filesystem::exists(text, error)) return;
  // Names of layers may have colons, too.
  for (std::size_t colon = text.find(':'); colon != std::string::npos; colon = text.find(':', colon + 1)) {
    if (!std::filesystem::exists(text.substr(0, colon))) continue;
    path = text.substr(0, colon);
    layer = text.substr(colon + 1);
    return;
  }
  const std::string geodatabase = GeodatabaseAbove(text);
  if (geodatabase.empty()) return;
  path = geodatabase;
  layer = std::filesystem::path(text).filename().string();
}

std::shared_ptr<DocumentFeatureLayer> TakeLayer(MapDocument& document, const SourceOptions& options) {
  try {
    std::shared_ptr<DocumentFeatureLayer> layer =
        options.source == kPipe ? nullptr : FindInDocument(document, options.source);
    if (layer && !options.sql.empty()) {
      throw Refusal("--sql takes data by their path: '" + options.source + "' is a layer of the document.");
    }
    if (layer && !layer->Valid())
      throw Refusal("The layer '" + options.source + "' can't be opened. " + layer->Problem());
    if (layer && !layer->SelectedOids().empty() && layer->SelectionSet()->Count() == 0 && !options.Selects()) {
      throw Refusal("None of the records that the document selects in '" + layer->Name() +
                    "' is there: without a selection all records would be taken. Select others in the document, or "
                    "give --where.");
    }
    if (!layer) layer = AddSource(document, options);
    document.SetSelectedLayer(layer);
    if (options.Selects()) Select(*layer, options);
    return layer;
  } catch (const Fault& fault) {
    throw Refusal(fault.Description());
  }
}

}  // namespace tessarine
