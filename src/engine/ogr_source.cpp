// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/ogr_source.h"

#include <cpl_conv.h>
#include <cpl_vsi_error.h>

#include <atomic>
#include <filesystem>
#include <mutex>

#include "engine/engine_fault.h"
#include "engine/filegdb_edit.h"
#include "engine/held_by_file.h"
#include "engine/personal_geodatabase_dataset.h"
#include "engine/personal_geodatabase_edit.h"
#include "engine/reading_warnings.h"
#include "engine/remote_source.h"
#include "outputs/driver_facts.h"
#include "outputs/shown_places.h"
#include "outputs/way_out.h"

namespace tessarine::engine {
namespace {

namespace fs = std::filesystem;

std::atomic<std::int64_t> g_changes = 0;

// The parts of a shapefile, and the folder around it with its name as the layer's, stand for one and the same.
std::string PlaceOfFile(const std::string& path, const std::string& layer) {
  std::error_code error;
  fs::path place = path;
  if (fs::is_directory(place, error) && fs::exists(place / (layer + ".shp"), error)) place /= layer + ".shp";
  if (place.extension() == ".shp" || place.extension() == ".dbf") place.replace_extension();
  return place.string();
}

std::shared_ptr<SharedFile> SharedFileOf(const std::string& path, const std::string& layer) {
  static HeldByFile<SharedFile> files;
  return files.FindOrMake(PlaceOfFile(path, layer), [] { return std::make_shared<SharedFile>(); });
}

// A program that was killed in the midst of a change leaves its journal beside a database. Only one that may write can
// undo the change by it.
bool HasJournal(const std::string& path) {
  if (IsPersonalGeodatabase(path)) return false;
  std::error_code error;
  const std::uintmax_t size = fs::file_size(path + "-journal", error);
  return !error && size > 0 && fs::is_regular_file(path, error);
}

// Opening it to read a row is enough. Where a program at work holds the database, its change stays as it is.
void RollBack(const std::string& path) {
  const GdalErrorScope quiet;
  (void)DatasetHandle(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
}

}  // namespace

void RegisterDrivers() {
  static std::once_flag once;
  std::call_once(once, [] {
    GDALAllRegister();
    // Broken shapefiles are refused by our own checks; a missing index is nothing to be rebuilt in silence.
    CPLSetConfigOption("SHAPE_RESTORE_SHX", "NO");
  });
}

DatasetHandle OpenDataset(const std::string& native_path, FileAccess access) {
  if (access == FileAccess::Change && IsFileGdb(native_path) && !FileGdbEdit::UnderWay(native_path)) {
    Raise(kInvalidCall, "'" + native_path + "' is written to outside of an edit.");
  }
  return OpenDatasetAt(PlaceOfData(native_path), access);
}

void FileChanged(const std::string& native_path) {
  SharedFileOf(native_path, "")->Change();
  ForgetReadingWarnings(native_path);
}

std::int64_t FileChanges() { return g_changes; }

void SharedFile::Change() {
  ++generation;
  ++g_changes;
}

namespace {

// What a store on the web says of a file, as that nobody told it who asks; GDAL keeps it apart from its own errors.
std::string StoreComplaint(const std::string& native_path) {
  const GdalErrorScope quiet;
  VSIErrorReset();
  VSIStatBufL status;
  const bool stands = VSIStatExL(native_path.c_str(), &status, VSI_STAT_EXISTS_FLAG | VSI_STAT_SET_ERROR_FLAG) == 0;
  const std::string text = !stands && VSIGetLastErrorNo() != 0 ? VSIGetLastErrorMsg() : "";
  return text.empty() ? "" : " (the store says: " + text + ")";
}

}  // namespace

DatasetHandle OpenDatasetAt(const std::string& native_path, FileAccess access) {
  const bool update = access == FileAccess::Change;
  RegisterDrivers();
  ReadingScope errors;
  const unsigned flags = GDAL_OF_VECTOR | (update ? GDAL_OF_UPDATE : GDAL_OF_READONLY);
  DatasetHandle dataset = IsPersonalGeodatabase(native_path)
                              ? OpenPersonalGeodatabase(native_path, access)
                              : DatasetHandle(GDALDataset::Open(native_path.c_str(), flags));
  if (!dataset && !update && HasJournal(native_path)) {
    RollBack(native_path);
    errors.Clear();
    dataset.reset(GDALDataset::Open(native_path.c_str(), flags));
  }
  if (dataset) {
    KeepReadingWarnings(native_path, errors);
    return dataset;
  }
  if (!update && HasJournal(native_path)) {
    RaiseEngineFault("'" + native_path + "' was left in the midst of a change, and that can't be undone" +
                     errors.Quote() + ": make the file, its '-journal' beside it and their folder writable.");
  }
  if (IsRemoteSource(native_path)) {
    const std::string own = StoreComplaint(native_path);
    RaiseEngineFault("'" + native_path + "' can't be opened" + (own.empty() ? errors.Quote() : own) +
                     ": check the address, the rights, and what stands there.");
  }
  if (!fs::exists(native_path)) {
    RaiseEngineFault("There is no file or folder '" + native_path + "': check its name and folder.");
  }
  if (IsPersonalGeodatabase(native_path)) {
    RaiseEngineFault("The personal geodatabase can't be " + std::string(update ? "written" : "read") + ": " +
                     errors.Failure() + ". Save it by the program that made it as .mdb of the years from 2000 on, " +
                     "unencrypted, or in another format.");
  }
  if (update) {
    RaiseEngineFault(WithShownPlaces("'" + native_path + "' can't be opened for writing: check its permissions, and " +
                                     "that its format can be written" + errors.Quote() + "."));
  }
  RaiseEngineFault(WithShownPlaces("'" + native_path + "' is no vector data that can be read" + errors.Quote() +
                                   ". Give a shapefile, GeoPackage, file geodatabase, GeoJSON, KML or the like."));
}

OGRFeatureUniquePtr RowWalk::Next() {
  begun_ = true;
  if (!in_memory_) return OGRFeatureUniquePtr(layer_.GetNextFeature());
  if (ahead_.empty()) return nullptr;
  ReadRow row = std::move(ahead_.front());
  ahead_.pop_front();
  if (!row.failure.empty()) CPLError(CE_Failure, CPLE_AppDefined, "%s", row.failure.c_str());
  return std::move(row.feature);
}

void RowWalk::ReadAhead() {
  if (in_memory_) return;
  GdalErrorScope errors;
  do {
    errors.Clear();
    OGRFeatureUniquePtr feature(layer_.GetNextFeature());
    ahead_.push_back({std::move(feature), errors.Failed() ? errors.Text() : ""});
  } while (ahead_.back().feature);
  layer_.ResetReading();
  in_memory_ = true;
}

OgrSource::OgrSource(std::string native_path, std::string layer, std::optional<esriGeometryType> kind, bool only_kind)
    : path_(std::move(native_path)),
      data_path_(path_),
      layer_(std::move(layer)),
      kind_(kind),
      only_kind_(only_kind),
      file_(SharedFileOf(path_, layer_)),
      idle_generation_(file_->generation) {}

OgrSource::OgrSource(std::string native_path, std::string data_path, std::string layer,
                     std::optional<esriGeometryType> kind)
    : path_(std::move(native_path)),
      data_path_(std::move(data_path)),
      layer_(std::move(layer)),
      kind_(kind),
      only_kind_(true),
      file_(SharedFileOf(data_path_, layer_)),
      idle_generation_(file_->generation) {}

LayerHandle OgrSource::Open(FileAccess access) {
  const bool update = access == FileAccess::Change;
  // Our rings run as they must. The driver's own look at them would cost the square of their number.
  const CPLConfigOptionSetter rings_as_given("SHAPE_REWIND_ON_WRITE", "NO", false);
  // What is staged is flushed to the disk as a whole before it takes its place.
  const bool staged = update && data_path_ != path_;
  const CPLConfigOptionSetter unhurried("OGR_SQLITE_SYNCHRONOUS", staged ? "OFF" : nullptr, true);
  // A killed run leaves nothing of it, so that no journal has to undo a change on the disk.
  const CPLConfigOptionSetter journal("OGR_SQLITE_JOURNAL", staged ? "MEMORY" : nullptr, true);
  std::shared_ptr<FileGdbEdit> edit;
  if (update && IsFileGdb(path_)) {
    edit = FileGdbEdit::Begin(path_);
    edit->TableChanges(layer_);
  }
  // Held by the data set from then on.
  const bool personal = update && IsPersonalGeodatabase(path_);
  const std::shared_ptr<PersonalEdit> personal_edit = personal ? PersonalEdit::Begin(path_) : nullptr;
  return HandleOf(OpenDataset(data_path_, access), access, std::move(edit));
}

LayerHandle OgrSource::HandleOf(DatasetHandle dataset, FileAccess access, std::shared_ptr<FileGdbEdit> edit) {
  OGRLayer* layer = dataset->GetLayerByName(layer_.c_str());
  if (layer == nullptr) RaiseEngineFault("'" + path_ + "' has no layer '" + layer_ + "' any more.");
  if (const char* why = layer->GetMetadataItem(kWhyUnreadable)) {
    RaiseEngineFault("'" + layer_ + "' in '" + path_ + "' can't be used: " + why + ".");
  }
  return {shared_from_this(), std::move(dataset), *layer, access == FileAccess::Change, std::move(edit)};
}

LayerHandle OgrSource::Read() {
  std::optional<LayerHandle> idle = ReadIfIdle();
  return idle ? std::move(*idle) : Open(FileAccess::Read);
}

std::optional<LayerHandle> OgrSource::ReadIfIdle() {
  if (idle_generation_ != file_->generation) idle_.clear();
  if (idle_.empty()) return std::nullopt;
  DatasetHandle dataset = std::move(idle_.back());
  idle_.pop_back();
  return HandleOf(std::move(dataset), FileAccess::Read, nullptr);
}

void OgrSource::TakeOver(DatasetHandle dataset) { idle_.push_back(std::move(dataset)); }

LayerHandle OgrSource::Write() {
  std::erase_if(file_->walks, [](const std::weak_ptr<RowWalk>& walk) { return walk.expired(); });
  for (const std::weak_ptr<RowWalk>& walk : file_->walks) {
    const auto open = walk.lock();
    if (open->HasBegun()) open->ReadAhead();
  }
  return Open(FileAccess::Change);
}

void OgrSource::Renew() {
  file_->Change();
  idle_.clear();
}

LayerHandle::LayerHandle(std::shared_ptr<OgrSource> source, DatasetHandle dataset, OGRLayer& layer, bool writing,
                         std::shared_ptr<FileGdbEdit> edit)
    : source_(std::move(source)),
      edit_(std::move(edit)),
      dataset_(std::move(dataset)),
      layer_(&layer),
      writing_(writing),
      generation_(source_->file_->generation) {
  if (writing_) {
    ++source_->file_->writers;
  } else if (IsDatabase()) {
    walk_ = std::make_shared<RowWalk>(layer);
    source_->file_->walks.push_back(walk_);
  }
}

bool LayerHandle::IsDatabase() const { return FactsOfDriver(dataset_->GetDriverName()).sqlite; }

bool LayerHandle::IsFileBeingWritten() const { return source_->file_->writers > 0; }

OGRFeatureUniquePtr LayerHandle::NextFeature() {
  if (!walk_) return OGRFeatureUniquePtr(layer_->GetNextFeature());
  if (!walk_->HasBegun() && source_->file_->writers > 0) walk_->ReadAhead();
  return walk_->Next();
}

void LayerHandle::CloseDataset() {
  walk_.reset();
  dataset_.reset();
  if (!writing_) return;
  --source_->file_->writers;
  source_->Renew();
}

void LayerHandle::Close() {
  const GdalErrorScope errors;
  if (!dataset_) return;
  CloseDataset();
  source_->idle_.clear();
  if (errors.Failed()) {
    RaiseEngineFault("'" + source_->Path() + "' can't be written to its end" + errors.Quote() +
                     WayOut(source_->Path(), errors.Text()));
  }
  FileGdbEdit::End(edit_);
}

LayerHandle::~LayerHandle() {
  if (!dataset_) return;
  if (writing_ || generation_ != source_->file_->generation) {
    const GdalErrorScope quiet;
    CloseDataset();
    return;
  }
  walk_.reset();
  layer_->SetAttributeFilter(nullptr);
  layer_->SetSpatialFilter(nullptr);
  layer_->SetIgnoredFields(nullptr);
  layer_->ResetReading();
  if (source_->idle_generation_ != generation_) source_->idle_.clear();
  source_->idle_generation_ = generation_;
  source_->idle_.push_back(std::move(dataset_));
}

}  // namespace tessarine::engine
