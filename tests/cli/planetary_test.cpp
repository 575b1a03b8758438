// SPDX-License-Identifier: GPL-2.0-or-later
// The commands of the planetary tools, as a user runs them.
#include <gmock/gmock.h>
#include <ogrsf_frmts.h>

#include <filesystem>
#include <fstream>

#include "cli/program_run.h"

namespace tessarine::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class Planetary : public ProgramTest {
 protected:
  static std::vector<double> AreasIn(const std::string& file) {
    GDALAllRegister();
    std::vector<double> areas;
    const GDALDatasetUniquePtr data(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
    if (!data) return areas;
    for (const auto& feature : *data->GetLayer(0)) {
      areas.push_back(OGR_G_Area(OGRGeometry::ToHandle(feature->GetGeometryRef())));
    }
    return areas;
  }
};

TEST_F(Planetary, WhatIsAskedWronglyIsRefusedAndLeavesNothing) {
  struct Row {
    std::vector<std::string> arguments;
    const char* complaint;
  };
  const std::string countries = Data("countries.shp");
  const Row rows[] = {
      {{"wrap", countries},
       "'wrap' needs a box: --range 180, --range 360 or --bounds W,S,E,N. A --document that remembers one serves, "
       "too."},
      {{"wrap", countries, "--bounds", "10,5,20"}, "--bounds takes four numbers"},
      {{"wrap", countries, "--bounds", "10,0,5,20"}, "Western Boundary Value >= Eastern Boundary Value..."},
      {{"wrap", countries, "--bounds", "10,south,15,20"}, "Southern Boundary Value is invalid..."},
      {{"wrap", countries, "--range", "270"}, "--range"},
      {{"wrap", countries, "--range", "180", "--pole", "north"}, "--short-steps"},
      {{"wrap", countries, "--range", "180", "--short-steps", "--pole", "east"}, "--pole"},
      {{"wrap", "countries", "--document", Data("graphics.json")}, "'wrap' needs a box: --range 180"},
      {{"wrap", countries, "--range", "180", "--shift", "half"}, "--shift: 'half' is no number of degrees."},
      {{"to-graphic", countries, "--radii", "0,5"}, "--radii 0,5 isn't understood"},
      {{"to-centric", countries, "--spheroid", "Marz 2000"}, "There is no spheroid 'Marz 2000'. Near are 'Mars 2000'"},
      {{"to-centric", countries, "--spheroid", "Mars 2000", "--radii", "2,1"}, "excludes"},
  };
  for (Row row : rows) {
    row.arguments.insert(row.arguments.end(), {"-o", In("out.shp")});
    const ProgramOutcome run = RunTessarine(row.arguments);
    EXPECT_EQ(run.status, 2) << row.complaint;
    EXPECT_THAT(run.out + run.err, HasSubstr(row.complaint));
  }
  EXPECT_THAT(Left(), IsEmpty());
}

TEST_F(Planetary, WrapAndConvertWithTheOptionsOfTheDialogs) {
  const ProgramOutcome wrap = RunTessarine(
      {"wrap", Data("countries.shp"), "--bounds", "-90,-90,270,90", "--shift", "-12.5", "-o", In("a.gdb/wrapped")});
  ASSERT_EQ(wrap.status, 0) << wrap.err;
  EXPECT_THAT(wrap.out, HasSubstr("  ** Option:  Custom Wrap Boundaries\n  ** Western Boundary:  -90\n"));
  EXPECT_THAT(wrap.out, HasSubstr("  ** Longitudinal Shift:  -12.5 decimal degrees\n"));
  EXPECT_THAT(wrap.out, HasSubstr("  ** Feature Class:  wrapped\n  ** Workspace:  " + In("a.gdb") + "\n"));
  EXPECT_THAT(wrap.out, HasSubstr("Contains 177 features\n"));

  const ProgramOutcome mars = RunTessarine({"to-centric", In("a.gdb") + ":wrapped", "--spheroid", "mars 2000", "--wrap",
                                            "360", "-o", In("mars.shp"), "--report", In("mars.json"), "--quiet"});
  ASSERT_EQ(mars.status, 0) << mars.err;
  EXPECT_EQ(mars.out, "");
  const std::string report = ReadFile(In("mars.json"));
  EXPECT_THAT(report, HasSubstr("\"written\": 177"));
  EXPECT_THAT(report, HasSubstr("Semi-Minor (Polar) Radius:  3376200 meters"));

  const ProgramOutcome again = RunTessarine({"to-graphic", In("mars.shp"), "-o", In("mars.shp"), "--overwrite"});
  EXPECT_EQ(again.status, 2);
  EXPECT_THAT(again.err, HasSubstr("is read by this run"));
  const ProgramOutcome taken = RunTessarine({"wrap", Data("cities.shp"), "--range", "360", "-o", In("mars.shp")});
  EXPECT_EQ(taken.status, 2);
  const ProgramOutcome plan =
      RunTessarine({"wrap", Data("cities.shp"), "--range", "360", "-o", In("mars.shp"), "--dry-run", "--overwrite"});
  EXPECT_EQ(plan.status, 0) << plan.err;
  EXPECT_THAT(plan.out, HasSubstr("planned only: nothing was written"));
  EXPECT_THAT(plan.out, HasSubstr("Already Exists"));
  const ProgramOutcome over =
      RunTessarine({"wrap", Data("cities.shp"), "--range", "360", "-o", In("mars.shp"), "--overwrite"});
  EXPECT_EQ(over.status, 0) << over.err;
}

TEST_F(Planetary, StepsGoTheShortWayIfAskedFor) {
  std::ofstream(In("jump.json")) << R"({"type": "FeatureCollection", "features": [
    {"type": "Feature", "properties": {}, "geometry": {"type": "Polygon", "coordinates":
      [[[170, 0], [-170, 0], [-170, 10], [170, 10], [170, 0]]]}},
    {"type": "Feature", "properties": {}, "geometry": {"type": "Polygon", "coordinates":
      [[[0, -60], [-120, -66], [120, -63], [0, -60]]]}}]})";
  struct Row {
    std::vector<std::string> options;
    double box, cap;  // square degrees
  };
  const Row rows[] = {
      {{}, 3400, -1}, {{"--short-steps"}, 200, 360 * 27}, {{"--short-steps", "--pole", "north"}, 200, 360 * 153}};
  int number = 0;
  for (const Row& row : rows) {
    const std::string out = In("out" + std::to_string(++number) + ".shp");
    std::vector<std::string> arguments{"wrap", In("jump.json"), "--range", "180", "-o", out};
    arguments.insert(arguments.end(), row.options.begin(), row.options.end());
    const ProgramOutcome run = RunTessarine(arguments);
    ASSERT_EQ(run.status, 0) << run.err;
    const std::vector<double> areas = AreasIn(out);
    ASSERT_EQ(areas.size(), 2U);
    EXPECT_NEAR(areas[0], row.box, 1e-9);
    if (row.cap > 0) {
      EXPECT_NEAR(areas[1], row.cap, 1e-9);
    }
  }
}

TEST_F(Planetary, SettingsOfADocumentApplyAndAreTold) {
  for (const char* file : {"graphics.json", "countries.shp", "countries.shx", "countries.dbf", "countries.prj"}) {
    std::filesystem::copy(Data(file), folder_);
  }
  const std::vector<std::string> document{"--document", In("graphics.json")};
  const auto run = [&](std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), document.begin(), document.end());
    return RunTessarine(arguments);
  };
  const ProgramOutcome first =
      run({"wrap", "countries", "--bounds", "-90,-90,270,90", "--shift", "-12.5", "-o", In("a.shp")});
  ASSERT_EQ(first.status, 0) << first.err;
  EXPECT_THAT(first.out, Not(HasSubstr("Taken from the Map Document")));
  for (const bool planned : {true, false}) {
    std::vector<std::string> arguments{"wrap", "countries", "-o", In("b.shp")};
    if (planned) arguments.push_back("--dry-run");
    const ProgramOutcome second = run(arguments);
    ASSERT_EQ(second.status, 0) << second.err;
    EXPECT_THAT(second.out, HasSubstr("  ** Western Boundary:  -90\n"));
    EXPECT_THAT(second.out, HasSubstr("Taken from the Map Document:\n  ** Boundary Box\n"
                                      "  ** Longitudinal Shift:  -12.5 decimal degrees\n"));
  }
  const ProgramOutcome told = run({"wrap", "countries", "--range", "360", "--shift", "0", "-o", In("c.shp")});
  EXPECT_THAT(told.out, Not(HasSubstr("Taken from the Map Document")));
  const ProgramOutcome latitudes = run({"to-centric", "countries", "-o", In("d.shp")});
  EXPECT_THAT(latitudes.out, HasSubstr("Taken from the Map Document:\n  ** Wrap Option\n---"));
}

}  // namespace
}  // namespace tessarine::testing
