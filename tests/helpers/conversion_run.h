// SPDX-License-Identifier: GPL-2.0-or-later
// Runs of the conversion tools on small GeoJSON layers; outputs are read back with GDAL alone.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "conversion/modCreateVertices.h"
#include "engine/data_source.h"
#include "helpers/stored_layer.h"
#include "helpers/suite_fixture.h"
#include "platform/rich_text.h"

namespace tessarine::testing {

/// A feature of GeoJSON: its geometry, or "null", and its properties.
inline std::string Feature(const std::string& geometry, const std::string& properties = "{}") {
  return R"({"type":"Feature","properties":)" + properties + R"(,"geometry":)" + geometry + "}";
}
inline std::string Shape(const std::string& type, const std::string& coordinates) {
  return R"({"type":")" + type + R"(","coordinates":)" + coordinates + "}";
}

class ConversionRunTest : public SuiteTest {
 protected:
  std::string report;  // as RTF

  void SetUp() override { extension->DirectoryType = "Shapefile"; }

  /// A layer of these features in a reference; rows are numbered from 0.
  std::shared_ptr<DocumentFeatureLayer> Layer(const std::string& name, const std::vector<std::string>& features,
                                              const std::string& epsg = "32612") {
    std::string text = R"({"type":"FeatureCollection","crs":{"type":"name","properties":{"name":"EPSG:)" + epsg +
                       R"("}},"features":[)";
    for (std::size_t row = 0; row < features.size(); ++row) text += (row == 0 ? "" : ",\n") + features[row];
    folder.Write(name + ".geojson", text + "]}");
    auto layer = std::make_shared<DocumentFeatureLayer>();
    layer->SetName(name);
    layer->SetFeatureClass(DataSource::Open(folder.Native(name + ".geojson"))->OpenFeatureClass(""));
    return layer;
  }

  static std::shared_ptr<VarArray> FieldsOf(const IFeatureLayer& layer, const std::vector<std::string>& names) {
    auto fields = std::make_shared<VarArray>();
    const auto all = layer.FeatureClass()->Fields();
    for (const std::string& name : names) fields->Add(all->Field(all->FindField(name)));
    return fields;
  }

  /// The report as a person reads it.
  std::string Run(modCreateVertices::ConversionWorker& worker, const std::shared_ptr<DocumentFeatureLayer>& layer,
                  const std::vector<std::string>& fields = {}, bool all = true, bool show_progress = false) {
    report = worker(layer, FieldsOf(*layer, fields), all, folder.Path("out.shp"), application, extension, show_progress,
                    false);
    return ToPlainText(ReadRtf(report));
  }

  /// The rows of a file: the fields as text, then the shape as well-known text.
  std::vector<std::string> Rows(const std::string& file = "out.shp") const {
    std::vector<std::string> rows;
    for (const StoredRow& stored : ReadStored(folder.Native(file)).rows) {
      std::string row;
      for (const StoredValue& field : stored.fields) row += field.shortest + " ";
      rows.push_back(row + stored.Wkt("none"));
    }
    return rows;
  }
  /// The names of the fields, and the name of the reference.
  std::string Layout(const std::string& file = "out.shp") const {
    const StoredLayer stored = ReadStored(folder.Native(file));
    return stored.fields + stored.reference;
  }
};

}  // namespace tessarine::testing
