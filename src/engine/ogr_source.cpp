#include "engine/ogr_source.h"

#include <filesystem>
#include <mutex>

#include "engine/engine_fault.h"

namespace tessarine::engine {

void RegisterDrivers() {
  static std::once_flag once;
  std::call_once(once, [] {
    GDALAllRegister();
    // Broken shapefiles are refused by our own checks; a missing index is nothing to be rebuilt in silence.
    CPLSetConfigOption("SHAPE_RESTORE_SHX", "NO");
  });
}

DatasetHandle OpenDataset(const std::string& native_path, bool update) {
  RegisterDrivers();
  const GdalErrorScope errors;
  const unsigned flags = GDAL_OF_VECTOR | (update ? GDAL_OF_UPDATE : GDAL_OF_READONLY);
  DatasetHandle dataset(GDALDataset::Open(native_path.c_str(), flags));
  if (dataset) return dataset;
  if (!std::filesystem::exists(native_path)) {
    RaiseEngineFault("There is no file or folder '" + native_path + "': check its name and folder.");
  }
  if (update) {
    RaiseEngineFault("'" + native_path + "' can't be opened for writing: check its permissions, and that its format " +
                     "can be written" + errors.Quote() + ".");
  }
  RaiseEngineFault("'" + native_path + "' is no vector data that can be read" + errors.Quote() +
                   ". Give a shapefile, GeoPackage, file geodatabase, GeoJSON, KML or the like.");
}

LayerHandle OgrSource::Open(bool update) {
  DatasetHandle dataset = OpenDataset(path_, update);
  OGRLayer* layer = dataset->GetLayerByName(layer_.c_str());
  if (layer == nullptr) RaiseEngineFault("'" + path_ + "' has no layer '" + layer_ + "' any more.");
  return {shared_from_this(), std::move(dataset), *layer, update, generation_};
}

LayerHandle OgrSource::Read() {
  if (idle_.empty()) return Open(false);
  DatasetHandle dataset = std::move(idle_.back());
  idle_.pop_back();
  OGRLayer* layer = dataset->GetLayerByName(layer_.c_str());
  return {shared_from_this(), std::move(dataset), *layer, false, generation_};
}

LayerHandle OgrSource::Write() { return Open(true); }

void LayerHandle::Close() {
  const GdalErrorScope errors;
  dataset_.reset();
  ++source_->generation_;
  source_->idle_.clear();
  if (errors.Failed()) {
    RaiseEngineFault("'" + source_->Path() + "' can't be written to its end" + errors.Quote() +
                     ": check the room on the disk and the permissions.");
  }
}

LayerHandle::~LayerHandle() {
  if (!dataset_) return;
  if (writing_) {
    const GdalErrorScope quiet;
    dataset_.reset();
    ++source_->generation_;
    source_->idle_.clear();
  } else if (generation_ == source_->generation_) {
    layer_->SetAttributeFilter(nullptr);
    layer_->SetSpatialFilter(nullptr);
    layer_->SetIgnoredFields(nullptr);
    layer_->ResetReading();
    source_->idle_.push_back(std::move(dataset_));
  }
}

}  // namespace tessarine::engine
