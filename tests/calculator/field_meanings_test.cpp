// SPDX-License-Identifier: GPL-2.0-or-later
// What measured fields hold, by measure and reference.
#include "calculator/field_meanings.h"

#include <gmock/gmock.h>

#include "calculator/calculator_layers.h"

namespace tessarine {
namespace {

using testing::kSquare;

struct UnitsRow {
  std::int32_t epsg;  // 0 for no reference
  const char* length;
  const char* area;
};

TEST(FieldMeanings, PlanarUnitsAreThoseOfTheReference) {
  const UnitsRow rows[] = {
      {4326, "degrees", "square degrees"}, {4807, "grads", "square grads"},
      {32612, "metres", "square metres"},  {2231, "US survey feet", "square US survey feet"},
      {2222, "feet", "square feet"},       {0, "map units", "square map units"},
  };
  for (const UnitsRow& row : rows) {
    const SpatialReferenceRef reference =
        row.epsg != 0 ? SpatialReferenceEnvironment::CreateFromText("EPSG:" + std::to_string(row.epsg))
                      : std::make_shared<UnknownCoordinateSystem>();
    EXPECT_EQ(UnitWords(MeasuredIn::DataUnit, reference), row.length) << row.epsg;
    EXPECT_EQ(UnitWords(MeasuredIn::DataUnitSquare, reference), row.area) << row.epsg;
    EXPECT_EQ(UnitWords(MeasuredIn::MetresSquare, reference), "square metres") << row.epsg;
    EXPECT_EQ(UnitWords(MeasuredIn::Nothing, reference), "") << row.epsg;
  }
}

class MeaningsOfLayers : public testing::CalculatorTest {
 protected:
  // "FIELD: TEXT in UNIT*", with the star for values that depend on the spheroid.
  static std::vector<std::string> Meanings(const IFeatureLayer& layer, const std::vector<ToolMeasure>& measures) {
    std::vector<std::string> texts;
    for (const FieldMeaning& one : MeaningsOf(layer, MeasuresCalled(layer, measures, false))) {
      texts.push_back(one.field + ": " + one.text + " in " + one.unit + (one.on_spheroid ? "*" : ""));
    }
    return texts;
  }
};

TEST_F(MeaningsOfLayers, OneForEachFieldOfEachMeasure) {
  const auto layer = Add("squares.shp", wkbPolygon, {{kSquare, "a", 1}});
  const std::vector<ToolMeasure> measures = {
      {"Sph. Area", {"A"}}, {"Sph. Centroid", {"LON", "LAT"}}, {"Number of Vertices", {"N"}}, {"Perimeter Length", {}}};
  EXPECT_THAT(
      Meanings(*layer, measures),
      ::testing::ElementsAre("A: Spherical Area in square metres*", "LON: Spherical Centroid X-Coordinate in degrees*",
                             "LAT: Spherical Centroid Y-Coordinate in degrees*",
                             "Sph_Len: Spheroidal Perimeter Length in metres*", "N: Number of Vertices in "));
}

TEST_F(MeaningsOfLayers, PlanarMeasuresOfAProjectionAreInItsUnit) {
  const auto layer = Add("feet.shp", wkbLineString, {{"LINESTRING (0 0,3 4)", "a", 1}}, 2231);
  EXPECT_THAT(
      Meanings(*layer, {{"Plan. Length", {}}, {"Projected Azimuth", {}}, {"Sph. Start Azimuth", {}}}),
      ::testing::ElementsAre("Plan_Len: Planimetric Length in US survey feet", "Prj_Az: Projected Azimuth in degrees",
                             "Start_Az: Spheroidal Start Azimuth in degrees*"));
}

// Captions stand for measures in lines for the terminal.
TEST_F(MeaningsOfLayers, ACaptionMeansTheMeasureThatBearsIt) {
  const auto polygons = Add("p.shp", wkbPolygon, {{kSquare, "a", 1}}, 32612);
  const auto lines = Add("l.shp", wkbLineString, {{"LINESTRING (0 0,3 4)", "a", 1}});
  for (const auto& layer : std::vector{polygons, lines}) {
    for (const OfferedMeasure& offered : OfferOf(*layer).measures) {
      const MeasureChoice choice = MeasuresCalled(*layer, {{offered.caption, {}}}, false);
      ASSERT_EQ(choice.options.size(), 1U) << offered.caption;
      EXPECT_EQ(choice.options.front().OptionId(), offered.option_id) << offered.caption;
    }
  }
}

}  // namespace
}  // namespace tessarine
