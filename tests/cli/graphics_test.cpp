// SPDX-License-Identifier: GPL-2.0-or-later
// The graphics commands as a user runs them.
#include <gmock/gmock.h>
#include <ogrsf_frmts.h>

#include <nlohmann/json.hpp>

#include "cli/program_run.h"

namespace tessarine::testing {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;

class Graphics : public ProgramTest {
 protected:
  Graphics() {
    for (const auto& entry : std::filesystem::directory_iterator(TESSARINE_TEST_DATA)) {
      std::filesystem::copy(entry.path(), folder_);
    }
  }
  [[nodiscard]] json Document() const { return json::parse(ReadFile(In("graphics.json"))); }
  ProgramOutcome Run(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "graphics");
    return RunTessarine(arguments);
  }
  static int Count(const std::string& path) {
    GDALAllRegister();
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR));
    return dataset ? static_cast<int>(dataset->GetLayer(0)->GetFeatureCount()) : -1;
  }
};

TEST_F(Graphics, AllFiveConversionsOfAllAndOfSelectedElements) {
  struct Row {
    std::vector<std::string> to;
    int all, selected;  // counts; nothing to convert is refused
  };
  const Row rows[] = {{{"--to", "points"}, 2, 1},
                      {{"--to", "polylines"}, 2, 1},
                      {{"--to", "polylines", "--both"}, 8, 1},
                      {{"--to", "polygons"}, 6, 0},
                      {{"--to", "polygons", "--both"}, 8, 1}};
  int number = 0;
  for (const Row& row : rows) {
    for (const bool selected : {false, true}) {
      const std::string output = In("out" + std::to_string(++number) + ".shp");
      std::vector<std::string> arguments = {"to-features", In("graphics.json"), "-o", output,
                                            selected ? "--selected" : "--all"};
      arguments.insert(arguments.end(), row.to.begin(), row.to.end());
      const ProgramOutcome run = Run(arguments);
      const int expected = selected ? row.selected : row.all;
      EXPECT_EQ(run.status, expected > 0 ? 0 : 2) << output << run.err;
      EXPECT_EQ(Count(output), expected > 0 ? expected : -1) << output;
      if (expected == 0) {
        EXPECT_THAT(run.err, HasSubstr("No selected graphic polygons in map!"));
      }
    }
  }
  // The layers look like the first of their graphics.
  const json layers = Document()["map"]["layers"];
  EXPECT_EQ(layers[0].value("symbol", ""), "") << "no polygon is selected";
  EXPECT_EQ(layers[1].value("symbol", ""), "fill green");
}

TEST_F(Graphics, EmptyClassesAndRefusals) {
  for (const char* shapes : {"points", "polylines", "polygons"}) {
    EXPECT_EQ(Run({"new", In("graphics.json"), shapes, "-o", In(std::string("x.gdb/") + shapes)}).status, 0);
  }
  EXPECT_EQ(Run({"new", In("graphics.json"), "points", "-o", In("x.gdb/points")}).status, 2);
  EXPECT_THAT(Run({"new", In("graphics.json"), "points", "-o", In("x.gdb/set/points_2")}).out,
              HasSubstr("Shapefile saved to:\n   " + In("x.gdb/set/points_2")));
  EXPECT_THAT(Run({"new", In("graphics.json"), "circles", "-o", In("free.shp")}).err, HasSubstr("is no shape"));
  EXPECT_THAT(Run({"new", In("graphics.json"), "points", "-o", In("y.shp"), "--reference", "EPSG:4978"}).err,
              HasSubstr("neither geographic nor projected"));
  EXPECT_EQ(Run({"new", In("graphics.json"), "points", "-o", In("none/y.shp")}).status, 2);
  WriteFile(In("bare.json"), R"({"format": "tessarine map document"})");
  EXPECT_THAT(Run({"new", In("bare.json"), "points", "-o", In("y.shp")}).err, HasSubstr("--reference"));
  EXPECT_EQ(Run({"new", In("bare.json"), "points", "-o", In("y.shp"), "--reference", "EPSG:4326"}).status, 0);
  WriteFile(In("page.json"), R"({"format": "tessarine map document", "active view": "layout"})");
  const ProgramOutcome page = Run({"to-features", In("page.json"), "-t", "points", "-o", In("z.shp")});
  EXPECT_EQ(page.status, 2);
  EXPECT_THAT(page.err, HasSubstr("Conversion Unavailable in Layout View..."));
}

TEST_F(Graphics, SelectNameListAndImport) {
  EXPECT_EQ(Run({"select", In("graphics.json"), "--circles", "--pattern", "a*"}).out,
            "4 of 12 graphic elements selected.\n");
  EXPECT_EQ(Run({"select", In("graphics.json"), "--frames"}).status, 2);
  EXPECT_EQ(Run({"name", In("graphics.json"), "road"}).out, "4 of 12 graphic elements named 'road'.\n");
  EXPECT_EQ(Run({"select", In("graphics.json"), "--name", "road"}).status, 0);
  EXPECT_EQ(Run({"name", In("graphics.json")}).status, 2) << "nobody confirms that the names go";
  EXPECT_EQ(Document()["map"]["graphics"][6]["name"], "road");
  EXPECT_EQ(Run({"name", In("graphics.json"), "--yes"}).status, 0);
  EXPECT_EQ(Document()["map"]["graphics"][6].value("name", ""), "");

  EXPECT_EQ(Run({"import", In("drawing.kml"), In("fresh.json")}).status, 0);
  EXPECT_THAT(Run({"list", In("fresh.json")}).out, HasSubstr("Camp & co"));
  EXPECT_EQ(Run({"to-features", In("fresh.json"), "-t", "points", "-o", In("camp.shp")}).status, 0);
  EXPECT_EQ(Count(In("camp.shp")), 3);
  EXPECT_EQ(Run({"import", In("none.kml"), In("fresh.json")}).status, 2);
}

TEST_F(Graphics, About) {
  const ProgramOutcome run = RunTessarine({"about"});
  EXPECT_EQ(run.status, 0);
  for (const char* words : {"Enjoy!", "Version 3.0.0", "GDAL", "Tessarine_Manual.pdf"})
    EXPECT_THAT(run.out, HasSubstr(words));
}

}  // namespace
}  // namespace tessarine::testing
