// SPDX-License-Identifier: GPL-2.0-or-later
// File geodatabases of many classes, and what GDAL reads of them.
#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "engine/filegdb_check.h"
#include "engine/test_layers.h"

namespace tessarine::testing {

/// The findings of the checker, one a line.
inline std::string FindingsOf(const std::string& geodatabase) {
  std::string text;
  for (const std::string& finding : engine::CheckFileGeodatabase(geodatabase)) text += finding + "\n";
  return text;
}

inline std::string ClassName(int index) { return "class_" + std::to_string(index); }

/// A geodatabase of `count` classes of all kinds, each of `rows` rows with "name" and "size".
inline void WriteGeodatabase(const std::string& file, int count, int rows) {
  const struct {
    OGRwkbGeometryType type;
    const char* wkt;
  } kinds[] = {{wkbMultiLineString, "MULTILINESTRING ((0 0,5 0,5 7))"},
               {wkbMultiPolygon, "MULTIPOLYGON (((0 0,0 9,9 9,0 0)))"},
               {wkbPoint, "POINT (1 2)"},
               {wkbMultiLineString25D, "MULTILINESTRING Z ((0 0 1,5 0 2,5 7 3))"},
               {wkbMultiPointM, "MULTIPOINT M ((0 0 1),(5 0 2))"}};
  for (int index = 0; index < count; ++index) {
    const auto& kind = kinds[static_cast<std::size_t>(index) % std::size(kinds)];
    TestLayer layer{"OpenFileGDB", file, ClassName(index), kind.type, {}};
    for (int row = 0; row < rows; ++row) {
      layer.rows.push_back({row % 5 == 4 ? "" : kind.wkt, "n" + std::to_string(row), row + 0.5});
    }
    WriteLayer(layer);
  }
}

/// Every row of every layer as GDAL tells it: shape in bytes, then all attributes.
using Content = std::map<std::string, std::vector<std::string>>;

/// Without the attributes of these names.
inline Content ContentOf(const std::string& file, const std::vector<std::string>& without = {}) {
  Content content;
  const GDALDatasetUniquePtr dataset(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
  if (!dataset) return content;
  for (OGRLayer* layer : dataset->GetLayers()) {
    std::vector<std::string>& rows = content[layer->GetName()];
    for (const auto& feature : *layer) {
      std::string text = std::to_string(feature->GetFID()) + " ";
      if (const OGRGeometry* shape = feature->GetGeometryRef()) {
        std::string bytes(shape->WkbSize(), '\0');
        shape->exportToWkb(wkbNDR, reinterpret_cast<unsigned char*>(bytes.data()), wkbVariantIso);
        for (const char byte : bytes) text += CPLSPrintf("%02x", static_cast<unsigned char>(byte));
      }
      for (int index = 0; index < feature->GetFieldCount(); ++index) {
        const std::string name = feature->GetFieldDefnRef(index)->GetNameRef();
        if (std::ranges::find(without, name) != without.end()) continue;
        text += "|" + name + "=" + (feature->IsFieldSetAndNotNull(index) ? feature->GetFieldAsString(index) : "null");
      }
      rows.push_back(text);
    }
  }
  return content;
}

}  // namespace tessarine::testing
