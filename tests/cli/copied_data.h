// SPDX-License-Identifier: GPL-2.0-or-later
// Copies of the calculator, made as a user makes them and read back by GDAL.
#pragma once

#include <ogrsf_frmts.h>

#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

#include "cli/program_run.h"

namespace tessarine::testing {

inline GDALDatasetUniquePtr OpenData(const std::string& path) {
  GDALAllRegister();
  return GDALDatasetUniquePtr(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR));
}

// The values of a field, by those of another.
inline std::map<std::string, std::string> Values(const std::string& path, const char* layer, const char* key,
                                                 const char* field) {
  std::map<std::string, std::string> values;
  const auto data = OpenData(path);
  OGRLayer* rows = data == nullptr ? nullptr : *layer == '\0' ? data->GetLayer(0) : data->GetLayerByName(layer);
  if (rows == nullptr) return values;
  for (const auto& row : *rows) {
    const int index = row->GetFieldIndex(field);
    // Both come out of one buffer.
    const std::string name = row->GetFieldAsString(key);
    values[name] = index < 0 || row->IsFieldSetAndNotNull(index) == 0 ? "null" : row->GetFieldAsString(index);
  }
  return values;
}

inline std::set<std::string> Layers(const std::string& path) {
  std::set<std::string> names;
  const auto data = OpenData(path);
  for (OGRLayer* layer : data->GetLayers()) names.insert(layer->GetName());
  return names;
}

class Copies : public ProgramTest {
 protected:
  ProgramOutcome Calculate(const std::string& source, const std::string& copy,
                           std::vector<std::string> more = {}) const {
    more.insert(more.begin(), {"calculate", source, "-m", "1", "-q", "-o", copy});
    return RunTessarine(more);
  }
  [[nodiscard]] nlohmann::json Report() const { return nlohmann::json::parse(ReadFile(In("r.json"))); }
  // What stands in the folder besides the named things.
  [[nodiscard]] std::vector<std::string> LeftBeside(const std::set<std::string>& known) const {
    std::vector<std::string> names = Left();
    std::erase_if(names, [&](const std::string& name) { return known.contains(name); });
    return names;
  }
};

}  // namespace tessarine::testing
