// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/catalog.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>

#include "engine/data_source.h"
#include "engine/personal_geodatabase.h"
#include "outputs/formats.h"
#include "platform/fault.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

bool IsIn(const std::string& path, std::string_view ending) { return EndsWithIgnoringCase(path, ending); }

// The format of a geodatabase; null for whatever is none.
const Format* GeodatabaseFormat(const std::string& path) {
  const Format* format = FormatOfPath(path);
  return format != nullptr && format->feature_datasets ? format : nullptr;
}

// A container of another format, which is one file; null for whatever is none. Endings such as ".db" say little: the
// file must be a database.
const Format* ContainerFormat(const fs::path& path) {
  constexpr std::string_view kBeginning = "SQLite format 3";
  const Format* format = FormatOfPath(path.string());
  if (format == nullptr || format->HasOwnWorkspace() || !format->container || format->server) return nullptr;
  std::array<char, kBeginning.size()> bytes{};
  std::ifstream file(path, std::ios::binary);
  file.read(bytes.data(), bytes.size());
  return std::ranges::equal(bytes, kBeginning) ? format : nullptr;
}

// A format whose file is one layer; null for shapefiles and for whatever is none.
const Format* LayerFileFormat(const std::string& path) {
  const Format* format = FormatOfPath(path);
  return format == nullptr || format->HasOwnWorkspace() || format->container ? nullptr : format;
}

CatalogKind KindOfGeodatabase(const Format& format) {
  return format.folder ? CatalogKind::FileGeodatabase : CatalogKind::PersonalGeodatabase;
}

CatalogItem PlaceAt(CatalogKind kind, const fs::path& path) {
  return {kind, path.string(), "", path.filename().empty() ? path.string() : path.filename().string()};
}

// Data by the ending of its file.
struct FileRow {
  std::string_view ending;
  CatalogKind kind;
  GxFilter filter;
};

const FileRow kFiles[] = {
    FileRow{FormatOfDriver("ESRI Shapefile")->ending, CatalogKind::Shapefile, GxFilter::FeatureClasses},
    FileRow{".dbf", CatalogKind::Table, GxFilter::Tables},
    FileRow{".txt", CatalogKind::TextFile, GxFilter::TextFiles},
    FileRow{".csv", CatalogKind::TextFile, GxFilter::TextFiles},
    FileRow{".dat", CatalogKind::TextFile, GxFilter::TextFiles},
};

// The attributes of a shapefile aren't a table of their own.
bool BelongsToShapefile(const fs::path& path) {
  return IsIn(path.string(), ".dbf") && fs::exists(fs::path(path).replace_extension(".shp"));
}

void ListFolder(const fs::path& folder, GxFilter filter, std::vector<CatalogItem>& items) {
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(folder, fs::directory_options::skip_permission_denied, error)) {
    const fs::path& path = entry.path();
    const std::string name = path.filename().string();
    if (name.starts_with('.')) continue;
    if (entry.is_directory(error)) {
      const Format* geodatabase = GeodatabaseFormat(name);
      const bool plain = geodatabase == nullptr || !geodatabase->folder;
      items.push_back(PlaceAt(plain ? CatalogKind::Folder : CatalogKind::FileGeodatabase, path));
      continue;
    }
    const Format* geodatabase = GeodatabaseFormat(name);
    if (geodatabase != nullptr && !geodatabase->folder) items.push_back(PlaceAt(KindOfGeodatabase(*geodatabase), path));
    if (ContainerFormat(path) != nullptr) items.push_back(PlaceAt(CatalogKind::Container, path));
    if (filter == GxFilter::FeatureClasses && LayerFileFormat(name) != nullptr) {
      items.push_back({CatalogKind::LayerFile, path.string(), "", name});
    }
    for (const FileRow& row : kFiles) {
      if (row.filter == filter && IsIn(name, row.ending) && !BelongsToShapefile(path)) {
        items.push_back({row.kind, path.string(), "", name});
      }
    }
  }
}

void ListLayers(GDALDataset& data, const CatalogItem& geodatabase, const std::vector<std::string>& names,
                const std::string& dataset, GxFilter filter, std::vector<CatalogItem>& items) {
  for (const std::string& name : names) {
    OGRLayer* layer = data.GetLayerByName(name.c_str());
    if (layer == nullptr) continue;
    const bool table = layer->GetGeomType() == wkbNone;
    if (filter != (table ? GxFilter::Tables : GxFilter::FeatureClasses)) continue;
    items.push_back({table ? CatalogKind::Table : CatalogKind::FeatureClass, geodatabase.path, dataset, name});
  }
}

void ListPersonalGeodatabase(const CatalogItem& container, GxFilter filter, std::vector<CatalogItem>& items) {
  try {
    const engine::PersonalListing listing = engine::ListPersonalGeodatabase(container.path);
    if (container.dataset.empty()) {
      for (const std::string& name : listing.datasets) {
        items.push_back({CatalogKind::FeatureDataset, container.path, name, name});
      }
    }
    for (const engine::PersonalListing::Class& one : listing.classes) {
      if (!EqualsIgnoringCase(one.dataset, container.dataset)) continue;
      if (filter != (one.has_shapes ? GxFilter::FeatureClasses : GxFilter::Tables)) continue;
      const CatalogKind kind = one.has_shapes ? CatalogKind::FeatureClass : CatalogKind::Table;
      items.push_back({kind, container.path, one.dataset, one.name});
    }
  } catch (const Fault&) {
    // What can't be read has nothing to choose from.
  }
}

void ListGeodatabase(const CatalogItem& container, GxFilter filter, std::vector<CatalogItem>& items) {
  if (IsIn(container.path, ".mdb")) return ListPersonalGeodatabase(container, filter, items);
  GDALAllRegister();
  CPLPushErrorHandler(CPLQuietErrorHandler);
  const GDALDatasetUniquePtr data(GDALDataset::Open(container.path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
  CPLPopErrorHandler();
  if (!data) return;
  const std::shared_ptr<GDALGroup> root = data->GetRootGroup();
  if (!root) {
    std::vector<std::string> names;
    for (OGRLayer* layer : data->GetLayers()) names.emplace_back(layer->GetName());
    ListLayers(*data, container, names, "", filter, items);
    return;
  }
  if (!container.dataset.empty()) {
    if (const auto group = root->OpenGroup(container.dataset)) {
      ListLayers(*data, container, group->GetVectorLayerNames(), container.dataset, filter, items);
    }
    return;
  }
  for (const std::string& name : root->GetGroupNames()) {
    items.push_back({CatalogKind::FeatureDataset, container.path, name, name});
  }
  ListLayers(*data, container, root->GetVectorLayerNames(), "", filter, items);
}

bool HasDataset(const CatalogItem& geodatabase, const std::string& name) {
  std::vector<CatalogItem> items;
  ListGeodatabase(geodatabase, GxFilter::FeatureClasses, items);
  return std::ranges::any_of(items, [&](const CatalogItem& item) {
    return item.kind == CatalogKind::FeatureDataset && EqualsIgnoringCase(item.name, name);
  });
}

class GxItem : public virtual IGxObject {
 public:
  explicit GxItem(CatalogItem item) : item_(std::move(item)) {}
  [[nodiscard]] std::string FullName() const override { return FromNativePath(item_.DisplayPath()); }
  [[nodiscard]] std::string Category() const override { return item_.Category(); }

 protected:
  [[nodiscard]] const CatalogItem& Item() const { return item_; }

 private:
  CatalogItem item_;
};

class GxDatasetItem final : public GxItem, public IGxDataset {
 public:
  using GxItem::GxItem;
  [[nodiscard]] std::shared_ptr<IDataset> Dataset() const override {
    const CatalogItem& item = Item();
    switch (item.kind) {
      case CatalogKind::FeatureDataset: {
        const bool personal = IsIn(item.path, ".mdb");
        const auto factory = personal ? CreateAccessWorkspaceFactory() : CreateFileGDBWorkspaceFactory();
        return factory->OpenFromFile(FromNativePath(item.path), 0)->OpenFeatureDataset(item.dataset);
      }
      case CatalogKind::FeatureClass:
        return DataSource::Open(item.path)->OpenFeatureClass(item.name);
      case CatalogKind::Shapefile:
      case CatalogKind::LayerFile:
        return DataSource::Open(item.path)->OpenFeatureClass("");
      default:
        return DataSource::Open(item.path)->OpenTable(IsIn(item.path, ".dbf") ? "" : item.name);
    }
  }
};

}  // namespace

std::string CatalogItem::DisplayPath() const {
  fs::path display = path;
  if (!dataset.empty()) display /= dataset;
  const Format* format = FormatOfPath(path);
  if (format != nullptr && format->container && !IsContainer()) display /= name;
  return display.string();
}

std::string CatalogItem::Category() const {
  const Format* format = FormatOfPath(path);
  const bool container = format != nullptr && format->container;
  const std::string geodatabase(container ? format->name : "");
  switch (kind) {
    case CatalogKind::Folder:
      return "Folder";
    case CatalogKind::FileGeodatabase:
    case CatalogKind::PersonalGeodatabase:
    case CatalogKind::Container:
      return geodatabase;
    case CatalogKind::LayerFile:
      return format == nullptr ? "" : std::string(format->category);
    case CatalogKind::FeatureDataset:
      return geodatabase + " Feature Dataset";
    case CatalogKind::Shapefile:
      return "Shapefile";
    case CatalogKind::FeatureClass:
      return container ? std::string(format->category) : " Feature Class";
    case CatalogKind::Table:
      return IsIn(path, ".dbf") ? "dBASE Table" : geodatabase + " Table";
    case CatalogKind::TextFile:
      return "Text File";
  }
  return "";
}

std::optional<CatalogItem> FindContainer(const std::string& native_path) {
  if (native_path.empty()) return std::nullopt;
  std::error_code error;
  fs::path path = fs::absolute(native_path, error).lexically_normal();
  if (!path.has_filename() && path.has_relative_path()) path = path.parent_path();
  if (fs::is_directory(path, error)) {
    const Format* format = GeodatabaseFormat(path.string());
    const bool plain = format == nullptr || !format->folder;
    return PlaceAt(plain ? CatalogKind::Folder : CatalogKind::FileGeodatabase, path);
  }
  const Format* format = GeodatabaseFormat(path.string());
  if (format != nullptr && !format->folder && fs::is_regular_file(path, error)) {
    return PlaceAt(KindOfGeodatabase(*format), path);
  }
  if (ContainerFormat(path) != nullptr) return PlaceAt(CatalogKind::Container, path);
  const Format* above = GeodatabaseFormat(path.parent_path().string());
  if (above == nullptr || above->folder != fs::is_directory(path.parent_path(), error)) return std::nullopt;
  const std::string name = path.filename().string();
  CatalogItem geodatabase = PlaceAt(KindOfGeodatabase(*above), path.parent_path());
  if (!HasDataset(geodatabase, name)) return std::nullopt;
  return CatalogItem{CatalogKind::FeatureDataset, geodatabase.path, name, name};
}

std::vector<CatalogItem> ListContainer(const CatalogItem& container, GxFilter filter) {
  std::vector<CatalogItem> items;
  if (container.kind == CatalogKind::Folder) {
    ListFolder(container.path, filter, items);
  } else {
    ListGeodatabase(container, filter, items);
  }
  std::ranges::sort(items, [](const CatalogItem& a, const CatalogItem& b) {
    if (a.IsContainer() != b.IsContainer()) return a.IsContainer();
    return LowerCase(a.name) < LowerCase(b.name);
  });
  return items;
}

std::optional<CatalogItem> ContainerAbove(const CatalogItem& item) {
  if (item.kind == CatalogKind::FeatureDataset) return FindContainer(item.path);
  const fs::path path = item.path;
  if (!path.has_relative_path()) return std::nullopt;
  return FindContainer(path.parent_path().string());
}

std::shared_ptr<IGxObject> ToGxObject(const CatalogItem& item) {
  const bool is_dataset = !item.IsContainer() && item.kind != CatalogKind::TextFile;
  if (is_dataset || item.kind == CatalogKind::FeatureDataset) return std::make_shared<GxDatasetItem>(item);
  return std::make_shared<GxItem>(item);
}

}  // namespace tessarine
