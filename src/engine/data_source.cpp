// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/data_source.h"

#include <filesystem>
#include <map>
#include <optional>

#include "engine/engine_fault.h"
#include "engine/left_out.h"
#include "engine/ogr_class.h"
#include "engine/ogr_geometry.h"
#include "engine/personal_geodatabase_dataset.h"
#include "engine/remote_source.h"
#include "engine/shapefile_check.h"
#include "engine/srs_from_gdal.h"
#include "outputs/driver_facts.h"
#include "outputs/staged_output.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

using namespace engine;

struct KindSuffix {
  esriGeometryType type;
  const char* suffix;
};
constexpr KindSuffix kKindSuffixes[] = {{esriGeometryPoint, " (points)"},
                                        {esriGeometryMultipoint, " (multipoints)"},
                                        {esriGeometryPolyline, " (lines)"},
                                        {esriGeometryPolygon, " (polygons)"}};

// A layer as it is offered: the whole of an OGR layer, or its shapes of one kind.
struct Offer {
  std::string name;
  std::string layer;
  std::optional<esriGeometryType> kind;
  bool has_shape = true;
  bool only_kind = true;
  std::string problem = {};               // why it can't be read
  OGRwkbGeometryType geometry = wkbNone;  // of one that can't be read
};

void AddOffers(OGRLayer& layer, std::vector<Offer>& offers) {
  const std::string name = layer.GetName();
  if (const char* why = layer.GetMetadataItem(kWhyUnreadable)) {
    offers.push_back({name, name, std::nullopt, layer.GetGeomType() != wkbNone, true, why, layer.GetGeomType()});
    return;
  }
  if (layer.GetGeomType() == wkbNone) {
    offers.push_back({name, name, std::nullopt, false});
    return;
  }
  if (ShapeTypeOf(layer.GetGeomType()) != esriGeometryNull) {
    offers.push_back({name, name, std::nullopt});
    return;
  }
  // The layer's type says nothing; its features tell.
  std::map<esriGeometryType, bool> kinds;
  int count = 0;
  const std::unique_ptr<OGRGeometryTypeCounter, decltype(&VSIFree)> counters(
      layer.GetGeometryTypes(0, 0, count, nullptr, nullptr), VSIFree);
  for (int index = 0; index < count; ++index) {
    const esriGeometryType type = ShapeTypeOf(counters.get()[index].eGeomType);
    if (type != esriGeometryNull) kinds[type] = true;
  }
  if (kinds.empty()) {
    offers.push_back({name, name, std::nullopt, false});
    return;
  }
  for (const KindSuffix& row : kKindSuffixes) {
    if (!kinds.contains(row.type)) continue;
    const bool only = kinds.size() == 1;
    offers.push_back({only ? name : name + row.suffix, name, row.type, true, only});
  }
}

class OgrDataSource final : public DataSource {
 public:
  // `opened` is null where it isn't open for reading.
  OgrDataSource(std::string path, std::string driver, std::vector<Offer> offers, DatasetHandle opened)
      : path_(std::move(path)), driver_(std::move(driver)), offers_(std::move(offers)), opened_(std::move(opened)) {}

  [[nodiscard]] std::string DriverName() const override { return driver_; }

  [[nodiscard]] std::vector<std::string> LayerNames() const override {
    std::vector<std::string> names;
    for (const Offer& offer : offers_) names.push_back(offer.name);
    return names;
  }

  [[nodiscard]] std::shared_ptr<IFeatureClass> OpenFeatureClass(const std::string& layer) const override {
    const Offer& offer = Find(layer, Wanted::Shapes);
    if (!offer.has_shape) {
      RaiseEngineFault("'" + offer.name + "' in '" + path_ + "' is a table without shapes.");
    }
    if (FactsOfDriver(driver_).store == FileStore::Shapefile) CheckInFolder(offer.layer);
    return std::make_shared<OgrFeatureClass>(SourceOf(offer));
  }
  [[nodiscard]] std::shared_ptr<ITable> OpenTable(const std::string& layer) const override {
    return std::make_shared<OgrTable>(SourceOf(Find(layer, Wanted::Rows)));
  }

  [[nodiscard]] std::vector<LayerInfo> Infos() const override {
    std::vector<LayerInfo> infos;
    for (const Offer& offer : offers_) {
      if (!offer.problem.empty()) {
        const esriGeometryType type = offer.has_shape ? ShapeTypeOf(offer.geometry) : esriGeometryNull;
        infos.push_back({offer.name, type, nullptr, 0, nullptr, {}, offer.problem});
        continue;
      }
      const auto own = std::make_shared<OgrTable>(SourceOf(offer));
      infos.push_back({offer.name, offer.has_shape ? own->Traits()->shape_type : esriGeometryNull,
                       own->Traits()->reference, own->CountRows(nullptr), own->Fields(), FindLeftOut(*own->Source()),
                       ""});
    }
    return infos;
  }

 private:
  [[nodiscard]] std::shared_ptr<OgrSource> SourceOf(const Offer& offer) const {
    auto source = std::make_shared<OgrSource>(path_, offer.layer, offer.kind, offer.only_kind);
    if (opened_ && changes_ == FileChanges()) source->TakeOver(std::move(opened_));
    return source;
  }

  // A shapefile that was opened by itself was checked then.
  void CheckInFolder(const std::string& layer) const {
    const std::filesystem::path shapefile = std::filesystem::path(path_) / (layer + ".shp");
    std::error_code error;
    if (std::filesystem::is_regular_file(shapefile, error)) CheckShapefile(shapefile.string());
  }

  [[nodiscard]] std::string JoinedNames() const {
    std::string names;
    for (const Offer& offer : offers_) names += (names.empty() ? "" : ", ") + offer.name;
    return names;
  }

  enum class Wanted : std::uint8_t { Rows, Shapes };

  [[nodiscard]] const Offer& Find(const std::string& name, Wanted wanted) const {
    if (name.empty()) return FindOnly(wanted);
    for (const Offer& offer : offers_) {
      if (offer.name == name) return offer;
    }
    for (const Offer& offer : offers_) {
      if (EqualsIgnoringCase(offer.name, name)) return offer;
    }
    RaiseEngineFault("'" + path_ + "' has no layer '" + name + "'. It has: " + JoinedNames() + ".");
  }

  [[nodiscard]] const Offer& FindOnly(Wanted wanted) const {
    const Offer* only = nullptr;
    for (const Offer& offer : offers_) {
      if (wanted == Wanted::Shapes && !offer.has_shape) continue;
      if (only != nullptr) {
        RaiseEngineFault("'" + path_ + "' holds several layers; name one of: " + JoinedNames() + ".");
      }
      only = &offer;
    }
    if (only == nullptr) RaiseEngineFault("'" + path_ + "' holds no layer with shapes.");
    return *only;
  }

  std::string path_;
  std::string driver_;
  std::vector<Offer> offers_;
  mutable DatasetHandle opened_;  // for the first source that is asked for
  std::int64_t changes_ = FileChanges();
};

}  // namespace

std::shared_ptr<DataSource> DataSource::Open(const std::string& native_path, FileAccess access) {
  // A run may have died between the renames of its last step.
  if (!IsRemoteSource(native_path)) FinishInterrupted(native_path);
  if (EndsWithIgnoringCase(native_path, ".shp") && std::filesystem::exists(native_path)) CheckShapefile(native_path);
  DatasetHandle dataset = OpenDataset(native_path, access);
  std::vector<Offer> offers;
  for (int index = 0; index < dataset->GetLayerCount(); ++index) AddOffers(*dataset->GetLayer(index), offers);
  const std::string driver = dataset->GetDriverName();
  if (access == FileAccess::Change) dataset.reset();
  return std::make_shared<OgrDataSource>(native_path, driver, std::move(offers), std::move(dataset));
}

}  // namespace tessarine
