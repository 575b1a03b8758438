// SPDX-License-Identifier: GPL-2.0-or-later
// What formats make of the reference that an output is to be in.
#include <gmock/gmock.h>

#include "cli/brought_runs.h"

namespace tessarine::testing {
namespace {

using ::testing::HasSubstr;

using KeptReferences = BroughtRuns;

// A zone of UTM has a code, and its drivers give it to kilometres and feet too.
TEST_F(KeptReferences, AUnitIsNoCode) {
  const std::string zone = "+proj=utm +zone=33 +datum=WGS84 +units=km";
  for (const std::string place : {"o.gpkg", "o.fgb"}) {
    ASSERT_EQ(Run({"centroids", "@countries.shp", "--where", "name = 'Italy'"}, In(place), zone).status, 0) << place;
    const auto data = OpenData(In(place));
    const OGRSpatialReference* reference = data->GetLayer(0)->GetSpatialRef();
    ASSERT_NE(reference, nullptr) << place;
    EXPECT_NEAR(reference->GetLinearUnits(), 1000.0, 1e-6) << place;
    OGREnvelope box;
    ASSERT_EQ(data->GetLayer(0)->GetExtent(&box), OGRERR_NONE);
    EXPECT_NEAR(box.MinY, 4740.0, 60.0) << place;
  }
}

// Most drivers drop a reference that their format has no words for.
TEST_F(KeptReferences, AReferenceThatAFormatHasNoWordsForIsTold) {
  MakeLayer("s.gpkg", {{"a", "POLYGON ((10 50,11 50,11 51,10 50))"}});
  MakeLayer("mars.gpkg", {{"a", "POLYGON ((10 50,11 50,11 51,10 50))"}}, "+proj=longlat +a=3396190 +b=3376200");
  const char *const left_out = "is left out: the format has no words for it", *const elsewhere = "isn't kept";
  const std::string kilometres = "+proj=utm +zone=33 +datum=WGS84 +units=km";
  const std::string shifted = "+proj=merc +towgs84=100,200,300 +ellps=bessel";
  const std::vector<std::vector<std::string>> tools = {{"split", "%s.gpkg"}, {"calculate", "%s.gpkg", "-m", "1"}};
  struct Row {
    const char* place;
    std::string reference;
    const char* told;  // "" for nothing
    bool split_alone = true;
  };
  const char* const named = "take its coordinates for longitudes";
  for (const Row& row :
       {Row{"o.geojson", kilometres, elsewhere, false}, Row{"o.gml", kilometres, left_out},
        Row{"o.jml", "ESRI:102003", left_out, false}, Row{"o.tab", "EPSG:2263", elsewhere},
        Row{"o.tab", "EPSG:3857", ""}, Row{"o.fgb", kilometres, ""}, Row{"o.geojson", "EPSG:3857", named, false},
        Row{"o.geojson", "EPSG:4326", ""}, Row{"o.gdb/o", shifted, elsewhere, false}, Row{"o.shp", shifted, ""},
        Row{"p.gml", "EPSG:2056", ""}, Row{"o.shp", "+proj=ob_tran +o_proj=longlat +o_lat_p=30 +lon_0=10", left_out}}) {
    const std::string file = In(std::string(row.place).substr(0, std::string(row.place).find('/')));
    for (const std::vector<std::string>& tool : tools) {
      if (row.split_alone && tool[0] != "split") continue;
      ASSERT_EQ(Run(tool, In(row.place), row.reference, {"-n", "-r", In("r.json"), "--overwrite"}).status, 0)
          << row.place;
      const std::string plan = Report()["report"];
      const ProgramOutcome run = Run(tool, In(row.place), row.reference, {"-r", In("r.json"), "--overwrite"});
      ASSERT_EQ(run.status, 0) << row.place << run.err;
      const std::string warnings = Report()["warnings"].dump();
      for (const char* sign : {left_out, elsewhere, named}) {
        const bool meant = sign == std::string(row.told);
        EXPECT_EQ(plan.find(sign) != std::string::npos, meant) << tool[0] << row.place << row.reference << plan;
        EXPECT_EQ(run.err.find(sign) != std::string::npos, meant) << tool[0] << row.place << row.reference << run.err;
        EXPECT_EQ(warnings.find(sign) != std::string::npos, meant && sign != named) << tool[0] << row.place << warnings;
      }
    }
    std::filesystem::remove_all(file);
  }
  // A body with a code goes by it, and without one it is told.
  ASSERT_EQ(Run({"split", "%mars.gpkg"}, In("mars.geojson"), "").status, 0);
  EXPECT_EQ(OpenData(In("mars.geojson"))->GetLayer(0)->GetSpatialRef()->GetSemiMajor(), 3396190.0);
  for (const char* source : {"%mars.gpkg", "%mars.geojson"}) {
    const ProgramOutcome run = Run({"split", source}, In("mars.gml"), "", {"--overwrite"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(run.err, HasSubstr(left_out));
  }
}

TEST_F(KeptReferences, ATextBesideAShapefileKeepsShiftAndAxes) {
  MakeLayer("s.gpkg", {{"a", "POINT (10 50)"}});
  for (const char* reference :
       {"+proj=merc +towgs84=100,200,300 +ellps=bessel", "+proj=laea +lat_0=52 +lon_0=10 +axis=wsu"}) {
    ASSERT_EQ(Run({"calculate", "%s.gpkg", "-m", "1"}, In("o.shp"), reference, {"--overwrite"}).status, 0);
    const auto data = OpenData(In("o.shp"));
    OGRSpatialReference wgs84;
    wgs84.importFromEPSG(4326);
    wgs84.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    const OGRFeatureUniquePtr row(data->GetLayer(0)->GetNextFeature());
    ASSERT_EQ(row->GetGeometryRef()->transformTo(&wgs84), OGRERR_NONE) << reference;
    EXPECT_NEAR(row->GetGeometryRef()->toPoint()->getX(), 10.0, 1e-6) << reference;
    EXPECT_NEAR(row->GetGeometryRef()->toPoint()->getY(), 50.0, 1e-6) << reference;
  }
}

// The driver's own bounds end at 8,500 km north, and its own steps are those of a whole projection.
TEST_F(KeptReferences, AMapInfoTableHasRoomForItsShapes) {
  MakeLayer("s.gpkg", {{"a", "POLYGON ((10.123456789 50,11 50,11 51,10.123456789 50))"}});
  for (const char* reference : {"EPSG:2393", "EPSG:4326", "+proj=utm +zone=33 +datum=WGS84 +units=km"}) {
    OGREnvelope boxes[2];
    int index = 0;
    for (const char* place : {"o.gpkg", "o.tab"}) {
      ASSERT_EQ(Run({"calculate", "%s.gpkg", "-m", "1"}, In(place), reference, {"--overwrite", "--yes"}).status, 0)
          << place << reference;
      ASSERT_EQ(OpenData(In(place))->GetLayer(0)->GetExtent(&boxes[index++]), OGRERR_NONE);
    }
    const double size = boxes[0].MaxX - boxes[0].MinX;
    EXPECT_NEAR(boxes[0].MinX, boxes[1].MinX, size * 1e-8) << reference;
    EXPECT_NEAR(boxes[0].MinY, boxes[1].MinY, size * 1e-8) << reference;
  }
}

// The steps of a geodatabase's grid are a tenth of a millimetre, whatever the unit is.
TEST_F(KeptReferences, AGeodatabaseInKilometresKeepsTheMillimetres) {
  MakeLayer("s.gpkg", {{"a", "POINT (12.3456789 50.1234567)"}});
  for (const char* unit : {"km", "m", "us-ft"}) {
    const std::string reference = "+proj=utm +zone=33 +datum=WGS84 +units=" + std::string(unit);
    OGRRawPoint places[2];
    int index = 0;
    for (const std::string place : {"o.gpkg", "o.gdb/o"}) {
      ASSERT_EQ(Run({"calculate", "%s.gpkg", "-m", "1"}, In(place), reference, {"--overwrite", "--yes"}).status, 0);
      const auto data = OpenData(In(place.substr(0, place.find('/'))));
      const OGRFeatureUniquePtr row(data->GetLayer(0)->GetNextFeature());
      const double metres = data->GetLayer(0)->GetSpatialRef()->GetLinearUnits();
      places[index++] = {row->GetGeometryRef()->toPoint()->getX() * metres,
                         row->GetGeometryRef()->toPoint()->getY() * metres};
    }
    EXPECT_NEAR(places[0].x, places[1].x, 1e-4) << unit;
    EXPECT_NEAR(places[0].y, places[1].y, 1e-4) << unit;
  }
}

}  // namespace
}  // namespace tessarine::testing
