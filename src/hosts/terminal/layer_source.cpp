// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/layer_source.h"

#include <algorithm>
#include <filesystem>

#include "engine/data_source.h"
#include "hosts/terminal/refusal.h"
#include "outputs/formats.h"
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

std::shared_ptr<DocumentFeatureLayer> AddSource(MapDocument& document, const SourceOptions& options) {
  std::string path, layer;
  SplitSource(options.source, path, layer);
  if (!options.layer.empty()) layer = options.layer;
  // A document that is kept elsewhere must find the data again.
  if (std::filesystem::exists(path)) path = std::filesystem::absolute(path).lexically_normal().string();
  // Opening it here gives the reason when it fails; in a document a broken layer is only left out.
  const std::shared_ptr<IFeatureClass> features = DataSource::Open(path, false)->OpenFeatureClass(layer);
  auto result = std::make_shared<DocumentFeatureLayer>();
  // Of a layer that mixes kinds of shapes, it is the name of one kind.
  result->SetName(FreeLayerName(document, layer.empty() ? features->Name() : layer));
  result->SetFeatureClass(features);
  document.Map().AddLayer(result);
  return result;
}

}  // namespace

std::string FreeLayerName(const MapDocument& document, const std::string& name) {
  const std::vector<std::shared_ptr<ILayer>> layers = AllLayers(document);
  const auto taken = [&](const std::string& candidate) {
    return std::ranges::any_of(layers, [&](const auto& layer) { return layer->Name() == candidate; });
  };
  std::string free = name;
  for (int number = 2; taken(free); ++number) free = name + " (" + std::to_string(number) + ")";
  return free;
}

void SplitSource(const std::string& text, std::string& path, std::string& layer) {
  path = text;
  layer.clear();
  if (std::filesystem::exists(text)) return;
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
    std::shared_ptr<DocumentFeatureLayer> layer = FindInDocument(document, options.source);
    if (layer && !layer->Valid())
      throw Refusal("The layer '" + options.source + "' can't be opened. " + layer->Problem());
    if (layer && !layer->SelectedOids().empty() && layer->SelectionSet()->Count() == 0 && options.where.empty()) {
      throw Refusal("None of the records that the document selects in '" + layer->Name() +
                    "' is there: without a selection all records would be taken. Select others in the document, or "
                    "give --where.");
    }
    if (!layer) layer = AddSource(document, options);
    document.SetSelectedLayer(layer);
    if (!options.where.empty()) {
      layer->SetSelection(SelectByWhere(layer->FeatureClass(), options.where));
      if (layer->SelectionSet()->Count() == 0) {
        throw Refusal("No record of '" + layer->Name() + "' meets the condition \"" + options.where + "\".");
      }
    }
    return layer;
  } catch (const Fault& fault) {
    throw Refusal(fault.Description());
  }
}

}  // namespace tessarine
