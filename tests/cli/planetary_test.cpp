// The commands of the planetary tools, as a user runs them.
#include <gmock/gmock.h>

#include "cli/program_run.h"

namespace tessarine::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

class Planetary : public ProgramTest {};

TEST_F(Planetary, WhatIsAskedWronglyIsRefusedAndLeavesNothing) {
  struct Row {
    std::vector<std::string> arguments;
    const char* complaint;
  };
  const std::string countries = Data("countries.shp");
  const Row rows[] = {
      {{"wrap", countries}, "'wrap' needs a box"},
      {{"wrap", countries, "--bounds", "10,5,20"}, "--bounds takes four numbers"},
      {{"wrap", countries, "--bounds", "10,0,5,20"}, "Western Boundary Value >= Eastern Boundary Value..."},
      {{"wrap", countries, "--bounds", "10,south,15,20"}, "Southern Boundary Value is invalid..."},
      {{"wrap", countries, "--range", "270"}, "--range"},
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
      RunTessarine({"wrap", Data("cities.shp"), "--range", "360", "-o", In("mars.shp"), "--dry-run"});
  EXPECT_EQ(plan.status, 0);
  EXPECT_THAT(plan.out, HasSubstr("planned only: nothing was written"));
  EXPECT_THAT(plan.out, HasSubstr("Already Exists"));
  const ProgramOutcome over =
      RunTessarine({"wrap", Data("cities.shp"), "--range", "360", "-o", In("mars.shp"), "--overwrite"});
  EXPECT_EQ(over.status, 0) << over.err;
}

}  // namespace
}  // namespace tessarine::testing
