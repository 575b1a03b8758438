// SPDX-License-Identifier: GPL-2.0-or-later
// One layer of a data source and the handles on it. OGR layers have a single reading position, so every cursor works
// on a handle of its own.
#pragma once

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/file_access.h"
#include "platform/geometry_types.h"

namespace tessarine::engine {

class FileGdbEdit;

struct DatasetClose {
  void operator()(GDALDataset* dataset) const { GDALClose(dataset); }
};
using DatasetHandle = std::unique_ptr<GDALDataset, DatasetClose>;

/// Registers the drivers, once.
void RegisterDrivers();

/// Opens a vector dataset, or raises a fault that names the file and quotes GDAL. A file geodatabase that is being
/// changed is opened as the edit has it; for writing it opens only in an edit.
[[nodiscard]] DatasetHandle OpenDataset(const std::string& native_path, FileAccess access = FileAccess::Read);
/// The same with the very file or folder.
[[nodiscard]] DatasetHandle OpenDatasetAt(const std::string& native_path, FileAccess access = FileAccess::Read);

/// Another file or folder stands at this path now: handles that were kept for reading are dropped.
void FileChanged(const std::string& native_path);
/// How often any file was changed by this program so far.
[[nodiscard]] std::int64_t FileChanges();

/// The walk of a reading handle over the rows of a database. One that is half done keeps everyone from writing, so it
/// can take its rest into memory.
class RowWalk {
 public:
  explicit RowWalk(OGRLayer& layer) : layer_(layer) {}

  [[nodiscard]] OGRFeatureUniquePtr Next();
  [[nodiscard]] bool HasBegun() const { return begun_; }
  void ReadAhead();

 private:
  struct ReadRow {
    OGRFeatureUniquePtr feature;
    std::string failure;  // met at reading it, told again when it is asked for
  };

  OGRLayer& layer_;
  std::deque<ReadRow> ahead_;  // the last one without a row
  bool begun_ = false;
  bool in_memory_ = false;
};

/// What all sources share that stand on the same file.
struct SharedFile {
  int generation = 0;  ///< grows whenever the file was written
  void Change();
  int writers = 0;  ///< handles that write now
  std::vector<std::weak_ptr<RowWalk>> walks;
};

class LayerHandle;

class OgrSource : public std::enable_shared_from_this<OgrSource> {
 public:
  /// `kind` restricts a layer of mixed shapes to those of one type. Rows without a shape belong to it where it is the
  /// `only_kind` of the layer.
  OgrSource(std::string native_path, std::string layer, std::optional<esriGeometryType> kind, bool only_kind = true);
  /// Data that lie elsewhere, in `data_path`, until they take their place.
  OgrSource(std::string native_path, std::string data_path, std::string layer,
            std::optional<esriGeometryType> kind = std::nullopt);

  [[nodiscard]] const std::string& Path() const { return path_; }
  /// Where the data are now.
  [[nodiscard]] const std::string& DataPath() const { return data_path_; }
  [[nodiscard]] const std::string& LayerName() const { return layer_; }
  [[nodiscard]] std::optional<esriGeometryType> Kind() const { return kind_; }
  [[nodiscard]] bool HasOnlyKind() const { return only_kind_; }

  /// A handle for reading: an idle one, or a new one.
  [[nodiscard]] LayerHandle Read();
  [[nodiscard]] std::optional<LayerHandle> ReadIfIdle();
  /// Takes a data set that is open for reading and unchanged since, so that it isn't opened again: that may cost as
  /// much as reading all rows.
  void TakeOver(DatasetHandle dataset);
  /// A new handle for writing. Handles opened before don't see what it writes; they are dropped when it goes, those of
  /// other sources on the same file too.
  [[nodiscard]] LayerHandle Write();
  /// Drops what was read before the file was changed.
  void Renew();

 private:
  friend class LayerHandle;
  [[nodiscard]] LayerHandle Open(FileAccess access);
  [[nodiscard]] LayerHandle HandleOf(DatasetHandle dataset, FileAccess access, std::shared_ptr<FileGdbEdit> edit);

  std::string path_, data_path_;
  std::string layer_;
  std::optional<esriGeometryType> kind_;
  bool only_kind_;
  std::shared_ptr<SharedFile> file_;
  std::vector<DatasetHandle> idle_;
  int idle_generation_ = 0;
};

/// A dataset handle with its layer. Going away, a reading handle returns to its source and a writing one is closed.
class LayerHandle {
 public:
  /// With an edit, it is held as long as the handle is open.
  LayerHandle(std::shared_ptr<OgrSource> source, DatasetHandle dataset, OGRLayer& layer, bool writing,
              std::shared_ptr<FileGdbEdit> edit);
  LayerHandle(LayerHandle&&) = default;
  LayerHandle& operator=(LayerHandle&&) = delete;
  ~LayerHandle();
  /// Closes the handle now, and raises a fault when what GDAL still held could not be written.
  void Close();

  /// The next row that meets the layer's filters; null at the end.
  [[nodiscard]] OGRFeatureUniquePtr NextFeature();
  /// Whether rows are asked for by SQL, and a reader locks the file.
  [[nodiscard]] bool IsDatabase() const;
  [[nodiscard]] bool IsFileBeingWritten() const;

  [[nodiscard]] GDALDataset& Dataset() const { return *dataset_; }
  [[nodiscard]] OGRLayer& Layer() const { return *layer_; }

 private:
  void CloseDataset();

  std::shared_ptr<OgrSource> source_;
  std::shared_ptr<FileGdbEdit> edit_;
  DatasetHandle dataset_;
  OGRLayer* layer_;
  bool writing_;
  int generation_;
  std::shared_ptr<RowWalk> walk_;  // only for databases
};

}  // namespace tessarine::engine
