// SPDX-License-Identifier: GPL-2.0-or-later
// Copies of the calculator that stand beside other data: what may be replaced, and what stands at their place when a
// run ends in another way.
#include <gmock/gmock.h>

#include "cli/copied_data.h"

namespace tessarine::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST_F(Copies, OtherLayersOfAContainerStay) {
  for (const std::string file : {"town.gpkg", "town.gdb"}) {
    ASSERT_EQ(Calculate(Data("cities.shp"), In(file + "/kept")).status, 0);
    ASSERT_EQ(Calculate(Data("cities.shp"), In(file + "/town")).status, 0);
    const auto before = Values(In(file), "kept", "name", "X_Coord");
    EXPECT_EQ(Calculate(Data("countries.shp"), In(file)).status, 2) << "exists already";
    const ProgramOutcome run = Calculate(Data("countries.shp"), In(file), {"--overwrite"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(Layers(In(file)), ElementsAre("kept", "town"));
    EXPECT_EQ(Values(In(file), "kept", "name", "X_Coord"), before);
    EXPECT_EQ(Values(In(file), "town", "name", "Sph_Area").size(), 177U);
  }
  EXPECT_THAT(Left(), ElementsAre("town.gdb", "town.gpkg"));
}

TEST_F(Copies, NothingThatIsReadIsReplaced) {
  for (const char* ending : {".shp", ".shx", ".dbf", ".prj"}) {
    fs::copy_file(Data(std::string("countries") + ending), In(std::string("lands") + ending));
  }
  ASSERT_EQ(Calculate(In("lands.shp"), In("x.gpkg:lands")).status, 0);
  fs::create_symlink(In("lands.shp"), In("link.shp"));
  const std::string before = ReadFile(In("lands.dbf")), package = ReadFile(In("x.gpkg"));
  struct Row {
    std::string source, copy;
  };
  for (const Row& row : {Row{In("lands.shp"), In("lands.shp")}, Row{In("link.shp"), In("lands.shp")},
                         Row{In("lands.dbf"), In("lands.shp")}, Row{In("x.gpkg"), In("x.gpkg:lands")},
                         Row{In("x.gpkg"), In("x.gpkg/LANDS")}}) {
    const ProgramOutcome run = Calculate(row.source, row.copy, {"--overwrite", "--yes"});
    EXPECT_EQ(run.status, 2) << row.source << " to " << row.copy;
    EXPECT_EQ(ReadFile(In("lands.dbf")), before);
    EXPECT_EQ(ReadFile(In("x.gpkg")), package);
  }
  EXPECT_EQ(Calculate(In("x.gpkg"), In("x.gpkg:measured"), {"--yes"}).status, 0);
  EXPECT_THAT(Layers(In("x.gpkg")), ElementsAre("lands", "measured"));
}

TEST_F(Copies, TheMapDocumentIsNoPlaceForAnOutput) {
  for (const char* document : {"map.json", "map.shp", "map.gpkg"}) {
    fs::copy_file(Data("graphics.json"), In(document));
    const std::string before = ReadFile(In(document));
    fs::create_symlink(In(document), In("link.json"));
    for (const char* more : {"--dry-run", "--yes"}) {
      const ProgramOutcome run =
          Calculate(Data("countries.shp"), In(document), {"-d", In("link.json"), "--overwrite", more});
      EXPECT_EQ(run.status, 2) << document << run.err;
      EXPECT_THAT(run.err, HasSubstr("map document")) << document;
      EXPECT_EQ(ReadFile(In(document)), before) << document;
    }
    fs::remove(In("link.json"));
  }
  const ProgramOutcome run =
      RunTessarine({"vertices", Data("countries.shp"), "-o", In("map.shp"), "-d", In("map.shp"), "--overwrite", "-q"});
  EXPECT_EQ(run.status, 2) << run.err;
  EXPECT_EQ(ReadFile(In("map.shp")), ReadFile(Data("graphics.json")));
  EXPECT_THAT(Left(), ElementsAre("map.gpkg", "map.json", "map.shp"));
}

// Many lines of some vertices each, so that copying takes its time.
void WriteManyLines(const std::string& path) {
  GDALAllRegister();
  const auto data = GDALDatasetUniquePtr(
      GetGDALDriverManager()->GetDriverByName("ESRI Shapefile")->Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
  OGRSpatialReference reference;
  reference.importFromEPSG(4326);
  OGRLayer* layer = data->CreateLayer("many", &reference, wkbLineString, nullptr);
  OGRFieldDefn key("k", OFTInteger);
  ASSERT_EQ(layer->CreateField(&key), OGRERR_NONE);
  OGRFeature feature(layer->GetLayerDefn());
  for (int row = 0; row < 150000; ++row) {
    OGRLineString line;
    for (int vertex = 0; vertex < 5; ++vertex) line.addPoint(row % 170 + 0.1 * vertex, row % 80);
    feature.SetFID(OGRNullFID);
    feature.SetField(0, row);
    feature.SetGeometry(&line);
    ASSERT_EQ(layer->CreateFeature(&feature), OGRERR_NONE);
  }
}

class StoppedCopies : public Copies, public ::testing::WithParamInterface<std::pair<const char*, const char*>> {};

TEST_P(StoppedCopies, LeaveTheOldOutputAndNothingElse) {
  const auto [copy, grows] = GetParam();
  WriteManyLines(In("many.shp"));
  const std::string file = In(std::string(copy).substr(0, std::string(copy).find("/")));
  ASSERT_EQ(Calculate(Data("disputed_borders.shp"), In(copy)).status, 0);
  const std::vector<std::string> before = Left();
  const auto rows = OpenData(file)->GetLayer(0)->GetFeatureCount();
  const ProgramOutcome run = RunAndInterrupt(
      {"calculate", In("many.shp"), "--all-measures", "--yes", "-o", In(copy), "--overwrite", "--report", In("r.json")},
      In(grows), 20000, SIGTERM);
  EXPECT_EQ(run.status, 1) << run.out << run.err;
  EXPECT_THAT(run.err, HasSubstr("Stopping"));
  EXPECT_THAT(run.out, HasSubstr("Nothing of the copy is kept")) << run.err;
  EXPECT_EQ(Report()["outcome"], "stopped");
  EXPECT_TRUE(Report()["output"].is_null());
  EXPECT_EQ(Report()["records"]["written"], 0);
  fs::remove(In("r.json"));
  EXPECT_EQ(Left(), before);
  EXPECT_EQ(OpenData(file)->GetLayer(0)->GetFeatureCount(), rows);
}

INSTANTIATE_TEST_SUITE_P(Formats, StoppedCopies,
                         ::testing::Values(std::pair("s.shp", "s.shp"), std::pair("s.gpkg", "s.gpkg"),
                                           std::pair("s.geojson", "s.geojson.work.gpkg")),
                         [](const auto& row) {
                           std::string name = row.param.first;
                           return name.substr(name.find('.') + 1);
                         });

TEST_F(Copies, AStopWhileMeasuringKeepsTheCopyWithWhatWasDone) {
  WriteManyLines(In("many.shp"));
  // The table of the copy grows by the new columns once its records are there.
  const std::uintmax_t table = fs::file_size(In("many.dbf"));
  const ProgramOutcome run = RunAndInterrupt(
      {"calculate", In("many.shp"), "--all-measures", "--yes", "-o", In("m.shp"), "--report", In("r.json")},
      In("m.dbf"), table + 1000000);
  EXPECT_EQ(run.status, 1) << run.out << run.err;
  EXPECT_EQ(Report()["outcome"], "stopped");
  EXPECT_EQ(Report()["output"], In("m.shp"));
  EXPECT_EQ(Report()["records"]["written"], 150000);
  EXPECT_EQ(OpenData(In("m.shp"))->GetLayer(0)->GetFeatureCount(), 150000);
  EXPECT_THAT(LeftBeside({"many.shp", "many.shx", "many.dbf", "many.prj", "m.shp", "m.shx", "m.dbf", "m.prj", "m.cpg",
                          "r.json"}),
              IsEmpty());
}

TEST_F(Copies, ADiskThatIsFullCostsOnlyTheCopy) {
  WriteManyLines(In("many.shp"));
  for (const char* copy : {"f.shp", "f.gpkg", "f.geojson"}) {
    const std::vector<std::string> before = Left();
    const ProgramOutcome run = RunWithoutRoom(
        {"calculate", In("many.shp"), "-m", "1", "-q", "-o", In(copy), "--report", In("r.json")}, 3000000);
    EXPECT_EQ(run.status, 1) << copy << run.out;
    EXPECT_EQ(Report()["outcome"], "failed") << copy;
    EXPECT_EQ(Report()["records"]["written"], 0) << copy;
    EXPECT_FALSE(Report()["failure"].is_null()) << copy;
    EXPECT_THAT(run.err, HasSubstr(In(copy))) << copy;
    fs::remove(In("r.json"));
    EXPECT_EQ(Left(), before) << copy;
  }
}

}  // namespace
}  // namespace tessarine::testing
