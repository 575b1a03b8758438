// SPDX-License-Identifier: GPL-2.0-or-later
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <csignal>
#include <fstream>
#include <nlohmann/json.hpp>

#include "cli/program_run.h"

namespace tessarine::testing {
namespace {

using nlohmann::json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

GDALDatasetUniquePtr OpenData(const std::string& path) {
  GDALAllRegister();
  return GDALDatasetUniquePtr(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR));
}

class Calculate : public ProgramTest {
 protected:
  void CopyCountries() {
    for (const char* ending : {".shp", ".shx", ".dbf", ".prj", ".cpg"}) {
      std::filesystem::copy_file(Data("countries") + ending, In("countries") + ending);
    }
  }
  static double ValueOf(OGRLayer& layer, const char* country, const char* field) {
    layer.SetAttributeFilter(("name = '" + std::string(country) + "'").c_str());
    layer.ResetReading();
    const OGRFeatureUniquePtr row(layer.GetNextFeature());
    return row ? row->GetFieldAsDouble(field) : std::nan("");
  }
};

TEST_F(Calculate, WritesAttributesInPlaceAndNothingElse) {
  CopyCountries();
  const ProgramOutcome run = RunTessarine({"calculate", In("countries.shp"), "-m", "Spherical Area", "-m",
                                           "Sph. Centroid=LON,LAT", "-m", "4=PARTS", "--yes"});
  ASSERT_EQ(run.status, 0) << run.err;
  for (const char* words : {"Geometry Calculation Successful:", "  ** Calculated Geometry for All Features (n = 177)",
                            "       1] Spherical Area: Field Name = [Sph_Area]", "Field Name = [LON]",
                            "  ** Spheroid Semi-Major (Equatorial) Radius: 6378137 meters"}) {
    EXPECT_THAT(run.out, HasSubstr(words));
  }
  EXPECT_EQ(ReadFile(In("countries.shp")), ReadFile(Data("countries.shp")));
  EXPECT_EQ(ReadFile(In("countries.shx")), ReadFile(Data("countries.shx")));
  const auto before = OpenData(Data("countries.shp")), after = OpenData(In("countries.shp"));
  OGRLayer &old_layer = *before->GetLayer(0), &new_layer = *after->GetLayer(0);
  const int fields = old_layer.GetLayerDefn()->GetFieldCount();
  ASSERT_EQ(new_layer.GetLayerDefn()->GetFieldCount(), fields + 4);
  for (const auto& old_row : old_layer) {
    const OGRFeatureUniquePtr new_row(new_layer.GetFeature(old_row->GetFID()));
    for (int field = 0; field < fields; ++field) {
      EXPECT_STREQ(new_row->GetFieldAsString(field), old_row->GetFieldAsString(field));
    }
  }
  // Areas as published, in square kilometres; the map is generalized, so two percent are granted.
  EXPECT_NEAR(ValueOf(new_layer, "Brazil", "Sph_Area") / 1e6, 8'515'767, 8'515'767 * 0.02);
  EXPECT_NEAR(ValueOf(new_layer, "Australia", "Sph_Area") / 1e6, 7'692'024, 7'692'024 * 0.02);
  EXPECT_NEAR(ValueOf(new_layer, "Australia", "LON"), 134.5, 1.0);
  EXPECT_NEAR(ValueOf(new_layer, "Australia", "LAT"), -25.6, 1.0);
  EXPECT_EQ(ValueOf(new_layer, "Australia", "PARTS"), 2);
}

TEST_F(Calculate, APerimeterAlongThePoleIsTheSameBehindAnArea) {
  // The geodesics of PROJ over all edges of Antarctica; those from 180 to -180 degrees at the pole have no length.
  constexpr double kPerimeter = 29'831'193.096;
  const ProgramOutcome run =
      RunTessarine({"calculate", Data("countries.shp"), "-m", "1", "-m", "3", "-o", In("copy.gpkg"), "-q"});
  ASSERT_EQ(run.status, 0) << run.err;
  const auto copy = OpenData(In("copy.gpkg"));
  EXPECT_NEAR(ValueOf(*copy->GetLayer(0), "Antarctica", "Sph_Len"), kPerimeter, 0.01);
}

TEST_F(Calculate, WorksOnACopyInAnyFormat) {
  for (const char* name : {"copy.shp", "copy.gpkg", "copy.geojson", "copy.gdb/copy"}) {
    const ProgramOutcome run =
        RunTessarine({"calculate", Data("countries.shp"), "--all-measures", "-o", In(name), "--yes", "-q"});
    ASSERT_EQ(run.status, 0) << name << run.err;
    const std::filesystem::path path(In(name));
    const auto copy = OpenData(path.parent_path().extension() == ".gdb" ? path.parent_path().string() : path.string());
    ASSERT_TRUE(copy) << name;
    EXPECT_EQ(copy->GetLayer(0)->GetFeatureCount(), 177) << name;
    EXPECT_NEAR(ValueOf(*copy->GetLayer(0), "Brazil", "Sph_Area") / 1e6, 8'515'767, 8'515'767 * 0.02) << name;
  }
  EXPECT_EQ(RunTessarine({"calculate", Data("countries.shp"), "--all-measures", "-o", In("copy.gpkg"), "-q"}).status,
            2);
}

TEST_F(Calculate, RefusesWhatTheDialogDoesNotOffer) {
  CopyCountries();
  const std::string before = ReadFile(In("countries.dbf"));
  const auto refused = [&](const std::vector<std::string>& more, const std::string& words) {
    std::vector<std::string> arguments{"calculate", In("countries.shp")};
    arguments.insert(arguments.end(), more.begin(), more.end());
    const ProgramOutcome run = RunTessarine(arguments);
    EXPECT_EQ(run.status, 2) << run.out;
    EXPECT_THAT(run.err, HasSubstr(words));
  };
  refused({}, "Nothing to calculate");
  refused({"-m", "Volume"}, "It has: Sph. Area, Sph. Centroid");
  refused({"-m", "Sph. Centroid=LON"}, "2 fields");
  refused({"-m", "Sph. Area", "--spheroid", "Vulcan"}, "Vulcan");
  refused({"-m", "1=A", "-m", "Spherical Area=B"}, "named before");
  // As from shell variables that aren't set: without these options the run would write into the source.
  for (const char* option : {"-o", "--where", "--spheroid", "--radii"}) {
    refused({"-m", "Sph. Area", option, ""}, "there is nothing behind it");
  }
  EXPECT_EQ(ReadFile(In("countries.dbf")), before);
  EXPECT_EQ(RunTessarine({"calculate", In("countries.shp"), "--all-measures", "--dry-run", "--yes"}).status, 0);
  EXPECT_EQ(ReadFile(In("countries.dbf")), before);
}

TEST_F(Calculate, ARefusedRunLeavesWhatItWasToReplace) {
  for (const char* name : {"taken.shp", "taken.gpkg", "taken.gdb/taken"}) {
    const std::vector<std::string> before = Left();
    EXPECT_EQ(RunTessarine({"calculate", Data("cities.shp"), "-m", "Volume", "-o", In(name)}).status, 2);
    EXPECT_EQ(Left(), before) << "no emptied folder";
    const std::vector<std::string> run = {"calculate", Data("cities.shp"), "-m", "1", "-q", "-o", In(name)};
    ASSERT_EQ(RunTessarine(run).status, 0) << name;
    const std::filesystem::path path(In(name));
    const std::string file = path.parent_path().extension() == ".gdb" ? path.parent_path().string() : path.string();
    const std::vector<std::string> left = Left();
    EXPECT_EQ(RunTessarine({"calculate", Data("countries.shp"), "-m", "Volume", "-o", In(name), "--overwrite"}).status,
              2);
    EXPECT_EQ(Left(), left);
    EXPECT_EQ(OpenData(file)->GetLayer(0)->GetGeomType(), wkbPoint) << name;

    const ProgramOutcome replaced = RunTessarine(
        {"calculate", Data("countries.shp"), "-m", "1", "-o", In(name), "--overwrite", "-r", In("r.json")});
    EXPECT_EQ(replaced.status, 0) << replaced.err;
    EXPECT_THAT(replaced.out, HasSubstr("Input Feature Layer: taken\n"));
    EXPECT_EQ(json::parse(ReadFile(In("r.json")))["output"],
              path.extension() == ".gpkg" ? In("taken.gpkg/taken") : In(name));
    EXPECT_EQ(OpenData(file)->GetLayer(0)->GetFeatureCount(), 177) << name;
    std::filesystem::remove(In("r.json"));
    EXPECT_EQ(Left(), left);
  }
}

// A layer of lines: of two points, empty, closed, and of two points again.
void WriteLines(const std::string& path, const std::string& driver) {
  GDALAllRegister();
  GDALDatasetUniquePtr data(
      GetGDALDriverManager()->GetDriverByName(driver.c_str())->Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
  OGRSpatialReference reference;
  reference.SetFromUserInput("EPSG:4326");
  OGRLayer* layer = data->CreateLayer("lines", &reference, wkbLineString);
  OGRFieldDefn text("text", OFTString), number("number", OFTInteger);
  text.SetWidth(5);
  layer->CreateField(&text);
  layer->CreateField(&number);
  for (const char* wkt : {"LINESTRING (0 0,1 1)", "", "LINESTRING (0 0,1 1,0 0)", "LINESTRING (0 0,0 1)"}) {
    OGRFeature row(layer->GetLayerDefn());
    OGRGeometry* line = nullptr;
    if (*wkt != '\0') OGRGeometryFactory::createFromWkt(wkt, nullptr, &line);
    row.SetGeometryDirectly(line);
    row.SetField("number", 100000);
    ASSERT_EQ(layer->CreateFeature(&row), OGRERR_NONE);
  }
}

TEST_F(Calculate, ANumberTooLongForATextColumnIsRoundedAndTold) {
  WriteLines(In("lines.shp"), "ESRI Shapefile");
  const ProgramOutcome run = RunTessarine({"calculate", In("lines.shp"), "-m", "Start Azimuth=text", "--yes"});
  EXPECT_EQ(run.status, 0) << run.err;
  const auto data = OpenData(In("lines.shp"));
  std::vector<std::string> texts;
  for (const auto& row : *data->GetLayer(0)) {
    texts.emplace_back(row->GetFieldAsString("text"));
    EXPECT_EQ(row->GetFieldAsInteger("number"), 100000) << row->GetFID();
  }
  // "geod +ellps=WGS84 -I" from 0 0 to 1 1: 45.188040229359 degrees; the column holds five characters.
  EXPECT_THAT(texts, ElementsAre("45.19", "-9999", "-9999", "0"));
  EXPECT_THAT(run.out, HasSubstr("rounded to the digits that the field keeps"));
}

TEST_F(Calculate, WhatANarrowerFieldRoundsIsToldAndForetold) {
  GDALAllRegister();
  WriteLines(In("lines.shp"), "ESRI Shapefile");
  {
    const GDALDatasetUniquePtr data(GDALDataset::Open(In("lines.shp").c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
    OGRFieldDefn price("price", OFTReal);
    price.SetWidth(10);
    price.SetPrecision(2);
    data->GetLayer(0)->CreateField(&price);
  }
  const std::vector<std::string> measures{"-m", "Start Azimuth=price", "-m", "End Azimuth=number",
                                          "-m", "Spheroidal Length",   "-m", "Number of Parts"};
  const auto run = [&](const std::vector<std::string>& more) {
    std::vector<std::string> words{"calculate", In("lines.shp"), "--yes"};
    words.insert(words.end(), measures.begin(), measures.end());
    words.insert(words.end(), more.begin(), more.end());
    const ProgramOutcome outcome = RunTessarine(words);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    return outcome.out;
  };
  const std::string plan = run({"--dry-run"});
  EXPECT_THAT(plan, HasSubstr("In the field 'price', numbers are rounded to 2 decimals."));
  EXPECT_THAT(plan, HasSubstr("In the field 'number', numbers are rounded to whole ones."));
  const std::string report = run({});
  EXPECT_THAT(report, HasSubstr("price:  1 value rounded to the digits that the field keeps"));
  EXPECT_THAT(report, HasSubstr("number:  1 value rounded to the digits that the field keeps"));
  EXPECT_THAT(report, Not(HasSubstr("Sph_Len:"))) << "it is as wide as the program makes its fields";
  // Now the fields stand, and two more are as wide as before.
  EXPECT_THAT(run({"--dry-run"}), Not(HasSubstr("In the field 'Sph_Len'")));
}

TEST_F(Calculate, AValueNeverReplacesAShape) {
  WriteLines(In("lines.shp"), "ESRI Shapefile");
  WriteLines(In("lines.gpkg"), "GPKG");
  for (const char* name : {"lines.shp", "lines.gpkg"}) {
    const std::string field = std::string(name) == "lines.shp" ? "Shape" : "geom";
    const ProgramOutcome run = RunTessarine({"calculate", In(name), "-m", "Spheroidal Length=" + field, "--yes"});
    EXPECT_EQ(run.status, 2) << run.out;
    EXPECT_THAT(run.err, HasSubstr("holds the shapes"));
    const auto data = OpenData(In(name));
    int shapes = 0;
    for (const auto& row : *data->GetLayer(0)) shapes += row->GetGeometryRef() != nullptr ? 1 : 0;
    EXPECT_EQ(shapes, 3) << name;
  }
}

// 150,000 polygons of 20 vertices.
void WriteManyPolygons(const std::string& path) {
  GDALAllRegister();
  GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("ESRI Shapefile");
  GDALDatasetUniquePtr data(driver->Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
  OGRSpatialReference reference;
  reference.SetFromUserInput("EPSG:4326");
  OGRLayer* layer = data->CreateLayer("many", &reference, wkbPolygon);
  OGRFieldDefn number("number", OFTInteger), area("Sph_Area", OFTReal);
  area.SetWidth(16);
  area.SetPrecision(3);
  layer->CreateField(&number);
  layer->CreateField(&area);
  for (int index = 0; index < 150000; ++index) {
    OGRLinearRing ring;
    for (int vertex = 0; vertex < 20; ++vertex) {
      ring.addPoint(index % 300 - 150 + 0.4 * std::cos(-0.3 * vertex),
                    index % 130 - 65 + 0.4 * std::sin(-0.3 * vertex));
    }
    ring.closeRings();
    OGRPolygon polygon;
    polygon.addRing(&ring);
    OGRFeature feature(layer->GetLayerDefn());
    feature.SetField(0, index);
    feature.SetGeometry(&polygon);
    ASSERT_EQ(layer->CreateFeature(&feature), OGRERR_NONE);
  }
}

// Three squares; the second has a corner whose longitude is beyond all reckoning.
void WriteBadPolygon(const std::string& path) {
  std::ofstream(path) << R"({"type":"FeatureCollection","features":[)"
                      << R"({"type":"Feature","properties":{"n":1},"geometry":{"type":"Polygon","coordinates":)"
                      << "[[[10,40],[10,41],[11,41],[11,40],[10,40]]]}},"
                      << R"({"type":"Feature","properties":{"n":2},"geometry":{"type":"Polygon","coordinates":)"
                      << "[[[10,40],[10,41],[1e308,41],[11,40],[10,40]]]}},"
                      << R"({"type":"Feature","properties":{"n":3},"geometry":{"type":"Polygon","coordinates":)"
                      << "[[[10,40],[10,41],[11,41],[11,40],[10,40]]]}}]}";
}

TEST_F(Calculate, OneBadPolygonIsToldOnceAndCostsNoOther) {
  WriteBadPolygon(In("fields.geojson"));
  const ProgramOutcome run =
      RunTessarine({"calculate", In("fields.geojson"), "-m", "1", "-m", "4", "-o", In("copy.shp"), "--radii",
                    "6000000,6000000", "-q", "--report", In("r.json")});
  EXPECT_EQ(run.status, 1) << "a record was left unmeasured";
  std::size_t told = 0;
  for (std::size_t at = 0; (at = run.err.find("Record Call Stack Sequence", at)) != std::string::npos; ++at) ++told;
  EXPECT_EQ(told, 1U) << run.err;
  EXPECT_THAT(run.err, HasSubstr("CalcGeometryPolygon calculator/record_loops.cpp Line : "));
  const auto copy = OpenData(In("copy.shp"));
  std::vector<double> areas, parts;
  for (const auto& row : *copy->GetLayer(0)) {
    areas.push_back(row->GetFieldAsDouble("Sph_Area"));
    parts.push_back(row->GetFieldAsDouble("Parts"));
  }
  ASSERT_EQ(areas.size(), 3U);
  EXPECT_GT(areas[0], 7e9);
  EXPECT_EQ(areas[1], -9999);
  EXPECT_EQ(areas[2], areas[0]);
  EXPECT_THAT((std::vector<double>{parts[0], parts[2]}), ElementsAre(1, 1));

  const json report = json::parse(ReadFile(In("r.json")));
  EXPECT_EQ(report["outcome"], "incomplete");
  EXPECT_EQ(report["records"]["read"], 3);
  EXPECT_EQ(report["records"]["written"], 3);
  EXPECT_EQ(report["records"]["unmeasured"], 1);
  ASSERT_EQ(report["faults"].size(), 1U);
  EXPECT_EQ(report["faults"][0]["number"], 5);
  EXPECT_EQ(report["faults"][0]["count"], 1);
  EXPECT_EQ(report["faults"][0]["first_oids"], report["records"]["unmeasured_oids"]);
  EXPECT_THAT(report["faults"][0]["place"].get<std::string>(), HasSubstr("geodesy/"));
  EXPECT_TRUE(report["failure"].is_null());
  EXPECT_EQ(report["spatial_reference"]["spheroid"]["semi_major_axis"], 6000000.0) << "the one that was used";
}

TEST_F(Calculate, AnInterruptLeavesAllRowsAndSaysWhatHappened) {
  WriteManyPolygons(In("many.shp"));
  // The table grows by the new column before the first row is measured.
  const std::uintmax_t before = std::filesystem::file_size(In("many.dbf"));
  const ProgramOutcome run = RunAndInterrupt(
      {"calculate", In("many.shp"), "--all-measures", "--yes", "--report", In("r.json")}, In("many.dbf"), before);
  EXPECT_EQ(run.status, 1) << run.out << run.err;
  EXPECT_THAT(run.out, HasSubstr("remature"));
  const auto data = OpenData(In("many.shp"));
  ASSERT_TRUE(data);
  EXPECT_EQ(data->GetLayer(0)->GetFeatureCount(), 150000);
  EXPECT_EQ(json::parse(ReadFile(In("r.json")))["outcome"], "stopped");
}

TEST_F(Calculate, AKilledRunLeavesAFileWithAllRows) {
  WriteManyPolygons(In("many.shp"));
  const std::uintmax_t before = std::filesystem::file_size(In("many.dbf"));
  (void)RunAndInterrupt({"calculate", In("many.shp"), "--all-measures", "--yes"}, In("many.dbf"), before, SIGKILL);
  const auto data = OpenData(In("many.shp"));
  ASSERT_TRUE(data);
  OGRLayer& layer = *data->GetLayer(0);
  EXPECT_EQ(layer.GetFeatureCount(), 150000);
  int row = 0;
  for (const auto& feature : layer) {
    ASSERT_EQ(feature->GetFieldAsInteger("number"), row++);
    ASSERT_NE(feature->GetGeometryRef(), nullptr);
  }
  EXPECT_EQ(row, 150000);
}

// Geodesics bow: the sides of a narrow ring may pass each other, so that it runs the other way round on the globe.
// Areas by GeographicLib's Planimeter.
TEST_F(Calculate, ASpheroidalAreaIsNeverBelowZero) {
  WriteFile(In("narrow.geojson"), R"({"type":"FeatureCollection","features":[
    {"type":"Feature","properties":{"n":1},"geometry":{"type":"Polygon","coordinates":[[[0,50],[0.5,50.001],[1,50],[0,50]]]}},
    {"type":"Feature","properties":{"n":2},"geometry":{"type":"Polygon","coordinates":
      [[[-130,30],[-90,30],[-90,60],[-130,60],[-130,30]],[[-122,49],[-95,49],[-110,49.01],[-122,49]]]}}]})");
  ASSERT_EQ(RunTessarine({"calculate", In("narrow.geojson"), "-m", "Spheroidal Area=spd", "-m", "Sph. Area=sph", "-q",
                          "-o", In("o.gpkg"), "-r", In("r.json")})
                .status,
            0);
  GDALAllRegister();
  const GDALDatasetUniquePtr data(GDALDataset::Open(In("o.gpkg").c_str(), GDAL_OF_VECTOR));
  std::vector<double> areas;
  for (const auto& row : *data->GetLayer(0)) areas.push_back(row->GetFieldAsDouble("spd"));
  ASSERT_EQ(areas.size(), 2U);
  EXPECT_NEAR(areas[0], 308059.5, 0.1);
  EXPECT_NEAR(areas[1], 10194591868153.8 - 84935344956.7, 1.0);
  EXPECT_THAT(ReadFile(In("r.json")), HasSubstr("spherical area of a polygon isn't above 0"));
}

}  // namespace
}  // namespace tessarine::testing
