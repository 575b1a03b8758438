// SPDX-License-Identifier: GPL-2.0-or-later
// Sources with records and values that can't be read as they are: each is told, and costs no other.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <limits>
#include <nlohmann/json.hpp>

#include "cli/program_run.h"

namespace tessarine::testing {
namespace {

using nlohmann::json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr const char* kSquare = "POLYGON ((0 0,0 1,1 1,1 0,0 0))";

class HardSources : public ProgramTest {
 protected:
  // A layer in degrees with a date and a text; each record has its number as the text, and no shape for "".
  static void Make(const char* driver, const std::string& file, OGRwkbGeometryType type,
                   const std::vector<std::string>& shapes, const std::vector<std::string>& dates = {}) {
    GDALAllRegister();
    const GDALDatasetUniquePtr data(
        GetGDALDriverManager()->GetDriverByName(driver)->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    ASSERT_TRUE(data) << file;
    OGRSpatialReference reference;
    reference.SetWellKnownGeogCS("WGS84");
    OGRLayer* layer = data->CreateLayer("layer", &reference, type, nullptr);
    OGRFieldDefn day("day", OFTDate), name("name", OFTString);
    ASSERT_EQ(layer->CreateField(&day), OGRERR_NONE);
    ASSERT_EQ(layer->CreateField(&name), OGRERR_NONE);
    for (std::size_t index = 0; index < shapes.size(); ++index) {
      OGRFeature row(layer->GetLayerDefn());
      OGRGeometry* shape = nullptr;
      if (!shapes[index].empty()) OGRGeometryFactory::createFromWkt(shapes[index].c_str(), nullptr, &shape);
      row.SetGeometryDirectly(shape);
      if (index < dates.size()) row.SetField("day", dates[index].c_str());
      row.SetField("name", std::to_string(index).c_str());
      ASSERT_EQ(layer->CreateFeature(&row), OGRERR_NONE);
    }
  }

  // Writes other bytes of the same number over the first place that has `old`.
  static void Patch(const std::string& file, const std::string& old, const std::string& bytes) {
    std::string content = ReadFile(file);
    const std::size_t at = content.find(old);
    ASSERT_NE(at, std::string::npos) << file;
    WriteFile(file, content.replace(at, old.size(), bytes));
  }

  static std::vector<std::string> Column(const std::string& file, const char* field) {
    GDALAllRegister();
    const GDALDatasetUniquePtr data(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
    std::vector<std::string> values;
    if (!data) return values;
    for (const auto& row : *data->GetLayer(0)) {
      const int index = row->GetFieldIndex(field);
      values.emplace_back(row->IsFieldSetAndNotNull(index) == 0 ? "null" : row->GetFieldAsString(index));
    }
    return values;
  }

  static std::vector<int> Oids(const json& records, const char* key) {
    return records["records"][key].get<std::vector<int>>();
  }
};

TEST_F(HardSources, DatesOfNoCalendarBecomeNullAndAreCounted) {
  Make("ESRI Shapefile", In("a.shp"), wkbPolygon, {kSquare, kSquare, kSquare, kSquare},
       {"2020/01/01", "2020/01/02", "2020/01/03", "2024/02/29"});
  Patch(In("a.dbf"), "20200101", "20261399");
  Patch(In("a.dbf"), "20200102", "20230231");
  Patch(In("a.dbf"), "20200103", "00000000");
  const std::vector<std::string> days{"null", "null", "null", "2024/02/29"};
  const std::vector<std::vector<std::string>> commands{{"split", "-a", "-o", In("s.shp")},
                                                       {"wrap", "--range", "360", "-o", In("w.shp")},
                                                       {"calculate", "-m", "Sph. Area", "-o", In("c.gpkg")},
                                                       {"calculate", "-m", "Sph. Area", "-o", In("c.shp")}};
  for (std::vector<std::string> command : commands) {
    const std::string output = command.back();
    command.insert(command.begin() + 1, In("a.shp"));
    command.insert(command.end(), {"-r", In("r.json")});
    const ProgramOutcome run = RunTessarine(command);
    ASSERT_EQ(run.status, 0) << run.out << run.err;
    EXPECT_EQ(Column(output, "day"), days) << output;
    const json changed = json::parse(ReadFile(In("r.json")))["changed"];
    ASSERT_EQ(changed.size(), 1U) << output << changed;
    EXPECT_EQ(changed[0]["field"], "day");
    EXPECT_EQ(changed[0]["kind"], "unreadable");
    EXPECT_EQ(changed[0]["count"], 2) << output;
    std::filesystem::remove(In("r.json"));
  }
}

// The shape of the second record lies beyond the end of the .shp, by its index.
TEST_F(HardSources, AShapeThatCantBeReadIsAFaultOfItsRecord) {
  Make("ESRI Shapefile", In("a.shp"), wkbPolygon, {kSquare, kSquare, kSquare});
  std::string index = ReadFile(In("a.shx"));
  index.replace(100 + 8, 4, std::string("\x05\xF5\xE1\x00", 4));
  WriteFile(In("a.shx"), index);
  const std::vector<std::vector<std::string>> commands{{"wrap", "--range", "360", "-o", In("w.shp")},
                                                       {"vertices", "-o", In("v.shp")},
                                                       {"calculate", "-m", "Sph. Area", "-o", In("c.gpkg")},
                                                       {"calculate", "-m", "Sph. Area"}};
  for (std::vector<std::string> command : commands) {
    command.insert(command.begin() + 1, In("a.shp"));
    command.insert(command.end(), {"-r", In("r.json")});
    const ProgramOutcome run = RunTessarine(command);
    EXPECT_EQ(run.status, 1) << command[0] << run.out << run.err;
    EXPECT_THAT(run.out, HasSubstr("a.shp' can't be read (GDAL says:")) << command[0];
    const json report = json::parse(ReadFile(In("r.json")));
    EXPECT_EQ(report["outcome"], "incomplete") << command[0];
    EXPECT_EQ(report["records"]["read"], 3) << command[0];
    EXPECT_THAT(Oids(report, "unmeasured_oids"), ElementsAre(1)) << command[0] << command.back();
    std::filesystem::remove(In("r.json"));
  }
}

TEST_F(HardSources, WarningsOfChangedValuesAreTold) {
  WriteFile(In("big.geojson"),
            R"({"type":"FeatureCollection","features":[{"type":"Feature","properties":{"a":123456789012345678901234},)"
            R"("geometry":{"type":"Polygon","coordinates":[[[0,0],[0,1],[1,1],[0,0]]]}}]})");
  Make("GPKG", In("day.gpkg"), wkbPolygon, {kSquare, kSquare}, {"2020/01/01", "2020/01/02"});
  {
    const GDALDatasetUniquePtr data(GDALDataset::Open(In("day.gpkg").c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
    data->ReleaseResultSet(data->ExecuteSQL("UPDATE layer SET day = 'rubbish' WHERE fid = 2", nullptr, nullptr));
  }
  struct Row {
    const char* file;
    const char* said;
  };
  for (const Row& row :
       {Row{"big.geojson", "clamped to INT64_MIN/INT64_MAX"}, Row{"day.gpkg", "in column day: rubbish"}}) {
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"split", In(row.file), "-a", "-o", In("s.shp")},
          {"wrap", In(row.file), "--range", "360", "-o", In("w.shp")},
          {"calculate", In(row.file), "-m", "Sph. Area", "-o", In("c.gpkg")}}) {
      std::vector<std::string> arguments = command;
      arguments.insert(arguments.end(), {"--overwrite", "-r", In("r.json")});
      const ProgramOutcome run = RunTessarine(arguments);
      EXPECT_EQ(run.status, 0) << run.out << run.err;
      EXPECT_THAT(run.out, HasSubstr(row.said)) << row.file << command[0];
      const json warnings = json::parse(ReadFile(In("r.json")))["warnings"];
      ASSERT_EQ(warnings.size(), 1U) << row.file << command[0] << warnings;
      EXPECT_THAT(warnings[0]["text"].get<std::string>(), HasSubstr(row.said));
    }
  }
}

TEST_F(HardSources, RecordsWithoutAShapeAreSkippedOfLayersThatMixKinds) {
  Make("GPKG", In("n.gpkg"), wkbUnknown, {"LINESTRING (0 0,1 1)", "POINT (1 2)", "", "LINESTRING EMPTY"});
  const ProgramOutcome info = RunTessarine({"info", In("n.gpkg")});
  EXPECT_THAT(info.out, HasSubstr("Records:     2"));
  EXPECT_THAT(info.out, HasSubstr("1 more without a shape, in a layer that mixes kinds of them (OID 3)"));
  const ProgramOutcome run =
      RunTessarine({"split", In("n.gpkg"), "-l", "layer (lines)", "-o", In("s.shp"), "-r", In("s.json")});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, HasSubstr("A record without a shape belongs to no kind"));
  EXPECT_THAT(Oids(json::parse(ReadFile(In("s.json"))), "skipped_oids"), ::testing::UnorderedElementsAre(3, 4));
}

TEST_F(HardSources, WrapCountsRecordsWithoutAShapeAsSkipped) {
  Make("GPKG", In("n.gpkg"), wkbPolygon, {kSquare, "", kSquare, "POLYGON EMPTY"});
  const ProgramOutcome run =
      RunTessarine({"wrap", In("n.gpkg"), "--range", "360", "-o", In("w.shp"), "-r", In("w.json")});
  EXPECT_EQ(run.status, 0) << run.err;
  const json report = json::parse(ReadFile(In("w.json")));
  EXPECT_EQ(report["records"]["written"], 4);
  EXPECT_THAT(Oids(report, "skipped_oids"), ElementsAre(2, 4));
  EXPECT_THAT(Column(In("w.shp"), "name"), ElementsAre("0", "1", "2", "3"));
}

TEST_F(HardSources, WhatNoOutputTakesOverIsForetoldAndTold) {
  GDALAllRegister();
  {
    const GDALDatasetUniquePtr data(
        GetGDALDriverManager()->GetDriverByName("GPKG")->Create(In("z.gpkg").c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    OGRSpatialReference reference;
    reference.SetWellKnownGeogCS("WGS84");
    OGRLayer* layer = data->CreateLayer("hills", &reference, wkbLineStringZM, nullptr);
    OGRFieldDefn photo("photo", OFTBinary), name("name", OFTString);
    ASSERT_EQ(layer->CreateField(&photo), OGRERR_NONE);
    ASSERT_EQ(layer->CreateField(&name), OGRERR_NONE);
    OGRFeature row(layer->GetLayerDefn());
    OGRGeometry* line = nullptr;
    OGRGeometryFactory::createFromWkt("LINESTRING ZM (0 0 5 1,1 1 6 2)", nullptr, &line);
    row.SetGeometryDirectly(line);
    row.SetField("name", "a");
    ASSERT_EQ(layer->CreateFeature(&row), OGRERR_NONE);
  }
  const std::string flat =
      "The heights (Z) and measures (M) of the shapes of 'hills' are left out: the output is flat.";
  const std::string binary = "The field 'photo' of 'hills' is left out: binary values are not carried over.";
  struct Row {
    std::vector<std::string> command;
    bool all_fields;
  };
  for (const Row& row : {Row{{"wrap", In("z.gpkg"), "--range", "360", "-o", In("w.shp")}, true},
                         Row{{"split", In("z.gpkg"), "-a", "-o", In("s.shp")}, true},
                         Row{{"vertices", In("z.gpkg"), "-o", In("v.shp")}, false}}) {
    std::vector<std::string> arguments = row.command;
    arguments.emplace_back("--dry-run");
    const ProgramOutcome plan = RunTessarine(arguments);
    EXPECT_THAT(plan.out, HasSubstr("Foretold:\n  ** " + flat + (row.all_fields ? "\n  ** " + binary : "")));
    arguments.back() = "--report";
    arguments.push_back(In("r.json"));
    arguments.emplace_back("--overwrite");
    const ProgramOutcome run = RunTessarine(arguments);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, "tessarine: " + flat + "\n" + (row.all_fields ? "tessarine: " + binary + "\n" : ""));
    EXPECT_THAT(run.out, HasSubstr(flat)) << row.command[0];
    std::vector<std::string> warnings;
    const json report = json::parse(ReadFile(In("r.json")));
    for (const json& warning : report["warnings"]) {
      warnings.push_back(warning["text"]);
    }
    EXPECT_EQ(warnings, row.all_fields ? (std::vector<std::string>{flat, binary}) : std::vector<std::string>{flat});
  }
}

TEST_F(HardSources, AnInfiniteCoordinateCostsNoOtherRecord) {
  Make("GPKG", In("i.gpkg"), wkbLineString, {"LINESTRING (0 0,1 1)", "LINESTRING (0 0,5 3)", "LINESTRING (0 0,2 2)"});
  {
    const GDALDatasetUniquePtr data(GDALDataset::Open(In("i.gpkg").c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
    OGRFeatureUniquePtr row(data->GetLayer(0)->GetFeature(2));
    row->GetGeometryRef()->toLineString()->setPoint(1, std::numeric_limits<double>::infinity(), 3);
    ASSERT_EQ(data->GetLayer(0)->SetFeature(row.get()), OGRERR_NONE);
    // The driver can't keep the extent of such a layer, and says so.
    const CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    data->FlushCache();
  }
  for (const char* output : {"w.shp", "w.gdb/w"}) {
    const ProgramOutcome run =
        RunTessarine({"wrap", In("i.gpkg"), "--range", "360", "-o", In(output), "-r", In("w.json"), "--overwrite"});
    EXPECT_EQ(run.status, 1) << output;
    const json report = json::parse(ReadFile(In("w.json")));
    EXPECT_EQ(report["outcome"], "incomplete") << output;
    EXPECT_EQ(report["records"]["written"], 3) << output;
    EXPECT_THAT(Oids(report, "unmeasured_oids"), ElementsAre(2)) << output;
    EXPECT_THAT(Column(std::string(output) == "w.shp" ? In("w.shp") : In("w.gdb"), "name"), ElementsAre("0", "1", "2"));
  }
  for (const char* tool : {"vertices", "to-polygons", "combine", "build-polygons"}) {
    const ProgramOutcome run = RunTessarine({tool, In("i.gpkg"), "-o", In("c.shp"), "-r", In("c.json"), "--overwrite"});
    EXPECT_EQ(run.status, 1) << tool << run.out << run.err;
    EXPECT_THAT(Oids(json::parse(ReadFile(In("c.json"))), "unmeasured_oids"), ElementsAre(2)) << tool;
  }
}

TEST_F(HardSources, ListsBecomeTextsThatTellThemApartAndThePlanAndTheRunTellOfIt) {
  WriteFile(In("l.json"), R"({"type": "FeatureCollection", "features": [
    {"type": "Feature", "properties": {"tags": ["a", "b,c"], "n": 1}, "geometry": {"type": "LineString", "coordinates": [[0,0],[1,1]]}}]})");
  const std::string told = "The lists in the field 'tags' of 'l' are written as texts of JSON.";
  const ProgramOutcome plan =
      RunTessarine({"to-polygons", In("l.json"), "--all-fields", "-o", In("l.shp"), "--dry-run"});
  EXPECT_THAT(plan.out, HasSubstr(told));
  for (const char* output : {"l.shp", "l.gpkg", "l.csv"}) {
    const ProgramOutcome run =
        RunTessarine({"vertices", In("l.json"), "--all-fields", "-o", In(output), "-r", In("l.r.json")});
    EXPECT_EQ(run.status, 0) << run.err;
    const json report = json::parse(ReadFile(In("l.r.json")));
    ASSERT_EQ(report["warnings"].size(), 1U) << output << report["warnings"];
    EXPECT_EQ(report["warnings"][0]["text"], told) << output;
    const std::string text = "[ \"a\", \"b,c\" ]";
    EXPECT_THAT(Column(In(output), "tags"), ElementsAre(text, text)) << output;
  }
}

TEST_F(HardSources, FormatsThatAreOnlyWrittenAsAWholeAreRefusedInPlaceBeforeTheRun) {
  Make("FlatGeobuf", In("a.fgb"), wkbPolygon, {kSquare});
  const std::string before = ReadFile(In("a.fgb"));
  for (const char* last : {"-q", "--dry-run"}) {
    const ProgramOutcome run = RunTessarine({"calculate", In("a.fgb"), "-m", "Sph. Area", last});
    EXPECT_EQ(run.status, 2) << run.out;
    EXPECT_THAT(run.err, HasSubstr("Work on a copy: -o COPY."));
    EXPECT_EQ(run.out, "");
  }
  EXPECT_EQ(ReadFile(In("a.fgb")), before);
}

TEST_F(HardSources, ALayerOfTheWrongKindIsNamedAsItWasAskedFor) {
  Make("GPKG", In("n.gpkg"), wkbUnknown, {"LINESTRING (0 0,1 1)", "POINT (1 2)"});
  const ProgramOutcome points = RunTessarine({"vertices", In("n.gpkg"), "-l", "layer (points)", "-o", In("p.shp")});
  EXPECT_EQ(points.status, 2);
  EXPECT_THAT(points.err, HasSubstr("The layer 'layer (points)' is of the wrong kind"));
}

TEST_F(HardSources, AreSpelledAsOutputsAreAndMayHaveColons) {
  ASSERT_EQ(RunTessarine({"vertices", Data("cities.shp"), "-o", In("c.gdb/shapes/towns")}).status, 2);
  ASSERT_EQ(RunTessarine({"vertices", Data("countries.shp"), "-o", In("c.gdb/shapes/corners"), "-q"}).status, 0);
  for (const char* spelling : {"c.gdb/corners", "c.gdb/shapes/corners", "c.gdb:corners"}) {
    const ProgramOutcome info = RunTessarine({"info", In(spelling)});
    EXPECT_EQ(info.status, 0) << spelling << info.err;
    EXPECT_THAT(info.out, HasSubstr("Records:     10643")) << spelling;
  }
  const ProgramOutcome missing = RunTessarine({"info", In("c.gdb/lakes")});
  EXPECT_EQ(missing.status, 2);
  EXPECT_THAT(missing.err, HasSubstr("has no layer 'lakes'"));

  GDALAllRegister();
  {
    const GDALDatasetUniquePtr data(
        GetGDALDriverManager()->GetDriverByName("GPKG")->Create(In("x.gpkg").c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    ASSERT_NE(data->CreateLayer("a:b", nullptr, wkbPoint, nullptr), nullptr);
    ASSERT_NE(data->CreateLayer("b", nullptr, wkbPoint, nullptr), nullptr);
  }
  EXPECT_THAT(RunTessarine({"info", In("x.gpkg:a:b")}).out, HasSubstr("Layer: a:b"));
}

}  // namespace
}  // namespace tessarine::testing
