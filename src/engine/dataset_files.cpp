// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/dataset_files.h"

#include <cpl_minixml.h>

#include <algorithm>
#include <filesystem>

#include "engine/engine_fault.h"
#include "engine/ogr_source.h"
#include "outputs/driver_facts.h"
#include "outputs/output_place.h"
#include "outputs/staged_output.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

namespace fs = std::filesystem;

// Virtual files of virtual files are rare; a circle of them must end.
constexpr int kDeepest = 8;
constexpr const char* kInlineVirtual = "<OGRVRTDataSource";

struct XmlDelete {
  void operator()(CPLXMLNode* node) const { CPLDestroyXMLNode(node); }
};
using XmlTree = std::unique_ptr<CPLXMLNode, XmlDelete>;

void Collect(const std::string& path, const std::string& layer, int depth, DatasetFiles& found);

void AddFile(DatasetFiles& found, const std::string& path) { found.files.push_back(RealFile(path)); }

void AddShapefile(DatasetFiles& found, const fs::path& path) {
  for (const fs::path& file : FilesOfDataset(path)) AddFile(found, file.string());
}

// The sources that stand anywhere below a node: GDAL doesn't list those of unions and of reprojected layers.
void CollectVirtual(const CPLXMLNode& node, const fs::path& folder, int depth, DatasetFiles& found) {
  const CPLXMLNode* source = CPLGetXMLNode(&node, "SrcDataSource");
  if (source != nullptr) {
    std::string path = CPLGetXMLValue(source, "", "");
    if (CPLTestBool(CPLGetXMLValue(source, "relativeToVRT", "0"))) path = (folder / path).string();
    const char* own_name = CPLGetXMLValue(&node, "name", "");
    const bool query = CPLGetXMLNode(&node, "SrcSQL") != nullptr;
    Collect(path, query ? "" : CPLGetXMLValue(&node, "SrcLayer", own_name), depth + 1, found);
  }
  for (const CPLXMLNode* child = node.psChild; child != nullptr; child = child->psNext) {
    if (child->eType == CXT_Element && child != source) CollectVirtual(*child, folder, depth, found);
  }
}

void CollectVirtualFile(const std::string& path, const std::string& layer, int depth, DatasetFiles& found) {
  const bool in_line = path.starts_with(kInlineVirtual);
  const XmlTree tree(in_line ? CPLParseXMLString(path.c_str()) : CPLParseXMLFile(path.c_str()));
  const CPLXMLNode* root = tree ? CPLGetXMLNode(tree.get(), "=OGRVRTDataSource") : nullptr;
  if (root == nullptr) return;
  const fs::path folder = in_line ? fs::path() : fs::path(path).parent_path();
  const CPLXMLNode* own = nullptr;
  for (const CPLXMLNode* child = root->psChild; child != nullptr; child = child->psNext) {
    if (child->eType == CXT_Element && layer == CPLGetXMLValue(child, "name", "")) own = child;
  }
  CollectVirtual(own != nullptr ? *own : *root, folder, depth, found);
}

DatasetHandle OpenIfReadable(const std::string& path) {
  try {
    return OpenDatasetAt(path);
  } catch (const Fault&) {
    return nullptr;
  }
}

void CollectOpen(GDALDataset& dataset, const std::string& path, const std::string& layer, int depth,
                 DatasetFiles& found) {
  const std::string_view driver = dataset.GetDriverName();
  const bool is_shapefile = FactsOfDriver(driver).store == FileStore::Shapefile;
  std::error_code error;
  if (driver == "OGR_VRT") {
    CollectVirtualFile(path, layer, depth, found);
    return;
  }
  const bool only = layer.empty() && dataset.GetLayerCount() == 1;
  found.classes.push_back(only ? dataset.GetLayer(0)->GetName() : layer);
  if (is_shapefile && fs::is_directory(path, error)) {
    if (!layer.empty()) {
      AddShapefile(found, fs::path(path) / (layer + ".shp"));
      return;
    }
  } else if (is_shapefile) {
    AddShapefile(found, path);
  }
  const CPLStringList listed(dataset.GetFileList());
  for (int index = 0; index < listed.size(); ++index) AddFile(found, listed[index]);
}

void Collect(const std::string& path, const std::string& layer, int depth, DatasetFiles& found) {
  AddFile(found, path);
  if (depth > kDeepest) return;
  const GdalErrorScope quiet;
  if (const DatasetHandle dataset = OpenIfReadable(path)) {
    CollectOpen(*dataset, path, layer, depth, found);
  } else {
    found.classes.push_back(layer);
  }
}

DatasetFiles EachOnce(DatasetFiles found) {
  std::ranges::sort(found.files);
  const auto rest = std::ranges::unique(found.files);
  found.files.erase(rest.begin(), rest.end());
  return found;
}

}  // namespace

DatasetFiles FilesOfLayer(const std::string& native_path, const std::string& layer) {
  DatasetFiles found;
  Collect(native_path, layer, 0, found);
  return EachOnce(std::move(found));
}

DatasetFiles FilesOfLayer(GDALDataset& dataset, const std::string& native_path, const std::string& layer) {
  DatasetFiles found;
  AddFile(found, native_path);
  const GdalErrorScope quiet;
  CollectOpen(dataset, native_path, layer, 0, found);
  return EachOnce(std::move(found));
}

}  // namespace tessarine::engine
