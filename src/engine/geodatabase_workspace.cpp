// SPDX-License-Identifier: GPL-2.0-or-later
// File and personal geodatabases.
#include <filesystem>
#include <set>

#include "engine/data_source.h"
#include "engine/engine_fault.h"
#include "engine/filegdb_edit.h"
#include "engine/filegdb_grid.h"
#include "engine/geodatabase_class.h"
#include "engine/ogr_class.h"
#include "engine/personal_geodatabase_classes.h"
#include "engine/personal_geodatabase_edit.h"
#include "engine/promised_geodatabases.h"
#include "engine/srs_from_gdal.h"
#include "engine/staged_class.h"
#include "engine/stamp.h"
#include "engine/workspace_common.h"
#include "outputs/formats.h"
#include "outputs/way_out.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;
using namespace engine;

// The name of a feature dataset as the geodatabase has it; empty where there is none of this name in any case.
std::string StoredDatasetName(const std::string& geodatabase, const std::string& name) {
  if (IsPersonalGeodatabase(geodatabase)) return StoredPersonalDataset(geodatabase, name);
  if (!fs::exists(PlaceOfData(geodatabase))) return "";
  const DatasetHandle dataset = OpenDataset(geodatabase);
  const auto root = dataset->GetRootGroup();
  if (!root) return "";
  for (const std::string& group : root->GetGroupNames()) {
    if (EqualsIgnoringCase(group, name)) return group;
  }
  return "";
}

bool HasDataset(const std::string& geodatabase, const std::string& name) {
  return FindPromisedDataset(geodatabase, name).promised || !StoredDatasetName(geodatabase, name).empty();
}

void RequireFreeName(GDALDataset& dataset, const std::string& path, const std::string& name) {
  for (int index = 0; index < dataset.GetLayerCount(); ++index) {
    if (!EqualsIgnoringCase(dataset.GetLayer(index)->GetName(), name)) continue;
    RaiseEngineFault("The class '" + name + "' exists already in '" + path + "'.");
  }
}

// The grid of a dataset's first class.
std::optional<NewGrid> GridOfDataset(const std::string& path, const std::string& dataset_name) {
  const DatasetHandle dataset = OpenDataset(path);
  const auto root = dataset->GetRootGroup();
  const GdalErrorScope quiet;
  const auto group = root ? root->OpenGroup(dataset_name) : nullptr;
  if (!group) return std::nullopt;
  for (const std::string& name : group->GetVectorLayerNames()) {
    if (const std::optional<GdbGrid> grid = GridOfClass(path, name)) return NewGrid{*grid, 10.0 / grid->xy_scale};
  }
  return std::nullopt;
}

// The classes of a dataset share a grid; else it is made for the coordinates that come.
std::optional<NewGrid> GridOfNewClass(const std::string& path, const std::string& dataset_name,
                                      const SpatialReferenceRef& reference, const Envelope& extent) {
  if (!dataset_name.empty()) {
    if (const auto grid = GridOfDataset(path, dataset_name)) return grid;
  }
  return GridFor(extent, reference);
}

void AddGrid(const NewGrid& grid, CPLStringList& options) {
  options.SetNameValue("XORIGIN", ExactNumberText(grid.grid.x_origin).c_str());
  options.SetNameValue("YORIGIN", ExactNumberText(grid.grid.y_origin).c_str());
  options.SetNameValue("XYSCALE", ExactNumberText(grid.grid.xy_scale).c_str());
  options.SetNameValue("XYTOLERANCE", ExactNumberText(grid.xy_tolerance).c_str());
}

void MakeGeodatabase(const std::string& folder, const std::string& shown_path) {
  RegisterDrivers();
  const GdalErrorScope errors;
  GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("OpenFileGDB");
  const DatasetHandle dataset(driver->Create(folder.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
  if (dataset) return;
  RaiseEngineFault("The file geodatabase '" + shown_path + "' can't be created" + errors.Quote() +
                   WayOut(shown_path, errors.Text()));
}

// Names whose class or table the next class of the name may replace, in lower case.
using ReplacedNames = std::shared_ptr<std::set<std::string>>;

struct PlaceOfClasses {
  std::string path;
  std::string dataset;  // empty at the root
  ReplacedNames replaced;
};

// The new class, and the geodatabase where that isn't there yet, appear when the class is published.
std::shared_ptr<IFeatureClass> CreateInGeodatabase(const PlaceOfClasses& place, const std::string& name,
                                                   const FieldsRef& fields, const std::string& shape_field) {
  const NewClass request{name, fields.get(), shape_field};
  const GeometryDef& shape = ShapeDefinition(request);
  const bool replaces = place.replaced->erase(LowerCase(name)) > 0;
  GeodatabaseWish wish{
      {FormatOfPath(place.path), place.path, place.dataset, name}, replaces, shape.SpatialReference, shape.Extent};
  const auto make = [&](GDALDataset& dataset, CPLStringList options) {
    options.SetNameValue("GEOMETRY_NAME", shape_field.c_str());
    for (const FieldRef& field : *fields) {
      if (field->Type == esriFieldTypeOID) options.SetNameValue("FID", field->Name.c_str());
    }
    return CreateLayer(dataset, request, std::move(options), LayerShapes::Multiple);
  };
  if (IsPersonalGeodatabase(place.path)) {
    const std::string stored = place.dataset.empty() ? "" : StoredDatasetName(place.path, place.dataset);
    if (!stored.empty()) wish.place.dataset = stored;
    const MadePersonalClass made = MakeInPersonalGeodatabase(wish, make);
    return std::make_shared<StagedPersonalClass>(place.path, made.name, made.edit);
  }
  const NewGeodatabaseClass made = MakeInGeodatabase(wish, make);
  return std::make_shared<StagedGeodatabaseClass>(place.path, made.name, made.edit);
}

class GeodatabaseDataset final : public IFeatureDataset {
 public:
  GeodatabaseDataset(std::string geodatabase, const std::string& name, ReplacedNames replaced)
      : geodatabase_(std::move(geodatabase)), replaced_(std::move(replaced)) {
    name_ = StoredDatasetName(geodatabase_, name);
    if (name_.empty()) name_ = name;
  }

  [[nodiscard]] std::string Name() const override { return name_; }
  [[nodiscard]] std::string FullName() const override { return FromNativePath(geodatabase_) + "\\" + name_; }
  [[nodiscard]] std::string BrowseName() const override { return name_; }
  [[nodiscard]] std::string Category() const override {
    return IsPersonalGeodatabase(geodatabase_) ? "Personal Geodatabase Feature Dataset"
                                               : "File Geodatabase Feature Dataset";
  }
  [[nodiscard]] std::shared_ptr<IWorkspace> Workspace() const override { return WorkspaceAt(geodatabase_); }
  [[nodiscard]] std::shared_ptr<IPropertySet> PropertySet() const override { return nullptr; }
  void Delete() override { RaiseEngineFault("The feature dataset '" + name_ + "' can't be deleted from here."); }

  /// That of its first class; while it has none, the one that was announced.
  [[nodiscard]] SpatialReferenceRef SpatialReference() const override {
    if (SpatialReferenceRef reference = FeatureDatasetReference(geodatabase_, name_)) return reference;
    const SpatialReferenceRef promised = FindPromisedDataset(geodatabase_, name_).reference;
    return promised ? promised : ReferenceFromOgr(nullptr);
  }
  [[nodiscard]] Envelope Extent() const override { return {}; }

  [[nodiscard]] std::shared_ptr<IFeatureClass> CreateFeatureClass(const std::string& name, const FieldsRef& fields,
                                                                  const std::shared_ptr<UID>&,
                                                                  const std::shared_ptr<UID>&, esriFeatureType,
                                                                  const std::string& shape_field,
                                                                  const std::string&) override {
    return CreateInGeodatabase({geodatabase_, name_, replaced_}, name, fields, shape_field);
  }

 private:
  std::string geodatabase_;
  std::string name_;
  ReplacedNames replaced_;
};

bool HoldsLayer(const std::string& path, const std::string& name) {
  if (!fs::exists(PlaceOfData(path)) && !PersonalEdit::UnderWay(path)) return false;
  const DatasetHandle dataset = OpenDataset(path);
  for (int index = 0; index < dataset->GetLayerCount(); ++index) {
    if (EqualsIgnoringCase(dataset->GetLayer(index)->GetName(), name)) return true;
  }
  return false;
}

class Geodatabase final : public IFeatureWorkspace {
 public:
  explicit Geodatabase(std::string path) : path_(std::move(path)) {}

  [[nodiscard]] std::string PathName() const override { return FromNativePath(path_); }
  [[nodiscard]] std::shared_ptr<IFeatureClass> OpenFeatureClass(const std::string& name) override {
    return DataSource::Open(path_)->OpenFeatureClass(name);
  }
  [[nodiscard]] std::shared_ptr<ITable> OpenTable(const std::string& name) override {
    return DataSource::Open(path_)->OpenTable(name);
  }
  [[nodiscard]] std::shared_ptr<IFeatureDataset> OpenFeatureDataset(const std::string& name) override {
    if (!HasDataset(path_, name)) RaiseEngineFault("'" + path_ + "' has no feature dataset '" + name + "'.");
    return std::make_shared<GeodatabaseDataset>(path_, name, replaced_);
  }
  [[nodiscard]] bool HoldsName(const std::string& name) override { return HoldsLayer(path_, name); }
  void AllowReplacing(const std::string& name) override { replaced_->insert(LowerCase(name)); }
  [[nodiscard]] std::shared_ptr<IFeatureClass> CreateFeatureClass(const std::string& name, const FieldsRef& fields,
                                                                  const std::shared_ptr<UID>&,
                                                                  const std::shared_ptr<UID>&, esriFeatureType,
                                                                  const std::string& shape_field,
                                                                  const std::string&) override {
    return CreateInGeodatabase({path_, "", replaced_}, name, fields, shape_field);
  }

 private:
  std::string path_;
  ReplacedNames replaced_ = std::make_shared<std::set<std::string>>();
};

class GeodatabaseFactory final : public IWorkspaceFactory {
 public:
  explicit GeodatabaseFactory(const char* ending) : ending_(ending) {}

  [[nodiscard]] std::shared_ptr<IFeatureWorkspace> OpenFromFile(const std::string& path, std::int32_t) override {
    const std::string native = ToNativePath(path);
    if (!fs::exists(native) && !IsPromisedGeodatabase(native))
      RaiseEngineFault("There is no geodatabase '" + native + "'.");
    if (!IsWorkspace(path)) RaiseEngineFault("'" + native + "' is no geodatabase of the kind " + ending_ + ".");
    return std::make_shared<Geodatabase>(native);
  }
  [[nodiscard]] bool IsWorkspace(const std::string& path) const override {
    const std::string native = ToNativePath(path);
    return EndsWithIgnoringCase(path, ending_) && (fs::exists(native) || IsPromisedGeodatabase(native));
  }
  [[nodiscard]] bool ContainsWorkspace(const std::string& folder) const override {
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(ToNativePath(folder), error)) {
      if (EndsWithIgnoringCase(entry.path().string(), ending_)) return true;
    }
    return false;
  }

 private:
  std::string ending_;
};

}  // namespace

engine::NewGeodatabaseClass engine::MakeInGeodatabase(const GeodatabaseWish& wish, const LayerMaker& make) {
  const OutputPlace& place = wish.place;
  RequireWritableFolder(fs::absolute(place.container).parent_path().string());
  NewGeodatabaseClass made{FileGdbEdit::Begin(place.container), ""};
  try {
    if (!fs::exists(made.edit->Folder())) {
      MakeGeodatabase(made.edit->Folder(), place.container);
      made.edit->OwnCatalogue();
    }
    if (wish.replaces) DataSource::Open(place.container)->OpenTable(place.name)->Delete();
    std::string stored = place.dataset.empty() ? "" : StoredDatasetName(place.container, place.dataset);
    if (stored.empty()) stored = place.dataset;
    const std::optional<NewGrid> grid = GridOfNewClass(place.container, stored, wish.reference, wish.extent);
    const DatasetHandle dataset = OpenDataset(place.container, FileAccess::Change);
    RequireFreeName(*dataset, place.container, place.name);
    CPLStringList options;
    if (!stored.empty()) options.SetNameValue("FEATURE_DATASET", stored.c_str());
    if (grid) AddGrid(*grid, options);
    AddStamp(*FormatOfPath(".gdb"), options);
    made.name = make(*dataset, options);
    return made;
  } catch (...) {
    made.edit->Abandon();
    throw;
  }
}

std::shared_ptr<IWorkspaceFactory> CreateFileGDBWorkspaceFactory() {
  return std::make_shared<GeodatabaseFactory>(".gdb");
}

std::shared_ptr<IWorkspaceFactory> CreateAccessWorkspaceFactory() {
  return std::make_shared<GeodatabaseFactory>(".mdb");
}

SpatialReferenceRef FeatureDatasetReference(const std::string& native_geodatabase, const std::string& name) {
  const std::string stored = StoredDatasetName(native_geodatabase, name);
  if (stored.empty()) return nullptr;
  if (IsPersonalGeodatabase(native_geodatabase)) {
    const std::string name_of_class = ClassOfPersonalDataset(native_geodatabase, stored);
    if (name_of_class.empty()) return nullptr;
    return DataSource::Open(native_geodatabase)->OpenFeatureClass(name_of_class)->SpatialReference();
  }
  const DatasetHandle dataset = OpenDataset(native_geodatabase);
  const auto root = dataset->GetRootGroup();
  const GdalErrorScope quiet;
  const auto group = root ? root->OpenGroup(stored) : nullptr;
  if (!group) return nullptr;
  for (const std::string& layer_name : group->GetVectorLayerNames()) {
    if (OGRLayer* layer = group->OpenVectorLayer(layer_name)) return ReferenceFromOgr(layer->GetSpatialRef());
  }
  return nullptr;
}

void CreateFileGeodatabase(const std::string& native_path) {
  if (IsPersonalGeodatabase(native_path)) return MakePersonalGeodatabaseAt(native_path);
  if (fs::exists(native_path)) RaiseEngineFault("'" + native_path + "' exists already: name another geodatabase.");
  RequireWritableFolder(fs::absolute(native_path).parent_path().string());
  EditFileGdb(native_path, [&](FileGdbEdit& edit) { MakeGeodatabase(edit.Folder(), native_path); });
}

}  // namespace tessarine
