// SPDX-License-Identifier: GPL-2.0-or-later
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/program_run.h"

namespace tessarine::testing {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;

class Documents : public ProgramTest {
 protected:
  Documents() {
    for (const auto& entry : std::filesystem::directory_iterator(TESSARINE_TEST_DATA)) {
      std::filesystem::copy(entry.path(), folder_);
    }
  }
  [[nodiscard]] json Document() const { return json::parse(ReadFile(In("graphics.json"))); }
  [[nodiscard]] int Selected() const {
    int count = 0;
    const json document = Document();
    for (const json& element : document["map"]["graphics"]) count += element.value("selected", false) ? 1 : 0;
    return count;
  }
};

TEST_F(Documents, SelectionIsChangedInTheFile) {
  ASSERT_EQ(Selected(), 2);
  EXPECT_EQ(RunTessarine({"select-graphics", In("graphics.json"), "--flip"}).out,
            "10 of 12 graphic elements selected.\n");
  EXPECT_EQ(Selected(), 10);
  EXPECT_EQ(RunTessarine({"select-graphics", In("graphics.json"), "--all", "--dry-run"}).status, 0);
  EXPECT_EQ(Selected(), 10);
  EXPECT_EQ(RunTessarine({"select-graphics", In("graphics.json"), "--none"}).status, 0);
  EXPECT_EQ(Selected(), 0);
  EXPECT_EQ(RunTessarine({"select-graphics", In("graphics.json"), "--all", "--none"}).status, 2);
}

TEST_F(Documents, ZoomTakesTheSelectedBoundsTimesOneAndATwentieth) {
  // London to Berlin: 13.52 by 3.66 degrees about 6.64, 50.69.
  const ProgramOutcome run = RunTessarine({"zoom", In("graphics.json")});
  EXPECT_EQ(run.status, 0) << run.err;
  const json extent = Document()["map"]["extent"];
  EXPECT_NEAR(extent[0], 6.64 - 1.05 * 13.52 / 2, 1e-12);
  EXPECT_NEAR(extent[1], 50.69 - 1.05 * 3.66 / 2, 1e-12);
  EXPECT_NEAR(extent[2], 6.64 + 1.05 * 13.52 / 2, 1e-12);
  EXPECT_NEAR(extent[3], 50.69 + 1.05 * 3.66 / 2, 1e-12);
}

TEST_F(Documents, ResultLayerIsAddedAndFoundAgain) {
  ASSERT_EQ(
      RunTessarine({"vertices", "countries", "--document", In("graphics.json"), "-o", In("v.gdb/v"), "-q"}).status, 0);
  ASSERT_EQ(RunTessarine({"vertices", "disputed borders", "-d", In("graphics.json"), "-o", In("w.shp"), "-q"}).status,
            0);
  std::vector<std::string> names;
  const json document = Document();
  for (const json& layer : document["map"]["layers"]) names.push_back(layer["name"]);
  EXPECT_THAT(names, ::testing::IsSupersetOf({"v", "w"}));
  // A layer of points can't be converted, so the refusal shows that its data was found.
  const ProgramOutcome again = RunTessarine({"vertices", "v", "-d", In("graphics.json"), "-o", In("x.shp")});
  EXPECT_EQ(again.status, 2);
  EXPECT_THAT(again.err, HasSubstr("wrong kind"));
}

TEST_F(Documents, APathIsNeverTakenForALayerOfThatName) {
  // The document's layer of lines bears the name of a file of points, and a group that of a layer.
  WriteFile(In("names.json"), R"({"format": "tessarine map document", "map": {"layers": [
    {"name": "both", "members": [{"name": "inner", "source": "cities.shp"}]},
    {"name": "both", "source": "countries.shp"},
    {"name": "cities", "source": "countries.shp"},
    {"name": "twice", "source": "countries.shp"}, {"name": "twice", "source": "cities.shp"}]}})");
  const std::vector<std::string> rest{"-d", In("names.json"), "-n", "-o", In("v.shp")};
  const auto plan = [&](const std::string& source) {
    std::vector<std::string> arguments{"vertices", source};
    arguments.insert(arguments.end(), rest.begin(), rest.end());
    return RunTessarine(arguments);
  };
  const ProgramOutcome points = plan(In("cities.shp"));
  EXPECT_EQ(points.status, 2) << points.out;
  EXPECT_THAT(points.err, HasSubstr("wrong kind"));
  EXPECT_EQ(plan("both").status, 0) << plan("both").err;
  EXPECT_THAT(plan("twice").err, HasSubstr("several layers named 'twice'"));
}

TEST_F(Documents, AFieldsNameWinsOverAnAlias) {
  WriteFile(In("aliases.json"), R"({"format": "tessarine map document", "map": {"layers": [
    {"name": "land", "source": "countries.shp", "fields": {"continent": {"alias": "name"},
     "pop_est": {"alias": "Figure"}, "gdp_md_est": {"alias": "Figure"}, "iso_a3": {"alias": "Code"}}}]}})");
  const auto convert = [&](const std::string& fields) {
    return RunTessarine({"centroids", "land", "-d", In("aliases.json"), "-f", fields, "-n", "-q", "-o", In("c.shp"),
                         "-r", In("p.json")});
  };
  for (const auto& [asked, field] : std::vector<std::pair<std::string, std::string>>{
           {"name", "name"}, {"code", "iso_a3"}, {"gdp_md_est", "gdp_md_est"}, {"pop_est", "pop_est"}}) {
    const ProgramOutcome run = convert(asked);
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(json::parse(ReadFile(In("p.json")))["plan"]["fields"].back(), field) << asked;
  }
  const ProgramOutcome unsure = convert("Figure");
  EXPECT_EQ(unsure.status, 2);
  EXPECT_THAT(unsure.err, HasSubstr("one of several"));
}

TEST_F(Documents, OldHostDisablesBuildingPolygons) {
  WriteFile(In("old.json"), R"({"format": "tessarine map document", "host version": "9.1"})");
  EXPECT_THAT(RunTessarine({"menu", "-d", In("old.json")}).out,
              HasSubstr("Buil&d Polygons (Disabled: Pre-ArcGIS 9.2)  [Tessarine_BuildPolygon]  (disabled)"));
  const ProgramOutcome now = RunTessarine({"menu"});
  EXPECT_THAT(now.out, HasSubstr("&Tessarine Tools  [menu Tessarine]"));
  EXPECT_THAT(now.out, Not(HasSubstr("(disabled)")));
}

TEST_F(Documents, ShortSettingsAreReportedAndTheDocumentStillWorks) {
  WriteFile(In("short.json"), R"({"format": "tessarine map document", "settings": [{"double": 1.5}]})");
  const ProgramOutcome run = RunTessarine({"menu", "-d", In("short.json")});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("IPersistVariant_Load"));
  EXPECT_THAT(run.err, HasSubstr("settings end early"));
  EXPECT_THAT(run.out, HasSubstr("&Tessarine Tools"));
}

class Info : public ProgramTest {};

TEST_F(Info, TellsShapeReferenceAndFields) {
  const ProgramOutcome run = RunTessarine({"info", Data("cities.shp")});
  EXPECT_EQ(run.status, 0);
  for (const char* words :
       {"Layer: cities", "point", "geographic, WGS 84", "6378137", "6356752.314245", "243", "name"}) {
    EXPECT_THAT(run.out, HasSubstr(words));
  }
  WriteFile(In("plain.json"), R"({"type":"FeatureCollection","features":[]})");
  EXPECT_EQ(RunTessarine({"info", In("plain.json")}).status, 0);
  EXPECT_EQ(RunTessarine({"info", In("none.shp")}).status, 2);
}

std::vector<std::string> CommandNames() {
  std::istringstream lines(RunTessarine({"--help"}).out);
  std::vector<std::string> names;
  bool in_list = false;
  for (std::string line; std::getline(lines, line);) {
    if (in_list && line.starts_with("  ") && line[2] != ' ') names.push_back(line.substr(2, line.find(' ', 2) - 2));
    in_list = in_list || line == "Subcommands:";
  }
  return names;
}

std::vector<std::string> ExampleLines(const std::string& help) {
  std::istringstream lines(help);
  std::vector<std::string> examples;
  bool in_examples = false;
  for (std::string line; std::getline(lines, line);) {
    if (in_examples && line.starts_with("  tessarine ")) examples.push_back(line);
    in_examples = in_examples || line.starts_with("Example");
  }
  return examples;
}

TEST_F(Info, EveryCommandHasAnExampleThatWorks) {
  std::filesystem::create_directory(folder_ / "tests");
  std::filesystem::copy(TESSARINE_TEST_DATA, folder_ / "tests/data");
  const std::filesystem::path program(TESSARINE_PROGRAM);
  const std::vector<std::string> commands = CommandNames();
  EXPECT_GE(commands.size(), 20U);
  for (const std::string& command : commands) {
    const ProgramOutcome help = RunTessarine({command, "--help"});
    EXPECT_EQ(help.status, 0) << command;
    const std::vector<std::string> examples = ExampleLines(help.out);
    EXPECT_THAT(examples, ::testing::Contains(::testing::StartsWith("  tessarine " + command)));
    const std::filesystem::path place = folder_ / command;
    std::filesystem::create_directory(place);
    std::filesystem::create_directory_symlink(folder_ / "tests", place / "tests");
    for (const std::string& example : examples) {
      const std::string line = "cd '" + place.string() + "' && PATH='" + program.parent_path().string() + "':$PATH" +
                               example + " </dev/null >out 2>&1";
      EXPECT_EQ(std::system(line.c_str()), 0) << example << "\n" << ReadFile(place / "out");
    }
  }
}

TEST_F(Info, VersionNamesTheLibraries) {
  EXPECT_THAT(RunTessarine({"--version"}).out,
              ::testing::ContainsRegex("tessarine [0-9.]+ \\(GDAL [0-9.]+, GEOS [0-9.]+, PROJ [0-9.]+\\)"));
}

}  // namespace
}  // namespace tessarine::testing
