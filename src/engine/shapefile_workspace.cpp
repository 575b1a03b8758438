// SPDX-License-Identifier: GPL-2.0-or-later
// A folder of shapefiles as a workspace.
#include <algorithm>
#include <filesystem>
#include <set>

#include "engine/data_source.h"
#include "engine/engine_fault.h"
#include "engine/kept_reference.h"
#include "engine/srs_from_gdal.h"
#include "engine/staged_class.h"
#include "engine/workspace_common.h"
#include "outputs/staged_output.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;
using namespace engine;

// Makes an empty shapefile and returns the name of its layer.
std::string MakeShapefile(const fs::path& file, const NewClass& request) {
  RegisterDrivers();
  const GdalErrorScope errors;
  GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("ESRI Shapefile");
  DatasetHandle dataset(driver->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
  if (!dataset) RaiseEngineFault("The shapefile '" + request.name + ".shp' can't be created" + errors.Quote() + ".");
  CPLStringList options;
  options.SetNameValue("ENCODING", "UTF-8");
  std::string layer = CreateLayer(*dataset, request, options, LayerShapes::AsOne);
  dataset.reset();
  const GeometryDef& shape = ShapeDefinition(request);
  if (shape.SpatialReference) {
    KeepBesideShapefile(file, OgrFromReference(*shape.SpatialReference).get(), shape.Extent);
  }
  return layer;
}

class ShapefileWorkspace final : public IFeatureWorkspace {
 public:
  explicit ShapefileWorkspace(std::string folder) : folder_(std::move(folder)) {}

  [[nodiscard]] std::string PathName() const override { return FromNativePath(folder_); }

  [[nodiscard]] std::shared_ptr<IFeatureClass> OpenFeatureClass(const std::string& name) override {
    return DataSource::Open(StandingFileOf(name, ".shp"))->OpenFeatureClass("");
  }
  [[nodiscard]] std::shared_ptr<ITable> OpenTable(const std::string& name) override {
    const std::string file = StandingFileOf(name, ".dbf");
    if (!fs::exists(file)) RaiseEngineFault("There is no table '" + file + "'.");
    return DataSource::Open(file)->OpenTable("");
  }
  [[nodiscard]] std::shared_ptr<IFeatureDataset> OpenFeatureDataset(const std::string& name) override {
    RaiseEngineFault("A folder of shapefiles has no feature dataset '" + name + "'.");
  }

  [[nodiscard]] bool HoldsName(const std::string& name) override {
    return !FilesOfDataset(FileOf(name, ".shp")).empty();
  }
  void AllowReplacing(const std::string& name) override { replaced_.insert(FileOf(name, ".shp")); }

  [[nodiscard]] std::shared_ptr<IFeatureClass> CreateFeatureClass(const std::string& name, const FieldsRef& fields,
                                                                  const std::shared_ptr<UID>&,
                                                                  const std::shared_ptr<UID>&, esriFeatureType,
                                                                  const std::string& shape_field,
                                                                  const std::string&) override {
    RequireWritableFolder(folder_);
    const std::string file = (fs::path(folder_) / (name + ".shp")).string();
    const bool replaces = replaced_.erase(file) > 0;
    if (!replaces && !FilesOfDataset(file).empty()) RaiseEngineFault("The shapefile '" + file + "' exists already.");
    auto staged = std::make_unique<StagedOutput>(file, StagedOutput::Begin::Empty);
    const std::string layer = MakeShapefile(staged->Path(), {name, fields.get(), shape_field});
    return std::make_shared<StagedFeatureClass>(
        std::move(staged), layer, replaces ? StagedOutput::Standing::Replace : StagedOutput::Standing::Keep);
  }

 private:
  // A shapefile and its table are named with an ending or without.
  [[nodiscard]] std::string FileOf(const std::string& name, const char* ending) const {
    const bool named = EndsWithIgnoringCase(name, ".shp") || EndsWithIgnoringCase(name, ".dbf");
    return (fs::path(folder_) / (named ? name.substr(0, name.size() - 4) : name)).string() + ending;
  }
  // The file itself, where its ending is written in another case.
  [[nodiscard]] std::string StandingFileOf(const std::string& name, const char* ending) const {
    std::string file = FileOf(name, ending);
    for (const fs::path& standing : FilesOfDataset(file)) {
      if (EqualsIgnoringCase(standing.extension().string(), ending)) return standing.string();
    }
    return file;
  }

  std::string folder_;
  std::set<std::string> replaced_;  // what the next class of the name may replace
};

class ShapefileFactory final : public IWorkspaceFactory {
 public:
  [[nodiscard]] std::shared_ptr<IFeatureWorkspace> OpenFromFile(const std::string& path, std::int32_t) override {
    const std::string folder = ToNativePath(path);
    if (!fs::is_directory(folder)) RaiseEngineFault("There is no folder '" + folder + "'.");
    return std::make_shared<ShapefileWorkspace>(folder);
  }
  [[nodiscard]] bool IsWorkspace(const std::string& path) const override {
    return fs::is_directory(ToNativePath(path)) && !EndsWithIgnoringCase(path, ".gdb");
  }
  [[nodiscard]] bool ContainsWorkspace(const std::string& folder) const override {
    std::error_code error;
    const fs::directory_iterator entries(ToNativePath(folder), error);
    return !error && std::any_of(begin(entries), end(entries), [](const fs::directory_entry& entry) {
      return EndsWithIgnoringCase(entry.path().string(), ".shp");
    });
  }
};

}  // namespace

std::shared_ptr<IWorkspaceFactory> CreateShapefileWorkspaceFactory() { return std::make_shared<ShapefileFactory>(); }

}  // namespace tessarine
