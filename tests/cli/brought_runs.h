// SPDX-License-Identifier: GPL-2.0-or-later
// Runs whose output is in another reference than its source.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "cli/copied_data.h"

namespace tessarine::testing {

class BroughtRuns : public Copies {
 protected:
  ProgramOutcome Run(std::vector<std::string> arguments, const std::string& output, const std::string& reference,
                     std::vector<std::string> more = {}) const {
    for (std::string& word : arguments) {
      if (word.starts_with('@')) word = Data(word.substr(1));
      if (word.starts_with('%')) word = In(word.substr(1));
    }
    arguments.insert(arguments.end(), {"-q", "-o", output});
    if (!reference.empty()) arguments.insert(arguments.end(), {"--to", reference});
    arguments.insert(arguments.end(), more.begin(), more.end());
    return RunTessarine(arguments);
  }
  // A layer with a text, "name", and an empty number, "old".
  void MakeLayer(const std::string& file, const std::vector<std::pair<std::string, std::string>>& rows,
                 const char* reference = "EPSG:4326") const {
    GDALAllRegister();
    GDALDatasetUniquePtr data(
        GetGDALDriverManager()->GetDriverByName("GPKG")->Create(In(file).c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    OGRSpatialReference own;
    own.SetFromUserInput(reference);
    own.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    OGRLayer* layer = data->CreateLayer("rows", *reference == '\0' ? nullptr : &own, wkbUnknown, nullptr);
    OGRFieldDefn name("name", OFTString), old("old", OFTReal);
    ASSERT_EQ(layer->CreateField(&name), OGRERR_NONE);
    ASSERT_EQ(layer->CreateField(&old), OGRERR_NONE);
    for (const auto& [text, wkt] : rows) {
      OGRFeature row(layer->GetLayerDefn());
      row.SetField("name", text.c_str());
      OGRGeometry* shape = nullptr;
      if (!wkt.empty()) OGRGeometryFactory::createFromWkt(wkt.c_str(), nullptr, &shape);
      row.SetGeometryDirectly(shape);
      ASSERT_EQ(layer->CreateFeature(&row), OGRERR_NONE);
    }
  }
};

}  // namespace tessarine::testing
