// SPDX-License-Identifier: GPL-2.0-or-later
// Layers made by GDAL itself, and read back by GDAL itself.
#pragma once

#include <gdal_priv.h>
#include <gtest/gtest.h>
#include <ogrsf_frmts.h>

#include <filesystem>
#include <memory>
#include <regex>
#include <string>
#include <vector>

#include "engine/data_source.h"
#include "helpers/shapes.h"
#include "helpers/temporary_folder.h"

namespace tessarine::testing {

struct TestRow {
  std::string wkt;  ///< empty for a row without geometry
  std::string name = {};
  double size = 0.0;
};

struct TestLayer {
  std::string driver, file, layer;
  OGRwkbGeometryType type = wkbUnknown;
  std::vector<TestRow> rows;
  int epsg = 4326;  ///< 0 for no reference
};

/// Writes a layer with a text field "name" and a number field "size".
inline void WriteLayer(const TestLayer& what) {
  GDALAllRegister();
  GDALDriver* driver = GetGDALDriverManager()->GetDriverByName(what.driver.c_str());
  ASSERT_NE(driver, nullptr) << what.driver;
  const GDALDatasetUniquePtr dataset(std::filesystem::exists(what.file)
                                         ? GDALDataset::Open(what.file.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE)
                                         : driver->Create(what.file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
  ASSERT_NE(dataset, nullptr) << what.file;
  OGRSpatialReference reference;
  if (what.epsg != 0) {
    ASSERT_EQ(reference.importFromEPSG(what.epsg), OGRERR_NONE);
  }
  reference.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  OGRLayer* layer = dataset->CreateLayer(what.layer.c_str(), what.epsg == 0 ? nullptr : &reference, what.type, nullptr);
  ASSERT_NE(layer, nullptr) << what.file;
  OGRFieldDefn name("name", OFTString), size("size", OFTReal);
  name.SetWidth(40);
  ASSERT_EQ(layer->CreateField(&name), OGRERR_NONE);
  ASSERT_EQ(layer->CreateField(&size), OGRERR_NONE);
  for (const TestRow& row : what.rows) {
    OGRFeature feature(layer->GetLayerDefn());
    if (!row.wkt.empty()) {
      OGRGeometry* geometry = nullptr;
      ASSERT_EQ(OGRGeometryFactory::createFromWkt(row.wkt.c_str(), nullptr, &geometry), OGRERR_NONE) << row.wkt;
      feature.SetGeometryDirectly(geometry);
    }
    feature.SetField("name", row.name.c_str());
    feature.SetField("size", row.size);
    ASSERT_EQ(layer->CreateFeature(&feature), OGRERR_NONE) << row.wkt;
  }
}

/// All rows of a layer as GDAL reads them: the geometry's text, "name" and "size" where there are such fields.
/// Whole coordinates stand without a point, whichever way this GDAL writes them.
inline std::vector<TestRow> ReadLayer(const std::string& file, const std::string& layer_name = "") {
  std::vector<TestRow> rows;
  const GDALDatasetUniquePtr dataset(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
  if (!dataset) return rows;
  OGRLayer* layer = layer_name.empty() ? dataset->GetLayer(0) : dataset->GetLayerByName(layer_name.c_str());
  if (layer == nullptr) return rows;
  const std::regex idle_zero(R"((\d)\.0(?!\d))");
  for (const auto& feature : *layer) {
    TestRow row;
    if (const OGRGeometry* geometry = feature->GetGeometryRef())
      row.wkt = std::regex_replace(geometry->exportToWkt(), idle_zero, "$1");
    if (feature->GetFieldIndex("name") >= 0) row.name = feature->GetFieldAsString("name");
    if (feature->GetFieldIndex("size") >= 0) row.size = feature->GetFieldAsDouble("size");
    rows.push_back(row);
  }
  return rows;
}

/// The values of one field over a cursor, joined by blanks.
template <class Cursor>
std::string NamesOf(Cursor&& cursor, std::int32_t field) {
  std::string names;
  while (const auto row = cursor->NextRow()) names += row->Value(field).AsText() + " ";
  return names;
}

}  // namespace tessarine::testing
