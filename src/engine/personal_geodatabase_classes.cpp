// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/personal_geodatabase_classes.h"

#include <filesystem>

#include "engine/data_source.h"
#include "engine/engine_fault.h"
#include "engine/filegdb_grid.h"
#include "engine/personal_geodatabase_create.h"
#include "engine/personal_geodatabase_dataset.h"
#include "engine/srs_from_gdal.h"
#include "engine/workspace_common.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

namespace fs = std::filesystem;

// The classes of a dataset share a grid; else it is made for the coordinates that come.
std::optional<NewGrid> GridOfNewClass(jet::Database& database, const GeodatabaseWish& wish) {
  if (!wish.place.dataset.empty() && database.Has("GDB_SpatialRefs")) {
    for (const PersonalClass& one : ReadPersonalClasses(database)) {
      if (!EqualsIgnoringCase(DatasetOfPersonalClass(database, one.name), wish.place.dataset)) continue;
      const jet::Table& references = database.Open("GDB_SpatialRefs");
      for (jet::Table::Scan scan(references); scan.Next();) {
        const PersonalRow row(references, scan.Values());
        if (row.Whole("SRID") != one.reference) continue;
        return NewGrid{{row.Real("FalseX"), row.Real("FalseY"), row.Real("XYUnits")}, row.Real("XYTolerance")};
      }
    }
  }
  return GridFor(wish.extent, wish.reference);
}

CPLStringList OptionsFor(jet::Database& database, const GeodatabaseWish& wish) {
  CPLStringList options;
  if (!wish.place.dataset.empty()) options.SetNameValue("FEATURE_DATASET", wish.place.dataset.c_str());
  if (const std::optional<NewGrid> grid = GridOfNewClass(database, wish)) {
    options.SetNameValue("XORIGIN", ExactNumberText(grid->grid.x_origin).c_str());
    options.SetNameValue("YORIGIN", ExactNumberText(grid->grid.y_origin).c_str());
    options.SetNameValue("XYSCALE", ExactNumberText(grid->grid.xy_scale).c_str());
    options.SetNameValue("XYTOLERANCE", ExactNumberText(grid->xy_tolerance).c_str());
  }
  return options;
}

void RequireFreeName(GDALDataset& dataset, const OutputPlace& place) {
  for (OGRLayer* layer : dataset.GetLayers()) {
    if (!EqualsIgnoringCase(layer->GetName(), place.name)) continue;
    RaiseEngineFault("The class '" + place.name + "' exists already in '" + place.container + "'.");
  }
}

}  // namespace

StagedPersonalClass::StagedPersonalClass(const std::string& path, const std::string& name,
                                         std::shared_ptr<PersonalEdit> edit)
    : OgrFeatureClass(std::make_shared<OgrSource>(path, name, std::nullopt)), edit_(std::move(edit)) {}

StagedPersonalClass::~StagedPersonalClass() { StagedPersonalClass::Discard(); }

void StagedPersonalClass::Publish() {
  if (!edit_) Raise(kInvalidCall, "'" + Name() + "' was published or given up already.");
  Source()->Renew();
  PersonalEdit::End(edit_);
}

void StagedPersonalClass::Discard() {
  if (!edit_) return;
  Source()->Renew();
  edit_->Abandon();
  edit_.reset();
}

MadePersonalClass MakeInPersonalGeodatabase(const GeodatabaseWish& wish, const LayerMaker& make) {
  const OutputPlace& place = wish.place;
  RequireWritableFolder(fs::absolute(place.container).parent_path().string());
  RequireWritableGeodatabase(place.container, PersonalUse::NewClass);
  MadePersonalClass made{PersonalEdit::Begin(place.container), ""};
  try {
    if (wish.replaces) DataSource::Open(place.container)->OpenTable(place.name)->Delete();
    const DatasetHandle dataset = OpenDataset(place.container, FileAccess::Change);
    RequireFreeName(*dataset, place);
    made.name = make(*dataset, OptionsFor(*made.edit->Database(), wish));
    return made;
  } catch (const jet::Error& error) {
    made.edit->Abandon();
    RaiseEngineFault("'" + place.container + "' can't be written to: " + error.what() + ".");
  } catch (...) {
    made.edit->Abandon();
    throw;
  }
}

void MakePersonalGeodatabaseAt(const std::string& native_path) {
  if (fs::exists(native_path)) RaiseEngineFault("'" + native_path + "' exists already: name another geodatabase.");
  RequireWritableFolder(fs::absolute(native_path).parent_path().string());
  EditPersonalGeodatabase(native_path, [](jet::Database&) {});
}

namespace {

// Looks at the geodatabase as the edit under way has it.
template <class Look>
std::string LookInto(const std::string& native_path, Look&& look) {
  try {
    if (const auto edit = PersonalEdit::UnderWay(native_path)) return look(*edit->Database());
    if (!fs::exists(native_path)) return "";
    jet::Database database(native_path, jet::Database::Mode::Read);
    return look(database);
  } catch (const jet::Error& error) {
    RaiseEngineFault("'" + native_path + "' can't be read: " + error.what() + ".");
  }
}

}  // namespace

std::string StoredPersonalDataset(const std::string& native_path, const std::string& name) {
  return LookInto(native_path, [&](jet::Database& database) -> std::string {
    for (const PersonalDataset& dataset : ReadPersonalDatasets(database)) {
      if (EqualsIgnoringCase(dataset.name, name)) return dataset.name;
    }
    return "";
  });
}

PersonalListing ListPersonalGeodatabase(const std::string& native_path) {
  PersonalListing listing;
  (void)LookInto(native_path, [&](jet::Database& database) -> std::string {
    for (const PersonalDataset& dataset : ReadPersonalDatasets(database)) listing.datasets.push_back(dataset.name);
    for (const PersonalClass& one : ReadPersonalClasses(database)) {
      listing.classes.push_back({one.name, DatasetOfPersonalClass(database, one.name), !one.shape_column.empty()});
    }
    return "";
  });
  return listing;
}

std::string ClassOfPersonalDataset(const std::string& native_path, const std::string& dataset) {
  return LookInto(native_path, [&](jet::Database& database) -> std::string {
    for (const PersonalClass& one : ReadPersonalClasses(database)) {
      if (EqualsIgnoringCase(DatasetOfPersonalClass(database, one.name), dataset)) return one.name;
    }
    return "";
  });
}

}  // namespace tessarine::engine
