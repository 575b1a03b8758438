// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/format_abilities.h"

#include <algorithm>

#include "engine/copy_target.h"
#include "engine/engine_fault.h"
#include "engine/ogr_class.h"
#include "outputs/layer_copy.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

using namespace engine;

bool Tells(GDALDriver& driver, const char* item) {
  return CPLTestBool(CSLFetchNameValueDef(driver.GetMetadata(), item, "NO"));
}

std::string TextOf(GDALDriver& driver, const char* item) {
  const char* text = driver.GetMetadataItem(item);
  return text != nullptr ? text : "";
}

bool WritesVectors(GDALDriver& driver) { return Tells(driver, GDAL_DCAP_VECTOR) && Tells(driver, GDAL_DCAP_CREATE); }

GDALDriver* DriverNamed(std::string_view name) {
  RegisterDrivers();
  return GetGDALDriverManager()->GetDriverByName(std::string(name).c_str());
}

std::string FirstEnding(GDALDriver& driver) {
  const std::string endings = TextOf(driver, GDAL_DMD_EXTENSIONS);
  return endings.substr(0, endings.find(' '));
}

}  // namespace

bool CanWrite(const Format& format) {
  if (format.driver == "PGeo") return true;
  GDALDriver* driver = DriverNamed(format.driver);
  return driver != nullptr && (WritesVectors(*driver) || format.server);
}

bool IsChangedInPlace(const Format& format) { return ChangesInPlace(format.driver); }

const Format* FormatToWriteAs(const std::string& name) {
  const Format* known = FormatOfName(name);
  if (known == nullptr && name.starts_with('.')) known = FormatOfName(name.substr(1));
  if (known != nullptr) return known->writable && CanWrite(*known) ? known : nullptr;
  GDALDriver* driver = DriverNamed(name);
  const std::string ending = driver != nullptr ? FirstEnding(*driver) : name;
  return ending.empty() ? nullptr : FormatToWrite("any." + ending);
}

ColumnAbilities AbilitiesOf(const Format& format) {
  if (format.driver == "PGeo") return {.moments = true};
  GDALDriver* driver = DriverNamed(format.driver);
  if (driver == nullptr) return {};
  const CPLStringList types(CSLTokenizeString2(TextOf(*driver, GDAL_DMD_CREATIONFIELDDATATYPES).c_str(), " ", 0));
  const auto has = [&](const char* type) { return types.FindString(type) >= 0; };
  return {has("Integer64"), has("Date"), has("Time"), has("DateTime"), has("Binary"), has("StringList")};
}

std::vector<OtherWriter> OtherWriters() {
  RegisterDrivers();
  std::vector<OtherWriter> others;
  for (int index = 0; index < GetGDALDriverManager()->GetDriverCount(); ++index) {
    GDALDriver& driver = *GetGDALDriverManager()->GetDriver(index);
    const std::string name = driver.GetDescription(), endings = TextOf(driver, GDAL_DMD_EXTENSIONS);
    const bool known = std::ranges::any_of(AllFormats(), [&](const Format& row) { return row.driver == name; });
    if (known || endings.empty() || !WritesVectors(driver)) continue;
    others.push_back({name, endings, TextOf(driver, GDAL_DMD_LONGNAME)});
  }
  return others;
}

void RequireWritableServer(const std::string& connection) {
  const GdalErrorScope errors;
  RegisterDrivers();
  const DatasetHandle dataset(GDALDataset::Open(connection.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
  if (dataset) return;
  RaiseEngineFault("The database can't be opened for writing" + errors.Quote() +
                   ": check the connection, the user and the rights.");
}

}  // namespace tessarine
