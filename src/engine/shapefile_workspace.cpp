// A folder of shapefiles as a workspace.
#include <algorithm>
#include <filesystem>

#include "engine/data_source.h"
#include "engine/engine_fault.h"
#include "engine/ogr_class.h"
#include "engine/workspace_common.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;
using namespace engine;

class ShapefileWorkspace final : public IFeatureWorkspace {
 public:
  explicit ShapefileWorkspace(std::string folder) : folder_(std::move(folder)) {}

  [[nodiscard]] std::string PathName() const override { return FromNativePath(folder_); }

  [[nodiscard]] std::shared_ptr<IFeatureClass> OpenFeatureClass(const std::string& name) override {
    return DataSource::Open(FileOf(name, ".shp"), false)->OpenFeatureClass("");
  }
  [[nodiscard]] std::shared_ptr<ITable> OpenTable(const std::string& name) override {
    const std::string file = FileOf(name, ".dbf");
    if (!fs::exists(file)) RaiseEngineFault("There is no table '" + file + "'.");
    return DataSource::Open(file, false)->OpenTable("");
  }
  [[nodiscard]] std::shared_ptr<IFeatureDataset> OpenFeatureDataset(const std::string& name) override {
    RaiseEngineFault("A folder of shapefiles has no feature dataset '" + name + "'.");
  }

  [[nodiscard]] std::shared_ptr<IFeatureClass> CreateFeatureClass(const std::string& name, const FieldsRef& fields,
                                                                  const std::shared_ptr<UID>&,
                                                                  const std::shared_ptr<UID>&, esriFeatureType,
                                                                  const std::string& shape_field,
                                                                  const std::string&) override {
    RequireWritableFolder(folder_);
    const std::string file = FileOf(name, ".shp");
    if (fs::exists(file)) RaiseEngineFault("The shapefile '" + file + "' exists already.");
    RegisterDrivers();
    try {
      const GdalErrorScope errors;
      GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("ESRI Shapefile");
      const DatasetHandle dataset(driver->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
      if (!dataset) RaiseEngineFault("The shapefile '" + file + "' can't be created" + errors.Quote() + ".");
      CPLStringList options;
      options.SetNameValue("ENCODING", "UTF-8");
      CreateLayer(*dataset, {fs::path(file).stem().string(), fields.get(), shape_field}, options, true);
    } catch (const Fault&) {
      // Nothing half-made stays behind.
      DeleteShapefile(file);
      throw;
    }
    return OpenFeatureClass(name);
  }

 private:
  [[nodiscard]] std::string FileOf(const std::string& name, const char* ending) const {
    const std::string file = EndsWithIgnoringCase(name, ending) ? name : name + ending;
    return (fs::path(folder_) / file).string();
  }

  std::string folder_;
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
