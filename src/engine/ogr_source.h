// One layer of a data source and the handles on it. OGR layers have a single reading position, so every cursor works
// on a handle of its own.
#pragma once

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/geometry_types.h"

namespace tessarine::engine {

struct DatasetClose {
  void operator()(GDALDataset* dataset) const { GDALClose(dataset); }
};
using DatasetHandle = std::unique_ptr<GDALDataset, DatasetClose>;

/// Registers the drivers, once.
void RegisterDrivers();

/// Opens a vector dataset, or raises a fault that names the file and quotes GDAL.
[[nodiscard]] DatasetHandle OpenDataset(const std::string& native_path, bool update);

class LayerHandle;

class OgrSource : public std::enable_shared_from_this<OgrSource> {
 public:
  /// `kind` restricts a layer of mixed shapes to those of one type.
  OgrSource(std::string native_path, std::string layer, std::optional<esriGeometryType> kind)
      : path_(std::move(native_path)), layer_(std::move(layer)), kind_(kind) {}

  [[nodiscard]] const std::string& Path() const { return path_; }
  [[nodiscard]] const std::string& LayerName() const { return layer_; }
  [[nodiscard]] std::optional<esriGeometryType> Kind() const { return kind_; }

  /// A handle for reading: an idle one, or a new one.
  [[nodiscard]] LayerHandle Read();
  /// A new handle for writing. Handles opened before don't see what it writes; they are dropped when it goes.
  [[nodiscard]] LayerHandle Write();

 private:
  friend class LayerHandle;
  [[nodiscard]] LayerHandle Open(bool update);

  std::string path_;
  std::string layer_;
  std::optional<esriGeometryType> kind_;
  std::vector<DatasetHandle> idle_;
  int generation_ = 0;
};

/// A dataset handle with its layer. Going away, a reading handle returns to its source and a writing one is closed.
class LayerHandle {
 public:
  LayerHandle(std::shared_ptr<OgrSource> source, DatasetHandle dataset, OGRLayer& layer, bool writing, int generation)
      : source_(std::move(source)),
        dataset_(std::move(dataset)),
        layer_(&layer),
        writing_(writing),
        generation_(generation) {}
  LayerHandle(LayerHandle&&) = default;
  LayerHandle& operator=(LayerHandle&&) = delete;
  ~LayerHandle();
  /// Closes a writing handle now, and raises a fault when what GDAL still held could not be written.
  void Close();

  [[nodiscard]] GDALDataset& Dataset() const { return *dataset_; }
  [[nodiscard]] OGRLayer& Layer() const { return *layer_; }

 private:
  std::shared_ptr<OgrSource> source_;
  DatasetHandle dataset_;
  OGRLayer* layer_;
  bool writing_;
  int generation_;
};

}  // namespace tessarine::engine
