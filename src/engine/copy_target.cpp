// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/copy_target.h"

#include <algorithm>
#include <deque>

#include "engine/engine_fault.h"
#include "engine/personal_geodatabase_dataset.h"
#include "engine/server_table.h"
#include "outputs/driver_facts.h"
#include "outputs/layer_copy.h"
#include "outputs/way_out.h"
#include "platform/free_name.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;
using namespace engine;

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

// The texts of a format that the table doesn't know.
struct OtherFormat {
  std::string name, ending, driver, category;
};

const Format& AddOtherFormat(const std::string& ending, GDALDriver& driver) {
  static std::deque<OtherFormat> texts;
  const std::string name = driver.GetDescription();
  texts.push_back({name + " (" + ending + ")", ending, name, CategoryOf(name)});
  const OtherFormat& text = texts.back();
  Format format = FactsOfDriver(name);
  format.name = text.name;
  format.category = text.category;
  format.ending = text.ending;
  format.driver = text.driver;
  format.class_names = kAnyName;
  format.writable = true;
  return AddFormat(format);
}

std::string FreeColumn(const std::string& base, const std::vector<std::string>& taken) {
  constexpr int kFirst = 1;
  const auto numbered = [&](int number) { return base + "_" + std::to_string(number); };
  const auto is_taken = [&](const std::string& name) {
    return std::ranges::any_of(taken, [&](const std::string& other) { return EqualsIgnoringCase(other, name); });
  };
  return FirstFree(base, numbered, is_taken, kFirst);
}

void NameColumns(const Format& format, const OwnColumns& wished, std::vector<std::string> taken,
                 CPLStringList& options) {
  if (format.identifier_column.empty()) return;
  const auto free = [&](const std::string& wish, std::string_view usual) {
    taken.push_back(FreeColumn(wish.empty() ? std::string(usual) : wish, taken));
    return taken.back();
  };
  const std::string identifier = free(wished.identifier, format.identifier_column);
  const std::string shape = free(wished.shape, format.shape_column);
  options.SetNameValue("FID", identifier.c_str());
  options.SetNameValue("GEOMETRY_NAME", shape.c_str());
}

}  // namespace

const Format* FormatToWrite(const std::string& native_path) {
  if (const Format* known = FormatOfPath(native_path)) return known->writable ? known : nullptr;
  const std::string ending = LowerCase(fs::path(native_path).extension().string());
  // The table of a shapefile isn't one by itself.
  if (ending.size() < 2 || ending == ".dbf") return nullptr;
  GDALDriver* driver = DriverOfEnding(ending);
  return driver == nullptr ? nullptr : &AddOtherFormat(ending, *driver);
}

namespace engine {

GDALDriver* FindDriver(const Format& format) {
  if (format.own_driver) return &PersonalDriver();
  RegisterDrivers();
  return GetGDALDriverManager()->GetDriverByName(std::string(format.driver).c_str());
}

GDALDriver& DriverOf(const Format& format) {
  if (GDALDriver* driver = FindDriver(format)) return *driver;
  Raise(kInvalidCall, "This machine's GDAL doesn't write " + std::string(format.name) + ": name another format.");
}

bool WritesVectors(GDALDriver& driver) {
  return CPLTestBool(CSLFetchNameValueDef(driver.GetMetadata(), GDAL_DCAP_VECTOR, "NO")) &&
         CPLTestBool(CSLFetchNameValueDef(driver.GetMetadata(), GDAL_DCAP_CREATE, "NO"));
}

DatasetHandle CreateFile(GDALDriver& driver, const fs::path& path, const fs::path& shown) {
  const GdalErrorScope errors;
  DatasetHandle dataset(driver.Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
  if (!dataset) {
    RaiseEngineFault("'" + shown.string() + "' can't be made" + errors.Quote() + WayOut(path.string(), errors.Text()));
  }
  return dataset;
}

std::string ColumnTypeWord(const OGRFieldDefn& column) {
  switch (column.GetType()) {
    case OFTInteger:
    case OFTInteger64:
      return "whole number";
    case OFTReal:
      return "number";
    case OFTDate:
      return "date";
    case OFTTime:
      return "time";
    case OFTDateTime:
      return "date and time";
    case OFTString:
      return column.GetWidth() > 0 ? "text of " + std::to_string(column.GetWidth()) : "text";
    default:
      return OGRFieldDefn::GetFieldTypeName(column.GetType());
  }
}

CPLStringList LayerOptions(const Format& format) {
  CPLStringList options;
  for (const std::string_view option : format.layer_options) options.AddString(std::string(option).c_str());
  return options;
}

DatasetHandle OpenTarget(const Format& format, const fs::path& path, const fs::path& shown) {
  if (format.server || (format.container && fs::exists(path))) {
    DatasetHandle dataset = OpenDatasetAt(path.string(), FileAccess::Change);
    if (!format.server) return dataset;
    const GdalErrorScope errors;
    if (dataset->StartTransaction() == OGRERR_NONE) return dataset;
    RaiseEngineFault("'" + shown.string() + "' can't be written in one step" + errors.Quote() + ".");
  }
  const GdalErrorScope errors;
  CPLStringList options;
  for (const std::string_view option : format.file_options) options.AddString(std::string(option).c_str());
  DatasetHandle dataset(DriverOf(format).Create(path.c_str(), 0, 0, 0, GDT_Unknown, options.List()));
  if (!dataset) {
    RaiseEngineFault("'" + shown.string() + "' can't be made" + errors.Quote() + WayOut(path.string(), errors.Text()));
  }
  return dataset;
}

void RemoveLayer(GDALDataset& dataset, const std::string& name) {
  const GdalErrorScope errors;
  for (int index = 0; index < dataset.GetLayerCount(); ++index) {
    if (!EqualsIgnoringCase(dataset.GetLayer(index)->GetName(), name)) continue;
    if (FactsOfDriver(dataset.GetDriverName()).server) {
      const std::string dependents = DependentsOf(dataset, dataset.GetLayer(index)->GetName());
      if (!dependents.empty()) {
        RaiseEngineFault("The table '" + name +
                         "' can't be replaced, because these depend on it and would be dropped: " + dependents +
                         ". Drop them first, or name another table.");
      }
    }
    if (dataset.DeleteLayer(index) == OGRERR_NONE) return;
    RaiseEngineFault("The layer '" + name + "' can't be replaced" + errors.Quote() + ".");
  }
}

void NameOwnColumns(const Format& format, const std::vector<std::string>& attributes, CPLStringList& options) {
  NameColumns(format, {}, attributes, options);
}

void NameOwnColumns(const Format& format, const OwnColumns& wished, const RowTraits& traits,
                    const std::vector<std::string>& results, CPLStringList& options) {
  std::vector<std::string> taken;
  for (const std::string& name : results) taken.push_back(LegalName(format.field_names, name));
  for (const FieldRef& field : *traits.fields.fields) {
    if (IsAttribute(*field)) taken.push_back(LegalName(format.field_names, field->Name));
  }
  NameColumns(format, wished, std::move(taken), options);
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
