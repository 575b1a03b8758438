// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/copy_target.h"

#include <algorithm>
#include <array>
#include <deque>
#include <map>

#include "engine/engine_fault.h"
#include "engine/layer_copy.h"
#include "engine/personal_geodatabase_dataset.h"
#include "outputs/way_out.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;
using namespace engine;

bool WritesVectors(GDALDriver& driver) {
  return CPLTestBool(CSLFetchNameValueDef(driver.GetMetadata(), GDAL_DCAP_VECTOR, "NO")) &&
         CPLTestBool(CSLFetchNameValueDef(driver.GetMetadata(), GDAL_DCAP_CREATE, "NO"));
}

GDALDriver* DriverOfEnding(const std::string& ending) {
  RegisterDrivers();
  for (int index = 0; index < GetGDALDriverManager()->GetDriverCount(); ++index) {
    GDALDriver* driver = GetGDALDriverManager()->GetDriver(index);
    if (!WritesVectors(*driver)) continue;
    const char* endings = driver->GetMetadataItem(GDAL_DMD_EXTENSIONS);
    const CPLStringList list(CSLTokenizeString2(endings != nullptr ? endings : "", " ", 0));
    if (list.FindString(ending.c_str() + 1) >= 0) return driver;
  }
  return nullptr;
}

// A format that the table doesn't know: what is known of it comes from GDAL.
struct OtherFormat {
  std::string ending, driver, category;
  Format format;
};

// Field names are kept as they are; what the format makes of them is read back.
constexpr NameRule kAnyName{1000, true, NameRule::Characters::Any, {}, {}};
// Whatever bears this name is taken for the identifier when a SQLite database is read.
constexpr std::array kIdentifierWords = {std::string_view("ogc_fid")};
constexpr NameRule kDatabaseField{1000, true, NameRule::Characters::Any, kIdentifierWords, {}};

// Formats that let their own columns be named, with the names that they give them else.
struct OwnColumnsRow {
  std::string_view driver;
  const char *identifier, *shape;
};
constexpr OwnColumnsRow kOwnColumns[] = {
    {"GPKG", "fid", "geom"},
    {"SQLite", "ogc_fid", "GEOMETRY"},
    {"OpenFileGDB", "OBJECTID", "Shape"},
};

std::string FreeColumn(const std::string& base, const std::vector<std::string>& taken) {
  std::string name = base;
  const auto is_taken = [&] {
    return std::ranges::any_of(taken, [&](const std::string& other) { return EqualsIgnoringCase(other, name); });
  };
  for (int number = 1; is_taken(); ++number) name = base + "_" + std::to_string(number);
  return name;
}

}  // namespace

const Format* FormatToWrite(const std::string& native_path) {
  if (const Format* known = FormatOfPath(native_path)) return known->writable ? known : nullptr;
  const std::string ending = LowerCase(fs::path(native_path).extension().string());
  // The table of a shapefile isn't one by itself.
  if (ending.size() < 2 || ending == ".dbf") return nullptr;
  static std::map<std::string, OtherFormat> others;
  const auto known = others.find(ending);
  if (known != others.end()) return &known->second.format;
  GDALDriver* driver = DriverOfEnding(ending);
  if (driver == nullptr) return nullptr;
  OtherFormat& other = others[ending];
  other.ending = ending;
  other.driver = driver->GetDescription();
  other.category = other.driver + " Feature Class";
  other.format = {.name = other.driver,
                  .category = other.category,
                  .ending = other.ending,
                  .driver = other.driver,
                  .writable = true,
                  .clean_texts = other.driver == "LIBKML" || other.driver == "KML" || other.driver == "GPX",
                  .class_names = kAnyName,
                  .field_names = other.driver == "SQLite" ? kDatabaseField : kAnyName};
  return &other.format;
}

namespace engine {

GDALDriver& DriverOf(const Format& format) {
  RegisterDrivers();
  if (format.driver == "PGeo") return PersonalDriver();
  GDALDriver* driver = GetGDALDriverManager()->GetDriverByName(std::string(format.driver).c_str());
  if (driver == nullptr) {
    Raise(kInvalidCall, "This machine's GDAL doesn't write " + std::string(format.name) + ": name another format.");
  }
  return *driver;
}

DatasetHandle CreateFile(GDALDriver& driver, const fs::path& path, const fs::path& shown) {
  const GdalErrorScope errors;
  DatasetHandle dataset(driver.Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
  if (!dataset) {
    RaiseEngineFault("'" + shown.string() + "' can't be made" + errors.Quote() + WayOut(path.string(), errors.Text()));
  }
  return dataset;
}

CPLStringList LayerOptions(const Format& format) {
  CPLStringList options;
  for (const std::string_view option : format.layer_options) options.AddString(std::string(option).c_str());
  return options;
}

void NameOwnColumns(const Format& format, const OwnColumns& wished, const RowTraits& traits,
                    const std::vector<std::string>& results, CPLStringList& options) {
  const auto row = std::ranges::find(kOwnColumns, format.driver, &OwnColumnsRow::driver);
  if (row == std::end(kOwnColumns)) return;
  std::vector<std::string> taken;
  for (const std::string& name : results) taken.push_back(LegalName(format.field_names, name));
  for (const FieldRef& field : *traits.fields.fields) {
    if (IsAttribute(*field)) taken.push_back(LegalName(format.field_names, field->Name));
  }
  const std::string identifier = FreeColumn(wished.identifier.empty() ? row->identifier : wished.identifier, taken);
  taken.push_back(identifier);
  const std::string shape = FreeColumn(wished.shape.empty() ? row->shape : wished.shape, taken);
  options.SetNameValue("FID", identifier.c_str());
  options.SetNameValue("GEOMETRY_NAME", shape.c_str());
}

OGRLayer* CreateTargetLayer(GDALDataset& dataset, const std::string& name, const OGRSpatialReference* reference,
                            OGRwkbGeometryType type, const CPLStringList& options, const fs::path& shown) {
  const GdalErrorScope errors;
  std::unique_ptr<OGRSpatialReference> own(reference != nullptr ? reference->Clone() : nullptr);
  OGRLayer* layer = dataset.CreateLayer(name.c_str(), own.get(), type, const_cast<CPLStringList&>(options).List());
  if (layer == nullptr) {
    RaiseEngineFault("The layer '" + name + "' can't be made in '" + shown.string() + "'" + errors.Quote() +
                     WayOut(shown.string(), errors.Text()));
  }
  if (layer->GetLayerDefn()->GetGeomFieldCount() == 0) {
    Raise(kInvalidCall, "'" + shown.string() + "' can't be written: its format keeps no shapes. Name another format.");
  }
  return layer;
}

}  // namespace engine
}  // namespace tessarine
