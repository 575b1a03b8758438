// SPDX-License-Identifier: GPL-2.0-or-later
// Layers of a map for the tests of the calculator, made and read back by GDAL.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

#include "engine/test_layers.h"
#include "helpers/stored_layer.h"
#include "helpers/suite_fixture.h"

namespace tessarine::testing {

inline const char* const kSquare = "POLYGON ((10 40,10 41,11 41,11 40,10 40))";
inline const char* const kSquareWithHole =
    "POLYGON ((10 40,10 41,11 41,11 40,10 40),(10.4 40.4,10.6 40.4,10.6 40.6,10.4 40.6,10.4 40.4))";

class CalculatorTest : public SuiteTest {
 protected:
  std::shared_ptr<DocumentFeatureLayer> Open(const std::string& file, const std::string& name) {
    auto layer = std::make_shared<DocumentFeatureLayer>();
    layer->SetName(name);
    layer->SetFeatureClass(DataSource::Open(folder.Native(file))->OpenFeatureClass(""));
    document->Map().AppendLayer(layer);
    return layer;
  }

  // A layer with the fields "name" and "size", in the format of the file's ending.
  std::shared_ptr<DocumentFeatureLayer> Add(const std::string& file, OGRwkbGeometryType type,
                                            const std::vector<TestRow>& rows, int epsg = 4326) {
    const std::string driver = file.ends_with(".shp")    ? "ESRI Shapefile"
                               : file.ends_with(".gpkg") ? "GPKG"
                               : file.ends_with(".gdb")  ? "OpenFileGDB"
                                                         : "GeoJSON";
    const std::string name = file.substr(0, file.find('.'));
    WriteLayer({driver, folder.Native(file), name, type, rows, epsg});
    return Open(file, name);
  }

  // A row's attributes and geometry as GDAL reads them; "null" for a null.
  std::map<std::string, std::string> Row(const std::string& file, int number) const {
    std::map<std::string, std::string> values;
    const StoredLayer stored = ReadStored(folder.Native(file));
    if (static_cast<std::size_t>(number) >= stored.rows.size()) return values;
    const StoredRow& row = stored.rows[static_cast<std::size_t>(number)];
    for (const StoredValue& field : row.fields) values[field.name] = field.is_null ? "null" : field.text;
    values["wkt"] = row.Wkt("");
    return values;
  }
};

}  // namespace tessarine::testing
