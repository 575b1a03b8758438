// SPDX-License-Identifier: GPL-2.0-or-later
// What commands read: selections, archives, the web, pipes, several sources at once.
#include <cpl_vsi.h>
#include <gmock/gmock.h>

#include "cli/copied_data.h"
#include "cli/range_server.h"

namespace tessarine::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class Sources : public Copies {
 protected:
  // The names in the first layer, in order.
  static std::vector<std::string> NamesIn(const std::string& path) {
    std::vector<std::string> names;
    const auto data = OpenData(path);
    if (data == nullptr) return names;
    for (const auto& row : *data->GetLayer(0)) names.emplace_back(row->GetFieldAsString("name"));
    return names;
  }
  ProgramOutcome Centroids(const std::vector<std::string>& more) const {
    std::vector<std::string> arguments = {"centroids", Data("countries.shp"), "--fields", "name", "-q"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return RunTessarine(arguments);
  }
  // The countries as lines of GeoJSON.
  [[nodiscard]] std::string Lines() const {
    EXPECT_EQ(RunTessarine({"wrap", Data("countries.shp"), "--range", "180", "-q", "-o", In("lines.geojsonl")}).status,
              0);
    return In("lines.geojsonl");
  }
};

TEST_F(Sources, ABoxTakesWhatSharesAPlaceWithIt) {
  // What GDAL itself finds, whose envelopes alone would take more.
  std::vector<std::string> meant;
  {
    const auto data = OpenData(Data("countries.shp"));
    OGRPolygon box;
    OGRLinearRing ring;
    for (const auto& [x, y] : {std::pair(5.0, 45.0), {5.0, 48.0}, {10.0, 48.0}, {10.0, 45.0}, {5.0, 45.0}}) {
      ring.addPoint(x, y);
    }
    box.addRing(&ring);
    for (const auto& row : *data->GetLayer(0)) {
      if (row->GetGeometryRef()->Intersects(&box)) meant.emplace_back(row->GetFieldAsString("name"));
    }
  }
  ASSERT_EQ(meant.size(), 5U);
  ASSERT_EQ(Centroids({"--bbox", "5,45,10,48", "-o", In("o.geojson")}).status, 0);
  EXPECT_EQ(NamesIn(In("o.geojson")), meant);
  // Tools that take whole layers, too, and both conditions together.
  ASSERT_EQ(RunTessarine({"wrap", Data("countries.shp"), "--range", "360", "--bbox", "5,45,10,48", "--where",
                          "pop_est > 60000000", "-q", "-o", In("w.gpkg")})
                .status,
            0);
  EXPECT_THAT(NamesIn(In("w.gpkg")), ElementsAre("France", "Germany", "Italy"));
}

TEST_F(Sources, SelectionsThatCannotBeAreRefused) {
  for (const auto& [box, says] : {std::pair("10,45,5,48", "takes west, south, east and north"),
                                  {"1,2,3", "takes west, south"},
                                  {"a,2,3,4", "takes west, south"},
                                  {"-170,-50,-169,-49", "lies in the box"}}) {
    const ProgramOutcome run = Centroids({"--bbox", box, "-o", In("o.gpkg")});
    EXPECT_EQ(run.status, 2) << box;
    EXPECT_THAT(run.err, HasSubstr(says));
  }
  const ProgramOutcome query = Centroids({"--sql", "SELECT nothing FROM nowhere", "-o", In("o.gpkg")});
  EXPECT_EQ(query.status, 2);
  EXPECT_THAT(Left(), IsEmpty());
}

TEST_F(Sources, AQueryIsASource) {
  ASSERT_EQ(RunTessarine({"centroids", Data("countries.shp"), "--sql",
                          "SELECT name, pop_est * 2 AS twice FROM countries WHERE name = 'Chad'", "--all-fields", "-q",
                          "-o", In("o.gpkg")})
                .status,
            0);
  EXPECT_THAT(NamesIn(In("o.gpkg")), ElementsAre("Chad"));
  EXPECT_EQ(Values(In("o.gpkg"), "", "name", "twice").size(), 1U);
  // What it reads isn't written over.
  fs::copy_file(In("o.gpkg"), In("s.gpkg"));
  const ProgramOutcome over = RunTessarine(
      {"wrap", In("s.gpkg"), "--sql", "SELECT * FROM o", "--range", "360", "-q", "--overwrite", "-o", In("s.gpkg:o")});
  EXPECT_EQ(over.status, 2);
  EXPECT_THAT(over.err, HasSubstr("is read by this run"));
}

TEST_F(Sources, AnArchiveIsASource) {
  GDALAllRegister();
  for (const char* ending : {"shp", "shx", "dbf", "prj"}) {
    const std::string name = std::string("countries.") + ending, bytes = ReadFile(Data(name));
    VSILFILE* file = VSIFOpenL(("/vsizip/" + In("c.zip") + "/" + name).c_str(), "wb");
    ASSERT_NE(file, nullptr);
    ASSERT_EQ(VSIFWriteL(bytes.data(), 1, bytes.size(), file), bytes.size());
    VSIFCloseL(file);
  }
  const std::vector<std::string> meant = NamesIn(Data("countries.shp"));
  for (const std::string& source : {In("c.zip"), "/vsizip/" + In("c.zip") + "/countries.shp"}) {
    ASSERT_EQ(RunTessarine({"centroids", source, "--fields", "name", "-q", "--overwrite", "-o", In("o.gpkg")}).status,
              0);
    EXPECT_EQ(NamesIn(In("o.gpkg")), meant) << source;
  }
}

TEST_F(Sources, TheWebIsReadInRanges) {
  ASSERT_EQ(RunTessarine({"wrap", Data("countries.shp"), "--range", "180", "-q", "-o", In("c.fgb")}).status, 0);
  const std::string content = ReadFile(In("c.fgb"));
  const RangeServer server("c.fgb", content);
  const ProgramOutcome run =
      RunTessarine({"centroids", server.Address(), "--fields", "name", "-q", "-o", In("o.gpkg")});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(NamesIn(In("o.gpkg")).size(), 177U);
  EXPECT_GT(server.Sent(), 0U);
  const ProgramOutcome missing = RunTessarine({"centroids", server.Address() + "x", "-q", "-o", In("n.gpkg")});
  EXPECT_EQ(missing.status, 2);
  EXPECT_THAT(missing.err, HasSubstr("can't be opened"));
  EXPECT_FALSE(fs::exists(In("n.gpkg")));
}

TEST_F(Sources, PipesCarryGeoJsonLines) {
  const ProgramOutcome first = RunTessarine({"wrap", "-", "--range", "360", "-o", "-"}, Lines());
  ASSERT_EQ(first.status, 0) << first.err;
  EXPECT_THAT(first.err, HasSubstr("Wrap to Boundary Conversion Complete"));
  EXPECT_THAT(first.err, HasSubstr("standard output"));
  EXPECT_THAT(first.err, Not(HasSubstr("tessarine-pipe")));
  // Data alone: each line is a feature.
  std::istringstream lines(first.out);
  int count = 0;
  for (std::string line; std::getline(lines, line); ++count) {
    EXPECT_EQ(nlohmann::json::parse(line)["type"], "Feature");
  }
  EXPECT_EQ(count, 177);
  WriteFile(In("first.geojsonl"), first.out);
  const ProgramOutcome second =
      RunTessarine({"calculate", "-", "-m", "Sph. Area=AREA", "-q", "-o", "-"}, In("first.geojsonl"));
  ASSERT_EQ(second.status, 0) << second.err;
  EXPECT_GT(nlohmann::json::parse(second.out.substr(0, second.out.find('\n')))["properties"]["AREA"], 0.0);
}

TEST_F(Sources, APipeWithoutFeaturesIsRefused) {
  WriteFile(In("rubbish"), "no features\n");
  for (const std::string& input : {std::string("/dev/null"), In("rubbish")}) {
    const ProgramOutcome run = RunTessarine({"wrap", "-", "--range", "360", "-o", "-"}, input);
    EXPECT_EQ(run.status, 2) << input;
    EXPECT_THAT(run.out, IsEmpty());
    EXPECT_THAT(run.err, StartsWith("tessarine: "));
  }
  const ProgramOutcome plan = RunTessarine({"wrap", "-", "--range", "360", "-o", "-", "-n"}, Lines());
  EXPECT_EQ(plan.status, 0);
  EXPECT_THAT(plan.out, IsEmpty());
}

TEST_F(Sources, SeveralSourcesGoOnBehindAFailingOne) {
  fs::create_directories(In("out"));
  WriteFile(In("bad.gpkg"), "rubbish");
  const std::vector<std::string> arguments = {
      "wrap", Data("countries.shp"), In("bad.gpkg"), Data("cities.shp"), "--range", "360", "-o", In("out")};
  const ProgramOutcome run = RunTessarine(arguments);
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.out, HasSubstr(Data("countries.shp") + ": done, " + In("out/countries.shp")));
  EXPECT_THAT(run.out, HasSubstr(In("bad.gpkg") + ": refused, "));
  EXPECT_THAT(run.out, ::testing::ContainsRegex("cities.shp +done +243 +243\n"));
  EXPECT_EQ(NamesIn(In("out/cities.shp")).size(), 243U);
  EXPECT_FALSE(fs::exists(In("out/bad.gpkg")));
}

TEST_F(Sources, OutputsOfSeveralSourcesBearTheirNames) {
  fs::create_directories(In("out"));
  fs::create_directories(In("other"));
  for (const char* ending : {".shp", ".shx", ".dbf", ".prj"}) {
    fs::copy_file(Data(std::string("cities") + ending), In(std::string("other/cities") + ending));
  }
  ASSERT_EQ(RunTessarine({"wrap", Data("cities.shp"), In("other/cities.shp"), "--range", "360", "-q", "--format",
                          "gpkg", "-o", In("out/")})
                .status,
            0);
  EXPECT_EQ(NamesIn(In("out/cities.gpkg")).size(), 243U);
  EXPECT_EQ(NamesIn(In("out/cities_2.gpkg")).size(), 243U);
  const ProgramOutcome file =
      RunTessarine({"wrap", Data("cities.shp"), In("other/cities.shp"), "--range", "360", "-o", In("one.gpkg")});
  EXPECT_EQ(file.status, 2);
  EXPECT_THAT(file.err, HasSubstr("several sources go into a folder"));
  EXPECT_FALSE(fs::exists(In("one.gpkg")));
}

TEST_F(Sources, EachOfSeveralSourcesHasAReport) {
  fs::create_directories(In("out"));
  WriteFile(In("cities.gpkg"), "rubbish");
  const std::vector<std::string> sources = {"wrap", Data("cities.shp"), In("cities.gpkg"), Data("countries.shp")};
  std::vector<std::string> arguments = sources;
  arguments.insert(arguments.end(), {"--range", "360", "-q", "-o", In("out"), "-r", In("r.json")});
  EXPECT_EQ(RunTessarine(arguments).status, 1);
  EXPECT_EQ(nlohmann::json::parse(ReadFile(In("r_cities.json")))["records"]["read"], 243);
  EXPECT_EQ(nlohmann::json::parse(ReadFile(In("r_countries.json")))["records"]["read"], 177);
  EXPECT_FALSE(fs::exists(In("r.json")));
  // One that never ran has a report of why.
  const auto failed = nlohmann::json::parse(ReadFile(In("r_cities_2.json")));
  EXPECT_EQ(failed["outcome"], "refused");
  EXPECT_THAT(failed["failure"].get<std::string>(), HasSubstr("cities.gpkg"));
  arguments.back() = In("r.xyz");
  EXPECT_EQ(RunTessarine(arguments).status, 2);
}

TEST_F(Sources, PolygonsAreBuiltOfOneSource) {
  const ProgramOutcome run =
      RunTessarine({"build-polygons", Data("disputed_borders.shp"), Data("disputed_borders.shp"), "-o", In("o.shp")});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("'build-polygons' takes one layer, and 2 sources were named"));
}

TEST_F(Sources, AStoreThatAsksForAKeyIsQuoted) {
  for (const char* variable : {"AWS_SECRET_ACCESS_KEY", "AWS_NO_SIGN_REQUEST", "AZURE_STORAGE_ACCOUNT"}) {
    if (std::getenv(variable) != nullptr) GTEST_SKIP() << variable << " is set";
  }
  const ProgramOutcome run = RunTessarine({"centroids", "/vsiaz/box/roads.gpkg", "-o", In("o.gpkg")});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("AZURE_STORAGE_ACCOUNT"));
}

}  // namespace
}  // namespace tessarine::testing
