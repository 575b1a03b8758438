// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/format_abilities.h"

#include <algorithm>

#include "engine/copy_target.h"
#include "engine/engine_fault.h"
#include "outputs/layer_copy.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

using namespace engine;

std::string TextOf(GDALDriver& driver, const char* item) {
  const char* text = driver.GetMetadataItem(item);
  return text != nullptr ? text : "";
}

std::string FirstEnding(GDALDriver& driver) {
  const std::string endings = TextOf(driver, GDAL_DMD_EXTENSIONS);
  return endings.substr(0, endings.find(' '));
}

}  // namespace

bool CanWrite(const Format& format) {
  GDALDriver* driver = FindDriver(format);
  return driver != nullptr && (WritesVectors(*driver) || format.server);
}

const Format* FormatToWriteAs(const std::string& name) {
  const Format* known = FormatOfName(name);
  if (known == nullptr && name.starts_with('.')) known = FormatOfName(name.substr(1));
  if (known != nullptr) return known->writable && CanWrite(*known) ? known : nullptr;
  RegisterDrivers();
  GDALDriver* driver = GetGDALDriverManager()->GetDriverByName(name.c_str());
  const std::string ending = driver != nullptr ? FirstEnding(*driver) : name;
  return ending.empty() ? nullptr : FormatToWrite("any." + ending);
}

ColumnAbilities AbilitiesOf(const Format& format) {
  GDALDriver* driver = FindDriver(format);
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
