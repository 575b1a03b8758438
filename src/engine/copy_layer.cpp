#include "engine/copy_layer.h"

#include <gdal_utils.h>

#include <filesystem>

#include "engine/data_source.h"
#include "engine/engine_fault.h"
#include "engine/filegdb_edit.h"
#include "engine/ogr_source.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;
using namespace engine;

struct FormatRow {
  const char* ending;
  const char* driver;
  bool container;  ///< holds several layers
};
// Formats that are changed in place.
constexpr FormatRow kInPlace[] = {
    {".shp", "ESRI Shapefile", false},
    {".gpkg", "GPKG", true},
    {".gdb", "OpenFileGDB", true},
};

const FormatRow* FindInPlace(const std::string& path) {
  for (const FormatRow& row : kInPlace) {
    if (EndsWithIgnoringCase(path, row.ending)) return &row;
  }
  return nullptr;
}

// The driver that makes new files of this ending; empty when there is none.
std::string DriverOf(const std::string& path) {
  if (const FormatRow* row = FindInPlace(path)) return row->driver;
  const std::string ending = LowerCase(fs::path(path).extension().string());
  if (ending.size() < 2) return "";
  RegisterDrivers();
  for (int index = 0; index < GetGDALDriverManager()->GetDriverCount(); ++index) {
    GDALDriver* driver = GetGDALDriverManager()->GetDriver(index);
    if (!CPLTestBool(CSLFetchNameValueDef(driver->GetMetadata(), GDAL_DCAP_VECTOR, "NO"))) continue;
    if (!CPLTestBool(CSLFetchNameValueDef(driver->GetMetadata(), GDAL_DCAP_CREATE, "NO"))) continue;
    const char* endings = driver->GetMetadataItem(GDAL_DMD_EXTENSIONS);
    const CPLStringList list(CSLTokenizeString2(endings != nullptr ? endings : "", " ", 0));
    if (list.FindString(ending.c_str() + 1) >= 0) return driver->GetDescription();
  }
  return "";
}

struct OptionsFree {
  void operator()(GDALVectorTranslateOptions* options) const { GDALVectorTranslateOptionsFree(options); }
};

// A file geodatabase counts its rows from 1.
bool KeepsIdentifiers(const LayerPlace& target, OGRLayer& rows) {
  if (!EndsWithIgnoringCase(target.path, ".gdb")) return true;
  const GdalErrorScope quiet;
  const OGRFeatureUniquePtr first(rows.GetFeature(0));
  return first == nullptr;
}

void RemoveWhatIsThere(const std::string& path) {
  const GdalErrorScope quiet;
  GDALDriver* driver = GetGDALDriverManager()->GetDriverByName(DriverOf(path).c_str());
  if (driver != nullptr) (void)driver->Delete(path.c_str());
}

std::string OnlyLayer(const LayerPlace& place) {
  return place.layer.empty() ? Cast<IDataset>(DataSource::Open(place.path, false)->OpenFeatureClass(""))->Name()
                             : place.layer;
}

}  // namespace

LayerPlace ParseLayerPlace(const std::string& text) {
  const fs::path path = fs::absolute(text).lexically_normal();
  if (FindInPlace(path.parent_path().string()) != nullptr)
    return {path.parent_path().string(), path.filename().string()};
  const std::size_t colon = path.string().rfind(':');
  if (colon != std::string::npos && FindInPlace(path.string().substr(0, colon)) != nullptr) {
    return {path.string().substr(0, colon), path.string().substr(colon + 1)};
  }
  return {path.string(), ""};
}

bool CanWriteFormatOf(const std::string& path) { return !DriverOf(path).empty(); }

bool ChangesInPlace(const std::string& path) { return FindInPlace(path) != nullptr; }

bool LayerExists(const LayerPlace& place) {
  if (!fs::exists(place.path)) return false;
  const FormatRow* row = FindInPlace(place.path);
  if (row == nullptr || !row->container || place.layer.empty()) return true;
  for (const std::string& name : DataSource::Open(place.path, false)->LayerNames()) {
    if (EqualsIgnoringCase(name, place.layer)) return true;
  }
  return false;
}

namespace {

void CopyLayerTo(const LayerPlace& source, const LayerPlace& target);
void RemoveLayerAt(const LayerPlace& place);

}  // namespace

void CopyLayer(const LayerPlace& source, const LayerPlace& target) {
  if (!IsFileGdb(target.path)) return CopyLayerTo(source, target);
  EditFileGdb(target.path, [&](FileGdbEdit& edit) {
    const std::string name = !target.layer.empty() ? target.layer : fs::path(target.path).stem().string();
    CopyLayerTo(source, {edit.Folder(), name});
  });
}

void RemoveLayer(const LayerPlace& place) {
  if (!IsFileGdb(place.path) || place.layer.empty()) return RemoveLayerAt(place);
  bool is_last = false;
  EditFileGdb(place.path, [&](FileGdbEdit& edit) {
    is_last = OpenDataset(place.path, false)->GetLayerCount() == 1;
    if (!is_last) RemoveLayerAt({edit.Folder(), place.layer});
  });
  if (is_last) RemoveLayerAt({place.path, ""});
}

namespace {

void CopyLayerTo(const LayerPlace& source, const LayerPlace& target) {
  const std::string layer = OnlyLayer(source);
  const bool exists = fs::exists(target.path);
  const FormatRow* row = FindInPlace(target.path);
  if (exists && (row == nullptr || !row->container || target.layer.empty())) RemoveLayerAt({target.path, ""});
  const bool add = exists && fs::exists(target.path);

  CPLStringList arguments;
  arguments.AddString("-f").AddString(DriverOf(target.path).c_str());
  if (add) arguments.AddString("-update").AddString("-overwrite");
  const std::string name = !target.layer.empty() ? target.layer : fs::path(target.path).stem().string();
  arguments.AddString("-nln").AddString(name.c_str());
  const DatasetHandle input = OpenDataset(source.path, false);
  OGRLayer* rows = input->GetLayerByName(layer.c_str());
  if (rows == nullptr) RaiseEngineFault("'" + source.path + "' has no layer '" + layer + "'.");
  if (KeepsIdentifiers(target, *rows)) arguments.AddString("-preserve_fid");
  // A layer of polygons or lines in a shapefile holds those of several parts, too.
  const OGRwkbGeometryType type = wkbFlatten(rows->GetGeomType());
  if (row != nullptr && row->container && (type == wkbPolygon || type == wkbLineString)) {
    arguments.AddString("-nlt").AddString("PROMOTE_TO_MULTI");
  }
  arguments.AddString(layer.c_str());
  const std::unique_ptr<GDALVectorTranslateOptions, OptionsFree> options(
      GDALVectorTranslateOptionsNew(arguments.List(), nullptr));
  GDALDatasetH input_handle = GDALDataset::ToHandle(input.get());
  const GdalErrorScope errors;
  int usage_error = 0;
  GDALDatasetH made = GDALVectorTranslate(target.path.c_str(), nullptr, 1, &input_handle, options.get(), &usage_error);
  if (made != nullptr) GDALClose(made);
  if (made == nullptr || errors.Failed()) {
    if (!add) RemoveWhatIsThere(target.path);
    RaiseEngineFault("'" + layer + "' of '" + source.path + "' can't be copied to '" + target.path + "'" +
                     errors.Quote() + ".");
  }
}

void RemoveLayerAt(const LayerPlace& place) {
  const GdalErrorScope quiet;
  if (!place.layer.empty()) {
    const DatasetHandle dataset = OpenDatasetAt(place.path, true);
    for (int index = 0; index < dataset->GetLayerCount() && dataset->GetLayerCount() > 1; ++index) {
      if (!EqualsIgnoringCase(dataset->GetLayer(index)->GetName(), place.layer)) continue;
      if (dataset->DeleteLayer(index) != OGRERR_NONE) {
        RaiseEngineFault("'" + place.layer + "' can't be deleted from '" + place.path + "'" + quiet.Quote() + ".");
      }
      return;
    }
  }
  RegisterDrivers();
  GDALDriver* driver = GetGDALDriverManager()->GetDriverByName(DriverOf(place.path).c_str());
  if (driver == nullptr || driver->Delete(place.path.c_str()) != CE_None) {
    RaiseEngineFault("'" + place.path + "' can't be replaced" + quiet.Quote() + ".");
  }
  // Of a file geodatabase the driver leaves the emptied folder.
  std::error_code error;
  if (fs::is_directory(place.path, error)) fs::remove(place.path, error);
}

}  // namespace

}  // namespace tessarine
