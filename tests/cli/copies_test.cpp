// SPDX-License-Identifier: GPL-2.0-or-later
// Copies that the calculator works on: whose records they hold, and what is kept of them in each format.
#include <gmock/gmock.h>

#include "cli/copied_data.h"

namespace tessarine::testing {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

// Lines, points and polygons, a record without a shape and one with an empty shape; lists; a line with heights.
constexpr const char* kMixed = R"({"type":"FeatureCollection","features":[
{"type":"Feature","id":7,"properties":{"k":1,"list":["a","b,c"]},"geometry":{"type":"Point","coordinates":[1,2]}},
{"type":"Feature","id":30,"properties":{"k":2,"list":["d"]},"geometry":{"type":"LineString","coordinates":[[0,0],[1,1]]}},
{"type":"Feature","id":9,"properties":{"k":3,"list":null},
 "geometry":{"type":"Polygon","coordinates":[[[0,0],[1,0],[1,1],[0,0]]]}},
{"type":"Feature","id":4,"properties":{"k":4,"list":["e","f"]},
 "geometry":{"type":"LineString","coordinates":[[0,0,5],[2,2,6]]}}]})";

constexpr const char* kHoles = R"({"type":"FeatureCollection","features":[
{"type":"Feature","properties":{"k":1},"geometry":{"type":"LineString","coordinates":[[0,0],[1,1]]}},
{"type":"Feature","properties":{"k":2},"geometry":null},
{"type":"Feature","properties":{"k":3},"geometry":{"type":"LineString","coordinates":[]}},
{"type":"Feature","properties":{"k":4},"geometry":{"type":"LineString","coordinates":[[0,0],[2,1]]}}]})";

TEST_F(Copies, AConditionBelongsToTheSource) {
  // Identifiers begin with 0 in a shapefile, with 1 in a geodatabase.
  for (const char* copy : {"w.shp", "w.gpkg", "w.gdb/w", "w.geojson", "w.fgb", "w.tab"}) {
    const ProgramOutcome run = Calculate(Data("countries.shp"), In(copy), {"--where", "FID = 2"});
    ASSERT_EQ(run.status, 0) << copy << run.err;
    const std::string file = In(std::string(copy).substr(0, std::string(copy).find("/")));
    auto measured = Values(file, "", "name", "Sph_Area");
    EXPECT_EQ(measured.size(), 177U) << copy;
    EXPECT_THAT(measured["W. Sahara"], ::testing::StartsWith("964857")) << copy;
    std::erase_if(measured, [](const auto& entry) { return entry.second == "null" || entry.second == "0"; });
    EXPECT_EQ(measured.size(), 1U) << copy;
  }
}

// Names that fall together in a format are kept apart, and none costs another field its values.
TEST_F(Copies, FieldsOfAnyNameKeepTheirValues) {
  const std::vector<std::string> names = {"a b", "a_b", "a-b",    "a.b",       "q\"q",     "1st", "a,b",   "a|b",
                                          "<x>", "&",   "gml_id", "line\nend", "geometry", "WKT", "select"};
  json properties;
  for (std::size_t index = 0; index < names.size(); ++index) properties[names[index]] = "v" + std::to_string(index);
  const json feature = {{"type", "Feature"},
                        {"properties", properties},
                        {"geometry", {{"type", "LineString"}, {"coordinates", {{0, 0}, {1, 1}}}}}};
  WriteFile(In("s.geojson"), json({{"type", "FeatureCollection"}, {"features", {feature}}}).dump());
  for (const char* copy : {"c.gpkg", "c.geojson", "c.gml", "c.csv", "c.kml", "c.gmt", "c.tab", "c.jml", "c.gdb/c",
                           "c.sqlite", "c.fgb", "c.shp", "c.kmz", "c.shz"}) {
    const ProgramOutcome run = Calculate(In("s.geojson"), In(copy));
    ASSERT_EQ(run.status, 0) << copy << run.err;
    const auto data = OpenData(In(std::string(copy).substr(0, std::string(copy).find('/'))));
    const OGRFeatureUniquePtr row(data->GetLayer(0)->GetNextFeature());
    std::set<std::string> values;
    for (int index = 0; index < row->GetFieldCount(); ++index) values.insert(row->GetFieldAsString(index));
    for (std::size_t index = 0; index < names.size(); ++index) {
      EXPECT_EQ(values.count("v" + std::to_string(index)), 1U) << copy << names[index];
    }
  }
}

TEST_F(Copies, ZippedShapefilesKeepLettersOfAllLanguages) {
  WriteFile(In("s.geojson"), R"({"type":"FeatureCollection","features":[{"type":"Feature",
"properties":{"k":"1","name":"Łódź Ω"},"geometry":{"type":"LineString","coordinates":[[0,0],[1,1]]}}]})");
  ASSERT_EQ(Calculate(In("s.geojson"), In("c.shz")).status, 0);
  EXPECT_EQ(Values(In("c.shz"), "", "k", "name")["1"], "Łódź Ω");
}

TEST_F(Copies, ARecordWithoutAShapeCostsNoOther) {
  WriteFile(In("h.geojson"), kHoles);
  ASSERT_EQ(Calculate(In("h.geojson"), In("h.gmt"), {"-r", In("r.json")}).status, 1);
  EXPECT_EQ(OpenData(In("h.gmt"))->GetLayer(0)->GetFeatureCount(), 2);
  EXPECT_EQ(Report()["faults"][0]["first_oids"].size(), 2U);
}

TEST_F(Copies, TheChosenRecordsAloneAreCopiedWhereThatIsAskedFor) {
  for (const char* copy : {"c.shp", "c.gpkg", "c.gdb/c", "c.geojson", "c.fgb", "c.csv"}) {
    const ProgramOutcome run =
        Calculate(Data("countries.shp"), In(copy),
                  {"--where", "continent = 'Oceania'", "--only-selected", "--report", In("r.json")});
    ASSERT_EQ(run.status, 0) << copy << run.err;
    const std::string file = In(std::string(copy).substr(0, std::string(copy).find("/")));
    const auto continents = Values(file, "", "name", "continent");
    EXPECT_EQ(continents.size(), 7U) << copy;
    for (const auto& [name, continent] : continents) EXPECT_EQ(continent, "Oceania") << name;
    EXPECT_EQ(Report()["records"]["written"], 7) << copy;
  }
  const ProgramOutcome unchosen = Calculate(Data("countries.shp"), In("u.shp"), {"--only-selected"});
  EXPECT_EQ(unchosen.status, 2);
  EXPECT_THAT(unchosen.err, HasSubstr("no record is selected"));
  EXPECT_EQ(RunTessarine({"calculate", Data("countries.shp"), "-m", "1", "--only-selected"}).status, 2);
}

TEST_F(Copies, TheSelectionAndTheFieldsOfADocumentAreThoseOfItsLayer) {
  WriteFile(In("map.json"), R"({"format":"tessarine map document","map":{"layers":[{"name":"lands","source":")" +
                                Data("countries.shp") +
                                R"(","selection":[3,5],"fields":{"name":{"visible":false}}}]}})");
  const ProgramOutcome run = Calculate("lands", In("d.gdb/d"), {"--document", In("map.json"), "--only-selected"});
  ASSERT_EQ(run.status, 0) << run.err;
  const auto names = Values(In("d.gdb"), "d", "name", "Sph_Area");
  EXPECT_EQ(names.size(), 2U) << "hidden fields are copied";
  EXPECT_TRUE(names.contains("Canada"));
  const json layers = json::parse(ReadFile(In("map.json")))["map"]["layers"];
  ASSERT_EQ(layers.size(), 1U) << "the copy isn't added";
  EXPECT_EQ(layers[0]["source"], Data("countries.shp"));
  EXPECT_EQ(layers[0]["selection"], json::parse("[3,5]"));
}

TEST_F(Copies, OneKindOfAMixedLayerIsCopiedWithItsLists) {
  WriteFile(In("mixed.geojson"), kMixed);
  for (const char* copy : {"l.shp", "l.gpkg", "l.gdb/l", "l.geojson", "l.fgb", "l.tab"}) {
    const ProgramOutcome run = Calculate(In("mixed.geojson") + ":mixed (lines)", In(copy));
    ASSERT_EQ(run.status, 0) << copy << run.err;
    const std::string file = In(std::string(copy).substr(0, std::string(copy).find("/")));
    const auto data = OpenData(file);
    ASSERT_TRUE(data) << copy;
    EXPECT_EQ(data->GetLayer(0)->GetFeatureCount(), 2) << copy;
    const auto lists = Values(file, "", "k", "list");
    const bool native = std::string(copy) == "l.geojson";
    EXPECT_THAT(lists.at("4"), HasSubstr(native ? "e,f" : "\"e\", \"f\"")) << copy;
    EXPECT_EQ(run.err.find("lists become texts") == std::string::npos, native) << copy;
  }
}

TEST_F(Copies, ShapesKeepTheirTypeAndTheirHeights) {
  WriteFile(In("mixed.geojson"), kMixed);
  for (const char* copy : {"z.gpkg", "z.fgb", "z.geojson"}) {
    ASSERT_EQ(Calculate(In("mixed.geojson") + ":mixed (lines)", In(copy)).status, 0) << copy;
    const auto data = OpenData(In(copy));
    EXPECT_EQ(wkbFlatten(data->GetLayer(0)->GetGeomType()), wkbLineString) << copy;
    double highest = 0.0;
    for (const auto& row : *data->GetLayer(0)) {
      OGREnvelope3D box;
      row->GetGeometryRef()->getEnvelope(&box);
      highest = std::max(highest, box.MaxZ);
    }
    EXPECT_EQ(highest, 6.0) << copy;
  }
}

// A GeoPackage whose layer has the shapes of these texts, each with its number from 1 in the field "k".
void WriteShapes(const std::string& path, OGRwkbGeometryType type, const std::vector<const char*>& shapes) {
  GDALAllRegister();
  const auto data = GDALDatasetUniquePtr(
      GetGDALDriverManager()->GetDriverByName("GPKG")->Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
  OGRLayer* layer = data->CreateLayer("shapes", nullptr, type, nullptr);
  OGRFieldDefn key("k", OFTInteger);
  ASSERT_EQ(layer->CreateField(&key), OGRERR_NONE);
  for (std::size_t index = 0; index < shapes.size(); ++index) {
    OGRFeature feature(layer->GetLayerDefn());
    feature.SetField(0, static_cast<int>(index) + 1);
    OGRGeometry* shape = nullptr;
    ASSERT_EQ(OGRGeometryFactory::createFromWkt(shapes[index], nullptr, &shape), OGRERR_NONE);
    feature.SetGeometryDirectly(shape);
    ASSERT_EQ(layer->CreateFeature(&feature), OGRERR_NONE);
  }
}

// The shapes of a file in ISO texts, by the field "k".
std::map<int, std::string> Shapes(const std::string& path) {
  std::map<int, std::string> shapes;
  OGRWktOptions iso;
  iso.variant = wkbVariantIso;
  const auto data = OpenData(path);
  if (data == nullptr) return shapes;
  for (const auto& row : *data->GetLayer(0)) {
    const OGRGeometry* shape = row->GetGeometryRef();
    shapes[row->GetFieldAsInteger("k")] = shape == nullptr ? "none" : shape->exportToWkt(iso);
  }
  return shapes;
}

TEST_F(Copies, HeightsAndMeasuresAreKeptOrTold) {
  WriteShapes(In("zm.gpkg"), wkbUnknown,
              {"LINESTRING(0 0,1 1)", "LINESTRING M(0 0 5,1 1 6)", "LINESTRING Z(0 0 7,1 1 8)"});
  struct Row {
    const char* copy;
    const char *flat, *measured, *high;
    const char* words;  // of the journal, or of standard error
  };
  const char* const flat = "LINESTRING (0 0,1 1)";
  const char* const filled = "got the height 0";
  for (const Row& row : {
           Row{"c.shp", "LINESTRING ZM (0 0 0 0,1 1 0 0)", "LINESTRING ZM (0 0 0 5,1 1 0 6)",
               "LINESTRING ZM (0 0 7 0,1 1 8 0)", filled},
           Row{"c.fgb", "LINESTRING ZM (0 0 0 0,1 1 0 0)", "LINESTRING ZM (0 0 0 5,1 1 0 6)",
               "LINESTRING ZM (0 0 7 0,1 1 8 0)", "got the measure 0"},
           Row{"c.gml", "LINESTRING Z (0 0 0,1 1 0)", "LINESTRING Z (0 0 0,1 1 0)", "LINESTRING Z (0 0 7,1 1 8)",
               filled},
           Row{"c.kml", "LINESTRING Z (0 0 0,1 1 0)", "LINESTRING Z (0 0 0,1 1 0)", "LINESTRING Z (0 0 7,1 1 8)",
               filled},
           Row{"c.tab", flat, flat, flat, "Heights (Z) of vertices are left out"},
           Row{"c.mif", flat, flat, flat, "Heights (Z) of vertices are left out"},
           Row{"c.geojson", flat, flat, "LINESTRING Z (0 0 7,1 1 8)", "Measures (M) of vertices are left out"},
           Row{"c.gpkg", flat, "LINESTRING M (0 0 5,1 1 6)", "LINESTRING Z (0 0 7,1 1 8)", ""},
       }) {
    const ProgramOutcome run = Calculate(In("zm.gpkg"), In(row.copy), {"--report", In("r.json")});
    ASSERT_EQ(run.status, 0) << row.copy << run.err;
    EXPECT_THAT(Shapes(In(row.copy)),
                ElementsAre(std::pair(1, row.flat), std::pair(2, row.measured), std::pair(3, row.high)))
        << row.copy;
    EXPECT_THAT(run.err + Report()["warnings"].dump(), HasSubstr(row.words)) << row.copy;
    EXPECT_THAT(Report()["warnings"].dump(), Not(HasSubstr("aren't kept"))) << row.copy;
    EXPECT_EQ(Report()["warnings"].empty() && run.err.empty(), *row.words == '\0') << row.copy;
  }
}

TEST_F(Copies, ColumnsOfTheFormatGiveWayToThoseOfTheUser) {
  WriteFile(In("own.geojson"), R"({"type":"FeatureCollection","features":[{"type":"Feature",
    "properties":{"k":1,"WKT":"a","GEOMETRY":"b","ogc_fid":71,"OBJECTID":72,"fid":73,"geom":"c","Shape":"d"},
    "geometry":{"type":"Polygon","coordinates":[[[0,0],[1,0],[1,1],[0,0]]]}}]})");
  const std::map<std::string, std::string> written = {{"WKT", "a"},       {"GEOMETRY", "b"}, {"ogc_fid", "71"},
                                                      {"OBJECTID", "72"}, {"fid", "73"},     {"geom", "c"},
                                                      {"Shape", "d"}};
  const std::map<std::string, std::string> renamed = {
      {"o.csvWKT", "WKT_"}, {"o.sqliteogc_fid", "ogc_fid_"}, {"o.gdb/oOBJECTID", "OBJECTID_"}};
  for (const std::string copy : {"o.gpkg", "o.sqlite", "o.gdb/o", "o.csv"}) {
    // The measure overwrites a field of the source, or makes a new one that bears a name of the format's own.
    for (const char* field : {"OBJECTID", "ogc_fid", "fid", ""}) {
      const std::string measure = *field == '\0' ? "1" : std::string("Number of Parts=") + field;
      const std::string file = In(copy.substr(0, copy.find("/")));
      fs::remove_all(file);
      const ProgramOutcome run =
          RunTessarine({"calculate", In("own.geojson"), "-m", measure, "-q", "-y", "-o", In(copy)});
      ASSERT_EQ(run.status, 0) << copy << field << run.err;
      for (const auto& [name, value] : written) {
        const auto other = renamed.find(copy + name);
        const std::string there = other == renamed.end() ? name : other->second;
        EXPECT_EQ(Values(file, "", "k", there.c_str())["1"], name == field ? "1" : value) << copy << field << name;
      }
      EXPECT_THAT(Shapes(file)[1], HasSubstr("POLYGON")) << copy;
    }
  }
  WriteShapes(In("bare.gpkg"), wkbPolygon, {"POLYGON((0 0,1 0,1 1,0 0))"});
  for (const auto& [copy, field, there] :
       {std::tuple("b.gpkg", "geom", "geom"), std::tuple("b.gpkg", "fid", "fid"),
        std::tuple("b.sqlite", "ogc_fid", "ogc_fid_"), std::tuple("b.sqlite", "GEOMETRY", "geometry"),
        std::tuple("b.gdb/b", "OBJECTID", "OBJECTID_"), std::tuple("b.gdb/b", "Shape", "Shape"),
        std::tuple("b.csv", "WKT", "WKT_")}) {
    const std::string name = copy;
    const std::string file = In(name.substr(0, name.find("/")));
    fs::remove_all(file);
    const ProgramOutcome run = RunTessarine(
        {"calculate", In("bare.gpkg"), "-m", std::string("Number of Parts=") + field, "-q", "-o", In(copy)});
    ASSERT_EQ(run.status, 0) << copy << field << run.err;
    EXPECT_EQ(Values(file, "", "k", there)["1"], "1") << copy << field;
  }
}

TEST_F(Copies, AFieldThatCanNotBeWrittenToIsRefused) {
  WriteShapes(In("bare.gpkg"), wkbPolygon, {"POLYGON((0 0,1 0,1 1,0 0))"});
  const std::string before = ReadFile(In("bare.gpkg"));
  for (const char* field : {"fid", "FID", "geom"}) {
    for (const char* more : {"--yes", "--dry-run"}) {
      const ProgramOutcome run =
          RunTessarine({"calculate", In("bare.gpkg"), "-m", std::string("Number of Parts=") + field, "-q", more});
      EXPECT_EQ(run.status, 2) << field << run.err;
      EXPECT_THAT(run.err, HasSubstr("can't be written to")) << field;
      EXPECT_EQ(ReadFile(In("bare.gpkg")), before) << field;
    }
  }
  const ProgramOutcome run =
      RunTessarine({"calculate", In("bare.gpkg"), "-m", "Number of Parts=FID", "-q", "-o", In("b.shp")});
  EXPECT_EQ(run.status, 2) << run.err;
  EXPECT_THAT(Left(), ElementsAre("bare.gpkg"));
}

TEST_F(Copies, BinaryColumnsAreCarriedOrTold) {
  {
    const auto data = GDALDatasetUniquePtr(
        GetGDALDriverManager()->GetDriverByName("GPKG")->Create(In("b.gpkg").c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    OGRLayer* layer = data->CreateLayer("b", nullptr, wkbPoint, nullptr);
    OGRFieldDefn key("k", OFTInteger), bytes("bytes", OFTBinary);
    ASSERT_EQ(layer->CreateField(&key), OGRERR_NONE);
    ASSERT_EQ(layer->CreateField(&bytes), OGRERR_NONE);
    OGRFeature feature(layer->GetLayerDefn());
    feature.SetField(0, 1);
    const unsigned char content[] = {0, 1, 255};
    feature.SetField(1, 3, content);
    feature.SetGeometryDirectly(new OGRPoint(1, 2));
    ASSERT_EQ(layer->CreateFeature(&feature), OGRERR_NONE);
  }
  for (const char* copy : {"copy.gpkg", "copy.gdb/copy", "copy.fgb"}) {
    const ProgramOutcome run = Calculate(In("b.gpkg"), In(copy));
    ASSERT_EQ(run.status, 0) << copy << run.err;
    const auto bytes = Values(In(std::string(copy).substr(0, std::string(copy).find("/"))), "", "k", "bytes");
    EXPECT_EQ(bytes.at("1"), "0001FF") << copy;
  }
  for (const char* copy : {"copy.shp", "copy.geojson"}) {
    const ProgramOutcome run = Calculate(In("b.gpkg"), In(copy));
    EXPECT_EQ(run.status, 0) << copy << run.err;
    EXPECT_THAT(run.err, HasSubstr("The field 'bytes' is left out")) << copy;
  }
}

TEST_F(Copies, RecordsWithoutShapeAreKeptOrTheRunSaysWhichAreNot) {
  WriteFile(In("holes.geojson"), kHoles);
  for (const char* copy : {"h.shp", "h.gpkg", "h.gdb/h", "h.geojson", "h.tab"}) {
    const ProgramOutcome run = Calculate(In("holes.geojson"), In(copy), {"--report", In("r.json")});
    ASSERT_EQ(run.status, 0) << copy << run.err;
    EXPECT_EQ(Values(In(std::string(copy).substr(0, std::string(copy).find("/"))), "", "k", "k").size(), 4U) << copy;
    EXPECT_EQ(Report()["records"]["written"], 4) << copy;
  }
  const ProgramOutcome run = Calculate(In("holes.geojson"), In("h.fgb"), {"--report", In("r.json")});
  EXPECT_EQ(run.status, 1) << "two records aren't in the copy";
  EXPECT_EQ(Values(In("h.fgb"), "", "k", "k").size(), 2U);
  EXPECT_EQ(Report()["records"]["written"], 2);
  EXPECT_EQ(Report()["records"]["unmeasured_oids"], json::parse("[1,2]"));
  EXPECT_THAT(Report()["report"].get<std::string>(), HasSubstr("keeps no record without a shape"));
}

TEST_F(Copies, NumbersAndNamesThatAFormatChangesAreToldBeforeAndAfter) {
  WriteFile(In("n.geojson"), R"({"type":"FeatureCollection","features":[{"type":"Feature",
    "properties":{"k":1,"whole_number":123456789012345678,"whole_numbers":5},
    "geometry":{"type":"Point","coordinates":[1,2]}}]})");
  ProgramOutcome run = Calculate(In("n.geojson"), In("n.gdb/select"), {"--report", In("r.json")});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.err, HasSubstr("whole numbers beyond 9,007,199,254,740,992"));
  EXPECT_EQ(Report()["changed"][0]["field"], "whole_number");
  EXPECT_EQ(Report()["changed"][0]["kind"], "out_of_range");
  EXPECT_EQ(Report()["changed_names"][0]["written"], "select_");
  EXPECT_EQ(Report()["output"], In("n.gdb/select_"));
  EXPECT_THAT(Layers(In("n.gdb")), ElementsAre("select_"));

  run = Calculate(In("n.geojson"), In("n.shp"), {"--report", In("r.json"), "--dry-run"});
  ASSERT_EQ(run.status, 0) << run.err;
  const json planned = Report()["changed_names"];
  EXPECT_EQ(planned.size(), 2U);
  EXPECT_THAT(Report()["report"].get<std::string>(), HasSubstr("'whole_number' is written as 'whole_numb'"));
  EXPECT_THAT(Left(), Not(Contains("n.shp")));
  run = Calculate(In("n.geojson"), In("n.shp"), {"--report", In("r.json")});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(Report()["changed_names"], planned);
  EXPECT_EQ(Values(In("n.shp"), "", "k", "whole_numb")["1"], "123456789012345678");
  EXPECT_EQ(Values(In("n.shp"), "", "k", planned[1]["written"].get<std::string>().c_str())["1"], "5");
}

TEST_F(Copies, APlanIsThatOfTheCopyAndRefusesWhatTheRunRefuses) {
  ASSERT_EQ(Calculate(Data("cities.shp"), In("taken.gpkg")).status, 0);
  fs::create_directories(In("folder.geojson/inside"));
  struct Row {
    const char* copy;
    const char* words;
  };
  for (const Row& row : {Row{"none/c.gpkg", "no folder"}, Row{"taken.gpkg", "exists already"},
                         Row{"c.xyz", "no format"}, Row{"c.dxf", "keeps no fields"}, Row{"c.xlsx", "keeps no shapes"},
                         Row{"folder.geojson", "is a folder"}, Row{"taken.gpkg/a/b", "names no layer"}}) {
    const std::vector<std::string> before = Left();
    const ProgramOutcome run = Calculate(Data("countries.shp"), In(row.copy));
    const ProgramOutcome plan = Calculate(Data("countries.shp"), In(row.copy), {"--dry-run"});
    EXPECT_EQ(run.status, 2) << row.copy << run.err;
    EXPECT_EQ(plan.status, 2) << row.copy;
    EXPECT_EQ(plan.err, run.err);
    EXPECT_THAT(plan.err, HasSubstr(row.words));
    EXPECT_EQ(Left(), before) << row.copy;
  }
  const ProgramOutcome plan =
      Calculate(Data("countries.shp"), In("taken.gpkg"), {"--dry-run", "--overwrite", "--report", In("r.json")});
  EXPECT_EQ(plan.status, 0) << plan.err;
  EXPECT_EQ(Report()["output"], In("taken.gpkg/taken"));
  EXPECT_EQ(Report()["plan"]["questions"].size(), 1U);
  EXPECT_THAT(Values(In("taken.gpkg"), "", "name", "Sph_Area"), Not(IsEmpty()));
}

// A shape that no format can keep costs its record the shape, and no other record anything.
TEST_F(Copies, AnInfiniteCoordinateCostsItsOwnShapeAlone) {
  WriteFile(In("i.json"), R"({"type": "FeatureCollection", "features": [
    {"type": "Feature", "properties": {"n": 1}, "geometry": {"type": "Polygon", "coordinates": [[[0,0],[0,1],[1,1],[0,0]]]}},
    {"type": "Feature", "properties": {"n": 2}, "geometry": {"type": "Polygon", "coordinates": [[[0,0],[0,1e400],[1,1],[0,0]]]}},
    {"type": "Feature", "properties": {"n": 3}, "geometry": {"type": "Polygon", "coordinates": [[[5,0],[5,1],[6,1],[5,0]]]}}]})");
  for (const char* output : {"o.shp", "o.gpkg", "o.geojson", "o.gdb/o", "o.fgb", "o.csv", "o.tab"}) {
    const ProgramOutcome run = RunTessarine(
        {"calculate", In("i.json"), "-m", "Number of Vertices=nv", "-o", In(output), "-q", "--report", In("r.json")});
    EXPECT_EQ(run.status, 1) << output << run.err;
    const nlohmann::json facts = nlohmann::json::parse(ReadFile(In("r.json")));
    EXPECT_EQ(facts.at("outcome"), "incomplete") << output;
    // A FlatGeobuf keeps no record without a shape.
    EXPECT_EQ(facts.at("records").at("written"), output == std::string("o.fgb") ? 2 : 3) << output;
    EXPECT_EQ(facts.at("records").at("unmeasured_oids").at(0), 1) << output;
  }
}

// A driver spaces JSON as it likes: the value is the same.
TEST_F(Copies, JsonIsComparedAsJson) {
  WriteFile(In("j.json"), R"({"type": "FeatureCollection", "features": [{"type": "Feature",
    "properties": {"n": 1, "js": {"a":[1,2],"b":{"c":null}}}, "geometry": {"type": "LineString", "coordinates": [[0,0],[1,1]]}}]})");
  ASSERT_EQ(RunTessarine({"calculate", In("j.json"), "-m", "Number of Parts=np", "-o", In("o.gpkg"), "-q"}).status, 0);
  {
    GDALAllRegister();
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(In("o.gpkg").c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
    const OGRFeatureUniquePtr row(dataset->GetLayer(0)->GetNextFeature());
    row->SetField("js", R"({"a":[1,2],"b":{"c":null}})");
    ASSERT_EQ(dataset->GetLayer(0)->SetFeature(row.get()), OGRERR_NONE);
  }
  for (const char* source : {"j.json", "o.gpkg"}) {
    const ProgramOutcome run = RunTessarine({"calculate", In(source), "-m", "Number of Vertices=nv", "-o",
                                             In("o.geojson"), "-q", "--overwrite", "--report", In("r.json")});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(nlohmann::json::parse(ReadFile(In("r.json"))).at("changed").size(), 0U) << source;
  }
}

// A table keeps names of plain letters, texts by their bytes, and no nulls: all of it is told or has room.
TEST_F(Copies, ATableTellsNamesAndNullsAndKeepsWideLetters) {
  WriteFile(In("a.json"), R"({"type": "FeatureCollection", "features": [
    {"type": "Feature", "properties": {"gr\u00f6\u00dfe": 5, "s": "\u20ac\u20ac\u20ac\u20ac\u20ac"},
     "geometry": {"type": "LineString", "coordinates": [[0,0],[1,1]]}},
    {"type": "Feature", "properties": {"gr\u00f6\u00dfe": null, "s": "x"},
     "geometry": {"type": "LineString", "coordinates": [[0,0],[1,1]]}}]})");
  const ProgramOutcome run = RunTessarine(
      {"calculate", In("a.json"), "-m", "Number of Parts=np", "-o", In("a.tab"), "-q", "--report", In("r.json")});
  ASSERT_EQ(run.status, 0) << run.err;
  const nlohmann::json facts = nlohmann::json::parse(ReadFile(In("r.json")));
  ASSERT_EQ(facts.at("changed").size(), 1U) << facts.at("changed");
  EXPECT_EQ(facts.at("changed").at(0).at("kind"), "null_filled");
  GDALAllRegister();
  const GDALDatasetUniquePtr table(GDALDataset::Open(In("a.tab").c_str(), GDAL_OF_VECTOR));
  const OGRFeatureUniquePtr row(table->GetLayer(0)->GetNextFeature());
  EXPECT_EQ(row->GetFieldAsString("s"), std::string("\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC"));
  EXPECT_EQ(row->GetFieldAsInteger(facts.at("changed_names").at(0).at("written").get<std::string>().c_str()), 5);
}

// Formats of text may write fewer digits than a number has.
TEST_F(Copies, NumbersWithFewerDigitsAreTold) {
  WriteFile(In("d.json"), R"({"type": "FeatureCollection", "features": [
    {"type": "Feature", "properties": {"d": 123456.78901234567}, "geometry": {"type": "LineString", "coordinates": [[0,0],[1,1]]}},
    {"type": "Feature", "properties": {"d": 0.5}, "geometry": {"type": "LineString", "coordinates": [[0,0],[1,1]]}}]})");
  for (const char* output : {"d.csv", "d.geojson"}) {
    const ProgramOutcome run = RunTessarine(
        {"calculate", In("d.json"), "-m", "Number of Parts=np", "-o", In(output), "-q", "--report", In("r.json")});
    ASSERT_EQ(run.status, 0) << run.err;
    const nlohmann::json facts = nlohmann::json::parse(ReadFile(In("r.json")));
    GDALAllRegister();
    const GDALDatasetUniquePtr copy(GDALDataset::Open(In(output).c_str(), GDAL_OF_VECTOR));
    const OGRFeatureUniquePtr row(copy->GetLayer(0)->GetNextFeature());
    const bool same = row->GetFieldAsDouble("d") == 123456.78901234567;
    ASSERT_EQ(facts.at("changed").size(), same ? 0U : 1U) << output << facts.at("changed");
    if (!same) {
      EXPECT_EQ(facts.at("changed").at(0).at("kind"), "rounded");
      EXPECT_EQ(facts.at("changed").at(0).at("count"), 1);
    }
    const ProgramOutcome plan =
        RunTessarine({"calculate", In("d.json"), "-m", "Number of Parts=np", "-o", In(output), "--overwrite", "-n"});
    ASSERT_EQ(plan.status, 0) << plan.err;
    EXPECT_EQ(plan.out.find("Numbers are rounded to 15 digits") == std::string::npos, same) << plan.out;
  }
}

}  // namespace
}  // namespace tessarine::testing
