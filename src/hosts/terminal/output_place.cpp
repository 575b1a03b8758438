// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/output_place.h"

#include <filesystem>
#include <vector>

#include "engine/data_source.h"
#include "engine/personal_geodatabase_edit.h"
#include "hosts/terminal/refusal.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

/// A geodatabase as the catalog shows it.
class PlaceObject : public virtual IGxObject {
 public:
  PlaceObject(std::string full_name, std::string category)
      : full_name_(std::move(full_name)), category_(std::move(category)) {}
  [[nodiscard]] std::string FullName() const override { return full_name_; }
  [[nodiscard]] std::string Category() const override { return category_; }

 private:
  std::string full_name_, category_;
};

class PlaceWorkspace final : public IWorkspace {
 public:
  explicit PlaceWorkspace(std::string path) : path_(std::move(path)) {}
  [[nodiscard]] std::string PathName() const override { return path_; }

 private:
  std::string path_;
};

/// The identity of a feature dataset, which may not be there yet.
class PlaceDataset final : public PlaceObject, public IGxDataset, public IDataset {
 public:
  PlaceDataset(const std::string& geodatabase, std::string name, const std::string& category)
      : PlaceObject(geodatabase + "\\" + name, category),
        workspace_(std::make_shared<PlaceWorkspace>(geodatabase)),
        name_(std::move(name)) {}

  [[nodiscard]] std::shared_ptr<IDataset> Dataset() const override { return self_.lock(); }
  void SetSelf(std::weak_ptr<PlaceDataset> self) { self_ = std::move(self); }
  [[nodiscard]] std::string Name() const override { return name_; }
  [[nodiscard]] std::string FullName() const override { return PlaceObject::FullName(); }
  [[nodiscard]] std::string BrowseName() const override { return name_; }
  [[nodiscard]] std::string Category() const override { return PlaceObject::Category(); }
  [[nodiscard]] std::shared_ptr<IWorkspace> Workspace() const override { return workspace_; }
  [[nodiscard]] std::shared_ptr<IPropertySet> PropertySet() const override { return nullptr; }
  void Delete() override { Raise(kInvalidCall, "A feature dataset can't be removed from here."); }

 private:
  std::shared_ptr<IWorkspace> workspace_;
  std::string name_;
  std::weak_ptr<PlaceDataset> self_;
};

// The part of the path up to and with the geodatabase, and what follows it.
bool SplitAtGeodatabase(const fs::path& path, const char* ending, fs::path& container, std::vector<std::string>& rest) {
  fs::path walked;
  bool found = false;
  for (const fs::path& part : path) {
    if (found) {
      if (!part.empty()) rest.push_back(part.string());
      continue;
    }
    walked /= part;
    found = EndsWithIgnoringCase(part.string(), ending);
  }
  if (found) container = walked;
  return found;
}

OutputPlace GeodatabasePlace(const std::string& text, const Format& format, const fs::path& container,
                             const std::vector<std::string>& rest) {
  OutputPlace place{&format, container.string(), "", ""};
  if (rest.empty() || rest.size() > 2) {
    throw Refusal("'" + text + "' names no feature class: write GEODATABASE/NAME or GEODATABASE/DATASET/NAME.");
  }
  place.name = rest.back();
  if (rest.size() == 2) place.dataset = rest.front();
  return place;
}

const Format& Shapefiles() { return *FormatOfPath(".shp"); }

}  // namespace

OutputPlace ParseOutputPlace(const std::string& text) {
  if (text.empty()) throw Refusal("-o needs a place: a shapefile, a folder, or GEODATABASE.gdb/NAME.");
  fs::path path = fs::absolute(text).lexically_normal();
  if (!path.has_filename()) path = path.parent_path();
  fs::path container;
  std::vector<std::string> rest;
  for (const char* ending : {".gdb", ".mdb"}) {
    if (SplitAtGeodatabase(path, ending, container, rest)) {
      return GeodatabasePlace(text, *FormatOfPath(ending), container, rest);
    }
  }
  if (EndsWithIgnoringCase(path.string(), ".shp")) {
    return {&Shapefiles(), path.parent_path().string(), "", path.filename().string()};
  }
  if (fs::is_directory(path)) return {nullptr, path.string(), "", ""};
  throw Refusal("The output '" + text +
                "' is neither a shapefile (NAME.shp), a folder that exists, nor a class in a geodatabase "
                "(NAME.gdb/CLASS).");
}

void RefuseBrokenContainer(const OutputPlace& place) {
  if (!place.InContainer() || !fs::exists(place.container)) return;
  try {
    (void)DataSource::Open(place.container, false);
    if (!engine::IsPersonalGeodatabase(place.container)) return;
    engine::RequireWritableGeodatabase(place.container, engine::PersonalUse::NewClass);
  } catch (const Fault& fault) {
    throw Refusal("The output '" + place.NativePath() + "' can't be made. " + fault.Description());
  }
}

PreparedPlace::PreparedPlace(const OutputPlace& place, const SpatialReferenceRef& reference, TerminalSystem& system)
    : place_(place) {
  if (!place.InContainer() || !place.format->writable) return;
  if (!place.dataset.empty()) PromiseFeatureDataset(place.container, place.dataset, reference);
  if (fs::exists(place.container)) return;
  if (!fs::is_directory(fs::path(place.container).parent_path())) return;  // the dialog tells of the missing folder
  PromiseFileGeodatabase(place.container);
  system.Promise(FromNativePath(place.container));
}

BrowsePlace PreparedPlace::Browse() const {
  const std::string container = FromNativePath(place_.container);
  if (!place_.InContainer()) return {std::make_shared<PlaceObject>(container, "Folder"), place_.name};
  const std::string kind(place_.format->name);
  if (place_.dataset.empty()) return {std::make_shared<PlaceObject>(container, kind), place_.name};
  auto dataset = std::make_shared<PlaceDataset>(container, place_.dataset, kind + " Feature Dataset");
  dataset->SetSelf(dataset);
  return {dataset, place_.name};
}

}  // namespace tessarine
