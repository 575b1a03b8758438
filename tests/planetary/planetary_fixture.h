// SPDX-License-Identifier: GPL-2.0-or-later
// A map in memory, an input class with features, and the outputs of the planetary runs as GDAL alone reads them.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/data_source.h"
#include "helpers/memory_class.h"
#include "helpers/shapes.h"
#include "helpers/stored_layer.h"
#include "helpers/suite_fixture.h"
#include "planetary/planetary_runs.h"
#include "platform/rich_text.h"
#include "support/output_kinds.h"

namespace tessarine::testing {

class PlanetaryTest : public SuiteTest {
 protected:
  std::shared_ptr<MemoryClass> features;
  std::shared_ptr<DocumentFeatureLayer> layer = std::make_shared<DocumentFeatureLayer>();
  OutputPlace place;

  void SetUp() override {
    application->templates = {folder.Path("map.json")};
    place = PlaceIn(MyGeneralOperations::kShapefile, folder.Path(), "out.shp");
    layer->SetName("craters");
  }
  void Use(esriGeometryType type, std::vector<FieldRef> fields = {}) {
    features = std::make_shared<MemoryClass>(type, std::move(fields));
    features->reference = SpatialReferenceEnvironment::CreateFromText("EPSG:4326");
    layer->SetFeatureClass(features);
  }
  void UseCountries() {
    layer->SetFeatureClass(DataSource::Open(TESSARINE_TEST_DATA "/countries.shp")->OpenFeatureClass(""));
  }
  void UseStored(const std::string& name) {
    layer->SetFeatureClass(DataSource::Open(folder.Native(name))->OpenFeatureClass(""));
  }
  // The report as a person reads it.
  std::string Wrap(const WrapBox& box, std::int32_t option, double shift = 0.0, bool show_progress = false,
                   const StepChoice& steps = {}) {
    const auto arguments =
        WrapArguments::Make(layer, box, option, OutputDescription::Make(*layer, place), shift, steps);
    return ToPlainText(ReadRtf(WrapToBoundaries(application, document, extension, arguments, show_progress)));
  }
  StoredLayer Output() const { return ReadStored(folder.Native(place.name)); }
};

}  // namespace tessarine::testing
